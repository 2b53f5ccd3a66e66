#pragma once

#include "ios/files/AFCSession.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <memory>
#include <span>

namespace tessary {

/// How many bytes go at a time: as many as keep a fast link busy, and on a slow one so few that
/// whoever wants to stop is heard soon. A value.
class PieceSize {
public:
    static constexpr std::size_t smallest = std::size_t{16} << 10;
    static constexpr std::size_t first = std::size_t{128} << 10;
    static constexpr std::size_t largest = contentPiece;

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

/// Bytes of a file that both threads see, one of them at a time.
struct AFCPiece {
    std::shared_ptr<std::byte> memory; ///< the connection's
    std::size_t offset = 0;
    std::size_t count = 0; ///< that are of use

    [[nodiscard]] std::span<std::byte> first(std::size_t size) const {
        return {memory.get() + offset, std::min(size, contentPiece)};
    }
};

/// The two pieces of a connection's memory, by turns.
class AFCPieces {
public:
    explicit AFCPieces(const std::shared_ptr<std::byte>& memory)
        : pieces_{std::make_shared<AFCPiece>(AFCPiece{memory, 0, 0}),
                  std::make_shared<AFCPiece>(AFCPiece{memory, contentPiece, 0})} {}

    [[nodiscard]] const std::shared_ptr<AFCPiece>& operator[](std::size_t turn) const {
        return pieces_[turn % pieces_.size()];
    }

private:
    std::array<std::shared_ptr<AFCPiece>, 2> pieces_;
};

/// A request that is on its way, with what it takes, and the bytes that it is about.
struct AFCFlight {
    SerialQueue::Started<std::chrono::steady_clock::duration> answer;
    std::size_t bytes = 0;

    /// One at work and one that waits for it: the phone is never idle for want of a request.
    static constexpr std::size_t most = 2;
};

} // namespace tessary
