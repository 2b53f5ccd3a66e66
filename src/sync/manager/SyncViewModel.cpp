#include "sync/manager/SyncViewModel.h"

#include "devices/list/DeviceManager.h"

#include <QPointer>

namespace tessary {

SyncViewModel::SyncViewModel(SyncManager& manager, DeviceManager& deviceManager, QObject* parent)
    : QObject(parent), manager_(manager), deviceManager_(deviceManager) {
    // A run that ended, cancelled or not, needs no answer any more.
    connect(&manager, &SyncManager::syncPairChanged, this, [this](const QUuid& id) {
        const SyncPair* pair = manager_.pair(id);
        if (question_ && id == askedBy_ &&
            (pair == nullptr || pair->status.kind != SyncStatus::Kind::syncing))
            dropQuestion();
    });
}

SyncViewModel::~SyncViewModel() {
    stopPreview_.request_stop();
    if (completion_)
        completion_(false);
}

std::optional<SyncPair> SyncViewModel::draft(const QString& localFolder) const {
    const auto& device = manager_.activeDevice();
    const bool isAndroid = device && device->platform == DevicePlatform::android;
    if (!device || (!isAndroid && !manager_.activeApp()))
        return std::nullopt;
    SyncPair pair;
    pair.deviceUDID = device->udid;
    pair.deviceName = device->deviceName.value_or(device->udid);
    pair.appBundleID =
        isAndroid ? QString(SyncPair::deviceStorage) : manager_.activeApp()->bundleIdentifier;
    pair.appName =
        isAndroid ? QStringLiteral("Internal Storage") : manager_.activeApp()->displayName;
    pair.remoteFolderPath = manager_.activeRemotePath();
    pair.localFolderPath = localFolder;
    return pair;
}

QString SyncViewModel::sentence(const SyncPair& pair) {
    switch (pair.syncMode) {
    case SyncMode::biDirectional:
        return pair.deleteSyncEnabled
                   ? QStringLiteral("New and changed files are copied both ways. Files deleted on "
                                    "one side are deleted on the other after you agreed.")
                   : QStringLiteral("New and changed files are copied both ways. Files deleted on "
                                    "one side are copied back.");
    case SyncMode::toiPhone:
        return pair.moveFilesEnabled
                   ? QStringLiteral("Files are moved to the phone: each is deleted here once it "
                                    "has arrived.")
                   : QStringLiteral("New and changed files are copied to the phone. Nothing is "
                                    "deleted.");
    case SyncMode::toMac:
        break;
    }
    return pair.moveFilesEnabled
               ? QStringLiteral("Files are moved here: each is deleted on the phone once it has "
                                "arrived.")
               : QStringLiteral("New and changed files of the phone are copied here. Nothing is "
                                "deleted.");
}

SyncManager::OnDeleteConfirm SyncViewModel::confirm() {
    return [self = QPointer<SyncViewModel>(this)](const SyncQuestion& question,
                                                  std::function<void(bool)> completion) {
        if (!self) {
            completion(false);
            return;
        }
        for (const SyncPair& pair : self->manager_.syncPairs())
            if (pair.status.kind == SyncStatus::Kind::syncing)
                self->askedBy_ = pair.id;
        self->question_ = question;
        self->completion_ = std::move(completion);
        Q_EMIT self->questionChanged();
    };
}

void SyncViewModel::dropQuestion() {
    question_.reset();
    completion_ = nullptr;
    Q_EMIT questionChanged();
}

void SyncViewModel::answer(bool yes) {
    if (!question_)
        return;
    const auto completion = std::move(completion_);
    dropQuestion();
    completion(yes);
}

void SyncViewModel::run(const QUuid& id) {
    const SyncPair* pair = manager_.pair(id);
    if (pair == nullptr)
        return;
    if (pair->lastSyncedAt)
        manager_.syncPair(id, deviceManager_, confirm());
    else
        requestPreview(*pair);
}

void SyncViewModel::runAll() {
    std::vector<QUuid> ids;
    for (const SyncPair& pair : manager_.syncPairs())
        if (pair.lastSyncedAt)
            ids.push_back(pair.id);
    for (const QUuid& id : ids)
        manager_.syncPair(id, deviceManager_, confirm());
}

void SyncViewModel::cancel(const QUuid& id) {
    manager_.cancel(id);
}

void SyncViewModel::requestPreview(const SyncPair& pair) {
    stopPreview_.request_stop();
    preview_ = Preview{pair, {}, {}};
    Q_EMIT previewChanged();
    const QPointer<SyncViewModel> self(this);
    stopPreview_ = manager_.preview(
        pair, deviceManager_,
        [self, id = pair.id](std::optional<SyncPreview> plan, const QString& error) {
            if (!self || !self->preview_ || self->preview_->pair.id != id)
                return;
            self->preview_->plan = std::move(plan);
            self->preview_->error = error;
            Q_EMIT self->previewChanged();
        });
}

void SyncViewModel::confirmPreview() {
    if (!preview_)
        return;
    const SyncPair pair = preview_->pair;
    closePreview();
    if (manager_.pair(pair.id) == nullptr)
        manager_.addSyncPair(pair);
    manager_.syncPair(pair.id, deviceManager_, confirm());
}

void SyncViewModel::closePreview() {
    stopPreview_.request_stop();
    preview_.reset();
    Q_EMIT previewChanged();
}

} // namespace tessary
