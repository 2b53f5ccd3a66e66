#pragma once

#include "phone/PhoneFileSystem.h"

#include <algorithm>
#include <stdexcept>

namespace tessary {

[[nodiscard]] inline QStringList namesOf(const std::vector<FileItem>& items) {
    QStringList names;
    for (const FileItem& item : items)
        names.append(item.name);
    return names;
}

/// Appends what arrives to `bytes`.
[[nodiscard]] inline ByteSink sinkInto(QByteArray& bytes) {
    return [&bytes](ByteView more) {
        bytes.append(reinterpret_cast<const char*>(more.data()),
                     static_cast<qsizetype>(more.size()));
    };
}

/// A source of these bytes; `drawn` is told how many of them were.
[[nodiscard]] inline ByteSource sourceOf(const QByteArray& bytes,
                                         std::function<void(qint64)> drawn = {}) {
    return [bytes, drawn = std::move(drawn), at = qsizetype{0}](std::span<std::byte> room) mutable {
        const auto count = std::min(static_cast<qsizetype>(room.size()), bytes.size() - at);
        std::copy_n(bytes.constData() + at, count, reinterpret_cast<char*>(room.data()));
        at += count;
        if (drawn)
            drawn(at);
        return static_cast<std::size_t>(count);
    };
}

/// The content of a file, or a part of it; its number of bytes has to be what is told.
[[nodiscard]] inline QByteArray readBytes(PhoneFileSystem& files, const FileItem& file,
                                          ByteRange range = {}, const Call& call = {}) {
    QByteArray bytes;
    const qint64 count = files.read(file, range, sinkInto(bytes), call);
    if (count != bytes.size())
        throw std::logic_error("another number of bytes came than is told");
    return bytes;
}

} // namespace tessary
