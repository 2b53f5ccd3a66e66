#include "devices/DeviceManagerFixture.h"
#include "devices/files/DeviceServices.h"
#include "platform/settings/MemoryUserDefaults.h"
#include "support/FakeProcessRunner.h"
#include "support/TemporaryFolder.h"
#include "sync/manager/SyncViewModel.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using Kind = SyncStatus::Kind;

/// The manager with its models over a virtual Android phone, on the main thread.
class SyncManagerTest : public DeviceManagerFixture {
protected:
    SyncManagerTest() {
        use(std::make_unique<DeviceManager>(bus_, services_));
        phone_.disk.makeFolder(u"0/Sync"_s);
        refresh(true);
        sync_ = std::make_unique<SyncManager>(defaults_, deviceConnector(services_));
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
        pair.deviceUDID = u"PHONE1"_s;
        pair.deviceName = u"Pixel"_s;
        pair.appBundleID = SyncPair::deviceStorage;
        pair.appName = u"Internal Storage"_s;
        pair.remoteFolderPath = u"/sdcard/Sync"_s;
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
    DeviceServices services_{{bus_, processes_}};
    PluggedPhone phone_{bus_, phoneConfig("PHONE1", "1-1")};
    std::unique_ptr<SyncManager> sync_;
    std::unique_ptr<SyncViewModel> view_;
    std::vector<QUuid> completed_;
};

TEST_F(SyncManagerTest, pairsRunOneAfterTheOtherAndAreSaved) {
    const SyncPair one = addPair("one");
    const SyncPair two = addPair("two");
    local_.write(u"one/a"_s, "a");
    int queued = 0; // times that the second pair was said to come into the queue or leave it
    QObject::connect(sync_.get(), &SyncManager::syncPairChanged, [&](const QUuid& id) {
        queued += id == two.id && status(two).kind == Kind::idle ? 1 : 0;
        if (status(one).kind == Kind::syncing && status(two).kind == Kind::syncing)
            ADD_FAILURE() << "two at a time";
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
    EXPECT_EQ(local_.read(u"two/a"_s), "a");
    EXPECT_TRUE(sync_->pair(one.id)->lastSyncedAt);
    EXPECT_TRUE(sync_->historyLine(two.id).endsWith(u"1 downloaded"_s));

    const SyncManager again(defaults_, deviceConnector(services_));
    ASSERT_EQ(again.syncPairs().size(), 2U);
    EXPECT_EQ(again.syncPairs()[1].status, SyncStatus::completed());
    EXPECT_EQ(again.syncPairs()[1].progress, SyncProgress());
    sync_->removeSyncPair(one.id);
    EXPECT_EQ(sync_->syncPairs().size(), 1U);
}

TEST_F(SyncManagerTest, questionDeletesOnlyWhatWasConfirmedAndGoesWithItsRun) {
    const SyncPair pair = addPair("one");
    view_ = std::make_unique<SyncViewModel>(*sync_, *manager_);
    local_.write(u"one/a"_s, "a");
    view_->run(pair.id);
    ASSERT_TRUE(eventually([this] { return view_->preview() && !view_->preview()->isLoading(); }));
    EXPECT_FALSE(sync_->isRunning()) << "the first run is previewed";
    view_->confirmPreview();
    wait();
    EXPECT_EQ(phone_.content(u"Sync/a"_s), "a");
    enum class Answer { no, cancel, yes };
    for (const Answer answer : {Answer::no, Answer::cancel, Answer::yes}) {
        QFile::remove(local_.path(u"one/a"_s));
        view_->run(pair.id);
        ASSERT_TRUE(eventually([this] { return view_->question().has_value(); }));
        EXPECT_EQ(view_->question()->candidates.size(), 1U);
        if (answer == Answer::cancel)
            view_->cancel(pair.id);
        else
            view_->answer(answer == Answer::yes);
        wait();
        EXPECT_FALSE(view_->question());
        EXPECT_EQ(status(pair), answer == Answer::cancel ? SyncStatus() : SyncStatus::completed());
        EXPECT_EQ(phone_.content(u"Sync/a"_s), answer == Answer::yes ? "" : "a");
        EXPECT_EQ(local_.has(u"one/a"_s), answer == Answer::no);
    }
}

TEST_F(SyncManagerTest, managerThatGoesInMidRunLeavesNothingWaiting) {
    const SyncPair pair = addPair("one");
    local_.write(u"one/big"_s, QByteArray(3'000'000, 'b'));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 5; });
    qint64 seen = 0;
    QObject::connect(sync_.get(), &SyncManager::syncPairChanged, [&] {
        seen = std::max(seen, sync_->pair(pair.id)->progress.currentFileBytes);
    });
    sync_->syncPair(pair.id, *manager_, {});
    ASSERT_TRUE(eventually([&] { return seen > 0; }));
    sync_.reset();
    EXPECT_TRUE(Background::shutDown(30s));
    EXPECT_EQ(phone_.names(u"Sync"_s), QStringList());
}

} // namespace
} // namespace tessary
