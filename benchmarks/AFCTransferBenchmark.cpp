// What our client adds to the library's own read and write calls: a bare loop over those calls and
// the client copy the same file, by turns, in one run. The bare loop is what a minimal program
// would do: read a piece, write it to a file.
//
// Each line gives the median of the speeds, and the median of the ratios of two copies that ran one
// after the other, so that what else the machine does counts for both. The exit status is 1 when a
// ratio is below 90 %: the content passes the helper. All files lie in memory where there is such a
// file system: a disk's moods are larger than what is measured.
//
// The file's size in MiB may be given. With "list" it lists 3,000 entries instead, at 2 ms a
// request: as the first long folder, when the second connection is still to be opened, and after
// it.

#include "ios/AFCConnection.h"
#include "support/Application.h"
#include "support/IPhoneFiles.h"

#include <QFileInfo>

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Clock = std::chrono::steady_clock;

constexpr std::uint32_t piece = 1U << 20;

/// The container as the library opens it, with nothing of ours in between.
class BareConnection {
public:
    explicit BareConnection(const QString& udid) : session_(udid) {
        const LockdownService service = session_.startService(HOUSE_ARREST_SERVICE_NAME);
        house_arrest_client_t house = nullptr;
        house_arrest_client_new(session_.device(), service.get(), &house);
        house_.reset(house);
        house_arrest_send_command(house, "VendDocuments",
                                  PluggedIPhone::bundleId.toUtf8().constData());
        plist_t result = nullptr;
        house_arrest_get_result(house, &result);
        const PlistHandle owner(result);
        afc_client_t client = nullptr;
        afc_client_new_from_house_arrest_client(house, &client);
        client_.reset(client);
    }

    bool download(const char* remote, const char* local) {
        std::uint64_t file = 0;
        afc_file_open(client_.get(), remote, AFC_FOPEN_RDONLY, &file);
        const int out = ::open(local, O_WRONLY | O_CREAT | O_TRUNC, 0600);
        std::uint32_t count = 0;
        bool isWhole = out >= 0;
        while (isWhole && afc_file_read(client_.get(), file, buffer_.data(), piece, &count) == 0 &&
               count > 0)
            isWhole = ::write(out, buffer_.data(), count) == static_cast<ssize_t>(count);
        ::close(out);
        return afc_file_close(client_.get(), file) == 0 && isWhole;
    }
    bool upload(const char* local, const char* remote) {
        std::uint64_t file = 0;
        afc_file_open(client_.get(), remote, AFC_FOPEN_WR, &file);
        const int in = ::open(local, O_RDONLY);
        bool isWhole = in >= 0;
        ssize_t count = 0;
        while (isWhole && (count = ::read(in, buffer_.data(), piece)) > 0) {
            std::uint32_t written = 0;
            isWhole = afc_file_write(client_.get(), file, buffer_.data(),
                                     static_cast<std::uint32_t>(count), &written) == 0 &&
                      written == count;
        }
        ::close(in);
        return afc_file_close(client_.get(), file) == 0 && isWhole;
    }

private:
    Lockdown session_;
    HouseArrestHandle house_;
    AFCHandle client_;
    std::vector<char> buffer_ = std::vector<char>(piece);
};

double megabytesPerSecond(qint64 fileSize, const std::function<void()>& copy) {
    const auto begin = Clock::now();
    copy();
    const std::chrono::duration<double> time = Clock::now() - begin;
    return static_cast<double>(fileSize) / 1e6 / time.count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// The client's speed as a part of the bare loop's.
double compare(const char* direction, qint64 fileSize, const std::function<void()>& bare,
               const std::function<void()>& ours) {
    const int rounds = fileSize > qint64{512} << 20 ? 5 : 15;
    std::vector<double> bareSpeeds;
    std::vector<double> ourSpeeds;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const bool bareFirst = round % 2 == 0;
        double speed = bareFirst ? megabytesPerSecond(fileSize, bare) : 0;
        ourSpeeds.push_back(megabytesPerSecond(fileSize, ours));
        if (!bareFirst)
            speed = megabytesPerSecond(fileSize, bare);
        bareSpeeds.push_back(speed);
        ratios.push_back(ourSpeeds.back() / speed);
    }
    const double ratio = median(ratios);
    std::printf("%-9s bare loop %7.0f MB/s   client %7.0f MB/s   ratio %5.1f %%\n", direction,
                median(bareSpeeds), median(ourSpeeds), ratio * 100);
    return ratio;
}

int run(qint64 fileSize) {
    const Application application;
    const TemporaryFolder here;
    IPhoneFiles iphone;
    {
        QByteArray content(piece, 'x');
        iphone.write(u"big"_s, {});
        QFile file(iphone.disk.path(iphone.inDocuments(u"big"_s)));
        bool isWritten = file.open(QIODevice::WriteOnly);
        for (qint64 done = 0; isWritten && done < fileSize; done += piece)
            isWritten = file.write(content) == piece;
        if (!isWritten)
            return 1;
    }
    BareConnection bare(iphone.udid());
    const QString local = here.path(u"big"_s);
    const QByteArray localPath = local.toUtf8();
    const FileItem big = iphone.item(u"/big"_s);
    bool isWhole = true;
    const double down = compare(
        "download", fileSize,
        [&] { isWhole = isWhole && bare.download("/Documents/big", localPath.constData()); },
        [&] {
            const int out = ::open(localPath.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            const auto sink = [&](ByteView bytes) {
                isWhole = isWhole && ::write(out, bytes.data(), bytes.size()) ==
                                         static_cast<ssize_t>(bytes.size());
            };
            isWhole = iphone.files.read(big, {}, sink, {}) == fileSize && isWhole;
            ::close(out);
        });
    const double up = compare(
        "upload", fileSize,
        [&] { isWhole = isWhole && bare.upload(localPath.constData(), "/Documents/up"); },
        [&] {
            QFile::remove(iphone.disk.path(iphone.inDocuments(u"ours"_s)));
            const int in = ::open(localPath.constData(), O_RDONLY);
            const auto source = [&](std::span<std::byte> room) {
                return static_cast<std::size_t>(
                    std::max<ssize_t>(::read(in, room.data(), room.size()), 0));
            };
            isWhole = isWhole &&
                      iphone.files.write({u"/"_s, u"ours"_s, fileSize, {}}, source, {}, {}).size ==
                          fileSize;
            ::close(in);
        });
    constexpr double wanted = 0.90;
    return isWhole && down >= wanted && up >= wanted ? 0 : 1;
}

int list() {
    constexpr int entries = 3000;
    const Application application;
    IPhoneFiles iphone;
    for (int n = 0; n < entries; ++n)
        iphone.write(u"many/%1"_s.arg(n), "x");
    iphone.faults(
        [](VirtualIPhoneFaults& faults) { faults.delayEach = std::chrono::milliseconds(2); });
    bool isWhole = iphone.names(u"/"_s).size() == 1;
    for (const char* when : {"first", "then"}) {
        const auto begin = Clock::now();
        isWhole = isWhole && iphone.names(u"/many"_s).size() == entries;
        const std::chrono::duration<double> time = Clock::now() - begin;
        std::printf("%-5s %.2f s\n", when, time.count());
    }
    return isWhole ? 0 : 1;
}

} // namespace
} // namespace tessary

int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("TMPDIR") && QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
    if (argc > 1 && std::string_view(argv[1]) == "list")
        return tessary::list();
    constexpr qint64 usual = 256;
    return tessary::run((argc > 1 ? std::strtoll(argv[1], nullptr, 10) : usual) << 20);
}
