#pragma once

#include "app/TessaryApp.h"
#include "browser/model/AppListViewModel.h"
#include "browser/model/FileBrowserViewModel.h"
#include "browser/model/ImportViewModel.h"

#include <QHash>
#include <QObject>

#include <functional>
#include <optional>

namespace tessary {

/// Which phone a window shows, and what of it: itself, its files, an app's documents, the list of
/// its apps or the import. Follows the phones as they come, go and change. Lives on the main
/// thread.
class PhoneChoice : public QObject {
    Q_OBJECT

public:
    /// What it leads; all outlive it.
    struct Parts {
        TessaryApp& app;
        FileBrowserViewModel& browser;
        AppListViewModel& apps;
        ImportViewModel& import;
    };
    /// The phone that the user chose, as it is now; no value without one.
    using Chosen = std::function<std::optional<DeviceInfo>()>;

    PhoneChoice(Parts parts, Chosen chosen);

    [[nodiscard]] std::optional<DeviceInfo> device() const {
        return chosen_();
    }
    /// The app whose documents are browsed.
    [[nodiscard]] const std::optional<AppInfo>& app() const {
        return app_;
    }
    [[nodiscard]] std::optional<QString> appId() const;
    /// An app is to be chosen: the list of them is what is shown.
    [[nodiscard]] bool isChoosingApp() const {
        return isChoosingApp_;
    }
    [[nodiscard]] bool isImporting() const;
    /// The phone itself is shown, with what there is to do with it.
    [[nodiscard]] bool isAtPhone() const;

    /// The user chose a phone, or none.
    void choose(const DeviceInfo* device);
    /// The phones that are there have changed.
    void follow();
    /// Shows the documents of one of the apps.
    void openApp(const AppInfo& app, const QString& path);
    /// An iPhone's photos and videos: at the top when they are open, else where they were left.
    void openMedia();
    void showApps();
    void showPhone();
    /// An Android phone's files at their top, an iPhone's photos.
    void browseFiles();
    void openFavorite(const DeviceFavorite& favorite);
    void openImport();
    /// Another page is wanted. A copy goes on.
    void leaveImport();

Q_SIGNALS:
    void changed();     ///< what is shown
    void focusWanted(); ///< the user went somewhere: the keys go along

private:
    void arrive();
    void connectApp(const AppInfo& app, const QString& path);
    [[nodiscard]] std::optional<DeviceInfo> attached(const DeviceInfo& device) const;
    [[nodiscard]] bool isBrowsed(const DeviceInfo& device) const;
    void followBrowsed(const DeviceInfo& active);

    const Parts parts_;
    const Chosen chosen_;
    std::optional<AppInfo> app_;
    QHash<QString, AppInfo> lastApps_; ///< that were open, by udid
    bool isChoosingApp_ = false;
};

} // namespace tessary
