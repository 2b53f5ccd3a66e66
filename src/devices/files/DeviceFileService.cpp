#include "devices/files/DeviceFileService.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/threads/ThreadName.h"
#include "base/values/TessaryError.h"
#include "mtp/client/MTPInterfaceConnection.h"
#include "phone/DevicePath.h"
#include "platform/process/QtProcessRunner.h"
#include "platform/usb/SystemUSBBus.h"
#include "transfer/OldCopies.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto processLimit = 5s;
constexpr auto stagingPatience = 2s;

const DeviceInfo& require(const std::optional<DeviceInfo>& device) {
    if (!device)
        throw TessaryError::deviceNotFound(QStringLiteral("no phone was chosen"));
    return *device;
}

QString usrBin(QLatin1StringView program) {
    return QStringLiteral("/usr/bin") + program;
}

/// A folder that only this user can read: other users of a shared temporary directory must not
/// see, or plant, what is dragged out of a phone.
QString makeStagingDirectory() {
    const QString wanted = QDir::tempPath() + QStringLiteral("/TessaryAndroidStaging");
    constexpr auto ownerOnly =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    QDir().mkpath(wanted);
    if (QFileInfo(wanted).isDir() && !QFileInfo(wanted).isSymLink() &&
        QFile::setPermissions(wanted, ownerOnly))
        return wanted;
    const QString own = QDir::homePath() + QStringLiteral("/.cache/TessaryAndroidStaging");
    QDir().mkpath(own);
    return own;
}

} // namespace

DeviceFileService& DeviceFileService::shared() {
    static USBBus& bus = *makeSystemUSBBus().release();
    static ProcessRunner& processes = *new QtProcessRunner;
    static DeviceFileService& service = *new DeviceFileService(bus, processes);
    return service;
}

DeviceFileService::DeviceFileService(USBBus& bus, ProcessRunner& processes,
                                     std::optional<QStringList> adbPaths)
    : bus_(bus),
      processes_(processes),
      mtp_(bus),
      adbTool_(processes, std::move(adbPaths)),
      adb_(adbTool_),
      stagingDirectory_(makeStagingDirectory()) {
    stagingThreads_.emplace_back([folder = stagingDirectory_] {
        nameCurrentThread("tessary-staging");
        removeOldCopies(folder);
    });
}

bool DeviceFileService::usesADB(const DeviceInfo& device) const {
    return device.protocolMode == ProtocolMode::adbTurbo && adbTool_.find();
}

template <typename Work>
auto DeviceFileService::onBackend(const DeviceInfo& device, Work work) {
    return usesADB(device) ? work(adb_) : work(mtp_);
}

DeviceFileService::~DeviceFileService() {
    stopStaging_.request_stop();
}

std::vector<FileItem> DeviceFileService::listDirectory(const QString& at,
                                                       const std::optional<DeviceInfo>& device,
                                                       const std::stop_token& stop) {
    if (!device)
        return {};
    return onBackend(*device,
                     [&](auto& backend) { return backend.listDirectory(at, *device, stop); });
}

QByteArray DeviceFileService::readSampleBytes(const QString& path, qint64 maxBytes,
                                              const DeviceInfo& device,
                                              const std::stop_token& stop) {
    return adb_.readSample(path, maxBytes, device, stop);
}

std::vector<FileItem> DeviceFileService::listDirectoryChecked(const QString& at,
                                                              const DeviceInfo& device,
                                                              const std::stop_token& stop,
                                                              std::vector<SkippedItem>* skipped) {
    if (!usesADB(device))
        return mtp_.listDirectory(at, device, stop, ListingRule::checked);
    CheckedListing listing = adb_.listChecked(at, device, stop);
    if (skipped != nullptr)
        *skipped = std::move(listing.skipped);
    return std::move(listing.items);
}

std::optional<FileItem> DeviceFileService::entryAt(const QString& path, const DeviceInfo& device,
                                                   const std::stop_token& stop) {
    return onBackend(device, [&](auto& backend) { return backend.entryAt(path, device, stop); });
}

std::shared_ptr<void> DeviceFileService::hold(const DeviceInfo& device) {
    return usesADB(device) ? nullptr : mtp_.hold(device); // adb keeps its own connection
}

