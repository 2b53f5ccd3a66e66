#include "app/texts/ErrorWords.h"

#include <QtGlobal>

#include <array>

namespace tessary {

namespace {

constexpr const char* plugInAgain =
    QT_TRANSLATE_NOOP("ErrorText", "Plug the phone in again and unlock it.");
constexpr const char* renameFirst = QT_TRANSLATE_NOOP("ErrorText", "Rename it first.");
constexpr const char* chooseFileTransfer =
    QT_TRANSLATE_NOOP("ErrorText", "Unlock the phone and choose “File transfer” on it.");
constexpr const char* tryAgainOrReplug =
    QT_TRANSLATE_NOOP("ErrorText", "Try again. If that does not help, unplug the phone and plug it "
                                   "in again.");

/// In the order of the enum's cases.
constexpr std::array phoneWords{
    // notConnected
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone is not connected."), nullptr, plugInAgain},
    // unplugged
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone was unplugged."), nullptr, plugInAgain},
    // noAnswer
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone does not answer."), nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Unlock it. If that does not help, unplug it and "
                                              "plug it in again.")},
    // brokenOff
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The connection to the phone broke off."), nullptr,
               tryAgainOrReplug},
    // held
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "%1 is using the phone."), nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Close it, or unmount the phone in the desktop's "
                                              "file manager, and try again.")},
    // notPermitted
    ErrorWords{
        QT_TRANSLATE_NOOP("ErrorText", "This user may not open the phone's USB device."), nullptr,
        QT_TRANSLATE_NOOP("ErrorText", "Install the udev rule that comes with Tessary, then plug "
                                       "the phone in again.")},
    // notTrusted
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone has not allowed this computer yet."),
               nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Unlock the phone and answer its question: tap "
                                              "“Trust” or “Allow”.")},
    // trustForgotten
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone has forgotten this computer."), nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Unplug the phone, plug it in again and tap “Trust” "
                                              "on it.")},
    // locked
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone is locked."), nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Unlock the phone and try again.")},
    // noStorage
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The storage of the phone is not available."),
               nullptr, chooseFileTransfer},
    // sessionEnded
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone ended the connection."), nullptr,
               plugInAgain},
    // notReachable
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone cannot be reached."), nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Check its cable or its network. For Turbo mode, "
                                              "USB debugging must be on; Standard MTP works "
                                              "without.")},
    // nonsense
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone's answers make no sense."), nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Unplug the phone and plug it in again.")},
    // busy
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone is busy with another copy."), nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Try again when that one is done.")},
    // notFound
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "There is no “%1” on the phone."),
               QT_TRANSLATE_NOOP("ErrorText", "it is not on the phone any more"),
               QT_TRANSLATE_NOOP("ErrorText", "It may have been deleted or renamed: refresh the "
                                              "folder.")},
    // taken
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is already there."),
               QT_TRANSLATE_NOOP("ErrorText", "its name is already taken")},
    // sameName
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is on the phone, which takes “%2” for the same "
                                              "name."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone takes its name for that of another item"),
               QT_TRANSLATE_NOOP("ErrorText", "Rename one of the two first.")},
    // notAFolder
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is not a folder."),
               QT_TRANSLATE_NOOP("ErrorText", "it is not a folder")},
    // notAFile
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is not a file."),
               QT_TRANSLATE_NOOP("ErrorText", "it is not a file")},
    // folderNotEmpty
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The folder “%1” is not empty."),
               QT_TRANSLATE_NOOP("ErrorText", "the folder is not empty")},
    // nameNotAllowed
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” cannot be a name on the phone."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone does not allow its name"), renameFirst},
    // accessDenied
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone does not allow this with “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone does not allow it"),
               QT_TRANSLATE_NOOP("ErrorText", "Unlock it, and try another folder.")},
    // writeProtected
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is write-protected on the phone."),
               QT_TRANSLATE_NOOP("ErrorText", "it is write-protected on the phone"),
               QT_TRANSLATE_NOOP("ErrorText", "Choose another folder.")},
    // tooLarge
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is too large for this storage of the phone."),
               QT_TRANSLATE_NOOP("ErrorText", "it is too large for this storage of the phone")},
    // changed
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” has changed on the phone meanwhile. It was "
                                              "left as it is."),
               QT_TRANSLATE_NOOP("ErrorText", "it has changed on the phone meanwhile"),
               QT_TRANSLATE_NOOP("ErrorText", "Refresh the folder and try again.")},
    // unreadable
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” cannot be read."),
               QT_TRANSLATE_NOOP("ErrorText", "it cannot be read")},
    // listingBroken
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The folder “%1” cannot be read whole."),
               QT_TRANSLATE_NOOP("ErrorText", "the folder cannot be read whole"), tryAgainOrReplug},
    // wrongSize
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone sent %2 of the %3 bytes of “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "its size is not the one that was announced"),
               QT_TRANSLATE_NOOP("ErrorText", "Copy it again.")},
    // insideItself
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The folder “%1” cannot lie inside itself."),
               QT_TRANSLATE_NOOP("ErrorText", "a folder cannot lie inside itself")},
    // wholeStorage
    ErrorWords{
        QT_TRANSLATE_NOOP("ErrorText", "A whole storage cannot be changed or copied as one item."),
        QT_TRANSLATE_NOOP("ErrorText", "a whole storage cannot be changed or copied as one item")},
    // otherStorage
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone cannot move “%1” to another storage."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone cannot move it to another storage"),
               QT_TRANSLATE_NOOP("ErrorText", "Copy it instead.")},
    // notSupported
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone cannot do this."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone cannot do this")},
    // refused
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone refused this for “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone refused it")},
    // notDone
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone agreed, but did nothing with “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone agreed, but did nothing"),
               tryAgainOrReplug},
    // differs
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The copy of “%1” was not equal to its original. It "
                                              "was removed again."),
               QT_TRANSLATE_NOOP("ErrorText", "the copy was not equal to its original"),
               QT_TRANSLATE_NOOP("ErrorText", "Copy it again.")},
    // notAsCopied
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” has changed since it was copied. It was left "
                                              "as it is."),
               QT_TRANSLATE_NOOP("ErrorText", "it has changed since it was copied"),
               QT_TRANSLATE_NOOP("ErrorText", "Delete it yourself if you do not need it.")},
    // full
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The storage of the phone is full."),
               QT_TRANSLATE_NOOP("ErrorText", "the storage of the phone is full"),
               QT_TRANSLATE_NOOP("ErrorText", "Delete something on the phone, or copy less.")},
};
static_assert(phoneWords.size() == static_cast<std::size_t>(PhoneError::full) + 1);

