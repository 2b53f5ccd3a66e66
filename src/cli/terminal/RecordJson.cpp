#include "cli/terminal/RecordJson.h"

#include "app/texts/ErrorText.h"
#include "base/text/ByteCount.h"

#include <QJsonArray>

#include <algorithm>

namespace tessary {

namespace {

template <typename T>
void insertIf(QJsonObject& object, QLatin1StringView key, const std::optional<T>& value) {
    if (value)
        object.insert(key, QJsonValue(*value));
}

using View = QLatin1StringView;

QJsonObject toJson(const StorageVolume& volume) {
    return {{View("id"), volume.id},
            {View("name"), volume.name},
            {View("totalBytes"), static_cast<qint64>(volume.totalBytes)},
            {View("freeBytes"), static_cast<qint64>(volume.freeBytes)},
            {View("isSDCard"), volume.isSDCard}};
}

} // namespace

QJsonObject toJson(const DeviceInfo& device) {
    QJsonObject object{{View("udid"), device.udid},
                       {View("platform"), rawValue(device.platform)},
                       {View("handle"), static_cast<qint64>(device.handle)},
                       {View("productId"), static_cast<qint64>(device.productId)},
                       {View("vendorId"), static_cast<qint64>(device.vendorId)},
                       {View("connectionType"), static_cast<qint64>(device.connectionType)},
                       {View("protocolMode"), rawValue(device.protocolMode)},
                       {View("isLocked"), device.isLocked}};
    insertIf(object, View("deviceName"), device.deviceName);
    insertIf(object, View("manufacturer"), device.manufacturer);
    insertIf(object, View("serialNumber"), device.serialNumber);
    insertIf(object, View("batteryLevel"), device.batteryLevel);
    insertIf(object, View("freeStorageBytes"), device.freeStorageBytes);
    insertIf(object, View("totalStorageBytes"), device.totalStorageBytes);
    QJsonArray volumes;
    for (const StorageVolume& volume : device.volumes)
        volumes.append(toJson(volume));
    object.insert(View("volumes"), volumes);
    if (!device.usbLocation.isEmpty())
        object.insert(View("usbLocation"), device.usbLocation);
    return object;
}

QJsonObject toJson(const AppInfo& app) {
    return {{View("bundleIdentifier"), app.bundleIdentifier},
            {View("displayName"), app.displayName},
            {View("fileSharingEnabled"), app.fileSharingEnabled},
            {View("documentsInPlace"), app.documentsInPlace}};
}

QJsonObject toJson(const FileItem& item) {
    QJsonObject object{{View("name"), item.name},
                       {View("path"), item.path},
                       {View("isDirectory"), item.isDirectory},
                       {View("size"), item.size}};
    if (item.modifiedDate)
        object.insert(View("modifiedDate"), item.modifiedDate->toUTC().toString(Qt::ISODate));
    if (item.handle)
        object.insert(View("handle"), static_cast<qint64>(*item.handle));
    return object;
}

QJsonObject toJson(const CopyOutcome& outcome) {
    QJsonArray skipped;
    qint64 missing = 0;
    for (const LeftOut& left : outcome.leftOut) {
        skipped.append(QJsonObject{{View("path"), left.item.item.path},
                                   {View("reason"), reasonText(left.error)}});
        if (!left.item.item.isDirectory)
            missing = addByteCounts(missing, std::max<qint64>(left.item.item.size, 0));
    }
    return {{View("totalFiles"),
             outcome.files + outcome.alreadyThere + static_cast<qint64>(outcome.leftOut.size())},
            {View("completedFiles"), outcome.files},
            {View("alreadyThere"), outcome.alreadyThere},
            {View("totalBytes"), addByteCounts(outcome.bytes, missing)},
            {View("completedBytes"), outcome.bytes},
            {View("skipped"), skipped}};
}

} // namespace tessary
