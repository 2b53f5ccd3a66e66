#include "phone/records/StorageVolume.h"

#include "base/text/ByteFormat.h"

namespace tessary {

qint64 StorageVolume::usedBytes() const {
    return totalBytes < freeBytes ? 0 : signedByteCount(totalBytes - freeBytes);
}

double StorageVolume::usageRatio() const {
    return totalBytes == 0 ? 0.0
                           : static_cast<double>(usedBytes()) / static_cast<double>(totalBytes);
}

QString StorageVolume::formattedFreeSpace() const {
    return formatBytes(signedByteCount(freeBytes)) + QStringLiteral(" free");
}

QString StorageVolume::formattedCapacity() const {
    return formattedFreeSpace() + QStringLiteral(" of ") + formatBytes(signedByteCount(totalBytes));
}

} // namespace tessary
