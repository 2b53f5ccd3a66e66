#include "sync/run/SyncComputer.h"

#include "base/local/LocalError.h"

#include <QDir>
#include <QFile>

namespace tessary {

SyncComputer syncComputer(LocalFileSystem& folder) {
    return {folder,
            [&folder] {
                if (!QDir().mkpath(folder.folder()))
                    throw Error(LocalError::cannotMakeFolder, {folder.folder(), QString()});
            },
            [&folder] { folder.flush(); },
            {}};
}

bool moveToTrash(const QString& path) {
    return QFile::moveToTrash(path);
}

} // namespace tessary
