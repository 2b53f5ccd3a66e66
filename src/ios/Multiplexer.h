#pragma once

#include "phone/records/DeviceInfo.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// One way to an iPhone, as the USB multiplexer lists it. A phone on cable and Wi-Fi has two.
struct MultiplexerEntry {
    QString udid;
    std::uint32_t handle = 0; ///< of one attachment: another one at each plugging
    std::uint32_t productId = 0;
    ConnectionType connectionType = ConnectionType::usb;

    bool operator==(const MultiplexerEntry&) const = default;
};

/// The attachment of a device; no value when it is not attached. Thread-safe, as the next is.
[[nodiscard]] std::optional<std::uint32_t> attachmentOf(const QString& udid);
/// Whether the multiplexer has a pair record for a device: then nobody is asked for trust.
[[nodiscard]] bool isPaired(const QString& udid);
/// Whether a device is reached over the network and not by cable.
[[nodiscard]] bool isOnNetwork(const QString& udid);

/// A subscription to the multiplexer's events; ends when it goes.
class MultiplexerWatch {
public:
    explicit MultiplexerWatch(std::function<void()> changed);
    ~MultiplexerWatch();
    MultiplexerWatch(const MultiplexerWatch&) = delete;
    MultiplexerWatch& operator=(const MultiplexerWatch&) = delete;

private:
    const std::function<void()> changed_;
};

/// The daemon that iPhones are reached through: that of this machine, or the one that
/// USBMUXD_SOCKET_ADDRESS names. Thread-safe; calls block, for some seconds at most.
class Multiplexer {
public:
    /// Everything that is attached; empty where no multiplexer runs.
    [[nodiscard]] std::vector<MultiplexerEntry> devices();
    /// Has `changed` called, on a thread of the library, at each attach, detach and pairing: it may
    /// only post. Null when there is no subscription; the reason is logged.
    [[nodiscard]] std::unique_ptr<MultiplexerWatch> watch(std::function<void()> changed);
};

} // namespace tessary
