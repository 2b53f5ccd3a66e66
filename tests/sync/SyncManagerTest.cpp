#include "devices/DeviceManagerFixture.h"
#include "files/DeviceFileService.h"
#include "platform/MemoryUserDefaults.h"
#include "support/FakeProcessRunner.h"
#include "support/TemporaryFolder.h"
#include "sync/SyncViewModel.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = SyncStatus::Kind;

/// The manager with its models over a virtual Android phone, on the main thread.
class SyncManagerTest : public DeviceManagerFixture {
protected:
    SyncManagerTest() {
        use(std::make_unique<DeviceManager>(bus_, files_));
        phone_.disk.makeFolder(QStringLiteral("0/Sync"));
        refresh(true);
        sync_ = std::make_unique<SyncManager>(defaults_, deviceConnector(files_));
        QObject::connect(sync_.get(), &SyncManager::syncDidComplete,
                         [this](const QUuid& id) { completed_.push_back(id); });
    }
    ~SyncManagerTest() override {
        view_.reset();
        sync_.reset();
        manager_.reset();
        EXPECT_TRUE(Background::shutDown(60s));
    }

    SyncPair addPair(const char* folder) {
        SyncPair pair;
        pair.deviceUDID = QStringLiteral("PHONE1");
        pair.deviceName = QStringLiteral("Pixel");
        pair.appBundleID = SyncPair::deviceStorage;
        pair.appName = QStringLiteral("Internal Storage");
        pair.remoteFolderPath = QStringLiteral("/sdcard/Sync");
        pair.localFolderPath = local_.makeFolder(QString::fromUtf8(folder));
        sync_->addSyncPair(pair);
        return pair;
    }
    void wait() {
        ASSERT_TRUE(eventually([this] { return !sync_->isRunning(); }));
    }
    [[nodiscard]] SyncStatus status(const SyncPair& pair) const {
        return sync_->pair(pair.id)->status;
    }

    const TemporaryFolder local_;
    MemoryUserDefaults defaults_;
    FakeProcessRunner processes_;
    DeviceFileService files_{bus_, processes_};
    PluggedPhone phone_{bus_, phoneConfig("PHONE1", "1-1")};
    std::unique_ptr<SyncManager> sync_;
    std::unique_ptr<SyncViewModel> view_;
    std::vector<QUuid> completed_;
};

TEST_F(SyncManagerTest, pairsRunOneAfterTheOtherAndAreSaved) {
    const SyncPair one = addPair("one");
    const SyncPair two = addPair("two");
    local_.write(QStringLiteral("one/a"), "a");
    std::vector<QString> texts;
    int queued = 0; // times that the second pair was said to come into the queue or leave it
    QObject::connect(sync_.get(), &SyncManager::syncPairChanged, [&](const QUuid& id) {
        queued += id == two.id && status(two).kind == Kind::idle ? 1 : 0;
        if (status(one).kind == Kind::syncing && status(two).kind == Kind::syncing)
            ADD_FAILURE() << "two at a time";
        if (id == one.id && (texts.empty() || texts.back() != status(one).label()))
            texts.push_back(status(one).label());
    });
    sync_->syncAll(*manager_, {});
    sync_->syncAll(*manager_, {}); // those that run or wait already are not doubled
    EXPECT_TRUE(sync_->isRunningOrWaiting(two.id));
    EXPECT_EQ(queued, 1);
    sync_->cancel(two.id);
    EXPECT_EQ(queued, 2);
    sync_->syncPair(two.id, *manager_, {});
    wait();
    EXPECT_THAT(completed_, ElementsAre(one.id, two.id));
    EXPECT_THAT(texts, testing::Contains(QStringLiteral("Connecting to device…")));
    EXPECT_EQ(texts.back(), QStringLiteral("Synced"));
    EXPECT_EQ(local_.read(QStringLiteral("two/a")), "a");
    EXPECT_EQ(sync_->lastReport(two.id).downloaded.size(), 1);
    EXPECT_TRUE(sync_->pair(one.id)->lastSyncedAt);
    EXPECT_EQ(sync_->pair(one.id)->progress.stage, QStringLiteral("Completed"));
    EXPECT_TRUE(sync_->historyLine(two.id).endsWith(QStringLiteral("1 downloaded")));

    const SyncManager again(defaults_, deviceConnector(files_));
    ASSERT_EQ(again.syncPairs().size(), 2U);
    EXPECT_EQ(again.syncPairs()[1].status, SyncStatus::completed());
    EXPECT_EQ(again.syncPairs()[1].progress, SyncProgress());
    sync_->removeSyncPair(one.id);
    EXPECT_EQ(sync_->syncPairs().size(), 1U);
}

