#include "base/local/WholeFile.h"

#include "base/local/LocalError.h"

#include <QSaveFile>

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace tessary {

void writeWholeFile(const QString& path, const QByteArray& content) {
    QSaveFile file(path);
    const auto fail = [&](const QString& reason) {
        file.cancelWriting();
        throw Error(LocalError::cannotWrite, {path, reason});
    };
    // commit() takes what it could not flush for written, and puts an empty file in the place.
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        fail(file.errorString());
    if (::fsync(file.handle()) != 0 && errno != EINVAL) // of what cannot be synced
        fail(QString::fromLocal8Bit(std::strerror(errno)));
    if (!file.commit())
        fail(file.errorString());
}

} // namespace tessary
