#include "base/local/PrivateFolder.h"
#include "base/local/ScratchFolder.h"
#include "simulator/adbd/VirtualADBD.h"
#include "simulator/content/DemoContent.h"
#include "simulator/demo/DemoIPhones.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>

using namespace tessary;

namespace {

/// The signals that end the program. Blocked from the start, so that every thread leaves them to
/// the one that waits for them.
sigset_t stopSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, signal);
    return signals;
}

/// The debugging daemon of an Android phone with sample content below a folder.
std::unique_ptr<VirtualADBD> startADBD(const QString& folder) {
    ADBDConfig config;
    config.folder = QDir(folder).filePath(QStringLiteral("pixel"));
    if (!QDir(config.folder).exists())
        (void)DemoContent::fillPhone(config.folder);
    auto adbd = std::make_unique<VirtualADBD>(std::move(config));
    adbd->start();
    return adbd;
}

} // namespace

int main(int argc, char** argv) {
    const sigset_t signals = stopSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tessary-phones"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Serves a virtual iPhone and a virtual iPad, and an Android phone for adb, "
                       "to the programs of this machine until it is interrupted."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("socket"),
                                 QStringLiteral("Where to listen: a path of at most 107 bytes."));
    const QCommandLineOption folder(QStringLiteral("folder"),
                                    QStringLiteral("Keep the phones' files in <folder>. Otherwise "
                                                   "they end with the program."),
                                    QStringLiteral("folder"));
    const QCommandLineOption adb(QStringLiteral("adb"),
                                 QStringLiteral("Also serve an Android phone with USB debugging "
                                                "on, and print how adb connects to it."));
    parser.addOptions({folder, adb});
    parser.process(app);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);

    try {
        std::optional<ScratchFolder> temporary;
        if (!parser.isSet(folder))
            temporary.emplace(PrivateFolder(PrivateFolder::Place::cache, QStringLiteral("demo")));
        const QString disk = temporary ? temporary->path() : parser.value(folder);
        DemoIPhones phones(parser.positionalArguments().constFirst());
        phones.plugIn(disk);
        std::printf("export USBMUXD_SOCKET_ADDRESS='%s'\n", phones.mux().address().constData());
        const std::unique_ptr<VirtualADBD> adbd = parser.isSet(adb) ? startADBD(disk) : nullptr;
        if (adbd)
            std::printf("adb connect %s\n", qUtf8Printable(adbd->address()));
        std::fflush(stdout);
        int received = 0;
        sigwait(&signals, &received);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tessary-phones: %s\n", error.what());
        return 1;
    }
    return 0;
}
