#include "browser/model/FileBrowserViewModel.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/EndInBackground.h"
#include "browser/actions/TypedPath.h"
#include "transfer/mount/DragMount.h"
#include "transfer/staging/StagedFiles.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// After an upload the folder is read again: soon after the last one, and in between not so often
/// that the phone is kept from copying.
constexpr auto reloadPause = 300ms;
constexpr auto reloadPauseInQueue = 3s;

std::vector<PathComponent> breadcrumbsOf(const FileTreeRoot& root, const QString& path) {
    std::vector<PathComponent> components{{QUuid::createUuid(), root.name, root.path}};
    QString soFar = root.path;
    for (const QString& name :
         path.mid(root.path.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        soFar = joinPath(soFar, name);
        components.push_back({QUuid::createUuid(), name, soFar});
    }
    return components;
}

} // namespace

FileBrowserViewModel::FileBrowserViewModel(CopyQueue& queue, BrowserSetup setup, QObject* parent)
    : QObject(parent),
      queue_(queue),
      openAndroid_(std::move(setup.openAndroid)),
      openApp_(std::move(setup.openApp)),
      staged_(*setup.staged),
      promises_(setup.promises),
      breadcrumbs_(breadcrumbsOf({QStringLiteral("/"), QStringLiteral("Root")}, currentPath_)),
      typeahead_(std::move(setup.clock)),
      copies_(*this, queue),
      changes_(*this),
      preview_(staged_) {
    connect(&changes_, &EntryChanges::runningChanged, this, &FileBrowserViewModel::editingChanged);
    connect(&changes_, &EntryChanges::removed, this, &FileBrowserViewModel::itemsDeleted);
    connect(&changes_, &EntryChanges::renamed, this, &FileBrowserViewModel::itemRenamed);
    connect(&preview_, &PreviewFetch::progress, this, &FileBrowserViewModel::previewProgress);
    connect(&preview_, &PreviewFetch::ready, this, &FileBrowserViewModel::previewReady);
    connect(&preview_, &PreviewFetch::failed, this, &FileBrowserViewModel::previewFailed);
    reloadTimer_.setSingleShot(true);
    connect(&reloadTimer_, &QTimer::timeout, this, &FileBrowserViewModel::reloadSoon);
    connect(&queue_, &CopyQueue::jobFinished, this, &FileBrowserViewModel::reloadAfter);
    if (promises_ != nullptr)
        promises_->reportFailuresTo([self = QPointer(this)](const FileItem& item,
                                                            const Error& error) {
            MainThread::post(
                [self, problem = BrowserProblem::of(BrowserProblem::What::drag, item.name, error)] {
                    if (self)
                        self->setProblem(problem);
                });
        });
}

FileBrowserViewModel::~FileBrowserViewModel() {
    if (promises_ != nullptr)
        promises_->reportFailuresTo({});
    stopAll();
    endInBackground(this, std::move(files_));
}

void FileBrowserViewModel::dismissProblem() {
    setProblem(std::nullopt);
}

void FileBrowserViewModel::stopAll() {
    ++loadNumber_;
    stopLoad_.request_stop();
    preview_.cancel();
    changes_.cancel();
    reloadTimer_.stop();
}

void FileBrowserViewModel::connectAndroid(const DeviceInfo& device, const QString& initialPath) {
    open(openAndroid_(device), device, initialPath);
}

void FileBrowserViewModel::connect(const QString& udid, const QString& bundleId,
                                   const QString& appName, const DeviceInfo& device,
                                   const QString& targetPath) {
    DeviceInfo phone = device;
    phone.udid = udid;
    const AppInfo app{bundleId, appName.isEmpty() ? bundleId : appName, true, false};
    open(openApp_(phone, app), phone, targetPath);
    isConnecting_ = true;
    appName_ = app.displayName;
    isMedia_ = isMediaFolder(bundleId);
    Q_EMIT connectionChanged();
}