constexpr std::array localWords{
    // cannotRead
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” cannot be read: %2"),
               QT_TRANSLATE_NOOP("ErrorText", "it cannot be read")},
    // cannotWrite
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” cannot be written: %2"),
               QT_TRANSLATE_NOOP("ErrorText", "it cannot be written on this computer")},
    // cannotMakeFolder
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The folder “%1” cannot be created: %2"),
               QT_TRANSLATE_NOOP("ErrorText", "the folder cannot be created on this computer")},
    // cannotDelete
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” cannot be deleted: %2"),
               QT_TRANSLATE_NOOP("ErrorText", "it cannot be deleted on this computer")},
    // cannotRename
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” cannot be renamed: %2"),
               QT_TRANSLATE_NOOP("ErrorText", "it cannot be renamed on this computer")},
    // notFound
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is not on this computer any more."),
               QT_TRANSLATE_NOOP("ErrorText", "it is not on this computer any more")},
    // notAFile
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is not a regular file."),
               QT_TRANSLATE_NOOP("ErrorText", "it is not a regular file")},
    // notAFolder
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is not a folder."),
               QT_TRANSLATE_NOOP("ErrorText", "it is not a folder")},
    // folderInTheWay
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "A folder is where the file “%1” should be."),
               QT_TRANSLATE_NOOP("ErrorText", "a folder of this name is on this computer")},
    // fileInTheWay
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "A file is where the folder “%1” should be."),
               QT_TRANSLATE_NOOP("ErrorText", "a file of this name is on this computer")},
    // taken
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is already there."),
               QT_TRANSLATE_NOOP("ErrorText", "its name is already taken")},
    // folderNotEmpty
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The folder “%1” is not empty."),
               QT_TRANSLATE_NOOP("ErrorText", "the folder is not empty")},
    // changed
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” changed while it was being copied."),
               QT_TRANSLATE_NOOP("ErrorText", "it changed while it was being copied"),
               QT_TRANSLATE_NOOP("ErrorText", "Copy it again.")},
    // nameNotUsable
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The name “%1” cannot be used on this computer."),
               QT_TRANSLATE_NOOP("ErrorText", "its name cannot be used on this computer"),
               renameFirst},
    // nameTooLong
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The name “%1” is too long for this computer."),
               QT_TRANSLATE_NOOP("ErrorText", "its name is too long for this computer"),
               renameFirst},
    // leavesFolder
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” leads out of the folder that is copied to."),
               QT_TRANSLATE_NOOP("ErrorText", "it leads out of the folder that is copied to")},
    // link
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is a link; links are not followed."),
               QT_TRANSLATE_NOOP("ErrorText", "it is a link; links are not followed")},
    // full
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "No space is left on the disk of “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "no space is left on this computer's disk"),
               QT_TRANSLATE_NOOP("ErrorText", "Delete something there, or choose another folder.")},
    // noRoomOnTheWay
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "No space is left on the disk of “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "no space is left on this computer's disk"),
               QT_TRANSLATE_NOOP("ErrorText", "Delete something on that disk. Files lie there "
                                              "while they are on their way.")},
    // notPrivate
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "Others may change what is in “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "others may change what is in the folder"),
               QT_TRANSLATE_NOOP("ErrorText", "Let no other user write to that folder.")},
};
static_assert(localWords.size() == static_cast<std::size_t>(LocalError::notPrivate) + 1);

