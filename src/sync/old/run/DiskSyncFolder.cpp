#include "sync/old/run/DiskSyncFolder.h"

#include "base/local/FileHandle.h"
#include "base/local/PartFile.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace tessary {

namespace {

namespace fs = std::filesystem;

constexpr qint64 pieceSize = 1 << 20;

fs::path diskPath(const QString& path) {
    return QFile(path).filesystemFileName();
}

TessaryError failure(const QString& what, const std::error_code& error) {
    return TessaryError::fileIOError(what + QStringLiteral(": ") +
                                     QString::fromLocal8Bit(error.message().c_str()));
}

QDateTime dateOf(fs::file_time_type time) {
    using namespace std::chrono;
    const auto since = file_clock::to_sys(time).time_since_epoch();
    return syncDate(QDateTime::fromMSecsSinceEpoch(floor<milliseconds>(since).count()));
}

/// The facts of a regular file; no value for anything else, links included.
std::optional<SyncFileEntry> entryAt(const QString& path) {
    const fs::path file = diskPath(path);
    std::error_code error;
    if (fs::symlink_status(file, error).type() != fs::file_type::regular)
        return std::nullopt;
    const auto size = fs::file_size(file, error);
    if (error)
        return std::nullopt;
    const auto time = fs::last_write_time(file, error);
    if (error)
        return std::nullopt;
    return SyncFileEntry{static_cast<qint64>(size), dateOf(time), {}, {}};
}

/// Calls `take(bytes)` for each piece of a file until it returns false.
template <typename Take>
void readPieces(const QString& path, const std::stop_token& stop, Take take) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot read %1: %2").arg(path, file.errorString()));
    while (true) {
        throwIfStopped(stop);
        const QByteArray piece = file.read(pieceSize);
        if (file.error() != QFileDevice::NoError)
            throw TessaryError::fileIOError(
                QStringLiteral("Cannot read %1: %2").arg(path, file.errorString()));
        if (!take(piece) || piece.isEmpty())
            return;
    }
}

void flushToDisk(const QString& path) {
    const FileHandle file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    // Some network disks have no such thing for folders.
    if (!file.isOpen() || (::fsync(file.get()) != 0 && errno != EINVAL && errno != ENOTSUP))
        throw failure(QStringLiteral("Cannot write %1").arg(path),
                      std::error_code(errno, std::generic_category()));
}

void logFailure(const char* what, const QString& reason) {
    DiagnosticsLogger::shared().transfer.error(what, {reason});
}

} // namespace

DiskSyncFolder::DiskSyncFolder(QString root) : root_(QDir::cleanPath(root)) {}

bool DiskSyncFolder::exists() {
    const QFileInfo info(root_);
    if (info.exists() && !info.isDir())
        throw TessaryError::fileIOError(QStringLiteral("%1 is not a folder.").arg(root_));
    return info.exists();
}

void DiskSyncFolder::create() {
    std::error_code error;
    fs::create_directories(diskPath(root_), error);
    if (error)
        throw failure(QStringLiteral("Cannot create the folder %1").arg(root_), error);
}

QString DiskSyncFolder::pathOf(const QString& relativePath) const {
    return root_ + QLatin1Char('/') + relativePath;
}

SyncScan DiskSyncFolder::scan(const std::stop_token& stop) {
    SyncScan result;
    scanFolder(result, {}, stop);
    return result;
}

