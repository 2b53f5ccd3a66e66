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

#include <QMainWindow>

class QAction;
class QStackedWidget;

namespace tessary {

class AppListView;
class ImportView;
class PlaceholderView;
class SettingsWindow;
class StatusBanner;
class SyncDialogs;
class SyncPanel;
class TransferNotice;
class TransferPanel;
class WelcomeView;
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
    /// Shows the documents of one of apps().
    void openApp(const AppInfo& app, const QString& path);
    void connectApp(const AppInfo& app, const QString& path);
    /// Opens the settings, or brings them to the front.
    void showSettings();
    /// Opens the list of phones on the network, or brings it to the front.
    void showWireless();
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
    void deviceListChanged();
    void chooseDevice(const QModelIndex& index);
    /// The device that is chosen in the sidebar.
    [[nodiscard]] std::optional<DeviceInfo> chosenDevice() const;
    /// The attached device that is the same phone, wherever it is plugged in.
    [[nodiscard]] std::optional<DeviceInfo> attached(const DeviceInfo& device) const;
    [[nodiscard]] std::optional<QString> chosenAppId() const;
    void openMedia();
    void showImport();
    void leaveImport();
    [[nodiscard]] bool isImporting() const;
    void showApps();
    void connectSync();
    void showSidebar();
    void openFavorite(const DeviceFavorite& favorite);
    void showPage();
    void showBanner();
    void showNotice();
    [[nodiscard]] std::optional<QSet<QString>> knownFolders();
    [[nodiscard]] std::optional<DeviceTrouble> troubleInTheWay() const;
    void releaseDevice();

    TessaryApp& app_;
    FileBrowserViewModel browser_;
    AppListViewModel apps_;
    std::optional<AppInfo> chosenApp_; ///< whose documents are browsed
    QHash<QString, AppInfo> lastApps_; ///< that were open, by udid
    bool isChoosingApp_ = false;
    bool wasChosenByPress_ = false; ///< until the button is let go
    bool wasFocused_ = false;       ///< the files had the keys once
    DeviceListModel devices_;
    ImportViewModel import_;
    QAction* importAction_;
    SyncViewModel sync_;
    GeneralNotices notices_;
    Sidebar* sidebar_;
    StatusBanner* banner_;
    QStackedWidget* pages_;
    WelcomeView* welcome_;
    PlaceholderView* notice_;
    AppListView* appList_;
    BrowserView* browserView_;
    ImportView* importView_;
    SyncPanel* syncPanel_;
    SyncDialogs* syncDialogs_;
    TransferPanel* transferPanel_;
    WindowStateStore* stateStore_;
    std::unique_ptr<TransferNotice> transferNotice_; ///< null without a desktop to speak over
    SettingsWindow* settings_ = nullptr;             ///< made when it is first opened
    WirelessDialog* wireless_ = nullptr;             ///< the same
};

} // namespace tessary
