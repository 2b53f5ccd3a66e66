#include "app/texts/ErrorWords.h"

#include "adb/protocol/ADBError.h"
#include "base/local/LocalError.h"
#include "phone/PhoneError.h"
#include "platform/http/HttpError.h"
#include "sync/plan/SyncError.h"

#include <QCoreApplication>

#include <iterator>

namespace tessary {

namespace {

/// The words of all codes, each table in the order of its enum's cases.
class Tables {
    Q_DECLARE_TR_FUNCTIONS(ErrorText)

public:
    static constexpr const char* plugInAgain = QT_TR_NOOP("Plug the phone in again and unlock it.");
    static constexpr const char* renameFirst = QT_TR_NOOP("Rename it first.");
    static constexpr const char* chooseFileTransfer =
        QT_TR_NOOP("Unlock the phone and choose “File transfer” on it.");
    static constexpr const char* renameOneFirst = QT_TR_NOOP("Rename one of the two first.");
    static constexpr const char* tryAgainOrReplug =
        QT_TR_NOOP("Try again. If that does not help, unplug the phone and plug it in again.");

    static constexpr ErrorWords phone[] = {
        // notConnected
        {QT_TR_NOOP("The phone is not connected."), nullptr, plugInAgain},
        // unplugged
        {QT_TR_NOOP("The phone was unplugged."), nullptr, plugInAgain},
        // noAnswer
        {QT_TR_NOOP("The phone does not answer."), nullptr,
         QT_TR_NOOP("Unlock it. If that does not help, unplug it and plug it in again.")},
        // brokenOff
        {QT_TR_NOOP("The connection to the phone broke off."), nullptr, tryAgainOrReplug},
        // held
        {QT_TR_NOOP("%1 is using the phone."), nullptr,
         QT_TR_NOOP(
             "Close it, or unmount the phone in the desktop's file manager, and try again.")},
        // notPermitted
        {QT_TR_NOOP("This user may not open the phone's USB device."), nullptr,
         QT_TR_NOOP(
             "Install the udev rule that comes with Tessary, then plug the phone in again.")},
        // notTrusted
        {QT_TR_NOOP("The phone has not allowed this computer yet."), nullptr,
         QT_TR_NOOP("Unlock the phone and answer its question: tap “Trust” or “Allow”.")},
        // trustForgotten
        {QT_TR_NOOP("The phone has forgotten this computer."), nullptr,
         QT_TR_NOOP("Unplug the phone, plug it in again and tap “Trust” on it.")},
        // locked
        {QT_TR_NOOP("The phone is locked."), nullptr,
         QT_TR_NOOP("Unlock the phone and try again.")},
        // noStorage
        {QT_TR_NOOP("The storage of the phone is not available."), nullptr, chooseFileTransfer},
        // sessionEnded
        {QT_TR_NOOP("The phone ended the connection."), nullptr, plugInAgain},
        // notReachable
        {QT_TR_NOOP("The phone cannot be reached."), nullptr,
         QT_TR_NOOP("Check its cable or its network. On an Android phone, "
                    "Turbo mode needs USB debugging; Standard MTP works without.")},
        // nonsense
        {QT_TR_NOOP("The phone's answers make no sense."), nullptr,
         QT_TR_NOOP("Unplug the phone and plug it in again.")},
        // busy
        {QT_TR_NOOP("The phone is busy with another copy."), nullptr,
         QT_TR_NOOP("Try again when that one is done.")},
        // notFound
        {QT_TR_NOOP("There is no “%1” on the phone."),
         QT_TR_NOOP("it is not on the phone any more"),
         QT_TR_NOOP("It may have been deleted or renamed: refresh the folder.")},
        // taken
        {QT_TR_NOOP("“%1” is already there."), QT_TR_NOOP("its name is already taken")},
        // sameName
        {QT_TR_NOOP("“%1” is on the phone, which takes “%2” for the same name."),
         QT_TR_NOOP("the phone takes its name for that of another item"), renameOneFirst},
        // notAFolder
        {QT_TR_NOOP("“%1” is not a folder."), QT_TR_NOOP("it is not a folder")},
        // notAFile
        {QT_TR_NOOP("“%1” is not a file."), QT_TR_NOOP("it is not a file")},
        // folderNotEmpty
        {QT_TR_NOOP("The folder “%1” is not empty."), QT_TR_NOOP("the folder is not empty")},
        // nameNotAllowed
        {QT_TR_NOOP("“%1” cannot be a name on the phone."),
         QT_TR_NOOP("the phone does not allow its name"), renameFirst},
        // accessDenied
        {QT_TR_NOOP("The phone does not allow this with “%1”."),
         QT_TR_NOOP("the phone does not allow it"),
         QT_TR_NOOP("Unlock it, and try another folder.")},
        // writeProtected
        {QT_TR_NOOP("“%1” is write-protected on the phone."),
         QT_TR_NOOP("it is write-protected on the phone"), QT_TR_NOOP("Choose another folder.")},
        // tooLarge
        {QT_TR_NOOP("“%1” is too large for this storage of the phone."),
         QT_TR_NOOP("it is too large for this storage of the phone")},
        // changed
        {QT_TR_NOOP("“%1” has changed on the phone meanwhile. It was left as it is."),
         QT_TR_NOOP("it has changed on the phone meanwhile"),
         QT_TR_NOOP("Refresh the folder and try again.")},
        // unreadable
        {QT_TR_NOOP("“%1” cannot be read."), QT_TR_NOOP("it cannot be read")},
        // listingBroken
        {QT_TR_NOOP("The folder “%1” cannot be read whole."),
         QT_TR_NOOP("the folder cannot be read whole"), tryAgainOrReplug},
        // wrongSize
        {QT_TR_NOOP("The phone sent %2 of the %3 bytes of “%1”."),
         QT_TR_NOOP("its size is not the one that was announced"), QT_TR_NOOP("Copy it again.")},
        // insideItself
        {QT_TR_NOOP("The folder “%1” cannot lie inside itself."),
         QT_TR_NOOP("a folder cannot lie inside itself")},
        // wholeStorage
        {QT_TR_NOOP("A whole storage cannot be changed or copied as one item."),
         QT_TR_NOOP("a whole storage cannot be changed or copied as one item")},
        // otherStorage
        {QT_TR_NOOP("The phone cannot move “%1” to another storage."),
         QT_TR_NOOP("the phone cannot move it to another storage"), QT_TR_NOOP("Copy it instead.")},
        // notSupported
        {QT_TR_NOOP("The phone cannot do this."), QT_TR_NOOP("the phone cannot do this")},
        // refused
        {QT_TR_NOOP("The phone refused this for “%1”."), QT_TR_NOOP("the phone refused it")},
        // notDone
        {QT_TR_NOOP("The phone agreed, but did nothing with “%1”."),
         QT_TR_NOOP("the phone agreed, but did nothing"), tryAgainOrReplug},
        // differs
        {QT_TR_NOOP("The copy of “%1” was not equal to its original. It was removed again."),
         QT_TR_NOOP("the copy was not equal to its original"), QT_TR_NOOP("Copy it again.")},
        // notAsCopied
        {QT_TR_NOOP("“%1” has changed since it was copied. It was left as it is."),
         QT_TR_NOOP("it has changed since it was copied"),
         QT_TR_NOOP("Delete it yourself if you do not need it.")},
        // full
        {QT_TR_NOOP("The storage of the phone is full."),
         QT_TR_NOOP("the storage of the phone is full"),
         QT_TR_NOOP("Delete something on the phone, or copy less.")},
    };
    static_assert(std::size(phone) == static_cast<std::size_t>(PhoneError::full) + 1);

