#pragma once

#include "app/TessaryApp.h"
#include "sync/manager/SyncViewModel.h"
#include "views/sidebar/DeviceListModel.h"
#include "views/sidebar/Sidebar.h"
#include "views/tabs/GeneralNotices.h"
#include "views/tabs/PhoneTab.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <vector>

class QAction;
class QSplitter;

namespace tessary {

class CopyHistoryDialog;
class Panes;
class SettingsWindow;
class SyncDialogs;
class SyncPanel;
class Tabs;
class TransferNotice;
class TransferPanel;
class WindowStateStore;
class WirelessDialog;

/// The main window: devices on the left, the files of the chosen one on the right, transfers below,
/// and a banner when something stands in the way.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `app` must outlive the window. One that is opened from another shares with the `first` what
    /// there is once in the program: the syncs' questions and notices.
    explicit MainWindow(TessaryApp& app, CopyDialogs dialogs = systemCopyDialogs(),
                        OpenLocalFile openLocalFile = systemOpenLocalFile(),
                        MainWindow* first = nullptr);
    ~MainWindow() override;

    /// Opens another window at a place.
    MainWindow& openWindow(const TabPlace& place);
    /// Opens a tab at a place, and shows it or leaves what is shown.
    PhoneTab& openTab(const TabPlace& place, bool isShown);
    /// The same on the phone of the tab that is shown, at a folder of what that one browses.
    PhoneTab& openTab(const QString& path, bool isShown);
    /// Ends a tab, and with the last one the window, once the user agrees to what ends with it.
    void closeTab(PhoneTab& tab);
    /// Ends the program, once the user agrees to what ends with it; all windows stay otherwise.
    void quit();

    /// This one and all others, in the order in which they were opened; one that was closed is
    /// there, and hidden, if it is the first.
    [[nodiscard]] std::vector<MainWindow*> allWindows();
    [[nodiscard]] Tabs& tabs() const {
        return *tabs_;
    }
    [[nodiscard]] Panes& panes() const {
        return *panes_;
    }
    /// Where a window or tab that is opened from this one begins.
    [[nodiscard]] TabPlace place() const;
    /// The tab that is shown; what follows is its.
    [[nodiscard]] PhoneTab& tab() const;
    [[nodiscard]] FileBrowserViewModel& browser() {
        return tab().browser();
    }
    [[nodiscard]] CopyQueue& copyQueue() {
        return app_.copyQueue();
    }
    [[nodiscard]] SyncViewModel& sync() {
        return common_.sync;
    }
    [[nodiscard]] AppListViewModel& apps() {
        return tab().apps();
    }
    [[nodiscard]] ImportViewModel& import() {
        return tab().import();
    }
    [[nodiscard]] PhoneChoice& choice() {
        return tab().choice();
    }
    [[nodiscard]] BrowserView& browserView() {
        return tab().view();
    }
    /// Opens the settings, or brings them to the front.
    void showSettings();
    /// Opens the list of phones on the network, or brings it to the front.
    void showWireless();
    /// Opens what was copied in the last month, or brings it to the front.
    void showCopyHistory();

Q_SIGNALS:
    /// Of the first window: what one of the windows shows, or which of them are open.
    void placesChanged();
    /// The same: the user wants to quit, and all windows close.
    void quitting();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] Sidebar::Callbacks sidebarCallbacks();
    [[nodiscard]] bool isTheOnlyOne();
    [[nodiscard]] MainWindow& firstWindow();
    [[nodiscard]] PhoneTab* makeTab();
    [[nodiscard]] QWidget* makeContent();
    void makeMenus();
    void connectSidebar();
    void showSync(const QWidget& anchor);
    void deviceListChanged();
    void tabChanged();
    void chooseFirst();
    void followTab();
    [[nodiscard]] bool isChanging() const;
    [[nodiscard]] bool mayEnd(bool endsAll, bool endsChanges);

    /// What there is once, whatever the number of windows.
    struct Common {
        explicit Common(TessaryApp& app)
            : sync(app.syncManager(), app.deviceManager()), notices(app, sync) {}

        SyncViewModel sync;
        GeneralNotices notices;
        SyncDialogs* dialogs = nullptr; ///< the first window's
    };

    TessaryApp& app_;
    MainWindow* const first_; ///< null for the first one
    const CopyDialogs dialogs_;
    const OpenLocalFile openLocalFile_;
    std::unique_ptr<Common> ownCommon_;
    Common& common_;
    std::vector<QPointer<MainWindow>> others_; ///< of the first one: those opened from it
    bool wasChosenByPress_ = false;            ///< until the button is let go
    bool isFollowing_ = false; ///< the sidebar shows what the tab does, and is not chosen in
    bool hasAgreed_ = false;   ///< the user has, to what ends with this window
    DeviceListModel devices_;
    QAction* importAction_;
    Sidebar* sidebar_;
    Tabs* tabs_;
    SyncPanel* syncPanel_;
    QSplitter* split_; ///< sidebar and files
    Panes* panes_;
    TransferPanel* transferPanel_;
    WindowStateStore* stateStore_;
    std::unique_ptr<TransferNotice> transferNotice_; ///< null without a desktop to speak over
    SettingsWindow* settings_ = nullptr;             ///< made when it is first opened
    WirelessDialog* wireless_ = nullptr;             ///< the same
    CopyHistoryDialog* history_ = nullptr;           ///< the same
};

} // namespace tessary
