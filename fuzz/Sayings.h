#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string_view>

namespace tessary {

/// What libFuzzer takes for coverage besides that of code which is built for it.
[[gnu::section("__libfuzzer_extra_counters")]] static std::array<std::uint8_t, 4096> sayings;

/// How far an input comes in a library that is not built for libFuzzer shows in what that says.
inline void noteSaying(std::string_view text) {
    sayings[std::hash<std::string_view>{}(text) % sayings.size()] = 1;
}

} // namespace tessary
