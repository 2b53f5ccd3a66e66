#include "core/DiagnosticsLogger.h"
#include "core/SystemLogSink.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace tessary {
namespace {

/// A logger whose records are kept.
struct Recorder {
    std::vector<LogRecord> records;
    DiagnosticsLogger logger{{[](LogLevel) { return true; },
                              [this](const LogRecord& record) { records.push_back(record); }}};
};

TEST(DiagnosticsLogger, placeholdersAreFilledOnceAndInOrder) {
    const struct {
        const char* name;
        const char* format;
        std::initializer_list<QString> arguments;
        const char* text;
    } rows[] = {
        {"number", "usbmuxd: %d", {QStringLiteral("-3")}, "usbmuxd: -3"},
        {"two", "%s for %s", {QStringLiteral("a"), QStringLiteral("b")}, "a for b"},
        {"argument holds a placeholder",
         "%s/%s",
         {QStringLiteral("%s"), QStringLiteral("b")},
         "%s/b"},
        {"too few arguments", "%s and %s", {QStringLiteral("a")}, "a and %s"},
        {"too many arguments", "%s", {QStringLiteral("a"), QStringLiteral("b")}, "a"},
        {"percent signs", "100% %% %x %", {QStringLiteral("a")}, "100% %% %x %"},
        {"line break in a name", "%s", {QStringLiteral("a\nforged: b")}, "a\\u000aforged: b"},
        {"escape and separator",
         "%s",
         {QStringLiteral("\u001b[2J\u2028\u0085")},
         "\\u001b[2J\\u2028\\u0085"},
    };
    Recorder recorder;
    for (const auto& row : rows) {
        recorder.logger.mtp.log(LogLevel::error, row.format, row.arguments);
        EXPECT_EQ(recorder.records.back().message, QString::fromUtf8(row.text)) << row.name;
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