void FileBrowserViewModel::open(std::shared_ptr<PhoneFileSystem> files,
                                const std::optional<DeviceInfo>& device,
                                const QString& initialPath) {
    preview_.cancel();
    reloadTimer_.stop();
    if (files_)
        left_.insert(files_->identity(), history_);
    std::swap(files_, files);
    endInBackground(this, std::move(files)); // saying goodbye to a phone takes its time
    activeDevice_ = device;
    appName_ = QStringLiteral("Documents");
    isMedia_ = false;
    isConnecting_ = false;
    history_ = initialPath.isEmpty() ? left_.value(files_->identity()) : BrowserHistory();
    knownFolders_.clear();
    folders_.open(files_->identity(), device ? device->id() : QString());
    Q_EMIT connectionChanged();
    if (history_.paths().empty())
        history_.record(
            files_->canonicalPath(initialPath.isEmpty() ? QStringLiteral("/") : initialPath));
    Q_EMIT historyChanged();
    show(history_.current());
}

void FileBrowserViewModel::loseDevice() {
    if (!files_)
        return;
    stopAll();
    folders_.forget(files_->identity());
    setState(BrowserState::deviceLost, false);
    setProblem(BrowserProblem{BrowserProblem::What::unplugged, {}, 1, 1, {}}, true);
}

void FileBrowserViewModel::updateDevice(const DeviceInfo& device) {
    if (!activeDevice_ || activeDevice_->udid != device.udid || *activeDevice_ == device)
        return;
    const bool isBack = state_ == BrowserState::deviceLost;
    const bool isUnlocked = !activeDevice_->isDataAccessible() && device.isDataAccessible();
    if (activeDevice_->protocolMode != device.protocolMode)
        folders_.forget(files_->identity());
    folders_.open(files_->identity(), device.id());
    activeDevice_ = device;
    // The connection to an app is opened anew by itself, wherever the phone is plugged in.
    if (device.platform == DevicePlatform::android)
        files_ = openAndroid_(device);
    const FileTreeRoot root = rootOf(currentPath_);
    if (!breadcrumbs_.empty() && breadcrumbs_.front().name != root.name) {
        breadcrumbs_.front().name = root.name;
        Q_EMIT pathChanged();
    }
    Q_EMIT connectionChanged();
    if (isBack || isUnlocked)
        reload();
}

/// The phone knows its storages' names better than a path does.
FileTreeRoot FileBrowserViewModel::rootOf(const QString& path) const {
    FileTreeRoot root = files_->rootOf(path);
    if (activeDevice_)
        for (const StorageVolume& volume : activeDevice_->volumes)
            if (root.path == QStringLiteral("/storage/") + volume.id && !volume.name.isEmpty())
                root.name = volume.name;
    return root;
}

void FileBrowserViewModel::navigateTo(const QString& path, bool recordHistory) {
    if (!files_)
        return;
    const QString target = files_->canonicalPath(path);
    if (recordHistory && target != currentPath_) {
        history_.record(target);
        Q_EMIT historyChanged();
    }
    show(target);
}

/// Goes to another folder, or anew to the one shown.
void FileBrowserViewModel::show(const QString& path) {
    setSearchedName({});
    changeSelection({});
    typeahead_.reset();
    awaited_.reset();
    ++typedNumber_;
    setProblem(std::nullopt);
    const FileTreeRoot root = rootOf(path);
    const bool isOther = path != currentPath_;
    currentPath_ = path;
    rootPath_ = root.path;
    breadcrumbs_ = breadcrumbsOf(root, path);
    auto remembered = folders_.recall(files_->identity(), path);
    const bool isRemembered = remembered && !remembered->empty();
    if (isRemembered)
        rows_.reset(FileListing::make(*std::move(remembered), QLocale()));
    else if (isOther || rows_.listing().size() > 0)
        rows_.reset(FileListing::make({}, QLocale()));
    Q_EMIT pathChanged();
    load(isRemembered ? Meanwhile::remembered : Meanwhile::nothing);
}

void FileBrowserViewModel::enterFolder(const QString& itemId) {
    const FileItem* item = itemWithId(itemId);
    if (item && item->isDirectory)
        navigateTo(item->path);
}

bool FileBrowserViewModel::canNavigateUp() const {
    return files_ && currentPath_ != rootPath_;
}

