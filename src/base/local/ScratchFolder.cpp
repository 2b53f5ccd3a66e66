#include "base/local/ScratchFolder.h"

#include "base/local/FolderEntries.h"
#include "base/local/LocalError.h"
#include "base/local/PrivateFolder.h"
#include "base/local/TreeRemoval.h"

#include <QUuid>

#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessary {

namespace {

constexpr const char* namePrefix = "scratch-";
constexpr qsizetype digits = 12; // a socket below must not have a long path

/// Whether a folder is of no running program, and older than it takes to make one.
bool isAbandoned(int folder) {
    struct stat facts {};
    return fstat(folder, &facts) == 0 && facts.st_uid == geteuid() && isLeftAlone(facts) &&
           flock(folder, LOCK_EX | LOCK_NB) == 0;
}

/// Never fails: what cannot be removed stays for the next time.
void removeAbandonedIn(int parent) {
    const FolderEntries entries = entriesOf(parent);
    std::vector<QByteArray> names;
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr)
        if (QByteArray name(entry->d_name); name.startsWith(namePrefix))
            names.push_back(std::move(name));
    for (const QByteArray& name : names) {
        const FileHandle folder(
            openat(parent, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (folder.isOpen() && isAbandoned(folder.get()))
            (void)removeTreeAt(parent, name);
    }
}

} // namespace

ScratchFolder::ScratchFolder(const PrivateFolder& in)
    : parent_(fcntl(in.descriptor(), F_DUPFD_CLOEXEC, 0)),
      name_(namePrefix + QUuid::createUuid().toByteArray(QUuid::Id128).left(digits)),
      path_(in.path() + QLatin1Char('/') + QString::fromLatin1(name_)) {
    removeAbandonedIn(parent_.get());
    if (mkdirat(parent_.get(), name_.constData(), S_IRWXU) == 0)
        folder_ = FileHandle(openat(parent_.get(), name_.constData(),
                                    O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder_.isOpen()) {
        const int error = errno;
        (void)removeTreeAt(parent_.get(), name_);
        throw Error(LocalError::cannotMakeFolder, {path_, qt_error_string(error)});
    }
    // On a disk without locks it never looks abandoned.
    (void)flock(folder_.get(), LOCK_EX | LOCK_NB);
    unfinished_ = Unfinished(parent_.get(), name_);
}

ScratchFolder::~ScratchFolder() {
    (void)removeTreeAt(parent_.get(), name_);
}

} // namespace tessary
