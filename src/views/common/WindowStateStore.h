#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "platform/settings/SettingsStore.h"

#include <QObject>

#include <functional>

class QMainWindow;
class QSplitter;

namespace tessary {

class TableColumns;

/// Keeps what a window looks like in the user's settings: its size, the sidebar's width, the
/// columns, for each device how its files are shown and sorted, and which folders are grouped by
/// day. What is read from the settings may be anything and is taken only as far as it makes sense.
class WindowStateStore : public QObject {
public:
    static constexpr QLatin1StringView isOffKey{"Tessary_ForgetsWindow"};
    static constexpr QLatin1StringView windowKey{"Tessary_Window"};
    static constexpr QLatin1StringView columnsKey{"Tessary_Columns"};
    static constexpr QLatin1StringView localColumnsKey{"Tessary_LocalColumns"};
    static constexpr QLatin1StringView daysKey{"Tessary_GroupedByDay"};
    static constexpr QLatin1StringView devicesKey{"Tessary_DeviceViews"};
    static constexpr QLatin1StringView openTabsKey{"Tessary_OpenTabs"};
    /// Whether the files of a device that was never shown begin as pictures.
    static constexpr QLatin1StringView newDevicesInGridKey{"Tessary_NewPhonesInGrid"};
    static constexpr int mostDevices = 50; ///< the one that was changed longest ago goes

    /// What a tab of the window shows.
    struct Shown {
        FileBrowserViewModel& browser;
        TableColumns& columns;
    };
    /// What is kept of; all must outlive it.
    struct Parts {
        QMainWindow& window;
        QSplitter& split;             ///< sidebar and files
        std::function<Shown()> shown; ///< the tab whose looks the next one begins with
    };

    /// Makes the window as it was left. `defaults` must outlive it.
    WindowStateStore(Parts parts, SettingsStore& defaults);

    /// A tab that was just made: it begins as the one that is shown looks, and what the user makes
    /// of it is kept from now on.
    void addTab(Shown tab);
    /// Of this computer's files beside the phone's: they have other room.
    void addLocal(TableColumns& columns);
    [[nodiscard]] bool isOn() const;
    /// Off also forgets what is kept.
    void setOn(bool on);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restoreWindow();
    void keepWindow();
    void follow(Shown tab);
    void showDevice(FileBrowserViewModel& browser, QString& udid);
    void keepDevice(const FileBrowserViewModel& browser);
    void followColumns(TableColumns& columns, QLatin1StringView key);
    void keepDays(FileBrowserViewModel& browser);

    Parts parts_;
    SettingsStore& defaults_;
    bool isRestoring_ = false;
};

} // namespace tessary