TEST_F(SyncManagerTest, questionWaitsForItsAnswerAndDeletesOnlyWhatWasConfirmed) {
    const SyncPair pair = addPair("one");
    view_ = std::make_unique<SyncViewModel>(*sync_, *manager_);
    local_.write(QStringLiteral("one/a"), "a");
    // The first run is previewed.
    view_->run(pair.id);
    ASSERT_TRUE(eventually([this] { return view_->preview() && !view_->preview()->isLoading(); }));
    ASSERT_TRUE(view_->preview()->plan);
    EXPECT_EQ(view_->preview()->plan->items.size(), 1U);
    EXPECT_FALSE(sync_->isRunning());
    view_->confirmPreview();
    wait();
    EXPECT_EQ(phone_.content(QStringLiteral("Sync/a")), "a");

    for (const bool yes : {false, true}) {
        QFile::remove(local_.path(QStringLiteral("one/a")));
        view_->run(pair.id);
        ASSERT_TRUE(eventually([this] { return view_->question().has_value(); }));
        EXPECT_EQ(view_->question()->candidates.size(), 1U);
        EXPECT_EQ(status(pair).message, QStringLiteral("Awaiting deletion confirmation…"));
        view_->answer(yes);
        wait();
        EXPECT_EQ(phone_.names(QStringLiteral("Sync")).size(), yes ? 1 : 2);
    }
    // A run that is cancelled takes its question away.
    local_.write(QStringLiteral("one/b"), "b");
    view_->run(pair.id);
    wait();
    QFile::remove(local_.path(QStringLiteral("one/b")));
    view_->run(pair.id);
    ASSERT_TRUE(eventually([this] { return view_->question().has_value(); }));
    view_->cancel(pair.id);
    wait();
    EXPECT_FALSE(view_->question());
    EXPECT_EQ(status(pair), SyncStatus());
    EXPECT_EQ(phone_.content(QStringLiteral("Sync/b")), "b");
}

TEST_F(SyncManagerTest, errorsEndInPlainWords) {
    const SyncPair pair = addPair("one");
    local_.write(QStringLiteral("one/a"), QByteArray(100'000, 'a'));
    phone_.fault([](VirtualFaults& faults) {
        faults.unplug = VirtualByteFault{UsbDirection::out, 5000, 2};
    });
    sync_->syncPair(pair.id, *manager_, {});
    wait();
    EXPECT_EQ(status(pair).kind, Kind::error);
    EXPECT_TRUE(status(pair).message.startsWith(QStringLiteral("The phone was unplugged.")))
        << status(pair).message.toStdString();
    EXPECT_EQ(sync_->pair(pair.id)->progress.stage, QStringLiteral("Error"));
    EXPECT_THAT(completed_, IsEmpty());

    phone_.android.unplug();
    refresh(true);
    sync_->syncPair(pair.id, *manager_, {});
    EXPECT_EQ(status(pair), SyncStatus::error(QStringLiteral("Device disconnected")));
    EXPECT_FALSE(sync_->isRunning());
}

TEST_F(SyncManagerTest, managerThatGoesInMidRunLeavesNothingWaiting) {
    const SyncPair pair = addPair("one");
    local_.write(QStringLiteral("one/big"), QByteArray(3'000'000, 'b'));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 5; });
    qint64 seen = 0;
    QObject::connect(sync_.get(), &SyncManager::syncPairChanged, [&] {
        seen = std::max(seen, sync_->pair(pair.id)->progress.currentFileBytes);
    });
    sync_->syncPair(pair.id, *manager_, {});
    ASSERT_TRUE(eventually([&] { return seen > 0; }));
    sync_.reset();
    EXPECT_TRUE(Background::shutDown(30s));
    EXPECT_EQ(phone_.names(QStringLiteral("Sync")), QStringList());
}

} // namespace
} // namespace tessary
