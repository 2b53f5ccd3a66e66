#include "phone/TransferProgress.h"

#include "base/text/ByteFormat.h"

#include <QtNumeric>

#include <algorithm>

namespace tessary {

QString TransferProgress::fileCountDescription() const {
    return QStringLiteral("%1/%2 files").arg(std::min(completedFiles, totalFiles)).arg(totalFiles);
}

QString TransferProgress::bytesDescription() const {
    qint64 done = 0;
    if (qAddOverflow(completedBytes, currentFileBytes, &done))
        qFatal("transfer progress above the signed 64-bit range");
    return formatBytes(std::min(totalBytes, done)) + QStringLiteral(" / ") +
           formatBytes(totalBytes);
}

} // namespace tessary
