#include "cli/devices/ChosenDevice.h"

#include "base/threads/CancellationError.h"
#include "cli/terminal/CliFailure.h"
#include "devices/list/ADBPhones.h"
#include "devices/list/IPhoneDevices.h"
#include "ios/helper/IPhoneHelper.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <array>

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
    using Test = bool (*)(const DeviceInfo&, const QString&);
    struct Rule {
        bool needsNames;
        Test fits;
    };
    static constexpr std::array rules{
        Rule{false,
             [](const DeviceInfo& device, const QString& wanted) { return device.udid == wanted; }},
        Rule{false, [](const DeviceInfo& device,
                       const QString& wanted) { return device.udid.startsWith(wanted); }},
        Rule{true, [](const DeviceInfo& device, const QString& wanted) {
                 return device.deviceName.value_or(QString()).compare(wanted,
                                                                      Qt::CaseInsensitive) == 0;
             }}};
    std::optional<Error> refusal;
    for (const Rule& rule : rules) {
        if (rule.needsNames)
            refusal = readNames(all, stop);
        std::vector<DeviceInfo> matching;
        std::copy_if(all.begin(), all.end(), std::back_inserter(matching),
                     [&](const DeviceInfo& device) { return rule.fits(device, request.device); });
        if (matching.size() > 1)
            throw CliFailure(
                QStringLiteral("\"%1\" fits %2 devices. Give more of the udid: see tessary-cli "
                               "devices.")
                    .arg(request.device)
                    .arg(matching.size()));
        if (matching.size() == 1)
            return matching.front();
    }
    // It may be the one that is meant: what it waits for helps more than that it is missing.
    if (refusal && !refusal->is(PhoneError::notConnected) && !refusal->is(PhoneError::unplugged))
        throw *refusal;
    throw CliFailure(
        QStringLiteral("\"%1\" is not attached. Plug it in, unlock it and choose File transfer on "
                       "it; tessary-cli devices lists what is there.")
            .arg(request.device));
}

} // namespace tessary
