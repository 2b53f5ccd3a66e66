#include "base/local/ScratchFolder.h"

#include "base/local/LocalError.h"
#include "base/local/PrivateFolder.h"
#include "base/local/TreeRemoval.h"

#include <QUuid>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace tessary {

namespace {

constexpr qsizetype digits = 12; // a socket below must not have a long path

} // namespace

ScratchFolder::ScratchFolder(const PrivateFolder& in)
    : parent_(fcntl(in.descriptor(), F_DUPFD_CLOEXEC, 0)),
      name_(namePrefix + QUuid::createUuid().toByteArray(QUuid::Id128).left(digits)),
      path_(in.path() + QLatin1Char('/') + QString::fromLatin1(name_)) {
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
