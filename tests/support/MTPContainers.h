#pragma once

#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPTypes.h"

#include <string_view>
#include <vector>

namespace tessary {

// Containers as a device would send them, put together without the codec that is under test.

/// A container with any length in its header.
inline Bytes containerOf(std::uint32_t length, std::uint16_t type, std::uint16_t code,
                         std::uint32_t transactionID, ByteView payload) {
    Bytes bytes;
    appendLittleEndian(bytes, length);
    appendLittleEndian(bytes, type);
    appendLittleEndian(bytes, code);
    appendLittleEndian(bytes, transactionID);
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

/// Tells the length that it has come to have.
inline void writeLength(Bytes& container) {
    for (std::size_t n = 0; n < 4; ++n)
        container[n] = static_cast<std::byte>(container.size() >> (8 * n));
}

inline Bytes wholeContainer(std::uint16_t type, std::uint16_t code, std::uint32_t transactionID,
                            ByteView payload) {
    return containerOf(static_cast<std::uint32_t>(12 + payload.size()), type, code, transactionID,
                       payload);
}

inline Bytes wordsOf(const std::vector<std::uint32_t>& values) {
    Bytes bytes;
    for (const std::uint32_t value : values)
        appendLittleEndian(bytes, value);
    return bytes;
}

inline Bytes commandOf(std::uint16_t operation, std::uint32_t transactionID,
                       const std::vector<std::uint32_t>& parameters) {
    return wholeContainer(1, operation, transactionID, wordsOf(parameters));
}

inline Bytes dataOf(std::uint16_t operation, std::uint32_t transactionID, ByteView payload) {
    return wholeContainer(2, operation, transactionID, payload);
}

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

/// Bytes that differ at every place where a copy could go wrong.
inline Bytes patternOf(std::size_t size) {
    Bytes bytes(size);
    std::uint32_t state = 1;
    for (std::byte& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<std::byte>(state >> 24);
    }
    return bytes;
}

inline Bytes operator+(Bytes left, const Bytes& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

} // namespace tessary
