// Turbo mode next to the bare adb tool, by turns, in one run, with one virtual phone: a file of 1
// GiB and a folder of 400 files of 20 kB both ways, and a listing of 10,000 entries. Also how long
// a single step takes, and the same copies by the ways that need no adb, which have nothing to be
// compared with. The phone's `ls` is this machine's own: a phone's shell runs a program, too.
//
// Each line gives the medians and the shortest times, and both ratios. The exit status is 1 when a
// ratio of medians is above its limit and that of the shortest times is, too: what else a machine
// does makes single runs up to twice as long. All files lie in memory where there is room: a disk's
// moods are larger than what is measured. An argument names the one part that is to run: "big",
// "small", "list", "steps" or "straight".

#include "adb/direct/ADBDirectConnection.h"
#include "adb/direct/ADBTCPTransport.h"
#include "adb/direct/ADBUSBTransport.h"
#include "adb/files/ADBFileSystem.h"
#include "adb/keys/ADBAuthManager.h"
#include "adb/server/ADBServerConnection.h"
#include "platform/keys/FileKeyStore.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/adbd/ADBDCable.h"
#include "simulator/adbd/ADBServer.h"
#include "simulator/faults/FaultyADBD.h"
#include "support/TemporaryFolder.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <QFileInfo>
#include <QProcess>
#include <QStorageInfo>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Clock = std::chrono::steady_clock;
using Files = std::shared_ptr<PhoneFileSystem>;
using Work = std::function<void()>;

constexpr qint64 bigSize = qint64{1} << 30;
constexpr int smallCount = 400;
constexpr qint64 smallSize = 20'000;
constexpr int listedCount = 10'000;
constexpr int rounds = 5;
constexpr const char* adbPath = "/usr/bin/adb";

struct Times {
    double median = 0;
    double best = 0;
};

double secondsOf(const Work& prepare, const Work& work) {
    prepare();
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

Times timesOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return {values[values.size() / 2], values.front()};
}

/// Everything on one machine: the phone, the tool, and the ways to it.
class Bench {
public:
    Bench() : phone_(config()), server_(disk_.makeFolder(u"keys"_s)), cable_(phone_, u"CABLE"_s) {
        phone_.faults().update([this](ADBDFaults& faults) {
            faults.rewrite = [this](const QByteArray& line) { return listed(line); };
        });
        phone_.start();
        server_.start(QString::fromLatin1(adbPath));
        server_.awaitStart();
        server_.connect(phone_.address());
        isWhole_ = server_.awaitPhone(phone_.address());
        cable_.plugInto(bus_, u"1-1"_s);
        ADBServerAddress address;
        address.port = server_.port();
        turbo_ = open(std::make_shared<ADBServerConnection>(
            std::make_shared<ADBServerClient>(address), ADBPhoneSought{phone_.address(), {}}));
    }

