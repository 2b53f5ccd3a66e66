#pragma once

#include "base/values/Bytes.h"

#include <cstdint>
#include <cstdlib>

/// What libFuzzer and the replay call with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tessary {

inline ByteView fuzzInput(const std::uint8_t* data, std::size_t size) {
    return std::as_bytes(std::span(data, size));
}

/// Stops the program at an input for which a promise of the code does not hold.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace tessary
