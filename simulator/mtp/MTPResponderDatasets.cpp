#include "simulator/mtp/MTPResponderDatasets.h"

#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"
#include "simulator/storage/MTPRefusal.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tessary {

namespace {

constexpr std::uint16_t invalidObjectPropCode = 0xA801;
constexpr std::uint16_t typeU8 = 0x0002;
constexpr qsizetype mostUnits = 255;

struct FormatRow {
    const char* ending;
    std::uint16_t format;
};

constexpr std::array formats{
    FormatRow{".jpg", 0x3801},  FormatRow{".jpeg", 0x3801}, FormatRow{".png", 0x380B},
    FormatRow{".gif", 0x3807},  FormatRow{".bmp", 0x3804},  FormatRow{".tif", 0x380D},
    FormatRow{".txt", 0x3004},  FormatRow{".htm", 0x3005},  FormatRow{".html", 0x3005},
    FormatRow{".wav", 0x3008},  FormatRow{".mp3", 0x3009},  FormatRow{".aac", 0xB903},
    FormatRow{".flac", 0xB906}, FormatRow{".avi", 0x300A},  FormatRow{".mp4", 0xB982},
    FormatRow{".mpg", 0x300B},
};

constexpr std::array properties{
    std::uint16_t{0xDC01}, std::uint16_t{0xDC02}, std::uint16_t{0xDC03},
    std::uint16_t{0xDC04}, std::uint16_t{0xDC07}, std::uint16_t{0xDC09},
    std::uint16_t{0xDC0B}, std::uint16_t{0xDC41}, std::uint16_t{0xDC44},
};

/// The type of a property's value.
std::uint16_t typeOf(std::uint16_t property) {
    constexpr std::uint16_t typeU16 = 0x0004;
    constexpr std::uint16_t typeU32 = 0x0006;
    constexpr std::uint16_t typeU64 = 0x0008;
    constexpr std::uint16_t typeU128 = 0x000A;
    constexpr std::uint16_t typeString = 0xFFFF;
    switch (static_cast<MTPObjectProperty>(property)) {
    case MTPObjectProperty::storageID:
    case MTPObjectProperty::parentObject:
        return typeU32;
    case MTPObjectProperty::objectSize:
        return typeU64;
    case MTPObjectProperty::persistentUniqueID:
        return typeU128;
    case MTPObjectProperty::objectFormat:
    case MTPObjectProperty::protectionStatus:
        return typeU16;
    default:
        return typeString;
    }
}

void append(Bytes& bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

/// Like the codec, but a name of 255 units goes out whole, without a terminator.
void appendString(Bytes& bytes, const QString& text) {
    if (text.size() != mostUnits)
        return append(bytes, MTPPacketCodec::encodeString(text));
    bytes.push_back(std::byte{mostUnits});
    for (const QChar unit : text)
        appendLittleEndian<std::uint16_t>(bytes, unit.unicode());
}

template <typename T>
Bytes arrayOf(std::span<const T> values) {
    Bytes bytes;
    bytes.reserve(4 + values.size_bytes());
    appendLittleEndian(bytes, static_cast<std::uint32_t>(values.size()));
    for (const T value : values)
        appendLittleEndian(bytes, value);
    return bytes;
}

} // namespace

Bytes MTPResponderDatasets::array(std::span<const std::uint32_t> values) {
    return arrayOf(values);
}

Bytes MTPResponderDatasets::array(std::span<const std::uint16_t> values) {
    return arrayOf(values);
}

Bytes MTPResponderDatasets::deviceInfo(const MTPDeviceDescription& device) {
    constexpr std::array events{std::uint16_t{0x4002}, std::uint16_t{0x4003}, std::uint16_t{0x4004},
                                std::uint16_t{0x4005}};
    constexpr std::array deviceProperties{static_cast<std::uint16_t>(mtpBatteryLevelProperty)};
    std::vector<std::uint16_t> playback{
        static_cast<std::uint16_t>(MTPObjectFormat::undefined),
        static_cast<std::uint16_t>(MTPObjectFormat::associationFolder)};
    for (const FormatRow& row : formats)
        if (std::ranges::find(playback, row.format) == playback.end())
            playback.push_back(row.format);
    Bytes bytes;
    appendLittleEndian<std::uint16_t>(bytes, 100);
    appendLittleEndian<std::uint32_t>(bytes, 6);
    appendLittleEndian<std::uint16_t>(bytes, 100);
    appendString(bytes, QStringLiteral("microsoft.com: 1.0; android.com: 1.0;"));
    appendLittleEndian<std::uint16_t>(bytes, 0);
    append(bytes, array(std::span<const std::uint16_t>(device.operations)));
    append(bytes, array(std::span<const std::uint16_t>(events)));
    append(bytes, array(std::span<const std::uint16_t>(deviceProperties)));
    append(bytes, array(std::span<const std::uint16_t>()));
    append(bytes, array(std::span<const std::uint16_t>(playback)));
    appendString(bytes, device.manufacturer);
    appendString(bytes, device.model);
    appendString(bytes, QStringLiteral("1.0"));
    appendString(bytes, device.serialNumber);
    return bytes;
}

Bytes MTPResponderDatasets::storageInfo(const VirtualStorage& storage) {
    constexpr std::uint16_t fixedRam = 3;
    constexpr std::uint16_t removableRam = 4;
    constexpr std::uint16_t hierarchical = 2;
    Bytes bytes;
    appendLittleEndian<std::uint16_t>(bytes, storage.removable ? removableRam : fixedRam);
    appendLittleEndian<std::uint16_t>(bytes, hierarchical);
    appendLittleEndian<std::uint16_t>(bytes, storage.readOnly ? 1 : 0);
    appendLittleEndian<std::uint64_t>(bytes, storage.capacity);
    appendLittleEndian<std::uint64_t>(bytes, storage.free);
    appendLittleEndian<std::uint32_t>(bytes, 0x40000000);
    appendString(bytes, storage.description);
    appendString(bytes, storage.volumeIdentifier);
    return bytes;
}

Bytes MTPResponderDatasets::objectInfo(const VirtualObject& object, const QString& name,
                                       bool cutsSizesTo32Bits) {
    constexpr std::uint64_t largest = std::numeric_limits<std::uint32_t>::max();
    const auto size = static_cast<std::uint32_t>(
        cutsSizesTo32Bits ? object.size & largest : std::min(object.size, largest));
    Bytes bytes;
    appendLittleEndian<std::uint32_t>(bytes, object.storageID);
    appendLittleEndian<std::uint16_t>(bytes, formatOf(object));
    appendLittleEndian<std::uint16_t>(bytes, 0);
    appendLittleEndian<std::uint32_t>(bytes, size);
    bytes.resize(38); // no thumbnail, no picture size
    appendLittleEndian<std::uint32_t>(bytes, object.parent);
    appendLittleEndian<std::uint16_t>(bytes, object.isFolder ? 1 : 0);
    bytes.resize(52); // no association description, no sequence number
    appendString(bytes, name);
    appendString(bytes, date(object.modified));
    appendString(bytes, date(object.modified));
    appendString(bytes, QString());
    return bytes;
}

std::span<const std::uint16_t> MTPResponderDatasets::objectProperties() {
    return properties;
}

Bytes MTPResponderDatasets::objectProperty(std::uint16_t property, const VirtualObject& object,
                                           const QString& name) {
    Bytes bytes;
    if (std::ranges::find(properties, property) == properties.end())
        throw MTPRefusal(invalidObjectPropCode);
    switch (static_cast<MTPObjectProperty>(property)) {
    case MTPObjectProperty::storageID:
        appendLittleEndian<std::uint32_t>(bytes, object.storageID);
        break;
    case MTPObjectProperty::objectFormat:
        appendLittleEndian<std::uint16_t>(bytes, formatOf(object));
        break;
    case MTPObjectProperty::objectSize:
        appendLittleEndian<std::uint64_t>(bytes, object.size);
        break;
    case MTPObjectProperty::objectFileName:
    case MTPObjectProperty::name:
        appendString(bytes, name);
        break;
    case MTPObjectProperty::dateModified:
        appendString(bytes, date(object.modified));
        break;
    case MTPObjectProperty::parentObject:
        appendLittleEndian<std::uint32_t>(bytes, object.parent);
        break;
    case MTPObjectProperty::persistentUniqueID:
        appendLittleEndian<std::uint64_t>(bytes, object.handle);
        appendLittleEndian<std::uint64_t>(bytes, object.storageID);
        break;
    default: // protection status
        appendLittleEndian<std::uint16_t>(bytes, 0);
        break;
    }
    return bytes;
}

std::uint32_t MTPResponderDatasets::appendProperties(Bytes& list, const VirtualObject& object,
                                                     const QString& name) {
    for (const std::uint16_t property : properties) {
        appendLittleEndian(list, object.handle);
        appendLittleEndian(list, property);
        appendLittleEndian(list, typeOf(property));
        append(list, objectProperty(property, object, name));
    }
    return static_cast<std::uint32_t>(properties.size());
}

Bytes MTPResponderDatasets::batteryDescription(int percent) {
    Bytes bytes;
    appendLittleEndian(bytes, static_cast<std::uint16_t>(mtpBatteryLevelProperty));
    appendLittleEndian(bytes, typeU8);
    for (const int value : {0, 100, percent, 1, 0, 100, 1})
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

std::uint16_t MTPResponderDatasets::formatOf(const VirtualObject& object) {
    if (object.isFolder)
        return static_cast<std::uint16_t>(MTPObjectFormat::associationFolder);
    const QString name = QString::fromStdString(object.name);
    for (const FormatRow& row : formats) {
        if (name.endsWith(QLatin1StringView(row.ending), Qt::CaseInsensitive))
            return row.format;
    }
    return static_cast<std::uint16_t>(MTPObjectFormat::undefined);
}

QString MTPResponderDatasets::date(std::int64_t secondsSinceEpoch) {
    return MTPPacketCodec::formatMTPDate(QDateTime::fromSecsSinceEpoch(secondsSinceEpoch));
}

} // namespace tessary
