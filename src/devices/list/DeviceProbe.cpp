#include "devices/list/DeviceProbe.h"

#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/threads/Deadline.h"
#include "devices/files/DeviceServices.h"
#include "ios/helper/IPhoneHelper.h"
#include "phone/PhoneQueue.h"

namespace tessary {

namespace {

using Outcome = DeviceAnswer::Outcome;

DeviceAnswer answerTo(const Error& error) {
    if (isDeviceLost(error))
        return {Outcome::gone};
    // What a locked phone shows: none.
    if (error.is(PhoneError::noStorage))
        return {Outcome::answered};
    DeviceAnswer answer{Outcome::failed};
    answer.trouble = DeviceTrouble{error};
    return answer;
}

/// By a helper of its own. Throws as askIPhoneFacts() does.
DeviceAnswer askIPhone(DeviceServices& services, const DeviceInfo& device,
                       const std::stop_token& stop) {
    const auto turn = services.files().queueOf(device)->tryTake();
    if (!turn)
        return {Outcome::busy};
    const IPhoneFacts facts = askIPhoneFacts(device.udid, stop);
    DeviceAnswer answer{Outcome::answered};
    answer.deviceName = facts.name;
    answer.storage = facts.storage;
    answer.figures.battery = facts.battery;
    return answer;
}

} // namespace

DeviceAnswer PhoneProbe::ask(const DeviceInfo& device, const std::stop_token& stop) {
    const Deadline deadline(limit_);
    const CombinedStopToken either(deadline.token(), stop);
    try {
        if (device.platform == DevicePlatform::iOS)
            return askIPhone(services_, device, either.token());
        auto figures = services_.files().open(device)->liveInfo(either.token());
        if (!figures)
            return {Outcome::busy};
        DeviceAnswer answer{Outcome::answered, *std::move(figures)};
        if (device.protocolMode == ProtocolMode::adbTurbo && !services_.files().usesADB(device))
            answer.trouble = DeviceTrouble{Error(DeviceError::turboUnavailable)};
        return answer;
    } catch (const Error& error) {
        return answerTo(error);
    } catch (const CancellationError&) {
        return answerTo(Error(PhoneError::noAnswer));
    }
}

std::vector<ADBDevice> PhoneProbe::adbDevices(bool lookAgain, const std::stop_token& stop) {
    if (lookAgain)
        services_.adbWays().lookAgain(stop);
    return services_.adbWays().devices();
}

void PhoneProbe::onADBChange(std::function<void()> changed) {
    services_.onADBChange(std::move(changed));
}

bool PhoneProbe::isConflictingAppRunning() {
    return services_.competingPrograms().isAnyRunning();
}

} // namespace tessary
