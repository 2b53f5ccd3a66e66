#pragma once

#include "app/TessaryApp.h"
#include "app/views/BrowserView.h"
#include "app/views/DeviceListModel.h"
#include "app/views/Sidebar.h"
#include "files/FileBrowserViewModel.h"
#include "files/TransferViewModel.h"

#include <QMainWindow>

class QStackedWidget;

namespace tessary {

class PlaceholderView;
class StatusBanner;
class TransferPanel;
class WelcomeView;

/// The main window: devices on the left, the files of the chosen one on the right, transfers below,
/// and a banner when something stands in the way.
class MainWindow : public QMainWindow {
public:
    /// `app` must outlive the window.
    explicit MainWindow(TessaryApp& app,
                        BrowserView::Dialogs dialogs = BrowserView::systemDialogs(),
                        QWidget* parent = nullptr);
    ~MainWindow() override;

    [[nodiscard]] FileBrowserViewModel& browser() {
        return browser_;
    }
    [[nodiscard]] TransferViewModel& transfers() {
        return transfers_;
    }
    [[nodiscard]] BrowserView& browserView() {
        return *browserView_;
    }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] Sidebar::Wishes sidebarWishes();
    void makeMenus();
    void deviceListChanged();
    void chooseDevice(const QModelIndex& index);
    void showSidebar();
    void openFavorite(const DeviceFavorite& favorite);
    void showPage();
    void showBanner();
    void releaseDevice();

    TessaryApp& app_;
    TransferViewModel transfers_;
    FileBrowserViewModel browser_;
    DeviceListModel devices_;
    Sidebar* sidebar_;
    StatusBanner* banner_;
    QStackedWidget* pages_;
    WelcomeView* welcome_;
    PlaceholderView* notice_;
    BrowserView* browserView_;
    TransferPanel* transferPanel_;
};

} // namespace tessary
