#include "transfer/TransferEngine.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "transfer/queue/TransferSpeed.h"

#include "files/FakeFileAccess.h"
#include "support/QtPrinters.h"
#include "transfer/TransferJob.h"

#include <gtest/gtest.h>

#include <future>
#include <limits>
#include <thread>

#include <pthread.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// What the engine told, in order, and waiting for it.
class Journal {
public:
    void add(const std::string& entry) {
        const std::scoped_lock lock(mutex_);
        entries_.push_back(entry);
        changed_.notify_all();
    }
    [[nodiscard]] std::vector<std::string> entries() const {
        const std::scoped_lock lock(mutex_);
        return entries_;
    }
    [[nodiscard]] bool waitFor(const std::string& entry) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, 20s, [&] {
            return std::find(entries_.begin(), entries_.end(), entry) != entries_.end();
        });
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::string> entries_;
};

class TransferEngineTest : public testing::Test {
protected:
    QUuid enqueue(const std::string& name, TransferEngine::Work work = {}) {
        const QUuid id = QUuid::createUuid();
        if (!work)
            work = [this, name](const TransferProgressCallback&, const std::stop_token&) {
                journal_.add("work " + name);
            };
        engine_->enqueue(id, std::move(work),
                         {.onStart = [this, name] { journal_.add("start " + name); },
                          .onProgress = {},
                          .onComplete =
                              [this, name](const std::exception_ptr& error) {
                                  journal_.add(outcome(error) + " " + name);
                              }});
        return id;
    }
    QUuid enqueueHeld(const std::string& name, Gate& gate) {
        return enqueue(name, [&gate](const TransferProgressCallback&, const std::stop_token& stop) {
            gate.pass(stop);
        });
    }
    static std::string outcome(const std::exception_ptr& error) {
        if (!error)
            return "done";
        try {
            std::rethrow_exception(error);
        } catch (const CancellationError&) {
            return "cancelled";
        } catch (const TessaryError& known) {
            return known.description().toStdString();
        } catch (...) {
            return "unknown";
        }
    }

    Journal journal_;
    std::unique_ptr<TransferEngine> engine_ = std::make_unique<TransferEngine>();
};

TEST_F(TransferEngineTest, failureReachesItsJobOnlyAndTheNextRuns) {
    enqueue("a", [](const TransferProgressCallback&, const std::stop_token&) {
        throw TessaryError::fileIOError(u"full"_s);
    });
    enqueue("b", [](const TransferProgressCallback&, const std::stop_token&) { throw 42; });
    enqueue("c");
    ASSERT_TRUE(journal_.waitFor("done c"));
    EXPECT_EQ(journal_.entries(),
              (std::vector<std::string>{"start a", "File I/O error: full a", "start b", "unknown b",
                                        "start c", "work c", "done c"}));
}

TEST_F(TransferEngineTest, cancelledJobsLetTheNextStartAndHearNothingWhenTheyHadNotBegun) {
    Gate gate;
    const QUuid a = enqueueHeld("a", gate);
    const QUuid b = enqueue("b");
    enqueue("c");
    ASSERT_TRUE(journal_.waitFor("start a"));
    engine_->cancelJob(b);
    engine_->cancelJob(a);
    ASSERT_TRUE(journal_.waitFor("done c"));
    EXPECT_EQ(journal_.entries(),
              (std::vector<std::string>{"start a", "cancelled a", "start c", "work c", "done c"}));
}

TEST_F(TransferEngineTest, stopEndsTheRunningJobAndDropsTheRest) {
    Gate gate;
    enqueueHeld("a", gate);
    enqueue("b");
    ASSERT_TRUE(journal_.waitFor("start a"));
    EXPECT_TRUE(engine_->stop(20s));
    EXPECT_TRUE(engine_->stop(20s));
    enqueue("c");
    engine_.reset();
    EXPECT_EQ(journal_.entries(), (std::vector<std::string>{"start a", "cancelled a"}));
}

