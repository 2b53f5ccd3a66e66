#pragma once

#include <chrono>
#include <cstdint>
#include <set>

namespace tessary {

/// Ways in which correct phones differ.
struct VirtualBehaviour {
    /// What the parent handles 0xFFFFFFFF and 0 list.
    enum class RootListing {
        allOnes, ///< 0xFFFFFFFF the root, 0 every object of the storage
        zero,    ///< 0 the root; 0xFFFFFFFF is refused
        either,  ///< both the root
    };
    RootListing rootListing = RootListing::allOnes;

    /// Operations that the phone does not know, as raw codes.
    std::set<std::uint16_t> unsupportedOperations;
    /// A folder that is not empty is refused with "partial deletion"; nothing is deleted.
    bool refusesFullFolders = false;
    /// What has arrived of an interrupted or cancelled object stays.
    bool keepsPartialObjects = false;
    /// The handle from SendObjectInfo names nothing after SendObject.
    bool forgetsSentHandle = false;
    /// A file gets the time of its arrival; the rule is the date in its ObjectInfo.
    bool datesFilesItself = false;
    /// The date of a file can be set; the rule is its name alone.
    bool setsDates = false;
    /// A file that was sent shows in the next session only.
    bool hidesSentFiles = false;
    /// SendObjectInfo creates the object, empty, at once.
    bool createsObjectEarly = false;
    /// ObjectInfo holds the low 32 bits of a size instead of 0xFFFFFFFF.
    bool cutsSizesTo32Bits = false;
    /// Every object says that it lies in the root.
    bool parentsAreZero = false;
    /// Property lists hold the folder itself and nothing in it, whatever depth is asked for.
    bool listsFolderOnly = false;
    /// Answers nothing while two events lie unread.
    bool waitsForEventReader = false;
    /// A locked phone answers GetStorageIDs without a data phase.
    bool omitsEmptyStorageList = false;

    /// The control requests are refused by a stall.
    bool refusesCancelRequest = false;
    bool refusesStatusRequest = false;
    /// How long GetDeviceStatus says "busy" after a cancelled transaction.
    std::chrono::milliseconds busyAfterCancel{50};
    /// A cancelled transaction is answered with "transaction cancelled"; the rule is no answer.
    bool answersCancelled = false;
};

} // namespace tessary
