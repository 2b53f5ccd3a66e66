#pragma once

#include "browser/actions/BrowserProblem.h"
#include "browser/actions/DragFiles.h"
#include "browser/listing/FileRows.h"
#include "browser/listing/ListingCache.h"
#include "browser/model/BrowserCopies.h"
#include "browser/model/BrowserHistory.h"
#include "browser/model/BrowserPlace.h"
#include "browser/model/DayGrouping.h"
#include "browser/model/EntryChanges.h"
#include "browser/model/FolderLoader.h"
#include "browser/model/TypedPaths.h"
#include "browser/selection/EntrySelection.h"
#include "phone/PhoneFileSystem.h"
#include "phone/records/AppInfo.h"
#include "phone/records/DeviceInfo.h"
#include "transfer/mount/DragMount.h"
#include "transfer/queue/CopyQueue.h"
#include "transfer/staging/StagedFiles.h"

#include <QHash>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tessary {

enum class ViewMode { list, grid };

/// What the browser has to show.
enum class BrowserState {
    ready,      ///< the folder, or nothing yet
    failed,     ///< it could not be read: see problem()
    folderGone, ///< it is not on the phone any more; navigateUp() goes to what is left of its path
    deviceLost, ///< the connection is gone; what was shown stays, and nothing can be done with it
};

/// The collaborators of a browser; each outlives it.
struct BrowserSetup {
    using OpenAndroid = std::function<std::shared_ptr<PhoneFileSystem>(const DeviceInfo&)>;

    using OpenApp =
        std::function<std::shared_ptr<PhoneFileSystem>(const DeviceInfo&, const AppInfo&)>;

    OpenAndroid openAndroid;
    StagedFiles& staged; ///< where previews and drags find their copies
    OpenApp openApp{};
    DragMount* dragMount = nullptr;           ///< null: what is dragged out is copied beforehand
    BrowserCopies::Compares comparesCopies{}; ///< empty: they are not compared
};

/// The state of the file browser for one connection: the folder shown, its rows, path bar,
/// history, selection, and what the user does to entries. Lives on the main thread; whatever asks
/// a device runs in the background, and an answer that is no longer wanted is dropped. Nothing
/// throws: failures are problem().
///
/// Every action on entries takes ids (FileItem::id()) and ignores those that are not in the folder.
class FileBrowserViewModel : public QObject {
    Q_OBJECT

public:
    explicit FileBrowserViewModel(CopyQueue& queue, BrowserSetup setup, QObject* parent = nullptr);
    /// Stops what is under way.
    ~FileBrowserViewModel() override;

    // --- connection ---
    /// Opens an Android device at `initialPath`, with a new history; where that is empty, with the
    /// history and at the place that it was last left at, or at the phone itself.
    void connectAndroid(const DeviceInfo& device, const QString& initialPath);
    using QObject::connect;
    /// Opens the documents of an iPhone app at `targetPath`, in the same way. `device` has this
    /// udid.
    void connect(const QString& udid, const QString& bundleId, const QString& appName,
                 const DeviceInfo& device, const QString& targetPath);
    /// Opens any connection, in the same way. `device` is empty when none stands behind it: its
    /// history begins with a folder, that of a device with the device itself.
    void open(std::shared_ptr<PhoneFileSystem> files, const std::optional<DeviceInfo>& device,
              const QString& initialPath);
    /// The device has been unplugged.
    void loseDevice();
    /// Newer facts about the device shown (its volumes' names, battery).
    void updateDevice(const DeviceInfo& device);

    [[nodiscard]] const std::optional<DeviceInfo>& activeDevice() const {
        return activeDevice_;
    }
    [[nodiscard]] const std::shared_ptr<PhoneFileSystem>& files() const {
        return files_;
    }
    /// The iPhone app whose documents are shown; "Documents" when there is none.
    [[nodiscard]] const QString& appName() const {
        return appName_;
    }
    /// The photos and videos of an iPhone are shown.
    [[nodiscard]] bool isMedia() const {
        return isMedia_;
    }
    /// They lie on this computer.
    [[nodiscard]] bool isLocal() const;
    /// Has the failures of what is dragged out, of whatever window, told by this one.
    void takeDragFailures();
    /// The folders shown before. Whoever changes a device behind the browser's back has them
    /// forgotten.
    [[nodiscard]] ListingCache& folders() {
        return folders_;
    }
    /// Local copies of the phone's files.
    [[nodiscard]] StagedFiles& stagedFiles() {
        return staged_;
    }
    /// How files are shown here that are fetched when they are read; null where they are copied.
    [[nodiscard]] DragMount* dragMount() const {
        return dragMount_;
    }
    /// Where copies are queued.
    [[nodiscard]] const CopyQueue& queue() const {
        return queue_;
    }

