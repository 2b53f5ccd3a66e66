#include "base/log/DiagnosticsLogger.h"

#include "base/log/SystemLogSink.h"
#include "base/text/Printable.h"

#include <array>

namespace tessary {

const char* logLevelName(LogLevel level) {
    static constexpr std::array names{"debug", "info", "default", "error"};
    return names[static_cast<std::size_t>(level)];
}

void LogChannel::log(LogLevel level, const char* format,
                     std::initializer_list<QString> arguments) const {
    if (!sink_.isEnabled(level))
        return;
    QString message;
    const QLatin1StringView text(format);
    auto next = arguments.begin();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool placeholder =
            text[i] == QLatin1Char('%') && i + 1 < text.size() &&
            (text[i + 1] == QLatin1Char('s') || text[i + 1] == QLatin1Char('d'));
        if (placeholder && next != arguments.end()) {
            message += printable(*next++);
            ++i;
        } else {
            message += text[i];
        }
    }
    sink_.write({category_, level, message});
}

DiagnosticsLogger::DiagnosticsLogger(LogSink sink) : sink_(std::move(sink)) {}

const DiagnosticsLogger& DiagnosticsLogger::shared() {
    static const DiagnosticsLogger& logger = *new DiagnosticsLogger(makeSystemLogSink());
    return logger;
}

} // namespace tessary
