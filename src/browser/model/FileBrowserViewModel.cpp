#include "browser/model/FileBrowserViewModel.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/EndInBackground.h"
#include "transfer/local/LocalFileSystem.h"
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

} // namespace

FileBrowserViewModel::FileBrowserViewModel(CopyQueue& queue, BrowserSetup setup, QObject* parent)
    : QObject(parent),
      queue_(queue),
      openAndroid_(std::move(setup.openAndroid)),
      openApp_(std::move(setup.openApp)),
      staged_(setup.staged),
      dragMount_(setup.dragMount),
      loader_([&queue] { return queue.summary().isIdle() ? reloadPause : reloadPauseInQueue; }),
      copies_(*this, queue, std::move(setup.comparesCopies)),
      changes_(*this) {
    connect(&changes_, &EntryChanges::runningChanged, this, &FileBrowserViewModel::editingChanged);
    connect(&changes_, &EntryChanges::removed, this, &FileBrowserViewModel::itemsDeleted);
    connect(&changes_, &EntryChanges::renamed, this, &FileBrowserViewModel::itemRenamed);
    connect(&loader_, &FolderLoader::againDue, this, &FileBrowserViewModel::reload);
    connect(&loader_, &FolderLoader::partCame, this,
            [this](const std::shared_ptr<const FileListing>& part) { rows_.update(part); });
    connect(&queue_, &CopyQueue::jobFinished, this, &FileBrowserViewModel::reloadAfter);
    takeDragFailures();
}

bool FileBrowserViewModel::isLocal() const {
    return std::dynamic_pointer_cast<LocalFileSystem>(files_) != nullptr;
}

void FileBrowserViewModel::takeDragFailures() {
    if (dragMount_ != nullptr)
        tellFailures(*dragMount_, this, [this](const BrowserProblem& p) { setProblem(p); });
}

FileBrowserViewModel::~FileBrowserViewModel() {
    stopAll();
    endInBackground(std::move(files_));
}

void FileBrowserViewModel::stopAll() {
    loader_.stop();
    loader_.forgetAgain();
    changes_.cancel();
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
    if (files_)
        left_.insert(files_->identity(), history_);
    std::swap(files_, files);
    endInBackground(std::move(files)); // saying goodbye to a phone takes its time
    activeDevice_ = device;
    appName_ = QStringLiteral("Documents");
    isMedia_ = false;
    isConnecting_ = false;
    history_ = initialPath.isEmpty() ? left_.value(files_->identity()) : BrowserHistory();
    typed_.clear();
    setSearchText({});
    folders_.open(files_->identity(), device ? device->id() : QString());
    Q_EMIT connectionChanged();
    const QString top = files_->canonicalPath(QStringLiteral("/"));
    if (device && history_.paths().empty())
        history_.record({}); // a phone begins with itself
    if (history_.paths().empty() || !initialPath.isEmpty())
        history_.record(files_->canonicalPath(initialPath.isEmpty() ? top : initialPath));
    Q_EMIT historyChanged();
    const bool isAtPhone = history_.current().isEmpty();
    show(isAtPhone ? top : history_.current(), isAtPhone);
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
    BrowserPlace renamed = BrowserPlace::of(*files_, activeDevice_, currentPath());
    if (place_.components.empty() ||
        place_.components.front().name != renamed.components.front().name) {
        place_ = std::move(renamed);
        Q_EMIT pathChanged();
    }
    Q_EMIT connectionChanged();
    if (isBack || isUnlocked)
        reload();
}

void FileBrowserViewModel::navigateTo(const QString& path, bool recordHistory) {
    if (!files_)
        return;
    const QString target = files_->canonicalPath(path);
    if (recordHistory && (isAtPhone_ || target != currentPath())) {
        history_.record(target);
        Q_EMIT historyChanged();
    }
    show(target);
}

/// Goes to another folder, or anew to the one shown; below the phone itself for the time being.
void FileBrowserViewModel::show(const QString& path, bool isAtPhone) {
    setAtPhone(isAtPhone);
    setSearchedName({});
    selection_.restart();
    awaited_.reset();
    unreadable_ = 0;
    typed_.forget();
    setProblem(std::nullopt);
    const bool isOther = path != currentPath();
    place_ = BrowserPlace::of(*files_, activeDevice_, path);
    auto remembered = folders_.recall(files_->identity(), path);
    const bool isRemembered = remembered && !remembered->empty();
    if (isRemembered)
        rows_.reset(FileListing::make(*std::move(remembered), QLocale()));
    else if (isOther || rows_.listing().size() > 0)
        rows_.reset(FileListing::make({}, QLocale()));
    if (isOther)
        setSearchText({});
    Q_EMIT pathChanged();
    load(isRemembered ? Meanwhile::remembered : Meanwhile::nothing);
}

void FileBrowserViewModel::enterFolder(const QString& itemId) {
    const FileItem* item = itemWithId(itemId);
    if (item && item->isDirectory)
        navigateTo(item->path);
}

bool FileBrowserViewModel::canNavigateUp() const {
    return files_ && currentPath() != rootPath();
}

void FileBrowserViewModel::navigateUp() {
    if (!canNavigateUp())
        return;
    const QString left = lastComponent(currentPath());
    const bool isGone = state_ == BrowserState::folderGone;
    navigateTo(isGone ? livingFolder_ : parentPath(currentPath()));
    if (isGone)
        return;
    awaited_ = Awaited{left};
    if (rows_.listing().size() > 0)
        selectAwaited();
}

void FileBrowserViewModel::showPhone() {
    if (!activeDevice_ || isAtPhone_)
        return;
    history_.record({});
    visit(history_.current());
}

void FileBrowserViewModel::goBack() {
    if (files_ && history_.canGoBack())
        visit(history_.back());
}

