// What the service adds to the adb tool: the bare command and the service copy the same file to and
// from the same virtual phone, by turns, in one run. No copy finds a file to replace.
//
// Each line gives the shortest and the median times, and two ratios: of the shortest times, and the
// median of the ratios of two copies that ran one after the other. The exit status is 1 when the
// shortest time of the service is more than 10 % above the command's: what else a machine does
// makes single copies up to twice as long, and the shortest are those that it disturbed least. All
// files lie in memory where there is room: a disk's moods are larger than what is measured.

#include "devices/files/DeviceFileService.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/adbd/ADBServer.h"
#include "simulator/faults/FaultyADBD.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "support/TemporaryFolder.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Clock = std::chrono::steady_clock;

constexpr qint64 fileSize = qint64{1} << 30;
constexpr int rounds = 12;
constexpr double mostTime = 1.10; // of the bare command's

double secondsOf(const QString& target, const std::function<void()>& copy) {
    QFile::remove(target);
    const auto begin = Clock::now();
    copy();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The service's shortest time as a multiple of the bare command's. `target` is what either makes.
double compare(const char* direction, const QString& target, const std::function<void()>& bare,
               const std::function<void()>& ours) {
    std::vector<double> bareTimes;
    std::vector<double> ourTimes;
    std::vector<double> ratios;
    for (int round = -1; round < rounds; ++round) {
        const bool bareFirst = round % 2 == 0;
        double bareTime = bareFirst ? secondsOf(target, bare) : 0;
        const double ourTime = secondsOf(target, ours);
        if (!bareFirst)
            bareTime = secondsOf(target, bare);
        if (round < 0)
            continue; // the first pair finds cold caches
        bareTimes.push_back(bareTime);
        ourTimes.push_back(ourTime);
        ratios.push_back(ourTime / bareTime);
    }
    const double bareBest = *std::min_element(bareTimes.begin(), bareTimes.end());
    const double ourBest = *std::min_element(ourTimes.begin(), ourTimes.end());
    const double ratio = ourBest / bareBest;
    std::printf(
        "%-5s 1 GiB   shortest: adb %.3f s, service %.3f s, ratio %.3f   median: adb %.3f s, "
        "service %.3f s, ratio %.3f\n",
        direction, bareBest, ourBest, ratio, median(bareTimes), median(ourTimes), median(ratios));
    std::fflush(stdout);
    return ratio;
}

int run() {
    const std::optional<QString> adb = ADBTool::findAmong(ADBTool::defaultPaths());
    if (!adb) {
        std::fprintf(stderr, "adb is not installed\n");
        return 1;
    }
    const TemporaryFolder disk;
    ADBDConfig config;
    config.folder = disk.makeFolder(u"phone"_s);
    FaultyADBD phone(std::move(config));
    phone.start();
    ADBServer server(disk.makeFolder(u"keys"_s));
    server.start(*adb);
    server.awaitStart();
    server.connect(phone.address());
    if (!server.awaitPhone(phone.address()))
        return 1;

    QtProcessRunner processes(server.environment());
    VirtualUSBBus bus;
    DeviceFileService service(bus, processes, QStringList{*adb});
    DeviceInfo device;
    device.platform = DevicePlatform::android;
    device.protocolMode = ProtocolMode::adbTurbo;
    device.udid = phone.address();
    device.serialNumber = device.udid;

    const QString local = disk.path(u"big"_s);
    {
        const QByteArray piece(1 << 20, 'x');
        QFile file(local);
        bool isWritten = file.open(QIODevice::WriteOnly);
        for (qint64 done = 0; isWritten && done < fileSize; done += piece.size())
            isWritten = file.write(piece) == piece.size();
        if (!isWritten)
            return 1;
    }
    bool isWhole = true;
    const auto command = [&](const QStringList& words) {
        ProcessRequest request;
        request.program = *adb;
        request.arguments = QStringList{u"-s"_s, device.udid} + words;
        isWhole = processes.follow(request).succeeded() && isWhole;
    };
    const FileProgressCallback progress = [](qint64, qint64) {};
    const double push = compare(
        "push", disk.path(u"phone/big"_s),
        [&] {
            command({u"push"_s, local, u"/sdcard/big"_s});
        },
        [&] { service.uploadFile(local, u"/sdcard"_s, device, progress); });
    isWhole = isWhole && QFileInfo(disk.path(u"phone/big"_s)).size() == fileSize;

    const FileItem item = service.itemAt(u"/sdcard/big"_s, device);
    const QString back = disk.path(u"back"_s);
    const double pull = compare(
        "pull", back,
        [&] {
            command({u"pull"_s, u"-a"_s, u"/sdcard/big"_s, back});
        },
        [&] { service.downloadFile(item, back, device, progress); });
    isWhole = isWhole && QFileInfo(back).size() == fileSize;
    return isWhole && push <= mostTime && pull <= mostTime ? 0 : 1;
}

} // namespace
} // namespace tessary

int main() {
    constexpr qint64 room = 6 * tessary::fileSize;
    if (!qEnvironmentVariableIsSet("TMPDIR") &&
        QStorageInfo(QStringLiteral("/dev/shm")).bytesAvailable() > room)
        qputenv("TMPDIR", "/dev/shm");
    return tessary::run();
}
