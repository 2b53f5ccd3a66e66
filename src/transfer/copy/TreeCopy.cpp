#include "transfer/copy/TreeCopy.h"

#include "base/local/LocalError.h"
#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/copy/Leftovers.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

QStringList namesOf(const std::vector<ScannedItem>& items) {
    QStringList names;
    for (const ScannedItem& scanned : items)
        names << scanned.item.name;
    return names;
}

} // namespace

TreeCopy::TreeCopy(TreeCopyRequest request)
    : request_(std::move(request)),
      isOneFileSystem_(request_.from == request_.to ||
                       request_.from->identity() == request_.to->identity()) {}

CopyOutcome TreeCopy::run(const CopyProgress& progress, const std::stop_token& stop) {
    ProgressPacer pacer(progress);
    pacer_ = &pacer;
    call_ = {stop, Urgency::copy};
    outcome_.items = request_.items;
    std::vector<PhoneQueue::Job> jobs;
    for (const auto& side : {request_.from, request_.to})
        if (const auto queue = side->queue())
            jobs.push_back(queue->beginJob());
    try {
        copyAll();
    } catch (const CancellationError&) {
        outcome_.isCancelled = true;
    } catch (const Error& error) {
        outcome_.failure = error;
    }
    progress_.currentFileBytes = 0;
    pacer.showNow(progress_);
    for (auto n = moved_.rbegin(); n != moved_.rend(); ++n)
        outcome_.items.erase(outcome_.items.begin() + static_cast<std::ptrdiff_t>(*n));
    if (request_.witness)
        if (const auto error = request_.witness->ended(); error && !outcome_.isCancelled)
            outcome_.failure = outcome_.failure.value_or(*error);
    return std::move(outcome_);
}

void TreeCopy::copyAll() {
    can_ = request_.to->capabilities(call_);
    dateStep_ = std::max(can_.dateStep, request_.from->capabilities(call_).dateStep);
    sendsTogether_ = (can_.writesTogether || request_.from->capabilities(call_).readsTogether) &&
                     !request_.verifies && !request_.removesSource;
    CopyScan scan = scanForCopy(
        *request_.from, request_.items,
        [this](const CopyScan& sofar) {
            progress_.totalFiles = sofar.files;
            progress_.totalBytes = sofar.bytes;
            pacer_->show(progress_);
        },
        call_);
    progress_.totalFiles = scan.files;
    progress_.totalBytes = scan.bytes;
    pacer_->showNow(progress_);
    room_ = freeBytes(request_.folder);
    // What is asked for goes into few folders, mostly into one.
    for (auto first = scan.items.begin(); first != scan.items.end();) {
        const QString below = first->item.folder;
        const auto last = std::find_if(first, scan.items.end(), [&below](const ScannedItem& one) {
            return one.item.folder != below;
        });
        const std::vector<ScannedItem> group(std::make_move_iterator(first),
                                             std::make_move_iterator(last));
        copyGroup(group, below);
        first = last;
    }
    removeSettled();
}

/// What goes into one folder, which is made when it is missing.
void TreeCopy::copyGroup(const std::vector<ScannedItem>& group, const QString& below) {
    QString path = request_.folder;
    try {
        for (const QString& name : below.split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
            if (!request_.to->find(joinPath(path, name), call_))
                outcome_.entries.add(request_.to->makeFolder(path, name, call_));
            path = joinPath(path, name);
        }
        Folder target = openTarget(path, below, namesOf(group));
        copyInto(group, target);
    } catch (const Error& error) {
        // Without the target folder itself there is no copy.
        if (endsCopy(error) || below.isEmpty())
            throw;
        for (const ScannedItem& scanned : group)
            leaveOut(scanned, below, error);
    }
}

/// A folder that is there, with what it holds; leftovers are dealt with on the way.
TreeCopy::Folder TreeCopy::openTarget(const QString& path, const QString& below,
                                      const QStringList& awaited) {
    TargetFolder target(path, request_.to->nameRules(path, call_), dateStep_);
    Listing there = listAll(*request_.to, path, call_);
    for (const FileItem& item :
         tidied(*request_.to, std::move(there.items), target.rules(), awaited, call_))
        target.addExisting(item);
    for (const UnreadableEntry& entry : there.unreadable)
        target.addUnreadable(lastComponent(entry.path), entry.error);
    return {std::move(target), below};
}

