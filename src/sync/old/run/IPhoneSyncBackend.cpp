#include "sync/old/run/IPhoneSyncBackend.h"

#include "base/local/PartFile.h"
#include "base/text/PathNames.h"
#include "base/threads/CallbackGate.h"
#include "base/values/TessaryError.h"
#include "sync/old/plan/SyncTreeWalk.h"

namespace tessary {

IPhoneSyncBackend::IPhoneSyncBackend(std::unique_ptr<AFCClient> client, const QString& udid,
                                     std::stop_token stop)
    : busy_(BusyPhones::shared(), udid), client_(std::move(client)), stop_(std::move(stop)) {}

// Pairs have paths below the app's working folder, the client those of the container.

std::vector<FileItem> IPhoneSyncBackend::list(const QString& remotePath,
                                              std::vector<SkippedItem>& skipped) {
    return client_->listContents(client_->inContainer(remotePath), stop_,
                                 AFCClient::EntryFacts::required, &skipped);
}

std::optional<FileItem> IPhoneSyncBackend::entryAt(const QString& remotePath) {
    return client_->findItem(client_->inContainer(remotePath), stop_);
}

bool IPhoneSyncBackend::isAlwaysThere(const QString& remotePath) const {
    return remotePath == QLatin1StringView("/");
}

void IPhoneSyncBackend::makeFolder(const QString& remotePath) {
    client_->createDirectory(client_->inContainer(remotePath), stop_);
}

void IPhoneSyncBackend::remove(const FileItem&, const QString& remotePath) {
    client_->removeEntry(client_->inContainer(remotePath), stop_);
}

void IPhoneSyncBackend::fetch(const FileItem& item, const QString& remotePath,
                              const QString& localFile, const FileProgressCallback& progress) {
    const CallbackGate gate(progress);
    client_->downloadFile(client_->inContainer(remotePath), localFile, item.size, gate.entrance(),
                          stop_);
}

std::optional<QByteArray> IPhoneSyncBackend::sample(const QString& remotePath) {
    return client_->readSampleBytes(client_->inContainer(remotePath), syncSampleSize, stop_);
}

std::optional<SyncFileEntry> IPhoneSyncBackend::uploadFile(const QString& localFile,
                                                           const QString& remotePath,
                                                           bool mayReplace,
                                                           const FileProgressCallback& progress) {
    const QString folder = parentPath(remotePath);
    ensureFolder(folder);
    const QString temporary = client_->inContainer(joinPath(folder, PartFile::newName()));
    {
        const CallbackGate gate(progress);
        client_->uploadFile(localFile, temporary, gate.entrance(), stop_);
    }
    const auto existing = entryAt(remotePath);
    if (existing && (existing->isDirectory || !mayReplace)) {
        client_->removePath(temporary, stop_);
        throw TessaryError::fileIOError(
            QStringLiteral("%1 has appeared on the device meanwhile.").arg(remotePath));
    }
    client_->renamePath(temporary, client_->inContainer(remotePath), stop_);
    return std::nullopt; // the listing at the end has the date that was set
}

SyncNameRules IPhoneSyncBackend::nameRules() const {
    SyncNameRules rules;
    rules.ignoresUnicodeForm = true;
    rules.refusal = [](QStringView name) {
        constexpr qsizetype longestBytes = 255;
        return name.toUtf8().size() > longestBytes
                   ? QStringLiteral("its name is too long for the device")
                   : QString();
    };
    return rules;
}

} // namespace tessary
