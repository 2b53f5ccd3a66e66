#pragma once

#include "phone/records/FileItem.h"

#include <QString>

namespace tessary {

/// "2026-11-22 09:30", or as many blanks.
[[nodiscard]] QString shownDate(const FileItem& item);
/// One line of a listing: size, date, and the entry as `shown`, with a "/" behind a folder.
[[nodiscard]] QString fileLine(const FileItem& item, const QString& shown);

} // namespace tessary