void FileBrowserViewModel::navigateUp() {
    if (!canNavigateUp())
        return;
    const QString left = lastComponent(currentPath_);
    const bool isGone = state_ == BrowserState::folderGone;
    navigateTo(isGone ? livingFolder_ : parentPath(currentPath_));
    if (isGone)
        return;
    awaited_ = Awaited{left};
    if (rows_.listing().size() > 0)
        selectAwaited();
}

bool FileBrowserViewModel::canGoBack() const {
    return history_.canGoBack();
}

bool FileBrowserViewModel::canGoForward() const {
    return history_.canGoForward();
}

void FileBrowserViewModel::goBack() {
    if (!files_ || !history_.canGoBack())
        return;
    const QString path = history_.back();
    Q_EMIT historyChanged();
    show(path);
}

void FileBrowserViewModel::goForward() {
    if (!files_ || !history_.canGoForward())
        return;
    const QString path = history_.forward();
    Q_EMIT historyChanged();
    show(path);
}

void FileBrowserViewModel::reload() {
    if (files_)
        load(Meanwhile::shown);
}

/// Reads the folder again, after the reading that is under way: a phone that is busy copying would
/// else never come to the end of one.
void FileBrowserViewModel::reloadSoon() {
    isReloadWanted_ = isLoading_;
    if (!isLoading_)
        reload();
}

void FileBrowserViewModel::setSearchedName(const QString& name) {
    if (std::exchange(searchedName_, name) != name)
        Q_EMIT searchedNameChanged();
}

void FileBrowserViewModel::searchBelow(const QString& name) {
    const QString wanted = name.trimmed();
    if (!files_ || state_ == BrowserState::deviceLost || wanted.isEmpty())
        return;
    changeSelection({});
    awaited_.reset();
    setProblem(std::nullopt);
    setSearchText({});
    setSearchedName(wanted);
    rows_.reset(FileListing::make({}, QLocale()));
    load(Meanwhile::nothing);
}

void FileBrowserViewModel::endSearch() {
    if (!searchedName_.isEmpty())
        show(currentPath_);
}

std::function<BrowserLoad(const std::stop_token&)>
FileBrowserViewModel::loadWork(const PartialListing& part) const {
    if (searchedName_.isEmpty())
        return [files = files_, path = currentPath_, locale = QLocale(),
                part](const std::stop_token& stop) {
            return loadFolder(*files, path, locale, part, stop);
        };
    return [files = files_, path = currentPath_, locale = QLocale(), part,
            search = SearchBelow{searchedName_, rows_.showsHidden()}](const std::stop_token& stop) {
        return loadSearch(*files, path, search, locale, part, stop);
    };
}

void FileBrowserViewModel::load(Meanwhile meanwhile) {
    reloadTimer_.stop();
    isReloadWanted_ = false;
    stopLoad_.request_stop();
    const std::uint64_t number = ++loadNumber_;
    const bool partsWanted = meanwhile == Meanwhile::nothing;
    setState(meanwhile == Meanwhile::shown ? state_ : BrowserState::ready, true);
    stopLoad_ = runInBackground(
        this, loadWork(partsWanted ? partReceiver(number) : PartialListing()),
        [this, number, meanwhile, begun = folders_.now()](BackgroundResult<BrowserLoad> result) {
            // Of a folder that is not wanted any more, or stopped.
            if (number != loadNumber_ || !result.succeeded())
                return;
            const BrowserLoad loaded = result.take();
            if (loaded.listing && searchedName_.isEmpty())
                folders_.remember(files_->identity(), currentPath_, loaded.listing->items(), begun);
            else if (!loaded.listing)
                forgetAfter(loaded);
            applyLoad(loaded, meanwhile);
            if (!isLoading_ && isReloadWanted_)
                reloadTimer_.start(queue_.summary().isIdle() ? reloadPause : reloadPauseInQueue);
        });
}

