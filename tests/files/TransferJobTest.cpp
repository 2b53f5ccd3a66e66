#include "files/TransferJob.h"
#include "core/TransferSpeed.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using Type = TransferJob::TransferType;
using Status = TransferJob::TransferStatus;

TEST(TransferJob, statusAndTypeAreShownByTheirTexts) {
    EXPECT_EQ(rawValue(Type::upload), QStringLiteral("Upload"));
    EXPECT_EQ(rawValue(Type::download), QStringLiteral("Download"));
    const std::pair<Status, const char*> rows[] = {{Status::queued, "Queued"},
                                                   {Status::inProgress, "In Progress"},
                                                   {Status::completed, "Completed"},
                                                   {Status::failed, "Failed"},
                                                   {Status::cancelled, "Cancelled"}};
    for (const auto& [status, text] : rows)
        EXPECT_EQ(rawValue(status), QString::fromLatin1(text));
}

TEST(TransferJob, fractionStaysBetweenNothingAndAll) {
    constexpr qint64 huge = std::numeric_limits<qint64>::max();
    struct Row {
        const char* name;
        Status status;
        TransferProgress progress;
        double fraction;
    };
    const Row rows[] = {
        {"nothing known", Status::inProgress, {}, 0},
        {"half",
         Status::inProgress,
         {.totalBytes = 100, .completedBytes = 30, .currentFileBytes = 20},
         0.5},
        {"ran ahead",
         Status::inProgress,
         {.totalBytes = 100, .completedBytes = 90, .currentFileBytes = 20},
         1},
        {"negative",
         Status::inProgress,
         {.totalBytes = 100, .completedBytes = -5, .currentFileBytes = -5},
         0},
        {"would overflow",
         Status::inProgress,
         {.totalBytes = huge, .completedBytes = huge, .currentFileBytes = huge},
         1},
        {"empty files", Status::inProgress, {.totalFiles = 4, .completedFiles = 1}, 0.25},
        {"completed, of no bytes", Status::completed, {}, 1},
        {"failed", Status::failed, {.totalBytes = 100, .completedBytes = 30}, 0.3},
    };
    for (const Row& row : rows) {
        TransferJob job;
        job.status = row.status;
        job.progress = row.progress;
        EXPECT_DOUBLE_EQ(job.fractionDone(), row.fraction) << row.name;
    }
}

TEST(TransferJob, whatWasLeftOutIsCountedAndNamed) {
    const std::vector<SkippedItem> three{{QStringLiteral("a"), QStringLiteral("too large")},
                                         {QStringLiteral("b"), QStringLiteral("a link")},
                                         {QStringLiteral("c\n"), QStringLiteral("odd")}};
    EXPECT_EQ(skippedDescription(three, 197),
              QStringLiteral("3 of 200 files were not copied: a (too large), b (a link), "
                             "c\\u000a (odd)"));
    EXPECT_EQ(skippedDescription({three.front()}, 1),
              QStringLiteral("1 of 2 files was not copied: a (too large)"));
    EXPECT_EQ(skippedDescription({}, 5), QString());
    EXPECT_TRUE(skippedDescription(std::vector<SkippedItem>(1000, three.front()), 0)
                    .endsWith(QStringLiteral(" and 997 more")));
}

TEST(TransferSpeed, settlesAtTheRateAndTellsTheTimeLeft) {
    TransferSpeed speed;
    TransferSpeed::Clock::time_point now;
    EXPECT_FALSE(speed.timeLeft(1000));
    for (int i = 0; i <= 100; ++i)
        speed.update(i * 1000, now += 250ms);
    EXPECT_NEAR(speed.bytesPerSecond(), 4000, 1);
    EXPECT_EQ(speed.timeLeft(8000), 2s);

    // Nothing arrives any more: the figure goes down, it does not stand still.
    for (int i = 0; i < 40; ++i)
        speed.update(100 * 1000, now += 250ms);
    EXPECT_LT(speed.bytesPerSecond(), 400);
}

TEST(TransferSpeed, counterThatStartsAnewIsNoSpeed) {
    TransferSpeed speed;
    TransferSpeed::Clock::time_point now;
    speed.update(0, now);
    speed.update(1000, now += 1s);
    speed.update(0, now += 1s);
    speed.update(1000, now += 1s);
    EXPECT_NEAR(speed.bytesPerSecond(), 1000, 1);
}

TEST(TransferSpeed, durationsAreShownInUnitsThatFit) {
    EXPECT_EQ(formatDuration(0s), QStringLiteral("0 s"));
    EXPECT_EQ(formatDuration(59s), QStringLiteral("59 s"));
    EXPECT_EQ(formatDuration(185s), QStringLiteral("3:05 min"));
    EXPECT_EQ(formatDuration(1h + 2min + 3s), QStringLiteral("1:02:03 h"));
}

} // namespace
} // namespace tessary
