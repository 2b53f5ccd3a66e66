#pragma once

#include <QHashFunctions>

#include <optional>

namespace tessary {

/// Hash of an optional field: its presence as 0 or 1, then the value. Qt 6.4 has none of its own.
template <typename T>
[[nodiscard]] std::size_t hashOptional(const std::optional<T>& value, std::size_t seed) {
    seed = qHashMulti(seed, value.has_value() ? 1 : 0);
    return value ? qHashMulti(seed, *value) : seed;
}

} // namespace tessary
