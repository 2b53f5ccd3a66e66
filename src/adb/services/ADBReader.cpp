#include "adb/services/ADBReader.h"

#include "adb/protocol/ADBError.h"

#include <algorithm>

namespace tessary {

/// False at the end of the stream.
bool ADBReader::fill(const Wait& wait) {
    if (begin_ > 0) {
        std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
                  buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
        end_ -= begin_;
        begin_ = 0;
    }
    const std::size_t got = stream_.read(std::span(buffer_).subspan(end_), wait);
    end_ += got;
    received_ += got;
    return got > 0;
}

ByteView ADBReader::take(std::size_t count, const Wait& wait) {
    if (count > capacity)
        throw Error(ADBError::nonsense, {QStringLiteral("a record that is too long")});
    while (end_ - begin_ < count)
        if (!fill(wait))
            throw Error(ADBError::brokenOff);
    const ByteView bytes = ByteView(buffer_).subspan(begin_, count);
    begin_ += count;
    return bytes;
}

ByteView ADBReader::takeSome(std::size_t most, const Wait& wait) {
    if (begin_ == end_ && !fill(wait))
        throw Error(ADBError::brokenOff);
    return take(std::min(most, end_ - begin_), wait);
}

bool ADBReader::isAtEnd(const Wait& wait) {
    return begin_ == end_ && !fill(wait);
}

} // namespace tessary
