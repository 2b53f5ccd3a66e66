#pragma once

#include "base/local/FileHandle.h"

#include <QString>

#include <chrono>

namespace tessary {

/// A lock between the programs of this machine and between threads of one: the kernel's, on a file
/// that stays. It goes with this object and with the program, however that ends, and no clock has a
/// say in it. Not thread-safe. Failures are Error(LocalError::cannotWrite).
class FileLock {
public:
    /// Opens the file; one that is missing is made for this user alone. Takes no lock yet.
    explicit FileLock(QString file);

    /// False when somebody else has it for as long as `limit`. Blocking.
    [[nodiscard]] bool tryLock(std::chrono::milliseconds limit = std::chrono::milliseconds(0));

private:
    [[noreturn]] void fail() const;

    const QString path_;
    FileHandle file_;
};

} // namespace tessary
