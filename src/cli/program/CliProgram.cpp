#include "cli/program/CliProgram.h"

#include "base/local/Unfinished.h"
#include "base/threads/Background.h"
#include "cli/commands/CliRunner.h"
#include "devices/list/DeviceManager.h"
#include "platform/process/QtProcessRunner.h"
#include "platform/process/StopSignals.h"
#include "platform/settings/JsonSettingsStore.h"
#include "platform/usb/SystemUSBBus.h"

#include <QCoreApplication>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace tessary {

namespace {

/// How long work that nobody waits for any more may hold up the end of the program.
constexpr std::chrono::seconds backgroundPatience(3);

/// A stream for results on the real standard output. From then on whatever libraries print there
/// goes to standard error instead, so that nothing spoils a JSON document. Somebody who stops
/// reading is an error of writing and ends nothing in mid-work. Null when it is closed.
std::FILE* takeStandardOutput() {
    (void)std::signal(SIGPIPE, SIG_IGN);
    const int saved = dup(STDOUT_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return saved < 0 ? nullptr : fdopen(saved, "w");
}

class SystemPhones final : public CliPhones {
public:
    USBBus& bus() override {
        return *bus_;
    }

private:
    const std::unique_ptr<USBBus> bus_ = makeSystemUSBBus();
};

/// Where the adb server of these phones listens.
ADBServerAddress adbServerOf(const CliPhones& phones) {
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    all.insert(phones.environment());
    return ADBServerAddress::of(all);
}

} // namespace

std::unique_ptr<CliPhones> makeSystemPhones() {
    return std::make_unique<SystemPhones>();
}

int runCommandLine(int argc, char** argv, const MakeCliPhones& makePhones) {
    std::FILE* out = takeStandardOutput(); // before anything else is opened
    const StopSignals signals;
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tessary-cli"));
    if (out == nullptr) {
        std::fputs("tessary-cli: Standard output is closed.\n", stderr);
        return CliRunner::failed;
    }

    const auto parsed = parseCommandLine(QCoreApplication::arguments().mid(1));
    if (const auto* usage = std::get_if<CliUsage>(&parsed)) {
        std::fputs(qUtf8Printable(usage->text), usage->exitStatus == 0 ? out : stderr);
        if (std::fclose(out) == 0)
            return usage->exitStatus;
        std::perror("tessary-cli: The output cannot be written whole");
        return CliRunner::failed;
    }
    const CliRequest& request = std::get<CliRequest>(parsed);

    int status = CliRunner::failed;
    std::jthread work([&] {
        try {
            const auto defaults = makeSystemSettingsStore();
            const auto phones = makePhones(request, *defaults);
            Multiplexer multiplexer; // it is found by the environment
            QtProcessRunner processes(phones->environment());
            const std::stop_callback endChildren(signals.token(), [&] { processes.stop(); });
            DeviceServices services({phones->bus(), processes, adbServerOf(*phones)});
            if (const QString address = phones->straightAddress(); !address.isEmpty())
                services.adbWays().connect(address, signals.token());
            const DeviceSources sources{phones->bus(), &multiplexer, phones->startsADB()};
            status = CliRunner({sources, services, *defaults, out, stderr, phones->ledgers()})
                         .run(request, signals.token());
            if (!Background::shutDown(backgroundPatience)) {
                std::fclose(out);
                Unfinished::removeAll();
                std::_Exit(status); // a phone that hangs uses what would go now
            }
        } catch (const std::exception& error) {
            std::fprintf(stderr, "tessary-cli: The phones cannot be reached: %s\n", error.what());
        }
        QMetaObject::invokeMethod(
            &app, [] { QCoreApplication::quit(); }, Qt::QueuedConnection);
    });
    QCoreApplication::exec();
    work.join();
    std::fclose(out);
    return status;
}

} // namespace tessary
