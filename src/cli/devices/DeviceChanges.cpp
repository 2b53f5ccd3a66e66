#include "cli/devices/DeviceChanges.h"

#include "app/texts/DisplayNames.h"
#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"
#include "cli/terminal/RecordJson.h"

#include <QJsonArray>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using Kind = DeviceChange::Kind;
using View = QLatin1StringView;

/// In the order of the kinds.
constexpr std::array kindNames{View("attached"), View("detached"), View("changed"),
                               View("conflict")};
constexpr View troubleField("trouble");

/// What documents call a trouble.
View nameOf(const DeviceTrouble& trouble) {
    if (trouble.isHeld())
        return View("heldByProgram");
    if (trouble.error.is(DeviceError::turboUnavailable))
        return View("adbMissing");
    if (trouble.error.is(PhoneError::notPermitted))
        return View("notPermitted");
    for (const PhoneError refusal :
         {PhoneError::notTrusted, PhoneError::trustForgotten, PhoneError::locked})
        if (trouble.error.is(refusal))
            return View("refused");
    return View("notAnswering");
}

View nameOf(Kind kind) {
    return kindNames[static_cast<std::size_t>(kind)];
}

const DeviceInfo* find(const DeviceSnapshot& snapshot, const QString& id) {
    const auto found = std::find_if(snapshot.devices.begin(), snapshot.devices.end(),
                                    [&](const DeviceInfo& one) { return one.id() == id; });
    return found == snapshot.devices.end() ? nullptr : &*found;
}

QStringList differingFields(const QJsonObject& before, const QJsonObject& after) {
    QStringList keys = before.keys() + after.keys();
    keys.removeDuplicates();
    keys.removeIf([&](const QString& key) { return before.value(key) == after.value(key); });
    keys.sort();
    return keys;
}

QString shownBattery(const DeviceInfo& device) {
    return device.batteryLevel ? QStringLiteral("battery %1 %").arg(*device.batteryLevel)
                               : QStringLiteral("battery -");
}

QString shownStorage(const DeviceInfo& device) {
    if (device.isLocked)
        return QStringLiteral("no storage: unlock it and choose File transfer on it");
    return freeSpaceText(device.mainStorage());
}

QString shownTrouble(const std::optional<DeviceTrouble>& trouble) {
    return trouble ? errorText(trouble->error).text() : QStringLiteral("can be read again");
}

QString shownName(const DeviceInfo& device) {
    return QStringLiteral("%1  %2").arg(
        printable(device.udid).leftJustified(20),
        printable(device.deviceName.value_or(QString())).leftJustified(24));
}

/// The new values of the fields that differ, each once.
QString shownFields(const DeviceChange& change) {
    const DeviceInfo& device = change.device;
    QStringList shown;
    for (const QString& field : change.fields) {
        if (field == troubleField)
            shown.append(shownTrouble(change.trouble));
        else if (field == View("batteryLevel"))
            shown.append(shownBattery(device));
        else if (field == View("deviceName"))
            shown.append(printable(device.deviceName.value_or(QString())));
        else if (field == View("protocolMode"))
            shown.append(rawValue(device.protocolMode));
        else if (field == View("volumes") || field == View("isLocked") ||
                 field.endsWith(View("StorageBytes")))
            shown.append(shownStorage(device));
        else
            shown.append(field);
    }
    shown.removeDuplicates();
    return shown.join(View(", "));
}

} // namespace

std::optional<DeviceTrouble> troubleOf(const DeviceSnapshot& snapshot, const DeviceInfo& device) {
    const auto found = snapshot.troubles.constFind(device.id());
    return found == snapshot.troubles.cend() ? std::nullopt : std::optional(*found);
}

std::vector<DeviceChange> changesBetween(const DeviceSnapshot& before,
                                         const DeviceSnapshot& after) {
    std::vector<DeviceChange> changes;
    for (const DeviceInfo& device : before.devices)
        if (find(after, device.id()) == nullptr)
            changes.push_back({Kind::detached, device, {}, {}});
    for (const DeviceInfo& device : after.devices) {
        const auto trouble = troubleOf(after, device);
        const DeviceInfo* old = find(before, device.id());
        if (old == nullptr) {
            changes.push_back({Kind::attached, device, trouble, {}});
            continue;
        }
        const QStringList fields =
            differingFields(toJson(*old, troubleOf(before, *old)), toJson(device, trouble));
        if (!fields.isEmpty())
            changes.push_back({Kind::changed, device, trouble, fields});
    }
    if (before.hasUSBConflict != after.hasUSBConflict)
        changes.push_back({Kind::conflict, {}, {}, {}, after.hasUSBConflict});
    return changes;
}

QJsonObject toJson(const DeviceInfo& device, const std::optional<DeviceTrouble>& trouble) {
    QJsonObject object = toJson(device);
    if (trouble) {
        const ErrorText words = errorText(trouble->error);
        QJsonArray programs;
        if (trouble->isHeld())
            for (const QVariant& program : trouble->error.arguments())
                programs.append(program.toString());
        object.insert(troubleField, QJsonObject{{View("kind"), nameOf(*trouble)},
                                                {View("programs"), programs},
                                                {View("message"), words.what},
                                                {View("advice"), words.advice}});
    }
    return object;
}

QJsonObject toJson(const DeviceChange& change) {
    QJsonObject object{{View("event"), nameOf(change.kind)}};
    if (change.kind == Kind::conflict)
        object.insert(View("hasUSBConflict"), change.hasUSBConflict);
    else
        object.insert(View("device"), toJson(change.device, change.trouble));
    if (change.kind == Kind::changed)
        object.insert(View("fields"), QJsonArray::fromStringList(change.fields));
    return object;
}

QString deviceLine(const DeviceInfo& device, const std::optional<DeviceTrouble>& trouble) {
    return QStringLiteral("%1  %2  %3  %4  %5")
        .arg(shownName(device), rawValue(device.platform), rawValue(device.protocolMode),
             shownBattery(device), trouble ? shownTrouble(trouble) : shownStorage(device));
}

QString changeLine(const DeviceChange& change) {
    const QString kind = nameOf(change.kind) + QStringLiteral("  ");
    switch (change.kind) {
    case Kind::attached:
        return kind + deviceLine(change.device, change.trouble);
    case Kind::detached:
        return (kind + shownName(change.device)).trimmed();
    case Kind::changed:
        return kind + QLatin1Char(' ') + shownName(change.device) + QStringLiteral("  ") +
               shownFields(change);
    case Kind::conflict:
        break;
    }
    return kind + (change.hasUSBConflict
                       ? QStringLiteral("another program that competes for phones is running")
                       : QStringLiteral("no other program competes for phones any more"));
}

} // namespace tessary
