#pragma once

#include <QString>

namespace tessary {

// What phones take for a name, and for the same name. Failures are TessaryError::fileIOError.

/// The form in which names are compared: phones' storages ignore case, and some the Unicode form.
/// Pure.
[[nodiscard]] QString nameForPhones(const QString& name);
[[nodiscard]] bool isSameToPhones(const QString& one, const QString& other);

/// Throws for what cannot be a name over MTP, whose strings hold 254 UTF-16 units.
void requireNameForMTP(const QString& name);
/// Throws for what cannot be a name in a phone's file system, which holds 255 bytes.
void requireNameForADB(const QString& name);

/// The error for a path at which nothing is.
[[noreturn]] void throwNotOnPhone(const QString& path);
/// The error for a new name that is not `listed`, but the same to a phone.
[[noreturn]] void throwSameToPhone(const QString& listed, const QString& wanted);

} // namespace tessary
