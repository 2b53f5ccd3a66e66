#pragma once

#include "base/values/Bytes.h"

#include <concepts>

namespace tessary {

/// Appends an integer in little-endian order.
template <std::unsigned_integral T>
void appendLittleEndian(Bytes& bytes, T value) {
    for (std::size_t i = 0; i < sizeof(T); ++i)
        bytes.push_back(static_cast<std::byte>(value >> (8 * i)));
}

/// The little-endian integer at an offset; the caller has checked that it is there.
template <std::unsigned_integral T>
[[nodiscard]] T readLittleEndian(ByteView bytes, std::size_t at) {
    T value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
        value = static_cast<T>(value | static_cast<T>(static_cast<T>(bytes[at + i]) << (8 * i)));
    return value;
}

} // namespace tessary