void FileBrowserViewModel::goForward() {
    if (files_ && history_.canGoForward())
        visit(history_.forward());
}

/// Shows what the history has come to.
void FileBrowserViewModel::visit(const QString& path) {
    Q_EMIT historyChanged();
    if (path.isEmpty())
        setAtPhone(true);
    else
        show(path);
}

void FileBrowserViewModel::setAtPhone(bool isAtPhone) {
    if (std::exchange(isAtPhone_, isAtPhone) != isAtPhone)
        Q_EMIT atPhoneChanged();
}

void FileBrowserViewModel::reload() {
    if (files_)
        load(Meanwhile::shown);
}

void FileBrowserViewModel::searchBelow(const QString& name) {
    const QString wanted = name.trimmed();
    if (!files_ || state_ == BrowserState::deviceLost || wanted.isEmpty())
        return;
    selection_.clear();
    awaited_.reset();
    unreadable_ = 0;
    setProblem(std::nullopt);
    setSearchText({});
    setSearchedName(wanted);
    rows_.reset(FileListing::make({}, QLocale()));
    load(Meanwhile::nothing);
}

void FileBrowserViewModel::endSearch() {
    if (!searchedName_.isEmpty())
        show(currentPath());
}

void FileBrowserViewModel::load(Meanwhile meanwhile) {
    FolderLoader::Wanted wanted{files_, currentPath(), std::nullopt,
                                meanwhile == Meanwhile::nothing};
    if (!searchedName_.isEmpty())
        wanted.search = SearchBelow{searchedName_, rows_.showsHidden()};
    isLoadingAnew_ = meanwhile != Meanwhile::shown;
    setState(isLoadingAnew_ ? BrowserState::ready : state_, true);
    loader_.start(wanted, [this, meanwhile, begun = folders_.now()](const BrowserLoad& loaded) {
        if (loaded.listing && searchedName_.isEmpty())
            folders_.remember(files_->identity(), currentPath(), loaded.listing->items(), begun);
        else if (!loaded.listing)
            forgetAfter(loaded);
        applyLoad(loaded, meanwhile);
    });
}

void FileBrowserViewModel::forgetAfter(const BrowserLoad& failure) {
    if (failure.isDeviceLost)
        folders_.forget(files_->identity());
    else
        folders_.forgetFolder(files_->identity(), currentPath());
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
        selection_.prune();
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
        typed_.note(currentPath(), load.listing->items());
    // What has come of a long listing is shown already.
    if (meanwhile == Meanwhile::nothing && rows_.listing().size() == 0)
        rows_.reset(load.listing);
    else
        rows_.update(load.listing);
    selection_.prune();
    setState(BrowserState::ready, false);
    if (isProblemOfLoad_)
        setProblem(std::nullopt);
    selectAwaited();
}

void FileBrowserViewModel::cancelLoading() {
    if (!isLoading_ || !files_)
        return;
    loader_.stop();
    const bool isShown = state_ != BrowserState::ready || rows_.listing().size() > 0;
    const auto what = isShown && !searchedName_.isEmpty() ? BrowserProblem::What::notSearched
                                                          : BrowserProblem::What::notRead;
    setState(isShown ? state_ : BrowserState::failed, false);
    // What has come of it may be a part.
    setProblem(BrowserProblem{what, lastComponent(currentPath()), 1, 1, {}}, true);
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

const FileItem* FileBrowserViewModel::itemWithId(const QString& id) const {
    return rows_.listing().itemWithId(id);
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
    selection_.prune();
    Q_EMIT searchTextChanged();
}

void FileBrowserViewModel::setShowsHidden(bool shows) {
    if (shows == rows_.showsHidden())
        return;
    rows_.setShowsHidden(shows);
    selection_.prune();
    Q_EMIT showsHiddenChanged();
    if (!searchedName_.isEmpty())
        reload(); // hidden folders are searched, too, or not any more
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

void FileBrowserViewModel::refreshAfterChange(const QString& identity, const QString& path,
                                              bool isDeviceLost) {
    if (!files_ || files_->identity() != identity || path != currentPath())
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

QStringList FileBrowserViewModel::pathCompletions(const QString& typed) const {
    return files_ ? typed_.completions(*files_, typed, currentPath()) : QStringList();
}

void FileBrowserViewModel::goToTyped(const QString& typed, std::function<void(bool)> whenDone) {
    if (!files_ || typed.isEmpty())
        return;
    dismissProblem();
    typed_.lookUp(
        files_, typed, currentPath(),
        [this, whenDone = std::move(whenDone)](const TypedPath& found, const QString& path) {
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
        selection_.select(id);
        if (awaited.isNewFolder)
            Q_EMIT folderCreated(id);
        return;
    }
}

/// Reads the folder again after a copy into it, or a move out of it.
void FileBrowserViewModel::reloadAfter(const QUuid& finishedJob) {
    const int index = queue_.indexOf(finishedJob);
    if (index < 0)
        return;
    const CopyJob& job = queue_.jobs()[static_cast<std::size_t>(index)];
    for (const QString& made : job.made)
        folders_.entryChanged(job.target, made);
    const bool isMove = queue_.recordOf(finishedJob).removesSource;
    const QString sourceFolder = parentPath(job.sourcePath);
    if (isMove)
        folders_.forgetFolder(job.source, sourceFolder);
    const bool isFromHere = isMove && files_ && (job.source == files_->identity() || isLocal()) &&
                            files_->canonicalPath(sourceFolder) == currentPath();
    if (!searchedName_.isEmpty() || // a search takes its time: the user repeats it
        (!isFromHere && !copies_.fillsShownFolder(job)))
        return;
    loader_.againSoon(queue_.summary().isIdle());
}

} // namespace tessary
