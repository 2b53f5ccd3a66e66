#include "ios/PlistValues.h"

#include "ios/Handles.h"

namespace tessary {

namespace {

plist_t find(plist_t dictionary, const char* key) {
    if (dictionary == nullptr || plist_get_node_type(dictionary) != PLIST_DICT)
        return nullptr;
    return plist_dict_get_item(dictionary, key);
}

plist_t find(plist_t dictionary, const char* key, plist_type type) {
    plist_t node = find(dictionary, key);
    return node != nullptr && plist_get_node_type(node) == type ? node : nullptr;
}

} // namespace

std::optional<QString> textAt(plist_t dictionary, const char* key) {
    plist_t node = find(dictionary, key, PLIST_STRING);
    if (node == nullptr)
        return std::nullopt;
    char* text = nullptr;
    plist_get_string_val(node, &text);
    const LibraryText owner(text);
    return text == nullptr ? std::nullopt : std::optional(QString::fromUtf8(text));
}

std::optional<std::uint64_t> unsignedAt(plist_t dictionary, const char* key) {
    plist_t node = find(dictionary, key, PLIST_UINT);
    if (node == nullptr)
        return std::nullopt;
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    return value;
}

std::optional<bool> booleanAt(plist_t dictionary, const char* key) {
    plist_t node = find(dictionary, key, PLIST_BOOLEAN);
    if (node == nullptr)
        return std::nullopt;
    std::uint8_t value = 0;
    plist_get_bool_val(node, &value);
    return value != 0;
}

bool hasKey(plist_t dictionary, const char* key) {
    return find(dictionary, key) != nullptr;
}

} // namespace tessary
