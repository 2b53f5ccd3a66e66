#include "transfer/ErrorAdvice.h"

#include "phone/FileAccess.h"

#include "base/values/TessaryError.h"
#include "mtp/protocol/MTPCodes.h"
#include "mtp/protocol/MTPTransportError.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tessary {

namespace {

using View = QLatin1StringView;
using Case = MTPTransportError::Case;

constexpr View plugInAgain("Plug the phone in again, unlock it and choose File transfer on it.");

struct CodeRow {
    USBCode code;
    View message;
    View advice;
};

constexpr std::array codeTable{
    CodeRow{usb::noDevice, View("The phone was unplugged."), plugInAgain},
    CodeRow{usb::timeout, View("The phone does not answer."),
            View("Unlock it. If that does not help, unplug it and plug it in again.")},
    CodeRow{usb::pipeStalled, View("The phone broke the transfer off."),
            View("Try again. If that does not help, unplug the phone and plug it in again.")},
    CodeRow{usb::notPermitted, View("This user may not open the phone's USB device."),
            View("Install the udev rule that comes with Tessary, then plug the phone in again.")},
};

struct ResponseRow {
    MTPResponseCode response;
    View message;
    View advice;
};

constexpr std::array responseTable{
    ResponseRow{MTPResponseCode::storeFull, View("The storage of the phone is full."),
                View("Delete something on the phone, or copy less.")},
    ResponseRow{MTPResponseCode::storeReadOnly, View("This storage of the phone is read-only."),
                View("Choose another folder.")},
    ResponseRow{MTPResponseCode::objectWriteProtected, View("The phone protects this file."),
                View("")},
    ResponseRow{MTPResponseCode::accessDenied, View("The phone does not allow this."),
                View("Unlock it, and try another folder.")},
    ResponseRow{MTPResponseCode::storeNotAvailable,
                View("The storage of the phone is not available."),
                View("Unlock the phone and choose File transfer on it.")},
    ResponseRow{MTPResponseCode::deviceBusy, View("The phone is busy."),
                View("Wait a moment and try again.")},
    ResponseRow{MTPResponseCode::operationNotSupported, View("The phone cannot do this."),
                View("")},
    ResponseRow{MTPResponseCode::sessionNotOpen, View("The phone ended the connection."),
                plugInAgain},
};

struct AFCRow {
    AFCError error;
    View advice;
};

constexpr View plugInPhone("Plug the phone in again and unlock it.");

constexpr std::array afcTable{
    AFCRow{AFCError::noSpaceLeft, View("The phone is full: delete something on it, or copy less.")},
    AFCRow{AFCError::permDenied, View("The app does not allow this.")},
    AFCRow{AFCError::opTimeout, View("The phone does not answer: unlock it. If that does not help, "
                                     "unplug it and plug it in again.")},
    AFCRow{AFCError::serviceNotConnected, plugInPhone},
    AFCRow{AFCError::muxError, plugInPhone},
    AFCRow{AFCError::notEnoughData, plugInPhone},
    AFCRow{AFCError::opHeaderInvalid, plugInPhone},
    AFCRow{AFCError::sslError, plugInPhone},
};

struct LockdownRow {
    View status; ///< at the end of the error's text
    View advice;
};

constexpr std::array lockdownTable{
    LockdownRow{View(": -17"), View("Unlock the phone and try again.")},
    LockdownRow{View(": -18"), View("Unplug the phone, plug it in again and tap Trust on it.")},
    LockdownRow{View(": -19"), View("Unlock the phone and tap Trust on it.")},
    // It has forgotten this computer, and asks nobody until the cable was out.
    LockdownRow{View(": -21"), View("Unplug the phone, plug it in again and tap Trust on it.")},
};

/// What a person can do about a failure of the iPhone layer.
QString adviceForPhone(const TessaryError& error) {
    using Kind = TessaryError::Case;
    switch (error.kind()) {
    case Kind::afcError:
        for (const AFCRow& row : afcTable)
            if (row.error == error.afc())
                return row.advice;
        return {};
    case Kind::lockdownFailed:
        for (const LockdownRow& row : lockdownTable)
            if (error.message().endsWith(row.status))
                return row.advice;
        return QStringLiteral("Unlock the phone, tap Trust on it when it asks, and try again.");
    case Kind::serviceStartFailed:
    case Kind::instProxyFailed:
        return QStringLiteral("Unlock the phone and try again.");
    case Kind::houseArrestFailed:
        return QStringLiteral("Unlock the phone. If that does not help, the app does not share "
                              "its files with computers.");
    case Kind::deviceNotFound:
    case Kind::fileIOError:
    case Kind::transferCancelled:
        break;
    }
    return {};
}

template <typename Row>
ErrorAdvice from(const Row& row, const QString& detail) {
    return {row.message + QStringLiteral(" (%1)").arg(detail), row.advice};
}

ErrorAdvice forTransport(const MTPTransportError& error, const QStringList& holders) {
    if (error.kind() == Case::exclusiveAccessDenied) {
        const QString who =
            holders.isEmpty() ? QStringLiteral("Another program") : holders.join(View(", "));
        return {who + QStringLiteral(" is using the phone."),
                QStringLiteral("Close it, or unmount the phone in the desktop's file manager, and "
                               "try again.")};
    }
    if (error.kind() == Case::notConnected)
        return {QStringLiteral("The phone is not connected."), plugInAgain};
    const USBCode code = error.kind() == Case::timeout ? usb::timeout : error.code();
    for (const CodeRow& row : codeTable)
        if (row.code == code)
            return from(row, error.description());
    for (const ResponseRow& row : responseTable)
        if (error.response() == static_cast<std::uint16_t>(row.response))
            return from(row, error.description());
    return {error.description(), {}};
}

} // namespace

ErrorAdvice adviceFor(const std::exception& error, const QStringList& holders) {
    if (const auto* transport = dynamic_cast<const MTPTransportError*>(&error))
        return forTransport(*transport, holders);
    if (const auto* own = dynamic_cast<const TessaryError*>(&error))
        return {own->description(), adviceForPhone(*own)};
    return {QString::fromUtf8(error.what()), {}};
}

ErrorAdvice adviceFor(const std::exception& error, FileAccess& files) {
    const auto* transport = dynamic_cast<const MTPTransportError*>(&error);
    const bool isHeld =
        transport && transport->kind() == MTPTransportError::Case::exclusiveAccessDenied;
    return adviceFor(error, isHeld ? files.programsHolding() : QStringList());
}

} // namespace tessary
