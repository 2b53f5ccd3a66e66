#include "browser/model/FileBrowserViewModel.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/EndInBackground.h"
#include "devices/files/AndroidFileAccess.h"
#include "devices/files/AppFileAccess.h"
#include "phone/DevicePath.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// After an upload the folder is read again: soon after the last one, and in between not so often
/// that the phone is kept from copying.
constexpr auto reloadPause = 300ms;
constexpr auto reloadPauseInQueue = 3s;

BrowserSetup::OpenAndroid overSharedService() {
    return [](const DeviceInfo& device) {
        return std::make_shared<AndroidFileAccess>(DeviceFileService::shared(), device);
    };
}

BrowserSetup::OpenApp overOwnConnection() {
    return [](const DeviceInfo& device, const AppInfo& app) {
        return std::make_shared<AppFileAccess>(device, app);
    };
}

std::vector<PathComponent> breadcrumbsOf(const BrowserRoot& root, const QString& path) {
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

FileBrowserViewModel::FileBrowserViewModel(TransferViewModel& transfers, BrowserSetup setup,
                                           QObject* parent)
    : QObject(parent),
      transfers_(transfers),
      openAndroid_(setup.openAndroid ? std::move(setup.openAndroid) : overSharedService()),
      openApp_(setup.openApp ? std::move(setup.openApp) : overOwnConnection()),
      previews_(setup.previews ? *setup.previews : PreviewCache::shared()),
      promises_(setup.promises),
      breadcrumbs_(breadcrumbsOf({QStringLiteral("/"), QStringLiteral("Root")}, currentPath_)),
      typeahead_(std::move(setup.clock)) {
    reloadTimer_.setSingleShot(true);
    connect(&reloadTimer_, &QTimer::timeout, this, &FileBrowserViewModel::reloadSoon);
    connect(&transfers_, &TransferViewModel::jobFinished, this, &FileBrowserViewModel::reloadAfter);
    if (promises_ != nullptr)
        promises_->reportFailuresTo(
            [self = QPointer(this)](const FileItem& item, const std::exception& error) {
                MainThread::post([self, name = item.name, words = adviceFor(error)] {
                    if (self)
                        self->setError(ErrorAdvice{
                            QStringLiteral("Failed to drag out %1: %2").arg(name, words.message),
                            words.advice});
                });
            });
}

FileBrowserViewModel::~FileBrowserViewModel() {
    if (promises_ != nullptr)
        promises_->reportFailuresTo({});
    stopAll();
    endInBackground(this, std::move(files_));
}

std::optional<QString> FileBrowserViewModel::errorMessage() const {
    return error_ ? std::optional(error_->message) : std::nullopt;
}

void FileBrowserViewModel::dismissError() {
    setError(std::nullopt);
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
    changeSelection({});
    typeahead_.reset();
    awaited_.reset();
    ++typedNumber_;
    setError(std::nullopt);
    const BrowserRoot root = files_->rootOf(path);
    const bool isOther = path != currentPath_;
    currentPath_ = path;
    rootPath_ = root.path;
    breadcrumbs_ = breadcrumbsOf(root, path);
    auto remembered = folders_.recall(*files_, path);
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

void FileBrowserViewModel::load(Meanwhile meanwhile) {
    reloadTimer_.stop();
    isReloadWanted_ = false;
    stopLoad_.request_stop();
    const std::uint64_t number = ++loadNumber_;
    setState(meanwhile == Meanwhile::shown ? state_ : BrowserState::ready, true);
    stopLoad_ = runInBackground(
        this,
        [files = files_, path = currentPath_, locale = QLocale()](const std::stop_token& stop) {
            return loadFolder(*files, path, locale, stop);
        },
        [this, number, meanwhile, begun = folders_.now()](BackgroundResult<BrowserLoad> result) {
            // Of a folder that is not wanted any more, or stopped.
            if (number != loadNumber_ || !result.succeeded())
                return;
            const BrowserLoad loaded = result.take();
            if (loaded.listing)
                folders_.remember(*files_, currentPath_, loaded.listing->items(), begun);
            else
                forgetAfter(loaded);
            applyLoad(loaded, meanwhile);
            if (!isLoading_ && isReloadWanted_)
                reloadTimer_.start(transfers_.summary().isIdle() ? reloadPause
                                                                 : reloadPauseInQueue);
        });
}

void FileBrowserViewModel::forgetAfter(const BrowserLoad& failure) {
    if (failure.isDeviceLost)
        folders_.forget(*files_);
    else
        folders_.forgetFolder(*files_, currentPath_);
}

void FileBrowserViewModel::applyLoad(const BrowserLoad& load, Meanwhile meanwhile) {
    if (!load.listing) {
        const bool isAndroid = activeDevice_ && activeDevice_->platform == DevicePlatform::android;
        DiagnosticsLogger::shared().ui.error(
            isAndroid       ? "FileBrowserViewModel Android listDirectory error: %s"
            : isConnecting_ ? "FileBrowserViewModel connect iOS error: %s"
                            : "FileBrowserViewModel navigateTo error: %s",
            {load.error.message});
        isConnecting_ = false;
        livingFolder_ = load.livingFolder.value_or(QString());
        if (load.livingFolder)
            rows_.reset(FileListing::make({}, QLocale()));
        BrowserSelection selection = selection_;
        selection.prune(rows_);
        changeSelection(selection);
        setState(load.isDeviceLost   ? BrowserState::deviceLost
                 : load.livingFolder ? BrowserState::folderGone
                                     : BrowserState::failed,
                 false);
        setError(load.error, true);
        return;
    }
    isConnecting_ = false;
    knownFolders_.note(currentPath_, load.listing->items());
    if (meanwhile == Meanwhile::nothing)
        rows_.reset(load.listing);
    else
        rows_.update(load.listing);
    BrowserSelection selection = selection_;
    selection.prune(rows_);
    changeSelection(selection);
    setState(BrowserState::ready, false);
    if (isErrorOfLoad_)
        setError(std::nullopt);
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
        setError(ErrorAdvice{QStringLiteral("The folder was not read."),
                             QStringLiteral("Refresh it to try again.")},
                 true);
}

void FileBrowserViewModel::setState(BrowserState state, bool isLoading) {
    if (state == state_ && isLoading == isLoading_)
        return;
    state_ = state;
    isLoading_ = isLoading;
    Q_EMIT stateChanged();
}

void FileBrowserViewModel::setError(const std::optional<ErrorAdvice>& error, bool isOfLoad) {
    isErrorOfLoad_ = error && isOfLoad;
    if (!error && !error_)
        return;
    error_ = error;
    Q_EMIT errorChanged();
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
    // What cannot be seen must not be deleted with the rest.
    BrowserSelection selection = selection_;
    selection.prune(rows_);
    changeSelection(selection);
    Q_EMIT searchTextChanged();
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

void FileBrowserViewModel::selectNextItem(bool extend) {
    moveSelection(1, extend);
}

void FileBrowserViewModel::selectPreviousItem(bool extend) {
    moveSelection(-1, extend);
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
    const int index = transfers_.indexOf(finishedJob);
    if (index < 0)
        return;
    const TransferJob& job = transfers_.jobs()[static_cast<std::size_t>(index)];
    if (job.type != TransferJob::TransferType::upload)
        return;
    folders_.entryChanged(job.connection, job.destinationPath);
    if (!files_ || job.connection != files_->identity() ||
        files_->canonicalPath(parentPath(job.destinationPath)) != currentPath_)
        return;
    const bool isLast = transfers_.summary().isIdle();
    if (isLast || !reloadTimer_.isActive())
        reloadTimer_.start(isLast ? reloadPause : reloadPauseInQueue);
}

} // namespace tessary
