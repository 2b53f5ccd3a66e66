#include "platform/usb/USBInterfaceKinds.h"

#include <QDir>
#include <QFile>

#include <optional>

namespace tessary {

namespace {

std::optional<unsigned> numberIn(const QString& path) {
    constexpr int hexadecimal = 16;
    QFile file(path);
    bool isNumber = false;
    const unsigned number = file.open(QIODevice::ReadOnly)
                                ? file.read(hexadecimal).trimmed().toUInt(&isNumber, hexadecimal)
                                : 0;
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace

bool hasUSBInterfaceIn(const QString& folder, const QString& location, std::uint8_t interfaceClass,
                       std::uint8_t subclass, std::uint8_t protocol) {
    if (location.isEmpty() || location.contains(QLatin1Char('/')) ||
        location.startsWith(QLatin1Char('.')))
        return false;
    const QDir device(folder + QLatin1Char('/') + location);
    // Its interfaces are folders in it, "1-4.2:1.0".
    for (const QString& name :
         device.entryList({location + QStringLiteral(":*")}, QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString path = device.filePath(name);
        if (numberIn(path + QStringLiteral("/bInterfaceClass")) == interfaceClass &&
            numberIn(path + QStringLiteral("/bInterfaceSubClass")) == subclass &&
            numberIn(path + QStringLiteral("/bInterfaceProtocol")) == protocol)
            return true;
    }
    return false;
}

bool hasUSBInterface(const QString& location, std::uint8_t interfaceClass, std::uint8_t subclass,
                     std::uint8_t protocol) {
    return hasUSBInterfaceIn(QStringLiteral("/sys/bus/usb/devices"), location, interfaceClass,
                             subclass, protocol);
}

} // namespace tessary
