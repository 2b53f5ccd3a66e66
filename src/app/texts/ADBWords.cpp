#include "app/texts/ADBWords.h"

#include <QtGlobal>

namespace tessary {

namespace {

constexpr const char* useMTP =
    QT_TRANSLATE_NOOP("ErrorText", "Install the adb tool, or switch the phone to Standard MTP.");
constexpr ErrorWords badKey{
    QT_TRANSLATE_NOOP("ErrorText", "This computer's key for USB debugging cannot be used."),
    nullptr, QT_TRANSLATE_NOOP("ErrorText", "Switch the phone to Standard MTP.")};

} // namespace

std::optional<ErrorWords> wordsOf(ADBError error) {
    switch (error) {
    case ADBError::noKey:
    case ADBError::notSigned:
    case ADBError::noPublicKey:
        return badKey;
    case ADBError::noServer:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "adb's server does not answer."), nullptr,
                          useMTP};
    case ADBError::noADB:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "adb is not installed."), nullptr, useMTP};
    case ADBError::cannotPair:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "This computer's adb is too old to pair."),
                          nullptr,
                          QT_TRANSLATE_NOOP("ErrorText", "Version 30 or newer is needed.")};
    case ADBError::refused:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "adb could not reach the phone: %2"),
                          QT_TRANSLATE_NOOP("ErrorText", "adb could not reach the phone"),
                          QT_TRANSLATE_NOOP("ErrorText",
                                            "Turn on USB debugging on it, or switch to "
                                            "Standard MTP.")};
    case ADBError::notFound:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "adb does not reach the phone."), nullptr,
                          QT_TRANSLATE_NOOP("ErrorText",
                                            "Turn on USB debugging on it, or switch to "
                                            "Standard MTP.")};
    case ADBError::severalPhones:
        return ErrorWords{
            QT_TRANSLATE_NOOP("ErrorText",
                              "adb reaches several phones and cannot tell which one is meant."),
            nullptr,
            QT_TRANSLATE_NOOP("ErrorText", "Unplug the others, or switch to Standard MTP.")};
    case ADBError::unauthorized:
        return ErrorWords{
            QT_TRANSLATE_NOOP("ErrorText", "The phone has not allowed this computer yet."), nullptr,
            QT_TRANSLATE_NOOP("ErrorText",
                              "Unlock it and tap “Allow” in the question about debugging.")};
    case ADBError::offline:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The phone is offline for adb."), nullptr,
                          QT_TRANSLATE_NOOP("ErrorText", "Unplug it and plug it in again, or turn "
                                                         "USB debugging off and on.")};
    case ADBError::tooOld:
        return ErrorWords{
            QT_TRANSLATE_NOOP("ErrorText", "The phone's Android is too old for Turbo mode."),
            nullptr, QT_TRANSLATE_NOOP("ErrorText", "Switch the phone to Standard MTP.")};
    case ADBError::nameNotText:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The name “%1” is not valid text."),
                          QT_TRANSLATE_NOOP("ErrorText", "its name is not valid text")};
    case ADBError::pathTooLong:
        return ErrorWords{QT_TRANSLATE_NOOP("ErrorText", "The path of “%1” is too long."),
                          QT_TRANSLATE_NOOP("ErrorText", "its path is too long")};
    case ADBError::notPermitted:
    case ADBError::held:
    case ADBError::brokenOff:
    case ADBError::timedOut:
    case ADBError::nonsense:
    case ADBError::syncFailed:
    case ADBError::statFailed:
    case ADBError::commandFailed:
        break;
    }
    return std::nullopt;
}

} // namespace tessary