void DiskSyncFolder::scanFolder(SyncScan& scan, const QString& relativeFolder,
                                const std::stop_token& stop) {
    const QString folder = relativeFolder.isEmpty() ? root_ : pathOf(relativeFolder);
    std::error_code error;
    fs::directory_iterator walk(diskPath(folder), error);
    for (; !error && walk != fs::directory_iterator(); walk.increment(error)) {
        throwIfStopped(stop);
        const std::string bytes = walk->path().filename().string();
        const QString name = QFile::decodeName(bytes.c_str());
        const QString path =
            relativeFolder.isEmpty() ? name : relativeFolder + QLatin1Char('/') + name;
        if (name == SyncManifest::fileName) {
            scan.hasManifest |= relativeFolder.isEmpty() && entryAt(pathOf(name)).has_value();
            continue;
        }
        if (QFile::encodeName(name) != QByteArray::fromStdString(bytes)) {
            scan.unusable[path] = QStringLiteral("its name is not valid text");
            continue;
        }
        const fs::file_type type = walk->symlink_status(error).type();
        if (error)
            break;
        if (type == fs::file_type::symlink) {
            scan.unusable[path] = QStringLiteral("it is a link; links are not followed");
        } else if (type == fs::file_type::directory) {
            scan.folders.insert(path);
            scanFolder(scan, path, stop);
        } else if (type != fs::file_type::regular) {
            scan.unusable[path] = QStringLiteral("it is not a regular file");
        } else if (name.startsWith(PartFile::namePrefix)) {
            scan.leftovers.emplace(path, QDateTime());
        } else if (!QFileInfo(pathOf(path)).isReadable()) {
            scan.unusable[path] = QStringLiteral("it cannot be read");
        } else if (auto entry = entryAt(pathOf(path))) {
            scan.files.insert_or_assign(path, *std::move(entry));
        } else {
            throw TessaryError::fileIOError(
                QStringLiteral("%1 changed while the folder was being read. Sync again.")
                    .arg(pathOf(path)));
        }
    }
    if (error)
        throw failure(QStringLiteral("Cannot read the folder %1").arg(folder), error);
}

/// Whether no folder above an entry is a link, which could lead anywhere.
bool DiskSyncFolder::isBelowRealFolders(const QString& relativePath) const {
    for (qsizetype end = relativePath.indexOf(u'/'); end >= 0;
         end = relativePath.indexOf(u'/', end + 1)) {
        std::error_code error;
        const auto type =
            fs::symlink_status(diskPath(pathOf(relativePath.left(end))), error).type();
        if (type != fs::file_type::directory)
            return false;
    }
    return true;
}

void DiskSyncFolder::requireRealFolders(const QString& relativePath) const {
    if (!isBelowRealFolders(relativePath))
        throw TessaryError::fileIOError(
            QStringLiteral("The folder of %1 was replaced while it was being synced.")
                .arg(pathOf(relativePath)));
}

std::optional<SyncFileEntry> DiskSyncFolder::stat(const QString& relativePath) {
    return isBelowRealFolders(relativePath) ? entryAt(pathOf(relativePath)) : std::nullopt;
}

QString DiskSyncFolder::temporaryPathFor(const QString& relativePath) {
    for (qsizetype end = relativePath.indexOf(u'/'); end >= 0;
         end = relativePath.indexOf(u'/', end + 1)) {
        std::error_code error;
        fs::create_directory(diskPath(pathOf(relativePath.left(end))), error);
    }
    requireRealFolders(relativePath);
    return joinPath(parentPath(pathOf(relativePath)), PartFile::newName());
}

qint64 DiskSyncFolder::temporarySize(const QString& temporaryPath) {
    const auto entry = entryAt(temporaryPath);
    return entry ? entry->size : -1;
}