TEST_F(TransferEngineTest, workThatIgnoresTheStopIsLeftBehind) {
    const auto mayEnd = std::make_shared<std::atomic<bool>>(false);
    const auto hasEnded = std::make_shared<std::promise<void>>();
    engine_->enqueue(
        QUuid::createUuid(),
        [=](const TransferProgressCallback&, const std::stop_token&) {
            while (!*mayEnd)
                std::this_thread::sleep_for(1ms);
        },
        {.onStart = [this] { journal_.add("start"); },
         .onProgress = {},
         .onComplete = [hasEnded](const std::exception_ptr&) { hasEnded->set_value(); }});
    ASSERT_TRUE(journal_.waitFor("start"));
    EXPECT_FALSE(engine_->stop(20ms));
    *mayEnd = true;
    EXPECT_EQ(hasEnded->get_future().wait_for(20s), std::future_status::ready);
}

TEST_F(TransferEngineTest, manyThreadsQueueAndCancelAtOnce) {
    constexpr int threads = 4;
    constexpr int jobs = 100;
    std::atomic<int> running = 0;
    std::atomic<int> overlaps = 0;
    std::atomic<int> completed = 0;
    const auto work = [&](const TransferProgressCallback&, const std::stop_token&) {
        overlaps += running++ > 0 ? 1 : 0;
        --running;
    };
    const auto queueAndCancel = [&] {
        for (int i = 0; i < jobs; ++i) {
            const QUuid id = QUuid::createUuid();
            engine_->enqueue(id, work,
                             {.onStart = {},
                              .onProgress = {},
                              .onComplete = [&](const std::exception_ptr&) { ++completed; }});
            if (i % 3 == 0)
                engine_->cancelJob(id);
        }
    };
    std::vector<std::jthread> callers;
    for (int t = 0; t < threads; ++t)
        callers.emplace_back(queueAndCancel);
    callers.clear();
    enqueue("last");
    ASSERT_TRUE(journal_.waitFor("done last"));
    EXPECT_EQ(overlaps, 0);
    EXPECT_GE(completed, threads * (jobs - jobs / 3 - 1));
    EXPECT_LE(completed, threads * jobs);
}

TEST(TransferJob, fractionStaysBetweenNothingAndAll) {
    constexpr qint64 huge = std::numeric_limits<qint64>::max();
    const std::tuple<const char*, TransferProgress, double> rows[] = {
        // files, of them done, bytes, done, of this file
        {"half", {1, 0, 100, 30, 20, 0}, 0.5},
        {"ran ahead", {1, 0, 100, 90, 20, 0}, 1},
        {"negative", {1, 0, 100, -5, -5, 0}, 0},
        {"would overflow", {1, 0, huge, huge, huge, 0}, 1},
        {"empty files", {4, 1, 0, 0, 0, 0}, 0.25},
    };
    TransferJob job;
    job.status = TransferJob::TransferStatus::inProgress;
    for (const auto& [name, progress, fraction] : rows) {
        job.progress = progress;
        EXPECT_DOUBLE_EQ(job.fractionDone(), fraction) << name;
    }
}

TEST(TransferJob, whatWasLeftOutIsCountedAndNamed) {
    const std::vector<SkippedItem> three{
        {u"a"_s, u"too large"_s}, {u"b"_s, u"a link"_s}, {u"c\n"_s, u"odd"_s}};
    EXPECT_EQ(skippedDescription(three, 197),
              u"3 of 200 files were not copied: a (too large), b (a link), c\\u000a (odd)"_s);
    const std::vector<SkippedItem> many(1000, three.front());
    EXPECT_TRUE(skippedDescription(many, 0).endsWith(u" and 997 more"_s));
}

TEST(TransferSpeed, settlesAtTheRateAndFallsWhenNothingArrives) {
    TransferSpeed speed;
    TransferSpeed::Clock::time_point now;
    for (int i = 0; i <= 100; ++i)
        speed.update(i * 1000, now += 250ms);
    EXPECT_EQ(speed.timeLeft(8000), 2s);
    for (int i = 0; i < 40; ++i)
        speed.update(100 * 1000, now += 250ms);
    EXPECT_LT(speed.bytesPerSecond(), 400);
}

TEST(TransferSpeed, timeLeftIsSaidInTheUnitThatFits) {
    const std::pair<std::chrono::seconds, const char*> table[] = {
        {0s, "0 s"}, {59s, "59 s"}, {60s, "1:00 min"}, {3599s, "59:59 min"}, {3661s, "1:01:01 h"},
    };
    for (const auto& [time, text] : table)
        EXPECT_EQ(formatDuration(time), QString::fromLatin1(text));
}

} // namespace
} // namespace tessary
