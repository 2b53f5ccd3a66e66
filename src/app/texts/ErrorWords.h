#pragma once

#include "base/values/Error.h"

namespace tessary {

/// The English words of one code, for translation in the context "ErrorText". Places are filled
/// with the error's arguments, in their order.
struct ErrorWords {
    /// What happened. "%1" to "%3" are the arguments. Null where a code has no words.
    const char* sentence = nullptr;
    /// The same about one item that is named beside it, without a full stop; nowhere a place. Null
    /// for what concerns the phone as a whole: the sentence does.
    const char* reason = nullptr;
    /// What to do about it. Null when there is nothing to do.
    const char* advice = nullptr;
};

/// None for a protocol's own code that says no more than the one which is made of it.
[[nodiscard]] ErrorWords wordsOf(const ErrorCode& code);

} // namespace tessary
