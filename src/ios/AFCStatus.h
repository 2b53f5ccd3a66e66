#pragma once

#include "base/values/Error.h"

#include <QString>

#include <cstdint>

namespace tessary {

/// Statuses of the Apple File Conduit, as causes of errors; the argument is the status's number.
/// The cases' numbers are the library's.
enum class AFCStatus : std::int32_t {
    success = 0,
    unknown = 1, ///< also every number that has no case here
    headerInvalid = 2,
    noResources = 3,
    readError = 4,
    writeError = 5,
    unknownPacket = 6,
    invalidArgument = 7,
    objectNotFound = 8,
    objectIsFolder = 9,
    permissionDenied = 10,
    notConnected = 11,
    timeout = 12,
    tooMuchData = 13,
    endOfData = 14,
    notSupported = 15,
    objectExists = 16,
    objectBusy = 17,
    noSpaceLeft = 18,
    wouldBlock = 19,
    ioError = 20,
    interrupted = 21,
    inProgress = 22,
    internalError = 23,
    muxError = 30,
    noMemory = 31,
    notEnoughData = 32,
    folderNotEmpty = 33,
    sslError = 34,
};

[[nodiscard]] constexpr ErrorLayer errorLayer(AFCStatus) {
    return ErrorLayer::afc;
}
[[nodiscard]] const char* errorName(AFCStatus status);

/// The case of a number; a device may send any.
[[nodiscard]] AFCStatus afcStatusFrom(std::int32_t number);

/// Whether the link is broken, or out of step with the device: no further request can go well.
[[nodiscard]] bool isLinkFailure(AFCStatus status);

/// What a refused request means: an error of PhoneError about `path`, with the status as its cause.
[[nodiscard]] Error phoneErrorOf(std::int32_t number, const QString& path);

} // namespace tessary
