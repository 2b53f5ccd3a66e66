#pragma once

#include "ios/AFCFileInfo.h"
#include "phone/PhoneFileSystem.h"

#include <QByteArray>

#include <optional>
#include <variant>

namespace tessary {

/// A row of a listing: an entry, or why it is none.
using AFCRow = std::variant<FileItem, UnreadableEntry>;

/// The text of a name as a device sends it; no value for what is not UTF-8. Pure.
[[nodiscard]] std::optional<QString> textOfName(const QByteArray& bytes);

/// What the facts of a path say. What is neither file nor folder, a file without a size and missing
/// facts make an entry that cannot be read. Pure.
[[nodiscard]] AFCRow rowFrom(const QString& path, const std::optional<AFCFileInfo>& facts);

/// Whether an entry still is what was listed: its kind, and of a file its size and date. Pure.
[[nodiscard]] bool isStill(const FileItem& listed, const FileItem& now);

} // namespace tessary
