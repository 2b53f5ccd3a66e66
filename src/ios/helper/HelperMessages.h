#pragma once

#include "base/values/Error.h"
#include "ios/AFCFileInfo.h"
#include "ios/Lockdown.h"
#include "phone/records/AppInfo.h"

#include <QByteArray>
#include <QDataStream>

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace tessary {

// What this program and the helper that speaks to an iPhone say to each other. A request is its
// operation and arguments; an answer is whether the link has failed, whether the request went well,
// and its result or an error. The helper has met the phone's bytes: what it says is read as if the
// phone itself had said it.

/// Raised with each change of what follows: an update may exchange the helper under a program that
/// runs.
inline constexpr int helperVersion = 4;

/// Arguments and results stand behind each.
enum class HelperOperation : std::uint8_t {
    facts,      ///< nothing; facts
    apps,       ///< nothing; apps
    open,       ///< bundle identifier, empty for the media folder; root path
    names,      ///< path; names
    info,       ///< path; facts of the file, or none
    infos,      ///< folder, names; the same of each of them, or why it is refused
    makeFolder, ///< path; nothing
    remove,     ///< path; nothing
    rename,     ///< two paths; nothing
    setDate,    ///< path, milliseconds since 1970; nothing
    freeBytes,  ///< nothing; a number, or none
    openFile,   ///< path, AFCFileMode; nothing. One file is open at a time
    closeFile,  ///< nothing; nothing
    read,       ///< offset in the shared memory, most bytes; bytes
    write,      ///< offset in the shared memory, bytes; bytes that were taken
    seek,       ///< offset in the file; nothing
};

/// What a file is opened for.
enum class AFCFileMode : std::uint8_t {
    read,
    create, ///< it is made, or emptied
    change, ///< what it holds stays
};

/// What is told of one of several paths: its facts, none when nothing is there, or an error.
using AFCLookup = std::variant<std::optional<AFCFileInfo>, Error>;

/// Memory for two pieces of content, which both have in common.
inline constexpr std::size_t contentPiece = std::size_t{4} << 20;
inline constexpr std::size_t contentMemory = 2 * contentPiece;
/// The descriptor that the helper finds it at.
inline constexpr int contentDescriptor = 3;
/// The longest request, in bytes.
inline constexpr qint64 longestHelperRequest = qint64{64} << 10;

// Reading what is not there leaves the stream's status bad; memory grows with what there is.

QDataStream& operator<<(QDataStream& stream, const Error& error);
/// No value for what is no error of ours.
[[nodiscard]] std::optional<Error> readError(QDataStream& stream);

QDataStream& operator<<(QDataStream& stream, const AFCFileInfo& info);
QDataStream& operator>>(QDataStream& stream, AFCFileInfo& info);
QDataStream& operator<<(QDataStream& stream, const AFCLookup& lookup);
QDataStream& operator>>(QDataStream& stream, AFCLookup& lookup);
QDataStream& operator<<(QDataStream& stream, const StorageInfo& storage);
QDataStream& operator>>(QDataStream& stream, StorageInfo& storage);
QDataStream& operator<<(QDataStream& stream, const IPhoneFacts& facts);
QDataStream& operator>>(QDataStream& stream, IPhoneFacts& facts);
QDataStream& operator<<(QDataStream& stream, const AppInfo& app);
QDataStream& operator>>(QDataStream& stream, AppInfo& app);

template <typename T>
QDataStream& operator<<(QDataStream& stream, const std::optional<T>& value) {
    stream << value.has_value();
    return value ? stream << *value : stream;
}
template <typename T>
QDataStream& operator>>(QDataStream& stream, std::optional<T>& value) {
    bool isThere = false;
    stream >> isThere;
    return isThere ? stream >> value.emplace() : stream;
}
template <typename T>
QDataStream& operator<<(QDataStream& stream, const std::vector<T>& list) {
    stream << static_cast<quint32>(list.size());
    for (const T& one : list)
        stream << one;
    return stream;
}
template <typename T>
QDataStream& operator>>(QDataStream& stream, std::vector<T>& list) {
    quint32 count = 0;
    stream >> count;
    for (quint32 n = 0; n < count && stream.status() == QDataStream::Ok; ++n)
        stream >> list.emplace_back();
    return stream;
}

} // namespace tessary
