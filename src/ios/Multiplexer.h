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
    virtual ~MultiplexerWatch() = default;
};

/// The daemon that iPhones are reached through. Thread-safe; calls block, for some seconds at most.
class Multiplexer {
public:
    virtual ~Multiplexer() = default;

    /// Everything that is attached; empty where no multiplexer runs.
    [[nodiscard]] virtual std::vector<MultiplexerEntry> devices() = 0;
    /// Has `changed` called, on a thread of the library, at each attach, detach and pairing: it may
    /// only post. Null when there is no subscription; the reason is logged.
    [[nodiscard]] virtual std::unique_ptr<MultiplexerWatch>
    watch(std::function<void()> changed) = 0;
};

/// The multiplexer of this machine, or the one that USBMUXD_SOCKET_ADDRESS names.
class SystemMultiplexer : public Multiplexer {
public:
    [[nodiscard]] std::vector<MultiplexerEntry> devices() override;
    [[nodiscard]] std::unique_ptr<MultiplexerWatch> watch(std::function<void()> changed) override;
};

} // namespace tessary
