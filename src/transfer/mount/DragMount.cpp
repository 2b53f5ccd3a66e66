#include "transfer/mount/DragMount.h"

#include "base/local/PrivateFolder.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"

#include <cerrno>
#include <system_error>

namespace tessary {

namespace {

constexpr std::size_t mostDrags = 32;

} // namespace

DragMount::~DragMount() {
    stop();
}

void DragMount::stop() {
    std::map<quint64, Drag> ended;
    {
        const std::scoped_lock lock(mutex_);
        isStopped_ = true;
        ended.swap(drags_);
    }
    for (const auto& [number, drag] : ended)
        for (const auto& entry : drag)
            entry->stop();
    const std::scoped_lock lock(mountMutex_);
    mount_.reset();
    mountPoint_.reset();
    wasTried_ = true;
}

bool DragMount::isMounted() {
    const std::scoped_lock lock(mountMutex_);
    if (!wasTried_) {
        wasTried_ = true;
        try {
            mountPoint_.emplace(
                PrivateFolder(PrivateFolder::Place::runtime, QStringLiteral("drags")));
            mount_ = mountFiles(*this, mountPoint_->path());
        } catch (const Error& error) {
            DiagnosticsLogger::shared().ui.standard("No folder for what is dragged: %s",
                                                    {error.logText()});
        }
        if (!mount_)
            DiagnosticsLogger::shared().ui.standard(
                "Dragged files are copied beforehand: this system mounts no folder for them.", {});
    }
    return mount_ != nullptr;
}

QStringList DragMount::promise(const std::shared_ptr<PhoneFileSystem>& files,
                               const std::vector<FileItem>& items) {
    if (!isMounted())
        return {};
    Drag dropped; // ends after the lock
    const std::scoped_lock lock(mutex_);
    if (isStopped_)
        return {};
    Drag& drag = drags_[++lastNumber_];
    QStringList paths;
    for (const FileItem& item : items) {
        // Each has a folder of its own: a phone may show two of one name.
        paths << QStringLiteral("%1/%2/%3/%4")
                     .arg(mountPoint_->path())
                     .arg(lastNumber_)
                     .arg(drag.size())
                     .arg(item.name);
        drag.push_back(std::make_shared<PhoneFolder>(
            files, item, PhoneFolder::Listings::keptAndWhole,
            [this](const FileItem& lost, const Error& error) { report(lost, error); }));
    }
    if (drags_.size() > mostDrags)
        dropped = std::move(drags_.extract(drags_.begin()).mapped());
    return paths;
}

void DragMount::reportFailuresTo(MountedFile::Failed report) {
    const std::scoped_lock lock(mutex_);
    report_ = std::move(report);
}

void DragMount::report(const FileItem& item, const Error& error) const {
    MountedFile::Failed report;
    {
        const std::scoped_lock lock(mutex_);
        report = report_;
    }
    if (report)
        report(item, error);
}

/// What a path names, which is "/<drag>/<number of the entry>/<its name>" and what lies below it.
DragMount::Place DragMount::placeOf(const QString& path) const {
    const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    const auto missing = std::system_error(ENOENT, std::generic_category());
    if (parts.size() < 3)
        throw missing;
    const std::scoped_lock lock(mutex_);
    const auto drag = drags_.find(parts[0].toULongLong());
    const std::size_t number = parts[1].toULongLong();
    if (drag == drags_.end() || number >= drag->second.size() ||
        drag->second[number]->top().name != parts[2])
        throw missing;
    return {drag->second[number], parts.mid(3)};
}

MountedFiles::Entry DragMount::entry(const QString& path) {
    // The folders above the entries; what a path below them is called decides there.
    if (path.count(QLatin1Char('/')) < 3)
        return {lastComponent(path), true, 0, std::nullopt};
    const Place place = placeOf(path);
    return place.entry->entry(place.names);
}

std::vector<MountedFiles::Entry> DragMount::list(const QString& path) {
    if (path.count(QLatin1Char('/')) < 3)
        return {}; // nobody needs to look around
    const Place place = placeOf(path);
    return place.entry->list(place.names);
}

std::unique_ptr<MountedFiles::Reader> DragMount::open(const QString& path) {
    const Place place = placeOf(path);
    return open_.add(place.entry->open(place.names));
}

} // namespace tessary
