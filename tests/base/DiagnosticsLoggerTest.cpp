#include "base/log/DiagnosticsLogger.h"
#include "base/log/LogQueue.h"
#include "base/log/SystemLogSink.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A logger whose records are kept.
struct Recorder {
    std::vector<LogRecord> records;
    DiagnosticsLogger logger{{[](LogLevel) { return true; },
                              [this](const LogRecord& record) { records.push_back(record); }}};
};

TEST(DiagnosticsLogger, placeholdersAreFilledOnceAndInOrder) {
    const struct {
        const char* format;
        std::initializer_list<QString> arguments;
        const char* text;
    } rows[] = {
        {"usbmuxd: %d", {u"-3"_s}, "usbmuxd: -3"},
        {"%s/%s", {u"%s"_s, u"b"_s}, "%s/b"},
        {"%s and %s", {u"a"_s}, "a and %s"},
        {"%s", {u"a"_s, u"b"_s}, "a"},
        {"100% %% %x %", {u"a"_s}, "100% %% %x %"},
        {"%s", {u"a\nforged: b"_s}, "a\\u000aforged: b"},
        {"%s", {u"\u001b[2J\u2028\u0085"_s}, "\\u001b[2J\\u2028\\u0085"},
    };
    Recorder recorder;
    for (const auto& [format, arguments, text] : rows) {
        recorder.logger.mtp.log(LogLevel::error, format, arguments);
        EXPECT_EQ(recorder.records.back().message, QString::fromUtf8(text));
    }
}

TEST(DiagnosticsLogger, standardErrorLinesCarryTheFieldsAndNeverMix) {
    const DiagnosticsLogger logger(makeStandardErrorSink(LogLevel::standard));
    testing::internal::CaptureStderr();
    logger.adb.info("not shown");
    logger.adb.error("ADB push failed: %s", {QStringLiteral("g\u00e4\nb")});
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&logger] {
            for (int n = 0; n < 50; ++n)
                logger.ui.standard("tick");
        });
    threads.clear();

    std::string expected = "com.velmora.tessary adb error: ADB push failed: g\u00e4\\u000ab\n";
    for (int i = 0; i < 200; ++i)
        expected += "com.velmora.tessary ui default: tick\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), expected);
}

TEST(LogQueue, aLogThatHangsHoldsNobodyUp) {
    constexpr std::size_t tooMany = LogQueue::mostWaiting + 5;
    struct Log {
        std::mutex hangs;
        std::vector<QString> lines;
    };
    const auto log = std::make_shared<Log>();
    {
        LogQueue queue([log](const LogRecord& record) {
            const std::scoped_lock lock(log->hangs);
            log->lines.push_back(record.message);
        });
        {
            const std::scoped_lock hung(log->hangs);
            for (std::size_t n = 0; n < tooMany; ++n)
                queue.add({"", LogLevel::standard, QString::number(n)});
        }
        // It goes on: the next one that finds room tells of those that did not.
        bool isTold = false;
        while (!isTold) {
            queue.add({"", LogLevel::standard, u"more"_s});
            const std::scoped_lock lock(log->hangs);
            isTold = std::ranges::any_of(log->lines, [](const QString& line) {
                return line.endsWith(u"messages were dropped"_s);
            });
        }
        const std::scoped_lock lock(log->hangs);
        EXPECT_EQ(log->lines.front(), u"0");
    }

    // One that hangs to the end is left to its thread.
    std::promise<void> ends;
    LogQueue([wait = ends.get_future().share(), log](const LogRecord&) {
        wait.wait();
    }).add({"", LogLevel::standard, u"never"_s});
    ends.set_value();
}

} // namespace
} // namespace tessary
