#pragma once

#include "adb/files/ADBSession.h"
#include "phone/PhoneFileSystem.h"

#include <QString>

namespace tessary {

/// Hands the entries of a folder over as they come; see PhoneFileSystem::list(). `folder` is
/// canonical. Errors of ADBSession, and PhoneError for what a listing alone can tell.
void listADBFolder(ADBSession& session, const QString& folder, const ListingReceiver& receiver,
                   const std::stop_token& stop);

/// What stands in a folder under a name that the phone takes for `wanted`, in the folder's own
/// spelling; no value when only other names are there.
[[nodiscard]] std::optional<QString> spellingInFolder(ADBSession& session, const QString& folder,
                                                      const QString& wanted,
                                                      const std::stop_token& stop);

/// The row for what is at a path.
[[nodiscard]] FileItem itemOf(const QString& name, const QString& path, const ADBFacts& facts);

/// A path in the phone's bytes. PhoneError::nameNotAllowed for one that has none.
[[nodiscard]] QByteArray phonePath(const QString& path);

} // namespace tessary
