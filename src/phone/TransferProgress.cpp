#include "phone/TransferProgress.h"

#include "base/text/ByteCount.h"
#include "base/text/ByteFormat.h"

#include <algorithm>

namespace tessary {

QString TransferProgress::fileCountDescription() const {
    return QStringLiteral("%1/%2 files").arg(std::min(completedFiles, totalFiles)).arg(totalFiles);
}

QString TransferProgress::bytesDescription() const {
    return formatBytes(std::min(totalBytes, bytesDone())) + QStringLiteral(" / ") +
           formatBytes(totalBytes);
}

qint64 TransferProgress::bytesDone() const {
    return addByteCounts(completedBytes, currentFileBytes);
}

} // namespace tessary
