#include "sync/SyncPairsModel.h"

#include "core/PathNames.h"

namespace tessary {

SyncPairsModel::SyncPairsModel(SyncManager& manager, QObject* parent)
    : QAbstractListModel(parent),
      manager_(manager),
      count_(static_cast<int>(manager.syncPairs().size())) {
    connect(&manager, &SyncManager::syncPairsChanged, this, [this] {
        beginResetModel();
        count_ = static_cast<int>(manager_.syncPairs().size());
        endResetModel();
    });
    connect(&manager, &SyncManager::syncPairChanged, this, &SyncPairsModel::refresh);
}

int SyncPairsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

void SyncPairsModel::refresh(const QUuid& id) {
    const auto& pairs = manager_.syncPairs();
    for (int row = 0; row < count_; ++row)
        if (pairs[static_cast<std::size_t>(row)].id == id)
            Q_EMIT dataChanged(index(row), index(row));
}

QVariant SyncPairsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid) ||
        index.row() >= static_cast<int>(manager_.syncPairs().size()))
        return {};
    const SyncPair& pair = manager_.syncPairs()[static_cast<std::size_t>(index.row())];
    const bool isSyncing = pair.status.kind == SyncStatus::Kind::syncing;
    switch (role) {
    case Qt::DisplayRole: {
        const QString name = lastComponent(pair.localFolderPath);
        return name.isEmpty() ? pair.localFolderPath : name;
    }
    case idRole:
        return pair.id;
    case deviceRole:
        return pair.deviceName;
    case remotePathRole:
        return pair.displayRemotePath();
    case localPathRole:
        return pair.localFolderPath;
    case modeRole:
        return pair.modeDisplayName();
    case statusRole:
        return pair.status.label();
    case isErrorRole:
        return pair.status.kind == SyncStatus::Kind::error;
    case isRunningRole:
        return manager_.isRunningOrWaiting(pair.id);
    case percentRole:
        return pair.progress.progressPercentDescription().chopped(1).toInt();
    case progressTextRole:
        if (!isSyncing || pair.progress.totalFiles < 1)
            return QString();
        return pair.progress.filesDescription() + QStringLiteral("  ") +
               pair.progress.bytesDescription();
    case lastSyncedRole:
        return pair.lastSyncedAt.value_or(QDateTime());
    case historyRole:
        return manager_.historyLine(pair.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> SyncPairsModel::roleNames() const {
    return {{Qt::DisplayRole, "name"},      {idRole, "id"},
            {deviceRole, "device"},         {remotePathRole, "remotePath"},
            {localPathRole, "localPath"},   {modeRole, "mode"},
            {statusRole, "status"},         {isErrorRole, "isError"},
            {isRunningRole, "isRunning"},   {percentRole, "percent"},
            {progressTextRole, "progress"}, {lastSyncedRole, "lastSynced"},
            {historyRole, "history"}};
}

} // namespace tessary
