#include "base/hash/ContentHash.h"

#include <openssl/evp.h>

#include <new>

namespace tessary {

namespace {

/// Nothing but memory can be missing.
void check(int result) {
    if (result != 1)
        throw std::bad_alloc();
}

} // namespace

ContentHash::ContentHash() : context_(EVP_MD_CTX_new()) {
    if (!context_)
        throw std::bad_alloc();
    check(EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr));
}

void ContentHash::Free::operator()(evp_md_ctx_st* context) const {
    EVP_MD_CTX_free(context);
}

void ContentHash::add(ByteView bytes) {
    check(EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size()));
}

QByteArray ContentHash::finish() {
    QByteArray hash(EVP_MD_get_size(EVP_sha256()), Qt::Uninitialized);
    check(
        EVP_DigestFinal_ex(context_.get(), reinterpret_cast<unsigned char*>(hash.data()), nullptr));
    return hash;
}

} // namespace tessary
