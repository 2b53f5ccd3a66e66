#include "transfer/OnDemandMount.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/values/TessaryError.h"
#include "transfer/OldCopies.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace tessary {

namespace {

constexpr std::size_t mostDrags = 32;

[[noreturn]] void fail(int error) {
    throw std::system_error(error, std::generic_category());
}

MountedFiles::Entry entryOf(const FileItem& item) {
    return {item.name, item.isDirectory, std::max<qint64>(item.size, 0), item.modifiedDate};
}

/// A folder for this user only below a standard location, which is made when it is missing.
std::unique_ptr<QTemporaryDir> ownFolder(QStandardPaths::StandardLocation location) {
    const QString parent =
        joinPath(QStandardPaths::writableLocation(location), QStringLiteral("TessaryDrag"));
    QDir().mkpath(parent);
    return std::make_unique<QTemporaryDir>(joinPath(parent, QStringLiteral("XXXXXX")));
}

} // namespace

/// A promised file that some program has open.
class OnDemandMount::OpenFile final : public MountedFiles::Reader {
public:
    OpenFile(OnDemandMount& owner, std::shared_ptr<OnDemandFile> copy)
        : owner_(owner), copy_(std::move(copy)) {}
    ~OpenFile() override {
        owner_.closed(copy_);
    }

    std::size_t read(qint64 offset, std::span<std::byte> into,
                     const std::function<bool()>& isGivenUp) override {
        return copy_->read(offset, into, isGivenUp);
    }

private:
    OnDemandMount& owner_;
    const std::shared_ptr<OnDemandFile> copy_;
};

OnDemandMount::~OnDemandMount() {
    stop();
}

void OnDemandMount::stop() {
    {
        const std::scoped_lock lock(mutex_);
        stop_.request_stop();
        for (const auto& [path, known] : copies_)
            if (const auto copy = known.lock())
                copy->stop();
    }
    const std::scoped_lock mountLock(mountMutex_);
    mount_.reset();
    const std::scoped_lock lock(mutex_);
    lastWhole_.reset();
    drags_.clear();
}

bool OnDemandMount::isMounted() {
    const std::scoped_lock lock(mountMutex_);
    if (!wasTried_ && !stop_.stop_requested()) {
        wasTried_ = true;
        copyFolder_ = ownFolder(QStandardPaths::GenericCacheLocation);
        mountPoint_ = ownFolder(QStandardPaths::RuntimeLocation);
        removeOldCopies(parentPath(copyFolder_->path()));
        if (copyFolder_->isValid() && mountPoint_->isValid())
            mount_ = mountFiles(*this, mountPoint_->path());
        if (!mount_)
            DiagnosticsLogger::shared().ui.standard(
                "Dragged files are copied beforehand: this system mounts no folder for them.", {});
    }
    return mount_ != nullptr;
}

QStringList OnDemandMount::promise(const std::shared_ptr<FileAccess>& files,
                                   const std::vector<FileItem>& items) {
    if (!isMounted())
        return {};
    const std::scoped_lock lock(mutex_);
    auto& drag = drags_[++lastNumber_];
    QStringList paths;
    for (const FileItem& item : items) {
        // Each has a folder of its own: a phone may show two of one name.
        paths << QStringLiteral("%1/%2/%3/%4")
                     .arg(mountPoint_->path())
                     .arg(lastNumber_)
                     .arg(drag.size())
                     .arg(item.name);
        drag.push_back(std::make_shared<Promise>());
        drag.back()->files = files;
        drag.back()->item = item;
    }
    if (drags_.size() > mostDrags)
        drags_.erase(drags_.begin());
    return paths;
}

void OnDemandMount::reportFailuresTo(OnDemandFile::Failed report) {
    const std::scoped_lock lock(mutex_);
    report_ = std::move(report);
}

void OnDemandMount::report(const FileItem& item, const std::exception& error) const {
    OnDemandFile::Failed report;
    {
        const std::scoped_lock lock(mutex_);
        report = report_;
    }
    if (report)
        report(item, error);
}

bool OnDemandMount::isBeingRead() const {
    const std::scoped_lock lock(mutex_);
    return openFiles_ > 0;
}

