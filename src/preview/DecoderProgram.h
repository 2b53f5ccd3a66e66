#pragma once

#include "platform/sandbox/Sandbox.h"
#include "preview/Picture.h"

#include <functional>

namespace tessary {

// What the programs that decode have in common. Each is called with MAXSIDE and PAGE, and with the
// file as its standard input; it writes encodePicture() of what it has decoded to standard output.

/// What such a program may use: its three streams, 1 GiB of address space, 15 s of a processor, and
/// PictureDecoder::defaultLimit on the clock.
[[nodiscard]] SandboxRules decoderRules();

/// The main function of such a program, at a low priority. `decode(maxSide, page)` enters the
/// sandbox before it looks at the file; what it throws goes to standard error. Does not come back.
[[noreturn]] void runDecoder(int argc, char** argv,
                             const std::function<Picture(int maxSide, int page)>& decode);

} // namespace tessary
