#include "platform/usb/USBRegistry.h"

#include "base/local/FileHandle.h"
#include "base/local/FolderEntries.h"
#include "platform/usb/UdevPointers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

constexpr const char* devicesFolder = "/sys/bus/usb/devices";

/// What a folder holds; nothing when it cannot be read.
std::vector<QByteArray> namesIn(const QByteArray& path) {
    std::vector<QByteArray> names;
    const FolderEntries folder(::opendir(path.constData()));
    while (const dirent* entry = folder ? ::readdir(folder.get()) : nullptr)
        names.emplace_back(entry->d_name);
    return names;
}

/// One of a device's attributes: a file of one line. Empty when there is none.
QByteArray attribute(const QByteArray& folder, const char* name) {
    std::array<char, 4096> text{};
    const FileHandle file(::open((folder + '/' + name).constData(), O_RDONLY | O_CLOEXEC));
    const ssize_t size = file.isOpen() ? ::read(file.get(), text.data(), text.size()) : 0;
    return QByteArray(text.data(), std::max<ssize_t>(size, 0)).trimmed();
}

QString textOf(const QByteArray& folder, const char* name) {
    return QString::fromUtf8(attribute(folder, name));
}

std::uint16_t hexOf(const QByteArray& folder, const char* name) {
    return attribute(folder, name).toUShort(nullptr, 16);
}

/// The folders "1-4:1.0" below a device's.
std::vector<USBInterfaceEntry> interfacesOf(const QByteArray& sysPath, const QByteArray& location) {
    std::vector<QByteArray> names = namesIn(sysPath);
    std::erase_if(names, [&](const QByteArray& name) { return !name.startsWith(location + ':'); });
    std::ranges::sort(names);
    std::vector<USBInterfaceEntry> found;
    for (const QByteArray& name : names) {
        const QByteArray folder = sysPath + '/' + name;
        const auto number = [&](const char* attribute) {
            return static_cast<std::uint8_t>(hexOf(folder, attribute));
        };
        found.push_back({number("bInterfaceNumber"), number("bInterfaceClass"),
                         number("bInterfaceSubClass"), number("bInterfaceProtocol"),
                         textOf(folder, "interface")});
    }
    return found;
}

/// What udev's database calls the model of a device that does not tell.
QString nameInDatabase(const QByteArray& sysPath) {
    const std::scoped_lock lock(udevMutex());
    const UdevPointer context(udev_new());
    const UdevDevicePointer device(
        context ? udev_device_new_from_syspath(context.get(), sysPath.constData()) : nullptr);
    return QString::fromUtf8(
        device ? udev_device_get_property_value(device.get(), "ID_MODEL_FROM_DATABASE") : nullptr);
}

/// 0 when there is no such folder.
std::uint64_t inodeOf(const QByteArray& path) {
    struct stat facts {};
    return ::stat(path.constData(), &facts) == 0 ? facts.st_ino : 0;
}

/// The folders of the attached devices themselves, not those of their interfaces.
std::vector<QByteArray> deviceFolders() {
    std::vector<QByteArray> found;
    for (const QByteArray& name : namesIn(devicesFolder)) {
        if (name.startsWith('.') || name.contains(':'))
            continue;
        // "../../../devices/pci0000:00/..."
        std::array<char, 4096> target{};
        const QByteArray link = QByteArray(devicesFolder) + '/' + name;
        const ssize_t size = ::readlink(link.constData(), target.data(), target.size());
        const QByteArray path(target.data(), std::max<ssize_t>(size, 0));
        if (const auto at = path.indexOf("/devices/"); at >= 0)
            found.push_back("/sys" + path.mid(at));
    }
    std::ranges::sort(found, {},
                      [](const QByteArray& path) { return path.mid(path.lastIndexOf('/') + 1); });
    return found;
}

} // namespace

std::optional<USBRegistryEntry> USBRegistry::read(const QByteArray& sysPath) {
    const QByteArray location = sysPath.mid(sysPath.lastIndexOf('/') + 1);
    const auto bus = attribute(sysPath, "busnum");
    const auto number = attribute(sysPath, "devnum");
    USBRegistryEntry found;
    found.sysPath = sysPath;
    found.node = "/dev/bus/usb/" + bus.rightJustified(3, '0') + '/' + number.rightJustified(3, '0');
    USBDeviceEntry& entry = found.entry;
    entry.id = inodeOf(sysPath);
    if (entry.id == 0 || bus.isEmpty() || number.isEmpty())
        return std::nullopt;
    entry.vendorID = hexOf(sysPath, "idVendor");
    entry.productID = hexOf(sysPath, "idProduct");
    entry.vendorName = textOf(sysPath, "manufacturer");
    entry.productName = textOf(sysPath, "product");
    entry.serialNumber = textOf(sysPath, "serial");
    entry.location = QString::fromUtf8(location);
    entry.interfaces = interfacesOf(sysPath, location);
    entry.registryName = entry.productName.isEmpty() ? nameInDatabase(sysPath) : entry.productName;
    return found;
}

std::vector<USBRegistryEntry> USBRegistry::scan() {
    std::vector<USBRegistryEntry> found;
    for (const QByteArray& sysPath : deviceFolders())
        if (!isHub(sysPath))
            if (auto entry = read(sysPath))
                found.push_back(std::move(*entry));
    return found;
}

std::optional<USBRegistryEntry> USBRegistry::find(std::uint64_t id) {
    for (const QByteArray& sysPath : deviceFolders())
        if (inodeOf(sysPath) == id)
            return read(sysPath);
    return std::nullopt;
}

bool USBRegistry::isHub(const QByteArray& sysPath) {
    constexpr std::uint16_t hub = 0x09;
    return hexOf(sysPath, "bDeviceClass") == hub;
}

bool USBRegistry::isAttached(const USBRegistryEntry& entry) {
    return inodeOf(entry.sysPath) == entry.entry.id;
}

} // namespace tessary
