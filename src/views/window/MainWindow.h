#pragma once

#include "app/TessaryApp.h"
#include "browser/model/AppListViewModel.h"
#include "browser/model/FileBrowserViewModel.h"
#include "browser/model/ImportViewModel.h"
#include "sync/manager/SyncViewModel.h"
#include "views/browser/BrowserView.h"
#include "views/sidebar/DeviceListModel.h"
#include "views/sidebar/Sidebar.h"
#include "views/window/PhoneChoice.h"

#include <QMainWindow>

class QAction;

namespace tessary {

class CopyHistoryDialog;
class ImportView;
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
    /// `app` must outlive the window.
    explicit MainWindow(TessaryApp& app, CopyDialogs dialogs = systemCopyDialogs(),
                        OpenLocalFile openLocalFile = systemOpenLocalFile(),
                        QWidget* parent = nullptr);
    ~MainWindow() override;

    [[nodiscard]] FileBrowserViewModel& browser() {
        return browser_;
    }
    [[nodiscard]] CopyQueue& copyQueue() {
        return app_.copyQueue();
    }
    [[nodiscard]] SyncViewModel& sync() {
        return sync_;
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
    [[nodiscard]] std::optional<QSet<QString>> knownFolders();

    TessaryApp& app_;
    FileBrowserViewModel browser_;
    AppListViewModel apps_;
    bool wasChosenByPress_ = false; ///< until the button is let go
    DeviceListModel devices_;
    ImportViewModel import_;
    QAction* importAction_;
    PhoneChoice choice_;
    SyncViewModel sync_;
    Sidebar* sidebar_;
    BrowserView* browserView_;
    ImportView* importView_;
    WindowBanner* banner_;
    WindowPages* pages_;
    SyncPanel* syncPanel_;
    SyncDialogs* syncDialogs_;
    TransferPanel* transferPanel_;
    WindowStateStore* stateStore_;
    std::unique_ptr<TransferNotice> transferNotice_; ///< null without a desktop to speak over
    SettingsWindow* settings_ = nullptr;             ///< made when it is first opened
    WirelessDialog* wireless_ = nullptr;             ///< the same
    CopyHistoryDialog* history_ = nullptr;           ///< the same
};

} // namespace tessary
