#include "sync/run/SyncContents.h"

#include "transfer/copy/FileStream.h"

#include <algorithm>
#include <cstring>

namespace tessary {

namespace {

/// Ends a reading at the first difference.
struct Differs {};

/// Reads both files side by side, as far as the shorter one goes.
bool beginTheSame(SyncSide& local, SyncSide& device, const SyncedFile& file, const Call& call) {
    const qint64 length = std::min(file.local.size, file.device.size);
    if (length == 0)
        return true;
    FileStream here(local.files(), local.itemOf(file.localPath, file.local), FileStream::Way::ahead,
                    0, call);
    Bytes piece;
    qint64 compared = 0;
    const auto compare = [&](ByteView bytes) {
        const qint64 wanted = std::min<qint64>(length - compared, std::ssize(bytes));
        piece.resize(static_cast<std::size_t>(wanted));
        for (std::size_t done = 0; done < piece.size();) {
            const std::size_t count = here.read(std::span(piece).subspan(done));
            if (count == 0)
                throw Differs{};
            done += count;
        }
        if (!std::equal(piece.begin(), piece.end(), bytes.begin()))
            throw Differs{};
        compared += wanted;
    };
    try {
        device.files().read(device.itemOf(file.devicePath, file.device), {0, length}, compare,
                            call);
    } catch (const Differs&) {
        return false;
    }
    return compared == length;
}

} // namespace

bool haveSameContent(SyncSide& local, SyncSide& device, const SyncedFile& file, const Call& call) {
    if (file.local.size != file.device.size)
        return false;
    const FileItem there = device.itemOf(file.devicePath, file.device);
    if (file.device.size > 0 && device.files().capabilities(call).hasHashes)
        if (const auto hash = device.files().hash(there, call))
            if (const auto own = local.files().hash(local.itemOf(file.localPath, file.local), call))
                return *hash == *own;
    return beginTheSame(local, device, file, call);
}

bool isOneBeginningOfOther(SyncSide& local, SyncSide& device, const SyncedFile& file,
                           const Call& call) {
    return file.local.size != file.device.size && beginTheSame(local, device, file, call);
}

} // namespace tessary
