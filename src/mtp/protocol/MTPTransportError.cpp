#include "mtp/protocol/MTPTransportError.h"

#include <array>

namespace tessary {

namespace {

/// In the order of the cases.
constexpr std::array descriptions{
    QLatin1StringView("MTP Transport error: "),
    QLatin1StringView("MTP USB Transport is not connected."),
    QLatin1StringView("MTP USB read/write operation timed out."),
    QLatin1StringView("MTP USB bulk pipe stalled."),
    QLatin1StringView("Exclusive access denied by macOS PTPCamera/Photos daemon."),
    QLatin1StringView("MTP USB buffer overflow."),
    QLatin1StringView("MTP connection was closed."),
    QLatin1StringView("Received invalid MTP container packet header."),
};

QString signedHexadecimal(USBCode code) {
    const qint64 wide = code;
    return (wide < 0 ? QStringLiteral("-") : QString()) +
           QString::number(wide < 0 ? -wide : wide, 16).toUpper();
}

} // namespace

MTPTransportError::MTPTransportError(Case kind)
    : MTPTransportError(kind, QString(), usb::success) {}

MTPTransportError::MTPTransportError(Case kind, QString message, USBCode code)
    : kind_(kind), message_(std::move(message)), code_(code), utf8_(description().toUtf8()) {}

MTPTransportError MTPTransportError::underlying(const QString& message) {
    return {Case::underlying, message, usb::success};
}

MTPTransportError MTPTransportError::pipe(const QString& what, USBCode code) {
    return {Case::underlying, what + QStringLiteral(": 0x") + signedHexadecimal(code), code};
}

MTPTransportError MTPTransportError::refusal(const QString& failure, std::uint16_t response) {
    return refused(failure + QString::number(response, 16).toUpper(), response);
}

MTPTransportError MTPTransportError::refused(const QString& message, std::uint16_t response) {
    MTPTransportError error = underlying(message);
    error.response_ = response;
    return error;
}

QString MTPTransportError::description() const {
    return descriptions[static_cast<std::size_t>(kind_)] + message_;
}

} // namespace tessary
