#include "sync/old/run/AndroidSyncBackend.h"

#include "base/text/ByteCount.h"
#include "phone/DevicePath.h"
#include "sync/old/plan/SyncTreeWalk.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

/// There on every phone, and never to be made.
constexpr std::array storageRoots{
    QLatin1StringView("/"), QLatin1StringView("/sdcard"), QLatin1StringView("/storage"),
    QLatin1StringView("/storage/emulated"), QLatin1StringView("/storage/emulated/0")};

} // namespace

AndroidSyncBackend::AndroidSyncBackend(DeviceFileService& service, DeviceInfo device,
                                       std::stop_token stop)
    : service_(service), device_(std::move(device)), stop_(std::move(stop)) {}

std::shared_ptr<void> AndroidSyncBackend::holdConnection() {
    return service_.hold(device_);
}

std::vector<FileItem> AndroidSyncBackend::list(const QString& remotePath,
                                               std::vector<SkippedItem>& skipped) {
    return service_.listDirectoryChecked(remotePath, device_, stop_, &skipped);
}

std::optional<FileItem> AndroidSyncBackend::entryAt(const QString& remotePath) {
    return service_.entryAt(remotePath, device_, stop_);
}

bool AndroidSyncBackend::isAlwaysThere(const QString& remotePath) const {
    return std::find(storageRoots.begin(), storageRoots.end(), remotePath) != storageRoots.end();
}

void AndroidSyncBackend::makeFolder(const QString& remotePath) {
    service_.createFolder(lastComponent(remotePath), parentPath(remotePath), device_, stop_);
}

void AndroidSyncBackend::remove(const FileItem& item, const QString&) {
    if (item.isDirectory)
        service_.deleteEmptyFolder(item, device_, stop_);
    else
        service_.deleteFile(item, device_, stop_);
}

void AndroidSyncBackend::fetch(const FileItem& item, const QString&, const QString& localFile,
                               const FileProgressCallback& progress) {
    service_.downloadFile(item, localFile, device_, progress, stop_);
}

std::optional<QByteArray> AndroidSyncBackend::sample(const QString& remotePath) {
    if (!service_.usesADB(device_))
        return std::nullopt;
    return service_.readSampleBytes(remotePath, syncSampleSize, device_, stop_);
}

std::optional<SyncFileEntry> AndroidSyncBackend::uploadFile(const QString& localFile,
                                                            const QString& remotePath,
                                                            bool mayReplace,
                                                            const FileProgressCallback& progress) {
    const QString parent = parentPath(remotePath);
    ensureFolder(parent);
    service_.uploadFile(localFile, parent, device_, mayReplace, uploads_, progress, stop_);
    const auto& sent = uploads_.lastSent();
    if (!sent)
        return std::nullopt;
    return SyncFileEntry{
        clampedByteCount(sent->effectiveSize()), syncDate(sent->dateModified), {}, {}};
}

SyncNameRules AndroidSyncBackend::nameRules() const {
    SyncNameRules rules;
    rules.ignoresCase = true;
    rules.ignoresUnicodeForm = true;
    rules.refusal = [](QStringView name) -> QString {
        constexpr QStringView refused(u"\"*:<>?\\|");
        constexpr qsizetype longestUnits = 254;
        constexpr qsizetype longestBytes = 255;
        for (const QChar unit : name)
            if (refused.contains(unit) || unit < u' ')
                return QStringLiteral("phones do not allow a sign in its name");
        if (name.size() > longestUnits || name.toUtf8().size() > longestBytes)
            return QStringLiteral("its name is too long for the phone");
        return {};
    };
    return rules;
}

} // namespace tessary
