#pragma once

#include "base/values/Bytes.h"

#include <string_view>

namespace tessary {

using namespace std::literals;

/// The bytes of a literal, written `bytesOf("DATA\x03\0\0\0abc"sv)`.
inline Bytes bytesOf(std::string_view text) {
    Bytes bytes;
    for (const char c : text)
        bytes.push_back(static_cast<std::byte>(c));
    return bytes;
}

} // namespace tessary
