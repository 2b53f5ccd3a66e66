#include "mtp/protocol/MTPCodes.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

template <typename Code, std::size_t count>
std::optional<Code> find(const std::array<Code, count>& table, std::uint16_t raw) {
    const auto code = static_cast<Code>(raw);
    if (std::find(table.begin(), table.end(), code) == table.end())
        return std::nullopt;
    return code;
}

/// For tables without gaps: `first` and the `count` codes from there on.
template <typename Code>
std::optional<Code> inRange(std::uint16_t raw, Code first, int count) {
    const int offset = raw - static_cast<int>(first);
    if (offset < 0 || offset >= count)
        return std::nullopt;
    return static_cast<Code>(raw);
}

constexpr std::array formats{
    MTPObjectFormat::undefined,
    MTPObjectFormat::associationFolder,
    MTPObjectFormat::script,
    MTPObjectFormat::executable,
    MTPObjectFormat::text,
    MTPObjectFormat::html,
    MTPObjectFormat::dcf,
    MTPObjectFormat::aiff,
    MTPObjectFormat::wav,
    MTPObjectFormat::mp3,
    MTPObjectFormat::avi,
    MTPObjectFormat::mpeg,
    MTPObjectFormat::asf,
    MTPObjectFormat::exifJpeg,
    MTPObjectFormat::tiffEp,
    MTPObjectFormat::bmp,
    MTPObjectFormat::gif,
    MTPObjectFormat::jfif,
    MTPObjectFormat::png,
    MTPObjectFormat::tiff,
    MTPObjectFormat::mp4,
    MTPObjectFormat::mkv,
    MTPObjectFormat::flac,
    MTPObjectFormat::aac,
    MTPObjectFormat::genericDocument,
};

constexpr std::array properties{
    MTPObjectProperty::storageID,          MTPObjectProperty::objectFormat,
    MTPObjectProperty::protectionStatus,   MTPObjectProperty::objectSize,
    MTPObjectProperty::associationType,    MTPObjectProperty::associationDesc,
    MTPObjectProperty::objectFileName,     MTPObjectProperty::dateCreated,
    MTPObjectProperty::dateModified,       MTPObjectProperty::parentObject,
    MTPObjectProperty::persistentUniqueID, MTPObjectProperty::name,
};

} // namespace

std::optional<MTPContainerType> mtpContainerTypeFromRaw(std::uint16_t raw) {
    return inRange(raw, MTPContainerType::undefined, 5);
}

std::optional<MTPObjectFormat> mtpObjectFormatFromRaw(std::uint16_t raw) {
    return find(formats, raw);
}

std::optional<MTPObjectProperty> mtpObjectPropertyFromRaw(std::uint16_t raw) {
    return find(properties, raw);
}

QLatin1StringView mtpContainerTypeName(MTPContainerType type) {
    static constexpr std::array names{QLatin1StringView("undefined"), QLatin1StringView("command"),
                                      QLatin1StringView("data"), QLatin1StringView("response"),
                                      QLatin1StringView("event")};
    return names[static_cast<std::size_t>(type)];
}

} // namespace tessary
