#include "sync/run/SyncLock.h"

#include "base/local/LocalError.h"
#include "base/local/PrivateFolder.h"
#include "base/threads/CancellationError.h"

#include <QFile>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

namespace tessary {

SyncLock::SyncLock(const QString& file, const std::function<void()>& waits,
                   const std::stop_token& stop)
    : file_(::open(QFile::encodeName(file).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    constexpr std::chrono::milliseconds pause{100};
    const auto failure = [&file] {
        return Error(LocalError::cannotWrite, {file, QString::fromLocal8Bit(std::strerror(errno))});
    };
    if (!file_.isOpen())
        throw failure();
    for (bool isFirst = true; ::flock(file_.get(), LOCK_EX | LOCK_NB) != 0; isFirst = false) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            throw failure();
        if (isFirst && waits)
            waits();
        throwIfStopped(stop);
        std::this_thread::sleep_for(pause);
    }
}

QString SyncLock::defaultFile() {
    return PrivateFolder(PrivateFolder::Place::runtime, QStringLiteral("sync")).path() +
           QStringLiteral("/runs.lock");
}

} // namespace tessary