/// Where a load leaves what it has so far: the main thread shows the newest part, however many
/// there were.
PartialListing FileBrowserViewModel::partReceiver(std::uint64_t number) {
    return [self = QPointer(this), number](std::shared_ptr<const FileListing> part) {
        MainThread::post([self, number, part = std::move(part)] {
            if (self && number == self->loadNumber_ && self->isLoading_)
                self->rows_.update(part);
        });
    };
}

void FileBrowserViewModel::forgetAfter(const BrowserLoad& failure) {
    if (failure.isDeviceLost)
        folders_.forget(files_->identity());
    else
        folders_.forgetFolder(files_->identity(), currentPath_);
}

void FileBrowserViewModel::applyLoad(const BrowserLoad& load, Meanwhile meanwhile) {
    if (!load.listing) {
        const bool isAndroid = activeDevice_ && activeDevice_->platform == DevicePlatform::android;
        DiagnosticsLogger::shared().ui.error(
            isAndroid       ? "FileBrowserViewModel Android listDirectory error: %s"
            : isConnecting_ ? "FileBrowserViewModel connect iOS error: %s"
                            : "FileBrowserViewModel navigateTo error: %s",
            {load.problem->failures.empty() ? load.problem->name
                                            : load.problem->failures.front().error.logText()});
        isConnecting_ = false;
        livingFolder_ = load.livingFolder.value_or(QString());
        if (load.livingFolder)
            rows_.reset(FileListing::make({}, QLocale()));
        pruneSelection();
        setState(load.isDeviceLost   ? BrowserState::deviceLost
                 : load.livingFolder ? BrowserState::folderGone
                                     : BrowserState::failed,
                 false);
        setProblem(load.problem, true);
        return;
    }
    isConnecting_ = false;
    unreadable_ = load.unreadable;
    if (searchedName_.isEmpty())
        knownFolders_.note(currentPath_, load.listing->items());
    // What has come of a long listing is shown already.
    if (meanwhile == Meanwhile::nothing && rows_.listing().size() == 0)
        rows_.reset(load.listing);
    else
        rows_.update(load.listing);
    pruneSelection();
    setState(BrowserState::ready, false);
    if (isProblemOfLoad_)
        setProblem(std::nullopt);
    selectAwaited();
}

void FileBrowserViewModel::cancelLoading() {
    if (!isLoading_ || !files_)
        return;
    ++loadNumber_;
    stopLoad_.request_stop();
    const bool isShown = state_ != BrowserState::ready || rows_.listing().size() > 0;
    setState(isShown ? state_ : BrowserState::failed, false);
    if (!isShown)
        setProblem(
            BrowserProblem{BrowserProblem::What::notRead, lastComponent(currentPath_), 1, 1, {}},
            true);
}

void FileBrowserViewModel::setState(BrowserState state, bool isLoading) {
    if (state == state_ && isLoading == isLoading_)
        return;
    state_ = state;
    isLoading_ = isLoading;
    Q_EMIT stateChanged();
}

void FileBrowserViewModel::setProblem(const std::optional<BrowserProblem>& problem, bool isOfLoad) {
    isProblemOfLoad_ = problem && isOfLoad;
    if (!problem && !problem_)
        return;
    problem_ = problem;
    Q_EMIT problemChanged();
}

const std::vector<FileItem>& FileBrowserViewModel::items() const {
    return rows_.listing().items();
}

std::vector<FileItem> FileBrowserViewModel::filteredItems() const {
    std::vector<FileItem> shown;
    shown.reserve(static_cast<std::size_t>(rows_.count()));
    for (int row = 0; row < rows_.count(); ++row)
        shown.push_back(rows_.item(row));
    return shown;
}

const FileItem* FileBrowserViewModel::itemWithId(const QString& id) const {
    const int index = rows_.listing().indexOf(id);
    return index < 0 ? nullptr : &rows_.listing().item(index);
}

std::vector<FileItem> FileBrowserViewModel::itemsWithIds(const QStringList& ids) const {
    std::vector<FileItem> found;
    for (const QString& id : ids)
        if (const FileItem* item = itemWithId(id))
            found.push_back(*item);
    return found;
}

