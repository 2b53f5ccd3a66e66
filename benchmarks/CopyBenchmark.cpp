// What reading through a mounted folder costs next to a copy, and what other programs do in it,
// over MTP, the real adb server and the real library for iPhones: a film is copied and read through
// a mount by turns, the shortest of some rounds; a folder of ten thousand files is listed, copied
// and compared; a video is opened in its middle; fifty readers are killed, and fifty lose their
// phone. The film's size in MiB may be given, and "film" behind it for the film alone.

#include "transfer/PhoneSides.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/mount/PhoneMount.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string_view>
#include <thread>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

constexpr int rounds = 3;
constexpr int readers = 50;

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

std::unique_ptr<PhoneMount> mount(PhoneSide& phone, const QString& top) {
    return PhoneMount::mount(phone.files(), {{phone.root(), u"phone"_s}}, top,
                             [](const FileItem&, const Error&) {});
}

bool isInstalled(const char* program) {
    const bool is = !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
    if (!is)
        std::printf("%-28s not installed\n", program);
    return is;
}

/// Some minutes of video whose index lies at its end, as a camera writes it. Empty where nothing
/// makes one.
QByteArray makeVideo() {
    const TemporaryFolder disk;
    const QString video = disk.path() + u"/video.mp4"_s;
    if (!isInstalled("ffmpeg") ||
        QProcess::execute(u"ffmpeg"_s,
                          u"-v error -f lavfi -i testsrc2=size=1280x720:rate=30 -t 240 "
                          "-c:v mpeg4 -b:v 4M -g 60"_s.split(u' ') +
                              QStringList{video}) != 0)
        return {};
    QFile file(video);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The film, copied and read through the mount.
bool compareReading(PhoneSide& phone, const QString& top, qint64 mebibytes) {
    double copied = 1e9;
    double read = 1e9;
    for (int round = 0; round < rounds; ++round) {
        DiskSide disk;
        auto begin = Clock::now();
        (void)copyFile({.from = *phone.files(),
                        .file = require(*phone.files(), phone.at(u"film"_s), {}),
                        .to = *disk.files(),
                        .folder = disk.root(),
                        .name = u"film"_s},
                       {}, {});
        copied = std::min(copied, secondsSince(begin));
        // From a mount of its own: what the system has cached of another counts for nothing.
        const auto mounted = mount(phone, top);
        if (!mounted) {
            std::fprintf(stderr, "this machine mounts nothing for its users\n");
            return false;
        }
        begin = Clock::now();
        if (QProcess::execute(u"dd"_s, {u"if="_s + top + u"/film"_s, u"of=/dev/null"_s, u"bs=1M"_s,
                                        u"status=none"_s}) != 0)
            return false;
        read = std::min(read, secondsSince(begin));
    }
    const auto size = static_cast<double>(mebibytes);
    std::printf("copied                        %8.3f s   %8.1f MiB/s\n", copied, size / copied);
    std::printf("read through the mount        %8.3f s   %8.1f MiB/s\n", read, size / read);
    std::printf("mount : copy                  %8.2f\n", read / copied);
    return true;
}

/// What other programs do with a mounted folder of ten thousand files.
bool showTools(const QString& top, bool hasVideo) {
    const TemporaryFolder disk;
    const auto time = [](const char* what, const QString& command) {
        const auto begin = Clock::now();
        const int status = QProcess::execute(u"sh"_s, {u"-c"_s, command});
        std::printf("%-29s %8.3f s%s\n", what, secondsSince(begin), status == 0 ? "" : "   FAILED");
        std::fflush(stdout);
        return status == 0;
    };
    const QString many = top + u"/many"_s;
    const QString count = u"test $(find '%1' -type f | wc -l) = 10000"_s.arg(many);
    return time("find, 10,000 files", count) && time("the same again", count) &&
           time("cp -a of them", u"cp -a '%1' '%2'"_s.arg(many, disk.path())) &&
           (!isInstalled("rsync") ||
            time("rsync -n, nothing to do",
                 u"test $(rsync -ani '%1/' '%2/many/' | grep -c '^>f') = 0"_s.arg(many,
                                                                                  disk.path()))) &&
           (!hasVideo ||
            time("ffmpeg -ss 200, one picture",
                 u"ffmpeg -v error -ss 200 -i '%1/video.mp4' -frames:v 1 '%2/picture.png'"_s.arg(
                     top, disk.path()))) &&
           time("a seek to the film's end", u"tail -c 100000 '%1/film' > /dev/null"_s.arg(top)) &&
           time("50 readers, killed after 1 s",
                u"for n in $(seq %2); do timeout -s KILL 1 cat '%1/film' > /dev/null & done; "
                "wait; exit 0"_s.arg(top)
                    .arg(readers));
}

/// How soon readers end, and that each has an error, when the cable comes out under them.
bool unplugUnderReaders(PhoneSide& phone, const QString& top) {
    const auto mounted = mount(phone, top);
    phone.slowDownTo(20); // nobody is done before
    std::vector<std::unique_ptr<QProcess>> programs;
    for (int n = 0; n < readers; ++n) {
        programs.push_back(std::make_unique<QProcess>());
        programs.back()->setStandardOutputFile(QProcess::nullDevice());
        programs.back()->start(u"cat"_s, {top + u"/film"_s});
        if (!programs.back()->waitForStarted())
            return false;
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const auto begin = Clock::now();
    phone.unplug();
    constexpr int patience = 60'000; // ms
    bool haveErrors = true;
    for (const auto& program : programs)
        haveErrors = program->waitForFinished(patience) &&
                     program->exitStatus() == QProcess::NormalExit && program->exitCode() != 0 &&
                     haveErrors;
    std::printf("%-29s %8.3f s%s\n", "50 readers, unplugged", secondsSince(begin),
                haveErrors ? "" : "   FAILED");
    phone.plugIn();
    phone.slowDownTo(0);
    return haveErrors;
}

int measure(qint64 mebibytes, bool filmAlone) {
    constexpr int files = 10'000;
    const QByteArray video = filmAlone ? QByteArray() : makeVideo();
    const std::pair<const char*, std::unique_ptr<PhoneSide> (*)()> ways[] = {
        {"MTP", overMTP}, {"adb", overADB}, {"iPhone", overAFC}};
    for (const auto& [name, make] : ways) {
        std::printf("-- %s\n", name);
        const TemporaryFolder disk;
        const QString top = disk.makeFolder(u"mnt"_s);
        const auto phone = make();
        phone->putSparse(u"film"_s, mebibytes << 20);
        if (!compareReading(*phone, top, mebibytes))
            return EXIT_FAILURE;
        if (filmAlone)
            continue;
        for (int n = 0; n < files; ++n)
            phone->put(u"many/%1.jpg"_s.arg(n), "jpeg", noon);
        if (!video.isEmpty())
            phone->put(u"video.mp4"_s, video, noon);
        {
            const auto mounted = mount(*phone, top);
            if (!showTools(top, !video.isEmpty()))
                return EXIT_FAILURE;
        }
        if (!unplugUnderReaders(*phone, top))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

} // namespace
} // namespace tessary

int main(int argc, char* argv[]) {
    constexpr qint64 usual = 1024;
    return tessary::measure(argc > 1 ? std::strtoll(argv[1], nullptr, 10) : usual,
                            argc > 2 && std::string_view(argv[2]) == "film");
}
