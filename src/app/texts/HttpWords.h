#pragma once

#include "app/texts/ErrorWords.h"
#include "platform/http/HttpError.h"

namespace tessary {

/// The words of a failed request.
[[nodiscard]] ErrorWords wordsOf(HttpError error);

} // namespace tessary
