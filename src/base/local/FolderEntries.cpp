#include "base/local/FolderEntries.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace tessary {

FolderEntries entriesOf(int folder) {
    const int own = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
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
