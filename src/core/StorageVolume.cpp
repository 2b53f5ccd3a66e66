#include "core/StorageVolume.h"

#include "core/ByteFormat.h"

#include <QHashFunctions>

#include <limits>

namespace tessary {

namespace {

qint64 toSigned(std::uint64_t bytes) {
    if (bytes > static_cast<std::uint64_t>(std::numeric_limits<qint64>::max()))
        qFatal("storage size above the signed 64-bit range");
    return static_cast<qint64>(bytes);
}

} // namespace

qint64 StorageVolume::usedBytes() const {
    return totalBytes < freeBytes ? 0 : toSigned(totalBytes - freeBytes);
}

double StorageVolume::usageRatio() const {
    return totalBytes == 0 ? 0.0
                           : static_cast<double>(usedBytes()) / static_cast<double>(totalBytes);
}

QString StorageVolume::formattedFreeSpace() const {
    return formatBytes(toSigned(freeBytes)) + QStringLiteral(" free");
}

QString StorageVolume::formattedCapacity() const {
    return formattedFreeSpace() + QStringLiteral(" of ") + formatBytes(toSigned(totalBytes));
}

std::size_t qHash(const StorageVolume& volume, std::size_t seed) {
    return qHashMulti(seed, volume.id, volume.name, volume.totalBytes, volume.freeBytes,
                      volume.isSDCard);
}

} // namespace tessary
