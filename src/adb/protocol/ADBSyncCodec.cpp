#include "adb/protocol/ADBSyncCodec.h"

#include "base/values/LittleEndian.h"

#include <QStringDecoder>
#include <QTimeZone>

#include <array>
#include <limits>

namespace tessary {

namespace {

using enum ADBSyncCommand;

constexpr std::array words{list, dent, stat, lst2, sta2, send, recv, data, done, okay, fail, quit};

constexpr std::size_t statSize = 16;
constexpr std::size_t dentHeaderSize = 20;
constexpr std::size_t doneSize = 16;

std::uint32_t field(ByteView bytes, std::size_t at) {
    return readLittleEndian<std::uint32_t>(bytes, at);
}

void appendWord(Bytes& bytes, ADBSyncCommand word) {
    appendLittleEndian(bytes, static_cast<std::uint32_t>(word));
}

/// A byte order mark in front is part of a name: without it the entry could not be asked for.
QString nameFrom(ByteView utf8) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    return decoder.decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

} // namespace

std::optional<ADBSyncCommand> adbSyncCommandFromRawValue(std::uint32_t raw) {
    for (const ADBSyncCommand word : words)
        if (static_cast<std::uint32_t>(word) == raw)
            return word;
    return std::nullopt;
}

bool ADBDentEntry::isDirectory() const {
    constexpr std::uint32_t typeMask = 0xF000;
    constexpr std::uint32_t folder = 0x4000;
    return (mode & typeMask) == folder;
}

QDateTime ADBDentEntry::modifiedDate() const {
    return QDateTime::fromSecsSinceEpoch(mtime, QTimeZone::utc());
}

Bytes ADBSyncCodec::buildSyncCommand(ADBSyncCommand id, const QString& path) {
    // Half of a surrogate pair has no UTF-8 form.
    const QByteArray utf8 = path.isValidUtf16() ? path.toUtf8() : QByteArray();
    Bytes bytes;
    appendWord(bytes, id);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(utf8.size()));
    for (const char c : utf8)
        bytes.push_back(static_cast<std::byte>(c));
    return bytes;
}

Bytes ADBSyncCodec::buildDataChunk(ByteView payload) {
    if (payload.size() > std::numeric_limits<std::uint32_t>::max())
        qFatal("a sync record above the 32-bit range");
    Bytes bytes;
    bytes.reserve(8 + payload.size());
    appendWord(bytes, data);
    appendLittleEndian(bytes, static_cast<std::uint32_t>(payload.size()));
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

Bytes ADBSyncCodec::buildDone(std::uint32_t mtime) {
    Bytes bytes;
    appendWord(bytes, done);
    appendLittleEndian(bytes, mtime);
    return bytes;
}

std::optional<ADBStatResult> ADBSyncCodec::parseStat(ByteView from) {
    if (from.size() < statSize || field(from, 0) != static_cast<std::uint32_t>(stat))
        return std::nullopt;
    return ADBStatResult{field(from, 4), field(from, 8), field(from, 12)};
}

std::optional<ADBDentRecord> ADBSyncCodec::parseDent(ByteView from) {
    if (from.size() < doneSize)
        return std::nullopt;
    const auto word = adbSyncCommandFromRawValue(field(from, 0));
    if (word == done)
        return ADBDentRecord{std::nullopt, doneSize};
    if (word != dent || from.size() < dentHeaderSize)
        return std::nullopt;
    const std::size_t nameLength = field(from, 16);
    if (from.size() - dentHeaderSize < nameLength)
        return std::nullopt;
    const ByteView name = from.subspan(dentHeaderSize, nameLength);
    return ADBDentRecord{
        ADBDentEntry{field(from, 4), field(from, 8), field(from, 12), nameFrom(name)},
        dentHeaderSize + nameLength};
}

} // namespace tessary
