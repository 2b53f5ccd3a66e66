#include "base/local/Trash.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace tessary {

bool moveToTrash(const QString& path) {
    // Where there is no trash yet and it cannot make one, Qt takes the working folder for it.
    const QDir data(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const QString trash = QStringLiteral("Trash");
    constexpr auto ownersAlone = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    (void)data.mkpath(QStringLiteral("."));
    (void)data.mkdir(trash, ownersAlone);
    return QFileInfo(data.filePath(trash)).isDir() && QFile::moveToTrash(path);
}

} // namespace tessary
