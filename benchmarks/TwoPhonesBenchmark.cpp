// What a second phone adds: each of two phones copies a large file to this computer alone, then
// both at a time, for every pair of MTP, the real adb server and the real library for iPhones; at
// full speed, where both share this computer, and at the pace of USB 2, where each has a link of
// its own. The size in MiB may be given.

#include "transfer/PhoneSides.h"
#include "transfer/copy/FileCopy.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace tessary {
namespace {

/// An iPhone beside the one that the tests share.
class AnotherIPhone {
public:
    AnotherIPhone() : phone(config()) {
        phone.plugInto(AFCSide::plugged().mux);
    }

    const TemporaryFolder disk;
    FaultyIPhone phone;
    const std::shared_ptr<AFCFileSystem> files = std::make_shared<AFCFileSystem>(
        identity(), IPhoneFiles::notes(), std::make_shared<PhoneQueue>());

private:
    [[nodiscard]] VirtualIPhoneConfig config() const {
        VirtualIPhoneConfig config = AFCSide::plugged().phone.config();
        config.udid = s("00008101-000A1B2C3D4E0002");
        config.apps.front().folder = disk.path(s("notes"));
        return config;
    }
    [[nodiscard]] PhoneIdentity identity() const {
        PhoneIdentity identity = AFCSide::plugged().identity();
        identity.udid = phone.config().udid;
        return identity;
    }
};

/// A phone with a film, and what slows it down.
struct Source {
    std::shared_ptr<PhoneFileSystem> files;
    FileItem film;
    std::function<void(double)> slowDownTo;
    std::shared_ptr<void> owner;
};

Source sourceOf(std::shared_ptr<PhoneSide> side, qint64 size) {
    side->putSparse(s("film"), size);
    const auto files = side->files();
    return {files, require(*files, side->at(s("film")), {}),
            [side](double pace) { side->slowDownTo(pace); }, side};
}
Source anotherIPhone(qint64 size) {
    const auto iphone = std::make_shared<AnotherIPhone>();
    iphone->disk.writeSparse(s("notes/Documents/film"), size);
    return {iphone->files, require(*iphone->files, s("/film"), {}),
            [iphone](double pace) {
                iphone->phone.faults().update(
                    [pace](VirtualIPhoneFaults& faults) { faults.megabytesPerSecond = pace; });
            },
            iphone};
}

/// The ways to a phone, each by a first phone and by another one.
struct Way {
    const char* name;
    Source (*first)(qint64 size);
    Source (*other)(qint64 size);
};
constexpr std::array ways{
    Way{"MTP", [](qint64 size) { return sourceOf(std::make_shared<MTPSide>("ONE"), size); },
        [](qint64 size) { return sourceOf(std::make_shared<MTPSide>("OTHER"), size); }},
    Way{"adb", [](qint64 size) { return sourceOf(std::make_shared<ADBSide>(), size); },
        [](qint64 size) { return sourceOf(std::make_shared<ADBSide>(true), size); }},
    Way{"iPhone", [](qint64 size) { return sourceOf(std::make_shared<AFCSide>(), size); },
        anotherIPhone},
};

double seconds(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void copy(const Source& source) {
    DiskSide disk;
    (void)copyFile({.from = *source.files,
                    .file = source.film,
                    .to = *disk.files(),
                    .folder = disk.root(),
                    .name = s("film")},
                   {}, {});
}

/// The median of three rounds.
double median(const std::function<void()>& work) {
    std::array times{seconds(work), seconds(work), seconds(work)};
    std::sort(times.begin(), times.end());
    return times[1];
}

int compareAll(qint64 mebibytes) {
    constexpr double usb2 = 40;
    const qint64 size = mebibytes << 20;
    std::printf("%-16s %-10s %10s %10s %10s   total : mean of one alone\n", "MiB/s", "", "one",
                "other", "both");
    for (std::size_t i = 0; i < ways.size(); ++i)
        for (std::size_t j = i; j < ways.size(); ++j) {
            const Source one = ways.at(i).first(size);
            const Source other = i == j ? ways.at(j).other(size) : ways.at(j).first(size);
            for (const double pace : {0.0, usb2}) {
                one.slowDownTo(pace);
                other.slowDownTo(pace);
                const double first = median([&] { copy(one); });
                const double second = median([&] { copy(other); });
                const double both = median([&] {
                    const std::jthread beside([&] { copy(other); });
                    copy(one);
                });
                const auto total = static_cast<double>(mebibytes);
                std::printf("%-7s %-8s %-10s %10.1f %10.1f %10.1f   %.2f\n", ways.at(i).name,
                            ways.at(j).name, pace == 0 ? "full speed" : "USB 2", total / first,
                            total / second, 2 * total / both, (first + second) / both);
                std::fflush(stdout);
            }
            one.slowDownTo(0);
            other.slowDownTo(0);
        }
    return EXIT_SUCCESS;
}

} // namespace
} // namespace tessary

int main(int argc, char* argv[]) {
    constexpr qint64 usual = 256;
    return tessary::compareAll(argc > 1 ? std::strtoll(argv[1], nullptr, 10) : usual);
}
