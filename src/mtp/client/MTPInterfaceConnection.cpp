#include "mtp/client/MTPInterfaceConnection.h"

#include "mtp/protocol/MTPError.h"

#include <algorithm>
#include <array>
#include <thread>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// Makers of phones with another protocol and of disks: never opened, even when asked for.
constexpr std::array<std::uint32_t, 3> neverOpened{usb::appleVendor, 0x0BC2, 0x1058};

constexpr std::uint8_t vendorClass = 255;
constexpr std::uint8_t vendorMTPSubclass = 1;
constexpr std::uint8_t vendorADBSubclass = 66;

/// Time that a driver gets to let go of an interface.
constexpr auto releasePause = 120ms;

/// The size of full-speed bulk packets; stands in for a descriptor that says less than any device
/// may use.
constexpr std::uint16_t fallbackPacketSize = 64;

std::vector<USBDeviceEntry> candidates(USBBus& bus, const MTPDeviceAddress& address) {
    if (std::find(neverOpened.begin(), neverOpened.end(), address.vendorID) != neverOpened.end())
        return {};
    std::vector<USBDeviceEntry> found = bus.devices();
    std::erase_if(found, [&](const USBDeviceEntry& entry) {
        return entry.vendorID != address.vendorID || entry.productID != address.productID ||
               (!address.serialNumber.isEmpty() && entry.serialNumber != address.serialNumber);
    });
    const auto there = std::find_if(found.begin(), found.end(), [&](const USBDeviceEntry& entry) {
        return !address.location.isEmpty() && entry.location == address.location;
    });
    if (there != found.end())
        return {*there};
    // A phone that names itself may have moved to another port; one that does not may be another.
    if (!address.location.isEmpty() && address.serialNumber.isEmpty())
        return {};
    return found;
}

/// Fills in which pipes an interface has; false when it has not both that MTP cannot do without.
bool findPipes(const USBInterface& interface, MTPInterfaceConnection& connection) {
    connection.inPipe = connection.outPipe = connection.eventPipe = 0;
    for (int number = 1; number <= interface.endpointCount(); ++number) {
        const auto pipe = static_cast<std::uint8_t>(number);
        const USBPipeProperties properties = *interface.pipeProperties(pipe);
        const bool isIn = properties.direction == USBDirection::in;
        if (properties.transferType == USBTransferType::interrupt && isIn)
            connection.eventPipe = pipe;
        if (properties.transferType != USBTransferType::bulk)
            continue;
        (isIn ? connection.inPipe : connection.outPipe) = pipe;
        connection.maxPacketSize =
            properties.maxPacketSize < 8 ? fallbackPacketSize : properties.maxPacketSize;
    }
    return connection.inPipe != 0 && connection.outPipe != 0;
}

/// Bulk in, bulk out, and interrupt in: what MTP needs, and nothing more.
bool hasPipesOfMTP(const USBInterface& interface) {
    MTPInterfaceConnection found;
    return interface.endpointCount() == 3 && findPipes(interface, found) && found.eventPipe != 0;
}

/// How likely an interface speaks MTP, the likeliest first; no value for one that does not. Adb and
/// fastboot have subclass 66; kernels of some phones declare MTP as 255/255 without a protocol.
std::optional<int> rankOf(const USBInterface& interface, const USBDeviceEntry& entry) {
    if (interface.interfaceClass() == usb::stillImageClass)
        return 0;
    if (interface.interfaceClass() != vendorClass ||
        interface.interfaceSubclass() == vendorADBSubclass)
        return std::nullopt;
    const auto known =
        std::ranges::find(entry.interfaces, interface.number(), &USBInterfaceEntry::number);
    const bool isKnown = known != entry.interfaces.end();
    if (isKnown && known->name.contains(QLatin1StringView("MTP")))
        return 1;
    if (interface.interfaceSubclass() == vendorMTPSubclass)
        return 2;
    const bool hasProtocol = isKnown && known->protocol != 0;
    const bool isCandidate =
        interface.interfaceSubclass() == vendorClass && !hasProtocol && hasPipesOfMTP(interface);
    return isCandidate ? std::optional(3) : std::nullopt;
}

/// The interfaces that may speak MTP, the likeliest first.
std::vector<std::unique_ptr<USBInterface>> interfacesOf(USBDevice& device,
                                                        const USBDeviceEntry& entry) {
    auto interfaces = device.interfaces(std::nullopt, std::nullopt);
    std::erase_if(interfaces, [&](const auto& one) { return !rankOf(*one, entry); });
    std::stable_sort(interfaces.begin(), interfaces.end(), [&](const auto& a, const auto& b) {
        return *rankOf(*a, entry) < *rankOf(*b, entry);
    });
    return interfaces;
}

USBCode openInterface(USBInterface& interface) {
    USBCode code = interface.open();
    if (code != usb::exclusiveAccess)
        return code;
    std::this_thread::sleep_for(releasePause);
    code = interface.open();
    return code == usb::success ? code : interface.openSeize();
}

MTPFailure openError(USBCode code) {
    if (code == usb::success || code == usb::noDevice)
        return MTPFailure(MTPError::notThere);
    if (code == usb::exclusiveAccess)
        return MTPFailure(MTPError::held);
    return MTPFailure::ofUSB(code);
}

} // namespace

std::optional<USBDeviceEntry> findMTPDevice(USBBus& bus, const MTPDeviceAddress& address) {
    const auto found = candidates(bus, address);
    if (found.size() != 1)
        return std::nullopt;
    return found.front();
}

MTPInterfaceConnection openMTPInterface(USBBus& bus, const MTPDeviceAddress& address) {
    const auto entries = candidates(bus, address);
    if (entries.size() > 1)
        throw MTPFailure(
            MTPError::malformed,
            {QStringLiteral(
                "several phones of this model are attached, and nothing tells them apart")});
    USBCode failure = usb::success;
    for (const USBDeviceEntry& entry : entries) {
        MTPInterfaceConnection connection;
        connection.device = bus.device(entry.id);
        if (!connection.device)
            continue;
        USBCode code = connection.device->open();
        if (code != usb::success) {
            failure = code;
            continue;
        }
        for (auto& interface : interfacesOf(*connection.device, entry)) {
            code = openInterface(*interface);
            if (code != usb::success) {
                failure = code;
                continue;
            }
            connection.interface = std::move(interface);
            if (findPipes(*connection.interface, connection))
                return connection;
            connection.interface.reset();
        }
    }
    throw openError(failure);
}

} // namespace tessary