void FileBrowserViewModel::setSearchText(const QString& text) {
    if (text == rows_.filter())
        return;
    rows_.setFilter(text);
    pruneSelection();
    Q_EMIT searchTextChanged();
}

void FileBrowserViewModel::setShowsHidden(bool shows) {
    if (shows == rows_.showsHidden())
        return;
    rows_.setShowsHidden(shows);
    pruneSelection();
    Q_EMIT showsHiddenChanged();
    if (!searchedName_.isEmpty())
        reload(); // hidden folders are searched, too, or not any more
}

/// What cannot be seen must not be deleted with the rest.
void FileBrowserViewModel::pruneSelection() {
    BrowserSelection selection = selection_;
    selection.prune(rows_);
    changeSelection(selection);
}

void FileBrowserViewModel::setSortOrder(const FileSortOrder& order) {
    if (order == rows_.sortOrder())
        return;
    rows_.setSortOrder(order);
    Q_EMIT sortOrderChanged();
}

void FileBrowserViewModel::setViewMode(ViewMode mode) {
    if (std::exchange(viewMode_, mode) != mode)
        Q_EMIT viewModeChanged();
}

void FileBrowserViewModel::setPictureSide(int side) {
    const int bounded = std::clamp(side, smallestPicture, largestPicture);
    if (std::exchange(pictureSide_, bounded) != bounded)
        Q_EMIT pictureSideChanged();
}

std::vector<FileItem> FileBrowserViewModel::selectedEntries() const {
    std::vector<FileItem> selected;
    for (int row = 0; row < rows_.count(); ++row)
        if (selection_.ids().contains(rows_.id(row)))
            selected.push_back(rows_.item(row));
    return selected;
}

void FileBrowserViewModel::changeSelection(const BrowserSelection& selection) {
    if (selection == selection_)
        return;
    selection_ = selection;
    Q_EMIT selectionChanged();
}

void FileBrowserViewModel::selectItem(const QString& id, SelectionChange how) {
    const int row = rows_.rowOf(id);
    if (row < 0)
        return;
    BrowserSelection selection = selection_;
    selection.select(rows_, row, how);
    changeSelection(selection);
}

void FileBrowserViewModel::moveSelection(int step, bool extend) {
    BrowserSelection selection = selection_;
    selection.move(rows_, step, extend);
    changeSelection(selection);
}

void FileBrowserViewModel::selectAll() {
    BrowserSelection selection = selection_;
    selection.selectAll(rows_);
    changeSelection(selection);
}

void FileBrowserViewModel::invertSelection() {
    QSet<QString> others;
    for (int row = 0; row < rows_.count(); ++row)
        if (!selection_.ids().contains(rows_.id(row)))
            others.insert(rows_.id(row));
    setSelection(others, selection_.current().value_or(QString()));
}

void FileBrowserViewModel::clearSelection() {
    changeSelection({});
}

void FileBrowserViewModel::setSelection(const QSet<QString>& ids, const QString& currentId) {
    BrowserSelection selection = selection_;
    selection.set(rows_, ids, currentId);
    changeSelection(selection);
}

void FileBrowserViewModel::handleTypeahead(const QString& character) {
    const int current = selection_.current() ? rows_.rowOf(*selection_.current()) : -1;
    const int row = typeahead_.type(character, rows_, current);
    if (row >= 0)
        selectItem(rows_.id(row));
}

void FileBrowserViewModel::refreshAfterChange(const QString& identity, const QString& path,
                                              bool isDeviceLost) {
    if (!files_ || files_->identity() != identity || path != currentPath_)
        return;
    if (isDeviceLost)
        setState(BrowserState::deviceLost, false);
    else
        reload();
}

void FileBrowserViewModel::createFolder(const QString& wanted) {
    changes_.createFolder(wanted.isEmpty() ? freeFolderName(items()) : wanted);
}

void FileBrowserViewModel::deleteItems(const QStringList& ids) {
    changes_.remove(itemsWithIds(ids));
}

void FileBrowserViewModel::renameItem(const QString& id, const QString& newName) {
    if (const FileItem* item = itemWithId(id))
        changes_.rename(*item, newName);
}

