#pragma once

#include "base/values/Bytes.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>

namespace tessary {

/// The words of the file-sync records: four ASCII letters as a little-endian u32.
enum class ADBSyncCommand : std::uint32_t {
    list = 0x5453494C,
    dent = 0x544E4544,
    stat = 0x54415453,
    lst2 = 0x3254534C,
    sta2 = 0x32415453,
    send = 0x444E4553,
    recv = 0x56434552,
    data = 0x41544144,
    done = 0x454E4F44,
    okay = 0x59414B4F,
    fail = 0x4C494146,
    quit = 0x54495551,
};

/// No value for any other word.
[[nodiscard]] std::optional<ADBSyncCommand> adbSyncCommandFromRawValue(std::uint32_t raw);

/// One entry of a folder. A value.
struct ADBDentEntry {
    std::uint32_t mode = 0;  ///< POSIX mode bits
    std::uint32_t size = 0;  ///< bytes
    std::uint32_t mtime = 0; ///< seconds since 1970-01-01 UTC
    QString name;            ///< as the device gives it: hostile

    [[nodiscard]] const QString& id() const {
        return name;
    }
    [[nodiscard]] bool isDirectory() const;
    [[nodiscard]] QDateTime modifiedDate() const;

    bool operator==(const ADBDentEntry&) const = default;
};

struct ADBStatResult {
    std::uint32_t mode = 0;
    std::uint32_t size = 0;
    std::uint32_t mtime = 0;

    bool operator==(const ADBStatResult&) const = default;
};

/// One record of a listing.
struct ADBDentRecord {
    std::optional<ADBDentEntry> entry; ///< none: the listing is finished
    std::size_t bytesRead = 0;

    bool operator==(const ADBDentRecord&) const = default;
};

/// Records of the sync service, as they travel in WRTE payloads. Pure; all integers little-endian.
class ADBSyncCodec {
public:
    ADBSyncCodec() = delete;

    /// LIST, STAT, SEND, RECV or QUIT: word, u32 length of the path in UTF-8, the path.
    [[nodiscard]] static Bytes buildSyncCommand(ADBSyncCommand id, const QString& path);
    /// "DATA", u32 length, the payload. Fatal for a payload above the 32-bit range.
    [[nodiscard]] static Bytes buildDataChunk(ByteView payload);
    /// "DONE", u32 time of the file that was pushed.
    [[nodiscard]] static Bytes buildDone(std::uint32_t mtime);

    /// "STAT", u32 mode, u32 size, u32 mtime. No value for anything shorter or other.
    [[nodiscard]] static std::optional<ADBStatResult> parseStat(ByteView from);

    /// The record at the front of a listing: "DENT", u32 mode, u32 size, u32 mtime, u32 length of
    /// the name, the name; or "DONE" and twelve bytes that mean nothing, counted as 16. No value
    /// while bytes are missing, and for any other word.
    [[nodiscard]] static std::optional<ADBDentRecord> parseDent(ByteView from);
};

} // namespace tessary
