#include "adb/files/ADBFileBackend.h"

#include "adb/files/ADBPaths.h"
#include "adb/files/ADBTransfer.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"
#include "phone/PhoneNames.h"

#include <algorithm>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto listingLimit = 60s;
constexpr auto editLimit = 10min; // a folder of many files is deleted one by one

constexpr QByteArrayView endMarker("tessary-end-of-listing");

QString listingCommand(const QString& folder) {
    return QStringLiteral("ls -la ") + phoneShellQuoted(folder + QLatin1Char('/'));
}

/// Throws when what a listing printed tells that there is no such folder to read.
void requireListable(const ProcessResult& result, const QString& folder) {
    const QByteArray text = result.standardError + result.standardOutput;
    const QByteArray sign = "ls: " + folder.toUtf8() + "/: ";
    if (!text.contains(sign))
        return;
    if (text.contains(sign + "No such file"))
        throwNotOnPhone(folder);
    if (text.contains(sign + "Not a directory"))
        throw TessaryError::fileIOError(QStringLiteral("%1 is not a folder.").arg(folder));
    throw TessaryError::fileIOError(
        QStringLiteral("The phone does not allow %1 to be read.").arg(folder));
}

/// What lies below a folder, for the totals of a copy. What cannot be read counts nothing.
void addTotals(const ADBFileBackend& backend, const QString& folder, const DeviceInfo& device,
               const std::stop_token& stop, int depth, ADBTreeTotals& totals) {
    constexpr int maxDepth = 64;
    std::vector<QString> folders;
    try {
        for (const FileItem& item : backend.listDirectory(folder, device, stop)) {
            if (item.isDirectory && isSafeName(item.name)) {
                folders.push_back(item.path);
            } else if (!item.isDirectory) {
                ++totals.files;
                totals.bytes = addByteCounts(totals.bytes, item.size);
            }
        }
    } catch (const TessaryError&) {
        return;
    }
    for (const QString& child : folders)
        if (depth < maxDepth)
            addTotals(backend, child, device, stop, depth + 1, totals);
}

/// The same in one command, which older phones may not know: then folder by folder. A tree that
/// takes too long to count is copied without knowing how much is to come.
ADBTreeTotals totalsOf(const ADBFileBackend& backend, const ADBShell& shell,
                       const QString& folder) {
    ADBTreeTotals totals;
    const ProcessResult found = shell.tool().run(shell.tool().request(
        shell.device(),
        {QStringLiteral("shell"), QStringLiteral("find ") +
                                      phoneShellQuoted(folder + QLatin1Char('/')) +
                                      QStringLiteral(" -type f -exec stat -c '%s' '{}' +")},
        listingLimit, shell.stopToken()));
    if (found.outcome == ProcessResult::Outcome::timedOut)
        return totals;
    if (isADBConnectionFailure(found))
        throw TessaryError::fileIOError(adbFailure(found));
    for (const QByteArray& line : found.standardOutput.split('\n')) {
        bool isNumber = false;
        const qint64 size = line.trimmed().toLongLong(&isNumber);
        if (!isNumber || size < 0)
            continue;
        ++totals.files;
        totals.bytes = addByteCounts(totals.bytes, size);
    }
    if (totals.files == 0 && !(found.succeeded() && found.standardError.isEmpty()))
        addTotals(backend, folder, shell.device(), shell.stopToken(), 0, totals);
    return totals;
}

void requireAbsent(const std::optional<ADBFileFacts>& facts, const QString& name) {
    if (facts)
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" is already on the phone.").arg(name));
}

