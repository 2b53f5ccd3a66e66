#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/local/LocalFileSystem.h"

#include <QString>

#include <functional>

namespace tessary {

/// This computer's side of a run, beyond its files.
struct SyncComputer {
    PhoneFileSystem& files;
    /// Makes the pair's folder, with those above it.
    std::function<void()> makeFolder;
    /// Returns once all that was written would survive a power cut.
    std::function<void()> flush;
    /// Puts a file, by its path, into the desktop's trash; false where there is none. May be empty.
    std::function<bool(const QString& path)> trash;
};

/// A real folder; must outlive the result. A code of LocalError from `makeFolder`.
[[nodiscard]] SyncComputer syncComputer(LocalFileSystem& folder,
                                        std::function<bool(const QString& path)> trash = {});

} // namespace tessary