void TreeCopy::copyInto(const std::vector<ScannedItem>& items, Folder& target) {
    Together together;
    for (const ScannedItem& scanned : items) {
        throwIfStopped(call_.stop);
        const bool isFolder = scanned.item.item.isDirectory;
        if (isFolder || together.files.isFull())
            copyTogether(together, target);
        attempt(scanned, target, [&] {
            if (scanned.unread)
                throw Error(*scanned.unread);
            isFolder ? copyFolder(scanned, target) : copyFileTo(scanned, target, together);
        });
    }
    copyTogether(together, target);
}

/// Copies one item; what it refuses is left out and named.
void TreeCopy::attempt(const ScannedItem& scanned, const Folder& target,
                       const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        if (endsCopy(error))
            throw;
        progress_.currentFileBytes = 0;
        leaveOut(scanned, target.below, error);
    }
}

void TreeCopy::leaveOut(const ScannedItem& scanned, const QString& below, const Error& error) {
    outcome_.leftOut.push_back({scanned.item, error});
    outcome_.leftOut.back().item.folder = below;
    forgetFiles(scanned);
}

/// Sends what has been gathered. What does not go that way goes alone, and says why it cannot.
void TreeCopy::copyTogether(Together& together, const Folder& target) {
    const Together gathered = std::exchange(together, {});
    const std::vector<SmallFiles::One>& files = gathered.files.all();
    std::vector<bool> isMade(files.size());
    const auto note = [&](std::size_t n) {
        isMade[n] = true;
        const QString& name = files[n].name;
        noteMade(*gathered.scanned[n], joinPath(target.names.path(), name), name);
    };
    if (files.size() > 1) {
        gathered.files.copy(
            *request_.from, *request_.to, target.names.path(), checksSource(),
            [&](std::size_t n, const FileItem& made) {
                noteCopied(gathered.scanned[n]->item, made, {});
                note(n);
            },
            [this](qint64 done) {
                progress_.currentFileBytes = done;
                pacer_->show(progress_);
            },
            call_);
        progress_.currentFileBytes = 0;
    }
    for (std::size_t n = 0; n < files.size(); ++n) {
        if (isMade[n])
            continue;
        const ScannedItem& scanned = *gathered.scanned[n];
        attempt(scanned, target, [&] {
            throwIfStopped(call_.stop);
            requireRoom(target.names.path(), scanned.item.item);
            (void)transfer(scanned.item, target.names.path(), files[n].name, {});
            note(n);
        });
    }
}

TargetFolder::Decision TreeCopy::place(const CopyItem& item, TargetFolder& target) {
    return target.place(item, {.policy = request_.policy
                                             ? request_.policy
                                             : [](const Clash&) { return ClashAnswer::keepBoth; },
                               .skipsSame = request_.skipsSame,
                               .brought = &request_.brought,
                               .ownPath = isOneFileSystem_ ? item.item.path : QString()});
}

void TreeCopy::copyFolder(const ScannedItem& scanned, Folder& target) {
    const CopyItem& item = scanned.item;
    const auto below = [&target](const QString& name) {
        return target.below.isEmpty() ? name : joinPath(target.below, name);
    };
    if (isOneFileSystem_ && isAtOrBelow(target.names.path(), item.item.path))
        throw Error(PhoneError::insideItself, {item.item.path});
    const TargetFolder::Decision decision = place(item, target.names);
    QString name;
    if (const auto* error = std::get_if<Error>(&decision))
        throw Error(*error);
    if (const auto* make = std::get_if<TargetFolder::Make>(&decision)) {
        const FileItem made = request_.to->makeFolder(target.names.path(), make->name, call_);
        ++outcome_.folders;
        outcome_.entries.add(made);
        name = make->name;
        noteMade(scanned, made.path, name);
        Folder inside{{made.path, request_.to->nameRules(made.path, call_), dateStep_},
                      below(name)};
        copyInto(scanned.content, inside);
    } else if (const auto* merge = std::get_if<TargetFolder::Merge>(&decision)) {
        name = merge->existing.name;
        Folder inside = openTarget(merge->existing.path, below(name), namesOf(scanned.content));
        noteMade(scanned, merge->existing.path, name);
        copyInto(scanned.content, inside);
    } else {
        ++outcome_.alreadyThere;
        forgetFiles(scanned);
        return;
    }
    if (request_.removesSource)
        removeSource(scanned, item.item, target, name);
}