    /// `only`: one of the parts below; empty for all.
    int run(const std::string& only) {
        const auto wants = [&](const char* part) { return only.empty() || only == part; };
        makeFiles(wants("big") || wants("straight"));
        if (wants("big"))
            oneFile();
        if (wants("small")) {
            copy("push 400 x 20 kB", u"small"_s, true, 1);
            copy("pull 400 x 20 kB", u"small"_s, false, 1);
        }
        if (wants("list"))
            list();
        if (wants("steps"))
            steps();
        if (wants("straight"))
            straightWays();
        return isWhole_ && isFast_ ? 0 : 1;
    }

private:
    /// Without adb, next to nothing.
    void straightWays() {
        const auto keys = std::make_shared<ADBAuthManager>(
            std::make_unique<FileKeyStore>(disk_.path(u"keys"_s)), u"a"_s, u"b"_s);
        const std::pair<const char*, ADBDirectConnection::Connect> straight[] = {
            {"network",
             [this](const Wait& wait) {
                 return std::make_unique<ADBTCPTransport>(u"127.0.0.1"_s, phone_.port(), wait);
             }},
            {"cable", [this](const Wait&) {
                 return std::make_unique<ADBUSBTransport>(bus_, u"1-1"_s, QString());
             }}};
        for (const auto& [name, connect] : straight) {
            const Files files = open(std::make_shared<ADBDirectConnection>(connect, keys));
            for (const bool isBig : {true, false}) {
                std::vector<double> push;
                std::vector<double> pull;
                for (int round = 0; round < rounds; ++round) {
                    push.push_back(
                        secondsOf([&] { clear(isBig ? u"phone/big"_s : u"phone/small"_s); },
                                  [&] { isBig ? writeOne(files) : toPhone(files, u"small"_s); }));
                    pull.push_back(
                        secondsOf([&] { clear(u"back"_s); },
                                  [&] { isBig ? readOne(files) : fromPhone(files, u"small"_s); }));
                }
                std::printf("%-8s %-11s push %.3f s, pull %.3f s\n", name,
                            isBig ? "1 GiB" : "400 x 20 kB", timesOf(push).median,
                            timesOf(pull).median);
                std::fflush(stdout);
            }
        }
    }
    ADBDConfig config() {
        ADBDConfig config;
        config.folder = disk_.makeFolder(u"phone"_s);
        return config;
    }
    [[nodiscard]] std::optional<QByteArray> listed(const QByteArray& line) const {
        const QByteArray ls = "ls -la /sdcard/";
        if (!line.startsWith(ls))
            return std::nullopt;
        const QString folder = disk_.path(u"phone/"_s) + QString::fromUtf8(line.mid(ls.size()));
        QProcess program;
        program.start(u"ls"_s, {u"-la"_s, folder});
        program.waitForFinished();
        return program.readAllStandardOutput();
    }
    Files open(std::shared_ptr<ADBConnection> connection) {
        PhoneIdentity phone;
        phone.udid = phone.serialNumber = phone_.address();
        return std::make_shared<ADBFileSystem>(phone, std::make_shared<PhoneQueue>(),
                                               std::move(connection));
    }
    void makeFiles(bool withBig) {
        if (withBig)
            disk_.write(u"local/big"_s, QByteArray(bigSize, 'x'));
        for (int n = 0; n < smallCount; ++n)
            disk_.write(u"local/small/f%1"_s.arg(n), QByteArray(smallSize, 'y'));
        for (int n = 0; n < listedCount; ++n)
            disk_.write(u"phone/many/a file with number %1.jpg"_s.arg(n), {});
    }
    void clear(const QString& path) {
        QDir(disk_.path(path)).removeRecursively();
        QFile::remove(disk_.path(path));
        disk_.makeFolder(u"back"_s);
    }
    void command(const QStringList& words) {
        ProcessRequest request;
        request.program = QString::fromLatin1(adbPath);
        request.arguments = QStringList{u"-s"_s, phone_.address()} + words;
        isWhole_ = processes_.follow(request).succeeded() && isWhole_;
    }
    void copyTree(const Files& from, const QString& path, const Files& to, const QString& folder) {
        const FileItem item = require(*from, path, {});
        TreeCopyRequest request;
        request.from = from;
        request.to = to;
        request.items = {{.item = item, .name = item.name}};
        request.folder = folder;
        const CopyOutcome outcome = TreeCopy(std::move(request)).run([](const auto&...) {}, {});
        isWhole_ = outcome.end() == CopyOutcome::End::done && isWhole_;
    }
    void toPhone(const Files& phone, const QString& item) {
        copyTree(local_, disk_.path(u"local/"_s + item), phone, u"/sdcard"_s);
    }
    void fromPhone(const Files& phone, const QString& item) {
        copyTree(phone, u"/sdcard/"_s + item, local_, disk_.path(u"back"_s));
    }

