#include "views/tabs/BrowserSetups.h"

#include "views/settings/FileSettings.h"

#include <QDir>

namespace tessary {

BrowserSetup browserSetup(TessaryApp& app) {
    return {
        .openAndroid =
            [&app](const DeviceInfo& device) { return app.services().files().open(device); },
        .staged = app.stagedFiles(),
        .openApp =
            [&app](const DeviceInfo& device, const AppInfo& chosen) {
                return app.services().files().openApp(device, chosen);
            },
        .dragMount = &app.dragMount(),
        .comparesCopies =
            [&app] { return app.defaults().value(BrowserCopies::comparesKey).toBool(); },
    };
}

CopyDialogs withDownloadFolder(CopyDialogs dialogs, SettingsStore& defaults) {
    dialogs.chooseTargetFolder = [&defaults, ask = dialogs.chooseTargetFolder](QWidget* asker) {
        const QString folder = defaults.value(downloadFolderKey).toString();
        return !folder.isEmpty() && QDir(folder).exists() ? folder : ask(asker);
    };
    return dialogs;
}

} // namespace tessary
