#include "browser/listing/EntryMimeData.h"

#include <algorithm>

namespace tessary {

EntryMimeData::EntryMimeData(QString identity, std::vector<FileItem> items)
    : identity_(std::move(identity)), items_(std::move(items)) {
    // Its presence is what counts; drops look at the object itself.
    setData(QString(format), QByteArray("entries"));
}

bool EntryMimeData::hasFolder() const {
    return std::any_of(items_.begin(), items_.end(),
                       [](const FileItem& item) { return item.isDirectory; });
}

} // namespace tessary