    static constexpr ErrorWords local[] = {
        // cannotRead
        {QT_TR_NOOP("“%1” cannot be read: %2"), QT_TR_NOOP("it cannot be read")},
        // cannotWrite
        {QT_TR_NOOP("“%1” cannot be written: %2"),
         QT_TR_NOOP("it cannot be written on this computer")},
        // cannotMakeFolder
        {QT_TR_NOOP("The folder “%1” cannot be created: %2"),
         QT_TR_NOOP("the folder cannot be created on this computer")},
        // cannotDelete
        {QT_TR_NOOP("“%1” cannot be deleted: %2"),
         QT_TR_NOOP("it cannot be deleted on this computer")},
        // cannotRename
        {QT_TR_NOOP("“%1” cannot be renamed: %2"),
         QT_TR_NOOP("it cannot be renamed on this computer")},
        // notFound
        {QT_TR_NOOP("“%1” is not on this computer any more."),
         QT_TR_NOOP("it is not on this computer any more")},
        // notAFile
        {QT_TR_NOOP("“%1” is not a regular file."), QT_TR_NOOP("it is not a regular file")},
        // notAFolder
        {QT_TR_NOOP("“%1” is not a folder."), QT_TR_NOOP("it is not a folder")},
        // folderInTheWay
        {QT_TR_NOOP("A folder is where the file “%1” should be."),
         QT_TR_NOOP("a folder of this name is on this computer")},
        // fileInTheWay
        {QT_TR_NOOP("A file is where the folder “%1” should be."),
         QT_TR_NOOP("a file of this name is on this computer")},
        // taken
        {QT_TR_NOOP("“%1” is already there."), QT_TR_NOOP("its name is already taken")},
        // folderNotEmpty
        {QT_TR_NOOP("The folder “%1” is not empty."), QT_TR_NOOP("the folder is not empty")},
        // changed
        {QT_TR_NOOP("“%1” changed while it was being copied."),
         QT_TR_NOOP("it changed while it was being copied"), QT_TR_NOOP("Copy it again.")},
        // nameNotUsable
        {QT_TR_NOOP("The name “%1” cannot be used on this computer."),
         QT_TR_NOOP("its name cannot be used on this computer"), renameFirst},
        // nameTooLong
        {QT_TR_NOOP("The name “%1” is too long for this computer."),
         QT_TR_NOOP("its name is too long for this computer"), renameFirst},
        // leavesFolder
        {QT_TR_NOOP("“%1” leads out of the folder that is copied to."),
         QT_TR_NOOP("it leads out of the folder that is copied to")},
        // link
        {QT_TR_NOOP("“%1” is a link; links are not followed."),
         QT_TR_NOOP("it is a link; links are not followed")},
        // full
        {QT_TR_NOOP("No space is left on the disk of “%1”."),
         QT_TR_NOOP("no space is left on this computer's disk"),
         QT_TR_NOOP("Delete something there, or choose another folder.")},
        // noRoomOnTheWay
        {QT_TR_NOOP("No space is left on the disk of “%1”."),
         QT_TR_NOOP("no space is left on this computer's disk"),
         QT_TR_NOOP("Delete something on that disk. Files lie there while they are on their way.")},
        // notPrivate
        {QT_TR_NOOP("Others may change what is in “%1”."),
         QT_TR_NOOP("others may change what is in the folder"),
         QT_TR_NOOP("Let no other user write to that folder.")},
    };
    static_assert(std::size(local) == static_cast<std::size_t>(LocalError::notPrivate) + 1);

