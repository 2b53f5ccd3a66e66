#include "transfer/mount/MountedFile.h"

#include "transfer/mount/ArrivingFile.h"
#include "transfer/mount/RangedFile.h"

namespace tessary {

std::shared_ptr<MountedFile> MountedFile::open(std::shared_ptr<PhoneFileSystem> files,
                                               FileItem item, bool readsRanges, Failed failed) {
    if (readsRanges)
        return std::make_shared<RangedFile>(std::move(files), std::move(item), std::move(failed));
    return std::make_shared<ArrivingFile>(std::move(files), std::move(item), std::move(failed));
}

} // namespace tessary
