#pragma once

#include "browser/actions/BrowserProblem.h"
#include "browser/listing/FileListing.h"
#include "phone/PhoneFileSystem.h"

#include <QLocale>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// What reading a folder for the browser came to.
struct BrowserLoad {
    std::shared_ptr<const FileListing> listing; ///< null when it failed
    int unreadable = 0;                         ///< entries that are there and cannot be shown
    std::optional<BrowserProblem> problem;      ///< of a failure
    bool isDeviceLost = false;
    /// The folder is not on the device any more: the nearest one above it that is.
    std::optional<QString> livingFolder;
};

/// Takes what has arrived of a long listing so far; on the thread of the call.
using PartialListing = std::function<void(std::shared_ptr<const FileListing>)>;

/// Reads a folder; blocking. What takes its time is handed to `partial` meanwhile, where there is
/// one: soon after the start, and each time that much more has come. When the folder is not there
/// the folders above it are asked which one is. Throws nothing but CancellationError.
[[nodiscard]] BrowserLoad loadFolder(PhoneFileSystem& files, const QString& path,
                                     const QLocale& locale, const PartialListing& partial,
                                     const std::stop_token& stop);

/// What to search for below a folder.
struct SearchBelow {
    QString name;            ///< as NamePattern takes it
    bool withHidden = false; ///< also in hidden folders
};

/// Searches a folder and all below it by name; blocking. What is found makes a listing as of one
/// folder; what cannot be read is counted. The rest is as above.
[[nodiscard]] BrowserLoad loadSearch(PhoneFileSystem& files, const QString& path,
                                     const SearchBelow& search, const QLocale& locale,
                                     const PartialListing& partial, const std::stop_token& stop);

} // namespace tessary