/// What a path names, which is "/<drag>/<number of the entry>/<its name>" and what lies below it.
OnDemandMount::Found OnDemandMount::find(const QString& path) const {
    const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (parts.size() < 3)
        fail(ENOENT);
    std::shared_ptr<Promise> promise;
    {
        const std::scoped_lock lock(mutex_);
        const auto drag = drags_.find(parts[0].toULongLong());
        const std::size_t number = parts[1].toULongLong();
        if (drag == drags_.end() || number >= drag->second.size() ||
            drag->second[number]->item.name != parts[2])
            fail(ENOENT);
        promise = drag->second[number];
    }
    Found found{promise, promise->item};
    for (qsizetype i = 3; i < parts.size(); ++i) {
        const Listing content = this->content(found);
        const auto item = content.constFind(parts[i]);
        if (item == content.constEnd())
            fail(ENOENT);
        found.item = *item;
    }
    return found;
}

/// What is in a promised folder; asks the phone once.
OnDemandMount::Listing OnDemandMount::content(const Found& folder) const {
    if (!folder.item.isDirectory)
        fail(ENOTDIR);
    const std::scoped_lock lock(folder.promise->mutex);
    auto& listings = folder.promise->listings;
    if (const auto known = listings.find(folder.item.path); known != listings.end())
        return known->second;
    try {
        Listing listing;
        // A folder that cannot be copied whole is not copied in part.
        for (const FileItem& item :
             folder.promise->files->listDirectory(folder.item.path, stop_.get_token())) {
            if (!isSafeName(item.name) || isTooLongName(item.name) || listing.contains(item.name))
                throw TessaryError::fileIOError(
                    QStringLiteral("The name \"%1\" cannot be used on this computer.")
                        .arg(item.name));
            listing.insert(item.name, item);
        }
        return listings[folder.item.path] = listing;
    } catch (const std::exception& error) {
        report(folder.item, error);
        fail(EIO);
    }
}

MountedFiles::Entry OnDemandMount::entry(const QString& path) {
    // The folders above the entries; what a path below them is called decides there.
    if (path.count(QLatin1Char('/')) < 3)
        return {lastComponent(path), true, 0, std::nullopt};
    return entryOf(find(path).item);
}

std::vector<MountedFiles::Entry> OnDemandMount::list(const QString& path) {
    std::vector<Entry> entries;
    if (path.count(QLatin1Char('/')) < 3)
        return entries; // nobody needs to look around
    for (const FileItem& item : content(find(path)))
        entries.push_back(entryOf(item));
    return entries;
}

std::unique_ptr<MountedFiles::Reader> OnDemandMount::open(const QString& path) {
    const Found found = find(path);
    if (found.item.isDirectory)
        fail(EISDIR);
    std::unique_lock lock(mutex_);
    if (stop_.stop_requested())
        fail(EIO);
    std::erase_if(copies_, [](const auto& known) { return known.second.expired(); });
    std::shared_ptr<OnDemandFile> copy = copies_[path].lock();
    if (!copy) {
        QDir().mkpath(copyFolder_->path()); // a cache may be emptied at any time
        auto folder =
            std::make_unique<QTemporaryDir>(copyFolder_->filePath(QStringLiteral("XXXXXX")));
        if (!folder->isValid()) {
            lock.unlock();
            report(found.item,
                   TessaryError::fileIOError(QStringLiteral("Cannot write into %1: %2")
                                                 .arg(copyFolder_->path(), folder->errorString())));
            fail(ENOSPC);
        }
        copy = std::make_shared<OnDemandFile>(
            found.promise->files, found.item, std::move(folder),
            [this](const FileItem& item, const std::exception& error) { report(item, error); });
        copies_[path] = copy;
    }
    ++openFiles_;
    return std::make_unique<OpenFile>(*this, std::move(copy));
}

void OnDemandMount::closed(const std::shared_ptr<OnDemandFile>& copy) {
    std::shared_ptr<OnDemandFile> dropped; // ends after the lock, which its end may need
    const std::scoped_lock lock(mutex_);
    --openFiles_;
    if (copy->isWhole())
        dropped = std::exchange(lastWhole_, copy);
}

} // namespace tessary
