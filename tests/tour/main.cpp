// tessary-tour FOLDER [WIDTH HEIGHT]: walks through the window, of that size, on virtual phones and
// writes numbered screenshots into the folder. Exit status 1 when a step does not come about.

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
#include <exception>

using namespace tessary;

namespace {

/// The exit status.
int walk(MainWindow& window, TourPhones& phones, const QString& folder) {
    try {
        TourStage stage(window, phones, folder);
        for (const auto step :
             {tourWelcome,     tourListings,      tourTypedPaths, tourMoves,      tourSearch,
              tourSmallWindow, tourPanes,         tourPreviews,   tourProperties, tourSettings,
              tourWireless,    tourLanguages,     tourDark,       tourEdits,      tourHands,
              tourTransfers,   tourCopyQuestions, tourSync,       tourFailures,   tourBrokenCopy,
              tourLosses,      tourIPhone})
            step(stage);
        std::fprintf(stderr,
                     "tessary-tour: %d screenshots are in %s; the window never stalled for over "
                     "%lld ms\n",
                     stage.pictures(), qUtf8Printable(folder),
                     static_cast<long long>(stage.longestStall()));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary-tour: it stopped: %s\n", error.what());
        return 1;
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tessary"));
    if (argc != 2 && argc != 4) {
        std::fputs("usage: tessary-tour FOLDER [WIDTH HEIGHT]\n", stderr);
        return 2;
    }
    setUpStyle();
    setUpIconTheme();

    const QTemporaryDir disk;
    TourPhones phones(disk.path());
    QtProcessRunner processes(phones.demo().adbEnvironment());
    DeviceServices services({phones.demo().bus(), processes});
    Multiplexer multiplexer;
    TessaryAppSetup setup;
    setup.updates = {QUrl(QStringLiteral("https://updates.tessary.example")),
                     QUrl(QStringLiteral("https://tessary.example")),
                     UpdateSource::builtIn().currentVersion};
    setup.isDemo = true;
    setup.network = phones.demo().network();
    TessaryApp app({phones.demo().bus(), &multiplexer, false}, services, setup);
    const InterfaceTexts texts;
    MainWindow window(app);
    if (const QStringList arguments = QCoreApplication::arguments(); arguments.size() == 4)
        window.resize(arguments[2].toInt(), arguments[3].toInt());
    window.show();

    QMetaObject::invokeMethod(
        &window,
        [&] { QApplication::exit(walk(window, phones, QCoreApplication::arguments().at(1))); },
        Qt::QueuedConnection);
    return QApplication::exec();
}