FileItem DeviceFileService::itemAt(const QString& path, const std::optional<DeviceInfo>& device,
                                   const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    return onBackend(chosen, [&](auto& backend) { return backend.itemAt(path, chosen, stop); });
}

void DeviceFileService::downloadFile(const FileItem& item, const QString& to,
                                     const std::optional<DeviceInfo>& device,
                                     const FileProgressCallback& progress,
                                     const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    onBackend(chosen,
              [&](auto& backend) { backend.downloadFile(item, to, chosen, progress, stop); });
}

TransferOutcome DeviceFileService::downloadDirectory(const FileItem& item, const QString& to,
                                                     const std::optional<DeviceInfo>& device,
                                                     const TransferProgressCallback& progress,
                                                     const std::stop_token& stop) {
    if (!isSafeName(item.name))
        throw TessaryError::fileIOError(
            QStringLiteral("The name \"%1\" cannot be used on this computer. Rename the folder on "
                           "the phone first.")
                .arg(item.name));
    return downloadDirectoryContents(item, joinPath(to, item.name), device, progress, stop);
}

TransferOutcome DeviceFileService::downloadDirectoryContents(
    const FileItem& item, const QString& localFolder, const std::optional<DeviceInfo>& device,
    const TransferProgressCallback& progress, const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    return onBackend(chosen, [&](auto& backend) {
        return backend.downloadDirectory(item, localFolder, chosen, progress, stop);
    });
}

void DeviceFileService::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                                   const std::optional<DeviceInfo>& device,
                                   const FileProgressCallback& progress,
                                   const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    onBackend(chosen, [&](auto& backend) {
        backend.uploadFile(source, remoteParentPath, chosen, progress, stop);
    });
}

void DeviceFileService::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                                   const DeviceInfo& device, bool mayReplace,
                                   MTPUploadMemory& memory, const FileProgressCallback& progress,
                                   const std::stop_token& stop) {
    if (usesADB(device))
        adb_.uploadFile(source, remoteParentPath, device, progress, stop, mayReplace);
    else
        mtp_.uploadFile(source, remoteParentPath, device, mayReplace, memory, progress, stop);
}

TransferOutcome DeviceFileService::uploadDirectory(const LocalSource& source,
                                                   const QString& remoteParentPath,
                                                   const std::optional<DeviceInfo>& device,
                                                   const TransferProgressCallback& progress,
                                                   const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    return onBackend(chosen, [&](auto& backend) {
        return backend.uploadDirectory(source, remoteParentPath, chosen, progress, stop);
    });
}

void DeviceFileService::createFolder(const QString& name, const QString& parentPath,
                                     const std::optional<DeviceInfo>& device,
                                     const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    onBackend(chosen, [&](auto& backend) { backend.createFolder(name, parentPath, chosen, stop); });
}

void DeviceFileService::deleteFile(const FileItem& item, const std::optional<DeviceInfo>& device,
                                   const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    onBackend(chosen, [&](auto& backend) { backend.deleteFile(item, chosen, stop); });
}

void DeviceFileService::deleteEmptyFolder(const FileItem& item, const DeviceInfo& device,
                                          const std::stop_token& stop) {
    onBackend(device, [&](auto& backend) { backend.deleteEmptyFolder(item, device, stop); });
}

void DeviceFileService::renameItem(const FileItem& item, const QString& newName,
                                   const std::optional<DeviceInfo>& device,
                                   const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    onBackend(chosen, [&](auto& backend) { backend.renameItem(item, newName, chosen, stop); });
}

void DeviceFileService::moveItem(const FileItem& item, const QString& newParentPath,
                                 const std::optional<DeviceInfo>& device,
                                 const std::stop_token& stop) {
    const DeviceInfo& chosen = require(device);
    onBackend(chosen, [&](auto& backend) { backend.moveItem(item, newParentPath, chosen, stop); });
}

std::optional<LiveDeviceInfo> DeviceFileService::fetchLiveDeviceInfo(const DeviceInfo& device) {
    return onBackend(device, [&](auto& backend) { return backend.fetchLiveDeviceInfo(device); });
}

