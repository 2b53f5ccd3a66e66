#include "transfer/TransferViewModel.h"
#include "files/FakeFileAccess.h"
#include "mtp/protocol/MTPTransportError.h"
#include "support/MainLoop.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using Status = TransferJob::TransferStatus;

class TransferViewModelTest : public MainLoop {
protected:
    TransferViewModelTest() {
        QObject::connect(&model_, &TransferViewModel::jobChanged,
                         [this](int index) { statuses_.push_back(job(index).status); });
        QObject::connect(&model_, &TransferViewModel::transferComplete, [this] { ++successes_; });
        QObject::connect(&model_, &TransferViewModel::jobFinished, [this] { ++finished_; });
    }
    ~TransferViewModelTest() override {
        gate_.open();
    }

    [[nodiscard]] const TransferJob& job(int index) const {
        return model_.jobs().at(static_cast<std::size_t>(index));
    }
    [[nodiscard]] std::vector<Status> allStatuses() const {
        std::vector<Status> statuses;
        for (const TransferJob& entry : model_.jobs())
            statuses.push_back(entry.status);
        return statuses;
    }
    QUuid download(const char* name, qint64 size = 10, TransferFinished onFinished = {},
                   bool isFolder = false) {
        const QString text = QString::fromUtf8(name);
        return model_.enqueueDownload({text, u"/root/"_s + text, isFolder, size, {}},
                                      local_.path(text), files_, std::move(onFinished));
    }
    void finishAll() {
        ASSERT_TRUE(eventually([this] { return model_.summary().isIdle(); }));
    }

    const TemporaryFolder local_;
    std::shared_ptr<FakeFileAccess> files_ = std::make_shared<FakeFileAccess>();
    Gate gate_;
    TransferEngine engine_;
    TransferViewModel model_{engine_};
    std::vector<Status> statuses_;
    int successes_ = 0;
    int finished_ = 0;
};

TEST_F(TransferViewModelTest, successShowsAllFilesAndBytesDone) {
    files_->reports = {{4, 10}}; // a last report never comes
    bool succeeded = false;
    download("a", 10, [&](const std::exception_ptr& error) { succeeded = !error; });
    finishAll();
    EXPECT_EQ(job(0).status, Status::completed);
    EXPECT_EQ(job(0).progress,
              (TransferProgress{
                  .totalFiles = 1, .completedFiles = 1, .totalBytes = 10, .completedBytes = 10}));
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(successes_, 1);
    EXPECT_EQ(statuses_.front(), Status::inProgress);
    EXPECT_TRUE(local_.has(u"a"_s));
}

TEST_F(TransferViewModelTest, failureSaysWhatToDoAndKeepsTheCounters) {
    files_->setScript([](const QString&, const std::stop_token&) {
        throw MTPTransportError(MTPTransportError::Case::exclusiveAccessDenied);
    });
    std::exception_ptr told;
    download("a", 10, [&](const std::exception_ptr& error) { told = error; });
    finishAll();
    EXPECT_EQ(job(0).status, Status::failed);
    EXPECT_EQ(job(0).error, u"Another program is using the phone."_s);
    EXPECT_TRUE(job(0).advice.contains(u"Close it"_s));
    EXPECT_EQ(job(0).progress.totalBytes, 10);
    EXPECT_THROW(std::rethrow_exception(told), MTPTransportError);
    EXPECT_EQ(successes_, 0);
}

TEST_F(TransferViewModelTest, nameThatLeadsElsewhereIsNotCopied) {
    for (const char* name : {"..", ".", "", "a/b"}) {
        model_.enqueueDownload({QString::fromLatin1(name), u"/root/x"_s, false, 1, {}},
                               local_.path(u"target"_s), files_);
        finishAll();
        EXPECT_EQ(model_.jobs().back().status, Status::failed) << name;
    }
    EXPECT_TRUE(local_.names().isEmpty());
}

TEST_F(TransferViewModelTest, folderThatMissesSomethingIsAFailureThatNamesIt) {
    TransferOutcome outcome;
    outcome.progress = {.totalFiles = 9, .completedFiles = 8, .totalBytes = 90};
    outcome.skipped = {{u"/root/d/x"_s, u"too large"_s}};
    files_->outcome = outcome;
    download("d", 0, {}, true);
    EXPECT_TRUE(job(0).isMeasuring);
    finishAll();
    EXPECT_EQ(job(0).status, Status::failed);
    EXPECT_EQ(job(0).error, u"1 of 9 files was not copied: /root/d/x (too large)"_s);
    EXPECT_EQ(job(0).skipped, outcome.skipped);
    EXPECT_EQ(job(0).progress, outcome.progress);
    EXPECT_FALSE(job(0).isMeasuring);
}

