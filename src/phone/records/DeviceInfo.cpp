#include "phone/records/DeviceInfo.h"

#include <array>

namespace tessary {

namespace {

struct PlatformRow {
    DevicePlatform platform;
    QLatin1StringView rawValue;
    QLatin1StringView iconName;
};

constexpr std::array platformTable{
    PlatformRow{DevicePlatform::iOS, QLatin1StringView("iOS"), QLatin1StringView("iphonePicture")},
    PlatformRow{DevicePlatform::android, QLatin1StringView("Android"),
                QLatin1StringView("phonePicture")},
};

struct ModeRow {
    ProtocolMode mode;
    QLatin1StringView rawValue;
};

constexpr std::array modeTable{
    ModeRow{ProtocolMode::afc, QLatin1StringView("iOS File Transfer")},
    ModeRow{ProtocolMode::mtp, QLatin1StringView("Standard MTP")},
    ModeRow{ProtocolMode::adbTurbo, QLatin1StringView("Turbo Mode (ADB)")},
};

} // namespace

QString rawValue(DevicePlatform platform) {
    return platformTable[static_cast<std::size_t>(platform)].rawValue;
}

QString iconName(DevicePlatform platform) {
    return platformTable[static_cast<std::size_t>(platform)].iconName;
}

std::uint32_t rawValue(ConnectionType type) {
    return static_cast<std::uint32_t>(type);
}

QString rawValue(ProtocolMode mode) {
    return modeTable[static_cast<std::size_t>(mode)].rawValue;
}

std::optional<ProtocolMode> protocolModeFromRawValue(const QString& text) {
    for (const ModeRow& row : modeTable)
        if (row.rawValue == text)
            return row.mode;
    return std::nullopt;
}

QString DeviceInfo::id() const {
    return udid + QLatin1Char('-') + QString::number(handle);
}

bool DeviceInfo::isDataAccessible() const {
    if (isLocked)
        return false;
    return platform == DevicePlatform::iOS || !volumes.empty();
}

} // namespace tessary
