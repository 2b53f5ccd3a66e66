#pragma once

#include <QString>
#include <plist/plist.h>

#include <cstdint>
#include <optional>

namespace tessary {

// What a dictionary from a device holds under a key: no value when the key is missing, when the
// value is of another kind, and when `dictionary` is none at all (or null). Pure.

[[nodiscard]] std::optional<QString> textAt(plist_t dictionary, const char* key);
[[nodiscard]] std::optional<std::uint64_t> unsignedAt(plist_t dictionary, const char* key);
[[nodiscard]] std::optional<bool> booleanAt(plist_t dictionary, const char* key);
/// Whether there is anything at all under the key.
[[nodiscard]] bool hasKey(plist_t dictionary, const char* key);

} // namespace tessary
