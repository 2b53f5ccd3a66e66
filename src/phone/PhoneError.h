#pragma once

#include "base/values/Error.h"

namespace tessary {

/// What can go wrong with a phone and its files, whatever the way to it. Every way translates its
/// protocol's statuses into these; the status itself is the cause below. Arguments stand behind
/// each case.
enum class PhoneError {
    // --- the phone as a whole: nothing more can be done with it until the user has ---
    notConnected,   ///< it is not there
    unplugged,      ///< it was there
    noAnswer,       ///< it is silent
    brokenOff,      ///< the connection broke off in mid-answer
    held,           ///< other programs use it: their names, joined
    notPermitted,   ///< this user may not open its USB device
    notTrusted,     ///< it has not allowed this computer yet
    trustForgotten, ///< it has forgotten this computer and will not ask again
    locked,         ///< it waits to be unlocked
    noStorage,      ///< it offers no storage
    sessionEnded,   ///< it ended the session on its own
    notReachable,   ///< this way does not lead to it (adb, network)
    nonsense,       ///< it breaks its protocol
    // --- the phone as a whole, but only for now ---
    busy, ///< it is in use by another copy of ours
    // --- one file or folder; the rest may go on ---
    notFound,       ///< path
    taken,          ///< name: something is there already
    sameName,       ///< listed name, wanted name: the phone takes them for the same
    notAFolder,     ///< path
    notAFile,       ///< path
    folderNotEmpty, ///< path
    nameNotAllowed, ///< name
    accessDenied,   ///< path
    writeProtected, ///< path
    tooLarge,       ///< path: more than this storage takes in one file
    changed,        ///< path: it is not any more what was seen
    unreadable,     ///< path
    listingBroken,  ///< path: the listing broke off or contradicts itself
    wrongSize,      ///< path, bytes that came, bytes that were announced
    insideItself,   ///< path: a folder that is listed within itself, or would be moved there
    wholeStorage,   ///< path: a storage's root is no item
    otherStorage,   ///< path: it cannot be moved from one storage to another
    notSupported,   ///< path: the phone, or this way to it, cannot do it
    refused,        ///< path: for a reason of the phone's own, which is the cause
    notDone,        ///< path: the phone said yes and did nothing
    differs,        ///< path: a copy that was compared, and is not equal to its original
    notAsCopied,    ///< path: it, or something in it, is not what a copy had put there any more
    // --- the storage is full: no further file goes there ---
    full, ///< path
};

[[nodiscard]] constexpr ErrorLayer errorLayer(PhoneError) {
    return ErrorLayer::phone;
}
[[nodiscard]] const char* errorName(PhoneError error);

/// The phone is lost for whoever uses it now: another item cannot do better.
[[nodiscard]] bool endsEverything(const Error& error);
/// Whether a failure means that the connection to the phone is gone.
[[nodiscard]] bool isDeviceLost(const Error& error);
/// One item failed, and the next may go well: it is skipped and named.
[[nodiscard]] bool concernsOneItem(const Error& error);

} // namespace tessary
