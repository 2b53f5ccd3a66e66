#include "sync/manager/SyncViewModel.h"

#include "base/text/PathNames.h"
#include "devices/list/DeviceManager.h"

#include <QPointer>

namespace tessary {

namespace {

/// A name from a phone as one of a folder here.
QString folderName(QString name) {
    name.replace(u'/', u'-');
    name.remove(QChar::Null);
    name = name.trimmed();
    return isSafeName(name) && !isTooLongName(name) ? name : QString();
}

} // namespace

SyncViewModel::SyncViewModel(SyncManager& manager, DeviceManager& deviceManager, QObject* parent)
    : QObject(parent), manager_(manager), deviceManager_(deviceManager) {
    // A run that ended, cancelled or not, needs no answer any more.
    connect(&manager, &SyncManager::syncPairChanged, this, [this](const QUuid& id) {
        const SyncPair* pair = manager_.pair(id);
        if (question_ && id == askedBy_ &&
            (pair == nullptr || pair->status.kind != SyncStatus::Kind::syncing))
            dropQuestion();
    });
    connect(&manager, &SyncManager::runEnded, this, &SyncViewModel::noteTrouble);
    connect(&manager, &SyncManager::syncPairsChanged, this, [this] {
        if (troubledPair_ && manager_.pair(*troubledPair_) == nullptr)
            dismissTrouble();
    });
    connect(&deviceManager, &DeviceManager::devicesChanged, this,
            &SyncViewModel::runPairsOfNewDevices);
    runPairsOfNewDevices();
}

SyncViewModel::~SyncViewModel() {
    stopPreview_.request_stop();
    if (completion_)
        completion_(SyncAnswer::stop());
}

std::optional<SyncPair> SyncViewModel::draft(const QString& documents) const {
    const auto& [device, app, remotePath] = browsed_;
    const bool isAndroid = device && device->platform == DevicePlatform::android;
    if (!device || (!isAndroid && !app))
        return std::nullopt;
    SyncPair pair;
    pair.deviceUDID = device->udid;
    pair.deviceName = device->deviceName.value_or(device->udid);
    pair.appBundleID = isAndroid ? QString(SyncPair::deviceStorage) : app->bundleIdentifier;
    pair.appName = isAndroid ? QStringLiteral("Internal Storage") : app->displayName;
    pair.remoteFolderPath = remotePath;
    pair.localFolderPath = documents;
    const QString top = lastComponent(pair.remoteFolderPath);
    for (const QString& name : {pair.deviceName, top.isEmpty() ? pair.appName : top})
        if (const QString folder = folderName(name); !folder.isEmpty())
            pair.localFolderPath = joinPath(pair.localFolderPath, folder);
    return pair;
}

SyncManager::OnQuestion SyncViewModel::ask() {
    return [self = QPointer<SyncViewModel>(this)](const SyncQuestion& question,
                                                  std::function<void(SyncAnswer)> completion) {
        if (!self) {
            completion(SyncAnswer::stop());
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

void SyncViewModel::answer(const SyncAnswer& answer) {
    if (!question_)
        return;
    const auto completion = std::move(completion_);
    dropQuestion();
    completion(answer);
}

void SyncViewModel::run(const QUuid& id) {
    const SyncPair* pair = manager_.pair(id);
    if (pair == nullptr)
        return;
    byItself_.remove(id);
    if (pair->lastSyncedAt)
        manager_.syncPair(id, deviceManager_, ask());
    else
        requestPreview(*pair);
}

void SyncViewModel::runAll() {
    std::vector<QUuid> ids;
    for (const SyncPair& pair : manager_.syncPairs())
        if (pair.lastSyncedAt)
            ids.push_back(pair.id);
    for (const QUuid& id : ids)
        run(id);
}

/// A pair that is to run by itself does so each time that its phone has come and can be read. What
/// was never synced is looked at by somebody first.
void SyncViewModel::runPairsOfNewDevices() {
    QSet<QString> ready;
    for (const DeviceInfo& device : deviceManager_.devices())
        if (device.isDataAccessible())
            ready.insert(device.udid);
    const QSet<QString> come = ready - std::exchange(ready_, ready);
    std::vector<QUuid> ids;
    for (const SyncPair& pair : manager_.syncPairs())
        if (pair.runsWhenPluggedIn && pair.lastSyncedAt && come.contains(pair.deviceUDID) &&
            !manager_.isRunningOrWaiting(pair.id))
            ids.push_back(pair.id);
    for (const QUuid& id : ids) {
        byItself_.insert(id);
        manager_.syncPair(id, deviceManager_, ask());
    }
}

void SyncViewModel::noteTrouble(const QUuid& id) {
    const SyncReport* report = manager_.lastReport(id);
    if (report == nullptr || manager_.pair(id) == nullptr)
        return;
    const bool isTrouble =
        report->outcome == SyncReport::Outcome::failed ||
        (report->outcome != SyncReport::Outcome::cancelled && !report->skipped.empty());
    if (isTrouble) {
        troubledPair_ = id;
        Q_EMIT troubleChanged();
    } else if (troubledPair_ == id) {
        dismissTrouble();
    }
}

void SyncViewModel::dismissTrouble() {
    if (!std::exchange(troubledPair_, std::nullopt))
        return;
    Q_EMIT troubleChanged();
}

void SyncViewModel::requestPreview(const SyncPair& pair) {
    stopPreview_.request_stop();
    preview_ = Preview{pair, {}, {}};
    Q_EMIT previewChanged();
    const QPointer<SyncViewModel> self(this);
    stopPreview_ = manager_.preview(
        pair, deviceManager_,
        [self, id = pair.id](std::optional<SyncPreview> plan, const std::optional<Error>& error) {
            if (!self || !self->preview_ || self->preview_->pair.id != id)
                return;
            self->preview_->plan = std::move(plan);
            self->preview_->error = error;
            Q_EMIT self->previewChanged();
        });
}

void SyncViewModel::confirmPreview(const SyncDecisions& decisions) {
    if (!preview_)
        return;
    const SyncPair pair = preview_->pair;
    closePreview();
    if (manager_.pair(pair.id) == nullptr)
        manager_.addSyncPair(pair);
    else
        manager_.updateSyncPair(pair);
    byItself_.remove(pair.id);
    manager_.syncPair(pair.id, deviceManager_, ask(), decisions);
}

void SyncViewModel::closePreview() {
    stopPreview_.request_stop();
    preview_.reset();
    Q_EMIT previewChanged();
}

} // namespace tessary