    // --- where we are ---
    /// At the phone itself, above all of its folders. currentPath() is the folder last shown.
    [[nodiscard]] bool isAtPhone() const {
        return isAtPhone_;
    }
    /// Goes there, as to a folder. Nothing happens without a device.
    void showPhone();
    [[nodiscard]] const QString& currentPath() const {
        return place_.path;
    }
    [[nodiscard]] const QString& rootPath() const {
        return place_.root;
    }
    [[nodiscard]] const std::vector<PathComponent>& breadcrumbs() const {
        return place_.components;
    }
    [[nodiscard]] BrowserState state() const {
        return state_;
    }
    /// A load is under way. True from the start until the first one ends.
    [[nodiscard]] bool isLoading() const {
        return isLoading_;
    }
    /// The last failure.
    [[nodiscard]] const std::optional<BrowserProblem>& problem() const {
        return problem_;
    }
    /// Whether a folder could not be read; else problem() is about something else that was asked.
    [[nodiscard]] bool isProblemOfLoad() const {
        return isProblemOfLoad_;
    }
    void dismissProblem() {
        setProblem(std::nullopt);
    }
    /// Tells the user about something that went wrong with what was asked.
    void showProblem(const BrowserProblem& problem) {
        setProblem(problem);
    }
    /// Entries of the folder that are there and cannot be shown.
    [[nodiscard]] int unreadableCount() const {
        return unreadable_;
    }

    /// A folder that was shown before appears at once, and is read anew behind it.
    void navigateTo(const QString& path, bool recordHistory = true);
    /// Goes to a path that the user typed, absolute or from the folder shown on; to a file's
    /// folder, where it is selected. `whenDone(false)`: nothing is there, and problem() says so. It
    /// is not called when another folder was opened meanwhile.
    void goToTyped(const QString& typed, std::function<void(bool isThere)> whenDone);
    /// What a path that is being typed may become, of the folders seen so far; as it was typed up
    /// to the last "/".
    [[nodiscard]] QStringList pathCompletions(const QString& typed) const;
    /// Enters a folder of the listing.
    void enterFolder(const QString& itemId);
    void navigateUp();
    void goBack();
    void goForward();
    [[nodiscard]] bool canNavigateUp() const;
    [[nodiscard]] bool canGoBack() const {
        return history_.canGoBack();
    }
    [[nodiscard]] bool canGoForward() const {
        return history_.canGoForward();
    }
    [[nodiscard]] const BrowserHistory& history() const {
        return history_;
    }
    /// Reads the folder again; selection and unchanged rows stay.
    void reload();
    /// A load for which the user waits; reading again what is shown is none.
    [[nodiscard]] bool canCancelLoading() const {
        return isLoading_ && isLoadingAnew_ && files_ != nullptr;
    }
    /// Gives up the load under way; what is shown stays, and is said to be what it is.
    void cancelLoading();

    /// Shows what has this in its name in the folder and all below it, as it is found; until
    /// endSearch() or another folder is shown. Blanks alone are no name.
    void searchBelow(const QString& name);
    /// Shows the folder itself again.
    void endSearch();
    /// What is searched for; empty while the folder itself is shown.
    [[nodiscard]] const QString& searchedName() const {
        return searchedName_;
    }

    // --- what is shown ---
    /// Entries of the folder as they came.
    [[nodiscard]] const std::vector<FileItem>& items() const {
        return rows_.listing().items();
    }
    /// The rows, for a list model. Lives as long as this.
    [[nodiscard]] FileRows& rows() {
        return rows_;
    }
    [[nodiscard]] const FileRows& rows() const {
        return rows_;
    }
    [[nodiscard]] const FileItem* itemWithId(const QString& id) const;
    /// Those of them that are in the folder.
    [[nodiscard]] std::vector<FileItem> itemsWithIds(const QStringList& ids) const;

    [[nodiscard]] const QString& searchText() const {
        return rows_.filter();
    }
    void setSearchText(const QString& text);
    [[nodiscard]] const FileSortOrder& sortOrder() const {
        return rows_.sortOrder();
    }
    void setSortOrder(const FileSortOrder& order);
    /// Entries whose name begins with a dot.
    [[nodiscard]] bool showsHidden() const {
        return rows_.showsHidden();
    }
    void setShowsHidden(bool shows);
    /// The entries of the folder that would be shown without a filter.
    [[nodiscard]] int unfilteredCount() const {
        return rows_.unfilteredCount();
    }
    [[nodiscard]] ViewMode viewMode() const {
        return viewMode_;
    }
    void setViewMode(ViewMode mode);
    /// How large the grid's pictures are, in device-independent pixels; those of the list follow.
    [[nodiscard]] int pictureSide() const {
        return pictureSide_;
    }
    /// Within smallestPicture and largestPicture.
    void setPictureSide(int side);
    static constexpr int smallestPicture = 48;
    static constexpr int normalPicture = 96;
    static constexpr int largestPicture = 256;

