#include "transfer/local/LocalFileSystem.h"

#include "base/hash/ContentHash.h"
#include "base/local/FolderEntries.h"
#include "base/local/TreeRemoval.h"
#include "base/local/Unfinished.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PartNames.h"
#include "transfer/local/LocalContent.h"

#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace tessary {

namespace {

constexpr std::size_t rowsAtOnce = 512;

QDateTime dateOf(const struct stat& facts) {
    return QDateTime::fromMSecsSinceEpoch(facts.st_mtim.tv_sec * 1000 +
                                          facts.st_mtim.tv_nsec / 1'000'000);
}

std::array<timespec, 2> timesFor(const QDateTime& modified) {
    const qint64 ms = modified.toMSecsSinceEpoch();
    const qint64 seconds = (ms >= 0 ? ms : ms - 999) / 1000;
    return {timespec{0, UTIME_OMIT}, timespec{seconds, (ms - seconds * 1000) * 1'000'000}};
}

/// Whether an entry has the very name: where case does not count, no look-up tells, and a disk that
/// a program serves may give one file another number under each name.
bool isListed(int folder, const QByteArray& name) {
    const FolderEntries entries = entriesOf(folder);
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr)
        if (name == entry->d_name)
            return true;
    return !entries;
}

FileItem itemOf(const struct stat& facts, const QString& name, const QString& path) {
    const bool isFolder = S_ISDIR(facts.st_mode);
    return {name, path, isFolder, isFolder ? 0 : qint64{facts.st_size}, dateOf(facts)};
}

