#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tessary {

/// Bytes from or for a wire, owned. Functions take them as ByteView and return them as Bytes.
using Bytes = std::vector<std::byte>;
using ByteView = std::span<const std::byte>;

} // namespace tessary
