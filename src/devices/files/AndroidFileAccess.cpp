#include "devices/files/AndroidFileAccess.h"

#include "phone/DevicePath.h"

namespace tessary {

namespace {

const QString& mainRoot() {
    static const QString path = QStringLiteral("/sdcard");
    return path;
}

/// The "<id>" of a path below "/storage/<id>"; empty for the first storage. Takes what
/// storageRelativePath() gives.
QString storageIdOf(const QString& relative) {
    const QStringList components = relative.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (components.size() < 2 || components[0] != QLatin1StringView("storage"))
        return {};
    bool isNumber = false;
    components[1].toUInt(&isNumber);
    return isNumber ? components[1] : QString();
}

} // namespace

AndroidFileAccess::AndroidFileAccess(DeviceFileService& service, DeviceInfo device)
    : service_(service), device_(std::move(device)) {}

QString AndroidFileAccess::identity() const {
    return QStringLiteral("android:") + device_.udid;
}

QString AndroidFileAccess::deviceName() const {
    return device_.deviceName.value_or(device_.udid);
}

BrowserRoot AndroidFileAccess::rootOf(const QString& path) const {
    const QString id = storageIdOf(storageRelativePath(path));
    if (id.isEmpty())
        return {mainRoot(), QStringLiteral("Internal Storage")};
    QString name = QStringLiteral("Storage %1").arg(id);
    for (const StorageVolume& volume : device_.volumes)
        if (volume.id == id && !volume.name.isEmpty())
            name = volume.name;
    return {QStringLiteral("/storage/") + id, name};
}

QString AndroidFileAccess::canonicalPath(const QString& path) const {
    const QString relative = QLatin1Char('/') + storageRelativePath(path)
                                                    .split(QLatin1Char('/'), Qt::SkipEmptyParts)
                                                    .join(QLatin1Char('/'));
    if (relative.size() == 1)
        return mainRoot();
    return storageIdOf(relative).isEmpty() ? mainRoot() + relative : relative;
}

std::vector<FileItem> AndroidFileAccess::listDirectory(const QString& at,
                                                       const std::stop_token& stop) {
    return service_.listDirectory(at, device_, stop);
}

FileItem AndroidFileAccess::itemAt(const QString& path, const std::stop_token& stop) {
    return service_.itemAt(path, device_, stop);
}

void AndroidFileAccess::downloadFile(const FileItem& item, const QString& to,
                                     const FileProgressCallback& progress,
                                     const std::stop_token& stop) {
    service_.downloadFile(item, to, device_, progress, stop);
}

TransferOutcome
AndroidFileAccess::downloadDirectoryContents(const FileItem& item, const QString& localFolder,
                                             const TransferProgressCallback& progress,
                                             const std::stop_token& stop) {
    return service_.downloadDirectoryContents(item, localFolder, device_, progress, stop);
}

void AndroidFileAccess::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                                   const FileProgressCallback& progress,
                                   const std::stop_token& stop) {
    service_.uploadFile(source, remoteParentPath, device_, progress, stop);
}

TransferOutcome AndroidFileAccess::uploadDirectory(const LocalSource& source,
                                                   const QString& remoteParentPath,
                                                   const TransferProgressCallback& progress,
                                                   const std::stop_token& stop) {
    return service_.uploadDirectory(source, remoteParentPath, device_, progress, stop);
}

std::shared_ptr<void> AndroidFileAccess::hold() {
    return service_.hold(device_);
}

void AndroidFileAccess::createFolder(const QString& name, const QString& parentPath,
                                     const std::stop_token& stop) {
    service_.createFolder(name, parentPath, device_, stop);
}

void AndroidFileAccess::deleteItem(const FileItem& item, const std::stop_token& stop) {
    service_.deleteFile(item, device_, stop);
}

void AndroidFileAccess::renameItem(const FileItem& item, const QString& newName,
                                   const std::stop_token& stop) {
    service_.renameItem(item, newName, device_, stop);
}

void AndroidFileAccess::moveItem(const FileItem& item, const QString& newParentPath,
                                 const std::stop_token& stop) {
    service_.moveItem(item, newParentPath, device_, stop);
}

QString AndroidFileAccess::stageItemForDrag(const FileItem& item, const std::stop_token& stop) {
    return service_.stageItemForDrag(item, device_, stop);
}

QStringList AndroidFileAccess::programsHolding() {
    try {
        return service_.programsHolding(device_);
    } catch (const std::exception&) {
        return {}; // only a detail of another failure's text
    }
}

} // namespace tessary
