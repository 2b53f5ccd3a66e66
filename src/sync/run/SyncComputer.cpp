#include "sync/run/SyncComputer.h"

#include "base/local/LocalError.h"
#include "transfer/local/LocalFolder.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace tessary {

SyncComputer syncComputer(LocalFileSystem& folder) {
    return {folder,
            [&folder] {
                if (QDir().mkpath(folder.folder()))
                    return;
                const int reason = errno;
                if (QFileInfo::exists(folder.folder()))
                    throw Error(LocalError::notAFolder, {folder.folder()});
                throw localFailure(LocalError::cannotMakeFolder, folder.folder(), reason);
            },
            [&folder] { folder.flush(); },
            {}};
}

} // namespace tessary
