#include "phone/records/StorageVolume.h"

#include "base/text/ByteCount.h"

namespace tessary {

qint64 StorageVolume::usedBytes() const {
    return totalBytes < freeBytes ? 0 : clampedByteCount(totalBytes - freeBytes);
}

double StorageVolume::usageRatio() const {
    return totalBytes == 0 ? 0.0
                           : static_cast<double>(usedBytes()) / static_cast<double>(totalBytes);
}

} // namespace tessary