/// renameat() that leaves a taken name alone, also where the file system has no such call.
/// `isItself`: to the folder both names are the same, and an entry stands in its own way.
int renameToFreeName(int fromFolder, const QByteArray& from, int toFolder, const QByteArray& to,
                     bool isItself) {
    if (isItself)
        return ::renameat(fromFolder, from.constData(), toFolder, to.constData());
    if (::renameat2(fromFolder, from.constData(), toFolder, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    const int reason = errno;
    struct stat facts {};
    const bool isTaken = ::fstatat(toFolder, to.constData(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
    if (isTaken || (reason != EINVAL && reason != ENOSYS)) {
        errno = isTaken ? EEXIST : reason;
        return -1;
    }
    return ::renameat(fromFolder, from.constData(), toFolder, to.constData());
}

/// Throws when the disk has not taken what was written: a server's says so at a close only.
void requireTaken(const FileHandle& file, const QString& path) {
    const int again = ::fcntl(file.get(), F_DUPFD_CLOEXEC, 0);
    if (again >= 0 && ::close(again) != 0 && errno != EINTR)
        throw localFailure(LocalError::cannotWrite, path, errno);
}

/// Of several programs that write one part, the first goes on with it.
void requireOnlyWriter(const FileHandle& file, const QString& path) {
    if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        throw Error(LocalError::changed, {path});
}

/// Holds a part that can be gone on with while it gets its name. Another program that does so might
/// have cut it again, or have died over that: then it is not what was written.
FileHandle heldPart(int folder, const QByteArray& name, const FileItem& item) {
    const auto part = partNameOf(lastComponent(item.path), {});
    if (!part || part->kind != PartName::Kind::resumable)
        return FileHandle();
    FileHandle held(
        ::openat(folder, name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat facts {};
    if (!held.isOpen() || ::fstat(held.get(), &facts) != 0)
        throw localFailure(LocalError::cannotRename, item.path, errno);
    requireOnlyWriter(held, item.path);
    if (facts.st_size != item.size)
        throw Error(LocalError::changed, {item.path});
    return held;
}

/// On a disk that may know a file's size before it has the bytes, what is to stay of one that
/// breaks off is written out after so many.
constexpr qint64 flushedAtOnce = qint64{16} << 20;

} // namespace

LocalFileSystem::LocalFileSystem(const QString& folder, LocalLinks links)
    : base_(folder), links_(links) {}

QString LocalFileSystem::identity() const {
    return QStringLiteral("local:") + base_.path();
}

QString LocalFileSystem::displayName() const {
    return QSysInfo::machineHostName();
}

FileTreeRoot LocalFileSystem::rootOf(const QString&) const {
    const QString name = lastComponent(base_.path());
    return {base_.path(), name.isEmpty() ? base_.path() : name};
}

QString LocalFileSystem::canonicalPath(const QString& path) const {
    return QDir::cleanPath(path);
}

LocalFileSystem::Place LocalFileSystem::placeOf(const QString& path) const {
    const QString clean = QDir::cleanPath(path);
    if (clean == base_.path())
        throw Error(PhoneError::wholeStorage, {path});
    return {base_.open(parentPath(clean)), localName(lastComponent(clean))};
}

DiskTraits LocalFileSystem::traits(const FileHandle& folder, const Call& call) {
    struct stat facts {};
    if (::fstat(folder.get(), &facts) != 0)
        return {};
    const std::scoped_lock lock(mutex_);
    auto known = traits_.find(facts.st_dev);
    if (known == traits_.end())
        known = traits_.insert(facts.st_dev, traitsOfDisk(folder.get(), call.partOwner));
    return traitsOfFolder(*known, folder.get());
}

FileSystemCapabilities LocalFileSystem::capabilities(const Call& call) {
    FileSystemCapabilities can{.renamesOntoTaken = true,
                               .setsDates = true,
                               .readsRanges = true,
                               .hasHashes = true,
                               .appends = true};
    const DiskTraits disk = traits(base_.open(base_.path()), call);
    can.dateStep = disk.dateStep;
    can.largestFile = disk.largestFile;
    if (!disk.writesSizeLast)
        can.doubtedEnd = 2 * flushedAtOnce;
    return can;
}

NameRules LocalFileSystem::nameRules(const QString& folder, const Call& call) {
    return traits(base_.open(folder), call).names;
}

FileItem LocalFileSystem::itemAt(int folder, const QByteArray& diskName, const QString& name,
                                 const QString& path) const {
    struct stat facts {};
    if (::fstatat(folder, diskName.constData(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        throw localFailure(LocalError::cannotRead, path, errno);
    if (S_ISLNK(facts.st_mode)) {
        const FileHandle target(links_ == LocalLinks::filesFollowed
                                    ? ::openat(folder, diskName.constData(), O_PATH | O_CLOEXEC)
                                    : -1);
        if (!target.isOpen() || ::fstat(target.get(), &facts) != 0 || !S_ISREG(facts.st_mode))
            throw Error(LocalError::link, {path});
        if (!base_.contains(target))
            throw Error(LocalError::leavesFolder, {path});
    }
    if (!S_ISREG(facts.st_mode) && !S_ISDIR(facts.st_mode))
        throw Error(LocalError::notAFile, {path});
    return itemOf(facts, name, path);
}

void LocalFileSystem::list(const QString& folder, const ListingReceiver& receiver,
                           const Call& call) {
    const FileHandle opened = base_.open(folder);
    const FolderEntries entries = entriesOf(opened.get());
    if (!entries)
        throw localFailure(LocalError::cannotRead, folder, errno);
    std::vector<FileItem> rows;
    const auto leaveOut = [&](const QString& path, const Error& error) {
        if (receiver.unreadable)
            receiver.unreadable({path, error});
    };
    while (true) {
        throwIfStopped(call.stop);
        errno = 0;
        const dirent* entry = ::readdir(entries.get());
        if (entry == nullptr) {
            if (errno != 0)
                throw localFailure(LocalError::cannotRead, folder, errno);
            break;
        }
        const QByteArray diskName(entry->d_name);
        if (diskName == "." || diskName == "..")
            continue;
        const auto name = nameFromDisk(diskName);
        if (!name) {
            const QString shown = QString::fromUtf8(diskName);
            leaveOut(joinPath(folder, shown), {LocalError::nameNotUsable, {shown}});
            continue;
        }
        try {
            rows.push_back(itemAt(opened.get(), diskName, *name, joinPath(folder, *name)));
        } catch (const Error& error) {
            if (!error.is(LocalError::notFound)) // it went in the meantime
                leaveOut(joinPath(folder, *name), error);
        }
        if (rows.size() >= rowsAtOnce) {
            receiver.rows(std::move(rows));
            rows.clear();
        }
    }
    if (!rows.empty())
        receiver.rows(std::move(rows));
}

std::optional<FileItem> LocalFileSystem::find(const QString& path, const Call&) {
    const QString clean = QDir::cleanPath(path);
    try {
        if (clean == base_.path()) {
            const FileHandle folder = base_.open(clean);
            struct stat facts {};
            if (::fstat(folder.get(), &facts) != 0)
                throw localFailure(LocalError::cannotRead, path, errno);
            return itemOf(facts, lastComponent(clean), clean);
        }
        const Place place = placeOf(clean);
        return itemAt(place.folder.get(), place.name, lastComponent(clean), clean);
    } catch (const Error& error) {
        // What lies "below" a file is not there, either.
        if (error.is(LocalError::notFound) || error.is(LocalError::notAFolder))
            return std::nullopt;
        throw;
    }
}

FileHandle LocalFileSystem::openToRead(const FileItem& file) const {
    const Place place = placeOf(file.path);
    const int follow = links_ == LocalLinks::filesFollowed ? 0 : O_NOFOLLOW;
    // Without O_NONBLOCK a pipe that took the file's place would be waited for.
    FileHandle opened(::openat(place.folder.get(), place.name.constData(),
                               O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | follow));
    if (!opened.isOpen())
        throw localFailure(LocalError::cannotRead, file.path, errno);
    struct stat facts {};
    if (::fstat(opened.get(), &facts) != 0)
        throw localFailure(LocalError::cannotRead, file.path, errno);
    if (file.isDirectory || !S_ISREG(facts.st_mode))
        throw Error(LocalError::changed, {file.path});
    if (follow == 0 && !base_.contains(opened))
        throw Error(LocalError::leavesFolder, {file.path});
    return opened;
}

qint64 LocalFileSystem::read(const FileItem& file, ByteRange range, const ByteSink& sink,
                             const Call& call) {
    const FileHandle opened = openToRead(file);
    return readContent(opened, file.path, range, sink, call.stop);
}

ByteSource LocalFileSystem::draw(const FileItem& file, qint64 offset, const Call& call) {
    FileHandle opened = openToRead(file);
    // Another would be waited for in the phone's turn, where no stop is heard; and it may be the
    // same phone's.
    if (!isOnOwnDisk(opened.get()))
        return {};
    return drawContent(std::move(opened), file.path, offset, call.stop);
}

FileItem LocalFileSystem::write(const NewFile& file, const ByteSource& content,
                                const ByteProgress& progress, const Call& call) {
    const QString path = joinPath(file.folder, file.name);
    const QByteArray name = localName(file.name);
    const FileHandle folder = base_.open(file.folder);
    constexpr mode_t permissions = 0666; // less what the user's mask takes off
    const FileHandle opened(::openat(folder.get(), name.constData(),
                                     O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                     permissions));
    if (!opened.isOpen()) // EINVAL: a character that this file system does not take
        throw localFailure(LocalError::cannotWrite, path, errno == EINVAL ? EILSEQ : errno);
    if (file.staysWhenBroken)
        requireOnlyWriter(opened, path);
    const Unfinished unfinished =
        file.staysWhenBroken ? Unfinished() : Unfinished(folder.get(), name);
    try {
        return fill(opened, 0, file, content, progress, call);
    } catch (...) {
        if (!file.staysWhenBroken)
            ::unlinkat(folder.get(), name.constData(), 0);
        throw;
    }
}

FileItem LocalFileSystem::append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                                 const ByteSource& content, const ByteProgress& progress,
                                 const Call& call) {
    const Place place = placeOf(begun.path);
    const FileHandle opened(::openat(place.folder.get(), place.name.constData(),
                                     O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!opened.isOpen())
        throw localFailure(LocalError::cannotWrite, begun.path, errno);
    requireOnlyWriter(opened, begun.path);
    struct stat facts {};
    struct stat named {}; // as something else, once another program has finished it
    if (::fstat(opened.get(), &facts) != 0 ||
        ::fstatat(place.folder.get(), place.name.constData(), &named, AT_SYMLINK_NOFOLLOW) != 0)
        throw localFailure(LocalError::cannotWrite, begun.path, errno);
    if (!S_ISREG(facts.st_mode) || facts.st_size != begun.size || keptBytes > begun.size ||
        named.st_dev != facts.st_dev || named.st_ino != facts.st_ino)
        throw Error(LocalError::changed, {begun.path});
    if (::ftruncate(opened.get(), keptBytes) != 0 ||
        ::lseek(opened.get(), keptBytes, SEEK_SET) != keptBytes)
        throw localFailure(LocalError::cannotWrite, begun.path, errno);
    return fill(opened, keptBytes, whole, content, progress, call);
}

/// Writes what comes after the first `done` bytes of an open file, and dates it.
FileItem LocalFileSystem::fill(const FileHandle& opened, qint64 done, const NewFile& file,
                               const ByteSource& content, const ByteProgress& progress,
                               const Call& call) {
    const QString path = joinPath(file.folder, file.name);
    ByteProgress told = progress;
    if (file.staysWhenBroken && !writesSizeLast(opened.get()))
        told = [&, flushed = done](qint64 written) mutable {
            if (written - flushed >= flushedAtOnce) {
                if (::fdatasync(opened.get()) != 0 && errno != EINVAL)
                    throw localFailure(LocalError::cannotWrite, path, errno);
                flushed = written;
            }
            if (progress)
                progress(written);
        };
    writeContent(opened, path, done, content, told, call.stop);
    requireTaken(opened, path);
    // A date that the file system cannot hold is no reason to lose the copy.
    if (file.modified)
        (void)::futimens(opened.get(), timesFor(*file.modified).data());
    struct stat facts {};
    if (::fstat(opened.get(), &facts) != 0)
        throw localFailure(LocalError::cannotWrite, path, errno);
    if (file.staysWhenBroken) // a child that has not become its program yet would still hold it
        (void)::flock(opened.get(), LOCK_UN);
    return itemOf(facts, file.name, path);
}

FileItem LocalFileSystem::makeFolder(const QString& parent, const QString& name, const Call&) {
    const QString path = joinPath(parent, name);
    const QByteArray diskName = localName(name);
    const FileHandle folder = base_.open(parent);
    constexpr mode_t permissions = 0777;
    if (::mkdirat(folder.get(), diskName.constData(), permissions) != 0)
        throw localFailure(LocalError::cannotMakeFolder, path, errno == EINVAL ? EILSEQ : errno);
    return itemAt(folder.get(), diskName, name, path);
}

/// Of an entry that still is what it was. A link may read as a file: it counts as one.
LocalFileSystem::Place LocalFileSystem::placeOfSame(const FileItem& item) const {
    Place place = placeOf(item.path);
    struct stat facts {};
    if (::fstatat(place.folder.get(), place.name.constData(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        throw localFailure(LocalError::cannotRead, item.path, errno);
    if (S_ISDIR(facts.st_mode) != item.isDirectory)
        throw Error(LocalError::changed, {item.path});
    return place;
}

void LocalFileSystem::remove(const FileItem& item, const Call&) {
    const Place place = placeOfSame(item);
    if (::unlinkat(place.folder.get(), place.name.constData(),
                   item.isDirectory ? AT_REMOVEDIR : 0) != 0)
        throw localFailure(LocalError::cannotDelete, item.path, errno);
}

void LocalFileSystem::removeTree(const FileItem& item, const Call& call) {
    const Place place = placeOfSame(item);
    throwIfStopped(call.stop);
    if (const int reason = removeTreeAt(place.folder.get(), place.name); reason != 0)
        throw localFailure(LocalError::cannotDelete, item.path, reason);
}

FileItem LocalFileSystem::rename(const FileItem& item, const QString& newName, TakenName taken,
                                 const Call& call) {
    const Place place = placeOfSame(item);
    const QByteArray name = localName(newName);
    const QString path = joinPath(parentPath(item.path), newName);
    const int folder = place.folder.get();
    const NameRules rules = traits(place.folder, call).names;
    const bool isItself = newName != lastComponent(item.path) &&
                          rules.key(newName) == rules.key(lastComponent(item.path)) &&
                          !isListed(folder, name);
    const FileHandle held = heldPart(folder, place.name, item);
    // A folder would take the place of an empty one without a word.
    const int result = taken == TakenName::replaced && !item.isDirectory
                           ? ::renameat(folder, place.name.constData(), folder, name.constData())
                           : renameToFreeName(folder, place.name, folder, name, isItself);
    if (result != 0)
        throw localFailure(LocalError::cannotRename, path, errno);
    return itemAt(folder, name, newName, path);
}

FileItem LocalFileSystem::move(const FileItem& item, const QString& newFolder, const Call&) {
    const Place place = placeOfSame(item);
    const QString path = joinPath(newFolder, lastComponent(item.path));
    const FileHandle folder = base_.open(newFolder);
    if (renameToFreeName(place.folder.get(), place.name, folder.get(), place.name, false) != 0) {
        const int reason = errno;
        if (reason == EINVAL)
            throw Error(PhoneError::insideItself, {item.path});
        throw localFailure(LocalError::cannotRename, path, reason);
    }
    return itemAt(folder.get(), place.name, lastComponent(path), path);
}

void LocalFileSystem::setModified(const FileItem& file, const QDateTime& date, const Call&) {
    const Place place = placeOfSame(file);
    if (::utimensat(place.folder.get(), place.name.constData(), timesFor(date).data(),
                    AT_SYMLINK_NOFOLLOW) != 0)
        throw localFailure(LocalError::cannotWrite, file.path, errno);
}

std::optional<std::uint64_t> LocalFileSystem::freeBytes(const QString& folder, const Call&) {
    const FileHandle opened = base_.open(folder);
    struct statvfs facts {};
    if (::fstatvfs(opened.get(), &facts) != 0 || facts.f_blocks == 0)
        return std::nullopt;
    return std::uint64_t{facts.f_bavail} * facts.f_frsize;
}

std::optional<QByteArray> LocalFileSystem::hash(const FileItem& file, const Call& call) {
    ContentHash hash;
    (void)read(
        file, {}, [&hash](ByteView bytes) { hash.add(bytes); }, call);
    return hash.finish();
}

void LocalFileSystem::flush() {
    const FileHandle place = base_.open(base_.path());
    const FileHandle folder(::openat(place.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen() || ::syncfs(folder.get()) != 0)
        throw localFailure(LocalError::cannotWrite, base_.path(), errno);
}

LocalItem openLocalItem(const QString& path) {
    const QString clean = QDir::cleanPath(path);
    const QString real = QFileInfo(clean).canonicalFilePath();
    if (real.isEmpty())
        throw Error(LocalError::notFound, {path});
    auto files = std::make_shared<LocalFileSystem>(parentPath(real), LocalLinks::filesFollowed);
    FileItem item = require(*files, real, {});
    item.name = lastComponent(clean);
    return {std::move(files), std::move(item)};
}

} // namespace tessary
