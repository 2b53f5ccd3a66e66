#pragma once

#include "base/values/Bytes.h"

#include <stop_token>

namespace tessary {

/// The RSA key by which phones know this computer, for what a phone asks of it. Thread-safe; calls
/// block, for a minute when a person has to unlock the key store, or until `stop`. Failures are
/// Error(ADBError); CancellationError.
class ADBHostKey {
public:
    virtual ~ADBHostKey() = default;

    /// The answer to AUTH with a token: its PKCS #1 v1.5 signature (256 bytes), with the token
    /// (20 bytes) taken for a SHA-1 digest as it is.
    [[nodiscard]] virtual Bytes sign(ByteView token, const std::stop_token& stop) = 0;

    /// What AUTH with the public key carries, in the form that phones take: base64 of 524 bytes
    /// { u32 words of the modulus (64), u32 -1/n mod 2^32, the modulus n, R^2 mod n with
    /// R = 2^2048 (256 bytes each), u32 exponent }, all little-endian; a blank, "<user>@<host>" and
    /// one NUL.
    [[nodiscard]] virtual Bytes getPhonePublicKeyPayload(const std::stop_token& stop) = 0;
};

} // namespace tessary
