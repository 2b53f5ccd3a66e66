#include "ios/AFCStatus.h"

#include "phone/PhoneError.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

struct Row {
    AFCStatus status;
    const char* name;
    PhoneError meaning;
    bool endsLink = false;
};

constexpr std::array table{
    Row{AFCStatus::success, "success", PhoneError::nonsense},
    Row{AFCStatus::unknown, "unknown", PhoneError::refused},
    Row{AFCStatus::headerInvalid, "headerInvalid", PhoneError::brokenOff, true},
    Row{AFCStatus::noResources, "noResources", PhoneError::refused},
    Row{AFCStatus::readError, "readError", PhoneError::unreadable},
    Row{AFCStatus::writeError, "writeError", PhoneError::refused},
    Row{AFCStatus::unknownPacket, "unknownPacket", PhoneError::refused},
    Row{AFCStatus::invalidArgument, "invalidArgument", PhoneError::refused},
    Row{AFCStatus::objectNotFound, "objectNotFound", PhoneError::notFound},
    Row{AFCStatus::objectIsFolder, "objectIsFolder", PhoneError::notAFile},
    Row{AFCStatus::permissionDenied, "permissionDenied", PhoneError::accessDenied},
    Row{AFCStatus::notConnected, "notConnected", PhoneError::brokenOff, true},
    Row{AFCStatus::timeout, "timeout", PhoneError::noAnswer, true},
    Row{AFCStatus::tooMuchData, "tooMuchData", PhoneError::nonsense},
    Row{AFCStatus::endOfData, "endOfData", PhoneError::unreadable},
    Row{AFCStatus::notSupported, "notSupported", PhoneError::notSupported},
    Row{AFCStatus::objectExists, "objectExists", PhoneError::taken},
    Row{AFCStatus::objectBusy, "objectBusy", PhoneError::refused},
    Row{AFCStatus::noSpaceLeft, "noSpaceLeft", PhoneError::full},
    Row{AFCStatus::wouldBlock, "wouldBlock", PhoneError::refused},
    Row{AFCStatus::ioError, "ioError", PhoneError::unreadable},
    Row{AFCStatus::interrupted, "interrupted", PhoneError::refused},
    Row{AFCStatus::inProgress, "inProgress", PhoneError::refused},
    Row{AFCStatus::internalError, "internalError", PhoneError::refused},
    Row{AFCStatus::muxError, "muxError", PhoneError::brokenOff, true},
    Row{AFCStatus::noMemory, "noMemory", PhoneError::nonsense, true},
    Row{AFCStatus::notEnoughData, "notEnoughData", PhoneError::brokenOff, true},
    Row{AFCStatus::folderNotEmpty, "folderNotEmpty", PhoneError::folderNotEmpty},
    Row{AFCStatus::sslError, "sslError", PhoneError::brokenOff, true},
};

const Row& rowOf(std::int32_t number) {
    const auto found = std::find_if(table.begin(), table.end(), [number](const Row& row) {
        return static_cast<std::int32_t>(row.status) == number;
    });
    return found != table.end() ? *found : rowOf(static_cast<std::int32_t>(AFCStatus::unknown));
}

const Row& rowOf(AFCStatus status) {
    return rowOf(static_cast<std::int32_t>(status));
}

} // namespace

const char* errorName(AFCStatus status) {
    return rowOf(status).name;
}

AFCStatus afcStatusFrom(std::int32_t number) {
    return rowOf(number).status;
}

bool isLinkFailure(AFCStatus status) {
    return rowOf(status).endsLink;
}

Error phoneErrorOf(std::int32_t number, const QString& path) {
    const Row& row = rowOf(number);
    const Error cause(row.status, {number});
    const bool isAboutThePhone = row.meaning <= PhoneError::nonsense;
    return Error(row.meaning, isAboutThePhone ? QVariantList() : QVariantList{path}, cause);
}

} // namespace tessary
