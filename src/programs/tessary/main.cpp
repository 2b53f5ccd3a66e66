#include "adb/tool/ADBTool.h"
#include "app/InterfaceTexts.h"
#include "app/LanguageManager.h"
#include "app/TessaryApp.h"
#include "base/local/Unfinished.h"
#include "base/log/Product.h"
#include "base/threads/Background.h"
#include "ios/Multiplexer.h"
#include "platform/desktop/DesktopNotifier.h"
#include "platform/desktop/FileManager.h"
#include "platform/desktop/MuteSessionBus.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/TaskbarProgress.h"
#include "platform/process/QtProcessRunner.h"
#include "platform/process/StopSignals.h"
#include "platform/settings/JsonSettingsStore.h"
#include "platform/settings/MemorySettingsStore.h"
#include "platform/usb/SystemUSBBus.h"
#include "simulator/demo/DemoPhones.h"
#include "transfer/import/ImportLedger.h"
#include "views/common/AppStyle.h"
#include "views/common/Icons.h"
#include "views/dialogs/UpdateAlerts.h"
#include "views/window/ApplicationWindows.h"
#include "views/window/MainWindow.h"
#include "views/window/WindowSession.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenuBar>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <string_view>

using namespace tessary;
using namespace std::chrono_literals;

namespace {

/// Where the desktop leaves its leave to take the focus.
constexpr const char* activationToken = "XDG_ACTIVATION_TOKEN";

/// As fast as a good cable, and slow enough for progress to be seen.
constexpr double demoMegabytesPerSecond = 30;

/// The phones that the window works on: this machine's, or virtual ones.
struct Phones {
    explicit Phones(bool demo) {
        if (demo)
            virtualPhones = std::make_unique<DemoPhones>(
                QString(), demoMegabytesPerSecond, DemoMakers{}, DemoPhones::PluggedIn::later);
        else
            systemBus = makeSystemUSBBus();
    }

    USBBus& bus() {
        return virtualPhones ? virtualPhones->bus() : *systemBus;
    }

    /// This machine's iPhones and virtual ones are found alike: by the environment.
    DeviceSources sources() {
        return {bus(), &multiplexer, virtualPhones == nullptr || virtualPhones->startsADB()};
    }
    /// Where the adb server of these phones listens.
    [[nodiscard]] ADBServerAddress adbServer() const {
        QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
        all.insert(environment());
        return ADBServerAddress::of(all);
    }
    /// What leads child processes to these phones.
    [[nodiscard]] QProcessEnvironment environment() const {
        return virtualPhones ? virtualPhones->adbEnvironment() : QProcessEnvironment();
    }

    std::unique_ptr<DemoPhones> virtualPhones;
    std::unique_ptr<USBBus> systemBus;
    Multiplexer multiplexer;
};

/// The demo speaks the user's language and leaves the settings alone: pairs and favorites of phones
/// that are gone with it.
std::shared_ptr<SettingsStore> demoDefaults() {
    auto defaults = std::make_shared<MemorySettingsStore>();
    const QString language = LanguageManager::settingsKey;
    defaults->setValue(language, makeSystemSettingsStore()->value(language));
    return defaults;
}

/// Help and the version are there without a display, too.
bool asksForText(int argc, char** argv) {
    constexpr std::array<std::string_view, 5> options{"-h", "--help", "--help-all", "-v",
                                                      "--version"};
    return std::any_of(argv + 1, argv + argc, [&](const char* argument) {
        return std::ranges::find(options, argument) != options.end();
    });
}

} // namespace

int main(int argc, char** argv) {
    // Avahi's library for DNS-SD asks on standard error for its own interface to be used instead.
    qputenv("AVAHI_COMPAT_NOWARN", "1");
    const StopSignals signals;
    leaveMuteSessionBus();
    const std::unique_ptr<QCoreApplication> application =
        asksForText(argc, argv) ? std::make_unique<QCoreApplication>(argc, argv)
                                : std::make_unique<QApplication>(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tessary"));
    QCoreApplication::setApplicationVersion(productVersion());
    QGuiApplication::setDesktopFileName(QStringLiteral("tessary"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Browse phones and copy files to and from them."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Work on virtual phones with sample files."));
    parser.addOption(demo);
    parser.process(*application);
    setUpStyle();
    setUpIconTheme();

    const bool isDemo = parser.isSet(demo);

    QWidget* shown = nullptr;
    // The virtual phones may be tried beside the real ones.
    SingleInstance instance(isDemo ? QStringLiteral("tessary-demo") : QStringLiteral("tessary"));
    if (instance.claim(
            [&shown](const QByteArray& token) {
                if (!token.isEmpty())
                    qputenv(activationToken, token);
                if (shown != nullptr)
                    bringToFront(*shown);
            },
            qgetenv(activationToken)) == SingleInstance::Outcome::raisedOther)
        return 0;

    Phones phones(isDemo);
    if (isDemo)
        phones.virtualPhones->startADB(findADBTool());
    QtProcessRunner processes(phones.environment());
    DeviceServices services({phones.bus(), processes, phones.adbServer()});
    TessaryAppSetup setup;
    setup.isDemo = phones.virtualPhones != nullptr;
    setup.startDemo = [] {
        QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                {QStringLiteral("--demo")});
        QApplication::closeAllWindows();
    };
    if (isDemo)
        setup.network = phones.virtualPhones->network();
    setup.defaults = isDemo ? demoDefaults() : makeSystemSettingsStore();
    if (!isDemo) {
        setup.importLedgers = ImportLedger::usersFolder();
        setup.copyRecords = CopyHistory::usersFolder();
    }
    setup.showInFolder = [](const QString& path) {
        showInFileManager(path, [path] {
            QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
        });
    };
    setup.showFolder = [](const QString& path) {
        showFolderInFileManager(path,
                                [path] { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    };
    setup.notifier = std::make_shared<DesktopNotifier>();
    setup.openAddress = [](const QUrl& address) { QDesktopServices::openUrl(address); };
    TessaryApp app(phones.sources(), services, setup);
    const InterfaceTexts texts;
    MainWindow window(app);
    window.show();
    ApplicationWindows windows(window);
    WindowSession session(window, app.defaults());
    session.reopen();
    UpdateAlerts alerts(app.updateChecker(), window);
    alerts.addCommand(*window.menuBar());
    TaskbarProgress taskbar;
    const CopyQueue& copies = app.copyQueue();
    QObject::connect(&copies, &CopyQueue::summaryChanged, &windows,
                     [&] { taskbar.show(copies.summary().fractionDone()); });
    shown = &window;
    bringToFront(window);
    if (const QString address = isDemo ? phones.virtualPhones->straightAddress() : QString();
        !address.isEmpty())
        runInBackground(
            &windows,
            [&services, address](const std::stop_token& stop) {
                services.adbWays().connect(address, stop);
            },
            [](const BackgroundResult<void>&) {});
    if (!isDemo) // nobody waits for it: the window comes first
        QTimer::singleShot(5s, &app.updateChecker(), &UpdateCheckerService::checkAtStart);
    // Whoever ends the session has no time for questions.
    const std::stop_callback endOnSignal(signals.token(), [app = application.get()] {
        QMetaObject::invokeMethod(
            app, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
    });
    const int status = QApplication::exec();
    shown = nullptr;
    window.hide();
    processes.stop();
    if (!app.stop()) {
        Unfinished::removeAll();
        std::_Exit(status); // a phone that hangs uses what would go now
    }
    return status;
}
