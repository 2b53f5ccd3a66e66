#pragma once

#include "base/values/Bytes.h"

#include <span>

namespace tessary {

/// Changes one byte of content, which is not empty, as a bad cable would.
inline void garble(std::span<std::byte> content) {
    content.front() = ~content.front();
}
/// The same of content that is only lent; `copy` holds it then.
[[nodiscard]] inline ByteView garbledCopy(ByteView content, Bytes& copy) {
    copy.assign(content.begin(), content.end());
    garble(copy);
    return copy;
}

} // namespace tessary