/// In the order of the enum's cases.
constexpr std::array syncWords{
    // changedMeanwhile
    ErrorWords{
        QT_TRANSLATE_NOOP(
            "ErrorText", "“%1” changed while the folders were being synced. It was left as it is."),
        QT_TRANSLATE_NOOP("ErrorText", "it changed while the folders were being synced")},
    // kindsDiffer
    ErrorWords{
        QT_TRANSLATE_NOOP("ErrorText", "“%1” is a file on one side and a folder on the other."),
        QT_TRANSLATE_NOOP("ErrorText", "it is a file on one side and a folder on the other")},
    // sameNames
    ErrorWords{
        QT_TRANSLATE_NOOP(
            "ErrorText",
            "Another name differs from “%1” only in case or in the form of its letters."),
        QT_TRANSLATE_NOOP(
            "ErrorText", "another name differs from it only in case or in the form of its letters"),
        QT_TRANSLATE_NOOP("ErrorText", "Rename one of the two first.")},
    // aboveUnknown
    ErrorWords{
        QT_TRANSLATE_NOOP("ErrorText", "What is in the folder “%1” could not be read on one side."),
        QT_TRANSLATE_NOOP("ErrorText", "its folder could not be read on one side")},
    // notListed
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText",
                                 "The folder of “%1” holds something that could not be read."),
               QT_TRANSLATE_NOOP("ErrorText", "its folder holds something that could not be read")},
    // changedAtTarget
    ErrorWords{
        QT_TRANSLATE_NOOP("ErrorText",
                          "“%1” was changed on the side that files are only copied to."),
        QT_TRANSLATE_NOOP("ErrorText", "it was changed on the side that files are only copied to")},
    // undecided
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” was left as it is."),
               QT_TRANSLATE_NOOP("ErrorText", "it was to be left as it is")},
    // sizeUnknown
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone does not tell the size of “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone does not tell its size")},
    // twice
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone has several entries called “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "the phone has several entries of this name")},
    // tooDeep
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The folder “%1” lies too deep."),
               QT_TRANSLATE_NOOP("ErrorText", "the folder lies too deep")},
    // stopped
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "Nothing was changed.")},
    // folderMissing
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The folder “%1” was synced before and is gone."),
               nullptr,
               QT_TRANSLATE_NOOP("ErrorText", "Plug its disk in, or make the folder again.")},
    // sourceIsNoFolder
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "“%1” is not a folder.")},
    // recordNotStored
    ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "What was synced could not be noted down in “%1”."),
               QT_TRANSLATE_NOOP("ErrorText", "what was synced could not be noted down"),
               QT_TRANSLATE_NOOP(
                   "ErrorText",
                   "The next sync cannot tell what was deleted since: it copies such files back.")},
};
static_assert(syncWords.size() == static_cast<std::size_t>(SyncError::recordNotStored) + 1);

} // namespace

ErrorWords wordsOf(PhoneError error) {
    return phoneWords[static_cast<std::size_t>(error)];
}

ErrorWords wordsOf(LocalError error) {
    return localWords[static_cast<std::size_t>(error)];
}

ErrorWords wordsOf(DeviceError) {
    return {.sentence = QT_TRANSLATE_NOOP(
                "ErrorText", "Turbo mode needs adb, which is not installed. The phone is used over "
                             "Standard MTP instead."),
            .advice = QT_TRANSLATE_NOOP(
                "ErrorText", "Install the adb tool, or switch the phone to Standard MTP.")};
}

ErrorWords wordsOf(SyncError error) {
    return syncWords[static_cast<std::size_t>(error)];
}

} // namespace tessary
