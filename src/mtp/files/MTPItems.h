#pragma once

#include "mtp/files/MTPSession.h"
#include "phone/records/FileItem.h"

#include <QString>

#include <stop_token>

namespace tessary {

// What paths and listed entries stand for in a session. Failures are TessaryError::fileIOError,
// and those of MTPSession.

/// "No storage available"
[[nodiscard]] const QString& noMTPStorageText();

/// The location of a path; throws `noStorage` while the device offers none.
[[nodiscard]] MTPLocation requireMTPLocation(MTPSession& session, const QString& path,
                                             const QString& noStorage = noMTPStorageText());

/// The object at a path; blanks around it count only when a name on the phone really has them.
[[nodiscard]] MTPFound findMTPObject(MTPSession& session, const QString& path,
                                     const std::stop_token& stop,
                                     const QString& noStorage = noMTPStorageText());
/// The same for a folder.
[[nodiscard]] MTPFound findMTPFolder(MTPSession& session, const QString& path,
                                     const std::stop_token& stop,
                                     const QString& noStorage = noMTPStorageText());

/// The object of an item, confirmed to be the one that the user saw.
[[nodiscard]] MTPFound findMTPItem(MTPSession& session, const FileItem& item,
                                   const std::stop_token& stop);

/// Deletes an object. A folder that the device won't delete whole is emptied first, deepest first;
/// what it lists there but says to be elsewhere stays.
void deleteMTPObject(MTPSession& session, std::uint32_t storageID, const MTPObjectInfo& info,
                     const std::stop_token& stop);

} // namespace tessary
