#include "simulator/wire/PhoneIdentity.h"

#include "base/values/FreeWith.h"

#include <openssl/encoder.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

using Key = std::unique_ptr<EVP_PKEY, FreeWith<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, FreeWith<X509_free>>;
using Text = std::unique_ptr<BIO, FreeWith<BIO_free>>;
using Encoder = std::unique_ptr<OSSL_ENCODER_CTX, FreeWith<OSSL_ENCODER_CTX_free>>;

/// The phone's key, and that of the host's root and host certificates.
struct Keys {
    Key device{EVP_RSA_gen(2048)};
    Key host{EVP_RSA_gen(2048)};
};

const Keys& keys() {
    static const Keys made;
    if (!made.device || !made.host)
        throw std::runtime_error("no keys for the virtual iPhone");
    return made;
}

template <typename Write>
QByteArray pem(Write&& write) {
    const Text bio(BIO_new(BIO_s_mem()));
    if (!bio || write(bio.get()) != 1)
        throw std::runtime_error("no PEM for the virtual iPhone");
    char* text = nullptr;
    const long length = BIO_get_mem_data(bio.get(), &text);
    return {text, static_cast<qsizetype>(length)};
}

QByteArray privateKeyPem(EVP_PKEY* key) {
    return pem([key](BIO* bio) {
        return PEM_write_bio_PrivateKey(bio, key, nullptr, nullptr, 0, nullptr, nullptr);
    });
}

Certificate certificateOf(const QVariant& text) {
    const QByteArray bytes = text.toByteArray();
    const Text bio(BIO_new_mem_buf(bytes.constData(), static_cast<int>(bytes.size())));
    return Certificate(PEM_read_bio_X509(bio.get(), nullptr, nullptr, nullptr));
}

/// A certificate for a key, valid for ten years, signed with the host's key.
QByteArray makeCertificate(EVP_PKEY* key, bool isRoot) {
    constexpr long tenYears = 10L * 365 * 24 * 3600;
    const Certificate certificate(X509_new());
    X509* made = certificate.get();
    X509_set_version(made, 2);
    ASN1_INTEGER_set(X509_get_serialNumber(made), 0);
    X509_gmtime_adj(X509_getm_notBefore(made), -24L * 3600);
    X509_gmtime_adj(X509_getm_notAfter(made), tenYears);
    X509_set_pubkey(made, key);
    X509V3_CTX context;
    X509V3_set_ctx(&context, made, made, nullptr, nullptr, 0);
    if (X509_EXTENSION* extension =
            X509V3_EXT_conf_nid(nullptr, &context, NID_basic_constraints,
                                isRoot ? "critical,CA:TRUE" : "critical,CA:FALSE")) {
        X509_add_ext(made, extension, -1);
        X509_EXTENSION_free(extension);
    }
    X509_sign(made, keys().host.get(), EVP_sha256());
    return pem([made](BIO* bio) { return PEM_write_bio_X509(bio, made); });
}

/// Whether the certificate that a host shows is one of its record's.
int isHost(X509_STORE_CTX* shown, void* pairRecord) {
    const auto& record = *static_cast<const QVariantMap*>(pairRecord);
    for (const QString& key : {u"RootCertificate"_s, u"HostCertificate"_s}) {
        const Certificate known = certificateOf(record[key]);
        if (known && X509_cmp(X509_STORE_CTX_get0_cert(shown), known.get()) == 0)
            return 1;
    }
    X509_STORE_CTX_set_error(shown, X509_V_ERR_CERT_REJECTED);
    return 0;
}

} // namespace

void TlsContextFreer::operator()(SSL_CTX* context) const {
    SSL_CTX_free(context);
}

void PhoneIdentity::prepareKeys() {
    (void)keys();
}

QByteArray PhoneIdentity::devicePublicKey() {
    const Encoder encoder(OSSL_ENCODER_CTX_new_for_pkey(keys().device.get(), EVP_PKEY_PUBLIC_KEY,
                                                        "PEM", "type-specific", nullptr));
    return pem([&](BIO* bio) { return OSSL_ENCODER_to_bio(encoder.get(), bio); });
}

QVariantMap PhoneIdentity::pairRecord(const QString& hostID, const QString& systemBUID) {
    const QByteArray hostKey = privateKeyPem(keys().host.get());
    return {{u"HostID"_s, hostID},
            {u"SystemBUID"_s, systemBUID},
            {u"RootCertificate"_s, makeCertificate(keys().host.get(), true)},
            {u"RootPrivateKey"_s, hostKey},
            {u"HostCertificate"_s, makeCertificate(keys().host.get(), false)},
            {u"HostPrivateKey"_s, hostKey},
            {u"DeviceCertificate"_s, makeCertificate(keys().device.get(), false)},
            {u"EscrowBag"_s, QByteArray(32, 'e')},
            {u"WiFiMACAddress"_s, u"02:00:00:00:00:01"_s}};
}

TlsContext PhoneIdentity::tlsContext(const QVariantMap& pairRecord) {
    TlsContext context(SSL_CTX_new(TLS_server_method()));
    const Certificate certificate = certificateOf(pairRecord[u"DeviceCertificate"_s]);
    if (!context || !certificate)
        return nullptr;
    // Hosts sign the certificates that they make with SHA-1, which the usual level refuses.
    SSL_CTX_set_security_level(context.get(), 0);
    if (SSL_CTX_use_certificate(context.get(), certificate.get()) != 1 ||
        SSL_CTX_use_PrivateKey(context.get(), keys().device.get()) != 1)
        return nullptr;
    // In version 1.3 a host would learn of its refusal only after the handshake.
    SSL_CTX_set_max_proto_version(context.get(), TLS1_2_VERSION);
    SSL_CTX_set_options(context.get(), SSL_OP_NO_RENEGOTIATION);
    SSL_CTX_set_verify(context.get(), SSL_VERIFY_PEER | SSL_VERIFY_FAIL_IF_NO_PEER_CERT, nullptr);
    SSL_CTX_set_cert_verify_callback(context.get(), isHost, const_cast<QVariantMap*>(&pairRecord));
    return context;
}

} // namespace tessary
