// What the window and `tessary-cli watch` cost while nothing happens: processor time over a minute,
// without a phone and with two in Turbo mode, which live in this process. The time is the kernel's
// count for the whole program, from five seconds after its start on. An argument gives the seconds.
// The exit status is 1 when something costs more than is said below.

#include "simulator/adbd/ADBServer.h"
#include "simulator/adbd/VirtualADBD.h"
#include "support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto adbPath = "/usr/bin/adb";
constexpr auto startTime = 5s;

/// Seconds of processor time that a process has taken, with those of threads that have ended.
double processorTime(qint64 process) {
    QFile file(u"/proc/%1/stat"_s.arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray line = file.readAll();
    const QByteArrayList fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype user = 11; // after the name
    return static_cast<double>(fields.value(user).toLongLong() +
                               fields.value(user + 1).toLongLong()) /
           static_cast<double>(::sysconf(_SC_CLK_TCK));
}

/// A program that rests; its parts of a core while it does.
double partOfACore(const QStringList& command, const QProcessEnvironment& environment,
                   std::chrono::seconds time) {
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setStandardOutputFile(QProcess::nullDevice());
    program.setStandardErrorFile(QProcess::nullDevice());
    program.start(command.first(), command.mid(1));
    if (!program.waitForStarted())
        return 1;
    std::this_thread::sleep_for(startTime);
    const double before = processorTime(program.processId());
    std::this_thread::sleep_for(time);
    const double after = processorTime(program.processId());
    program.terminate();
    program.waitForFinished();
    return (after - before) / static_cast<double>(time.count());
}

int run(std::chrono::seconds time) {
    const TemporaryFolder disk;
    ADBServer server(disk.makeFolder(u"keys"_s));
    server.start(QString::fromLatin1(adbPath));
    server.awaitStart();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(server.environment());
    environment.insert(u"HOME"_s, disk.makeFolder(u"home"_s));
    environment.insert(u"XDG_RUNTIME_DIR"_s, disk.makeFolder(u"runtime"_s));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"USBMUXD_SOCKET_ADDRESS"_s, u"UNIX:/nowhere"_s);
    const QString bin = QCoreApplication::applicationDirPath() + u'/';
    std::vector<std::unique_ptr<VirtualADBD>> phones;
    bool isQuiet = true;
    for (const std::size_t count : {0U, 2U}) {
        while (phones.size() < count) {
            ADBDConfig config;
            config.serialNumber = u"REST%1"_s.arg(phones.size());
            config.folder = disk.makeFolder(config.serialNumber);
            phones.push_back(std::make_unique<VirtualADBD>(std::move(config)));
            phones.back()->start();
            server.connect(phones.back()->address());
            isQuiet = server.awaitPhone(phones.back()->address()) && isQuiet;
        }
        const double most = count == 0 ? 0.001 : 0.01;
        const std::pair<const char*, QStringList> programs[] = {
            {"window", {bin + u"tessary"_s}}, {"watch", {bin + u"tessary-cli"_s, u"watch"_s}}};
        for (const auto& [name, command] : programs) {
            const double part = partOfACore(command, environment, time);
            std::printf("%-7s %zu phones  %.2f %% of a core, at most %.2f %%\n", name, count,
                        100 * part, 100 * most);
            std::fflush(stdout);
            isQuiet = isQuiet && part <= most;
        }
    }
    return isQuiet ? 0 : 1;
}

} // namespace
} // namespace tessary

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return tessary::run(std::chrono::seconds(argc > 1 ? std::atoi(argv[1]) : 60));
}
