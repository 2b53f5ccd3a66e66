#pragma once

#include "core/Bytes.h"

#include <string_view>

namespace tessary {

/// The bytes of hexadecimal digits; blanks are skipped and "'abc'" stands for the letters as
/// UTF-16 units in little-endian order: "04 'abc' 0000".
inline Bytes hexBytes(std::string_view text) {
    Bytes bytes;
    const auto digit = [](char c) { return c <= '9' ? c - '0' : c - 'A' + 10; };
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\'') {
            quoted = !quoted;
        } else if (quoted) {
            bytes.push_back(static_cast<std::byte>(text[i]));
            bytes.push_back(std::byte{0});
        } else if (text[i] != ' ') {
            bytes.push_back(static_cast<std::byte>(16 * digit(text[i]) + digit(text[i + 1])));
            ++i;
        }
    }
    return bytes;
}

} // namespace tessary