void TreeCopy::copyFileTo(const ScannedItem& scanned, Folder& target, Together& together) {
    const CopyItem& item = scanned.item;
    const TargetFolder::Decision decision = place(item, target.names);
    if (const auto* error = std::get_if<Error>(&decision))
        throw Error(*error);
    if (const auto* stay = std::get_if<TargetFolder::Stay>(&decision)) {
        if (request_.removesSource && stay->same)
            finishMove(scanned, target, *stay->same);
        else if (request_.removesSource && scanned.asked)
            moved_.insert(*scanned.asked); // it stays, as was answered
        ++outcome_.alreadyThere;
        forgetFiles(scanned);
        return;
    }
    const auto* replace = std::get_if<TargetFolder::Replace>(&decision);
    const QString name =
        replace != nullptr ? replace->existing.name : std::get<TargetFolder::Make>(decision).name;
    if (can_.largestFile > 0 && item.item.size > can_.largestFile)
        throw Error(PhoneError::tooLarge, {item.item.path});
    if (replace == nullptr && sendsTogether_ && SmallFiles::takes(item.item)) {
        together.files.add({item.item, name});
        together.scanned.push_back(&scanned);
        return;
    }
    requireRoom(target.names.path(), item.item);
    const FileItem copied =
        transfer(item, target.names.path(), name,
                 replace != nullptr ? std::optional(replace->existing) : std::nullopt);
    noteMade(scanned, joinPath(target.names.path(), name), name);
    if (request_.removesSource)
        removeSource(scanned, copied, target, name);
}

/// A look at a file here costs nothing; at a phone it is one more request a file.
bool TreeCopy::checksSource() const {
    return !request_.from->queue() || request_.removesSource;
}

FileItem TreeCopy::transfer(const CopyItem& item, const QString& folder, const QString& name,
                            const std::optional<FileItem>& replaces) {
    QByteArray sha256;
    FileCopy copy{.from = *request_.from,
                  .file = item.item,
                  .to = *request_.to,
                  .folder = folder,
                  .name = name,
                  .replaces = replaces,
                  .checksSource = checksSource(),
                  .verifies = request_.verifies || request_.removesSource,
                  .verified = [&sha256](const QByteArray& hash) { sha256 = hash; }};
    const qint64 announced = std::max<qint64>(item.item.size, 0);
    const auto show = [&](qint64 done) {
        progress_.currentFileBytes = std::min(done, announced);
        pacer_->show(progress_);
    };
    FileItem made;
    try {
        made = copyFile(copy, show, call_);
    } catch (const Error& error) {
        // A phone's listing may be older than its files: once more, when it now says otherwise.
        if (!saysChanged(error))
            throw;
        const auto now = request_.from->find(item.item.path, call_);
        const bool isOther = !now || now->isDirectory || now->handle != item.item.handle;
        if (isOther || isAsSeen(item.item, *now))
            throw;
        copy.file = *now;
        made = copyFile(copy, show, call_);
    }
    noteCopied(item, made, sha256);
    return copy.file;
}

void TreeCopy::noteCopied(const CopyItem& item, const FileItem& made, const QByteArray& sha256) {
    const qint64 announced = std::max<qint64>(item.item.size, 0);
    progress_.currentFileBytes = 0;
    ++progress_.completedFiles;
    progress_.completedBytes = addByteCounts(progress_.completedBytes, announced);
    pacer_->show(progress_);
    ++outcome_.files;
    outcome_.entries.add(made);
    outcome_.brought.add(broughtAs(item.item, made));
    outcome_.bytes = addByteCounts(outcome_.bytes, std::max<qint64>(made.size, 0));
    if (request_.witness)
        request_.witness->copied(item, made, sha256);
    if (room_)
        *room_ -= std::min(*room_, static_cast<std::uint64_t>(announced));
}

/// Something like it is there: an earlier run brought it, and did not get to its source.
void TreeCopy::finishMove(const ScannedItem& scanned, const Folder& target,
                          const FileItem& brought) {
    if (!request_.from->find(scanned.item.item.path, call_)) { // that run did get to it
        noteMade(scanned, brought.path, brought.name);
        if (scanned.asked)
            moved_.insert(*scanned.asked);
        return;
    }
    if (!haveSameContent(*request_.from, scanned.item.item, *request_.to, brought, call_))
        throw request_.to->queue() ? Error(PhoneError::taken, {brought.name})
                                   : Error(LocalError::taken, {brought.path});
    noteMade(scanned, brought.path, brought.name);
    removeSource(scanned, scanned.item.item, target, brought.name);
}

