#pragma once

#include "base/local/FileLock.h"

#include <QString>

#include <functional>
#include <stop_token>

namespace tessary {

/// Keeps runs of this user from each other, whichever program runs them: a file that one deletes
/// may be the one that the other counts on. Goes with its object, and with the program.
class SyncLock {
public:
    /// Waits for the run that has it; `waits` is called once when there is one. CancellationError
    /// soon after `stop` asks for it. A file that cannot be locked is no lock: LocalError.
    SyncLock(const QString& file, const std::function<void()>& waits, const std::stop_token& stop);

    /// The one file of this user.
    [[nodiscard]] static QString defaultFile();

private:
    FileLock lock_;
};

} // namespace tessary