bool DiskSyncFolder::hasSameContent(const QString& relativePath, const QString& temporaryPath,
                                    const std::stop_token& stop) {
    requireRealFolders(relativePath);
    QFile other(temporaryPath);
    if (!other.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot read %1: %2").arg(temporaryPath, other.errorString()));
    bool isSame = true;
    readPieces(pathOf(relativePath), stop, [&](const QByteArray& piece) {
        isSame = other.read(pieceSize) == piece;
        return isSame;
    });
    return isSame;
}

void DiskSyncFolder::putInPlace(const QString& temporaryPath, const QString& relativePath,
                                const QDateTime& date) {
    requireRealFolders(relativePath);
    const fs::path from = diskPath(temporaryPath);
    std::error_code error;
    // A date that the file system cannot hold is no reason to lose the copy.
    const std::chrono::sys_time<std::chrono::milliseconds> time{
        std::chrono::milliseconds(date.toMSecsSinceEpoch())};
    fs::last_write_time(from, std::chrono::file_clock::from_sys(time), error);
    renameOver(temporaryPath, pathOf(relativePath));
}

void DiskSyncFolder::flush(const QString& relativePath) {
    requireRealFolders(relativePath);
    QString path = pathOf(relativePath);
    flushToDisk(path);
    while (path != root_) {
        path = parentPath(path);
        flushToDisk(path);
    }
}

void DiskSyncFolder::discard(const QString& temporaryPath) noexcept {
    std::error_code error;
    fs::remove(diskPath(temporaryPath), error);
}

void DiskSyncFolder::copyTo(const QString& relativePath, const QString& newRelativePath,
                            const std::stop_token& stop) {
    const auto original = stat(relativePath);
    if (!original || QFileInfo::exists(pathOf(newRelativePath)))
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot keep %1 as %2.").arg(relativePath, newRelativePath));
    PartFile copy(pathOf(newRelativePath));
    readPieces(pathOf(relativePath), stop, [&copy](const QByteArray& piece) {
        copy.write(
            std::as_bytes(std::span(piece.constData(), static_cast<std::size_t>(piece.size()))));
        return true;
    });
    copy.commit(original->modifiedDate);
}

void DiskSyncFolder::remove(const QString& relativePath) {
    requireRealFolders(relativePath);
    std::error_code error;
    fs::remove(diskPath(pathOf(relativePath)), error);
    if (error)
        throw failure(QStringLiteral("Cannot delete %1").arg(pathOf(relativePath)), error);
}

void DiskSyncFolder::removeEmptyFoldersAbove(const QString& relativePath) noexcept {
    QString folder = relativePath;
    while (folder.contains(u'/')) {
        folder = folder.left(folder.lastIndexOf(u'/'));
        std::error_code error;
        if (!isBelowRealFolders(folder + QLatin1Char('/')) ||
            !fs::remove(diskPath(pathOf(folder)), error))
            return; // it is not empty
    }
}

void DiskSyncFolder::removeLeftover(const QString& relativePath) noexcept {
    const auto entry = stat(relativePath);
    const bool isOurs =
        lastComponent(relativePath).startsWith(PartFile::namePrefix) && entry.has_value();
    const auto age = std::chrono::milliseconds(
        isOurs ? entry->modifiedDate.msecsTo(QDateTime::currentDateTimeUtc()) : 0);
    if (isOurs && age > leftoverAge)
        discard(pathOf(relativePath));
}

std::optional<SyncManifest> DiskSyncFolder::loadManifest() {
    const QString path = pathOf(SyncManifest::fileName);
    const auto entry = entryAt(path);
    QFile file(path);
    if (!entry || entry->size > SyncManifest::maxBytes || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return SyncManifest::decode(file.readAll());
}

void DiskSyncFolder::saveManifest(const SyncManifest& manifest) {
    try {
        const QByteArray json = manifest.encode();
        PartFile file(pathOf(SyncManifest::fileName));
        file.write(
            std::as_bytes(std::span(json.constData(), static_cast<std::size_t>(json.size()))));
        flushToDisk(file.temporaryPath());
        file.commit({});
    } catch (const TessaryError& error) {
        logFailure("sync manifest not written: %s", error.message());
    }
}

SyncNameRules DiskSyncFolder::nameRules() const {
    SyncNameRules rules;
#ifdef Q_OS_MACOS
    rules.ignoresCase = true;
    rules.ignoresUnicodeForm = true;
#endif
    rules.refusal = [](QStringView view) -> QString {
        const QString name = view.toString();
        if (!isSafeName(name) || QFile::decodeName(QFile::encodeName(name)) != name)
            return QStringLiteral("its name cannot be used on this computer");
        return isTooLongName(name) ? QStringLiteral("its name is too long for this computer")
                                   : QString();
    };
    return rules;
}

} // namespace tessary
