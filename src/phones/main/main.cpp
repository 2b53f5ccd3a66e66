#include "phones/DemoIPhones.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <stdexcept>

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

} // namespace

int main(int argc, char** argv) {
    const sigset_t signals = stopSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tessary-phones"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Serves a virtual iPhone and a virtual iPad to the programs of this machine "
                       "until it is interrupted."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("socket"),
                                 QStringLiteral("Where to listen: a path of at most 107 bytes."));
    const QCommandLineOption folder(QStringLiteral("folder"),
                                    QStringLiteral("Keep the apps' files in <folder>. Otherwise "
                                                   "they end with the program."),
                                    QStringLiteral("folder"));
    parser.addOption(folder);
    parser.process(app);
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);

    const QTemporaryDir temporary;
    try {
        DemoIPhones phones(parser.isSet(folder) ? parser.value(folder) : temporary.path(),
                           parser.positionalArguments().constFirst());
        std::printf("export USBMUXD_SOCKET_ADDRESS='%s'\n", phones.mux().address().constData());
        std::fflush(stdout);
        int received = 0;
        sigwait(&signals, &received);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "tessary-phones: %s\n", error.what());
        return 1;
    }
    return 0;
}
