// What a run does with files that can be read and written.

#include "sync/MemoryPair.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const QByteArray longOne = QByteArray(20'000, 'x');

/// Another content of the same length and the same first 4096 bytes.
QByteArray editedLate(QByteArray content, char mark = 'E') {
    content[15'000] = mark;
    return content;
}

TEST(SyncRunTest, editOfTheSameSizeBehindAnySampleArrives) {
    for (const bool onDevice : {false, true})
        for (const bool hasHashes : {false, true}) {
            MemoryPair pair({.hasHashes = hasHashes});
            pair.put(onDevice, u"a"_s, longOne);
            (void)pair.goodRun();
            pair.put(onDevice, u"a"_s, editedLate(longOne));
            EXPECT_EQ(pair.goodRun().items.size(), 1U);
            EXPECT_EQ(pair.users(!onDevice).at(u"a"_s).content, editedLate(longOne));
            pair.expectQuietRun();
            // A touch alone is compared and not copied.
            pair.put(onDevice, u"a"_s, editedLate(longOne));
            EXPECT_FALSE(pair.goodRun().hasChanges());
            pair.expectQuietRun();
        }
}

TEST(SyncRunTest, datesCutToTheMinuteHideNoEdit) {
    MemoryPair pair({.dateStep = std::chrono::minutes(1)});
    pair.there("a", longOne);
    (void)pair.goodRun();
    const QDateTime date = pair.device().item(MemoryPair::path(true, u"a"_s)).modifiedDate.value();
    pair.device().addFile(MemoryPair::path(true, u"a"_s), editedLate(longOne), date);
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::replaceHere}), ElementsAre(u"a"_s));
    EXPECT_EQ(pair.users(false).at(u"a"_s).content, editedLate(longOne));
}

TEST(SyncRunTest, phoneWithoutDatesLosesNoEditOfTheSameSize) {
    // What happens to a file, besides an edit on the phone that no listing shows.
    const std::pair<const char*, void (*)(MemoryPair&)> rows[] = {
        {"edited here", [](MemoryPair& pair) { pair.here("a", "other"); }},
        {"of another size here", [](MemoryPair& pair) { pair.here("a", "longer"); }},
        {"the same, to the phone",
         [](MemoryPair& pair) {
             pair.pair.syncMode = SyncMode::toPhone;
             pair.here("a", "longer");
         }},
        {"deleted here", [](MemoryPair& pair) { pair.removeHere("a"); }},
        {"moved here",
         [](MemoryPair& pair) {
             pair.pair.syncMode = SyncMode::toComputer;
             pair.pair.moveFilesEnabled = true;
         }},
    };
    for (const auto& [name, change] : rows)
        for (const bool isEdited : {false, true}) {
            SCOPED_TRACE(std::string(name) + (isEdited ? ", edited there" : ""));
            MemoryPair pair({.listsDates = false});
            pair.here("a", "first");
            (void)pair.goodRun();
            pair.expectQuietRun();
            if (isEdited)
                pair.there("a", "FIRST");
            change(pair);
            pair.confirmAll();
            (void)pair.goodRun();
            EXPECT_EQ(pair.isAnywhere("FIRST"), isEdited);
            EXPECT_LE(pair.users(true).size(), isEdited ? 2U : 1U);
            if (pair.pair.movesFiles())
                continue;
            EXPECT_TRUE(isEdited || pair.hereContents() == pair.thereContents());
            pair.expectQuietRun();
        }
}

TEST(SyncRunTest, moveAndDeletionTrustNoSampleAndNoDate) {
    for (const SyncMode mode : {SyncMode::toPhone, SyncMode::toComputer}) {
        SCOPED_TRACE(rawValue(mode).toStdString());
        const bool fromDevice = mode == SyncMode::toComputer;
        MemoryPair pair;
        pair.runsLater = 1;
        pair.put(fromDevice, u"a"_s, longOne);
        (void)pair.goodRun();
        // Edited within the second of its date: no listing shows it.
        MemoryFileSystem& source = pair.side(fromDevice);
        const QString path = MemoryPair::path(fromDevice, u"a"_s);
        source.addFile(path, editedLate(longOne), source.item(path).modifiedDate);
        pair.pair.syncMode = mode;
        pair.pair.moveFilesEnabled = true;
        (void)pair.goodRun();
        EXPECT_TRUE(pair.isAnywhere(editedLate(longOne)));
        EXPECT_TRUE(pair.isAnywhere(longOne));
    }
}

