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

PhoneError meaningOfResponse(std::uint16_t response) {
    const auto row = std::find_if(responses.begin(), responses.end(),
                                  [=](const ResponseRow& one) { return one.response == response; });
    return row == responses.end() ? PhoneError::refused : row->meaning;
}

PhoneError meaningOfUSB(USBCode code) {
    switch (code) {
    case usb::noDevice:
        return PhoneError::unplugged;
    case usb::notPermitted:
        return PhoneError::notPermitted;
    case usb::exclusiveAccess:
        return PhoneError::held;
    default:
        return PhoneError::brokenOff;
    }
}

PhoneError meaningOf(const MTPFailure& failure) {
    switch (failure.code().as<MTPError>().value_or(MTPError::malformed)) {
    case MTPError::refused:
        return meaningOfResponse(*failure.response());
    case MTPError::timeout:
        return PhoneError::noAnswer;
    case MTPError::stalled:
    case MTPError::brokenOff:
        return PhoneError::brokenOff;
    case MTPError::pipe:
        return meaningOfUSB(failure.arguments().value(0).toInt());
    case MTPError::notThere:
        return PhoneError::notConnected;
    case MTPError::held:
        return PhoneError::held;
    case MTPError::tooLong:
        return PhoneError::nonsense;
    case MTPError::malformed:
        break;
    }
    return PhoneError::unreadable;
}

} // namespace

Error phoneErrorOf(const MTPFailure& failure, const QString& path) {
    const bool isAboutPath = !failure.is(MTPError::notThere) && !failure.is(MTPError::held);
    return {meaningOf(failure), isAboutPath ? QVariantList{path} : QVariantList(), failure};
}

bool isBrokenData(const MTPFailure& failure) {
    return failure.is(MTPError::stalled) || failure.is(MTPError::brokenOff);
}

bool endsSession(const MTPFailure& failure) {
    return !failure.isProtocolFailure() ||
           (failure.response() && endsEverything(phoneErrorOf(failure, {})));
}

} // namespace tessary