    static constexpr ErrorWords sync[] = {
        // changedMeanwhile
        {QT_TR_NOOP("“%1” changed while the folders were being synced. It was left as it is."),
         QT_TR_NOOP("it changed while the folders were being synced")},
        // kindsDiffer
        {QT_TR_NOOP("“%1” is a file on one side and a folder on the other."),
         QT_TR_NOOP("it is a file on one side and a folder on the other")},
        // sameNames
        {QT_TR_NOOP("Another name differs from “%1” only in case or in the form of its letters."),
         QT_TR_NOOP("another name differs from it only in case or in the form of its letters"),
         renameOneFirst},
        // aboveUnknown
        {QT_TR_NOOP("What is in the folder “%1” could not be read on one side."),
         QT_TR_NOOP("its folder could not be read on one side")},
        // notListed
        {QT_TR_NOOP("The folder of “%1” holds something that could not be read."),
         QT_TR_NOOP("its folder holds something that could not be read")},
        // changedAtTarget
        {QT_TR_NOOP("“%1” was changed on the side that files are only copied to."),
         QT_TR_NOOP("it was changed on the side that files are only copied to")},
        // undecided
        {QT_TR_NOOP("“%1” was left as it is."), QT_TR_NOOP("it was to be left as it is")},
        // sizeUnknown
        {QT_TR_NOOP("The phone does not tell the size of “%1”."),
         QT_TR_NOOP("the phone does not tell its size")},
        // twice
        {QT_TR_NOOP("The phone has several entries called “%1”."),
         QT_TR_NOOP("the phone has several entries of this name")},
        // tooDeep
        {QT_TR_NOOP("The folder “%1” lies too deep."), QT_TR_NOOP("the folder lies too deep")},
        // stopped
        {QT_TR_NOOP("Nothing was changed.")},
        // folderMissing
        {QT_TR_NOOP("The folder “%1” was synced before and is gone."), nullptr,
         QT_TR_NOOP("Plug its disk in, or make the folder again.")},
        // sourceIsNoFolder
        {QT_TR_NOOP("“%1” is not a folder.")},
        // recordNotStored
        {QT_TR_NOOP("What was synced could not be noted down in “%1”."),
         QT_TR_NOOP("what was synced could not be noted down"),
         QT_TR_NOOP(
             "The next sync cannot tell what was deleted since: it copies such files back.")},
    };
    static_assert(std::size(sync) == static_cast<std::size_t>(SyncError::recordNotStored) + 1);

