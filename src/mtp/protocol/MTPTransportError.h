#pragma once

#include "platform/usb/USBCode.h"

#include <QString>

#include <cstdint>
#include <exception>
#include <optional>

namespace tessary {

/// The one error of the MTP library. A value, and nobody's to read: phoneErrorOf() makes an Error
/// of it.
class MTPTransportError : public std::exception {
public:
    enum class Case {
        underlying,
        notConnected,
        timeout,
        pipeStalled,
        exclusiveAccessDenied,
        bufferOverflow,
        connectionClosed,
        invalidPacketHeader,
    };

    /// A case without a payload.
    explicit MTPTransportError(Case kind);
    /// `underlying` for data that make no sense: `message` says which, in English, for the log.
    [[nodiscard]] static MTPTransportError underlying(const QString& message);
    /// `underlying` for a failed pipe call.
    [[nodiscard]] static MTPTransportError pipe(USBCode code);
    /// `underlying` for a device's refusal.
    [[nodiscard]] static MTPTransportError refusal(std::uint16_t response);

    [[nodiscard]] Case kind() const {
        return kind_;
    }
    /// The message of underlying(); empty for every other error.
    [[nodiscard]] const QString& message() const {
        return message_;
    }
    /// The platform's code behind a failed pipe call; usb::success for every other error.
    [[nodiscard]] USBCode code() const {
        return code_;
    }

    /// The device's response code behind a refusal; no value for every other error.
    [[nodiscard]] std::optional<std::uint16_t> response() const {
        return response_;
    }
    /// The device answered, only not as hoped: the connection itself is sound.
    [[nodiscard]] bool isProtocolFailure() const {
        return kind_ == Case::underlying && code_ == usb::success;
    }

    /// There is no such device any more: no second try can help.
    [[nodiscard]] bool isDeviceGone() const {
        return kind_ == Case::notConnected || code_ == usb::noDevice;
    }

private:
    Case kind_;
    QString message_;
    USBCode code_ = usb::success;
    std::optional<std::uint16_t> response_;
};

} // namespace tessary
