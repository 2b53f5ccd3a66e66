#include "devices/list/IPhoneProbe.h"

#include "devices/files/DeviceServices.h"
#include "ios/helper/IPhoneHelper.h"
#include "phone/PhoneQueue.h"

namespace tessary {

DeviceAnswer askIPhone(DeviceServices& services, const DeviceInfo& device,
                       const std::stop_token& stop) {
    using Outcome = DeviceAnswer::Outcome;
    DeviceAnswer answer;
    const auto turn = services.files().queueOf(device)->tryTake();
    if (!turn)
        return answer;
    const IPhoneFacts facts = askIPhoneFacts(device.udid, stop);
    answer.outcome = Outcome::answered;
    answer.deviceName = facts.name;
    answer.storage = facts.storage;
    answer.figures.battery = facts.battery;
    return answer;
}

} // namespace tessary
