#pragma once

#include "base/values/Error.h"
#include "platform/usb/USBCode.h"

namespace tessary {

/// What can go wrong between this computer and an MTP device, as the protocol sees it. Arguments
/// stand behind each case.
enum class MTPError {
    refused,   ///< response code of the device
    timeout,   ///< platform code: the device was silent
    stalled,   ///< platform code: it halted a pipe
    pipe,      ///< platform code of any other failed USB call
    notThere,  ///< no such device, or none with a usable interface
    held,      ///< another program has the interface
    brokenOff, ///< what was under way came to no end, or ended too early
    tooLong,   ///< a dataset is longer than any real one
    malformed, ///< what was read, in English: it contradicts itself or makes no sense
};

[[nodiscard]] constexpr ErrorLayer errorLayer(MTPError) {
    return ErrorLayer::mtp;
}
[[nodiscard]] const char* errorName(MTPError error);

/// The one error of the MTP library, and nobody's to read: phoneErrorOf() tells what it means, with
/// this as the cause.
class MTPFailure : public Error {
public:
    explicit MTPFailure(MTPError error, QVariantList arguments = {})
        : Error(error, std::move(arguments)) {}
    /// Of a failed pipe call.
    [[nodiscard]] static MTPFailure ofUSB(USBCode code);

    /// The device's response code behind a refusal; no value for every other failure.
    [[nodiscard]] std::optional<std::uint16_t> response() const;
    /// The device answered, only not as hoped: the connection itself is sound.
    [[nodiscard]] bool isProtocolFailure() const {
        return is(MTPError::refused) || is(MTPError::malformed);
    }
    /// There is no such device any more: no second try can help.
    [[nodiscard]] bool isDeviceGone() const;
};

} // namespace tessary
