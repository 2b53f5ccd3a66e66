#include "base/local/WholeFile.h"

#include "base/local/FileHandle.h"
#include "base/local/LocalError.h"
#include "base/log/DiagnosticsLogger.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace tessary {

namespace {

/// Puts the new name on the disk, too: else a power cut may bring the old file back.
void syncFolderOf(const QString& path) {
    const QString folder = QFileInfo(QFileInfo(path).canonicalFilePath()).path();
    const FileHandle opened(
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // The file is whole either way, and so is the old one.
    if (!opened.isOpen() || (::fsync(opened.get()) != 0 && errno != EINVAL))
        DiagnosticsLogger::shared().ui.standard("A folder cannot be synced: %s, errno %d",
                                                {folder, QString::number(errno)});
}

} // namespace

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
        fail(qt_error_string(errno));
    if (!file.commit())
        fail(file.errorString());
    syncFolderOf(path);
}

} // namespace tessary
