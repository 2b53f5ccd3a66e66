#pragma once

#include "ios/files/AFCSession.h"
#include "phone/PhoneFileSystem.h"

#include <QByteArray>
#include <QDateTime>

#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace tessary {

/// A row of a listing: an entry, or why it is none.
using AFCRow = std::variant<FileItem, UnreadableEntry>;

/// The text of a name as a device sends it; no value for what is not UTF-8. Pure.
[[nodiscard]] std::optional<QString> textOfName(const QByteArray& bytes);

// The steps that the calls of a file system are made of, for the session's thread. Paths are those
// below the container's root; failures are Errors as AFCConnection throws them, or as stated.

[[nodiscard]] std::optional<AFCFileInfo> infoAt(const AFCSession::Opened& opened,
                                                const QString& path);
/// The entry that has these facts; what makes it one that cannot be read is thrown.
[[nodiscard]] FileItem itemFrom(const QString& path, const std::optional<AFCFileInfo>& info);

/// Right before an item is changed: PhoneError::changed unless it is what the user saw.
void requireStill(const AFCSession::Opened& opened, const FileItem& item, const QString& path);
/// PhoneError::notAFolder for what is something else.
void requireFolderAt(const AFCSession::Opened& opened, const QString& path);
/// PhoneError::taken when something is there.
void requireFree(const AFCSession::Opened& opened, const QString& path);

/// The names in a folder, which came whole when this is empty or another answer followed.
/// PhoneError::notAFolder for a file.
[[nodiscard]] std::vector<QByteArray> namesIn(const AFCSession::Opened& opened,
                                              const QString& folder);
/// The rows of some names.
[[nodiscard]] std::vector<AFCRow> rowsOf(const AFCSession::Opened& opened, const QString& folder,
                                         std::span<const QByteArray> names);

/// Removes a file or an empty folder; PhoneError::folderNotEmpty for any other.
void removeOne(const AFCSession::Opened& opened, const QString& path);

/// Makes the file that is going to be sent, and opens it.
void create(AFCSession::Opened& opened, const QString& path);
/// Opens one to go on with behind its first bytes: PhoneError::changed when they are not there.
void goOn(AFCSession::Opened& opened, const QString& path, qint64 offset);
/// Closes the file that is open, whose answer is the proof that what came before came whole.
void closeFile(AFCSession::Opened& opened);
/// Closes it, dates it and looks at what has become of it: PhoneError::wrongSize unless it has so
/// many bytes.
[[nodiscard]] FileItem finish(AFCSession::Opened& opened, const QString& path, qint64 size,
                              const std::optional<QDateTime>& date);

} // namespace tessary
