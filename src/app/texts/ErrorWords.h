#pragma once

#include "base/local/LocalError.h"
#include "devices/list/DeviceTrouble.h"
#include "phone/PhoneError.h"
#include "sync/plan/SyncError.h"

namespace tessary {

/// The English words of one code, for translation in the context "ErrorText". Places are filled
/// with the error's arguments, in their order.
struct ErrorWords {
    /// What happened. "%1" to "%3" are the arguments.
    const char* sentence;
    /// The same about one item that is named beside it, without a full stop; nowhere a place. Null
    /// for what concerns the phone as a whole: the sentence does.
    const char* reason = nullptr;
    /// What to do about it. Null when there is nothing to do.
    const char* advice = nullptr;
};

[[nodiscard]] ErrorWords wordsOf(PhoneError error);
[[nodiscard]] ErrorWords wordsOf(LocalError error);
[[nodiscard]] ErrorWords wordsOf(DeviceError error);
[[nodiscard]] ErrorWords wordsOf(SyncError error);

} // namespace tessary
