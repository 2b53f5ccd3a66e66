#include "ios/files/AFCFileSystem.h"

#include "base/text/PathNames.h"
#include "ios/AFCStatus.h"
#include "ios/files/AFCFileReader.h"
#include "ios/files/AFCFileWriter.h"
#include "ios/files/AFCListing.h"
#include "ios/files/AFCSteps.h"
#include "phone/PassingTurn.h"
#include "phone/TreeLimits.h"

#include <QScopeGuard>

#include <algorithm>

namespace tessary {

namespace {

using Opened = AFCSession::Opened;

constexpr QLatin1Char slash('/');

/// A path whose components a phone can have; any other leads nowhere.
void requirePath(const QString& path) {
    if (path == slash)
        return;
    const QStringList names = path.mid(1).split(slash);
    if (!std::all_of(names.begin(), names.end(), isSafeName))
        throw Error(PhoneError::notFound, {path});
}

void requireItem(const QString& path) {
    requirePath(path);
    if (path == slash)
        throw Error(PhoneError::wholeStorage, {path});
}

/// Rethrows the exception that is being handled; an error with one code gets another one.
[[noreturn]] void rethrowAs(PhoneError code, PhoneError shown) {
    try {
        throw;
    } catch (const Error& error) {
        if (error.is(code))
            throw Error(shown, error.arguments(), error);
        throw;
    }
}

/// Whatever is tried, listings of the phone are to be looked at again.
auto editing(PhoneQueue& queue) {
    return qScopeGuard([&queue] { queue.noteEdit(); });
}

void requireName(const NameRules& rules, const QString& name) {
    if (!rules.accepts(name))
        throw Error(PhoneError::nameNotAllowed, {name});
}

} // namespace

AFCFileSystem::AFCFileSystem(PhoneIdentity phone, std::optional<AppInfo> app,
                             std::shared_ptr<PhoneQueue> queue, SerialQueue::Patience patience)
    : phone_(std::move(phone)),
      app_(std::move(app)),
      queue_(std::move(queue)),
      patience_(patience),
      session_(phone_.udid, app_ ? app_->bundleIdentifier : QString(), patience) {}

AFCFileSystem::~AFCFileSystem() {
    queue_->forget(this);
}

QString AFCFileSystem::identity() const {
    return QStringLiteral("ios:%1:%2")
        .arg(phone_.udid, app_ ? app_->bundleIdentifier : QStringLiteral("com.apple.afc"));
}

QString AFCFileSystem::displayName() const {
    const QString name = phoneName(phone_, *queue_);
    return app_ ? QStringLiteral("%1 (%2)").arg(app_->displayName, name) : name;
}

QString AFCFileSystem::appName() const {
    return app_ ? app_->displayName : QString();
}

FileTreeRoot AFCFileSystem::rootOf(const QString&) const {
    return {QString(slash), app_ ? QStringLiteral("Documents") : QStringLiteral("Photos & Videos")};
}

QString AFCFileSystem::canonicalPath(const QString& path) const {
    return slash + path.split(slash, Qt::SkipEmptyParts).join(slash);
}

PhoneQueue::Turn AFCFileSystem::takeTurn(const Call& call) {
    PhoneQueue::Turn turn = queue_->take(call);
    closeWhenIdle();
    return turn;
}

void AFCFileSystem::closeWhenIdle() {
    if (std::exchange(closesWhenIdle_, true))
        return;
    queue_->closeWhenIdle(this, [this] {
        session_.close();
        if (second_)
            second_->close();
    });
}

FileSystemCapabilities AFCFileSystem::capabilities(const Call&) {
    FileSystemCapabilities can;
    can.renamesOntoTaken = renamesOntoTaken_;
    can.setsDates = true;
    can.readsRanges = true;
    can.appends = true;
    can.dateStep = std::chrono::milliseconds(1);
    return can;
}

NameRules AFCFileSystem::nameRules(const QString&, const Call&) {
    return {.ignoresUnicodeForm = true};
}

void AFCFileSystem::list(const QString& folder, const ListingReceiver& receiver, const Call& call) {
    const QString at = canonicalPath(folder);
    requirePath(at);
    const PhoneQueue::Turn turn = takeTurn(call);
    const auto second = [this]() -> AFCSession& {
        if (!second_)
            second_ = std::make_unique<AFCSession>(
                phone_.udid, app_ ? app_->bundleIdentifier : QString(), patience_);
        return *second_;
    };
    listAFCFolder(session_, second, at, receiver, call.stop);
}

std::optional<FileItem> AFCFileSystem::find(const QString& path, const Call& call) {
    const QString at = canonicalPath(path);
    try {
        requirePath(at);
    } catch (const Error&) {
        return std::nullopt;
    }
    const PhoneQueue::Turn turn = takeTurn(call);
    auto item = session_.begin(
        [at](const Opened& opened) -> std::optional<FileItem> {
            const auto info = infoAt(opened, at);
            return info ? std::optional(itemFrom(at, info)) : std::nullopt;
        },
        call.stop);
    if (item && at == slash)
        item->name = rootOf(at).name;
    return item;
}

qint64 AFCFileSystem::read(const FileItem& file, ByteRange range, const ByteSink& sink,
                           const Call& call) {
    const QString path = canonicalPath(file.path);
    requireItem(path);
    AFCFileReader reader(session_, path, file, range, sink, call.stop);
    PassingTurn turn(*queue_, call);
    closeWhenIdle();
    try {
        while (reader.step([&turn] { return turn.isDue(); }))
            turn.pass();
        return reader.received();
    } catch (...) {
        session_.abandon();
        // Opening shows it, too, without a request of its own.
        rethrowAs(PhoneError::notAFile, PhoneError::changed);
    }
}

FileItem AFCFileSystem::write(const NewFile& file, const ByteSource& content,
                              const ByteProgress& progress, const Call& call) {
    const QString folder = canonicalPath(file.folder);
    requirePath(folder);
    requireName(nameRules(folder, call), file.name);
    return send(AFCFileWriter(session_, joinPath(folder, file.name), file, std::nullopt, content,
                              progress, call.stop),
                call);
}

FileItem AFCFileSystem::append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                               const ByteSource& content, const ByteProgress& progress,
                               const Call& call) {
    const QString path = canonicalPath(begun.path);
    requireItem(path);
    return send(AFCFileWriter(session_, path, whole, keptBytes, content, progress, call.stop),
                call);
}

