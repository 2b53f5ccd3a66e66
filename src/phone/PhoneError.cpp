#include "phone/PhoneError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::array names{
    "notConnected",   "unplugged",     "noAnswer",       "brokenOff",    "held",
    "notPermitted",   "notTrusted",    "trustForgotten", "locked",       "noStorage",
    "sessionEnded",   "notReachable",  "nonsense",       "busy",         "notFound",
    "taken",          "sameName",      "notAFolder",     "notAFile",     "folderNotEmpty",
    "nameNotAllowed", "accessDenied",  "writeProtected", "tooLarge",     "changed",
    "unreadable",     "listingBroken", "wrongSize",      "insideItself", "wholeStorage",
    "otherStorage",   "notSupported",  "refused",        "notDone",      "differs",
    "notAsCopied",    "full",
};
static_assert(names.size() == static_cast<std::size_t>(PhoneError::full) + 1);

} // namespace

const char* errorName(PhoneError error) {
    return names[static_cast<std::size_t>(error)];
}

bool endsEverything(const Error& error) {
    const auto code = error.code().as<PhoneError>();
    return code && *code <= PhoneError::nonsense;
}

bool isDeviceLost(const Error& error) {
    return error.is(PhoneError::unplugged) || error.is(PhoneError::notConnected);
}

bool concernsOneItem(const Error& error) {
    const auto code = error.code().as<PhoneError>();
    return code && *code > PhoneError::busy && *code < PhoneError::full;
}

} // namespace tessary
