#include "base/hash/ContentHash.h"

#include <gcrypt.h>

#include <new>

namespace tessary {

namespace {

constexpr int sha256 = GCRY_MD_SHA256;

/// The library wants to be asked for its version before anything else, once.
bool isReady() {
    static const bool ready = [] {
        const bool isRecent = gcry_check_version(GCRYPT_VERSION) != nullptr;
        if (isRecent && !gcry_control(GCRYCTL_INITIALIZATION_FINISHED_P)) {
            gcry_control(GCRYCTL_DISABLE_SECMEM, 0); // a hash is no secret
            gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0);
        }
        return isRecent;
    }();
    return ready;
}

} // namespace

ContentHash::ContentHash() {
    gcry_md_hd_t context = nullptr;
    // Nothing but memory can be missing.
    if (!isReady() || gcry_md_open(&context, sha256, 0) != 0)
        throw std::bad_alloc();
    context_.reset(context);
}

void ContentHash::Free::operator()(gcry_md_handle* context) const {
    gcry_md_close(context);
}

void ContentHash::add(ByteView bytes) {
    gcry_md_write(context_.get(), bytes.data(), bytes.size());
}

QByteArray ContentHash::finish() {
    return {reinterpret_cast<const char*>(gcry_md_read(context_.get(), sha256)),
            static_cast<qsizetype>(gcry_md_get_algo_dlen(sha256))};
}

} // namespace tessary
