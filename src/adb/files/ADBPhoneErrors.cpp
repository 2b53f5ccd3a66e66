#include "adb/files/ADBPhoneErrors.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;

/// Numbers as Linux has them on every processor that phones have.
struct Errno {
    std::uint32_t number;
    View words;
    PhoneError error;
};
constexpr std::array errnos{
    Errno{1, View("Operation not permitted"), PhoneError::accessDenied},
    Errno{2, View("No such file or directory"), PhoneError::notFound},
    Errno{5, View("I/O error"), PhoneError::unreadable},
    Errno{5, View("Input/output error"), PhoneError::unreadable},
    Errno{13, View("Permission denied"), PhoneError::accessDenied},
    Errno{17, View("File exists"), PhoneError::taken},
    Errno{18, View("Invalid cross-device link"), PhoneError::otherStorage},
    Errno{18, View("Cross-device link"), PhoneError::otherStorage},
    Errno{20, View("Not a directory"), PhoneError::notAFolder},
    Errno{21, View("Is a directory"), PhoneError::notAFile},
    Errno{22, View("Invalid argument"), PhoneError::nameNotAllowed},
    Errno{27, View("File too large"), PhoneError::tooLarge},
    Errno{28, View("No space left on device"), PhoneError::full},
    Errno{30, View("Read-only file system"), PhoneError::writeProtected},
    Errno{36, View("File name too long"), PhoneError::nameNotAllowed},
    Errno{39, View("Directory not empty"), PhoneError::folderNotEmpty},
    Errno{107, View("Transport endpoint is not connected"), PhoneError::unreadable},
    Errno{122, View("Quota exceeded"), PhoneError::full},
    Errno{122, View("Disk quota exceeded"), PhoneError::full},
};

/// A system call's reason, by its number on the phone.
PhoneError codeOfErrno(std::uint32_t number) {
    const auto* found = std::find_if(errnos.begin(), errnos.end(),
                                     [&](const Errno& row) { return row.number == number; });
    return found == errnos.end() ? PhoneError::refused : found->error;
}

/// The same by the words that Android's C library has for it, at the end of what a service or a
/// command says.
PhoneError codeOfReason(const QString& reason) {
    // Some commands have figures to tell behind it.
    const QStringList lines = reason.split(QLatin1Char('\n'));
    const auto* found = std::find_if(errnos.begin(), errnos.end(), [&](const Errno& row) {
        return std::any_of(lines.begin(), lines.end(), [&](const QString& line) {
            return QStringView(line).trimmed().endsWith(row.words);
        });
    });
    return found == errnos.end() ? PhoneError::refused : found->error;
}

PhoneError codeOf(const Error& error, ADBError code) {
    switch (code) {
    case ADBError::noKey:
    case ADBError::notSigned:
    case ADBError::noPublicKey:
    case ADBError::noServer:
    case ADBError::noADB:
    case ADBError::cannotPair:
    case ADBError::severalPhones:
    case ADBError::offline:
    case ADBError::tooOld:
    case ADBError::refused:
        return PhoneError::notReachable;
    case ADBError::notFound:
        return PhoneError::notConnected;
    case ADBError::unauthorized:
        return PhoneError::notTrusted;
    case ADBError::notPermitted:
        return PhoneError::notPermitted;
    case ADBError::held:
        return PhoneError::held;
    case ADBError::brokenOff:
        return PhoneError::brokenOff;
    case ADBError::timedOut:
        return PhoneError::noAnswer;
    case ADBError::nonsense:
        return PhoneError::nonsense;
    case ADBError::syncFailed:
        return codeOfReason(error.arguments().value(1).toString());
    case ADBError::statFailed:
        return codeOfErrno(error.arguments().value(1).toUInt());
    case ADBError::commandFailed:
        return codeOfReason(error.arguments().value(2).toString());
    case ADBError::nameNotText:
    case ADBError::pathTooLong:
        return PhoneError::nameNotAllowed;
    }
    return PhoneError::refused;
}

} // namespace

Error phoneErrorOf(const Error& error, const QString& path) {
    const auto code = error.code().as<ADBError>();
    if (!code)
        return error;
    const PhoneError phoneError = codeOf(error, *code);
    const Error translated(phoneError, {}, error);
    if (phoneError == PhoneError::held)
        return {phoneError, error.arguments(), error};
    return endsEverything(translated) ? translated : Error(phoneError, {path}, error);
}

} // namespace tessary
