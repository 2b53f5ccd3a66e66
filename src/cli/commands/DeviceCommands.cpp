#include "cli/commands/Commands.h"

#include "app/texts/DisplayNames.h"
#include "base/text/Printable.h"
#include "base/threads/CancellationError.h"
#include "cli/devices/DeviceChanges.h"
#include "cli/devices/DeviceFollower.h"
#include "cli/terminal/CliFailure.h"
#include "cli/terminal/FileLine.h"
#include "cli/terminal/RecordJson.h"
#include "devices/list/DeviceManager.h"
#include "ios/helper/IPhoneHelper.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <chrono>
#include <optional>
#include <utility>

namespace tessary {

namespace {

/// Time for a silent phone to be given up on.
constexpr std::chrono::seconds detailsPatience(15);

void addLiveInfo(DeviceInfo& device, const std::optional<LiveDeviceInfo>& live) {
    if (!live)
        return;
    device.batteryLevel = live->battery;
    device.volumes = live->volumes;
    device.isLocked = live->volumes.empty();
}

void addPhoneInfo(DeviceInfo& device, const std::stop_token& stop) {
    const IPhoneFacts facts = askIPhoneFacts(device.udid, stop);
    device.deviceName = facts.name;
    device.batteryLevel = facts.battery;
    if (facts.storage) {
        device.freeStorageBytes = facts.storage->freeBytes;
        device.totalStorageBytes = facts.storage->totalBytes;
    }
}

void printField(CliSession& session, const char* name, const QString& value) {
    constexpr qsizetype nameWidth = 10;
    session.printLine(QString::fromLatin1(name).leftJustified(nameWidth) + printable(value));
}

void printDevice(CliSession& session, const DeviceInfo& device) {
    printField(session, "name", device.deviceName.value_or(QString()));
    printField(session, "udid", device.udid);
    printField(session, "platform", rawValue(device.platform));
    printField(session, "mode", rawValue(device.protocolMode));
    printField(session, "plugged",
               device.platform == DevicePlatform::android     ? device.usbLocation
               : device.connectionType == ConnectionType::usb ? QStringLiteral("USB")
                                                              : QStringLiteral("network"));
    if (device.batteryLevel)
        printField(session, "battery", QStringLiteral("%1 %").arg(*device.batteryLevel));
    for (const StorageVolume& volume : device.volumes) {
        const QString space = freeSpaceText(volume);
        printField(session, "storage",
                   QStringLiteral("%1: %2 (/storage/%3)")
                       .arg(volume.name, space.isEmpty() ? QStringLiteral("-") : space, volume.id));
    }
    if (device.totalStorageBytes)
        printField(session, "storage", freeSpaceText(device.mainStorage()));
    if (device.isLocked)
        printField(session, "storage",
                   QStringLiteral("none: unlock the phone and choose File transfer on it"));
}

} // namespace

/// Devices that have not told their figures by then are listed without.
void listDevices(CliSession& session) {
    DeviceFollower follower(DeviceFollower::Mode::once, session.setup().sources,
                            session.setup().services, session.request().alsoAccept);
    const auto end = std::chrono::steady_clock::now() + detailsPatience;
    DeviceSnapshot now;
    while (!now.isSettled) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        auto next = follower.next(session.stop(), left);
        throwIfStopped(session.stop());
        if (!next)
            break;
        now = *std::move(next);
    }
    if (session.request().json) {
        QJsonArray array;
        for (const DeviceInfo& device : now.devices)
            array.append(toJson(device, troubleOf(now, device)));
        session.print(array);
        return;
    }
    if (now.devices.empty())
        session.printLine(
            QStringLiteral("No device is attached. Plug a phone in, unlock it and choose "
                           "File transfer on it."));
    for (const DeviceInfo& device : now.devices)
        session.printLine(deviceLine(device, troubleOf(now, device)));
}

/// Ends with a stop request only.
void watchDevices(CliSession& session) {
    DeviceFollower follower(DeviceFollower::Mode::listening, session.setup().sources,
                            session.setup().services, session.request().alsoAccept);
    DeviceSnapshot before;
    while (true) {
        auto after = follower.next(session.stop(), DeviceManager::storageInterval);
        throwIfStopped(session.stop());
        if (!after)
            continue;
        for (const DeviceChange& change : changesBetween(before, *after))
            session.printLine(
                session.request().json
                    ? QString::fromUtf8(
                          QJsonDocument(toJson(change)).toJson(QJsonDocument::Compact))
                    : changeLine(change));
        session.flushOutput();
        before = *std::move(after);
    }
}

void listApps(CliSession& session) {
    const DeviceInfo& device = session.device();
    if (device.platform != DevicePlatform::iOS)
        throw CliFailure(
            QStringLiteral("\"%1\" is no iPhone: it has files of its own, not of apps.")
                .arg(session.request().device));
    const std::vector<AppInfo> apps = session.setup().services.apps(device, session.stop());
    if (session.request().json) {
        QJsonArray array;
        for (const AppInfo& app : apps)
            array.append(toJson(app));
        session.print(array);
        return;
    }
    if (apps.empty())
        session.printLine(QStringLiteral("No app on this iPhone shares its files."));
    for (const AppInfo& app : apps)
        session.printLine(QStringLiteral("%1  %2").arg(
            printable(app.bundleIdentifier).leftJustified(40), printable(app.displayName)));
}

void showInfo(CliSession& session) {
    if (!session.request().paths.isEmpty()) {
        const FileItem item =
            require(session.files(), session.request().paths.front(), session.stop());
        if (session.request().json) {
            session.print(toJson(item));
            return;
        }
        printField(session, "name", item.name);
        printField(session, "path", item.path);
        printField(session, "kind", rawValue(item.category()));
        printField(session, "size", item.formattedSize());
        printField(session, "modified", shownDate(item));
        return;
    }
    DeviceInfo device = session.device();
    if (device.platform == DevicePlatform::iOS)
        addPhoneInfo(device, session.stop());
    else
        addLiveInfo(device,
                    session.setup().services.files().open(device)->liveInfo(session.stop()));
    if (session.request().json) {
        session.print(toJson(device));
        return;
    }
    printDevice(session, device);
}

} // namespace tessary
