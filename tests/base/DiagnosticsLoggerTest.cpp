#include "base/log/DiagnosticsLogger.h"
#include "base/log/SystemLogSink.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace tessary
