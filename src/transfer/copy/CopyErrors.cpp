#include "transfer/copy/CopyErrors.h"

#include "base/local/LocalError.h"
#include "phone/PhoneFileSystem.h"

namespace tessary {

bool isFull(const Error& error) {
    return error.is(PhoneError::full) || error.is(LocalError::full) ||
           error.is(LocalError::noRoomOnTheWay);
}

bool isTaken(const Error& error) {
    return error.is(PhoneError::taken) || error.is(PhoneError::sameName) ||
           error.is(LocalError::taken);
}

bool endsCopy(const Error& error) {
    return endsEverything(error) || isFull(error) || error.is(PhoneError::busy);
}

bool saysChanged(const Error& error) {
    return error.is(PhoneError::changed) || error.is(LocalError::changed) ||
           error.is(PhoneError::wrongSize);
}

Error changedError(const PhoneFileSystem& files, const QString& path) {
    return files.queue() ? Error(PhoneError::changed, {path}) : Error(LocalError::changed, {path});
}

} // namespace tessary