FileItem AFCFileSystem::send(AFCFileWriter writer, const Call& call) {
    PassingTurn turn(*queue_, call);
    closeWhenIdle();
    const auto edit = editing(*queue_);
    try {
        while (writer.step([&turn] { return turn.isDue(); }))
            turn.pass();
        return writer.made();
    } catch (...) {
        writer.abandon();
        throw;
    }
}

FileItem AFCFileSystem::makeFolder(const QString& parent, const QString& name, const Call& call) {
    const QString folder = canonicalPath(parent);
    requirePath(folder);
    requireName(nameRules(folder, call), name);
    const PhoneQueue::Turn turn = takeTurn(call);
    const auto edit = editing(*queue_);
    return session_.begin(
        [folder, path = joinPath(folder, name)](const Opened& opened) {
            // Phones make what is missing above it, and say nothing about what is there.
            requireFolderAt(opened, folder);
            requireFree(opened, path);
            opened.link->makeDirectory(opened.link->inContainer(path));
            const auto info = infoAt(opened, path);
            if (!info)
                throw Error(PhoneError::notDone, {path});
            return itemFrom(path, info);
        },
        call.stop);
}

void AFCFileSystem::remove(const FileItem& item, const Call& call) {
    const QString path = canonicalPath(item.path);
    requireItem(path);
    const PhoneQueue::Turn turn = takeTurn(call);
    const auto edit = editing(*queue_);
    session_.begin(
        [item, path](const Opened& opened) {
            requireStill(opened, item, path);
            removeOne(opened, path);
        },
        call.stop);
}

void AFCFileSystem::removeTree(const FileItem& item, const Call& call) {
    const QString path = canonicalPath(item.path);
    requireItem(path);
    {
        const PhoneQueue::Turn turn = takeTurn(call);
        session_.begin([item, path](const Opened& opened) { requireStill(opened, item, path); },
                       call.stop);
    }
    removeBelow(path, 0, call);
}

void AFCFileSystem::removeBelow(const QString& path, int depth, const Call& call) {
    if (depth >= deepestFolder)
        throw Error(PhoneError::insideItself, {path});
    using Names = std::vector<QByteArray>;
    // No value once it is gone; else what it holds, as far as the phone says that.
    const auto removeIt = [&](bool mayBeFull) {
        const PhoneQueue::Turn turn = takeTurn(call);
        const auto edit = editing(*queue_);
        return session_.begin(
            [path, mayBeFull](const Opened& opened) -> std::optional<Names> {
                try {
                    removeOne(opened, path);
                    return std::nullopt;
                } catch (const Error& error) {
                    if (!mayBeFull || !error.is(PhoneError::folderNotEmpty))
                        throw;
                }
                return namesIn(opened, path);
            },
            call.stop);
    };
    const std::optional<Names> names = removeIt(true);
    if (!names)
        return;
    for (const QByteArray& bytes : *names) {
        const auto name = textOfName(bytes);
        // A name with a "/" in it would lead out of the folder that the user saw.
        if (!name || !isSafeName(*name))
            throw Error(PhoneError::nameNotAllowed, {QString::fromUtf8(bytes)});
        removeBelow(joinPath(path, *name), depth + 1, call);
    }
    (void)removeIt(false);
}

