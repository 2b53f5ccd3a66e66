#include "devices/list/AndroidDevices.h"

#include <QSet>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;

/// Words in a vendor or product name that tell that a device is no phone. "WD" excludes any name
/// with these two letters in a row.
constexpr std::array excludedWords{
    View("Seagate"),
    View("Western Digital"),
    View("WD"),
    View("Apple"),
    View("Logitech"),
    View("VIA Labs"),
    View("VIA Technologies"),
    View("Burr-Brown"),
    View("SayoDevice"),
    View("Compx"),
    View("Realtek"),
    View("Intel"),
    View("Corsair"),
    View("Razer"),
    View("Kingston"),
    View("LaCie"),
};

/// Makers of Android phones and their chips.
constexpr std::array<std::uint32_t, 21> knownVendors{
    0x0E8D, 0x18D1, 0x04E8, 0x2717, 0x2A70, 0x12D1, 0x0FCE, 0x1004, 0x22B8, 0x0BB4, 0x05C6,
    0x283B, 0x2970, 0x0B05, 0x17EF, 0x1949, 0x2B0E, 0x0489, 0x1BBB, 0x2207, 0x1F3A,
};

constexpr std::uint8_t wirelessClass = 0xE0;
constexpr std::uint8_t bluetoothProtocol = 1;
/// What disks, hubs, mice, headsets and cameras for calls have, and phones have beside other
/// things: audio, HID, storage, hub, smart card, video, audio and video, billboard.
constexpr std::array<std::uint8_t, 8> otherClasses{0x01, 0x03, 0x08, 0x09, 0x0B, 0x0E, 0x10, 0x11};

bool speaksMTP(const USBInterfaceEntry& interface) {
    return interface.interfaceClass == usb::stillImageClass || interface.name.contains(View("MTP"));
}

bool isOfSomethingElse(const USBInterfaceEntry& interface) {
    const bool isBluetooth =
        interface.interfaceClass == wirelessClass && interface.protocol == bluetoothProtocol;
    return isBluetooth || std::find(otherClasses.begin(), otherClasses.end(),
                                    interface.interfaceClass) != otherClasses.end();
}

constexpr std::array productHints{View("Android"), View("HiBreak"), View("Galaxy")};
constexpr std::array nameHints{View("Bigme"), View("Xiaomi"), View("Samsung"), View("Google")};

template <std::size_t count>
bool containsAny(const QString& text, const std::array<View, count>& words) {
    return std::any_of(words.begin(), words.end(),
                       [&](View word) { return text.contains(word, Qt::CaseInsensitive); });
}

/// What the system calls the device, with the stand-ins for what it does not tell.
struct Names {
    explicit Names(const USBDeviceEntry& entry)
        : registry(entry.registryName.isEmpty() ? QStringLiteral("Android Device")
                                                : entry.registryName),
          product(entry.productName.isEmpty() ? registry : entry.productName),
          vendor(entry.vendorName.isEmpty() ? QStringLiteral("Android") : entry.vendorName) {}

    QString registry;
    QString product;
    QString vendor;
};

DeviceInfo deviceOf(const USBDeviceEntry& entry) {
    const Names names(entry);
    DeviceInfo device;
    device.vendorId = entry.vendorID;
    device.productId = entry.productID;
    device.serialNumber = entry.serialNumber.isEmpty()
                              ? QStringLiteral("USB-%1-%2").arg(entry.vendorID).arg(entry.productID)
                              : entry.serialNumber;
    device.udid = *device.serialNumber;
    device.platform = DevicePlatform::android;
    device.protocolMode = ProtocolMode::mtp;
    device.deviceName = names.vendor == View("Android")
                            ? names.registry
                            : names.vendor + QLatin1Char(' ') + names.registry;
    device.manufacturer = names.vendor;
    device.usbLocation = entry.location;
    return device;
}

} // namespace

std::optional<DeviceInfo> extractAndroidDevice(const USBDeviceEntry& from) {
    // What it says that it speaks counts for more than who made it.
    const auto& interfaces = from.interfaces;
    if (from.vendorID != usb::appleVendor &&
        std::any_of(interfaces.begin(), interfaces.end(), speaksMTP))
        return deviceOf(from);
    if (!interfaces.empty() && std::all_of(interfaces.begin(), interfaces.end(), isOfSomethingElse))
        return std::nullopt;
    const Names names(from);
    if (containsAny(names.vendor, excludedWords) || containsAny(names.product, excludedWords))
        return std::nullopt;
    const bool isKnown =
        std::find(knownVendors.begin(), knownVendors.end(), from.vendorID) != knownVendors.end();
    if (!isKnown && !containsAny(names.product, productHints) &&
        !containsAny(names.product, nameHints) && !containsAny(names.vendor, nameHints))
        return std::nullopt;
    return deviceOf(from);
}

std::vector<DeviceInfo> androidDevices(std::span<const USBDeviceEntry> entries,
                                       std::span<const USBIds> alsoAccept,
                                       const AttachedUdids& named) {
    // Who has a udid keeps it, wherever the others are plugged in.
    QSet<QString> taken;
    for (const USBDeviceEntry& entry : entries)
        if (const auto udid = named.constFind(entry.id); udid != named.cend())
            taken.insert(*udid);

    std::vector<DeviceInfo> devices;
    for (const USBDeviceEntry& entry : entries) {
        auto device = extractAndroidDevice(entry);
        const USBIds ids{entry.vendorID, entry.productID};
        if (!device && std::find(alsoAccept.begin(), alsoAccept.end(), ids) != alsoAccept.end())
            device = deviceOf(entry);
        if (!device)
            continue;
        if (const auto udid = named.constFind(entry.id); udid != named.cend()) {
            device->udid = *udid;
        } else {
            while (taken.contains(device->udid))
                device->udid += QLatin1Char('-') + entry.location;
            taken.insert(device->udid);
        }
        devices.push_back(*std::move(device));
    }
    return devices;
}

} // namespace tessary