/// Renames or moves; `newPath` is free.
void move(const ADBShell& shell, const QString& oldPath, const QString& newPath) {
    const auto before = shell.stat({oldPath, newPath});
    if (!before[0])
        throwNotOnPhone(oldPath);
    // On a storage that ignores case, another spelling of the name is the item itself.
    const bool isItself = before[1] && before[1]->identity == before[0]->identity;
    if (!isItself)
        requireAbsent(before[1], lastComponent(newPath));
    const ProcessResult result = shell.run(QStringLiteral("mv ") + phoneShellQuoted(oldPath) +
                                               QLatin1Char(' ') + phoneShellQuoted(newPath),
                                           editLimit);
    const auto after = shell.stat({oldPath, newPath});
    if (!after[1] || (!isItself && after[0])) {
        const QString reason = adbFailure(result);
        throw TessaryError::fileIOError(
            QStringLiteral("The phone did not rename %1. %2").arg(oldPath, reason).trimmed());
    }
}

void notice(const QString& text) {
    DiagnosticsLogger::shared().adb.standard("Storage stats fetch notice: %s", {text});
}

} // namespace

std::vector<FileItem> ADBFileBackend::listDirectory(const QString& path, const DeviceInfo& device,
                                                    const std::stop_token& stop) const {
    const QString folder = androidPath(path);
    const ProcessResult result = tool_.run(tool_.request(
        device, {QStringLiteral("shell"), listingCommand(folder)}, listingLimit, stop));
    if (result.outcome == ProcessResult::Outcome::notStarted) {
        DiagnosticsLogger::shared().adb.error("Failed to execute adb shell ls: %s",
                                              {adbFailure(result)});
        return {};
    }
    std::vector<FileItem> items = parseLsOutput(result.standardOutput, folder);
    if (!items.empty())
        return items;
    requireListable(result, folder);
    if (isADBConnectionFailure(result))
        throw TessaryError::fileIOError(adbFailure(result));
    // Even an empty folder prints a line; nothing at all is a link that died.
    if (!result.standardOutput.contains("total"))
        throw TessaryError::fileIOError(
            result.standardOutput.trimmed().isEmpty()
                ? QStringLiteral("The connection to the phone broke off.")
                : QStringLiteral("adb answers nonsense."));
    return items;
}

CheckedListing ADBFileBackend::listChecked(const QString& path, const DeviceInfo& device,
                                           const std::stop_token& stop) const {
    const QString folder = androidPath(path);
    const ProcessResult result = ADBShell(tool_, device, stop)
                                     .run(listingCommand(folder) + QStringLiteral(" && echo ") +
                                              QString::fromLatin1(endMarker),
                                          listingLimit);
    if (auto listing = parseCheckedLsOutput(result.standardOutput, folder, endMarker);
        listing && result.standardError.trimmed().isEmpty() && result.succeeded())
        return *std::move(listing);
    requireListable(result, folder);
    throw TessaryError::fileIOError(
        QStringLiteral("The folder %1 cannot be read whole.").arg(folder));
}

std::optional<FileItem> ADBFileBackend::entryAt(const QString& path, const DeviceInfo& device,
                                                const std::stop_token& stop) const {
    const QString clean = androidPath(path);
    const auto facts = ADBShell(tool_, device, stop).stat({clean, clean + QLatin1Char('/')});
    if (!facts[0])
        return std::nullopt;
    const bool isFolder = facts[1] && facts[1]->isFolder();
    const bool isRoot = clean == androidPath({});
    return FileItem(isRoot ? QStringLiteral("Internal Storage") : lastComponent(clean), clean,
                    isFolder, isFolder ? 0 : facts[0]->size, facts[0]->modified);
}

FileItem ADBFileBackend::itemAt(const QString& path, const DeviceInfo& device,
                                const std::stop_token& stop) const {
    auto item = entryAt(path, device, stop);
    if (!item)
        throwNotOnPhone(androidPath(path));
    return *std::move(item);
}

QByteArray ADBFileBackend::readSample(const QString& path, qint64 maxBytes,
                                      const DeviceInfo& device, const std::stop_token& stop) const {
    const ProcessResult result =
        ADBShell(tool_, device, stop)
            .run(QStringLiteral("head -c %1 ").arg(maxBytes) + phoneShellQuoted(androidPath(path)));
    if (!result.succeeded())
        throw TessaryError::fileIOError(adbFailure(result));
    return result.standardOutput.left(maxBytes);
}

