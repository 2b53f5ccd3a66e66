#include "base/threads/CancellationError.h"
#include "support/QtPrinters.h"
#include "oldsync/MemorySync.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

QDateTime at(qint64 seconds) {
    return QDateTime::fromSecsSinceEpoch(1'600'000'000 + seconds, QTimeZone::utc());
}

class SyncRunTest : public testing::Test {
protected:
    void here(const char* path, const QByteArray& content, qint64 date = 0) {
        world_.mac[QString::fromUtf8(path)] = {content, at(date)};
    }
    void onDevice(const char* path, const QByteArray& content, qint64 date = 0) {
        world_.device[QString::fromUtf8(path)] = {content, at(date)};
    }
    SyncReport run() {
        SyncRunEvents events;
        events.status = [this](const QString& text) { texts_.append(text); };
        events.progress = [this](const SyncProgress& progress) { progress_.push_back(progress); };
        events.ask = [this](const SyncQuestion& question) {
            questions_.push_back(question);
            return answer_;
        };
        return runOnce(world_, pair_, events, stop_.get_token());
    }
    QString failure() {
        try {
            (void)run();
        } catch (const TessaryError& error) {
            return error.message();
        }
        return {};
    }

    MemoryWorld world_;
    SyncPair pair_ = memoryPair();
    bool answer_ = false;
    QStringList texts_;
    std::vector<SyncProgress> progress_;
    std::vector<SyncQuestion> questions_;
    std::stop_source stop_;
};

TEST_F(SyncRunTest, progressAndTextsTellTheSteps) {
    here("gone", "1");
    (void)run();
    world_.device.erase(u"gone"_s);
    here("new", "333");
    onDevice("other", "4444");
    answer_ = true;
    texts_.clear();
    (void)run();
    EXPECT_EQ(texts_.join(u'|'),
              u"Scanning folders…|Awaiting deletion confirmation…|Analyzing files…|"
              "Starting transfer…|Removing gone from Mac|Uploading|Downloading"_s);
    const SyncProgress& last = progress_.back();
    EXPECT_EQ(last.stage, u"Completed"_s);
    EXPECT_TRUE(last.completedFiles == 3 && last.totalFiles == 3);
    EXPECT_TRUE(last.completedBytes == 7 && last.totalBytes == 7);
    (void)run();
    EXPECT_EQ(texts_.back(), u"Up to date"_s);
}

TEST_F(SyncRunTest, conflictKeepsBothVersionsOnBothSides) {
    for (const bool deviceIsNewer : {false, true}) {
        SCOPED_TRACE(deviceIsNewer);
        world_ = MemoryWorld();
        world_.clock = 1'714'559'700; // 2024-05-01 10:35:00
        here("d/note.txt", "mine", 100);
        onDevice("d/note.txt", "theirs", deviceIsNewer ? 200 : 50);
        const SyncReport report = run();
        ASSERT_EQ(report.conflicts.size(), 1);
        const QString copy = report.conflicts.front();
        EXPECT_TRUE(copy.startsWith(u"d/note (conflict 2024-05-01 10"_s));
        for (const MemoryTree* tree : {&world_.mac, &world_.device}) {
            EXPECT_EQ(tree->size(), 2U);
            EXPECT_EQ(tree->at(u"d/note.txt"_s).content, deviceIsNewer ? "theirs" : "mine");
            EXPECT_EQ(tree->at(copy).content, deviceIsNewer ? "mine" : "theirs");
        }
        EXPECT_FALSE(run().hasChanges());
    }
}

/// Somebody changes a file right before the call of this number.
TEST_F(SyncRunTest, fileThatChangesDuringTheRunIsNeverLost) {
    struct Case {
        const char* name;
        SyncMode mode;
        bool moves;
        bool hasOld; ///< the other side has an older version
        bool changesMac;
        const char* latest = "NEW"; ///< the size stays: only the date tells
    };
    const Case cases[] = {
        {"upload", SyncMode::biDirectional, false, false, true},
        {"upload, then the copy", SyncMode::biDirectional, false, false, false},
        {"replacing upload", SyncMode::biDirectional, false, true, false, "latest!"},
        {"download", SyncMode::toMac, false, false, false},
        {"replacing download", SyncMode::toMac, false, true, true, "latest!"},
        {"move away", SyncMode::toiPhone, true, false, true},
        {"move here", SyncMode::toMac, true, false, false},
        {"move, target changed", SyncMode::toiPhone, true, true, false},
    };
    const QString name = u"a"_s;
    for (const Case& row : cases) {
        constexpr int scanned = 4; // calls until both sides are listed
        for (int call = scanned; call < 40; ++call) {
            SCOPED_TRACE(std::string(row.name) + ", call " + std::to_string(call));
            world_ = MemoryWorld();
            pair_.syncMode = row.mode;
            pair_.moveFilesEnabled = row.moves;
            const bool fromMac = row.mode != SyncMode::toMac;
            (fromMac ? world_.mac : world_.device)[name] = {"new", at(500)};
            if (row.hasOld)
                (fromMac ? world_.device : world_.mac)[name] = {"old", at(0)};
            bool isChanged = false;
            world_.beforeCall = [&] {
                // Between the last look at a file and its end lies no more than the call itself.
                if (world_.calls != call || world_.isReplacing)
                    return;
                MemoryTree& tree = row.changesMac ? world_.mac : world_.device;
                isChanged = tree.contains(name);
                if (isChanged)
                    tree[name] = {row.latest, at(1000)};
            };
            (void)failure();
            world_.beforeCall = {};
            if (!isChanged)
                continue;
            const auto holds = [&](const MemoryTree& tree) {
                return std::any_of(tree.begin(), tree.end(), [&](const auto& entry) {
                    return entry.second.content == row.latest;
                });
            };
            EXPECT_TRUE(holds(world_.mac) || holds(world_.device));
            pair_.moveFilesEnabled = false;
            pair_.syncMode = SyncMode::biDirectional;
            EXPECT_EQ(failure(), QString());
            EXPECT_TRUE(holds(world_.mac) && holds(world_.device));
        }
    }
}

TEST_F(SyncRunTest, fileThatGrowsWhileItIsSentIsSentAgainAndEndsNoRun) {
    here("a", "1");
    here("b", "2");
    world_.beforeCall = [&] {
        if (!world_.isReplacing || world_.failAt >= 0)
            return;
        here("a", "1, and more", 100);
        world_.failAt = world_.calls; // the phone is sent more than it was told
    };
    EXPECT_EQ(run().uploaded.size(), 2);
    EXPECT_EQ(world_.device.at(u"a"_s).content, "1, and more");
}

TEST_F(SyncRunTest, cancellationAtAnyCallLeavesTheManifestsAlone) {
    for (int call = 0;; ++call) {
        world_ = MemoryWorld();
        here("a", "1");
        onDevice("b", "2");
        here("c", "33");
        onDevice("c", "4");
        stop_ = std::stop_source();
        world_.beforeCall = [&] {
            if (world_.calls == call)
                stop_.request_stop();
        };
        try {
            (void)run();
            EXPECT_GT(call, 10);
            break;
        } catch (const CancellationError&) {
            EXPECT_FALSE(world_.macManifest || world_.deviceManifest);
            EXPECT_THAT(world_.temporary, IsEmpty());
        }
    }
}

TEST_F(SyncRunTest, folderThatWasSyncedAndIsGoneIsMadeAgainOnlyOnRequest) {
    here("a", "1");
    (void)run();
    for (const bool known : {true, false}) {
        SCOPED_TRACE(known);
        world_.mac.clear();
        world_.macManifest.reset();
        world_.hasFolder = false;
        // Either the pair or the device's manifest tells of an earlier run.
        pair_.lastSyncedAt = known ? std::optional(at(0)) : std::nullopt;
        answer_ = false;
        questions_.clear();
        EXPECT_THAT(failure().toStdString(), HasSubstr("is missing"));
        EXPECT_FALSE(world_.hasFolder);
        ASSERT_EQ(questions_.size(), 1U);
        EXPECT_EQ(questions_[0].kind, SyncQuestion::Kind::missingLocalFolder);
        EXPECT_EQ(world_.device.size(), 1U);
    }
    world_.deviceManifest.reset();
    questions_.clear();
    EXPECT_EQ(failure(), QString());
    EXPECT_THAT(questions_, IsEmpty());
    EXPECT_EQ(world_.mac.size(), 1U);
}

TEST_F(SyncRunTest, onlyARecordOfThisPairAndComputerCounts) {
    here("a", "1");
    (void)run();
    const MemoryWorld synced = world_;
    const SyncHostEntry ours = SyncManifest::decode(*synced.deviceManifest)->hosts.at(u"HOST"_s);
    const auto with = [](const QString& host, const SyncHostEntry& entry) {
        SyncManifest manifest;
        manifest.hosts[host] = entry;
        return manifest.encode();
    };
    const auto changed = [&](QString SyncHostEntry::*field) {
        SyncHostEntry entry = ours;
        entry.*field = u"/other"_s;
        return with(u"HOST"_s, entry);
    };
    const std::pair<const char*, QByteArray> rows[] = {
        {"another computer", with(u"OTHER"_s, ours)},
        {"another device", changed(&SyncHostEntry::deviceUDID)},
        {"folder there", changed(&SyncHostEntry::remoteFolderPath)},
        {"folder here", changed(&SyncHostEntry::localFolderPath)},
        {"cut off", "{"},
        {"nested beyond measure", QByteArray(1000, '[')},
    };
    answer_ = true;
    for (const auto& [name, manifest] : rows) {
        SCOPED_TRACE(name);
        world_ = synced;
        world_.macManifest = world_.deviceManifest = manifest;
        world_.device.clear();
        (void)run();
        EXPECT_EQ(world_.mac.size(), 1U);
        EXPECT_EQ(world_.device.size(), 1U);
    }
    EXPECT_THAT(questions_, IsEmpty());
}

TEST_F(SyncRunTest, linkOnOneSideIsNotADeletion) {
    here("dir/a", "1");
    (void)run();
    world_.mac.clear();
    world_.unusable[u"dir"_s] = u"a link"_s;
    answer_ = true;
    const SyncReport report = run();
    EXPECT_THAT(questions_, IsEmpty());
    EXPECT_EQ(world_.device.size(), 1U);
    EXPECT_EQ(report.skipped.size(), 2U); // the link, and what the device has below it
}

TEST_F(SyncRunTest, previewTellsAndTouchesNothing) {
    here("gone", "1");
    (void)run();
    world_.device.clear();
    here("new", "333");
    const MemoryWorld before = world_;
    MemoryLocalFolder local(world_);
    MemoryBackend device(world_);
    const SyncPreview preview =
        SyncRun({pair_, u"HOST"_s, {}, local, device, [this] { return world_.now(); }}, {}, {})
            .preview();
    EXPECT_THAT(preview.items,
                ElementsAre(SyncPreviewItem{SyncPreviewItem::Kind::remove, false, u"gone"_s, {}, 1},
                            SyncPreviewItem{SyncPreviewItem::Kind::upload, true, u"new"_s, {}, 3}));
    EXPECT_FALSE(preview.warning.isEmpty());
    EXPECT_EQ(world_.mac, before.mac);
    EXPECT_EQ(world_.device, before.device);
    EXPECT_EQ(world_.deviceManifest, before.deviceManifest);
}

} // namespace
} // namespace tessary
