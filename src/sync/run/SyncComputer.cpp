#include "sync/run/SyncComputer.h"

#include "transfer/local/LocalFolder.h"

namespace tessary {

SyncComputer syncComputer(LocalFileSystem& folder) {
    return {folder, [&folder] { makeFolders(folder.folder()); }, [&folder] { folder.flush(); }, {}};
}

} // namespace tessary
