#pragma once

#include "base/local/UnnamedFile.h"
#include "base/values/Bytes.h"

#include <QtGlobal>

#include <optional>

namespace tessary {

/// Bytes that wait between two phones: in memory as long as they are few, else in an UnnamedFile.
/// Used by one thread at a time; throws what that throws.
class Spool {
public:
    /// What stays in memory.
    static constexpr qint64 defaultMostInMemory = qint64{32} * 1024 * 1024;

    explicit Spool(qint64 mostInMemory = defaultMostInMemory) : mostInMemory_(mostInMemory) {}

    void append(ByteView bytes);
    /// The next bytes, 0 at the end. Nothing is appended after the first call.
    std::size_t read(std::span<std::byte> into);

private:
    [[nodiscard]] bool isOnDisk() const {
        return file_.has_value();
    }

    const qint64 mostInMemory_;
    Bytes memory_;
    std::optional<UnnamedFile> file_; ///< holds everything once it is there
    qint64 size_ = 0;
    qint64 taken_ = 0;
};

} // namespace tessary
