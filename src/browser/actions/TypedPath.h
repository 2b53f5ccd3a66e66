#pragma once

#include "browser/actions/BrowserProblem.h"
#include "phone/PhoneFileSystem.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace tessary {

/// What the user typed as a path, from the root on: a relative path begins in `folder`, "." and
/// ".." are taken out. Pure.
[[nodiscard]] QString absolutePath(const QString& typed, const QString& folder);

/// What is at a path that was typed.
struct TypedPath {
    std::optional<FileItem> item;
    std::optional<BrowserProblem> problem; ///< without an item
};

/// Blocking. Throws nothing but CancellationError.
[[nodiscard]] TypedPath lookUpTypedPath(PhoneFileSystem& files, const QString& path,
                                        const QString& typed, const std::stop_token& stop);

} // namespace tessary