    static constexpr const char* later = QT_TR_NOOP("Please try again later.");
    static constexpr ErrorWords http[] = {
        // timedOut
        {QT_TR_NOOP("The server did not answer in time."), nullptr, later},
        // tooLong
        {QT_TR_NOOP("The server's answer is too long."), nullptr, later},
        // unsafeAddress
        {QT_TR_NOOP("The server's address is not a safe one."), nullptr, later},
        // endlessRedirects
        {QT_TR_NOOP("The server redirects without end."), nullptr, later},
        // cutOff
        {QT_TR_NOOP("The server's answer was cut off."), nullptr, later},
        // failed
        {QT_TR_NOOP("The server cannot be reached: %1"), QT_TR_NOOP("the server cannot be reached"),
         later},
        // badStatus
        {QT_TR_NOOP("The server answered with the error %1."),
         QT_TR_NOOP("the server answered with an error"), later},
        // badContent
        {QT_TR_NOOP("The server's answer is not what it should be."), nullptr, later},
    };
    static_assert(std::size(http) == static_cast<std::size_t>(HttpError::badContent) + 1);

    static constexpr const char* useMTP =
        QT_TR_NOOP("Install the adb tool, or switch the phone to Standard MTP.");
    static constexpr const char* switchToMTP = QT_TR_NOOP("Switch the phone to Standard MTP.");
    static constexpr const char* debugOrMTP =
        QT_TR_NOOP("Turn on USB debugging on it, or switch to Standard MTP.");
    static constexpr ErrorWords device{QT_TR_NOOP("Turbo mode needs adb, which is not installed. "
                                                  "The phone is used over Standard MTP instead."),
                                       nullptr, useMTP};
    static constexpr ErrorWords badKey{
        QT_TR_NOOP("This computer's key for USB debugging cannot be used."), nullptr, switchToMTP};

    /// Without a sentence where the words of the PhoneError that it comes to say as much.
    static constexpr ErrorWords adb[] = {
        // noKey
        badKey,
        // notSigned
        badKey,
        // noPublicKey
        badKey,
        // noServer
        {QT_TR_NOOP("adb's server does not answer."), nullptr, useMTP},
        // noADB
        {QT_TR_NOOP("adb is not installed."), nullptr, useMTP},
        // cannotPair
        {QT_TR_NOOP("This computer's adb is too old to pair."), nullptr,
         QT_TR_NOOP("Version 30 or newer is needed.")},
        // notFound
        {QT_TR_NOOP("adb does not reach the phone."), nullptr, debugOrMTP},
        // severalPhones
        {QT_TR_NOOP("adb reaches several phones and cannot tell which one is meant."), nullptr,
         QT_TR_NOOP("Unplug the others, or switch to Standard MTP.")},
        // unauthorized
        {QT_TR_NOOP("The phone has not allowed this computer yet."), nullptr,
         QT_TR_NOOP("Unlock it and tap “Allow” in the question about debugging.")},
        // notPermitted
        {},
        // offline
        {QT_TR_NOOP("The phone is offline for adb."), nullptr,
         QT_TR_NOOP("Unplug it and plug it in again, or turn USB debugging off and on.")},
        // held
        {},
        // tooOld
        {QT_TR_NOOP("The phone's Android is too old for Turbo mode."), nullptr, switchToMTP},
        // refused
        {QT_TR_NOOP("adb could not reach the phone: %2"),
         QT_TR_NOOP("adb could not reach the phone"), debugOrMTP},
        // brokenOff
        {},
        // timedOut
        {},
        // nonsense
        {},
        // syncFailed
        {},
        // statFailed
        {},
        // commandFailed
        {},
        // nameNotText
        {QT_TR_NOOP("The name “%1” is not valid text."), QT_TR_NOOP("its name is not valid text")},
        // pathTooLong
        {QT_TR_NOOP("The path of “%1” is too long."), QT_TR_NOOP("its path is too long")},
    };
    static_assert(std::size(adb) == static_cast<std::size_t>(ADBError::pathTooLong) + 1);
};

} // namespace

ErrorWords wordsOf(const ErrorCode& code) {
    const auto place = static_cast<std::size_t>(code.value());
    switch (code.layer()) {
    case ErrorLayer::phone:
        return Tables::phone[place];
    case ErrorLayer::local:
        return Tables::local[place];
    case ErrorLayer::sync:
        return Tables::sync[place];
    case ErrorLayer::http:
        return Tables::http[place];
    case ErrorLayer::adb:
        return Tables::adb[place];
    case ErrorLayer::device:
        return Tables::device;
    default:
        return {};
    }
}

} // namespace tessary
