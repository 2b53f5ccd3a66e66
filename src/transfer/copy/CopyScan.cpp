#include "transfer/copy/CopyScan.h"

#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PartNames.h"
#include "phone/TreeLimits.h"
#include "transfer/copy/CopyErrors.h"

#include <algorithm>

namespace tessary {

namespace {

std::shared_ptr<const Error> whyUnread(Error error) {
    return std::make_shared<const Error>(std::move(error));
}

class Scanner {
public:
    Scanner(PhoneFileSystem& files, const std::function<void(const CopyScan&)>& progress,
            const Call& call)
        : files_(files), progress_(progress), call_(call) {}

    CopyScan scan(const std::vector<CopyItem>& items) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            add(items[i], result_.items, 0);
            result_.items.back().asked = i;
        }
        return std::move(result_);
    }

private:
    void add(const CopyItem& item, std::vector<ScannedItem>& to, int depth) {
        throwIfStopped(call_.stop);
        ScannedItem scanned{item};
        if (!item.item.isDirectory) {
            ++result_.files;
            result_.bytes = addByteCounts(result_.bytes, std::max<qint64>(item.item.size, 0));
        } else if (!isSafeName(item.name)) {
            // Nothing of it could be copied.
            scanned.unread = whyUnread({PhoneError::nameNotAllowed, {item.name}});
        } else {
            try {
                if (depth >= deepestFolder)
                    throw Error(PhoneError::insideItself, {item.item.path});
                addContent(scanned, depth);
                ++result_.folders;
            } catch (const Error& error) {
                if (endsCopy(error))
                    throw;
                scanned.unread = whyUnread(error);
            }
        }
        to.push_back(std::move(scanned));
    }

    void addContent(ScannedItem& folder, int depth) {
        Listing listing;
        files_.list(
            folder.item.item.path,
            {[&](std::vector<FileItem>&& rows) {
                 count_ += static_cast<qint64>(rows.size());
                 if (count_ > mostWalkedEntries)
                     throw Error(PhoneError::listingBroken, {folder.item.item.path});
                 std::move(rows.begin(), rows.end(), std::back_inserter(listing.items));
             },
             [&](UnreadableEntry&& entry) { listing.unreadable.push_back(std::move(entry)); }},
            call_);
        for (UnreadableEntry& entry : listing.unreadable) {
            const QString name = lastComponent(entry.path);
            folder.content.push_back({{FileItem(name, entry.path, false, 0, {}), name}});
            folder.content.back().unread = whyUnread(std::move(entry.error));
        }
        for (FileItem& item : listing.items) {
            if (isPartName(item.name))
                continue;
            const QString name = item.name;
            add({std::move(item), name}, folder.content, depth + 1);
        }
        if (progress_)
            progress_(result_);
    }

    PhoneFileSystem& files_;
    const std::function<void(const CopyScan&)>& progress_;
    const Call& call_;
    CopyScan result_;
    qint64 count_ = 0;
};

} // namespace

CopyScan scanForCopy(PhoneFileSystem& files, const std::vector<CopyItem>& items,
                     const std::function<void(const CopyScan&)>& progress, const Call& call) {
    return Scanner(files, progress, call).scan(items);
}

} // namespace tessary
