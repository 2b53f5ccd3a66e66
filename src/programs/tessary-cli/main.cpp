#include "adb/tool/ADBTool.h"
#include "base/local/Unfinished.h"
#include "base/threads/Background.h"
#include "cli/commands/CliRunner.h"
#include "cli/terminal/CommandLine.h"
#include "devices/list/DeviceManager.h"
#include "ios/Multiplexer.h"
#include "platform/process/QtProcessRunner.h"
#include "platform/process/StopSignals.h"
#include "platform/settings/SystemUserDefaults.h"
#include "platform/usb/SystemUSBBus.h"
#include "simulator/demo/DemoPhones.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QTemporaryDir>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <thread>

using namespace tessary;

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

/// The phones that the run works on: this machine's, or virtual ones.
class Phones {
public:
    Phones(const CliRequest& request, const UserDefaults& defaults) {
        if (!request.demo) {
            system_ = makeSystemUSBBus();
            return;
        }
        ledgers_ = demoLedgers(request);
        demo_ = std::make_unique<DemoPhones>(request.demoFolder);
        // The run is over before adb would be there by itself: it is waited for, or not started.
        if (!wantsADB(request, defaults))
            return;
        demo_->startADB(ADBTool::findAmong(ADBTool::defaultPaths()));
        demo_->awaitADB();
    }

    /// What was imported from virtual phones is forgotten with their files.
    [[nodiscard]] QString ledgers() const {
        return ledgers_;
    }
    USBBus& bus() {
        return demo_ ? demo_->bus() : *system_;
    }
    /// The same for this machine's iPhones and virtual ones: it is found by the environment.
    DeviceSources sources() {
        return {bus(), &multiplexer_, demo_ == nullptr || demo_->startsADB()};
    }
    /// Where the adb server of these phones listens.
    [[nodiscard]] ADBServerAddress adbServer() const {
        QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
        all.insert(environment());
        return ADBServerAddress::of(all);
    }
    /// Where a virtual phone is reached when there is no adb; else empty.
    [[nodiscard]] QString straightAddress() const {
        return demo_ ? demo_->straightAddress() : QString();
    }
    /// What leads child processes to these phones.
    [[nodiscard]] QProcessEnvironment environment() const {
        return demo_ ? demo_->adbEnvironment() : QProcessEnvironment();
    }

private:
    static bool wantsADB(const CliRequest& request, const UserDefaults& defaults) {
        const auto chosen = protocolModeFromRawValue(defaults.value(DeviceManager::protocolModesKey)
                                                         .toObject()[DemoPhones::debuggedSerial]
                                                         .toString());
        return request.protocol.value_or(chosen.value_or(ProtocolMode::mtp)) ==
               ProtocolMode::adbTurbo;
    }

    QString demoLedgers(const CliRequest& request) {
        if (!request.demoFolder.isEmpty())
            return request.demoFolder + QStringLiteral("/imports");
        scratch_.emplace();
        return scratch_->path();
    }

    std::optional<QTemporaryDir> scratch_;
    QString ledgers_ = ImportLedger::usersFolder();
    std::unique_ptr<DemoPhones> demo_;
    std::unique_ptr<USBBus> system_;
    SystemMultiplexer multiplexer_;
};

} // namespace

int main(int argc, char** argv) {
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
            const auto defaults = makeSystemUserDefaults();
            Phones phones(request, *defaults);
            QtProcessRunner processes(phones.environment());
            const std::stop_callback endChildren(signals.token(), [&] { processes.stop(); });
            DeviceServices services({phones.bus(), processes, phones.adbServer()});
            if (const QString address = phones.straightAddress(); !address.isEmpty())
                services.adbWays().connect(address, signals.token());
            status =
                CliRunner({phones.sources(), services, *defaults, out, stderr, phones.ledgers()})
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
