#pragma once

#include "base/values/Error.h"

namespace tessary {

/// What can go wrong on the way to a phone's adbd and with its services. Arguments stand behind
/// each case; a reason is the other side's own text.
enum class ADBError {
    // --- this computer's key ---
    noKey,       ///< reason: it could be neither found nor made
    notSigned,   ///< reason: a token could not be signed
    noPublicKey, ///< reason: the public half could not be taken from the key
    // --- the way to the phone ---
    noServer,      ///< address: no adb server answers there
    noADB,         ///< adb is not installed
    cannotPair,    ///< this computer's adb is older than pairing
    notFound,      ///< serial: the way leads to no such phone
    severalPhones, ///< serial: it leads to several, and nothing tells them apart
    unauthorized,  ///< serial: the phone has not allowed this computer yet
    notPermitted,  ///< serial: this user may not open the phone's USB device
    offline,       ///< serial: the phone is known and does not answer
    held,          ///< another program has the phone's adb interface: names, joined
    tooOld,        ///< Android's API level: before 23 too much is missing
    refused,       ///< service, reason: none when the other side gave none
    // --- a stream ---
    brokenOff, ///< reason
    timedOut,  ///< what was waited for
    nonsense,  ///< what breaks the protocol
    // --- one request ---
    syncFailed,    ///< path, reason
    statFailed,    ///< path, number of the phone's errno
    commandFailed, ///< command, exit status, reason
    nameNotText,   ///< name in percent encoding: its bytes are not UTF-8
    pathTooLong,   ///< path; none for a request of several
};

[[nodiscard]] constexpr ErrorLayer errorLayer(ADBError) {
    return ErrorLayer::adb;
}
[[nodiscard]] const char* errorName(ADBError error);

} // namespace tessary
