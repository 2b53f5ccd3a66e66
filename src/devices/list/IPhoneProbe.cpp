#include "devices/list/IPhoneProbe.h"

#include "base/values/TessaryError.h"
#include "ios/helper/IPhoneInfo.h"
#include "phone/BusyPhones.h"
#include "transfer/ErrorAdvice.h"

namespace tessary {

DeviceAnswer askIPhone(const DeviceInfo& device) {
    using Outcome = DeviceAnswer::Outcome;
    DeviceAnswer answer;
    if (BusyPhones::shared().isBusy(device.udid))
        return answer;
    try {
        const IPhoneFacts facts = iphoneFacts(device.udid, {});
        answer.outcome = Outcome::answered;
        answer.deviceName = facts.name;
        answer.storage = facts.storage;
        answer.figures.battery = facts.battery;
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
