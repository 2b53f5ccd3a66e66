#include "mtp/protocol/MTPPacketCodec.h"

#include "base/values/LittleEndian.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace tessary {

namespace {

constexpr std::size_t storageInfoFixedSize = 26;
constexpr std::size_t objectInfoFixedSize = 52;
constexpr qsizetype maxStringUnits = 254;

Bytes beginContainer(MTPContainerType type, MTPOperationCode operation, std::uint32_t transactionID,
                     std::size_t payloadSize) {
    constexpr auto limit = std::numeric_limits<std::uint32_t>::max() - MTPContainerHeader::size;
    if (payloadSize > limit)
        qFatal("an MTP container does not fit its 32-bit length");
    MTPContainerHeader header;
    header.length = static_cast<std::uint32_t>(MTPContainerHeader::size + payloadSize);
    header.type = type;
    header.code = static_cast<std::uint16_t>(operation);
    header.transactionID = transactionID;
    Bytes bytes = MTPPacketCodec::encodeHeader(header);
    bytes.reserve(header.length);
    return bytes;
}

/// A date and time in local time. In the hour that a change to summer time leaves out, where
/// QDateTime has no value, it is the time of a clock that was not put forward yet.
QDateTime localDate(QDate date, QTime time) {
    const QDateTime local(date, time);
    if (local.isValid())
        return local;
    const int offset = QDateTime(date.addDays(-1), time).offsetFromUtc();
    return QDateTime(date, time, Qt::UTC).addSecs(-offset).toLocalTime();
}

} // namespace

Bytes MTPPacketCodec::encodeHeader(const MTPContainerHeader& header) {
    Bytes bytes;
    bytes.reserve(MTPContainerHeader::size);
    appendLittleEndian(bytes, header.length);
    appendLittleEndian(bytes, static_cast<std::uint16_t>(header.type));
    appendLittleEndian(bytes, header.code);
    appendLittleEndian(bytes, header.transactionID);
    return bytes;
}

std::optional<MTPContainerHeader> MTPPacketCodec::decodeHeader(ByteView from) {
    if (from.size() < MTPContainerHeader::size)
        return std::nullopt;
    MTPContainerHeader header;
    header.length = readLittleEndian<std::uint32_t>(from, 0);
    const auto type = MTPContainerType{readLittleEndian<std::uint16_t>(from, 4)};
    header.type = type <= MTPContainerType::event ? type : MTPContainerType::undefined;
    header.code = readLittleEndian<std::uint16_t>(from, 6);
    header.transactionID = readLittleEndian<std::uint32_t>(from, 8);
    return header;
}

std::optional<MTPEvent> MTPPacketCodec::decodeEvent(ByteView from) {
    const auto header = decodeHeader(from);
    if (!header || header->type != MTPContainerType::event)
        return std::nullopt;
    constexpr std::size_t withParameter = MTPContainerHeader::size + 4;
    const bool hasParameter = from.size() >= withParameter && header->length >= withParameter;
    return MTPEvent{header->code,
                    hasParameter ? readLittleEndian<std::uint32_t>(from, MTPContainerHeader::size)
                                 : 0};
}

Bytes MTPPacketCodec::buildCommandPacket(MTPOperationCode operation, std::uint32_t transactionID,
                                         std::span<const std::uint32_t> parameters) {
    Bytes bytes =
        beginContainer(MTPContainerType::command, operation, transactionID, 4 * parameters.size());
    for (const std::uint32_t parameter : parameters)
        appendLittleEndian(bytes, parameter);
    return bytes;
}

