#include "devices/list/DeviceProbe.h"

#include "base/values/TessaryError.h"
#include "devices/files/DeviceFileService.h"
#include "devices/list/IPhoneProbe.h"
#include "mtp/client/MTPTransport.h"
#include "transfer/ErrorAdvice.h"

#include <chrono>

namespace tessary {

namespace {

using Outcome = DeviceAnswer::Outcome;

DeviceTrouble troubleOf(const MTPTransportError& error, const QStringList& holders) {
    using Kind = DeviceTrouble::Kind;
    const bool isHeld = error.kind() == MTPTransportError::Case::exclusiveAccessDenied;
    const ErrorAdvice words = adviceFor(error, holders);
    return {isHeld                              ? Kind::heldByProgram
            : error.code() == usb::notPermitted ? Kind::notPermitted
                                                : Kind::notAnswering,
            isHeld ? holders : QStringList(), words.message, words.advice};
}

DeviceAnswer failedWith(DeviceTrouble trouble) {
    DeviceAnswer answer;
    answer.outcome = Outcome::failed;
    answer.trouble = std::move(trouble);
    return answer;
}

} // namespace

DeviceAnswer FileServiceProbe::ask(const DeviceInfo& device) {
    if (device.platform == DevicePlatform::iOS)
        return askIPhone(device);
    const auto start = std::chrono::steady_clock::now();
    auto figures = files_.fetchLiveDeviceInfo(device);
    const auto passed = std::chrono::steady_clock::now() - start;
    if (!figures)
        return {Outcome::busy};
    if (!figures->volumes.empty()) {
        DeviceAnswer answer{Outcome::answered, *std::move(figures)};
        if (device.protocolMode == ProtocolMode::adbTurbo && !files_.usesADB(device))
            answer.trouble = DeviceTrouble{
                DeviceTrouble::Kind::adbMissing,
                {},
                QStringLiteral(
                    "Turbo mode needs adb, which is not installed. The phone is used over "
                    "Standard MTP instead."),
                QStringLiteral("Install the adb tool, or switch the phone to Standard MTP.")};
        return answer;
    }
    if (files_.usesADB(device))
        return whyNoADB(device);
    if (passed >= MTPTransportProtocol::pipeTimeout)
        return failedWith(troubleOf(MTPTransportError(MTPTransportError::Case::timeout), {}));
    return whyNoStorage(device, *std::move(figures));
}

/// A locked phone and one that cannot be opened look the same in the figures. A listing tells them
/// apart: it is empty for the one and throws for the other.
DeviceAnswer FileServiceProbe::whyNoStorage(const DeviceInfo& device, LiveDeviceInfo figures) {
    try {
        if (files_.listDirectory(QStringLiteral("/"), device).empty())
            return {Outcome::answered, std::move(figures)};
        // Unlocked a moment after the figures were read: the next attempt has them.
        return {Outcome::busy};
    } catch (const TessaryError&) {
        return {Outcome::busy};
    } catch (const MTPTransportError& error) {
        if (error.isDeviceGone())
            return {Outcome::gone};
        return failedWith(troubleOf(error, files_.programsHolding(device)));
    }
}

/// A phone that adb reaches always has a storage: what keeps it from telling is in the failure.
DeviceAnswer FileServiceProbe::whyNoADB(const DeviceInfo& device) {
    try {
        (void)files_.listDirectory(QStringLiteral("/"), device);
        return {Outcome::busy}; // the next attempt has the figures
    } catch (const TessaryError& error) {
        return failedWith({DeviceTrouble::Kind::notAnswering, {}, error.message(), {}});
    }
}

std::vector<ADBDevice> FileServiceProbe::adbDevices() {
    return files_.adbDevices();
}

bool FileServiceProbe::isConflictingAppRunning() {
    return files_.isConflictingAppRunning();
}

} // namespace tessary
