#include "devices/DeviceManagerFixture.h"
#include "devices/files/DeviceServices.h"
#include "platform/settings/MemorySettingsStore.h"
#include "support/FakeProcessRunner.h"
#include "support/TemporaryFolder.h"
#include "sync/manager/SyncHost.h"
#include "sync/manager/SyncViewModel.h"
#include "sync/plan/SyncError.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = SyncStatus::Kind;
using Outcome = SyncReport::Outcome;

/// The manager with its models over a virtual Android phone, on the main thread.
class SyncManagerTest : public DeviceManagerFixture {
protected:
    SyncManagerTest() {
        use(std::make_unique<DeviceManager>(bus_, services_));
        phone_->disk.makeFolder(u"0/Sync"_s);
        refresh(true);
        sync_ = makeManager();
        QObject::connect(sync_.get(), &SyncManager::syncDidComplete,
                         [this](const QUuid& id) { completed_.push_back(id); });
    }
    ~SyncManagerTest() override {
        view_.reset();
        sync_.reset();
        end();
    }

    std::unique_ptr<SyncManager> makeManager() {
        SyncManagerSetup setup{services_.files()};
        setup.trash = nullptr;
        setup.reportFolder = local_.path(u"reports"_s);
        return std::make_unique<SyncManager>(defaults_, std::move(setup));
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
    /// Runs a pair for the first time, through its preview.
    void runFirst(const SyncPair& pair) {
        view_->run(pair.id);
        ASSERT_TRUE(
            eventually([this] { return view_->preview() && !view_->preview()->isLoading(); }));
        view_->confirmPreview();
        wait();
        ASSERT_EQ(status(pair).kind, Kind::completed);
    }
    [[nodiscard]] SyncStatus status(const SyncPair& pair) const {
        return sync_->pair(pair.id)->status;
    }

    const TemporaryFolder local_;
    MemorySettingsStore defaults_;
    FakeProcessRunner processes_;
    DeviceServices services_{{.bus = bus_, .processes = processes_}};
    std::unique_ptr<PluggedPhone> phone_ =
        std::make_unique<PluggedPhone>(bus_, phoneConfig("PHONE1", "1-1"));
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
    for (const SyncPair& pair : {one, two, one, two}) // one that runs or waits is not doubled
        sync_->syncPair(pair.id, *manager_, {});
    EXPECT_TRUE(sync_->isRunningOrWaiting(two.id));
    EXPECT_EQ(queued, 1);
    sync_->cancel(two.id);
    EXPECT_EQ(queued, 2);
    sync_->syncPair(two.id, *manager_, {});
    wait();
    EXPECT_THAT(completed_, ElementsAre(one.id, two.id));
    EXPECT_EQ(local_.read(u"two/a"_s), "a");
    EXPECT_TRUE(sync_->pair(one.id)->lastSyncedAt);
    ASSERT_NE(sync_->lastReport(two.id), nullptr);
    EXPECT_THAT(sync_->lastReport(two.id)->paths({SyncDeed::download}), ElementsAre(u"a"_s));

    sync_->updateSyncPair(two); // as a form had it before the run
    EXPECT_TRUE(sync_->pair(two.id)->lastSyncedAt);

    const auto again = makeManager();
    ASSERT_EQ(again->syncPairs().size(), 2U);
    EXPECT_EQ(again->syncPairs()[1].status, SyncStatus::completed());
    EXPECT_EQ(again->syncPairs()[1].progress, SyncProgress());
    EXPECT_TRUE(eventually([&] { return again->lastReport(two.id) != nullptr; }));
    sync_->removeSyncPair(one.id);
    EXPECT_EQ(sync_->syncPairs().size(), 1U);
}

TEST_F(SyncManagerTest, pairRunsByItselfWheneverItsPhoneComes) {
    SyncPair pair = addPair("one");
    view_ = std::make_unique<SyncViewModel>(*sync_, *manager_);
    local_.write(u"one/a"_s, "a");
    ASSERT_NO_FATAL_FAILURE(runFirst(pair));
    manager_->startListening();
    int runs = 0;
    QObject::connect(sync_.get(), &SyncManager::runEnded, [&] { ++runs; });
    for (const bool runsByItself : {false, true}) {
        pair = *sync_->pair(pair.id);
        pair.runsWhenPluggedIn = runsByItself;
        sync_->updateSyncPair(pair);
        phone_->android.unplug();
        ASSERT_TRUE(eventually([this] { return manager_->devices().empty(); }));
        local_.write(u"one/b"_s, "b");
        ASSERT_NE(phone_->android.plugInto(bus_), 0U);
        ASSERT_TRUE(eventually([this] {
            return !manager_->devices().empty() && manager_->devices().front().isDataAccessible();
        }));
        if (runsByItself) {
            EXPECT_TRUE(eventually([&] { return runs == 1 && !sync_->isRunning(); }));
        }
        EXPECT_EQ(view_->beganByItself(pair.id), runsByItself);
    }
    EXPECT_EQ(phone_->content(u"Sync/b"_s), "b");
    EXPECT_EQ(runs, 1);
}

TEST_F(SyncManagerTest, pairThatGetsAnotherFolderMeanwhileIsPreviewedBeforeItRunsThere) {
    const SyncPair first = addPair("first");
    const SyncPair second = addPair("second");
    local_.write(u"first/a"_s, "a");
    for (const SyncPair& pair : {first, second})
        sync_->syncPair(pair.id, *manager_, {});
    for (SyncPair pair : {first, second}) { // one runs, one waits
        pair.localFolderPath = local_.makeFolder(u"other"_s);
        sync_->updateSyncPair(pair);
    }
    wait();
    EXPECT_THAT(completed_, ElementsAre(first.id));
    EXPECT_EQ(phone_->content(u"Sync/a"_s), "a");
    EXPECT_THAT(local_.names(u"other"_s), IsEmpty());
    for (const SyncPair& pair : {first, second})
        EXPECT_FALSE(sync_->pair(pair.id)->lastSyncedAt);
}

TEST_F(SyncManagerTest, questionGoesWithItsRun) {
    const SyncPair pair = addPair("one");
    view_ = std::make_unique<SyncViewModel>(*sync_, *manager_);
    local_.write(u"one/a"_s, "a");
    ASSERT_NO_FATAL_FAILURE(runFirst(pair));
    QFile::remove(local_.path(u"one/a"_s));
    view_->run(pair.id);
    ASSERT_TRUE(eventually([this] { return view_->question().has_value(); }));
    sync_->cancel(pair.id);
    wait();
    EXPECT_FALSE(view_->question());
    EXPECT_EQ(sync_->lastReport(pair.id)->outcome, Outcome::cancelled);
    EXPECT_EQ(phone_->content(u"Sync/a"_s), "a");
}

TEST_F(SyncManagerTest, failuresAreStatusesAndReports) {
    SyncPair pair = addPair("one");
    pair.deviceUDID = u"ANOTHER"_s;
    sync_->updateSyncPair(pair);
    sync_->syncPair(pair.id, *manager_, {});
    EXPECT_EQ(status(pair), SyncStatus::error(u"Device disconnected"_s));

    pair.deviceUDID = u"PHONE1"_s;
    sync_->updateSyncPair(pair);
    local_.write(u"one/a"_s, QByteArray(3000, 'a'));
    phone_->unplugAfter(USBDirection::out, 20, 3);
    sync_->syncPair(pair.id, *manager_, {});
    wait();
    EXPECT_EQ(status(pair).kind, Kind::error);
    std::vector<SyncReport> reports;
    sync_->reports(pair.id, [&](std::vector<SyncReport> found) { reports = std::move(found); });
    ASSERT_TRUE(eventually([&] { return !reports.empty(); }));
    EXPECT_EQ(reports.front().outcome, Outcome::failed);
    EXPECT_TRUE(reports.front().failure && endsEverything(*reports.front().failure));
}

TEST_F(SyncManagerTest, managerThatGoesInMidRunLeavesNothingWaiting) {
    const SyncPair pair = addPair("one");
    local_.write(u"one/big"_s, QByteArray(3'000'000, 'b'));
    phone_->fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0.5; });
    qint64 seen = 0;
    QObject::connect(sync_.get(), &SyncManager::syncPairChanged, [&] {
        seen = std::max(seen, sync_->pair(pair.id)->progress.currentFileBytes);
    });
    sync_->syncPair(pair.id, *manager_, {});
    ASSERT_TRUE(eventually([&] { return seen > 0; }));
    sync_.reset();
    EXPECT_TRUE(Background::shutDown(30s));
    EXPECT_THAT(phone_->names(u"Sync"_s).filter(u"big"_s), IsEmpty());
}

