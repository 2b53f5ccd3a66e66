#pragma once

#include "app/mounts/PhoneMounts.h"
#include "devices/list/DeviceManager.h"

#include <QAbstractListModel>
#include <QIcon>

#include <vector>

namespace tessary {

/// The attached devices as rows. Follows a DeviceManager and changes as few rows as it can, so that
/// the selection stays where it is.
class DeviceListModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// The line below the storage bar: free space, or that something is the matter.
    static constexpr int stateRole = Qt::UserRole + 1;
    /// Whether the phone is open in the desktop's file manager, too.
    static constexpr int mountedRole = Qt::UserRole + 2;

    /// Both must outlive the model.
    DeviceListModel(const DeviceManager& manager, const PhoneMounts& mounts);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

    [[nodiscard]] const DeviceInfo* deviceAt(const QModelIndex& index) const;
    /// The row of a `DeviceInfo::id()`; invalid when it is not attached.
    [[nodiscard]] QModelIndex indexOf(const QString& id) const;

private:
    void update();

    const DeviceManager& manager_;
    const PhoneMounts& mounts_;
    std::vector<DeviceInfo> devices_;
};

/// What a device is called, also before it has told its name.
[[nodiscard]] QString deviceTitle(const DeviceInfo& device);
/// The line below a device's name: its mode and battery.
[[nodiscard]] QString deviceDetail(const DeviceInfo& device);
/// A phone's or a tablet's.
[[nodiscard]] QIcon devicePicture(const DeviceInfo& device);

} // namespace tessary
