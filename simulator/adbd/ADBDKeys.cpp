#include "simulator/adbd/ADBDKeys.h"

#include "base/values/FreeWith.h"
#include "base/values/LittleEndian.h"

#include <QByteArray>

#include <openssl/bn.h>
#include <openssl/core_names.h>
#include <openssl/evp.h>
#include <openssl/param_build.h>
#include <openssl/rand.h>
#include <openssl/rsa.h>

#include <algorithm>
#include <memory>

namespace tessary {

namespace {

constexpr std::size_t modulusSize = 256; // bytes
constexpr std::size_t keySize = 4 + 4 + 2 * modulusSize + 4;
constexpr std::size_t tokenSize = 20;

using Number = std::unique_ptr<BIGNUM, FreeWith<BN_free>>;
using Builder = std::unique_ptr<OSSL_PARAM_BLD, FreeWith<OSSL_PARAM_BLD_free>>;
using Parameters = std::unique_ptr<OSSL_PARAM, FreeWith<OSSL_PARAM_free>>;
using Context = std::unique_ptr<EVP_PKEY_CTX, FreeWith<EVP_PKEY_CTX_free>>;
using PublicKey = std::unique_ptr<EVP_PKEY, FreeWith<EVP_PKEY_free>>;

const unsigned char* raw(ByteView bytes) {
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

/// Null when the library does not take it for a key.
PublicKey makeKey(ByteView modulus, std::uint32_t exponent) {
    const Number n(BN_lebin2bn(raw(modulus), static_cast<int>(modulus.size()), nullptr));
    const Number e(BN_new());
    const Builder builder(OSSL_PARAM_BLD_new());
    if (!n || !e || !builder || BN_set_word(e.get(), exponent) != 1 ||
        OSSL_PARAM_BLD_push_BN(builder.get(), OSSL_PKEY_PARAM_RSA_N, n.get()) != 1 ||
        OSSL_PARAM_BLD_push_BN(builder.get(), OSSL_PKEY_PARAM_RSA_E, e.get()) != 1)
        return nullptr;
    const Parameters parameters(OSSL_PARAM_BLD_to_param(builder.get()));
    const Context context(EVP_PKEY_CTX_new_from_name(nullptr, "RSA", nullptr));
    EVP_PKEY* key = nullptr;
    if (!parameters || !context || EVP_PKEY_fromdata_init(context.get()) != 1 ||
        EVP_PKEY_fromdata(context.get(), &key, EVP_PKEY_PUBLIC_KEY, parameters.get()) != 1)
        return nullptr;
    return PublicKey(key);
}

/// Whether `inverse` is -1/n mod 2^32 and `square` is R^2 mod n, as a phone's verifier needs them.
bool isConsistent(ByteView modulus, std::uint32_t inverse, ByteView square) {
    const auto number = [](ByteView bytes) {
        return Number(BN_lebin2bn(raw(bytes), static_cast<int>(bytes.size()), nullptr));
    };
    const Number n = number(modulus);
    const Number claimed = number(square);
    const Number expected(BN_new());
    const std::unique_ptr<BN_CTX, FreeWith<BN_CTX_free>> context(BN_CTX_new());
    const int squareBits = static_cast<int>(2 * 8 * modulusSize);
    return readLittleEndian<std::uint32_t>(modulus, 0) * inverse == ~std::uint32_t{0} && n &&
           claimed && expected && context && BN_set_bit(expected.get(), squareBits) == 1 &&
           BN_mod(expected.get(), expected.get(), n.get(), context.get()) == 1 &&
           BN_cmp(expected.get(), claimed.get()) == 0;
}

bool verifies(EVP_PKEY* key, ByteView token, ByteView signature) {
    const Context context(EVP_PKEY_CTX_new(key, nullptr));
    return context && EVP_PKEY_verify_init(context.get()) == 1 &&
           EVP_PKEY_CTX_set_rsa_padding(context.get(), RSA_PKCS1_PADDING) == 1 &&
           EVP_PKEY_CTX_set_signature_md(context.get(), EVP_sha1()) == 1 &&
           EVP_PKEY_verify(context.get(), raw(signature), signature.size(), raw(token),
                           token.size()) == 1;
}

} // namespace

bool ADBDKeys::trust(ByteView publicKey) {
    const QByteArray text(reinterpret_cast<const char*>(publicKey.data()),
                          static_cast<qsizetype>(publicKey.size()));
    const QByteArray decoded = QByteArray::fromBase64(text.left(text.indexOf(' ')));
    const ByteView bytes(reinterpret_cast<const std::byte*>(decoded.constData()),
                         static_cast<std::size_t>(decoded.size()));
    auto key = fromADBForm(bytes);
    if (!key || !makeKey(key->modulus, key->exponent))
        return false;
    keys_.push_back(*std::move(key));
    return true;
}

std::optional<ADBDKeys::Key> ADBDKeys::fromADBForm(ByteView bytes) {
    if (bytes.size() != keySize || readLittleEndian<std::uint32_t>(bytes, 0) != modulusSize / 4)
        return std::nullopt;
    const ByteView modulus = bytes.subspan(8, modulusSize);
    if (!isConsistent(modulus, readLittleEndian<std::uint32_t>(bytes, 4),
                      bytes.subspan(8 + modulusSize, modulusSize)))
        return std::nullopt;
    return Key{Bytes(modulus.begin(), modulus.end()),
               readLittleEndian<std::uint32_t>(bytes, keySize - 4)};
}

bool ADBDKeys::hasSigned(ByteView token, ByteView signature) const {
    return std::any_of(keys_.begin(), keys_.end(), [&](const auto& one) {
        const auto key = makeKey(one.modulus, one.exponent);
        return key && verifies(key.get(), token, signature);
    });
}

Bytes makeADBDToken() {
    Bytes token(tokenSize);
    (void)RAND_bytes(reinterpret_cast<unsigned char*>(token.data()),
                     static_cast<int>(token.size()));
    return token;
}

} // namespace tessary
