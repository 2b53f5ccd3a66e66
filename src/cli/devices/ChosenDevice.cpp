#include "cli/devices/ChosenDevice.h"

#include "base/threads/CancellationError.h"
#include "cli/terminal/CliFailure.h"
#include "devices/list/ADBPhones.h"
#include "devices/list/IPhoneDevices.h"
#include "ios/helper/IPhoneHelper.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <iterator>

namespace tessary {

namespace {

/// Returns why the first one did not tell its name that did not.
std::optional<Error> readNames(std::vector<DeviceInfo>& devices, const std::stop_token& stop) {
    std::optional<Error> refusal;
    for (DeviceInfo& device : devices) {
        throwIfStopped(stop);
        if (device.platform != DevicePlatform::iOS || device.deviceName)
            continue;
        try {
            device.deviceName = askIPhoneFacts(device.udid, stop).name;
        } catch (const Error& error) {
            if (!refusal)
                refusal = error;
        }
    }
    return refusal;
}

} // namespace

DeviceInfo chooseDevice(DeviceSources sources, const CliRequest& request,
                        const std::stop_token& stop, const std::vector<ADBDevice>& reachedByADB) {
    std::vector<DeviceInfo> all = androidDevices(sources.usb.devices(), request.alsoAccept);
    addADBPhones(all, reachedByADB);
    if (sources.multiplexer != nullptr)
        for (DeviceInfo& phone : iosDevices(sources.multiplexer->devices()))
            all.push_back(std::move(phone));
    const QString& wanted = request.device;
    const auto theOne = [&](const auto& fits) -> std::optional<DeviceInfo> {
        std::vector<DeviceInfo> matching;
        std::copy_if(all.begin(), all.end(), std::back_inserter(matching), fits);
        if (matching.size() > 1)
            throw CliFailure(
                QStringLiteral("\"%1\" fits %2 devices. Give more of the udid: see tessary-cli "
                               "devices.")
                    .arg(wanted)
                    .arg(matching.size()));
        return matching.empty() ? std::nullopt : std::optional(matching.front());
    };
    if (const auto one = theOne([&](const DeviceInfo& any) { return any.udid == wanted; }))
        return *one;
    if (const auto one = theOne([&](const DeviceInfo& any) { return any.udid.startsWith(wanted); }))
        return *one;
    const std::optional<Error> refusal = readNames(all, stop);
    if (const auto one = theOne([&](const DeviceInfo& any) {
            return any.deviceName.value_or(QString()).compare(wanted, Qt::CaseInsensitive) == 0;
        }))
        return *one;
    // It may be the one that is meant: what it waits for helps more than that it is missing.
    if (refusal && !isDeviceLost(*refusal))
        throw *refusal;
    throw CliFailure(
        QStringLiteral("\"%1\" is not attached. Plug it in, unlock it and choose File transfer on "
                       "it; tessary-cli devices lists what is there.")
            .arg(wanted));
}

} // namespace tessary
