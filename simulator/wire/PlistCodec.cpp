#include "simulator/wire/PlistCodec.h"

#include "base/values/FreeWith.h"

#include <plist/plist.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace tessary {

namespace {

/// The library walks a list recursively, down to freeing it: depth has to be bounded first.
constexpr int deepest = 64;
/// The same for the binary form, whose depth shows only in parsing: a short list is not deep.
constexpr std::size_t longestBinary = 16 * 1024;

using Node = std::unique_ptr<void, FreeWith<plist_free>>;
template <typename T>
using Memory = std::unique_ptr<T, FreeWith<std::free>>;

plist_t toNode(const QVariant& value);

plist_t toNode(const QVariantMap& map) {
    plist_t node = plist_new_dict();
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        if (plist_t child = toNode(entry.value()))
            plist_dict_set_item(node, entry.key().toUtf8().constData(), child);
    }
    return node;
}

/// Null for a variant that no property list can hold.
plist_t toNode(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return plist_new_uint(value.toULongLong());
    case QMetaType::Double:
        return plist_new_real(value.toDouble());
    case QMetaType::QString:
        return plist_new_string(value.toString().toUtf8().constData());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return plist_new_data(bytes.constData(), static_cast<std::uint64_t>(bytes.size()));
    }
    case QMetaType::QVariantMap:
        return toNode(value.toMap());
    case QMetaType::QVariantList:
    case QMetaType::QStringList: {
        plist_t node = plist_new_array();
        for (const QVariant& each : value.toList()) {
            if (plist_t child = toNode(each))
                plist_array_append_item(node, child);
        }
        return node;
    }
    default:
        return nullptr;
    }
}

QVariant toVariant(plist_t node);

QVariantMap toMap(plist_t node) {
    QVariantMap map;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const Memory<void> held(position);
    for (;;) {
        char* key = nullptr;
        plist_t child = nullptr;
        plist_dict_next_item(node, position, &key, &child);
        const Memory<char> heldKey(key);
        if (child == nullptr)
            return map;
        map.insert(QString::fromUtf8(key), toVariant(child));
    }
}

QVariant toVariant(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT: {
        std::uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return QVariant::fromValue(static_cast<quint64>(value));
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING: {
        std::uint64_t length = 0;
        const char* text = plist_get_string_ptr(node, &length);
        return QString::fromUtf8(text, static_cast<qsizetype>(length));
    }
    case PLIST_DATA: {
        std::uint64_t length = 0;
        const char* bytes = plist_get_data_ptr(node, &length);
        return QByteArray(bytes, static_cast<qsizetype>(length));
    }
    case PLIST_DICT:
        return toMap(node);
    case PLIST_ARRAY: {
        QVariantList list;
        for (std::uint32_t i = 0; i < plist_array_get_size(node); ++i)
            list.append(toVariant(plist_array_get_item(node, i)));
        return list;
    }
    default:
        return {};
    }
}

/// How deep the elements of an XML list are nested, at most; what closes too much counts as deep.
int depthOf(std::string_view xml) {
    int depth = 0;
    int most = 0;
    for (std::size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
        const std::string_view tag = xml.substr(at + 1);
        const std::size_t end = tag.find('>');
        const bool isWhole = end != std::string_view::npos && end > 0 && tag[end - 1] == '/';
        if (!isWhole && (tag.starts_with("dict") || tag.starts_with("array")))
            most = std::max(most, ++depth);
        else if (tag.starts_with("/dict") || tag.starts_with("/array"))
            depth = std::max(0, depth - 1);
    }
    return most;
}

} // namespace

Bytes PlistCodec::encode(const QVariantMap& dictionary, PlistForm form) {
    const Node node(toNode(dictionary));
    char* text = nullptr;
    std::uint32_t length = 0;
    if (form == PlistForm::xml)
        plist_to_xml(node.get(), &text, &length);
    else
        plist_to_bin(node.get(), &text, &length);
    const Memory<char> held(text);
    const auto* bytes = reinterpret_cast<const std::byte*>(text);
    return {bytes, bytes + length};
}

std::optional<QVariantMap> PlistCodec::decode(ByteView bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const bool binary = text.starts_with("bplist");
    if (bytes.size() > (binary ? longestBinary : longest) || (!binary && depthOf(text) > deepest))
        return std::nullopt;
    plist_t parsed = nullptr;
    const auto length = static_cast<std::uint32_t>(text.size());
    if (binary)
        plist_from_bin(text.data(), length, &parsed);
    else
        plist_from_xml(text.data(), length, &parsed);
    const Node node(parsed);
    if (!node || plist_get_node_type(node.get()) != PLIST_DICT)
        return std::nullopt;
    return toMap(node.get());
}

} // namespace tessary