TEST(SyncRunTest, editThatLeftTheDateIsFoundByTheNextRun) {
    for (const bool onDevice : {false, true}) {
        MemoryPair pair;
        pair.runsLater = 1;
        pair.put(onDevice, u"a"_s, longOne);
        (void)pair.goodRun();
        const QString path = MemoryPair::path(onDevice, u"a"_s);
        MemoryFileSystem& source = pair.side(onDevice);
        source.addFile(path, editedLate(longOne), source.item(path).modifiedDate);
        pair.runsLater = 10;
        EXPECT_EQ(pair.goodRun().items.size(), 1U);
        for (const bool there : {false, true})
            for (const QByteArray& content : {longOne, editedLate(longOne)})
                EXPECT_TRUE(pair.holds(there, content));
        pair.expectQuietRun();
    }
}

TEST(SyncRunTest, oneWayRunKeepsWhatTheTargetAloneHas) {
    for (const SyncMode mode : {SyncMode::toPhone, SyncMode::toComputer})
        for (const bool moves : {false, true})
            for (const bool targetIsNewer : {false, true}) {
                SCOPED_TRACE(rawValue(mode).toStdString());
                const bool toDevice = mode == SyncMode::toPhone;
                MemoryPair pair;
                pair.pair.syncMode = mode;
                pair.pair.moveFilesEnabled = moves;
                if (!targetIsNewer)
                    pair.put(toDevice, u"IMG_0001.JPG"_s, "of the first phone");
                pair.put(!toDevice, u"IMG_0001.JPG"_s, "of the second");
                if (targetIsNewer)
                    pair.put(toDevice, u"IMG_0001.JPG"_s, "of the first phone");
                const SyncPreview preview = pair.makeRun().preview();
                ASSERT_EQ(preview.items.size(), 1U);
                EXPECT_EQ(preview.items[0].deed, SyncDeed::keepBoth);
                (void)pair.goodRun();
                const MemoryTree target = pair.users(toDevice);
                EXPECT_EQ(target.size(), 2U);
                EXPECT_EQ(target.at(u"IMG_0001.JPG"_s).content, "of the second");
                EXPECT_TRUE(pair.isAnywhere("of the first phone"));
                EXPECT_EQ(pair.users(!toDevice).size(), moves ? 0U : 1U);
            }
}

TEST(SyncRunTest, halfArrivedFileLosesTheConflict) {
    for (const bool onDevice : {false, true})
        for (const bool halfIsNewer : {false, true}) {
            MemoryPair pair;
            if (halfIsNewer)
                pair.put(!onDevice, u"film.mp4"_s, longOne);
            pair.put(onDevice, u"film.mp4"_s, longOne.left(9000));
            if (!halfIsNewer)
                pair.put(!onDevice, u"film.mp4"_s, longOne);
            (void)pair.goodRun();
            for (const bool side : {false, true})
                EXPECT_EQ(pair.users(side).at(u"film.mp4"_s).content, longOne);
        }
}

TEST(SyncRunTest, editDuringARunIsLeftForTheNext) {
    // An edit on either side at every single call of a run.
    const QStringList names{u"up"_s, u"down"_s, u"gone"_s};
    for (const bool onDevice : {false, true})
        for (int at = 0;; ++at) {
            SCOPED_TRACE(at);
            MemoryPair pair;
            pair.here("up", "1");
            pair.there("down", "1");
            pair.here("gone", "1");
            (void)pair.goodRun();
            pair.here("up", "22");
            pair.there("down", "22");
            pair.removeHere("gone");
            pair.confirmAll();
            int call = 0;
            bool isTooLate = false;
            pair.beforeCall = [&](const MemoryFileSystem::Request& request) {
                if (call++ != at)
                    return;
                // It was looked at right before this: nobody can do more.
                isTooLate = request.operation == MemoryFileSystem::Operation::remove ||
                            (names.contains(request.other) && !onDevice);
                for (const QString& name : names)
                    pair.put(onDevice, name, "edited meanwhile: " + name.toUtf8());
            };
            EXPECT_FALSE(pair.run().failure);
            pair.beforeCall = nullptr;
            if (call <= at)
                break;
            (void)pair.goodRun();
            for (const QString& name : names)
                EXPECT_TRUE(isTooLate || pair.isAnywhere("edited meanwhile: " + name.toUtf8()))
                    << name.toStdString();
            EXPECT_EQ(pair.hereContents(), pair.thereContents());
        }
}

