#pragma once

#include <QString>

#include <cstdint>

namespace tessary {

/// Status codes of the Apple File Conduit; the numbers are libimobiledevice's.
enum class AFCError : std::int32_t {
    success = 0,
    unknownError = 1,
    opHeaderInvalid = 2,
    noResources = 3,
    readError = 4,
    writeError = 5,
    unknownPacketType = 6,
    invalidArg = 7,
    objectNotFound = 8,
    objectIsDir = 9,
    permDenied = 10,
    serviceNotConnected = 11,
    opTimeout = 12,
    tooMuchData = 13,
    endOfData = 14,
    opNotSupported = 15,
    objectExists = 16,
    objectBusy = 17,
    noSpaceLeft = 18,
    opWouldBlock = 19,
    ioError = 20,
    opInterrupted = 21,
    opInProgress = 22,
    internalError = 23,
    muxError = 30,
    noMem = 31,
    notEnoughData = 32,
    dirNotEmpty = 33,
    sslError = 34,
};

/// The case of a status code; codes without a case become `unknownError`.
[[nodiscard]] AFCError afcErrorFromStatus(std::int32_t status);

/// "AFC Error: <case name> (code <number>)".
[[nodiscard]] QString description(AFCError error);

} // namespace tessary
