#include "browser/listing/EntryMimeData.h"

#include <algorithm>

namespace tessary {

EntryMimeData::EntryMimeData(std::shared_ptr<PhoneFileSystem> files, std::vector<FileItem> items,
                             Use use)
    : files_(std::move(files)), items_(std::move(items)), use_(use) {
    // Its presence is what counts; drops look at the object itself.
    setData(QString(format), QByteArray("entries"));
}

bool EntryMimeData::hasFolder() const {
    return std::any_of(items_.begin(), items_.end(),
                       [](const FileItem& item) { return item.isDirectory; });
}

} // namespace tessary
