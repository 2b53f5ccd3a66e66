#include "app/Translations.h"

#include <QHash>

#include <array>

namespace tessary {

namespace {

struct Row {
    const char* key;
    const char* text; ///< UTF-8
};

constexpr std::array english{
    Row{"sidebar.connectedDevices", "Connected Devices"},
    Row{"sidebar.favorites", "Favorites"},
    Row{"sidebar.storageVolumes", "Storage Volumes"},
    Row{"sidebar.quickShortcuts", "Quick Shortcuts"},
    Row{"sidebar.noDevices", "No Devices"},
    Row{"sidebar.connectPrompt", "Connect an iOS or Android device via USB"},
    Row{"sidebar.cameraPhotos", "Camera & Photos"},
    Row{"sidebar.downloads", "Downloads"},
    Row{"sidebar.pictures", "Pictures"},
    Row{"sidebar.music", "Music"},
    Row{"sidebar.moviesVideos", "Movies & Videos"},
    Row{"sidebar.documents", "Documents"},
    Row{"browser.viewMode", "View Mode"},
    Row{"browser.filter", "Filter..."},
    Row{"browser.apps", "Apps"},
    Row{"browser.newFolder", "New Folder"},
    Row{"browser.newFolderName", "Folder name"},
    Row{"browser.create", "Create"},
    Row{"browser.cancel", "Cancel"},
    Row{"browser.rename", "Rename"},
    Row{"browser.delete", "Delete"},
    Row{"browser.download", "Download"},
    Row{"browser.quickLook", "Quick Look"},
    Row{"browser.openFolder", "Open Folder"},
    Row{"browser.addToFavorites", "Add to Favorites"},
    Row{"browser.removeFromFavorites", "Remove from Favorites"},
    Row{"browser.deleteConfirm", "Delete selected items?"},
    Row{"browser.loading", "Loading directory contents…"},
    Row{"browser.loadingAndroid", "Loading device storage…"},
    Row{"browser.emptyFolder", "This folder is empty"},
    Row{"browser.noResults", "No Matching Files"},
    Row{"browser.connectionFailed", "Connection Failed"},
    Row{"browser.retry", "Retry"},
    Row{"browser.folderNotFound", "Folder Not Found"},
    Row{"browser.folderNotFoundDesc",
        "This folder could not be found on the device. It may have been deleted or moved. Would "
        "you like to remove it from your Favorites?"},
    Row{"browser.keep", "Keep"},
    Row{"settings.title", "Settings"},
    Row{"settings.general", "General"},
    Row{"settings.language", "Language"},
    Row{"settings.languageDesc",
        "Choose your preferred display language. Changes apply immediately."},
    Row{"settings.sync", "Sync"},
    Row{"settings.about", "About"},
    Row{"settings.updates", "Updates"},
    Row{"settings.checkUpdates", "Check for Updates…"},
    Row{"settings.autoCheckUpdates", "Automatically check for updates"},
    Row{"settings.version", "Version"},
};

QHash<QString, QString> index() {
    QHash<QString, QString> texts;
    for (const Row& row : english)
        texts.insert(QString::fromUtf8(row.key), QString::fromUtf8(row.text));
    return texts;
}

} // namespace

QString tr(const QString& key) {
    static const QHash<QString, QString> texts = index();
    return texts.value(key, key);
}

QString tr(const char* key) {
    return tr(QString::fromUtf8(key));
}

} // namespace tessary
