#pragma once

#include "adb/services/ADBStream.h"

#include <cstddef>
#include <cstdint>

namespace tessary {

/// Reads records from a stream through a buffer of a fixed size. A stream that ends within what was
/// asked for is ADBError::brokenOff.
class ADBReader {
public:
    /// `stream` must outlive it.
    explicit ADBReader(ADBStream& stream) : stream_(stream), buffer_(capacity) {}

    /// The next bytes, taken; valid until the next call. At most `capacity` of them.
    [[nodiscard]] ByteView take(std::size_t count, const Wait& wait);
    /// Between one byte and `most` of the next ones; valid until the next call.
    [[nodiscard]] ByteView takeSome(std::size_t most, const Wait& wait);
    /// Whether the stream has ended and every byte of it was taken.
    [[nodiscard]] bool isAtEnd(const Wait& wait);
    /// Whether bytes are there that nobody has taken.
    [[nodiscard]] bool hasBytes() const {
        return begin_ < end_ || stream_.hasInput();
    }

    /// Bytes that have come out of the stream so far.
    [[nodiscard]] std::uint64_t received() const {
        return received_;
    }

    static constexpr std::size_t capacity = 64 * 1024;

private:
    [[nodiscard]] bool fill(const Wait& wait);

    ADBStream& stream_;
    Bytes buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::uint64_t received_ = 0;
};

} // namespace tessary