TEST(SyncRunTest, previewShowsWhatALastRunLeftAndFinishesNothing) {
    MemoryPair pair;
    pair.here("a", "1");
    (void)pair.goodRun();
    pair.there(".tessary-part-for-b", "whole");
    const MemoryTree before = pair.all(true);
    const SyncPreview preview = pair.makeRun().preview();
    EXPECT_EQ(pair.all(true), before);
    ASSERT_EQ(preview.items.size(), 1U);
    EXPECT_EQ(preview.items[0].path, u"b"_s);
    (void)pair.goodRun();
    EXPECT_EQ(pair.hereContents(), "a=1 b=whole");
}

TEST(SyncRunTest, whatWasDecidedAtAPreviewIsNotAskedAgain) {
    MemoryPair pair;
    pair.beginWith({"a", "b", "c"});
    pair.removeHere("a");
    pair.removeHere("b");
    pair.decisions.deletions = {u"a"_s};
    pair.decisions.kept = {u"b"_s};
    const SyncReport report = pair.goodRun();
    EXPECT_THAT(pair.questions, IsEmpty());
    EXPECT_THAT(report.paths({SyncDeed::deleteOnDevice}), ElementsAre(u"a"_s));
    EXPECT_THAT(report.paths({SyncDeed::download}), ElementsAre(u"b"_s));
    pair.removeHere("c"); // was not in the preview
    (void)pair.run();
    EXPECT_EQ(pair.questions.size(), 1U);
}

TEST(SyncRunTest, patternsLeaveOut) {
    MemoryPair pair;
    pair.pair.patterns = {u"*.tmp"_s, u"/build/"_s};
    pair.beginWith({"a", "a.tmp", "build/x", "d/build/y", ".DS_Store"});
    EXPECT_EQ(pair.thereContents(), ".DS_Store=.DS_Store a=a d/build/y=d/build/y");
    // What is left out from now on is not deleted.
    pair.pair.patterns.append(u"a"_s);
    pair.removeHere("a");
    EXPECT_FALSE(pair.goodRun().hasChanges());
    EXPECT_TRUE(pair.users(true).contains(u"a"_s));
}

TEST(SyncRunTest, replacedAndDeletedFilesGoToTheTrash) {
    MemoryPair pair;
    QStringList trashed;
    pair.trash = [&](const QString& path) {
        trashed.append(QString::fromUtf8(pair.local().content(path)));
        pair.local().removeQuietly(path);
        return true;
    };
    pair.here("a", "old");
    pair.here("b", "unwanted");
    (void)pair.goodRun();
    pair.there("a", "newer");
    pair.removeThere("b");
    pair.confirmAll();
    (void)pair.goodRun();
    EXPECT_THAT(trashed, UnorderedElementsAre(u"old"_s, u"unwanted"_s));
    EXPECT_EQ(pair.hereContents(), "a=newer");
    pair.expectQuietRun();
    // Whenever the program dies, the newer one is not lost with the older one in the trash.
    pair.there("a", "newest");
    pair.trash = [&](const QString& path) {
        pair.local().removeQuietly(path);
        return pair.isDead = true;
    };
    EXPECT_THROW((void)pair.run(), Killed);
    pair.isDead = false;
    pair.device().removeQuietly(MemoryPair::path(true, u"a"_s));
    pair.keepAll();
    (void)pair.goodRun();
    EXPECT_EQ(pair.hereContents(), "a=newest");
}

TEST(SyncRunTest, withoutATrashAReplacedFileIsThereAllTheTime) {
    MemoryPair pair;
    pair.trash = [](const QString&) { return false; };
    pair.here("a", "old");
    (void)pair.goodRun();
    pair.there("a", "newer");
    pair.beforeCall = [&](const auto&) { EXPECT_TRUE(pair.users(false).contains(u"a"_s)); };
    (void)pair.goodRun();
    EXPECT_EQ(pair.hereContents(), "a=newer");
}

} // namespace
} // namespace tessary
