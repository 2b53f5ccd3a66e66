#include "transfer/local/LocalTreeRemoval.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PhoneError.h"
#include "transfer/local/LocalFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <vector>

namespace tessary {

namespace {

constexpr int maxDepth = 128; // of open descriptors

struct CloseFolder {
    void operator()(DIR* folder) const {
        ::closedir(folder);
    }
};

std::vector<QByteArray> namesIn(const FileHandle& folder, const QString& path) {
    const std::unique_ptr<DIR, CloseFolder> entries(::fdopendir(::dup(folder.get())));
    if (!entries)
        throw localFailure(LocalError::cannotRead, path, errno);
    std::vector<QByteArray> names;
    while (true) {
        errno = 0;
        const dirent* entry = ::readdir(entries.get());
        if (entry == nullptr)
            break;
        QByteArray name(entry->d_name);
        if (name != "." && name != "..")
            names.push_back(std::move(name));
    }
    if (errno != 0)
        throw localFailure(LocalError::cannotRead, path, errno);
    return names;
}

void removeBelow(const FileHandle& folder, const QByteArray& name, const QString& path, int depth,
                 const std::stop_token& stop) {
    throwIfStopped(stop);
    if (depth >= maxDepth)
        throw Error(PhoneError::insideItself, {path});
    struct stat facts {};
    if (::fstatat(folder.get(), name.constData(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        throw localFailure(LocalError::cannotDelete, path, errno);
    if (S_ISDIR(facts.st_mode)) {
        const FileHandle opened(::openat(folder.get(), name.constData(),
                                         O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!opened.isOpen())
            throw localFailure(LocalError::cannotDelete, path, errno);
        for (const QByteArray& child : namesIn(opened, path))
            removeBelow(opened, child, joinPath(path, QString::fromUtf8(child)), depth + 1, stop);
    }
    if (::unlinkat(folder.get(), name.constData(), S_ISDIR(facts.st_mode) ? AT_REMOVEDIR : 0) != 0)
        throw localFailure(LocalError::cannotDelete, path, errno);
}

} // namespace

void removeLocalTree(const FileHandle& folder, const QByteArray& name, const QString& path,
                     const std::stop_token& stop) {
    removeBelow(folder, name, path, 0, stop);
}

} // namespace tessary
