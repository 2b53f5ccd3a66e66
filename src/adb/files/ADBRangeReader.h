#pragma once

#include "phone/PhoneFileSystem.h"

#include <algorithm>
#include <cstdint>

namespace tessary {

/// Reads what lies in a range of a file by whole blocks. True when `sink` got all of it.
class ADBRangeReader {
public:
    ADBRangeReader(ByteRange range, const ByteSink& sink)
        : skip_(static_cast<std::uint64_t>(range.offset)),
          left_(range.length < 0 ? ~std::uint64_t{0} : static_cast<std::uint64_t>(range.length)),
          sink_(sink) {}

    /// The next bytes of the file from `skip_` on; false when that is all.
    bool take(ByteView bytes) {
        const std::size_t skipped = std::min<std::uint64_t>(skip_, bytes.size());
        skip_ -= skipped;
        bytes = bytes.subspan(skipped);
        bytes = bytes.first(std::min<std::uint64_t>(left_, bytes.size()));
        left_ -= bytes.size();
        done_ += static_cast<qint64>(bytes.size());
        if (!bytes.empty())
            sink_(bytes);
        return left_ > 0;
    }
    void skipBlocks(std::uint64_t bytes) {
        skip_ -= bytes;
    }
    [[nodiscard]] qint64 done() const {
        return done_;
    }

private:
    std::uint64_t skip_;
    std::uint64_t left_;
    qint64 done_ = 0;
    const ByteSink& sink_;
};

} // namespace tessary
