#pragma once

#include "browser/listing/FileListing.h"
#include "phone/FileAccess.h"
#include "transfer/ErrorAdvice.h"

#include <QLocale>
#include <QString>

#include <exception>
#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// What reading a folder for the browser came to.
struct BrowserLoad {
    std::shared_ptr<const FileListing> listing; ///< null when it failed
    ErrorAdvice error;                          ///< of a failure
    bool isDeviceLost = false;
    /// The folder is not on the device any more: the nearest one above it that is.
    std::optional<QString> livingFolder;
};

/// Whether a failure means that the connection to the device is gone.
[[nodiscard]] bool isDeviceLost(const std::exception& error);

/// Reads a folder; blocking. When that fails the folders above it are asked whether it is still
/// there. Throws nothing but CancellationError.
[[nodiscard]] BrowserLoad loadFolder(FileAccess& files, const QString& path, const QLocale& locale,
                                     const std::stop_token& stop);

} // namespace tessary
