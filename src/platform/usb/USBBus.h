#pragma once

#include "platform/usb/USBCode.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <utility>
#include <vector>

namespace tessary {

namespace usb {

/// The class of interfaces that speak MTP and PTP: still image.
inline constexpr std::uint8_t stillImageClass = 6;
/// The maker of iPhones, whose still image interfaces are none of MTP's.
inline constexpr std::uint16_t appleVendor = 0x05AC;

} // namespace usb

/// One interface of an attached device, as the registry knows it. Its name is hostile.
struct USBInterfaceEntry {
    std::uint8_t number = 0;
    std::uint8_t interfaceClass = 0;
    std::uint8_t subclass = 0;
    std::uint8_t protocol = 0;
    QString name;

    bool operator==(const USBInterfaceEntry&) const = default;
};

/// One entry of the USB registry: what is known of an attached device without opening it.
/// Texts come from the device and are hostile; they are empty when the device gives none.
struct USBDeviceEntry {
    std::uint64_t id = 0; ///< one attachment: a device that is plugged in again has a new id
    std::uint16_t vendorID = 0;
    std::uint16_t productID = 0;
    QString registryName; ///< the registry's own name of the entry
    QString vendorName;
    QString productName;
    QString serialNumber;
    QString location; ///< where it is plugged in (bus and port path, "1-4.2"); unique at any moment
    std::vector<USBInterfaceEntry> interfaces; ///< of the active configuration; empty: not known

    bool operator==(const USBDeviceEntry&) const = default;
};

enum class USBDirection : std::uint8_t { out = 0, in = 1 };

enum class USBTransferType : std::uint8_t { control = 0, isochronous = 1, bulk = 2, interrupt = 3 };

struct USBPipeProperties {
    USBDirection direction = USBDirection::out;
    USBTransferType transferType = USBTransferType::control;
    std::uint16_t maxPacketSize = 0; ///< bytes; 0 when the descriptor lies

    bool operator==(const USBPipeProperties&) const = default;
};

/// What bounds a pipe call: not complete after `limit` it ends with usb::timeout. With a stop
/// token, which outlives the call, it ends with usb::aborted soon after a stop is asked for.
struct USBTimeouts {
    std::chrono::milliseconds limit{5000};
    const std::stop_token* stop = nullptr;

    [[nodiscard]] bool isStopped() const {
        return stop && stop->stop_requested();
    }
};

/// A control request to the interface of a pipe pair. Direction is bit 7 of `requestType`.
struct USBControlRequest {
    std::uint8_t requestType = 0;
    std::uint8_t request = 0;
    std::uint16_t value = 0;
    std::uint16_t index = 0;
};

/// What has become of the oldest transfer of a stream.
struct USBTransferred {
    std::span<const std::byte> bytes; ///< of it; valid until the next call of submit() or next()
    std::size_t count = 0;            ///< in all transfers that ended with it
};

/// Several transfers of one pipe in flight at once, so that the pipe never idles between two of
/// them. They complete in the order in which they were submitted. One thread uses a stream.
class USBStream {
public:
    /// Cancels what is in flight and waits until the platform has let go of the buffers.
    virtual ~USBStream() = default;

    /// Room for what the next transfer writes, of the request size that the stream was made with;
    /// empty when `depth` are in flight. On an IN pipe nobody needs it.
    [[nodiscard]] virtual std::span<std::byte> buffer() = 0;
    /// Starts a transfer of `length` bytes, at most the request size: those in front of buffer(),
    /// or on an IN pipe, where it is a multiple of the packet size, as many as come. A read ends
    /// early with a short packet. usb::badArgument when `depth` are in flight already.
    virtual USBCode submit(std::size_t length) = 0;
    /// Waits for the oldest transfer. After any code but usb::success the remaining ones are
    /// cancelled.
    virtual USBCode next(USBTransferred& done, USBTimeouts timeouts) = 0;

    [[nodiscard]] virtual std::size_t inFlight() const = 0;
};

/// One interface of an open device, as its descriptors have it.
struct USBInterfaceDescription {
    std::uint8_t number = 0;
    std::uint8_t interfaceClass = 0;
    std::uint8_t subclass = 0;
    std::vector<USBPipeProperties> pipes; ///< pipe 1 first
};

/// One interface of an open device. Blocking; calls on different pipes may come from different
/// threads, calls on one pipe come from one thread at a time.
class USBInterface {
public:
    explicit USBInterface(USBInterfaceDescription description)
        : description_(std::move(description)) {}
    /// Closes the interface when it is open.
    virtual ~USBInterface() = default;

