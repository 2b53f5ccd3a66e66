#pragma once

#include "adb/services/ADBReader.h"
#include "adb/services/ADBStream.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <span>

namespace tessary {

/// How a command line on a phone ended.
struct ADBCommandResult {
    QByteArray output;
    QByteArray errors; ///< empty where the phone's shell mixes them into the output
    int status = 0;
};

/// A text as one word of a phone's shell, whatever bytes it holds: in single quotes, each single
/// quote in it as '\''.
[[nodiscard]] QByteArray shellQuoted(const QByteArray& text);

/// Runs command lines on a phone, each on a stream of its own, with no terminal. Thread-safe and
/// blocking. A stream that ends before the exit status came is ADBError::brokenOff.
class ADBShellClient {
public:
    /// With what a connection can do, which must outlive it.
    ADBShellClient(ADBConnection& connection, const QByteArrayList& features)
        : connection_(connection), hasVersion2_(features.contains("shell_v2")) {}

    /// Whether the output of a command reaches us as it is, apart from its errors.
    [[nodiscard]] bool isExact() const {
        return hasVersion2_;
    }
    /// Runs a line of one or more simple commands. More output than outputLimit is
    /// ADBError::nonsense.
    [[nodiscard]] ADBCommandResult run(const QByteArray& line, const Wait& wait);
    /// What a phone says of itself ("ro.serialno"), without blanks around it.
    [[nodiscard]] QString property(const QByteArray& name, const Wait& wait) {
        return QString::fromUtf8(run("getprop " + name, wait).output).trimmed();
    }
    /// As run(), with the output handed to `output` as it comes until that says that it is enough
    /// (false: the command is ended, and its status is 0). Only where isExact().
    [[nodiscard]] ADBCommandResult
    stream(const QByteArray& line, const std::function<bool(ByteView)>& output, const Wait& wait);

    /// The same, with what `source` fills buffers with, until it returns 0, as the command's
    /// standard input; `sent` is told the bytes handed over so far. A command that says something
    /// gets no more. Only where isExact().
    [[nodiscard]] ADBCommandResult
    feed(const QByteArray& line, const std::function<std::size_t(std::span<std::byte>)>& source,
         const std::function<void(std::uint64_t)>& sent, const Wait& wait);

    static constexpr qsizetype outputLimit = qsizetype{16} << 20; ///< bytes

private:
    [[nodiscard]] ADBCommandResult runOld(const QByteArray& line, const Wait& wait);
    [[nodiscard]] static ADBCommandResult wholeResultOf(ADBReader& reader, const Wait& wait);
    [[nodiscard]] static ADBCommandResult
    resultOf(ADBReader& reader, const std::function<bool(ByteView)>& output, const Wait& wait);

    ADBConnection& connection_;
    const bool hasVersion2_;
};

} // namespace tessary
