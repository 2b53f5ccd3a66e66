#include "app/TessaryApp.h"
#include "app/views/AppStyle.h"
#include "app/views/Icons.h"
#include "app/views/MainWindow.h"
#include "app/views/Tour.h"
#include "core/Background.h"
#include "phones/DemoPhones.h"
#include "platform/SystemUsbBus.h"
#include "platform/qt/QtProcessRunner.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QProcess>
#include <QTemporaryDir>

using namespace tessary;

namespace {

/// As fast as a good cable, and slow enough for progress to be seen.
constexpr double demoMegabytesPerSecond = 30;

/// The phones that the window works on: this machine's, or virtual ones.
struct Phones {
    explicit Phones(bool demo) {
        if (demo)
            virtualPhones = std::make_unique<DemoPhones>(folder.path(), demoMegabytesPerSecond);
        else
            systemBus = makeSystemUsbBus();
    }

    UsbBus& bus() {
        return virtualPhones ? virtualPhones->bus() : *systemBus;
    }

    QTemporaryDir folder;
    std::unique_ptr<DemoPhones> virtualPhones;
    std::unique_ptr<UsbBus> systemBus;
};

/// What the tour does to the first virtual phone; the others stay unplugged.
TourPhone tourPhone(DemoPhones& phones) {
    VirtualAndroid& phone = *phones.androids().front();
    VirtualUsbBus& bus = phones.virtualBus();
    TourPhone controls;
    controls.plugIn = [&] { phone.plugInto(bus); };
    controls.unplug = [&] { phone.unplug(); };
    controls.setLocked = [&](bool locked) { phone.setLocked(locked); };
    controls.setStorageFull = [&](bool full) {
        phone.faults().update([full](VirtualFaults& faults) {
            faults.errors.clear();
            if (full)
                faults.errors[static_cast<std::uint16_t>(MTPOperationCode::sendObjectInfo)] = {
                    static_cast<std::uint16_t>(MTPResponseCode::storeFull), true};
        });
    };
    controls.setHeld = [&](bool held) {
        VirtualOpenFaults faults;
        if (held)
            faults.interfaceOpen = faults.interfaceSeize = usb::exclusiveAccess;
        bus.setOpenFaults(phone.config().location, faults);
        bus.setProgramsHolding(phone.config().location,
                               held ? QStringList{QStringLiteral("gvfsd-mtp (process 2841)")}
                                    : QStringList());
    };
    controls.setSpeed = [&](double megabytesPerSecond) {
        phone.faults().update([megabytesPerSecond](VirtualFaults& faults) {
            faults.megabytesPerSecond = megabytesPerSecond;
        });
    };
    return controls;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tessary"));
    QApplication::setDesktopFileName(QStringLiteral("tessary"));
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Work on virtual phones with sample files."));
    const QCommandLineOption tour(QStringLiteral("tour"),
                                  QStringLiteral("With --demo: walk through the window, write "
                                                 "numbered screenshots into <folder> and end."),
                                  QStringLiteral("folder"));
    parser.addOptions({demo, tour});
    parser.process(application);
    setUpStyle();
    setUpIconTheme();

    Phones phones(parser.isSet(demo) || parser.isSet(tour));
    QtProcessRunner processes;
    DeviceFileService files(phones.bus(), processes);
    TessaryAppSetup setup;
    setup.isDemo = phones.virtualPhones != nullptr;
    setup.startDemo = [] {
        QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                {QStringLiteral("--demo")});
        QApplication::closeAllWindows();
    };
    TessaryApp app(phones.bus(), files, setup);
    if (parser.isSet(tour))
        for (const auto& phone : phones.virtualPhones->androids())
            phone->unplug();
    MainWindow window(app);
    window.show();
    if (!parser.isSet(tour))
        return QApplication::exec();
    Tour walk(window, tourPhone(*phones.virtualPhones), parser.value(tour));
    QMetaObject::invokeMethod(
        &window, [&] { QApplication::exit(walk.run() ? 0 : 1); }, Qt::QueuedConnection);
    return QApplication::exec();
}
