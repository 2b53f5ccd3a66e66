#pragma once

namespace tessary {

/// Names the calling thread for debuggers and system tools: at most 15 characters.
void setThreadName(const char* name);

} // namespace tessary
