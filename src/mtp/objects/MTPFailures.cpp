#include "mtp/objects/MTPFailures.h"

#include "mtp/protocol/MTPCodes.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

struct ResponseRow {
    std::uint16_t response;
    PhoneError meaning;
};

constexpr std::uint16_t raw(MTPResponseCode code) {
    return static_cast<std::uint16_t>(code);
}

/// Every code that is not here is PhoneError::refused.
constexpr std::array responses{
    ResponseRow{raw(MTPResponseCode::sessionNotOpen), PhoneError::sessionEnded},
    ResponseRow{raw(MTPResponseCode::sessionAlreadyOpen), PhoneError::sessionEnded},
    ResponseRow{raw(MTPResponseCode::operationNotSupported), PhoneError::notSupported},
    ResponseRow{raw(MTPResponseCode::parameterNotSupported), PhoneError::notSupported},
    ResponseRow{raw(MTPResponseCode::destinationUnsupported), PhoneError::notSupported},
    ResponseRow{raw(MTPResponseCode::noThumbnailPresent), PhoneError::notSupported},
    ResponseRow{raw(MTPResponseCode::invalidStorageID), PhoneError::noStorage},
    ResponseRow{raw(MTPResponseCode::storeNotAvailable), PhoneError::noStorage},
    ResponseRow{raw(MTPResponseCode::invalidObjectHandle), PhoneError::notFound},
    ResponseRow{raw(MTPResponseCode::invalidParentObject), PhoneError::notFound},
    ResponseRow{raw(MTPResponseCode::storeFull), PhoneError::full},
    ResponseRow{raw(MTPResponseCode::objectWriteProtected), PhoneError::writeProtected},
    ResponseRow{raw(MTPResponseCode::storeReadOnly), PhoneError::writeProtected},
    ResponseRow{raw(MTPResponseCode::accessDenied), PhoneError::accessDenied},
    ResponseRow{raw(MTPResponseCode::partialDeletion), PhoneError::folderNotEmpty},
    ResponseRow{raw(MTPResponseCode::deviceBusy), PhoneError::busy},
    ResponseRow{mtpInvalidObjectPropCode, PhoneError::notSupported},
    ResponseRow{mtpObjectTooLarge, PhoneError::tooLarge},
    ResponseRow{mtpObjectPropNotSupported, PhoneError::notSupported},
};

struct USBRow {
    USBCode code;
    PhoneError meaning;
};

/// Every code that is not here is PhoneError::brokenOff.
constexpr std::array usbCodes{
    USBRow{usb::noDevice, PhoneError::unplugged},
    USBRow{usb::timeout, PhoneError::noAnswer},
    USBRow{usb::notPermitted, PhoneError::notPermitted},
    USBRow{usb::exclusiveAccess, PhoneError::held},
};

Error ofResponse(std::uint16_t response, const QString& path) {
    const auto row = std::find_if(responses.begin(), responses.end(),
                                  [=](const ResponseRow& one) { return one.response == response; });
    const PhoneError meaning = row == responses.end() ? PhoneError::refused : row->meaning;
    return {meaning, {path}, Error(MTPError::refused, {response})};
}

Error ofUSBCode(USBCode code, const QString& path) {
    const auto row = std::find_if(usbCodes.begin(), usbCodes.end(),
                                  [=](const USBRow& one) { return one.code == code; });
    const PhoneError meaning = row == usbCodes.end() ? PhoneError::brokenOff : row->meaning;
    const MTPError cause = code == usb::timeout       ? MTPError::timeout
                           : code == usb::pipeStalled ? MTPError::stalled
                                                      : MTPError::pipe;
    return {meaning, {path}, Error(cause, {code})};
}

} // namespace

Error phoneErrorOf(const MTPTransportError& failure, const QString& path) {
    using Case = MTPTransportError::Case;
    if (const auto response = failure.response())
        return ofResponse(*response, path);
    if (failure.code() != usb::success)
        return ofUSBCode(failure.code(), path);
    switch (failure.kind()) {
    case Case::notConnected:
        return {PhoneError::notConnected, {}, Error(MTPError::notThere)};
    case Case::timeout: // of data that ended early: a silent device has a code
        return {PhoneError::brokenOff, {path}, Error(MTPError::malformed)};
    case Case::pipeStalled:
        return {PhoneError::brokenOff, {path}, Error(MTPError::stalled)};
    case Case::exclusiveAccessDenied:
        return {PhoneError::held, {}, Error(MTPError::held)};
    case Case::bufferOverflow:
        return {PhoneError::nonsense, {path}, Error(MTPError::tooLong)};
    case Case::connectionClosed:
        return {PhoneError::brokenOff, {path}, Error(MTPError::closed)};
    case Case::invalidPacketHeader:
        return {PhoneError::nonsense, {path}, Error(MTPError::badHeader)};
    case Case::underlying:
        break;
    }
    return {PhoneError::unreadable, {path}, Error(MTPError::malformed, {failure.message()})};
}

bool isBrokenData(const MTPTransportError& failure) {
    return failure.code() == usb::pipeStalled ||
           (failure.kind() == MTPTransportError::Case::timeout && failure.code() == usb::success);
}

bool endsSession(const MTPTransportError& failure) {
    if (!failure.isProtocolFailure())
        return true;
    return failure.response() && endsEverything(ofResponse(*failure.response(), {}));
}

} // namespace tessary
