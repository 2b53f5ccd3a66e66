#pragma once

#include "app/texts/ErrorText.h"
#include "browser/actions/BrowserProblem.h"

namespace tessary {

/// What went wrong in a browser, in words for the person with the phone. For the main thread.
[[nodiscard]] ErrorText problemText(const BrowserProblem& problem);

} // namespace tessary
