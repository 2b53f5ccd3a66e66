#pragma once

namespace tessary {

/// Deletes a C library's handle with the library's own function:
/// std::unique_ptr<BIO, FreeWith<BIO_free_all>>.
template <auto release>
struct FreeWith {
    template <typename T>
    void operator()(T* handle) const {
        (void)release(handle);
    }
};

} // namespace tessary
