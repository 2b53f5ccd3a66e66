#pragma once

#include "base/values/Bytes.h"

#include <QVariant>

#include <optional>

namespace tessary {

enum class PlistForm { xml, binary };

/// Property lists as variants: text is QString, data QByteArray, numbers quint64 or double, truth
/// values bool, dictionaries QVariantMap, arrays QVariantList. Pure.
class PlistCodec {
public:
    /// The longest property list that is read, in bytes.
    static constexpr std::size_t longest = 256 * 1024;

    [[nodiscard]] static Bytes encode(const QVariantMap& dictionary, PlistForm form);
    /// No value for what is no property list, is no dictionary, is too long or too deeply nested.
    [[nodiscard]] static std::optional<QVariantMap> decode(ByteView bytes);
};

} // namespace tessary
