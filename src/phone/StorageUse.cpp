#include "phone/StorageUse.h"

#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PhoneQueue.h"
#include "phone/TreeLimits.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

namespace tessary {

namespace {

constexpr qint64 mostEntries = 500'000;
constexpr int mostTries = 3; ///< to read a folder while others want the phone

struct Folder {
    QString path;
    int depth = 0;
    bool isOfApps = false; ///< what apps keep for themselves
    int tries = 0;
};

/// What a folder holds itself.
struct Contents {
    StorageUse use;
    std::vector<Folder> folders;
    qint64 entries = 0;
};

/// Somebody else wants the phone.
struct GivesWay {};

StorageUse::Kind kindOf(const FileItem& file, const Folder& folder) {
    if (folder.isOfApps)
        return StorageUse::Kind::apps;
    switch (file.category()) {
    case FileCategory::image:
        return StorageUse::Kind::photos;
    case FileCategory::video:
        return StorageUse::Kind::videos;
    case FileCategory::audio:
        return StorageUse::Kind::music;
    case FileCategory::apk:
        return StorageUse::Kind::apps;
    default:
        return StorageUse::Kind::other;
    }
}

/// No value when somebody else wanted the phone before it was read.
std::optional<Contents> contentsOf(PhoneFileSystem& files, const QString& root,
                                   const Folder& folder, const std::stop_token& stop) {
    const std::shared_ptr<PhoneQueue> queue = files.queue();
    const QStringList ofApps{joinPath(root, QStringLiteral("Android/data")),
                             joinPath(root, QStringLiteral("Android/obb"))};
    Contents contents;
    contents.use.isWhole = true;
    ListingReceiver receiver;
    receiver.unreadable = [&](const UnreadableEntry&) { contents.use.isWhole = false; };
    receiver.rows = [&](const std::vector<FileItem>& items) {
        if (queue && queue->isWanted())
            throw GivesWay();
        contents.entries += static_cast<qint64>(items.size());
        for (const FileItem& item : items) {
            if (!item.isDirectory) {
                qint64& bytes = contents.use.bytes[static_cast<std::size_t>(kindOf(item, folder))];
                bytes = addByteCounts(bytes, std::max<qint64>(item.size, 0));
            } else if (folder.depth + 1 < deepestFolder) {
                contents.folders.push_back(
                    {item.path, folder.depth + 1, folder.isOfApps || ofApps.contains(item.path)});
            }
        }
    };
    try {
        files.list(folder.path, receiver, Call(stop, Urgency::spare));
    } catch (const GivesWay&) {
        return std::nullopt;
    }
    return contents;
}

} // namespace

StorageUse measureUse(PhoneFileSystem& files, const QString& root,
                      const std::function<void(const StorageUse&)>& progress,
                      const std::stop_token& stop) {
    StorageUse use;
    bool isWhole = true;
    qint64 seen = 0;
    std::deque<Folder> folders{{root}};
    while (!folders.empty()) {
        throwIfStopped(stop);
        Folder folder = std::move(folders.front());
        folders.pop_front();
        std::optional<Contents> contents;
        try {
            contents = contentsOf(files, root, folder, stop);
        } catch (const Error& error) {
            if (endsEverything(error))
                throw;
            isWhole = false;
            continue;
        }
        if (!contents) {
            isWhole = isWhole && folder.tries + 1 < mostTries;
            if (++folder.tries < mostTries)
                folders.push_front(std::move(folder));
            continue;
        }
        seen += contents->entries;
        if (seen > mostEntries)
            return use; // a folder that lists itself, or more than anybody waits for
        for (std::size_t kind = 0; kind < use.bytes.size(); ++kind)
            use.bytes[kind] = addByteCounts(use.bytes[kind], contents->use.bytes[kind]);
        isWhole = isWhole && contents->use.isWhole;
        folders.insert(folders.end(), std::make_move_iterator(contents->folders.begin()),
                       std::make_move_iterator(contents->folders.end()));
        progress(use);
    }
    use.isWhole = isWhole;
    return use;
}

} // namespace tessary
