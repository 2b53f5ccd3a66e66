#include "views/sidebar/DeviceListModel.h"

#include "app/LanguageManager.h"
#include "app/texts/DisplayNames.h"
#include "base/text/Printable.h"
#include "views/common/Icons.h"
#include "views/common/PlainText.h"

#include <QRegularExpression>

#include <algorithm>

namespace tessary {

namespace {

/// Whether a device of this name has a tablet's picture rather than a phone's: nothing else tells.
bool looksLikeTablet(const QString& name) {
    static const QRegularExpression words(QStringLiteral("\\b(iPad|\\w*Pad|Tab|Tablet)\\b"),
                                          QRegularExpression::CaseInsensitiveOption |
                                              QRegularExpression::UseUnicodePropertiesOption);
    return words.match(name).hasMatch();
}

/// The line below a device's storage bar: what is free, or what is waited for.
QString deviceStorageText(const DeviceInfo& device) {
    if (device.isLocked)
        return DeviceListModel::tr("Locked: unlock it");
    const QString space = freeSpaceText(device.mainStorage());
    if (space.isEmpty() && device.volumes.empty()) {
        // An iPhone that is to be trusted first takes many seconds to say so.
        const bool isConnecting = device.platform == DevicePlatform::iOS && !device.deviceName;
        return isConnecting ? DeviceListModel::tr("Connecting…")
                            : DeviceListModel::tr("Reading storage…");
    }
    return space;
}

} // namespace

QString deviceTitle(const DeviceInfo& device) {
    if (device.deviceName)
        return printable(*device.deviceName);
    // An iPhone tells its name only to computers that it trusts.
    return device.platform == DevicePlatform::iOS ? QStringLiteral("iPhone / iPad")
                                                  : printable(device.udid);
}

DeviceListModel::DeviceListModel(const DeviceManager& manager, const PhoneMounts& mounts)
    : manager_(manager), mounts_(mounts), devices_(manager.devices()) {
    connect(&manager, &DeviceManager::devicesChanged, this, &DeviceListModel::update);
    connect(&manager, &DeviceManager::troubleChanged, this, [this](const QString& id) {
        if (const QModelIndex row = indexOf(id); row.isValid())
            Q_EMIT dataChanged(row, row);
    });
    const auto changeAll = [this] {
        if (const int rows = rowCount(); rows > 0)
            Q_EMIT dataChanged(index(0), index(rows - 1));
    };
    connect(&mounts, &PhoneMounts::changed, this, changeAll);
    connect(&LanguageManager::shared(), &LanguageManager::languageChanged, this, changeAll);
}

int DeviceListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(devices_.size());
}

QVariant DeviceListModel::data(const QModelIndex& index, int role) const {
    const DeviceInfo* device = deviceAt(index);
    if (device == nullptr)
        return {};
    const QString name = deviceTitle(*device);
    const bool isMounted = mounts_.isOpen(device->udid);
    switch (role) {
    case Qt::DisplayRole:
        return name;
    case Qt::DecorationRole:
        return devicePicture(*device);
    case Qt::ToolTipRole:
        return plainToolTip(
            QStringLiteral("%1\n%2").arg(name, printable(device->udid)) +
            (isMounted ? QLatin1Char('\n') + tr("Open in the file manager") : QString()));
    case mountedRole:
        return isMounted;
    case stateRole:
        return manager_.trouble(device->id()) ? tr("Needs your attention")
                                              : deviceStorageText(*device);
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1, %2, %3")
                   .arg(name, deviceDetail(*device), data(index, stateRole).toString()) +
               (isMounted ? QStringLiteral(", ") + tr("Open in the file manager") : QString());
    default:
        return {};
    }
}

const DeviceInfo* DeviceListModel::deviceAt(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rowCount())
        return nullptr;
    return &devices_[static_cast<std::size_t>(index.row())];
}

QModelIndex DeviceListModel::indexOf(const QString& id) const {
    const auto found = std::ranges::find(devices_, id, &DeviceInfo::id);
    return found == devices_.end() ? QModelIndex()
                                   : index(static_cast<int>(found - devices_.begin()));
}

void DeviceListModel::update() {
    const std::vector<DeviceInfo>& now = manager_.devices();
    for (int row = rowCount() - 1; row >= 0; --row) {
        const QString id = devices_[static_cast<std::size_t>(row)].id();
        if (std::ranges::find(now, id, &DeviceInfo::id) != now.end())
            continue;
        beginRemoveRows({}, row, row);
        devices_.erase(devices_.begin() + row);
        endRemoveRows();
    }
    for (std::size_t i = 0; i < now.size(); ++i) {
        const int row = static_cast<int>(i);
        if (i >= devices_.size() || devices_[i].id() != now[i].id()) {
            beginInsertRows({}, row, row);
            devices_.insert(devices_.begin() + row, now[i]);
            endInsertRows();
        } else if (devices_[i] != now[i]) {
            devices_[i] = now[i];
            Q_EMIT dataChanged(index(row), index(row));
        }
    }
}

QIcon devicePicture(const DeviceInfo& device) {
    return icon(looksLikeTablet(deviceTitle(device)) ? QStringLiteral("tabletPicture")
                                                     : iconName(device.platform));
}

QString deviceDetail(const DeviceInfo& device) {
    const QString mode = displayName(device.protocolMode);
    if (!device.batteryLevel)
        return mode;
    return QStringLiteral("%1  ·  %2")
        .arg(mode, DeviceListModel::tr("Battery %1 %").arg(*device.batteryLevel));
}

} // namespace tessary
