#include "devices/files/DeviceServices.h"

#include "adb/files/ADBFileSystem.h"
#include "adb/server/ADBServerConnection.h"
#include "ios/files/AFCFileSystem.h"
#include "mtp/files/MTPFileSystem.h"

namespace tessary {

namespace {

constexpr std::chrono::seconds serverStart(15);

} // namespace

DeviceServices::DeviceServices(const Setup& setup)
    : processes_(setup.processes),
      adbTool_(setup.processes, setup.adbPaths),
      adbServer_(std::make_shared<const ADBServerClient>(setup.adbServer)),
      competing_(setup.processes),
      files_(ways(setup)) {}

/// Whoever needs the server finds out by itself whether it is there now.
void DeviceServices::startADBServer(const std::stop_token& stop) {
    const auto executable = adbTool_.find();
    if (!executable)
        return;
    ProcessRequest request;
    request.program = *executable;
    request.arguments = {QStringLiteral("start-server")};
    request.limit = serverStart;
    request.stop = stop;
    (void)processes_.follow(request);
}

PhoneFileSystems::Ways DeviceServices::ways(const Setup& setup) {
    using Queue = std::shared_ptr<PhoneQueue>;
    PhoneFileSystems::Ways ways;
    ways.mtp = [&bus = setup.bus](const PhoneIdentity& phone, const Queue& queue) {
        return std::make_shared<MTPFileSystem>(bus, phone, queue);
    };
    ways.adb = [this](const PhoneIdentity& phone,
                      const Queue& queue) -> std::shared_ptr<PhoneFileSystem> {
        if (!adbTool_.find())
            return nullptr;
        return std::make_shared<ADBFileSystem>(
            phone, queue,
            std::make_shared<ADBServerConnection>(
                adbServer_, ADBPhoneSought{phone.serialNumber, phone.usbLocation},
                [this](const std::stop_token& stop) { startADBServer(stop); }));
    };
    ways.app = [](const PhoneIdentity& phone, const AppInfo& app, const Queue& queue) {
        return std::make_shared<AFCFileSystem>(phone, app, queue);
    };
    ways.media = [](const PhoneIdentity& phone, const Queue& queue) {
        return std::make_shared<AFCFileSystem>(phone, std::nullopt, queue);
    };
    return ways;
}

} // namespace tessary
