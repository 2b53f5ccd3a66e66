#pragma once

#include "base/values/Bytes.h"

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace tessary {

/// The words of the file-sync records: four ASCII letters as a little-endian u32. What a phone says
/// may be any other.
enum class ADBSyncCommand : std::uint32_t {
    list = 0x5453494C,
    lis2 = 0x3253494C,
    dent = 0x544E4544,
    dnt2 = 0x32544E44,
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

/// What a sync service tells of one path.
struct ADBFacts {
    std::uint32_t error = 0;   ///< the phone's errno; nothing below counts when it is not 0
    std::uint32_t mode = 0;    ///< POSIX mode bits
    std::uint64_t size = 0;    ///< bytes; the low 32 bits alone when `isOld`
    std::int64_t modified = 0; ///< seconds since 1970-01-01 UTC
    bool isOld = false;        ///< from a record of the first version

    [[nodiscard]] bool isFolder() const {
        return (mode & 0xF000) == 0x4000;
    }
    [[nodiscard]] bool isLink() const {
        return (mode & 0xF000) == 0xA000;
    }
    [[nodiscard]] bool isFile() const {
        return (mode & 0xF000) == 0x8000;
    }

    bool operator==(const ADBFacts&) const = default;
};

/// The fixed fronts of the records of both versions, as they are read from a stream of many. Pure;
/// all integers little-endian.
///
///     STAT       word, u32 mode, size, time                                       16 bytes
///     LST2, STA2 word, u32 error, u64 device, inode, u32 mode, links, user, group,
///                u64 size, i64 times of access, content, status                   72 bytes
///     DENT       word, u32 mode, size, time, length of the name                   20 bytes
///     DNT2       as LST2, then u32 length of the name                             76 bytes
///
/// The name follows. DONE ends a listing and is as long as the front of the entries would be.
class ADBSyncCodec {
public:
    ADBSyncCodec() = delete;

    static constexpr std::size_t wordSize = 4;
    static constexpr std::size_t oldStatSize = 16;
    static constexpr std::size_t newStatSize = 72;
    static constexpr std::size_t oldEntrySize = 20;
    static constexpr std::size_t newEntrySize = 76;

    /// A request for a path in the phone's bytes: word, u32 length, the path.
    [[nodiscard]] static Bytes request(ADBSyncCommand command, const QByteArray& path);
    /// Ends the content of a file that is sent: "DONE", u32 its time.
    [[nodiscard]] static Bytes doneRecord(std::uint32_t modified);

    /// STAT, whose mode 0 says that nothing is there (ENOENT). No value for anything shorter or
    /// other.
    [[nodiscard]] static std::optional<ADBFacts> oldStat(ByteView record);
    /// LST2 or STA2.
    [[nodiscard]] static std::optional<ADBFacts> newStat(ByteView record);

    struct EntryFront {
        ADBFacts facts;
        std::uint32_t nameLength = 0; ///< as the phone claims
        bool isDone = false;          ///< no entry: the listing ends

        bool operator==(const EntryFront&) const = default;
    };
    /// DENT or DONE.
    [[nodiscard]] static std::optional<EntryFront> oldEntry(ByteView record);
    /// DNT2 or DONE.
    [[nodiscard]] static std::optional<EntryFront> newEntry(ByteView record);
};

} // namespace tessary