FileItem AFCFileSystem::rename(const FileItem& item, const QString& newName, TakenName taken,
                               const Call& call) {
    const QString path = canonicalPath(item.path);
    requireItem(path);
    requireName(nameRules(path, call), newName);
    return renameTo(item, joinPath(parentPath(path), newName), taken, call);
}

FileItem AFCFileSystem::move(const FileItem& item, const QString& newFolder, const Call& call) {
    const QString folder = canonicalPath(newFolder);
    const QString path = canonicalPath(item.path);
    requireItem(path);
    if (isAtOrBelow(folder, path))
        throw Error(PhoneError::insideItself, {path});
    return renameTo(item, joinPath(folder, lastComponent(path)), TakenName::refused, call);
}

FileItem AFCFileSystem::renameTo(const FileItem& item, const QString& target, TakenName taken,
                                 const Call& call) {
    const QString path = canonicalPath(item.path);
    const QString name = lastComponent(target);
    const NameRules rules = nameRules(path, call);
    const bool replaces = taken == TakenName::replaced && !item.isDirectory;
    if (replaces && !renamesOntoTaken_)
        throw Error(PhoneError::notSupported, {path});
    // The phone finds the item itself under a name that differs only in form.
    const bool isOneName = rules.key(target) == rules.key(path);
    const PhoneQueue::Turn turn = takeTurn(call);
    const auto edit = editing(*queue_);
    try {
        session_.begin(
            [=](const Opened& opened) {
                requireStill(opened, item, path);
                if (parentPath(target) != parentPath(path))
                    requireFolderAt(opened, parentPath(target));
                if (!replaces && !isOneName)
                    requireFree(opened, target);
                AFCLink& link = *opened.link;
                link.renamePath(link.inContainer(path), link.inContainer(target));
            },
            call.stop);
    } catch (const Error& error) {
        const auto status = error.find<AFCStatus>();
        if (replaces && status == AFCStatus::objectExists) {
            renamesOntoTaken_ = false;
            throw Error(PhoneError::notSupported, {path}, error);
        }
        if (status == AFCStatus::objectExists || (replaces && status == AFCStatus::objectIsFolder))
            throw Error(PhoneError::taken, {name}, error);
        throw;
    }
    FileItem renamed = item;
    renamed.name = name;
    renamed.path = target;
    return renamed;
}

void AFCFileSystem::setModified(const FileItem& file, const QDateTime& date, const Call& call) {
    const QString path = canonicalPath(file.path);
    requireItem(path);
    const PhoneQueue::Turn turn = takeTurn(call);
    const auto edit = editing(*queue_);
    session_.begin(
        [path, date, isFolder = file.isDirectory](const Opened& opened) {
            const auto info = infoAt(opened, path);
            if (!info)
                throw Error(PhoneError::notFound, {path});
            if (info->isDirectory != isFolder)
                throw Error(PhoneError::changed, {path});
            AFCLink& link = *opened.link;
            link.setModifiedDate(link.inContainer(path), date);
        },
        call.stop);
}

std::optional<std::uint64_t> AFCFileSystem::freeBytes(const QString&, const Call& call) {
    const PhoneQueue::Turn turn = takeTurn(call);
    return session_.begin([](const Opened& opened) { return opened.link->freeBytes(); }, call.stop);
}

std::optional<LiveDeviceInfo> AFCFileSystem::liveInfo(const std::stop_token& stop) {
    const auto turn = queue_->tryTake();
    if (!turn)
        return std::nullopt;
    const IPhoneFacts facts = session_.facts(stop);
    LiveDeviceInfo info;
    info.battery = facts.battery;
    if (facts.storage) {
        StorageVolume volume;
        volume.totalBytes = static_cast<std::uint64_t>(facts.storage->totalBytes);
        volume.freeBytes = static_cast<std::uint64_t>(facts.storage->freeBytes);
        info.volumes.push_back(std::move(volume));
    }
    return info;
}

} // namespace tessary