    /// Whether the files stand in groups by day.
    [[nodiscard]] DayGrouping& dayGrouping() {
        return dayGrouping_;
    }
    [[nodiscard]] EntrySelection& selection() {
        return selection_;
    }
    [[nodiscard]] const EntrySelection& selection() const {
        return selection_;
    }

    // --- edits: each runs in the background and reloads the folder at its end ---
    [[nodiscard]] bool isEditing() const {
        return changes_.isRunning();
    }
    [[nodiscard]] const EditProgress& editProgress() const {
        return changes_.progress();
    }
    /// What is done stays done.
    void cancelEdits() {
        changes_.cancel();
    }
    /// For what goes beyond the entries of the folder shown, and for taking changes back.
    [[nodiscard]] EntryChanges& changes() {
        return changes_;
    }
    [[nodiscard]] const EntryChanges& changes() const {
        return changes_;
    }
    /// Selects an entry once the folder shows it.
    void awaitEntry(const QString& name, bool isNewFolder = false) {
        awaited_ = Awaited{name, isNewFolder};
    }
    /// Reads a folder of a connection again if it is shown; a lost device is said to be lost.
    void refreshAfterChange(const QString& identity, const QString& path, bool isDeviceLost);
    /// The new folder is selected. Its name is freeFolderName() unless another is given.
    void createFolder(const QString& name = {});
    /// Deletes entries one after the other; one report for all that failed.
    void deleteItems(const QStringList& ids);
    void renameItem(const QString& id, const QString& newName);

    // --- copies ---
    [[nodiscard]] BrowserCopies& copies() {
        return copies_;
    }

Q_SIGNALS:
    void connectionChanged(); ///< activeDevice, files, appName
    void pathChanged();       ///< currentPath, rootPath, breadcrumbs
    void atPhoneChanged();
    void historyChanged(); ///< canGoBack, canGoForward
    void stateChanged();   ///< state, isLoading
    void problemChanged();
    void searchTextChanged();
    void searchedNameChanged();
    void sortOrderChanged();
    void viewModeChanged();
    void pictureSideChanged();
    void showsHiddenChanged();
    void editingChanged(); ///< isEditing, editProgress
    /// The new folder is there and selected; a view may start renaming it.
    void folderCreated(const QString& id);
    void itemRenamed(const QString& oldPath, const QString& newPath);
    void itemsDeleted(const QStringList& paths);

private:
    /// An entry to select once a listing shows it.
    struct Awaited {
        QString name;
        bool isNewFolder = false;
    };
    /// What is in the rows while a folder is read.
    enum class Meanwhile {
        nothing,
        remembered, ///< as it was when it was last shown
        shown,      ///< the same folder
    };
    void stopAll();
    void show(const QString& path, bool isAtPhone = false);
    void visit(const QString& path);
    void setAtPhone(bool isAtPhone);
    void setSearchedName(const QString& name) {
        if (std::exchange(searchedName_, name) != name)
            Q_EMIT searchedNameChanged();
    }
    void load(Meanwhile meanwhile);
    void applyLoad(const BrowserLoad& load, Meanwhile meanwhile);
    void forgetAfter(const BrowserLoad& failure);
    void setState(BrowserState state, bool isLoading);
    void setProblem(const std::optional<BrowserProblem>& problem, bool isOfLoad = false);
    void selectAwaited();
    void reloadAfter(const QUuid& finishedJob);
    CopyQueue& queue_;
    BrowserSetup::OpenAndroid openAndroid_;
    BrowserSetup::OpenApp openApp_;
    StagedFiles& staged_;
    DragMount* const dragMount_;

    std::shared_ptr<PhoneFileSystem> files_;
    std::optional<DeviceInfo> activeDevice_;
    QString appName_ = QStringLiteral("Documents");
    bool isMedia_ = false;
    bool isAtPhone_ = false;
    BrowserPlace place_;
    int unreadable_ = 0;
    BrowserHistory history_;
    QHash<QString, BrowserHistory> left_; ///< of other connections, by PhoneFileSystem::identity()
    BrowserState state_ = BrowserState::ready;
    bool isLoading_ = true;
    bool isLoadingAnew_ = true;
    std::optional<BrowserProblem> problem_;
    bool isProblemOfLoad_ = false; ///< else of an action: a reload leaves it
    QString livingFolder_;         ///< where "up" goes from a folder that is gone
    TypedPaths typed_;

    QString searchedName_;
    ListingCache folders_;
    FileRows rows_;
    EntrySelection selection_{rows_};
    ViewMode viewMode_ = ViewMode::list;
    int pictureSide_ = normalPicture;
    std::optional<Awaited> awaited_;
    DayGrouping dayGrouping_{*this, rows_};

    bool isConnecting_ = false; ///< to an app: the first load is under way
    FolderLoader loader_;
    BrowserCopies copies_;
    EntryChanges changes_;
};

} // namespace tessary
