#pragma once

#include "app/copies/RememberedCopies.h"
#include "app/favorites/FavoritesManager.h"
#include "app/mounts/PhoneMounts.h"
#include "app/updates/UpdateCheckerService.h"
#include "base/local/ScratchFolder.h"
#include "devices/files/DeviceServices.h"
#include "devices/list/DeviceManager.h"
#include "platform/desktop/Notifier.h"
#include "platform/dnssd/ServiceBrowser.h"
#include "platform/http/HttpClient.h"
#include "platform/settings/MemorySettingsStore.h"
#include "sync/manager/SyncManager.h"
#include "transfer/mount/DragMount.h"
#include "transfer/queue/CopyQueue.h"
#include "transfer/staging/StagedFiles.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tessary {

/// What the program brings along for its windows.
struct TessaryAppSetup {
    std::vector<USBIds>
        alsoAccept;      ///< USB devices that count as phones although no rule knows them
    bool isDemo = false; ///< the phones are virtual ones
    /// Starts the program again with virtual phones and ends this one.
    std::function<void()> startDemo;
    /// The user's settings; until the end of the program when there are none.
    std::shared_ptr<SettingsStore> defaults = std::make_shared<MemorySettingsStore>();
    std::shared_ptr<HttpClient> http = std::make_shared<QtHttpClient>();
    /// Where updates are announced.
    UpdateSource updates = UpdateSource::builtIn();
    /// Where phones with wireless debugging are looked for.
    std::shared_ptr<ServiceNetwork> network = makeSystemServiceNetwork();
    /// The folder that keeps what was imported from phones; empty: until the end of the program.
    QString importLedgers{};
    /// The folder that keeps the records of copies; empty: the same.
    QString copyRecords{};
    /// Shows a page in the user's browser.
    std::function<void(const QUrl&)> openAddress = [](const QUrl&) {};
    /// Shows a local file in the desktop's file manager.
    std::function<void(const QString&)> showInFolder = [](const QString&) {};
    /// Shows a local folder itself there.
    std::function<void(const QString&)> showFolder = [](const QString&) {};
    /// Speaks to the user while he looks elsewhere; may be null.
    std::shared_ptr<Notifier> notifier{};
};

/// The application: owns the managers for its whole life and hands them to the windows. Lives on
/// the main thread.
class TessaryApp : public QObject {
    Q_OBJECT

public:
    /// `sources` and `services` must outlive the application.
    TessaryApp(DeviceSources sources, DeviceServices& services, TessaryAppSetup setup);
    /// stop(), whatever comes of it.
    ~TessaryApp() override;

    /// Ends what runs in the background, within four seconds; nothing is to be started afterwards.
    /// False when something hangs: it goes on using `services` and what that uses, which then must
    /// not be destroyed.
    bool stop();

    [[nodiscard]] DeviceManager& deviceManager() {
        return deviceManager_;
    }
    [[nodiscard]] SyncManager& syncManager() {
        return syncManager_;
    }
    [[nodiscard]] UpdateCheckerService& updateChecker() {
        return updateChecker_;
    }
    [[nodiscard]] FavoritesManager& favoritesManager() {
        return favoritesManager_;
    }
    /// Where windows keep their sizes and the like.
    [[nodiscard]] SettingsStore& defaults() {
        return *setup_.defaults;
    }
    [[nodiscard]] DeviceServices& services() {
        return services_;
    }
    /// Local copies of phones' files, for previews and drags.
    [[nodiscard]] StagedFiles& stagedFiles() {
        return staged_;
    }
    [[nodiscard]] CopyQueue& copyQueue() {
        return copies_;
    }
    [[nodiscard]] RememberedCopies& rememberedCopies() {
        return rememberedCopies_;
    }
    /// What was dragged out of the windows.
    [[nodiscard]] DragMount& dragMount() {
        return dragMount_;
    }
    /// The phones that are open in the desktop's file manager.
    [[nodiscard]] PhoneMounts& phoneMounts() {
        return phoneMounts_;
    }
    [[nodiscard]] const TessaryAppSetup& setup() const {
        return setup_;
    }

private:
    DeviceServices& services_;
    std::unique_ptr<ScratchFolder> scratch_; ///< of what has no folder in setup_; null for none
    const TessaryAppSetup setup_;
    StagedFiles staged_{QStringLiteral("files")};
    DragMount dragMount_;
    CopyQueue copies_;
    DeviceManager deviceManager_;
    RememberedCopies rememberedCopies_;
    PhoneMounts phoneMounts_;
    SyncManager syncManager_;
    UpdateCheckerService updateChecker_;
    FavoritesManager favoritesManager_;
};

} // namespace tessary
