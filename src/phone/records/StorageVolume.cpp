#include "phone/records/StorageVolume.h"

#include "base/text/ByteFormat.h"

#include <QHashFunctions>

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

std::size_t qHash(const StorageVolume& volume, std::size_t seed) {
    return qHashMulti(seed, volume.id, volume.name, volume.totalBytes, volume.freeBytes,
                      volume.isSDCard);
}

} // namespace tessary