void FileBrowserViewModel::moveItemsToPath(const QStringList& ids, const QString& path) {
    changes_.move(itemsWithIds(ids), path);
}

void FileBrowserViewModel::cacheFileForPreview(const QString& id) {
    const FileItem* item = itemWithId(id);
    preview_.cancel();
    if (files_ && item)
        preview_.start(files_, *item, id);
}

std::stop_source
FileBrowserViewModel::prepareDragURLs(const QStringList& ids,
                                      std::function<void(const DragFiles&)> whenReady) {
    if (!files_)
        return std::stop_source(std::nostopstate);
    return runInBackground(
        this,
        [files = files_, items = itemsWithIds(ids), mount = promises_, &copies = staged_](
            const std::stop_token& stop) { return prepareDrag(files, items, mount, copies, stop); },
        [whenReady = std::move(whenReady)](BackgroundResult<DragFiles> result) {
            if (result.succeeded())
                whenReady(result.take());
        });
}

QStringList FileBrowserViewModel::pathCompletions(const QString& typed) const {
    if (!files_)
        return {};
    const QString above = typed.left(typed.lastIndexOf(QLatin1Char('/')) + 1);
    QStringList paths;
    for (const QString& name : knownFolders_.namesIn(
             files_->canonicalPath(absolutePath(above, currentPath_)), typed.mid(above.size())))
        paths.append(above + name);
    return paths;
}

void FileBrowserViewModel::goToTyped(const QString& typed, std::function<void(bool)> whenDone) {
    if (!files_ || typed.isEmpty())
        return;
    dismissProblem();
    const std::uint64_t number = ++typedNumber_;
    const QString path = files_->canonicalPath(absolutePath(typed, currentPath_));
    runInBackground(
        this,
        [files = files_, path, typed](const std::stop_token& stop) {
            return lookUpTypedPath(*files, path, typed, stop);
        },
        [this, number, path, whenDone = std::move(whenDone)](BackgroundResult<TypedPath> result) {
            if (number != typedNumber_ || !files_ || !result.succeeded())
                return;
            const TypedPath found = result.take();
            if (found.item) {
                navigateTo(found.item->isDirectory ? path : parentPath(path));
                if (!found.item->isDirectory)
                    awaited_ = Awaited{found.item->name};
            } else {
                setProblem(found.problem);
            }
            whenDone(found.item.has_value());
        });
}

/// Selects the entry that an action announced, once the folder shows it.
void FileBrowserViewModel::selectAwaited() {
    if (!awaited_)
        return;
    const Awaited awaited = *awaited_;
    if (!isLoading_)
        awaited_.reset();
    for (int row = 0; row < rows_.count(); ++row) {
        if (rows_.item(row).name != awaited.name)
            continue;
        awaited_.reset();
        const QString id = rows_.id(row);
        selectItem(id);
        if (awaited.isNewFolder)
            Q_EMIT folderCreated(id);
        return;
    }
}

/// Reads the folder again after an upload into it.
void FileBrowserViewModel::reloadAfter(const QUuid& finishedJob) {
    const int index = queue_.indexOf(finishedJob);
    if (index < 0)
        return;
    const CopyJob& job = queue_.jobs()[static_cast<std::size_t>(index)];
    if (job.direction == CopyJob::Direction::toComputer)
        return;
    for (const QString& made : job.made)
        folders_.entryChanged(job.target, made);
    const QString sourceFolder = parentPath(job.sourcePath); // it may have been a move
    folders_.forgetFolder(job.source, sourceFolder);
    const auto isShown = [this](const QString& identity, const QString& folder) {
        return files_ && identity == files_->identity() &&
               files_->canonicalPath(folder) == currentPath_;
    };
    if (!searchedName_.isEmpty() || // a search takes its time: the user repeats it
        (!isShown(job.target, job.targetFolder) && !isShown(job.source, sourceFolder)))
        return;
    const bool isLast = queue_.summary().isIdle();
    if (isLast || !reloadTimer_.isActive())
        reloadTimer_.start(isLast ? reloadPause : reloadPauseInQueue);
}

} // namespace tessary