TEST(SyncHostTest, sameComputerIsKnownAgainWithoutSettings) {
    MemorySettingsStore one;
    MemorySettingsStore lost;
    const QString foreseen = foreseenHostID(one);
    EXPECT_TRUE(one.value(u"Tessary_MacHostID"_s).isUndefined()) << "nothing is stored by looking";
    EXPECT_EQ(syncHostID(one), foreseen);
    EXPECT_EQ(syncHostID(one), syncHostID(lost));
    one.setValue(u"Tessary_MacHostID"_s, u"0F2A9C1E-1111-4222-8333-ABCDEFABCDEF"_s);
    EXPECT_EQ(syncHostID(one), u"0F2A9C1E-1111-4222-8333-ABCDEFABCDEF"_s);
}

TEST(SyncReportStoreTest, reportsAreKeptForAMonth) {
    const TemporaryFolder folder;
    const SyncReportStore store(folder.path(u"reports"_s));
    const QUuid pair = QUuid::createUuid();
    const QDateTime now = QDateTime::fromString(u"2024-05-31T12:00:00Z"_s, Qt::ISODate);
    SyncReport report;
    report.items = {{SyncDeed::keepBoth, u"d/a"_s, u"d/a (conflict)"_s, 7},
                    {SyncDeed::renameHere, u"B"_s, u"b"_s, 0}};
    report.skipped.push_back({u"c"_s, Error(SyncError::changedMeanwhile, {u"c"_s},
                                            Error(PhoneError::changed, {u"/c"_s}))});
    report.failure = Error(PhoneError::full, {u"/Sync"_s});
    report.outcome = Outcome::failed;
    report.transferredBytes = 1LL << 40;
    // A clock that was a year ahead told the time of one.
    for (const int daysAgo : {-365, 40, 20, 1}) {
        report.startedAt = now.addDays(-daysAgo);
        report.endedAt = report.startedAt.addSecs(60);
        store.add(pair, report, now);
    }
    const std::vector<SyncReport> kept = store.of(pair, 10);
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[0].endedAt, report.endedAt) << "the newest first";
    EXPECT_EQ(kept[0].items, report.items);
    ASSERT_EQ(kept[0].skipped.size(), 1U);
    EXPECT_EQ(kept[0].skipped[0].reason, report.skipped[0].reason);
    EXPECT_TRUE(kept[0].skipped[0].reason.cause()->is(PhoneError::changed));
    EXPECT_EQ(kept[0].failure, report.failure);
    EXPECT_EQ(kept[0].transferredBytes, report.transferredBytes);
    EXPECT_EQ(store.of(pair, 1).size(), 1U);
    EXPECT_THAT(store.of(QUuid::createUuid(), 10), IsEmpty());
    folder.write(u"reports/"_s + pair.toString(QUuid::WithoutBraces) +
                     u"/20240530-000000-000.json"_s,
                 "{\"outcome\": [");
    EXPECT_EQ(store.of(pair, 10).size(), 2U) << "what is none is passed over";
    store.forget(pair);
    EXPECT_THAT(store.of(pair, 10), IsEmpty());
}

} // namespace
} // namespace tessary
