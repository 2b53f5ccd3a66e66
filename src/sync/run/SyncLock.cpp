#include "sync/run/SyncLock.h"

#include "base/local/PrivateFolder.h"
#include "base/threads/CancellationError.h"

#include <chrono>

namespace tessary {

SyncLock::SyncLock(const QString& file, const std::function<void()>& waits,
                   const std::stop_token& stop)
    : lock_(file) {
    constexpr std::chrono::milliseconds step{100};
    if (lock_.tryLock())
        return;
    if (waits)
        waits();
    do
        throwIfStopped(stop);
    while (!lock_.tryLock(step));
}

QString SyncLock::defaultFile() {
    // Not in the runtime folder: a program that a timer or another machine's shell starts may be
    // told of none, and would have a lock of its own.
    return PrivateFolder(PrivateFolder::Place::cache, QStringLiteral("sync")).path() +
           QStringLiteral("/runs.lock");
}

} // namespace tessary
