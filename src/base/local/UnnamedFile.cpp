#include "base/local/UnnamedFile.h"

#include "base/local/LocalError.h"
#include "base/local/PrivateFolder.h"

#include <QUuid>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace tessary {

namespace {

/// Not every file system makes files without a name: there it loses its own at once.
FileHandle openWithoutName(int folder) {
    constexpr mode_t forUsAlone = S_IRUSR | S_IWUSR;
    FileHandle file(::openat(folder, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, forUsAlone));
    if (file.isOpen() || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL))
        return file;
    const QByteArray name = QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
    file = FileHandle(::openat(folder, name.constData(),
                               O_CREAT | O_EXCL | O_RDWR | O_NOFOLLOW | O_CLOEXEC, forUsAlone));
    if (file.isOpen())
        (void)::unlinkat(folder, name.constData(), 0);
    return file;
}

} // namespace

UnnamedFile::UnnamedFile(const QString& folder) {
    const PrivateFolder opened(PrivateFolder::Place::cache, folder);
    folder_ = opened.path();
    file_ = openWithoutName(opened.descriptor());
    if (!file_.isOpen())
        fail(errno);
}

void UnnamedFile::fail(int reason) const {
    if (reason == ENOSPC || reason == EDQUOT)
        throw Error(LocalError::noRoomOnTheWay, {folder_});
    throw Error(LocalError::cannotWrite, {folder_, qt_error_string(reason)});
}

void UnnamedFile::append(ByteView bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file_.get(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            fail(errno);
        bytes = bytes.subspan(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
}

std::size_t UnnamedFile::readAt(qint64 offset, std::span<std::byte> into) const {
    std::size_t done = 0;
    while (done < into.size()) {
        const ssize_t count = ::pread(file_.get(), into.data() + done, into.size() - done,
                                      offset + static_cast<qint64>(done));
        if (count == 0)
            break;
        if (count < 0 && errno != EINTR)
            fail(errno);
        done += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    return done;
}

} // namespace tessary
