#include "transfer/mount/PhoneFolder.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PartNames.h"
#include "phone/PhoneQueue.h"
#include "transfer/mount/ArrivingFile.h"
#include "transfer/mount/RangedFile.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto keptFor = 5s;
/// A folder that took a second to list is asked for again after ten.
constexpr int keptForTimes = 10;
/// So soon after an edit a listing is not asked for again.
constexpr auto afterEdit = 1s;

[[noreturn]] void fail(int error) {
    throw std::system_error(error, std::generic_category());
}

bool canLieHere(const QString& name) {
    return isSafeName(name) && name.isValidUtf16();
}

MountedFiles::Entry entryOf(const QString& name, const FileItem& item) {
    return {name, item.isDirectory, std::max<qint64>(item.size, 0), item.modifiedDate};
}

} // namespace

PhoneFolder::PhoneFolder(std::shared_ptr<PhoneFileSystem> files, FileItem top, Listings listings,
                         MountedFile::Failed failed)
    : files_(std::move(files)),
      top_(std::move(top)),
      listings_(listings),
      failed_(std::move(failed)) {}

void PhoneFolder::stop() {
    stop_.request_stop();
    const std::scoped_lock lock(mutex_);
    for (const auto& [key, file] : open_)
        if (const auto open = file.lock())
            open->stop();
}

std::uint64_t PhoneFolder::edits() const {
    const auto queue = files_->queue();
    return queue ? queue->edits() : 0;
}

bool PhoneFolder::isGood(const KnownListing& known) const {
    if (!known.listing)
        return false;
    if (listings_ == Listings::keptAndWhole)
        return true;
    const auto now = Clock::now();
    return now < known.goodUntil && (known.edits == edits() || now < known.asked + afterEdit);
}

/// What is in a folder; asks the phone where that is not known.
std::shared_ptr<const PhoneFolder::Listing> PhoneFolder::content(const FileItem& folder) {
    if (!folder.isDirectory)
        fail(ENOTDIR);
    std::shared_ptr<KnownListing> known;
    {
        const std::scoped_lock lock(mutex_);
        auto& place = known_[folder.path];
        if (!place)
            place = std::make_shared<KnownListing>();
        known = place;
    }
    const std::scoped_lock lock(known->mutex);
    if (isGood(*known))
        return known->listing;
    const std::uint64_t editsBefore = edits();
    const auto begun = Clock::now();
    try {
        known->listing = ask(folder);
    } catch (const CancellationError&) {
        fail(EIO);
    } catch (const Error& error) {
        failed_(folder, error);
        fail(error.is(PhoneError::notFound) ? ENOENT : EIO);
    }
    known->asked = Clock::now();
    known->goodUntil =
        known->asked + std::max<Clock::duration>(keptFor, keptForTimes * (known->asked - begun));
    known->edits = editsBefore;
    return known->listing;
}

std::shared_ptr<const PhoneFolder::Listing> PhoneFolder::ask(const FileItem& folder) {
    auto listing = std::make_shared<Listing>();
    const bool isWhole = listings_ == Listings::keptAndWhole;
    const auto leaveOut = [&](const QString& path, const Error& error) {
        if (isWhole)
            throw Error(error);
        tellLeftOut(path, error);
    };
    const NameRules rules;
    files_->list(folder.path,
                 {[&](std::vector<FileItem>&& rows) {
                      for (FileItem& item : rows) {
                          if (isUnfinishedName(item.name))
                              continue;
                          if (!canLieHere(item.name)) {
                              leaveOut(item.path, {PhoneError::nameNotAllowed, {item.name}});
                              continue;
                          }
                          const QString name = freeNameUnder(
                              rules, item.name, item.isDirectory,
                              [&](const QString& key) { return listing->contains(key); });
                          listing->insert(name, std::move(item));
                      }
                  },
                  [&](UnreadableEntry&& entry) { leaveOut(entry.path, entry.error); }},
                 stop_.get_token());
    return listing;
}

/// Once a path, however often its folder is listed.
void PhoneFolder::tellLeftOut(const QString& path, const Error& error) {
    {
        const std::scoped_lock lock(mutex_);
        if (!leftOut_.insert(path).second)
            return;
    }
    DiagnosticsLogger::shared().transfer.standard("not shown in the mounted folder: %s",
                                                  {error.logText()});
    failed_(FileItem(lastComponent(path), path, false, 0, std::nullopt), error);
}

PhoneFolder::Found PhoneFolder::find(const QStringList& names) {
    if (stop_.stop_requested())
        fail(EIO);
    Found found{top_.name, top_};
    for (const QString& name : names) {
        const auto listing = content(found.item);
        const auto item = listing->constFind(name);
        if (item == listing->constEnd())
            fail(ENOENT);
        found = {name, *item};
    }
    return found;
}

MountedFiles::Entry PhoneFolder::entry(const QStringList& names) {
    const Found found = find(names);
    return entryOf(found.name, found.item);
}

std::vector<MountedFiles::Entry> PhoneFolder::list(const QStringList& names) {
    const auto listing = content(find(names).item);
    std::vector<MountedFiles::Entry> entries;
    entries.reserve(static_cast<std::size_t>(listing->size()));
    for (auto item = listing->begin(); item != listing->end(); ++item)
        entries.push_back(entryOf(item.key(), item.value()));
    return entries;
}

/// Asks the phone the first time, while others go on with what is known.
bool PhoneFolder::readsRanges() {
    {
        const std::scoped_lock lock(mutex_);
        if (readsRanges_)
            return *readsRanges_;
    }
    const bool answer = files_->capabilities(stop_.get_token()).readsRanges;
    const std::scoped_lock lock(mutex_);
    readsRanges_ = answer;
    return answer;
}

std::shared_ptr<MountedFile> PhoneFolder::open(const QStringList& names) {
    const FileItem item = find(names).item;
    if (item.isDirectory)
        fail(EISDIR);
    const QString key = QStringLiteral("%1 %2 %3 %4")
                            .arg(item.size)
                            .arg(item.modifiedDateOrEpoch().toMSecsSinceEpoch())
                            .arg(item.handle.value_or(0))
                            .arg(item.path);
    bool isByRange = false;
    try {
        isByRange = readsRanges();
    } catch (const CancellationError&) {
        fail(EIO);
    } catch (const Error& error) {
        failed_(item, error);
        fail(EIO);
    }
    // They end after the lock, which their end may need.
    std::shared_ptr<MountedFile> before;
    std::shared_ptr<MountedFile> lost;
    const std::scoped_lock lock(mutex_);
    if (stop_.stop_requested())
        fail(EIO);
    std::erase_if(open_, [](const auto& known) { return known.second.expired(); });
    std::shared_ptr<MountedFile> file = open_[key].lock();
    if (file && file->isLost())
        lost = std::exchange(file, nullptr);
    if (!file) {
        if (isByRange)
            file = std::make_shared<RangedFile>(files_, item, failed_);
        else
            file = std::make_shared<ArrivingFile>(files_, item, failed_);
        open_[key] = file;
    }
    before = std::exchange(lastOpen_, file);
    return file;
}

} // namespace tessary
