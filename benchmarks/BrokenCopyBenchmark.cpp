// What a copy that broke off costs: a large file is cancelled at 70 % and gone on with, over MTP,
// the real adb server and the real library for iPhones, both ways. Each line gives the bytes that
// crossed twice. The size in MiB may be given.

#include "base/threads/CancellationError.h"
#include "phone/PartNames.h"
#include "transfer/PhoneSides.h"
#include "transfer/copy/FileCopy.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace tessary {
namespace {

struct Run {
    qint64 first = -1; ///< bytes that were there after its first piece
    qint64 piece = 0;
    qint64 last = 0;

    void note(qint64 done) {
        if (first < 0)
            first = done;
        else if (piece == 0)
            piece = done - first;
        last = done;
    }
};

bool breakOff(const char* name, FolderSide& from, FolderSide& to, qint64 size) {
    from.putSparse(s("film"), size);
    FileCopy copy{*from.files(), require(*from.files(), from.at(s("film")), {}), *to.files(),
                  to.root(), s("film")};
    std::stop_source stop;
    Run before;
    try {
        (void)copyFile(
            copy,
            [&](qint64 done) {
                before.note(done);
                if (done >= size / 10 * 7)
                    stop.request_stop();
            },
            stop.get_token());
        std::fprintf(stderr, "%s: it could not be stopped\n", name);
        return false;
    } catch (const CancellationError&) {
    }
    for (const FileItem& item : to.items()) // what was on its way has arrived meanwhile
        if (isPartName(item.name))
            before.last = std::max(before.last, item.size);
    Run after;
    const auto began = std::chrono::steady_clock::now();
    const FileItem made = copyFile(copy, [&](qint64 done) { after.note(done); }, {});
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
    const qint64 kept = std::max<qint64>(after.first - after.piece, 0);
    std::printf("%-22s %8.1f MiB before, %7.2f MiB twice, the rest in %6.2f s\n", name,
                static_cast<double>(before.last) / (1 << 20),
                static_cast<double>(before.last - kept) / (1 << 20), seconds);
    std::fflush(stdout);
    return made.size == size;
}

int breakAll(qint64 size) {
    bool isWhole = true;
    const auto bothWays = [&](const char* down, const char* up, const auto& make) {
        for (const bool isUpload : {false, true}) {
            DiskSide disk;
            auto phone = make();
            isWhole = isWhole && (isUpload ? breakOff(up, disk, *phone, size)
                                           : breakOff(down, *phone, disk, size));
        }
    };
    bothWays("download over MTP", "upload over MTP",
             [] { return std::make_unique<MTPSide>("BROKEN"); });
    bothWays("download over adb", "upload over adb", [] { return std::make_unique<ADBSide>(); });
    bothWays("download from iPhone", "upload to iPhone",
             [] { return std::make_unique<AFCSide>(); });
    return isWhole ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace
} // namespace tessary

int main(int argc, char* argv[]) {
    constexpr qint64 usual = 2048;
    return tessary::breakAll((argc > 1 ? std::strtoll(argv[1], nullptr, 10) : usual) << 20);
}
