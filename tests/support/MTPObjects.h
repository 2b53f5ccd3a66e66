#pragma once

#include "mtp/client/MTPClient.h"

#include <algorithm>

namespace tessary {

inline Bytes contentOf(MTPClient& client, std::uint32_t handle) {
    Bytes bytes;
    client.getObject(handle,
                     [&](ByteView more) { bytes.insert(bytes.end(), more.begin(), more.end()); });
    return bytes;
}

/// Makes a file in the root.
inline void upload(MTPClient& client, std::uint32_t storage, const QString& name,
                   const MTPDataSource& source, std::uint64_t size,
                   const MTPStreamOptions& options = {}) {
    MTPObjectInfo object;
    object.storageID = storage;
    object.parentObject = mtpRootHandle;
    object.filename = name;
    client.sendObject(object, source, size, options);
}
inline void upload(MTPClient& client, std::uint32_t storage, const QString& name,
                   const Bytes& content, const MTPStreamOptions& options = {}) {
    const auto source = [&content, at = std::size_t{0}](std::span<std::byte> buffer) mutable {
        const std::size_t count = std::min(buffer.size(), content.size() - at);
        std::copy_n(content.begin() + static_cast<std::ptrdiff_t>(at), count, buffer.begin());
        at += count;
        return count;
    };
    upload(client, storage, name, source, content.size(), options);
}

} // namespace tessary
