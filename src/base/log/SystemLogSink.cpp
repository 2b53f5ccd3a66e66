#include "base/log/SystemLogSink.h"

#include "base/log/LogQueue.h"

#include <QFileInfo>
#include <QLibrary>

#include <array>
#include <cstdio>

#include <syslog.h>

namespace tessary {

namespace {

LogLevel minimumFromEnvironment() {
    const QByteArray wanted = qgetenv("TESSARY_LOG");
    for (const LogLevel level : {LogLevel::debug, LogLevel::info, LogLevel::error})
        if (wanted == logLevelName(level))
            return level;
    return LogLevel::standard;
}

/// The library is there where the journal is. It is loaded for the first record: with the four that
/// it brings along it would be a sixth of what each start has to load.
void writeToJournal(const LogRecord& record) {
    static constexpr std::array priorities{LOG_DEBUG, LOG_INFO, LOG_NOTICE, LOG_ERR};
    using SendToJournal = int (*)(const char* format, ...);
    static const auto send = reinterpret_cast<SendToJournal>(
        QLibrary::resolve(QStringLiteral("systemd"), 0, "sd_journal_send"));
    static const LogSink instead = makeStandardErrorSink(minimumFromEnvironment());
    if (send)
        send("MESSAGE=%s", record.message.toUtf8().constData(), "PRIORITY=%i",
             priorities[static_cast<std::size_t>(record.level)], "SUBSYSTEM=%s",
             DiagnosticsLogger::subsystem, "CATEGORY=%s", record.category, nullptr);
    else if (instead.isEnabled(record.level))
        instead.write(record);
}

} // namespace

LogSink makeStandardErrorSink(LogLevel minimum) {
    return {[minimum](LogLevel level) { return level >= minimum; },
            [](const LogRecord& record) {
                // One call a line: lines of several threads do not mix.
                const QByteArray line = QByteArray(DiagnosticsLogger::subsystem) + ' ' +
                                        record.category + ' ' + logLevelName(record.level) + ": " +
                                        record.message.toUtf8() + '\n';
                std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
            }};
}

LogSink makeSystemLogSink() {
    if (QFileInfo::exists(QStringLiteral("/run/systemd/journal/socket"))) {
        // Destroyed when the program ends: what is logged after that is dropped.
        static const auto queue = std::make_shared<LogQueue>(writeToJournal);
        return {[](LogLevel) { return true; },
                [waiting = std::weak_ptr(queue)](const LogRecord& record) {
                    if (const auto there = waiting.lock())
                        there->add(record);
                }};
    }
    return makeStandardErrorSink(minimumFromEnvironment());
}

} // namespace tessary
