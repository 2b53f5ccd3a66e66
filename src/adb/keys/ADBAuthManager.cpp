#include "adb/keys/ADBAuthManager.h"

#include "base/values/FreeWith.h"
#include "base/values/LittleEndian.h"

#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/core_names.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

#include <optional>
#include <utility>

namespace tessary {

namespace {

constexpr int keyBits = 2048;

using Text = std::unique_ptr<BIO, FreeWith<BIO_free_all>>;
using Number = std::unique_ptr<BIGNUM, FreeWith<BN_free>>;
using PrivateKey = std::unique_ptr<EVP_PKEY, FreeWith<EVP_PKEY_free>>;
using Context = std::unique_ptr<EVP_PKEY_CTX, FreeWith<EVP_PKEY_CTX_free>>;

/// What OpenSSL says of the failure that has just happened on this thread.
QString reasonOr(const QString& unknown) {
    const char* reason = ERR_reason_error_string(ERR_peek_last_error());
    ERR_clear_error();
    return reason ? QString::fromLatin1(reason) : unknown;
}

[[noreturn]] void failToGenerate(const QString& reason) {
    throw Error(ADBError::noKey, {QStringLiteral("Failed to generate RSA key: %1").arg(reason)});
}

QByteArray pemOf(EVP_PKEY* key) {
    const Text text(BIO_new(BIO_s_mem()));
    if (!text ||
        PEM_write_bio_PKCS8PrivateKey(text.get(), key, nullptr, nullptr, 0, nullptr, nullptr) != 1)
        failToGenerate(reasonOr(QStringLiteral("Unknown keygen error")));
    char* data = nullptr;
    const long size = BIO_get_mem_data(text.get(), &data);
    return {data, static_cast<qsizetype>(size)};
}

Number numberOf(const EVP_PKEY* key, const char* which) {
    BIGNUM* number = nullptr;
    return EVP_PKEY_get_bn_param(key, which, &number) == 1 ? Number(number) : nullptr;
}

/// Of an odd number, modulo 2^32: each step doubles the number of right bits, from three on.
std::uint32_t inverse(std::uint32_t odd) {
    std::uint32_t result = odd;
    for (int bits = 3; bits < 32; bits *= 2)
        result *= 2 - odd * result;
    return result;
}

/// Null for anything that is no RSA key of this size. Asks nobody for a password.
PrivateKey keyFrom(const QByteArray& pem) {
    const Text text(BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
    const auto noPassword = [](char*, int, int, void*) { return -1; };
    PrivateKey key(text ? PEM_read_bio_PrivateKey(text.get(), nullptr, noPassword, nullptr)
                        : nullptr);
    ERR_clear_error();
    const bool isOurs =
        key && EVP_PKEY_is_a(key.get(), "RSA") == 1 && EVP_PKEY_get_bits(key.get()) == keyBits;
    return isOurs ? std::move(key) : nullptr;
}

QByteArray newKey() {
    ERR_clear_error();
    const PrivateKey key(EVP_RSA_gen(keyBits));
    if (!key)
        failToGenerate(reasonOr(QStringLiteral("Unknown keygen error")));
    return pemOf(key.get());
}

PrivateKey storedKey(KeyStore& store) {
    std::optional<QByteArray> pem;
    try {
        const QString tag = ADBAuthManager::keyTag;
        pem = store.find(tag);
        if (!pem)
            pem = store.addIfMissing(tag, newKey());
    } catch (const KeyStoreError& error) {
        failToGenerate(QString::fromUtf8(error.what()));
    }
    PrivateKey key = keyFrom(*pem);
    if (!key)
        failToGenerate(QStringLiteral("what the key store holds is no RSA key of 2048 bits"));
    return key;
}

} // namespace

Bytes ADBAuthManager::sign(ByteView token, const std::stop_token& /*stop*/) {
    const PrivateKey key = storedKey(*store_);
    ERR_clear_error();
    const Context context(EVP_PKEY_CTX_new(key.get(), nullptr));
    Bytes signature(static_cast<std::size_t>(EVP_PKEY_get_size(key.get())));
    std::size_t size = signature.size();
    if (!context || EVP_PKEY_sign_init(context.get()) != 1 ||
        EVP_PKEY_CTX_set_rsa_padding(context.get(), RSA_PKCS1_PADDING) != 1 ||
        EVP_PKEY_CTX_set_signature_md(context.get(), EVP_sha1()) != 1 ||
        EVP_PKEY_sign(context.get(), reinterpret_cast<unsigned char*>(signature.data()), &size,
                      reinterpret_cast<const unsigned char*>(token.data()), token.size()) != 1)
        throw Error(ADBError::notSigned,
                    {QStringLiteral("Failed to sign challenge token: %1")
                         .arg(reasonOr(QStringLiteral("Unknown signature error")))});
    signature.resize(size);
    return signature;
}

Bytes ADBAuthManager::getPhonePublicKeyPayload(const std::stop_token& /*stop*/) {
    constexpr int size = keyBits / 8;
    constexpr std::uint32_t words = size / 4;
    const PrivateKey key = storedKey(*store_);
    const Number n = numberOf(key.get(), OSSL_PKEY_PARAM_RSA_N);
    const Number e = numberOf(key.get(), OSSL_PKEY_PARAM_RSA_E);
    const Number square(BN_new());
    const std::unique_ptr<BN_CTX, FreeWith<BN_CTX_free>> context(BN_CTX_new());
    Bytes modulus(size);
    Bytes squareBytes(size);
    const auto raw = [](Bytes& bytes) { return reinterpret_cast<unsigned char*>(bytes.data()); };
    if (!n || !e || !square || !context || BN_num_bits(e.get()) > 32 ||
        BN_set_bit(square.get(), 2 * keyBits) != 1 ||
        BN_mod(square.get(), square.get(), n.get(), context.get()) != 1 ||
        BN_bn2lebinpad(n.get(), raw(modulus), size) != size ||
        BN_bn2lebinpad(square.get(), raw(squareBytes), size) != size)
        throw Error(ADBError::noPublicKey,
                    {QStringLiteral("Failed to export public key representation")});
    Bytes form;
    appendLittleEndian(form, words);
    appendLittleEndian(form, ~inverse(readLittleEndian<std::uint32_t>(modulus, 0)) + 1);
    form.insert(form.end(), modulus.begin(), modulus.end());
    form.insert(form.end(), squareBytes.begin(), squareBytes.end());
    appendLittleEndian(form, static_cast<std::uint32_t>(BN_get_word(e.get())));
    const QString host = host_.isEmpty() ? QStringLiteral("Linux") : host_;
    QByteArray text = QByteArrayView(form).toByteArray().toBase64();
    text += ' ' + user_.toUtf8() + '@' + host.toUtf8() + '\0';
    const ByteView bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

} // namespace tessary
