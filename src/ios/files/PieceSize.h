#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>

namespace tessary {

/// How many bytes go at a time: as many as keep a fast link busy, and on a slow one so few that
/// whoever wants to stop is heard soon. A value.
class PieceSize {
public:
    static constexpr std::size_t smallest = std::size_t{16} << 10;
    static constexpr std::size_t first = std::size_t{128} << 10;
    static constexpr std::size_t largest = std::size_t{4} << 20;

    [[nodiscard]] std::size_t bytes() const {
        return bytes_;
    }
    /// Takes in how long a piece of bytes() took.
    void took(std::chrono::steady_clock::duration time) {
        constexpr std::chrono::milliseconds quick(60);
        constexpr std::chrono::milliseconds slow(250);
        if (time < quick)
            bytes_ = std::min(bytes_ * 2, largest);
        else if (time > slow)
            bytes_ = std::max(bytes_ / 2, smallest);
    }

private:
    std::size_t bytes_ = first;
};

} // namespace tessary
