#pragma once

#include "base/values/Bytes.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tessary {

/// The public keys of the computers that a virtual phone trusts.
///
/// A key is base64, a blank and the computer's name. The base64 is { u32 words of the modulus, u32
/// -1/n mod 2^32, the modulus, R^2 mod n (both 256 bytes, little-endian), u32 exponent }; numbers
/// that do not belong together are no key.
class ADBDKeys {
public:
    /// False for anything that is no 2048-bit key.
    bool trust(ByteView publicKey);
    /// Whether a trusted key has signed this token (20 bytes, taken as a SHA-1 digest).
    [[nodiscard]] bool hasSigned(ByteView token, ByteView signature) const;

private:
    struct Key {
        Bytes modulus; ///< little-endian
        std::uint32_t exponent = 0;
    };
    [[nodiscard]] static std::optional<Key> fromADBForm(ByteView bytes);

    std::vector<Key> keys_;
};

/// Fresh random bytes for a computer to sign.
[[nodiscard]] Bytes makeADBDToken();

} // namespace tessary