QString DeviceFileService::stagingPath(const FileItem& item, const DeviceInfo& device) const {
    const QStringList identity{device.id(), device.usbLocation, item.id(),
                               QString::number(item.size),
                               item.modifiedDateOrEpoch().toString(Qt::ISODateWithMs)};
    const QByteArray key =
        QCryptographicHash::hash(identity.join(QChar::Null).toUtf8(), QCryptographicHash::Sha256)
            .toHex()
            .left(32);
    return joinPath(joinPath(stagingDirectory_, QString::fromLatin1(key)), item.name);
}

QString DeviceFileService::stageItemForDrag(const FileItem& item,
                                            const std::optional<DeviceInfo>& device,
                                            const std::stop_token& stop) {
    if (!isSafeName(item.name))
        throw TessaryError::fileIOError(
            QStringLiteral("The name \"%1\" cannot be used on this computer.").arg(item.name));
    const QString path = stagingPath(item, require(device));
    std::unique_lock lock(stagingMutex_);
    if (!staging_.contains(path)) {
        if (QFileInfo::exists(path))
            return path;
        constexpr qsizetype most = 4;
        const bool hasRoom =
            staged_.wait_for(lock, stagingPatience, [&] { return staging_.size() < most; });
        if (!hasRoom || staging_.contains(path))
            return path;
        // None is at work, so that none needs the lock to end.
        if (staging_.isEmpty())
            stagingThreads_.clear();
        staging_.insert(path);
        stagingThreads_.emplace_back([this, item, device, path, stop] {
            nameCurrentThread("tessary-staging");
            try {
                QDir().mkpath(parentPath(path));
                const CombinedStopToken either(stopStaging_.get_token(), stop);
                downloadFile(item, path, device, {}, either.token());
            } catch (const CancellationError&) {
                // Nobody waits for the copy any more.
            } catch (const std::exception& error) {
                DiagnosticsLogger::shared().mtp.standard("MTP fetch notice: %s",
                                                         {QString::fromUtf8(error.what())});
            }
            const std::scoped_lock doneLock(stagingMutex_);
            staging_.remove(path);
            staged_.notify_all();
        });
    }
    staged_.wait_for(lock, stagingPatience, [&] { return !staging_.contains(path); });
    return path;
}

bool DeviceFileService::isConflictingAppRunning() {
    return processes_
        .run(usrBin(QLatin1StringView("/pgrep")),
             {QStringLiteral("-if"), QStringLiteral("Android File Transfer|OpenMTP")}, processLimit)
        .succeeded();
}

void DeviceFileService::killConflictingAgents() {
    const QString pkill = usrBin(QLatin1StringView("/pkill"));
    const QString hard = QStringLiteral("-9");
    const QString byCommandLine = QStringLiteral("-if");
    for (const QStringList& arguments :
         {QStringList{hard, byCommandLine, QStringLiteral("Android File Transfer")},
          QStringList{hard, byCommandLine, QStringLiteral("OpenMTP")},
          QStringList{hard, QStringLiteral("-x"), QStringLiteral("ptpcamerad")},
          // The Linux desktops' own: they are asked to end, which unmounts, and start again when
          // they are next needed.
          QStringList{QStringLiteral("-x"),
                      QStringLiteral("gvfsd-mtp|gvfsd-gphoto2|kiod[56]|(simple-|j|go-)?mtpfs")}})
        (void)processes_.run(pkill, arguments, processLimit);
    if (const auto adb = findADBBinary())
        (void)processes_.run(*adb, {QStringLiteral("kill-server")}, processLimit);
}

QStringList DeviceFileService::programsHolding(const DeviceInfo& device) {
    const auto entry = findMTPDevice(bus_, mtpAddressOf(device));
    return entry ? bus_.programsHolding(entry->id) : QStringList();
}

std::optional<QString> DeviceFileService::findADBBinary() const {
    return adbTool_.find();
}

bool DeviceFileService::isADBDeviceConnected(const std::optional<QString>& serial) {
    return adbTool_.isConnected(serial);
}

std::vector<ADBDevice> DeviceFileService::adbDevices() {
    return adbTool_.devices();
}

} // namespace tessary
