#include "transfer/copy/ContentCount.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "phone/TreeLimits.h"

#include <algorithm>

namespace tessary {

namespace {

struct Folder {
    QString path;
    int depth = 0;
};

void addFile(ContentCount& count, qint64 bytes) {
    ++count.files;
    count.bytes = addByteCounts(count.bytes, std::max<qint64>(bytes, 0));
}

} // namespace

ContentCount countContent(PhoneFileSystem& files, const std::vector<FileItem>& items,
                          const std::function<void(const ContentCount&)>& progress,
                          const Call& call) {
    ContentCount count;
    std::vector<Folder> waiting;
    for (const FileItem& item : items) {
        if (item.isDirectory)
            waiting.push_back({item.path, 0});
        else
            addFile(count, item.size);
    }
    while (!waiting.empty()) {
        throwIfStopped(call.stop);
        const Folder folder = std::move(waiting.back());
        waiting.pop_back();
        if (count.files + count.folders + count.unreadable > mostWalkedEntries)
            throw Error(PhoneError::listingBroken, {folder.path});
        const auto addRows = [&](const std::vector<FileItem>& rows) {
            for (const FileItem& item : rows) {
                if (!item.isDirectory) {
                    addFile(count, item.size);
                    continue;
                }
                ++count.folders;
                waiting.push_back({item.path, folder.depth + 1});
            }
        };
        try {
            if (folder.depth >= deepestFolder)
                throw Error(PhoneError::insideItself, {folder.path});
            files.list(folder.path, {addRows, [&](UnreadableEntry&&) { ++count.unreadable; }},
                       call);
        } catch (const Error& error) {
            if (endsEverything(error))
                throw;
            ++count.unreadable;
        }
        if (progress)
            progress(count);
    }
    return count;
}

} // namespace tessary
