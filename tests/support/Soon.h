#pragma once

#include <chrono>

namespace tessary {

/// What is done at once is done by then, also under a sanitizer on a busy machine. What it is told
/// from, by who uses it, takes several times as long.
inline constexpr std::chrono::seconds soon(10);

} // namespace tessary