    void compare(const char* what, const Work& prepare, const Work& bare, const Work& ours,
                 double most) {
        std::vector<double> bareTimes;
        std::vector<double> ourTimes;
        for (int round = -1; round < rounds; ++round) {
            const bool bareFirst = round % 2 == 0;
            double bareTime = bareFirst ? secondsOf(prepare, bare) : 0;
            const double ourTime = secondsOf(prepare, ours);
            if (!bareFirst)
                bareTime = secondsOf(prepare, bare);
            if (round < 0)
                continue; // the first pair finds cold caches
            bareTimes.push_back(bareTime);
            ourTimes.push_back(ourTime);
        }
        const Times bareTime = timesOf(bareTimes);
        const Times ourTime = timesOf(ourTimes);
        const double ratio = ourTime.median / bareTime.median;
        const double best = ourTime.best / bareTime.best;
        isFast_ = isFast_ && (ratio <= most || best <= most);
        std::printf("%-17s adb %.3f s (%.3f), Turbo %.3f s (%.3f), ratio %.3f (%.3f), at most "
                    "%.2f\n",
                    what, bareTime.median, bareTime.best, ourTime.median, ourTime.best, ratio, best,
                    most);
        std::fflush(stdout);
    }
    void copy(const char* what, const QString& item, bool push, double most) {
        const QString target = push ? u"phone/"_s + item : u"back"_s;
        if (!push && !disk_.has(u"phone/"_s + item))
            toPhone(turbo_, item);
        compare(
            what, [&] { clear(target); },
            [&] {
                if (push)
                    command({u"push"_s, disk_.path(u"local/"_s + item), u"/sdcard/"_s + item});
                else
                    command({u"pull"_s, u"-a"_s, u"/sdcard/"_s + item, disk_.path(u"back"_s)});
            },
            [&] { push ? toPhone(turbo_, item) : fromPhone(turbo_, item); }, most);
    }
    /// A file as a single step, without what a copy does around it.
    void writeOne(const Files& phone) {
        QFile file(disk_.path(u"local/big"_s));
        isWhole_ = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) && isWhole_;
        (void)phone->write(
            {u"/sdcard"_s, u"big"_s, bigSize, std::nullopt},
            [&](std::span<std::byte> to) {
                return static_cast<std::size_t>(
                    file.read(reinterpret_cast<char*>(to.data()), static_cast<qint64>(to.size())));
            },
            [](qint64) {}, {});
    }
    void readOne(const Files& phone) {
        QFile file(disk_.path(u"back/big"_s));
        isWhole_ = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && isWhole_;
        (void)phone->read(require(*phone, u"/sdcard/big"_s, {}), {},
                          [&](ByteView bytes) {
                              file.write(reinterpret_cast<const char*>(bytes.data()),
                                         static_cast<qint64>(bytes.size()));
                          },
                          {});
        isWhole_ = file.size() == bigSize && isWhole_;
    }
    void oneFile() {
        compare(
            "push 1 GiB", [&] { clear(u"phone/big"_s); },
            [&] {
                command({u"push"_s, disk_.path(u"local/big"_s), u"/sdcard/big"_s});
            },
            [&] { writeOne(turbo_); }, 1.03);
        compare(
            "pull 1 GiB", [&] { clear(u"back"_s); },
            [&] {
                command({u"pull"_s, u"-a"_s, u"/sdcard/big"_s, disk_.path(u"back"_s)});
            },
            [&] { readOne(turbo_); }, 1.03);
    }
    void list() {
        compare(
            "list 10,000", [] {},
            [&] {
                command({u"shell"_s, u"ls -la /sdcard/many/"_s});
            },
            [&] {
                isWhole_ =
                    listAll(*turbo_, u"/sdcard/many"_s, {}).items.size() == listedCount && isWhole_;
            },
            0.5);
    }
    void steps() {
        constexpr int count = 50;
        constexpr double most = 0.020;
        std::vector<double> makes;
        std::vector<double> renames;
        for (int n = 0; n < count; ++n) {
            FileItem folder;
            makes.push_back(secondsOf(
                [] {},
                [&] { folder = turbo_->makeFolder(u"/sdcard"_s, u"folder %1"_s.arg(n), {}); }));
            renames.push_back(secondsOf([] {},
                                        [&] {
                                            (void)turbo_->rename(folder, u"renamed %1"_s.arg(n),
                                                                 TakenName::refused, {});
                                        }));
        }
        const double make = timesOf(makes).median;
        const double rename = timesOf(renames).median;
        isFast_ = isFast_ && make <= most && rename <= most;
        std::printf("steps             mkdir %.1f ms, rename %.1f ms, at most %.0f ms\n",
                    1000 * make, 1000 * rename, 1000 * most);
        std::fflush(stdout);
    }

    const TemporaryFolder disk_;
    FaultyADBD phone_;
    ADBServer server_;
    QtProcessRunner processes_{server_.environment()};
    VirtualUSBBus bus_;
    ADBDCable cable_;
    const Files local_ = std::make_shared<LocalFileSystem>(disk_.path());
    Files turbo_;
    bool isWhole_ = true;
    bool isFast_ = true;
};

} // namespace
} // namespace tessary

int main(int argc, char** argv) {
    constexpr qint64 room = 5 * tessary::bigSize;
    if (!qEnvironmentVariableIsSet("TMPDIR") &&
        QStorageInfo(QStringLiteral("/dev/shm")).bytesAvailable() > room)
        qputenv("TMPDIR", "/dev/shm");
    return tessary::Bench().run(argc > 1 ? argv[1] : "");
}
