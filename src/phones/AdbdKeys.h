#pragma once

#include "core/Bytes.h"

#include <cstdint>
#include <vector>

namespace tessary {

/// The public keys of the computers that a virtual phone trusts.
///
/// A key is what adb sends: base64 of { u32 words of the modulus, u32 -1/n mod 2^32, the modulus,
/// R^2 mod n (both 256 bytes, little-endian), u32 exponent }, then a blank and the computer's name.
class AdbdKeys {
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
    std::vector<Key> keys_;
};

/// Fresh random bytes for a computer to sign.
[[nodiscard]] Bytes makeAdbdToken();

} // namespace tessary
