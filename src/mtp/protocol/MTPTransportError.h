#pragma once

#include "platform/usb/USBCode.h"

#include <QString>

#include <cstdint>
#include <exception>
#include <optional>

namespace tessary {

/// The one error of the MTP library. A value; `description` is the text for people and `what()`
/// the same in UTF-8.
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
    [[nodiscard]] static MTPTransportError underlying(const QString& message);
    /// `underlying` for a failed pipe call: `what` names it ("USB Read failed"), `code` is shown
    /// as a signed hexadecimal number.
    [[nodiscard]] static MTPTransportError pipe(const QString& what, USBCode code);

    /// `underlying` for a device's refusal: `failure` and the response code in hexadecimal.
    [[nodiscard]] static MTPTransportError refusal(const QString& failure, std::uint16_t response);

    /// The same with words that do not name the code.
    [[nodiscard]] static MTPTransportError refused(const QString& message, std::uint16_t response);

    [[nodiscard]] Case kind() const {
        return kind_;
    }
    /// The message of `underlying`; empty for every other case.
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

    [[nodiscard]] QString description() const;
    [[nodiscard]] const char* what() const noexcept override {
        return utf8_.constData();
    }

    bool operator==(const MTPTransportError& other) const {
        return kind_ == other.kind_ && message_ == other.message_;
    }

private:
    MTPTransportError(Case kind, QString message, USBCode code);

    Case kind_;
    QString message_;
    USBCode code_ = usb::success;
    std::optional<std::uint16_t> response_;
    QByteArray utf8_;
};

} // namespace tessary
