#include "platform/usb/USBRegistry.h"

#include "platform/usb/UdevPointers.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

#include <algorithm>

namespace tessary {

namespace {

QString attribute(udev_device* device, const char* name) {
    return QString::fromUtf8(udev_device_get_sysattr_value(device, name));
}

std::uint16_t hexAttribute(udev_device* device, const char* name) {
    return attribute(device, name).toUShort(nullptr, 16);
}

QString textOf(const QString& file) {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? QString::fromUtf8(opened.readAll()).trimmed()
                                            : QString();
}

/// The folders "1-4:1.0" below a device's.
std::vector<USBInterfaceEntry> interfacesOf(const QByteArray& sysPath, const QString& location) {
    std::vector<USBInterfaceEntry> found;
    const QDir device(QFile::decodeName(sysPath));
    for (const QString& name :
         device.entryList({location + QStringLiteral(":*")}, QDir::Dirs, QDir::Name)) {
        const QString folder = device.filePath(name) + QLatin1Char('/');
        const auto number = [&](const char* attribute) {
            return static_cast<std::uint8_t>(
                textOf(folder + QLatin1String(attribute)).toUShort(nullptr, 16));
        };
        found.push_back({number("bInterfaceNumber"), number("bInterfaceClass"),
                         number("bInterfaceSubClass"), number("bInterfaceProtocol"),
                         textOf(folder + QLatin1String("interface"))});
    }
    return found;
}

/// 0 when there is no such folder.
std::uint64_t inodeOf(const QByteArray& path) {
    struct stat facts {};
    return ::stat(path.constData(), &facts) == 0 ? facts.st_ino : 0;
}

} // namespace

std::optional<USBRegistryEntry> USBRegistry::read(udev_device* device) {
    const QByteArray type = udev_device_get_devtype(device);
    USBRegistryEntry found;
    found.sysPath = udev_device_get_syspath(device);
    found.node = udev_device_get_devnode(device);
    USBDeviceEntry& entry = found.entry;
    entry.id = inodeOf(found.sysPath);
    if (type != "usb_device" || entry.id == 0 || found.node.isEmpty())
        return std::nullopt;
    entry.vendorID = hexAttribute(device, "idVendor");
    entry.productID = hexAttribute(device, "idProduct");
    entry.vendorName = attribute(device, "manufacturer");
    entry.productName = attribute(device, "product");
    entry.serialNumber = attribute(device, "serial");
    entry.location = QString::fromUtf8(udev_device_get_sysname(device));
    entry.interfaces = interfacesOf(found.sysPath, entry.location);
    entry.registryName = entry.productName;
    if (entry.registryName.isEmpty())
        entry.registryName =
            QString::fromUtf8(udev_device_get_property_value(device, "ID_MODEL_FROM_DATABASE"));
    return found;
}

std::vector<USBRegistryEntry> USBRegistry::scan() {
    const std::scoped_lock lock(udevMutex());
    std::vector<USBRegistryEntry> found;
    const UdevPointer context(udev_new());
    const UdevEnumeratePointer enumeration(context ? udev_enumerate_new(context.get()) : nullptr);
    if (!enumeration)
        return found;
    udev_enumerate_add_match_subsystem(enumeration.get(), "usb");
    udev_enumerate_add_match_property(enumeration.get(), "DEVTYPE", "usb_device");
    udev_enumerate_scan_devices(enumeration.get());
    for (udev_list_entry* item = udev_enumerate_get_list_entry(enumeration.get()); item;
         item = udev_list_entry_get_next(item)) {
        const UdevDevicePointer device(
            udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(item)));
        if (!device)
            continue;
        if (auto entry = read(device.get()))
            found.push_back(std::move(*entry));
    }
    std::ranges::sort(found, {}, [](const USBRegistryEntry& one) { return one.entry.location; });
    return found;
}

std::optional<USBRegistryEntry> USBRegistry::find(std::uint64_t id) {
    for (USBRegistryEntry& one : scan())
        if (one.entry.id == id)
            return std::move(one);
    return std::nullopt;
}

bool USBRegistry::isAttached(const USBRegistryEntry& entry) {
    return inodeOf(entry.sysPath) == entry.entry.id;
}

} // namespace tessary