    [[nodiscard]] std::uint8_t number() const {
        return description_.number;
    }
    [[nodiscard]] std::uint8_t interfaceClass() const {
        return description_.interfaceClass;
    }
    [[nodiscard]] std::uint8_t interfaceSubclass() const {
        return description_.subclass;
    }
    [[nodiscard]] std::uint8_t endpointCount() const {
        return static_cast<std::uint8_t>(description_.pipes.size());
    }
    /// Pipes are numbered from 1 to endpointCount(); no value for any other number.
    [[nodiscard]] std::optional<USBPipeProperties> pipeProperties(std::uint8_t pipe) const {
        if (pipe < 1 || pipe > description_.pipes.size())
            return std::nullopt;
        return description_.pipes[pipe - 1U];
    }

    /// usb::exclusiveAccess when a driver or another program holds it.
    virtual USBCode open() = 0;
    /// Like open(), but takes the interface from the kernel's driver, which close() gives it back
    /// to. What another program holds stays with it: usb::exclusiveAccess.
    virtual USBCode openSeize() = 0;
    virtual void close() = 0;

    /// Reads until `buffer` is full or a short packet ends the transfer. `transferred` tells what
    /// arrived, also when the call fails.
    virtual USBCode readPipeTO(std::uint8_t pipe, std::span<std::byte> buffer,
                               std::size_t& transferred, USBTimeouts timeouts) = 0;
    /// Writes all of `data` in one transfer; an empty `data` writes a zero-length packet.
    virtual USBCode writePipeTO(std::uint8_t pipe, std::span<const std::byte> data,
                                std::size_t& transferred, USBTimeouts timeouts) = 0;
    virtual USBCode clearPipeStallBothEnds(std::uint8_t pipe) = 0;

    /// A stream of at most `depth` transfers of at most `requestSize` bytes each on a bulk or
    /// interrupt pipe; null when the platform has no memory for it.
    [[nodiscard]] virtual std::unique_ptr<USBStream>
    stream(std::uint8_t pipe, std::size_t requestSize, std::size_t depth) = 0;

    /// Control request on the default pipe; `data` is sent or filled according to the direction.
    virtual USBCode controlRequest(const USBControlRequest& request, std::span<std::byte> data,
                                   std::size_t& transferred, std::chrono::milliseconds timeout) = 0;

private:
    const USBInterfaceDescription description_;
};

/// One device. Blocking; used by one thread at a time.
class USBDevice {
public:
    /// Closes the device when it is open. Its interfaces must be gone by then.
    virtual ~USBDevice() = default;

    /// usb::notPermitted when this user may not open it, usb::noDevice when it is gone, or another.
    virtual USBCode open() = 0;

    /// The interfaces of the active configuration with this class and subclass; no value means
    /// any. The device must be open.
    [[nodiscard]] virtual std::vector<std::unique_ptr<USBInterface>>
    interfaces(std::optional<std::uint8_t> interfaceClass,
               std::optional<std::uint8_t> subclass) = 0;
};

struct USBEvent {
    enum class Kind { attached, detached };
    Kind kind = Kind::attached;
    USBDeviceEntry entry; ///< of a detached device perhaps only id and location
};

/// A running subscription. Destroying it ends it: afterwards no callback runs any more.
class USBWatch {
public:
    virtual ~USBWatch() = default;
};

/// The USB devices of this machine, or virtual ones. Thread-safe.
class USBBus {
public:
    virtual ~USBBus() = default;

    /// Everything that is attached but hubs, in order of location. Opens no device. A machine
    /// without USB has an empty list.
    [[nodiscard]] virtual std::vector<USBDeviceEntry> devices() = 0;

    /// The device of an entry, closed; null when it is no longer attached.
    [[nodiscard]] virtual std::unique_ptr<USBDevice> device(std::uint64_t id) = 0;

    /// Calls `callback` on a thread of the bus at each attach and detach until the watch is
    /// destroyed; never from within this call. Null where the platform cannot tell.
    [[nodiscard]] virtual std::unique_ptr<USBWatch>
    watch(std::function<void(const USBEvent&)> callback) = 0;

    /// Names of other programs that hold the device open, as far as this user may know.
    [[nodiscard]] virtual QStringList programsHolding(std::uint64_t id) = 0;
};

} // namespace tessary
