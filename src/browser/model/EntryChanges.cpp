#include "browser/model/EntryChanges.h"

#include "base/local/LocalError.h"
#include "base/local/Trash.h"
#include "base/text/PathNames.h"
#include "base/threads/Background.h"
#include "base/threads/TellLatest.h"
#include "browser/model/FileBrowserViewModel.h"
#include "phone/TreeLimits.h"
#include "transfer/local/LocalFileSystem.h"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <utility>

namespace tessary {

namespace {

using What = BrowserProblem::What;

/// Entries that a move has to leave to a copy; filled in the background.
struct Unmovable {
    std::mutex mutex;
    std::vector<FileItem> items;
};

/// An entry of which only name and place are known.
FileItem named(const QString& path, bool isFolder = false) {
    return {lastComponent(path), path, isFolder, 0, std::nullopt};
}

What problemOf(UndoStep::Kind kind) {
    switch (kind) {
    case UndoStep::Kind::rename:
        return What::rename;
    case UndoStep::Kind::move:
        return What::move;
    case UndoStep::Kind::create:
    case UndoStep::Kind::copy:
        break;
    }
    return What::remove;
}

/// For good on a phone; to the trash of this computer.
void removeWhole(PhoneFileSystem& files, const FileItem& item, const std::stop_token& stop) {
    if (dynamic_cast<LocalFileSystem*>(&files) == nullptr)
        files.removeTree(item, stop);
    else if (!moveToTrash(item.path))
        throw Error(LocalError::cannotDelete, {item.path, QString()});
}

/// PhoneError::notAsCopied unless all that is there now was made by the copy.
void requireAsCopied(PhoneFileSystem& files, const FileItem& top, const EntryMarks& made,
                     const std::stop_token& stop) {
    qint64 left = mostWalkedEntries;
    std::vector<FileItem> waiting{top};
    while (!waiting.empty()) {
        const FileItem item = std::move(waiting.back());
        waiting.pop_back();
        if (!made.contains(item) || --left < 0)
            throw Error(PhoneError::notAsCopied, {top.path});
        if (!item.isDirectory)
            continue;
        Listing content = listAll(files, item.path, stop);
        if (!content.unreadable.empty())
            throw Error(PhoneError::notAsCopied, {top.path});
        std::ranges::move(content.items, std::back_inserter(waiting));
    }
}

void takeBack(PhoneFileSystem& files, const UndoStep& step, const UndoStep::Change& change,
              const std::stop_token& stop) {
    const FileItem item = require(files, change.now, stop);
    switch (step.kind) {
    case UndoStep::Kind::rename:
        (void)files.rename(item, lastComponent(change.before), TakenName::refused, stop);
        break;
    case UndoStep::Kind::move:
        (void)files.move(item, parentPath(change.before), stop);
        break;
    case UndoStep::Kind::create:
        if (!item.isDirectory)
            throw Error(PhoneError::changed, {item.path});
        files.remove(item, stop);
        break;
    case UndoStep::Kind::copy:
        requireAsCopied(files, item, step.made, stop);
        removeWhole(files, item, stop);
        break;
    }
}

} // namespace

EntryChanges::EntryChanges(FileBrowserViewModel& browser) : browser_(browser) {
    connect(&browser.queue(), &CopyQueue::recordChanged, this, [this](const QUuid& id) {
        const CopyQueue& queue = browser_.queue();
        const int index = queue.indexOf(id);
        if (index < 0)
            return;
        const CopyJob& job = queue.jobs()[static_cast<std::size_t>(index)];
        if (!job.isFinished())
            return;
        history_.endCopy(job);
        Q_EMIT undoableChanged();
    });
}

EntryChanges::~EntryChanges() {
    cancel();
}

void EntryChanges::cancel() {
    for (std::stop_source& stop : running_)
        stop.request_stop();
}

/// Does something to each entry in the background; `whenDone` is called on the main thread, unless
/// this is gone by then.
void EntryChanges::start(const std::shared_ptr<PhoneFileSystem>& files, std::vector<FileItem> items,
                         What what, EditAction action, Done whenDone) {
    if (running_.empty())
        progress_ = {};
    progress_.total += static_cast<int>(items.size());
    const auto tell = tellLatest<int>(this, [this, before = progress_.done](int count) {
        if (!isRunning())
            return;
        progress_.done = before + count;
        Q_EMIT runningChanged();
    });
    const auto source = std::make_shared<std::stop_source>(std::nostopstate);
    *source = runInBackground(
        this,
        [files, items = std::move(items), what, action = std::move(action),
         tell](const std::stop_token& stop) {
            return editEach(*files, items, what, action, tell, stop);
        },
        [this, source, whenDone = std::move(whenDone)](BackgroundResult<BrowserEditReport> result) {
            running_.erase(std::find(running_.begin(), running_.end(), *source));
            Q_EMIT runningChanged();
            whenDone(result.succeeded() ? result.take() : BrowserEditReport());
        });
    running_.push_back(*source);
    Q_EMIT runningChanged();
}

void EntryChanges::run(const std::shared_ptr<PhoneFileSystem>& files, std::vector<FileItem> items,
                       What what, EditAction action, Done whenDone, const QStringList& newPaths) {
    if (!files || items.empty())
        return;
    QStringList changedPaths = newPaths;
    for (const FileItem& item : items)
        changedPaths << item.path;
    start(files, std::move(items), what, std::move(action),
          [this, whenDone = std::move(whenDone), changedPaths, files,
           path = browser_.currentPath()](const BrowserEditReport& report) {
              for (const QString& changed : changedPaths)
                  browser_.folders().entryChanged(files->identity(), changed);
              whenDone(report);
              if (report.problem)
                  browser_.showProblem(*report.problem);
              // The user may be in another folder by now, which this has changed as well.
              const QString shown = browser_.currentPath();
              const bool isTouched = std::ranges::any_of(changedPaths, [&](const QString& changed) {
                  return files->canonicalPath(parentPath(changed)) == shown;
              });
              browser_.refreshAfterChange(files->identity(), isTouched ? shown : path,
                                          report.isDeviceLost);
          });
}

void EntryChanges::record(UndoStep step) {
    history_.record(std::move(step));
    Q_EMIT undoableChanged();
}

void EntryChanges::createFolder(const QString& name) {
    // The folder does not exist yet: an entry that only carries its name and place.
    run(
        browser_.files(), {named(joinPath(browser_.currentPath(), name), true)}, What::create,
        [parent = browser_.currentPath()](PhoneFileSystem& files, const FileItem& item,
                                          const std::stop_token& stop) {
            (void)files.makeFolder(parent, item.name, stop);
        },
        [this, name, parent = browser_.currentPath(),
         identity = browser_.files() ? browser_.files()->identity()
                                     : QString()](const BrowserEditReport& report) {
            if (report.donePaths.isEmpty())
                return;
            record({UndoStep::Kind::create, identity, {{{}, report.donePaths.front()}}});
            if (parent == browser_.currentPath() && isShown(identity))
                browser_.awaitEntry(name, true);
        });
}

void EntryChanges::remove(std::vector<FileItem> items) {
    const auto files = browser_.files();
    if (!files)
        return;
    run(files, std::move(items), What::remove, removeWhole,
        [this, identity = files->identity()](const BrowserEditReport& report) {
            if (!report.donePaths.isEmpty()) // what was done before is not what "undo" means now
                noteLastingChange(identity);
            tellRemoved(identity, report.donePaths);
        });
}

bool EntryChanges::isShown(const QString& identity) const {
    return browser_.files() && browser_.files()->identity() == identity;
}

/// The user may have chosen another phone meanwhile, which has lost nothing.
void EntryChanges::tellRemoved(const QString& identity, const QStringList& paths) {
    if (!paths.isEmpty() && isShown(identity))
        Q_EMIT removed(paths);
}

void EntryChanges::rename(const FileItem& item, const QString& newName) {
    if (newName == item.name || !browser_.files())
        return;
    if (newName.trimmed().isEmpty()) { // nobody would see it
        const ErrorCode code = browser_.files()->queue() ? ErrorCode(PhoneError::nameNotAllowed)
                                                         : ErrorCode(LocalError::nameNotUsable);
        browser_.showProblem(BrowserProblem::of(What::rename, item.name, Error(code, {newName})));
        return;
    }
    const QString newPath = joinPath(parentPath(item.path), newName);
    run(
        browser_.files(), {item}, What::rename,
        [newName](PhoneFileSystem& files, const FileItem& entry, const std::stop_token& stop) {
            (void)files.rename(entry, newName, TakenName::refused, stop);
        },
        [this, newName, newPath, folder = browser_.currentPath(),
         identity = browser_.files()->identity()](const BrowserEditReport& report) {
            if (report.donePaths.isEmpty())
                return;
            const QString& path = report.donePaths.front();
            record({UndoStep::Kind::rename, identity, {{path, newPath}}});
            if (folder == browser_.currentPath() && isShown(identity))
                browser_.awaitEntry(newName);
            Q_EMIT renamed(path, newPath);
        },
        {newPath});
}

void EntryChanges::move(std::vector<FileItem> items, const QString& folder) {
    const auto files = browser_.files();
    if (!files)
        return;
    const QString target = files->canonicalPath(folder);
    std::erase_if(items, [&](const FileItem& item) {
        return files->canonicalPath(parentPath(item.path)) == target;
    });
    QStringList newPaths;
    for (const FileItem& item : items)
        newPaths << joinPath(target, item.name);
    const auto unmovable = std::make_shared<Unmovable>();
    run(
        files, std::move(items), What::move,
        [target, unmovable](PhoneFileSystem& phone, const FileItem& item,
                            const std::stop_token& stop) {
            try {
                (void)phone.move(item, target, stop);
            } catch (const Error& error) {
                if (!error.is(PhoneError::otherStorage) && !error.is(PhoneError::notSupported))
                    throw;
                const std::scoped_lock lock(unmovable->mutex);
                unmovable->items.push_back(item);
            }
        },
        [this, target, unmovable, files](const BrowserEditReport& report) {
            const std::scoped_lock lock(unmovable->mutex);
            UndoStep step{UndoStep::Kind::move, files->identity(), {}};
            for (const QString& path : report.donePaths)
                if (std::ranges::find(unmovable->items, path, &FileItem::path) ==
                    unmovable->items.end())
                    step.changes.push_back({path, joinPath(target, lastComponent(path))});
            record(std::move(step));
            if (!report.isStopped && !report.isDeviceLost)
                browser_.copies().moveByCopy(files, unmovable->items, target);
        },
        newPaths);
}

void EntryChanges::noteCopy(const QUuid& copy, const QString& identity,
                            std::shared_ptr<PhoneFileSystem> computer) {
    record({UndoStep::Kind::copy, identity, {}, copy, {}, std::move(computer)});
}

void EntryChanges::noteLastingChange(const QString& identity) {
    history_.forget(identity);
    Q_EMIT undoableChanged();
}

std::optional<UndoStep> EntryChanges::undoable() const {
    return browser_.files() ? history_.newestOf(browser_.files()->identity()) : std::nullopt;
}

void EntryChanges::undo() {
    const auto step = undoable();
    if (!step || step->changes.empty() || isRunning())
        return;
    history_.dropNewestOf(step->identity);
    Q_EMIT undoableChanged();
    std::vector<FileItem> items;
    QStringList oldPaths;
    for (const UndoStep::Change& change : step->changes) {
        items.push_back(named(change.now));
        if (!change.before.isEmpty())
            oldPaths << change.before;
    }
    run(
        step->computer ? step->computer : browser_.files(), std::move(items), problemOf(step->kind),
        [step = *step](PhoneFileSystem& files, const FileItem& item, const std::stop_token& stop) {
            const auto change = std::ranges::find(step.changes, item.path, &UndoStep::Change::now);
            takeBack(files, step, *change, stop);
        },
        [this, step = *step](const BrowserEditReport& report) { takenBack(step, report); },
        oldPaths);
}

void EntryChanges::takenBack(const UndoStep& step, const BrowserEditReport& report) {
    UndoStep left = step; // what failed can be tried again
    std::erase_if(left.changes, [&](const UndoStep::Change& change) {
        return report.donePaths.contains(change.now) || report.gonePaths.contains(change.now);
    });
    if (!left.changes.empty())
        record(std::move(left));
    if (report.donePaths.isEmpty() || step.computer)
        return;
    if (step.kind == UndoStep::Kind::create || step.kind == UndoStep::Kind::copy) {
        tellRemoved(step.identity, report.donePaths);
        return;
    }
    const auto first =
        std::ranges::find(step.changes, report.donePaths.front(), &UndoStep::Change::now);
    const QString& back = first->before;
    if (isShown(step.identity) && parentPath(back) == browser_.currentPath())
        browser_.awaitEntry(lastComponent(back));
    if (step.kind == UndoStep::Kind::rename)
        Q_EMIT renamed(first->now, back);
}

} // namespace tessary