/// Takes away what was copied to `name`; a folder only when it is empty.
void TreeCopy::removeSource(const ScannedItem& scanned, const FileItem& copied,
                            const Folder& target, const QString& name) {
    constexpr std::size_t filesAtOnce = 100;
    constexpr qint64 bytesAtOnce = qint64{256} << 20;
    const Leaving leaving{{copied, name, target.below, true}, scanned.asked};
    leaving_.push_back(leaving);
    leavingBytes_ = addByteCounts(leavingBytes_, std::max<qint64>(copied.size, 0));
    if (request_.to->queue() || leaving_.size() >= filesAtOnce || leavingBytes_ >= bytesAtOnce)
        removeSettled();
}

/// Where another program shows the source's folder as the target, each file would be taken for its
/// own copy.
void TreeCopy::requireTwoFolders() {
    if (areTwoFolders_ || isOneFileSystem_)
        return;
    const QString folder = parentPath(request_.items.front().item.path);
    areTwoFolders_ = !isOneFolder(*request_.to, request_.folder, *request_.from, folder, call_);
    if (!areTwoFolders_)
        throw Error(PhoneError::insideItself, {folder});
}

void TreeCopy::removeSettled() {
    const std::vector<Leaving> all = std::exchange(leaving_, {});
    leavingBytes_ = 0;
    if (all.empty())
        return;
    try {
        request_.to->flush();
        requireTwoFolders();
    } catch (const Error& error) {
        for (const Leaving& leaving : all)
            if (!leaving.item.item.isDirectory)
                outcome_.leftOut.push_back({leaving.item, error});
        return;
    }
    for (const Leaving& leaving : all)
        removeNow(leaving);
}

/// When it still is what was copied.
void TreeCopy::removeNow(const Leaving& leaving) {
    const FileItem& source = leaving.item.item;
    PhoneFileSystem& from = *request_.from;
    try {
        const auto now = from.find(source.path, call_);
        if (!now || now->isDirectory != source.isDirectory ||
            (!now->isDirectory && !isAsSeen(source, *now)))
            throw changedError(from, source.path);
        from.remove(*now, call_);
        if (leaving.asked)
            moved_.insert(*leaving.asked);
    } catch (const Error& error) {
        if (endsCopy(error))
            throw;
        // What keeps a folder from going was left out, and is named already.
        if (!error.is(PhoneError::folderNotEmpty) && !error.is(LocalError::folderNotEmpty))
            outcome_.leftOut.push_back({leaving.item, error});
    }
}

std::optional<std::uint64_t> TreeCopy::freeBytes(const QString& folder) {
    try {
        return request_.to->freeBytes(folder, call_);
    } catch (const Error& error) {
        if (endsCopy(error))
            throw;
        return std::nullopt; // then the target says when it is full
    }
}

void TreeCopy::requireRoom(const QString& folder, const FileItem& file) {
    qint64 bytes = file.size;
    const auto isTooMuch = [this, &bytes] {
        return room_ && bytes > 0 && static_cast<std::uint64_t>(bytes) > *room_;
    };
    if (isTooMuch())
        room_ = freeBytes(folder); // our count may be worse than the truth
    if (isTooMuch() && bytes >= resumableFrom)
        if (const auto begun =
                request_.to->find(joinPath(folder, resumableName(*request_.from, file)), call_))
            bytes -= begun->size;
    if (isTooMuch())
        throw request_.to->queue() ? Error(PhoneError::full, {folder})
                                   : Error(LocalError::full, {folder});
}

/// What is not copied after all is not waited for.
void TreeCopy::forgetFiles(const ScannedItem& scanned) {
    if (!scanned.unread && !scanned.item.item.isDirectory) {
        --progress_.totalFiles;
        progress_.totalBytes =
            addByteCounts(progress_.totalBytes, -std::max<qint64>(scanned.item.item.size, 0));
    }
    for (const ScannedItem& child : scanned.content)
        forgetFiles(child);
}

/// Where something that was asked for went.
void TreeCopy::noteMade(const ScannedItem& scanned, const QString& path, const QString& name) {
    if (!scanned.asked)
        return;
    outcome_.items[*scanned.asked].name = name;
    outcome_.items[*scanned.asked].isContinued = true;
    outcome_.made << path;
}

} // namespace tessary
