#include "devices/list/IPhoneProbe.h"

#include "base/values/TessaryError.h"
#include "phone/BusyPhones.h"
#include "transfer/ErrorAdvice.h"

namespace tessary {

DeviceAnswer askIPhone(const DeviceInfo& device) {
    using Outcome = DeviceAnswer::Outcome;
    DeviceAnswer answer;
    if (BusyPhones::shared().isBusy(device.udid))
        return answer;
    try {
        LockdownSession session(device.udid);
        answer.outcome = Outcome::answered;
        if (!device.deviceName)
            answer.deviceName = session.deviceName();
        answer.storage = session.getStorageInfo();
        answer.figures.battery = session.batteryLevel();
    } catch (const TessaryError& error) {
        if (error.kind() == TessaryError::Case::deviceNotFound) {
            answer.outcome = Outcome::gone;
            return answer;
        }
        const ErrorAdvice words = adviceFor(error);
        answer.outcome = Outcome::failed;
        answer.trouble =
            DeviceTrouble{DeviceTrouble::Kind::refused, {}, words.message, words.advice};
    }
    return answer;
}

} // namespace tessary
