#pragma once

#include <span>

namespace tessary::translations {

/// One line of a table: a key and its text, both UTF-8. A null text is the key itself.
struct TranslationRow {
    const char* key;
    const char* text;
};

// Every language has the keys of the English tables, in their order.

/// What the window says of itself.
namespace window {
extern const std::span<const TranslationRow> english;
extern const std::span<const TranslationRow> german;
extern const std::span<const TranslationRow> spanish;
extern const std::span<const TranslationRow> french;
extern const std::span<const TranslationRow> italian;
extern const std::span<const TranslationRow> brazilianPortuguese;
extern const std::span<const TranslationRow> japanese;
extern const std::span<const TranslationRow> korean;
extern const std::span<const TranslationRow> simplifiedChinese;
extern const std::span<const TranslationRow> traditionalChinese;
} // namespace window

/// What the layers below report, some with places for names.
namespace messages {
extern const std::span<const TranslationRow> english;
extern const std::span<const TranslationRow> german;
extern const std::span<const TranslationRow> spanish;
extern const std::span<const TranslationRow> french;
extern const std::span<const TranslationRow> italian;
extern const std::span<const TranslationRow> brazilianPortuguese;
extern const std::span<const TranslationRow> japanese;
extern const std::span<const TranslationRow> korean;
extern const std::span<const TranslationRow> simplifiedChinese;
extern const std::span<const TranslationRow> traditionalChinese;
} // namespace messages

} // namespace tessary::translations
