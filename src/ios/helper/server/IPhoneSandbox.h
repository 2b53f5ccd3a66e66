#pragma once

namespace tessary {

/// Loads what the libraries will need, and leaves this process nothing but the descriptors of its
/// channel, stream sockets, and limits of memory and time. std::system_error when that fails.
void enterIPhoneSandbox();

} // namespace tessary
