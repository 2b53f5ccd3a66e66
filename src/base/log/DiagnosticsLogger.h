#pragma once

#include <QString>

#include <functional>
#include <initializer_list>

namespace tessary {

enum class LogLevel { debug, info, standard, error };

/// The level's name in the log: "debug", "info", "default" or "error".
[[nodiscard]] const char* logLevelName(LogLevel level);

/// One message as it reaches the system log.
struct LogRecord {
    const char* category;
    LogLevel level;
    QString message;
};

/// Where log messages go. Called on any thread, possibly on several at once.
struct LogSink {
    std::function<bool(LogLevel)> isEnabled;
    std::function<void(const LogRecord&)> write;
};

/// One channel of the log. Thread-safe and stateless.
class LogChannel {
public:
    LogChannel(const char* category, const LogSink& sink) : category_(category), sink_(sink) {}

    /// Writes `format` with each "%s" or "%d" replaced by the next argument. Arguments are not
    /// searched for placeholders; control characters in them are shown escaped, so that a name
    /// from a device cannot forge a line. Nothing is formatted when the level is off.
    void log(LogLevel level, const char* format, std::initializer_list<QString> arguments) const;

    void error(const char* format, std::initializer_list<QString> arguments = {}) const {
        log(LogLevel::error, format, arguments);
    }
    void standard(const char* format, std::initializer_list<QString> arguments = {}) const {
        log(LogLevel::standard, format, arguments);
    }
    void info(const char* format, std::initializer_list<QString> arguments = {}) const {
        log(LogLevel::info, format, arguments);
    }

private:
    const char* category_;
    const LogSink& sink_;
};

/// The diagnostic channels of the system, under the subsystem "com.velmora.tessary". They write to
/// the journal (fields SUBSYSTEM, CATEGORY and PRIORITY) and, where no journal runs, to standard
/// error with the same fields in front; standard error shows info and debug messages only when
/// the environment variable TESSARY_LOG is set to "info" or "debug".
class DiagnosticsLogger {
public:
    static constexpr const char* subsystem = "com.velmora.tessary";

    /// The one instance that writes to the system's log. Made on first use, never released.
    [[nodiscard]] static const DiagnosticsLogger& shared();

    explicit DiagnosticsLogger(LogSink sink);
    DiagnosticsLogger(const DiagnosticsLogger&) = delete;
    DiagnosticsLogger& operator=(const DiagnosticsLogger&) = delete;

private:
    LogSink sink_;

public:
    const LogChannel usb{"usb", sink_};           ///< device discovery
    const LogChannel mtp{"mtp", sink_};           ///< MTP access notices
    const LogChannel adb{"adb", sink_};           ///< ADB transfer and shell failures
    const LogChannel afc{"afc", sink_};           ///< house arrest and AFC transfers
    const LogChannel transfer{"transfer", sink_}; ///< the transfer engine
    const LogChannel ui{"ui", sink_};             ///< the user interface
};

} // namespace tessary
