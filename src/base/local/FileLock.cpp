#include "base/local/FileLock.h"

#include "base/local/LocalError.h"

#include <QFile>

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace tessary {

FileLock::FileLock(QString file)
    : path_(std::move(file)),
      file_(::open(QFile::encodeName(path_).constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC,
                   S_IRUSR | S_IWUSR)) {
    if (!file_.isOpen())
        fail();
}

bool FileLock::tryLock(std::chrono::milliseconds limit) {
    constexpr std::chrono::milliseconds pause{20};
    const auto end = std::chrono::steady_clock::now() + limit;
    while (::flock(file_.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            fail();
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

void FileLock::fail() const {
    throw Error(LocalError::cannotWrite, {path_, qt_error_string(errno)});
}

} // namespace tessary
