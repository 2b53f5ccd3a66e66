#pragma once

#include "platform/keys/KeyStore.h"

#include <memory>

namespace tessary {

/// The secret service of this user's desktop. Where none answers, files in the folder
/// "tessary/keys" of the user's data ($XDG_DATA_HOME, or ~/.local/share).
[[nodiscard]] std::unique_ptr<KeyStore> makeSystemKeyStore();

} // namespace tessary