void ADBFileBackend::downloadFile(const FileItem& item, const QString& localFile,
                                  const DeviceInfo& device, const FileProgressCallback& progress,
                                  const std::stop_token& stop) {
    const QString path = requireItemPath(item);
    const BusyPhones::Mark busy(copies_, device.udid);
    pullFile(ADBShell(tool_, device, stop), path, item.size, localFile, progress);
}

TransferOutcome ADBFileBackend::downloadDirectory(const FileItem& item, const QString& localFolder,
                                                  const DeviceInfo& device,
                                                  const TransferProgressCallback& progress,
                                                  const std::stop_token& stop) {
    const QString path = androidPath(item.path);
    const BusyPhones::Mark busy(copies_, device.udid);
    const ADBShell shell(tool_, device, stop);
    shell.requireFolder(path);
    return pullFolder(shell, path, totalsOf(*this, shell, path), localFolder, progress);
}

void ADBFileBackend::uploadFile(const LocalSource& source, const QString& remoteParentPath,
                                const DeviceInfo& device, const FileProgressCallback& progress,
                                const std::stop_token& stop, bool mayReplace) {
    const BusyPhones::Mark busy(copies_, device.udid);
    const ADBShell shell(tool_, device, stop);
    const QString folder = androidPath(remoteParentPath);
    if (!mayReplace)
        requireAbsent(shell.stat(joinPath(folder, source.name)), source.name);
    pushFile(shell, source, folder, progress);
}

TransferOutcome ADBFileBackend::uploadDirectory(const LocalSource& source,
                                                const QString& remoteParentPath,
                                                const DeviceInfo& device,
                                                const TransferProgressCallback& progress,
                                                const std::stop_token& stop) {
    const BusyPhones::Mark busy(copies_, device.udid);
    return pushFolder(ADBShell(tool_, device, stop), source, androidPath(remoteParentPath),
                      progress);
}

void ADBFileBackend::createFolder(const QString& name, const QString& parentPath,
                                  const DeviceInfo& device, const std::stop_token& stop) const {
    requireNameForADB(name);
    const ADBShell shell(tool_, device, stop);
    const QString parent = androidPath(parentPath);
    const QString path = joinPath(parent, name);
    shell.requireFolder(parent);
    requireAbsent(shell.stat(path), name);
    const ProcessResult result = shell.run(QStringLiteral("mkdir -p ") + phoneShellQuoted(path));
    if (!shell.stat(path))
        throw TessaryError::fileIOError(QStringLiteral("The phone did not make the folder %1. %2")
                                            .arg(path, adbFailure(result))
                                            .trimmed());
}

void ADBFileBackend::deleteFile(const FileItem& item, const DeviceInfo& device,
                                const std::stop_token& stop) const {
    const QString path = requireItemPath(item);
    const ADBShell shell(tool_, device, stop);
    const auto facts = shell.stat(path);
    // A link counts as a folder in listings; only the link itself is deleted.
    if (!facts || (!facts->isLink() && facts->isFolder() != item.isDirectory))
        throwNotOnPhone(path);
    const QString command =
        facts->isFolder() ? QStringLiteral("rm -rf ") : QStringLiteral("rm -f ");
    const ProcessResult result = shell.run(command + phoneShellQuoted(path), editLimit);
    if (shell.stat(path))
        throw TessaryError::fileIOError(QStringLiteral("The phone did not delete %1. %2")
                                            .arg(path, adbFailure(result))
                                            .trimmed());
}

void ADBFileBackend::deleteEmptyFolder(const FileItem& item, const DeviceInfo& device,
                                       const std::stop_token& stop) const {
    const QString path = requireItemPath(item);
    const ProcessResult result =
        ADBShell(tool_, device, stop).run(QStringLiteral("rmdir ") + phoneShellQuoted(path));
    if (!result.succeeded())
        throw TessaryError::fileIOError(QStringLiteral("The phone did not delete %1. %2")
                                            .arg(path, adbFailure(result))
                                            .trimmed());
}