Bytes MTPPacketCodec::buildDataPacket(MTPOperationCode operation, std::uint32_t transactionID,
                                      ByteView payload) {
    Bytes bytes = beginContainer(MTPContainerType::data, operation, transactionID, payload.size());
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

std::vector<std::uint32_t> MTPPacketCodec::decodeArray(ByteView from) {
    if (from.size() < 4)
        return {};
    const std::size_t count = readLittleEndian<std::uint32_t>(from, 0);
    if (count > (from.size() - 4) / 4)
        return {};
    std::vector<std::uint32_t> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = readLittleEndian<std::uint32_t>(from, 4 + 4 * i);
    return values;
}

std::optional<MTPDeviceInfo> MTPPacketCodec::decodeDeviceInfo(ByteView from) {
    constexpr std::size_t fixedSize = 8;
    if (from.size() < fixedSize)
        return std::nullopt;
    MTPDeviceInfo info;
    const auto extensions = decodeString(from, fixedSize);
    const std::size_t at = fixedSize + (extensions ? extensions->second : 0) + 2; // mode
    if (!extensions || from.size() < at + 4)
        return info;
    const std::size_t count = readLittleEndian<std::uint32_t>(from, at);
    for (std::size_t i = 0; count <= (from.size() - at - 4) / 2 && i < count; ++i)
        info.operations.push_back(readLittleEndian<std::uint16_t>(from, at + 4 + 2 * i));
    return info;
}

std::optional<MTPStorageInfo> MTPPacketCodec::decodeStorageInfo(ByteView from,
                                                                std::uint32_t storageID) {
    if (from.size() < storageInfoFixedSize)
        return std::nullopt;
    MTPStorageInfo info;
    info.id = storageID;
    info.storageType = readLittleEndian<std::uint16_t>(from, 0);
    info.maxCapacity = readLittleEndian<std::uint64_t>(from, 6);
    info.freeSpaceInBytes = readLittleEndian<std::uint64_t>(from, 14);
    if (const auto description = decodeString(from, storageInfoFixedSize))
        info.storageDescription = description->first;
    if (info.storageDescription.isEmpty())
        info.storageDescription = QStringLiteral("Internal Storage");
    return info;
}

std::optional<MTPObjectInfo> MTPPacketCodec::decodeObjectInfo(ByteView from, std::uint32_t handle) {
    if (from.size() < objectInfoFixedSize)
        return std::nullopt;
    MTPObjectInfo info;
    info.id = handle;
    info.storageID = readLittleEndian<std::uint32_t>(from, 0);
    info.objectFormat = MTPObjectFormat{readLittleEndian<std::uint16_t>(from, 4)};
    info.compressedSize = readLittleEndian<std::uint32_t>(from, 8);
    info.parentObject = readLittleEndian<std::uint32_t>(from, 38);
    info.filename = decodeName(from, objectInfoFixedSize);
    std::size_t at = objectInfoFixedSize;
    for (int before = 0; before < 2; ++before) { // the name and the date of creation
        const auto text = decodeString(from, at);
        at += text ? text->second : 1;
    }
    if (const auto modified = decodeString(from, at))
        info.dateModified = parseMTPDate(modified->first);
    return info;
}

Bytes MTPPacketCodec::encodeObjectInfo(const MTPObjectInfo& info) {
    Bytes bytes;
    appendLittleEndian(bytes, info.storageID);
    appendLittleEndian(bytes, static_cast<std::uint16_t>(info.objectFormat));
    appendLittleEndian(bytes, std::uint16_t{0});
    appendLittleEndian(bytes, info.compressedSize);
    bytes.resize(38); // neither thumbnail nor picture size
    appendLittleEndian(bytes, info.parentObject);
    appendLittleEndian(bytes, std::uint16_t{info.isDirectory()}); // 1: a generic folder
    bytes.resize(objectInfoFixedSize);
    const QString modified = info.dateModified ? formatMTPDate(*info.dateModified) : QString();
    for (const QString& text : {info.filename, QString(), modified, QString()}) {
        const Bytes encoded = encodeString(text);
        bytes.insert(bytes.end(), encoded.begin(), encoded.end());
    }
    return bytes;
}

Bytes MTPPacketCodec::encodeString(const QString& text) {
    Bytes bytes;
    if (text.isEmpty())
        return {std::byte{0}};
    const QStringView units = QStringView(text).left(maxStringUnits);
    bytes.reserve(1 + 2 * (static_cast<std::size_t>(units.size()) + 1));
    bytes.push_back(static_cast<std::byte>(units.size() + 1));
    for (const QChar unit : units)
        appendLittleEndian(bytes, static_cast<std::uint16_t>(unit.unicode()));
    appendLittleEndian(bytes, std::uint16_t{0});
    return bytes;
}

std::optional<std::pair<QString, std::size_t>> MTPPacketCodec::decodeString(ByteView from,
                                                                            std::size_t at) {
    if (at >= from.size())
        return std::nullopt;
    const auto length = static_cast<std::size_t>(from[at]);
    if (length == 0)
        return std::pair{QString(), std::size_t{1}};
    if (2 * length > from.size() - at - 1)
        return std::nullopt;
    QString text(static_cast<qsizetype>(length - 1), Qt::Uninitialized);
    for (std::size_t i = 0; i + 1 < length; ++i)
        text[static_cast<qsizetype>(i)] =
            QChar(char16_t{readLittleEndian<std::uint16_t>(from, at + 1 + 2 * i)});
    return std::pair{text, 1 + 2 * length};
}

QString MTPPacketCodec::decodeName(ByteView from, std::size_t at) {
    const auto decoded = decodeString(from, at);
    QString name = decoded ? decoded->first : QString();
    while (name.endsWith(QChar(0)))
        name.chop(1);
    return name;
}

std::optional<QDateTime> MTPPacketCodec::parseMTPDate(const QString& text) {
    // 1 year, 3 month, 4 day, 5 hour, 7 minute, 8 second, 9 fraction, 10 zone
    static const QRegularExpression layout(QStringLiteral(
        R"(^([0-9]{4})(-?)([0-9]{2})\2([0-9]{2})[T ]([0-9]{2})(:?)([0-9]{2})(?:\6([0-9]{2}))?)"
        R"((?:\.([0-9]+))?(Z|[+-][0-9]{2}(?::?[0-9]{2})?)?$)"));
    const QRegularExpressionMatch match = layout.match(text.trimmed());
    if (!match.hasMatch())
        return std::nullopt;
    const auto number = [&match](int part) { return match.capturedView(part).toInt(); };
    const int milliseconds = match.captured(9).left(3).leftJustified(3, QLatin1Char('0')).toInt();
    const QDate date(number(1), number(3), number(4));
    const QTime time(number(5), number(7), number(8), milliseconds);
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    const QStringView zone = match.capturedView(10);
    if (zone.isEmpty())
        return localDate(date, time);
    constexpr int mostHours = 14;
    const int hours = zone.mid(1, 2).toInt();
    const int minutes = zone.size() > 3 ? zone.right(2).toInt() : 0;
    if (hours > mostHours || minutes > 59)
        return std::nullopt;
    const int east = (hours * 60 + minutes) * 60;
    return QDateTime(date, time, Qt::OffsetFromUTC, zone[0] == QLatin1Char('-') ? -east : east)
        .toLocalTime();
}

QString MTPPacketCodec::formatMTPDate(const QDateTime& date) {
    return QLocale::c().toString(date.toLocalTime(), QStringLiteral("yyyyMMdd'T'HHmmss"));
}

} // namespace tessary