TEST_F(TransferViewModelTest, folderToUploadIsCountedWhileItWaits) {
    local_.write(u"d/a"_s, "123");
    local_.write(u"d/e/b"_s, "4567");
    files_->holdAt(gate_);
    download("first");
    model_.enqueueUpload(local_.path(u"d"_s), u"/root"_s, files_);
    EXPECT_TRUE(job(1).isMeasuring);
    ASSERT_TRUE(eventually([&] { return !job(1).isMeasuring; }));
    EXPECT_EQ(job(1).status, Status::queued);
    EXPECT_EQ(job(1).progress.totalFiles, 2);
    EXPECT_EQ(job(1).progress.totalBytes, 7);
    EXPECT_EQ(model_.summary().totalBytes, 17);
    gate_.open();
    finishAll();
}

TEST_F(TransferViewModelTest, runningJobThatIsCancelledStaysCancelled) {
    // The work does not notice: it ends well although it was cancelled.
    files_->holdAt(gate_, u"download a"_s, false);
    const QUuid a = download("a");
    download("b");
    ASSERT_TRUE(eventually([&] { return job(0).status == Status::inProgress; }));
    model_.cancelJob(a);
    EXPECT_EQ(job(0).status, Status::cancelled);
    EXPECT_FALSE(job(0).error);
    model_.cancelJob(a); // no effect
    gate_.open();
    finishAll();
    EXPECT_THAT(allStatuses(), ElementsAre(Status::cancelled, Status::completed));
    EXPECT_EQ(finished_, 2);
    model_.cancelJob(a);
    EXPECT_EQ(job(0).status, Status::cancelled);
}

TEST_F(TransferViewModelTest, cancelBetweenStartAndItsNewsIsKept) {
    files_->holdAt(gate_);
    const QUuid a = download("a");
    // The engine has started it; the main thread has not heard of it yet.
    while (gate_.waiting() == 0)
        std::this_thread::sleep_for(1ms);
    model_.cancelJob(a);
    turnFor(100ms);
    EXPECT_THAT(statuses_, ElementsAre(Status::cancelled));
    EXPECT_TRUE(model_.summary().isIdle());
}

TEST_F(TransferViewModelTest, clearingLeavesWhatIsNotFinished) {
    files_->holdAt(gate_, u"download c"_s);
    std::vector<QUuid> ids;
    for (const char* name : {"a", "b", "c", "d", "e"})
        ids.push_back(download(name));
    model_.cancelJob(ids[3]);
    ASSERT_TRUE(eventually([&] { return job(2).status == Status::inProgress; }));
    std::vector<std::pair<int, int>> removed;
    QObject::connect(&model_, &TransferViewModel::jobsRemoved,
                     [&](int first, int last) { removed.emplace_back(first, last); });
    model_.clearCompleted();
    EXPECT_THAT(removed, ElementsAre(std::pair(3, 3), std::pair(0, 1)));
    ASSERT_EQ(model_.jobs().size(), 2U);
    EXPECT_EQ(model_.indexOf(ids[2]), 0);
    EXPECT_EQ(model_.indexOf(ids[3]), -1);
    EXPECT_EQ(model_.indexOf(ids[4]), 1);
    model_.cancelAll();
    EXPECT_TRUE(model_.summary().isIdle());
    model_.clearCompleted();
    EXPECT_TRUE(model_.jobs().empty());
}

TEST_F(TransferViewModelTest, progressReachesTheListInMeasureAndTheLastAlways) {
    constexpr qint64 steps = 200'000;
    for (qint64 i = 1; i <= steps; ++i)
        files_->reports.emplace_back(i, steps);
    const auto start = std::chrono::steady_clock::now();
    download("a", steps);
    finishAll();
    const auto passed = std::chrono::steady_clock::now() - start;
    EXPECT_LE(static_cast<qint64>(statuses_.size()),
              passed / TransferViewModel::progressInterval + 3);
    EXPECT_EQ(job(0).progress.completedBytes, steps);
}

TEST_F(TransferViewModelTest, modelThatGoesEndsItsJobs) {
    files_->holdAt(gate_);
    auto model = std::make_unique<TransferViewModel>(engine_);
    int told = 0;
    for (int i = 0; i < 3; ++i)
        model->enqueueDownload({u"a"_s, u"/root/a"_s, false, 1, {}}, local_.path(u"a"_s), files_,
                               [&](const std::exception_ptr&) { ++told; });
    while (gate_.waiting() == 0)
        std::this_thread::sleep_for(1ms);
    model.reset();
    ASSERT_TRUE(eventually([&] { return gate_.waiting() == 0; }));
    turnFor(30ms);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(files_->count(u"download a"_s), 1);
}

} // namespace
} // namespace tessary
