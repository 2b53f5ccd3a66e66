#pragma once

#include "app/TessaryApp.h"
#include "browser/model/AppListViewModel.h"
#include "browser/model/FileBrowserViewModel.h"
#include "browser/model/ImportViewModel.h"
#include "sync/manager/SyncViewModel.h"
#include "views/browser/BrowserView.h"
#include "views/sidebar/PlaceListModel.h"
#include "views/tabs/GeneralNotices.h"
#include "views/tabs/PhoneChoice.h"
#include "views/tabs/TabPlace.h"

#include <QDeadlineTimer>
#include <QSet>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>
#include <optional>

class QAction;

namespace tessary {

class AppListView;
class ImportView;
class PageStack;
class PhonePage;
class PlaceholderView;
class WindowBanner;

/// One tab of a window: a phone, and what is shown of it, with a place and a history of its own.
class PhoneTab : public QWidget {
    Q_OBJECT

public:
    /// What the tabs of a window have in common; all outlive them.
    struct Shared {
        TessaryApp& app;
        SyncViewModel& sync;
        GeneralNotices& notices;
        CopyDialogs dialogs;
        OpenLocalFile openLocalFile;
        QAction* importPhotos = nullptr;                ///< never null
        std::function<bool(const QWidget&)> keepsKeys;  ///< a new page does not take them away
        std::function<void(const QWidget&)> showSync;   ///< opens the sync menu below a widget
        std::function<void(const QString&)> openFolder; ///< in another tab
    };

    explicit PhoneTab(const Shared& shared);
    ~PhoneTab() override;

    [[nodiscard]] FileBrowserViewModel& browser() {
        return browser_;
    }
    [[nodiscard]] AppListViewModel& apps() {
        return apps_;
    }
    [[nodiscard]] ImportViewModel& import() {
        return import_;
    }
    /// What of the phone is shown.
    [[nodiscard]] PhoneChoice& choice() {
        return choice_;
    }
    [[nodiscard]] const PhoneChoice& choice() const {
        return choice_;
    }
    [[nodiscard]] BrowserView& view() {
        return *view_;
    }

    /// The phone as it is now; no value when there is none, or it is away.
    [[nodiscard]] std::optional<DeviceInfo> device() const;
    /// Shows a phone at the place where it was left, or nothing.
    void choose(const DeviceInfo* device);
    /// What is shown, or waited for; no value without a phone.
    [[nodiscard]] std::optional<TabPlace> place() const;
    /// Shows a place, at once or when its phone comes. Until then nothing, or what the user
    /// chooses.
    void open(const TabPlace& place);
    /// What is browsed of device(), for favorites.
    [[nodiscard]] FavoriteSource favoriteSource() const;
    /// The names of the folders in the main storage of the phone that is browsed, once it was
    /// listed.
    [[nodiscard]] std::optional<QSet<QString>> knownFolders();
    /// The place, in a word or two.
    [[nodiscard]] QString title() const;
    /// Something on the phone is being deleted, moved or renamed.
    [[nodiscard]] bool isChanging() const;
    /// A folder is what is shown.
    [[nodiscard]] bool showsFolder() const;
    /// Gives the keys to what is shown.
    void focusPage();
    /// The phones that are there have changed.
    void follow();

Q_SIGNALS:
    void changed(); ///< the phone, or what is shown of it

private:
    void connectBrowser();
    void connectChoice();
    [[nodiscard]] PhonePage* makePhonePage();
    [[nodiscard]] AppListView* makeAppList();
    [[nodiscard]] PageStack* makePages();
    [[nodiscard]] FavoriteCommands favoriteCommands();
    void troubleChanged(const QString& deviceId);
    /// What is shown could not be read before the user has done something on the phone.
    [[nodiscard]] bool waitsForUser() const;
    void awaitUser();
    /// Reads what of a phone could not be read before.
    void readAgain(const QString& deviceId);
    void lookForAwaited();
    void goToAwaited();
    void show();
    [[nodiscard]] QWidget* wantedPage();
    void showPage();

    const Shared shared_;
    TessaryApp& app_;
    QString udid_;                    ///< of the phone that was chosen
    std::optional<TabPlace> awaited_; ///< of a phone that was not there yet
    QDeadlineTimer isStarting_;       ///< phones come one by one
    FileBrowserViewModel browser_;
    AppListViewModel apps_;
    ImportViewModel import_;
    PhoneChoice choice_;
    static constexpr std::chrono::milliseconds firstPause{1000};
    QTimer retry_; ///< of what waitsForUser()
    std::chrono::milliseconds pause_ = firstPause;
    BrowserView* view_;
    ImportView* importView_;
    PhonePage* phonePage_;
    AppListView* appList_;
    QWidget* welcome_;
    PlaceholderView* notice_; ///< what keeps the phone's files from being shown
    WindowBanner* banner_;
    PageStack* pages_;         ///< of these the one that is meant
    bool wereFocused_ = false; ///< the files had the keys once
};

} // namespace tessary
