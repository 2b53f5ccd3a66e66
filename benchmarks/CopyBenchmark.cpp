// What reading through a mounted folder costs next to a copy, what other programs do in it, and
// what a second phone adds: a film of a virtual phone is copied and read through a mount by turns,
// then two phones copy alone and side by side. Each line gives the shortest of some rounds. The
// film's size in MiB may be given.

#include "mtp/files/MTPFileSystem.h"
#include "support/PluggedPhone.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/local/LocalFileSystem.h"
#include "transfer/mount/PhoneMount.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

constexpr int rounds = 3;

double shortestOf(const std::function<void()>& work) {
    double shortest = 1e9;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        shortest = std::min(
            shortest,
            std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    return shortest;
}

struct Phone {
    explicit Phone(const char* serial, qint64 size) : plugged(bus, phoneConfig(serial)) {
        plugged.disk.writeSparse(u"0/film"_s, size);
    }
    void copyTo(const QString& folder) {
        QFile::remove(folder + u"/film"_s);
        LocalFileSystem here(folder);
        (void)copyFile({.from = *files,
                        .file = require(*files, u"/film"_s, {}),
                        .to = here,
                        .folder = folder,
                        .name = u"film"_s},
                       {}, {});
    }

    VirtualUSBBus bus;
    PluggedPhone plugged;
    std::shared_ptr<MTPFileSystem> files = std::make_shared<MTPFileSystem>(
        bus, identityOf(plugged.info), std::make_shared<PhoneQueue>());
};

bool isInstalled(const char* program) {
    const bool is = !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
    if (!is)
        std::printf("%-28s not installed\n", program);
    return is;
}

/// Ten minutes of video whose index lies at its end, as a camera writes it.
bool makeVideo(Phone& phone) {
    const TemporaryFolder disk;
    const QString video = disk.path() + u"/video.mp4"_s;
    if (QProcess::execute(u"ffmpeg"_s,
                          u"-v error -f lavfi -i testsrc2=size=1280x720:rate=30 -t 600 "
                          "-c:v mpeg4 -b:v 4M -g 60"_s.split(u' ') +
                              QStringList{video}) != 0)
        return false;
    QFile file(video);
    return file.open(QIODevice::ReadOnly) &&
           (phone.plugged.write(u"video.mp4"_s, file.readAll()), true);
}

/// What other programs do with a mounted folder of ten thousand files, and how soon fifty readers
/// of the film can be killed.
bool showTools(Phone& phone, const QString& top) {
    constexpr int files = 10'000;
    for (int n = 0; n < files; ++n)
        phone.plugged.write(u"many/%1.jpg"_s.arg(n), "jpeg");
    const TemporaryFolder disk;
    const bool hasVideo = isInstalled("ffmpeg") && makeVideo(phone);
    const auto mounted = PhoneMount::mount(phone.files, {{u"/"_s, u"phone"_s}}, top,
                                           [](const FileItem&, const Error&) {});
    const auto time = [](const char* what, const QString& command) {
        const auto begin = std::chrono::steady_clock::now();
        const int status = QProcess::execute(u"sh"_s, {u"-c"_s, command});
        std::printf("%-28s %8.3f s%s\n", what,
                    std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
                    status == 0 ? "" : "   FAILED");
        std::fflush(stdout);
        return status == 0;
    };
    const QString many = top + u"/many"_s;
    return time("find, 10,000 files", u"test $(find '%1' -type f | wc -l) = 10000"_s.arg(many)) &&
           time("the same again", u"test $(find '%1' -type f | wc -l) = 10000"_s.arg(many)) &&
           time("cp -a of them", u"cp -a '%1' '%2'"_s.arg(many, disk.path())) &&
           (!isInstalled("rsync") ||
            time("rsync -n, nothing to do",
                 u"test $(rsync -ani '%1/' '%2/many/' | grep -c '^>f') = 0"_s.arg(many,
                                                                                  disk.path()))) &&
           (!hasVideo ||
            time("ffmpeg -ss 500, one picture",
                 u"ffmpeg -v error -ss 500 -i '%1/video.mp4' -frames:v 1 '%2/picture.png'"_s.arg(
                     top, disk.path()))) &&
           time("a seek to the film's end", u"tail -c 100000 '%1/film' > /dev/null"_s.arg(top)) &&
           time("50 readers, killed after 1 s",
                u"for n in $(seq 50); do timeout -s KILL 1 cat '%1/film' > /dev/null & done; "
                "wait; exit 0"_s.arg(top));
}

int run(qint64 mebibytes) {
    const qint64 size = mebibytes << 20;
    const TemporaryFolder disk;
    Phone one("ONE", size);
    Phone other("OTHER", size);
    const QString first = disk.makeFolder(u"1"_s);
    const QString second = disk.makeFolder(u"2"_s);
    const auto show = [mebibytes](const char* what, double seconds, double times = 1) {
        std::printf("%-28s %8.3f s   %8.1f MiB/s\n", what, seconds,
                    times * static_cast<double>(mebibytes) / seconds);
        std::fflush(stdout);
    };
    const double copied = shortestOf([&] { one.copyTo(first); });
    show("copied", copied);
    const QString top = disk.makeFolder(u"mnt"_s);
    double read = 1e9;
    for (int round = 0; round < rounds; ++round) {
        // Each from a mount of its own: what the system has cached of another counts for nothing.
        const auto mounted = PhoneMount::mount(one.files, {{u"/"_s, u"phone"_s}}, top,
                                               [](const FileItem&, const Error&) {});
        if (!mounted) {
            std::fprintf(stderr, "this machine mounts nothing for its users\n");
            return EXIT_FAILURE;
        }
        const auto begin = std::chrono::steady_clock::now();
        if (QProcess::execute(u"dd"_s, {u"if="_s + top + u"/film"_s, u"of=/dev/null"_s, u"bs=1M"_s,
                                        u"status=none"_s}) != 0)
            return EXIT_FAILURE;
        read = std::min(
            read, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    show("read through the mount", read);
    std::printf("%-28s %8.2f\n", "mount : copy", read / copied);
    if (!showTools(one, top))
        return EXIT_FAILURE;
    const double both = shortestOf([&] {
        std::jthread beside([&] { other.copyTo(second); });
        one.copyTo(first);
    });
    show("two phones side by side", both, 2);
    std::printf("%-28s %8.2f\n", "total : one alone", 2 * copied / both);
    return EXIT_SUCCESS;
}

} // namespace
} // namespace tessary

int main(int argc, char* argv[]) {
    constexpr qint64 usual = 1024;
    return tessary::run(argc > 1 ? std::strtoll(argv[1], nullptr, 10) : usual);
}
