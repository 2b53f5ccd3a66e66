#pragma once

#include "app/TessaryApp.h"
#include "browser/model/AppListViewModel.h"
#include "browser/model/FileBrowserViewModel.h"
#include "browser/model/ImportViewModel.h"
#include "sync/manager/SyncViewModel.h"
#include "views/browser/BrowserView.h"
#include "views/sidebar/DeviceListModel.h"
#include "views/sidebar/Sidebar.h"
#include "views/window/GeneralNotices.h"
#include "views/window/PhoneChoice.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <vector>

class QAction;
class QSplitter;

namespace tessary {

class CopyHistoryDialog;
class ImportView;
class Panes;
class PhonePage;
class SettingsWindow;
class SyncDialogs;
class SyncPanel;
class TransferNotice;
class TransferPanel;
class WindowBanner;
class WindowPages;
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

    /// Opens another window, on the phone and folder of this one.
    MainWindow& openWindow();

    [[nodiscard]] FileBrowserViewModel& browser() {
        return browser_;
    }
    [[nodiscard]] CopyQueue& copyQueue() {
        return app_.copyQueue();
    }
    [[nodiscard]] SyncViewModel& sync() {
        return common_.sync;
    }
    [[nodiscard]] AppListViewModel& apps() {
        return apps_;
    }
    [[nodiscard]] ImportViewModel& import() {
        return import_;
    }
    /// Which phone is shown, and what of it.
    [[nodiscard]] PhoneChoice& choice() {
        return choice_;
    }
    /// Opens the settings, or brings them to the front.
    void showSettings();
    /// Opens the list of phones on the network, or brings it to the front.
    void showWireless();
    /// Opens what was copied in the last month, or brings it to the front.
    void showCopyHistory();
    [[nodiscard]] BrowserView& browserView() {
        return *browserView_;
    }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] Sidebar::Callbacks sidebarCallbacks();
    [[nodiscard]] bool isTheOnlyOne() const;
    [[nodiscard]] QWidget* makeContent();
    void makeMenus();
    void showHelp();
    void showTexts();
    void connectBrowser();
    void connectChoice();
    void connectSync();
    void deviceListChanged();
    void troubleChanged(const QString& deviceId);
    [[nodiscard]] FavoriteCommands favoriteCommands();
    /// The device that is chosen in the sidebar.
    [[nodiscard]] std::optional<DeviceInfo> chosenDevice() const;
    void showSidebar();
    void showPage();
    void showPlace();
    [[nodiscard]] PhonePage* makePhonePage();
    [[nodiscard]] std::optional<QSet<QString>> knownFolders();

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
    FileBrowserViewModel browser_;
    AppListViewModel apps_;
    bool wasChosenByPress_ = false; ///< until the button is let go
    DeviceListModel devices_;
    ImportViewModel import_;
    QAction* importAction_;
    PhoneChoice choice_;
    Sidebar* sidebar_;
    BrowserView* browserView_;
    ImportView* importView_;
    PhonePage* phonePage_;
    WindowBanner* banner_;
    WindowPages* pages_;
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
