#include "transfer/ContentCount.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"

#include <algorithm>

namespace tessary {

namespace {

constexpr int deepest = 100;      // levels; a device may list a folder as its own content
constexpr int mostFailures = 100; // in a row: the phone is gone

struct Folder {
    QString path;
    int depth = 0;
};

void addFile(ContentCount& count, qint64 bytes) {
    ++count.files;
    count.bytes = addByteCounts(count.bytes, std::max(bytes, qint64{0}));
}

} // namespace

ContentCount countContent(FileAccess& files, const std::vector<FileItem>& items,
                          const std::function<void(const ContentCount&)>& progress,
                          const std::stop_token& stop) {
    ContentCount count;
    std::vector<Folder> waiting;
    for (const FileItem& item : items) {
        if (item.isDirectory)
            waiting.push_back({item.path, 0});
        else
            addFile(count, item.size);
    }
    int failures = 0;
    while (!waiting.empty()) {
        throwIfStopped(stop);
        const Folder folder = std::move(waiting.back());
        waiting.pop_back();
        if (folder.depth > deepest || failures > mostFailures) {
            ++count.unreadable;
            continue;
        }
        try {
            for (const FileItem& item : files.listDirectory(folder.path, stop)) {
                if (!item.isDirectory) {
                    addFile(count, item.size);
                    continue;
                }
                ++count.folders;
                waiting.push_back({item.path, folder.depth + 1});
            }
            failures = 0;
        } catch (const CancellationError&) {
            throw;
        } catch (const std::exception&) {
            ++count.unreadable;
            ++failures;
        }
        progress(count);
    }
    return count;
}

} // namespace tessary
