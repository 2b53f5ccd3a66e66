#pragma once

#include "base/values/Bytes.h"

#include <concepts>
#include <functional>
#include <utility>

namespace tessary {

/// Where the bytes of a file are drawn from, in their order, by one thread at a time. What drawing
/// throws ends the writing and is passed on.
class ByteSource {
public:
    /// Fills a buffer with the next bytes and says how many; 0 only at the end.
    using Fill = std::function<std::size_t(std::span<std::byte>)>;
    /// The next bytes where they lie, until the next call; none only at the end.
    using Lend = std::function<ByteView()>;

    /// One that is not there.
    ByteSource() = default;
    /// From a Fill.
    template <typename Function>
    requires(!std::same_as<std::remove_cvref_t<Function>, ByteSource> &&
             std::convertible_to<Function, Fill>) ByteSource(Function&& fill)
        : fill_(std::forward<Function>(fill)) {}
    /// `lend` may be empty.
    ByteSource(Fill fill, Lend lend) : fill_(std::move(fill)), lend_(std::move(lend)) {}

    [[nodiscard]] explicit operator bool() const {
        return fill_ != nullptr;
    }
    std::size_t operator()(std::span<std::byte> into) const {
        return fill_(into);
    }
    /// The next bytes, until the next call: where they lie already, or else in `spare`.
    [[nodiscard]] ByteView next(std::span<std::byte> spare) const {
        return lend_ ? lend_() : ByteView(spare.first(fill_(spare)));
    }

private:
    Fill fill_;
    Lend lend_;
};

} // namespace tessary
