#include "base/local/FolderEntries.h"

#include "base/local/FileHandle.h"

#include <fcntl.h>

#include <cerrno>

namespace tessary {

FolderEntries entriesOf(int folder) {
    const int own = ::fcntl(folder, F_DUPFD_CLOEXEC, 0);
    if (own < 0)
        return nullptr;
    FolderEntries entries(::fdopendir(own));
    if (!entries) {
        const int reason = errno;
        ::close(own);
        errno = reason;
    }
    return entries;
}

} // namespace tessary