void ADBFileBackend::renameItem(const FileItem& item, const QString& newName,
                                const DeviceInfo& device, const std::stop_token& stop) const {
    requireNameForADB(newName);
    const QString path = requireItemPath(item);
    if (newName != item.name)
        move(ADBShell(tool_, device, stop), path, joinPath(parentPath(path), newName));
}

void ADBFileBackend::moveItem(const FileItem& item, const QString& newParentPath,
                              const DeviceInfo& device, const std::stop_token& stop) const {
    const QString path = requireItemPath(item);
    const QString parent = androidPath(newParentPath);
    if (parent == path || parent.startsWith(path + QLatin1Char('/')))
        throw TessaryError::fileIOError(QStringLiteral("A folder cannot be moved into itself."));
    const ADBShell shell(tool_, device, stop);
    shell.requireFolder(parent);
    move(shell, path, joinPath(parent, item.name));
}

std::optional<LiveDeviceInfo> ADBFileBackend::fetchLiveDeviceInfo(const DeviceInfo& device) const {
    if (copies_.isBusy(device.udid))
        return std::nullopt;
    LiveDeviceInfo info;
    try {
        const auto ask = [&](const QStringList& words) {
            const ProcessResult result = tool_.run(tool_.request(
                device, QStringList(QStringLiteral("shell")) + words, ADBTool::shortLimit, {}));
            if (const QString reason = adbFailure(result); !reason.isEmpty())
                notice(reason);
            return result.standardOutput;
        };
        info.battery =
            parseBatteryLevel(ask({QStringLiteral("dumpsys"), QStringLiteral("battery")}));
        info.volumes = parseDiskFree(
            ask({QStringLiteral("df"), QStringLiteral("-k"), QStringLiteral("/sdcard")}));
    } catch (const std::exception& error) {
        notice(QString::fromUtf8(error.what()));
    }
    return info;
}

std::optional<int> parseBatteryLevel(const QByteArray& output) {
    constexpr int full = 100;
    const QByteArray sign = "level:";
    for (const QByteArray& line : output.split('\n')) {
        if (!line.trimmed().startsWith(sign))
            continue;
        bool isNumber = false;
        const int level = line.trimmed().mid(sign.size()).trimmed().toInt(&isNumber);
        return isNumber && level >= 0 && level <= full ? std::optional(level) : std::nullopt;
    }
    return std::nullopt;
}

std::vector<StorageVolume> parseDiskFree(const QByteArray& output) {
    constexpr std::uint64_t unit = 1024;
    constexpr std::uint64_t limit = std::uint64_t{1} << 53; // in units: below the signed range
    // A long name of a file system may stand on a line of its own.
    QList<QByteArray> fields;
    for (const QByteArray& line : output.split('\n'))
        if (!line.startsWith("Filesystem"))
            fields += line.simplified().split(' ');
    fields.removeAll(QByteArray());
    for (qsizetype n = 1; n + 3 < fields.size(); ++n) {
        bool isTotal = false;
        bool isUsed = false;
        bool isFree = false;
        const std::uint64_t total = fields[n].toULongLong(&isTotal);
        (void)fields[n + 1].toULongLong(&isUsed);
        const std::uint64_t free = fields[n + 2].toULongLong(&isFree);
        if (!isTotal || !isUsed || !isFree || total >= limit || free >= limit)
            continue;
        const QByteArray mount = fields.value(n + 4);
        const bool isEmulated = mount.contains("emulated") || fields[n - 1].contains("fuse") ||
                                mount == "/sdcard" || mount.isEmpty();
        return {StorageVolume{
            isEmulated ? QStringLiteral("internal") : lastComponent(QString::fromUtf8(mount)),
            QStringLiteral("Internal Storage"), total * unit, free * unit, false}};
    }
    return {};
}

} // namespace tessary
