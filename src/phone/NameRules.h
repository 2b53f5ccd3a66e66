#pragma once

#include <QString>

#include <functional>

namespace tessary {

/// What a folder does with names: of a phone's storage, or of a disk here.
struct NameRules {
    bool ignoresCase = false;
    bool ignoresUnicodeForm = false; ///< composed and decomposed letters are the same
    bool forbidsFATCharacters =
        false;             ///< \ : * ? " < > | and control characters, and "." or " " last
    int longestUTF16 = 0;  ///< in UTF-16 units; 0: no limit
    int longestUTF8 = 255; ///< in bytes; 0: no limit

    /// Names with the same key are one name there.
    [[nodiscard]] QString key(const QString& name) const;
    /// Whether the folder can hold the name at all. Never for "", ".", "..", or one with "/",
    /// NUL or half a character.
    [[nodiscard]] bool accepts(const QString& name) const;

    bool operator==(const NameRules&) const = default;
};

/// How names are compared on any phone: storages ignore case, and some the Unicode form.
inline constexpr NameRules phoneNames{.ignoresCase = true, .ignoresUnicodeForm = true};

/// "a.txt", "a (2).txt", …: the first that is not too long and whose key `isTaken` does not hold
/// for, shortened before its number where it has to be. But for its length `name` is accepted by
/// the rules.
[[nodiscard]] QString freeNameUnder(const NameRules& rules, const QString& name, bool isFolder,
                                    const std::function<bool(const QString& key)>& isTaken);

} // namespace tessary
