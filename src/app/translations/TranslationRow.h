#pragma once

namespace tessary::translations {

/// One line of a table: a key and its text, both UTF-8. A null text is the key itself.
struct TranslationRow {
    const char* key;
    const char* text;
};

} // namespace tessary::translations
