#pragma once

namespace tessary {

/// Names the calling thread for debuggers and system tools; what is over 15 characters is cut off.
void nameCurrentThread(const char* name);

} // namespace tessary
