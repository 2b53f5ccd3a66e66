#include "sync/run/SyncComputer.h"

#include "transfer/local/LocalFolder.h"

namespace tessary {

SyncComputer syncComputer(LocalFileSystem& folder, std::function<bool(const QString& path)> trash) {
    return {folder, [&folder] { makeFolders(folder.folder()); }, [&folder] { folder.flush(); },
            std::move(trash)};
}

} // namespace tessary
