#pragma once

#include "sync/SyncManager.h"

#include <QAbstractListModel>

namespace tessary {

/// The sync pairs as rows, for lists and menus. Follows a manager; does no work of its own.
class SyncPairsModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        idRole = Qt::UserRole + 1, ///< QUuid
        deviceRole,                ///< the device's name
        remotePathRole,            ///< as people read it
        localPathRole,
        modeRole,         ///< "To Mac", …
        statusRole,       ///< label
        isErrorRole,      ///< bool
        isRunningRole,    ///< bool: runs or waits
        percentRole,      ///< int, 0 to 100
        progressTextRole, ///< files and bytes; empty unless it runs
        lastSyncedRole,   ///< QDateTime, invalid before the first good run
        historyRole,      ///< one line; empty before the first run
    };

    /// `manager` must outlive the model.
    explicit SyncPairsModel(SyncManager& manager, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// Qt::DisplayRole is the local folder's name.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void refresh(const QUuid& id);

    SyncManager& manager_;
    int count_ = 0; ///< rows as they were last told
};

} // namespace tessary
