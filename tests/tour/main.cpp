// tessary-tour FOLDER: walks through the window on virtual phones and writes numbered screenshots
// into the folder. Exit status 1 when a step does not come about.

#include "app/InterfaceTexts.h"
#include "app/TessaryApp.h"
#include "ios/Multiplexer.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/demo/DemoPhones.h"
#include "tour/Tour.h"
#include "views/common/AppStyle.h"
#include "views/common/Icons.h"
#include "views/window/MainWindow.h"

#include <QApplication>

#include <cstdio>

using namespace tessary;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tessary"));
    if (argc != 2) {
        std::fputs("usage: tessary-tour FOLDER\n", stderr);
        return 2;
    }
    setUpStyle();
    setUpIconTheme();

    const QTemporaryDir disk;
    TourPhones phones(disk.path());
    QtProcessRunner processes(phones.demo().adbEnvironment());
    DeviceFileService files(phones.demo().bus(), processes);
    SystemMultiplexer multiplexer;
    TessaryAppSetup setup;
    setup.isDemo = true;
    setup.network = phones.demo().network();
    TessaryApp app({phones.demo().bus(), &multiplexer, false}, files, setup);
    const InterfaceTexts texts;
    MainWindow window(app);
    window.show();

    Tour walk(window, phones, QCoreApplication::arguments().at(1));
    QMetaObject::invokeMethod(
        &window, [&walk] { QApplication::exit(walk.run() ? 0 : 1); }, Qt::QueuedConnection);
    return QApplication::exec();
}
