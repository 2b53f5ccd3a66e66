#pragma once

#include "adb/files/ADBShell.h"
#include "base/local/LocalSource.h"
#include "phone/TransferOutcome.h"

namespace tessary {

// Copies with `adb pull` and `adb push`. Failures are TessaryError::fileIOError and
// CancellationError; the child is gone when a call returns. A transfer that makes no progress for
// `adbStallLimit` is ended.

inline constexpr std::chrono::minutes adbStallLimit{3};

/// What a push reports while the phone does not tell how much has arrived: 20 MiB a second, at
/// least half a second in all, at most nine tenths, and never the whole. Pure.
[[nodiscard]] qint64 estimatedPushProgress(std::chrono::duration<double> passed, qint64 total);

/// Copies one file whole or not at all, with its date. `size` is what the phone lists.
void pullFile(const ADBShell& shell, const QString& remotePath, qint64 size,
              const QString& localFile, const FileProgressCallback& progress);

/// Copies one file into a folder that is there, under the source's name, and compares the sizes
/// afterwards.
void pushFile(const ADBShell& shell, const LocalSource& source, const QString& remoteFolder,
              const FileProgressCallback& progress);

/// Copies a local folder, as a folder of the source's name, into a folder that is there. Many small
/// files travel together. What cannot be read here, or is refused there, is named in the outcome.
[[nodiscard]] TransferOutcome pushFolder(const ADBShell& shell, const LocalSource& source,
                                         const QString& remoteFolder,
                                         const TransferProgressCallback& progress);

/// What lies below a folder of a phone, as far as it can be read.
struct ADBTreeTotals {
    qint64 files = 0;
    qint64 bytes = 0;
};

/// Copies the content of a folder into `localFolder`: the whole folder arrives beside it first,
/// and each file is then put in its place. `totals` is what is to come.
[[nodiscard]] TransferOutcome pullFolder(const ADBShell& shell, const QString& remoteFolder,
                                         const ADBTreeTotals& totals, const QString& localFolder,
                                         const TransferProgressCallback& progress);

} // namespace tessary
