#pragma once

#include "ios/files/AFCSession.h"
#include "phone/PhoneFileSystem.h"

#include <functional>

namespace tessary {

/// Hands over what is in a folder: a phone is asked about each entry, of a long folder by two
/// connections side by side. `secondSession` gives the other one, which joins in once it is open;
/// where the phone allows none, the first one does it alone. Returns only when the listing came
/// whole; PhoneError::notAFolder for a file.
void listAFCFolder(AFCSession& session, const std::function<AFCSession&()>& secondSession,
                   const QString& folder, const ListingReceiver& receiver,
                   const std::stop_token& stop);

} // namespace tessary
