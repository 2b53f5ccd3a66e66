#include "phone/records/DeviceInfo.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

/// In the order of ProtocolMode.
constexpr std::array modes{QLatin1StringView("iOS File Transfer"),
                           QLatin1StringView("Standard MTP"),
                           QLatin1StringView("Turbo Mode (ADB)")};

} // namespace

QString rawValue(DevicePlatform platform) {
    return platform == DevicePlatform::iOS ? QStringLiteral("iOS") : QStringLiteral("Android");
}

QString iconName(DevicePlatform platform) {
    return platform == DevicePlatform::iOS ? QStringLiteral("iphonePicture")
                                           : QStringLiteral("phonePicture");
}

QString rawValue(ProtocolMode mode) {
    return modes[static_cast<std::size_t>(mode)];
}

std::optional<ProtocolMode> protocolModeFromRawValue(const QString& text) {
    const auto found = std::ranges::find(modes, text);
    return found == modes.end() ? std::nullopt
                                : std::optional(static_cast<ProtocolMode>(found - modes.begin()));
}

QString DeviceInfo::id() const {
    return udid + QLatin1Char('-') + QString::number(handle);
}

bool DeviceInfo::isDataAccessible() const {
    if (isLocked)
        return false;
    return platform == DevicePlatform::iOS || !volumes.empty();
}

StorageVolume DeviceInfo::mainStorage() const {
    StorageVolume whole;
    if (!volumes.empty()) {
        whole = volumes.front();
    } else if (freeStorageBytes && totalStorageBytes.value_or(0) > 0) {
        whole.totalBytes = static_cast<std::uint64_t>(*totalStorageBytes);
        whole.freeBytes = static_cast<std::uint64_t>(std::max<qint64>(*freeStorageBytes, 0));
    }
    return whole;
}

} // namespace tessary
