#pragma once

#include <QString>

#include <array>
#include <optional>

namespace tessary {

/// The languages of the interface; `system` follows the desktop's.
enum class AppLanguage { system, en, de, es, fr, it, ptBR, ja, ko, zhHans, zhHant };

inline constexpr std::array allAppLanguages{
    AppLanguage::system, AppLanguage::en,     AppLanguage::de,    AppLanguage::es,
    AppLanguage::fr,     AppLanguage::it,     AppLanguage::ptBR,  AppLanguage::ja,
    AppLanguage::ko,     AppLanguage::zhHans, AppLanguage::zhHant};

/// The language's code ("pt-BR"), by which the choice is stored.
[[nodiscard]] QString rawValue(AppLanguage language);
/// No value for a code that is not in the table.
[[nodiscard]] std::optional<AppLanguage> appLanguageFromRawValue(const QString& code);
/// The language's own name for itself, which is never translated.
[[nodiscard]] QString displayName(AppLanguage language);

/// What `system` comes to: by the first of the user's preferred languages ("zh-TW"), English when
/// there is none or none of ours fits. A code that contains "hant", "tw" or "hk" means Traditional
/// Chinese whatever its language.
[[nodiscard]] AppLanguage systemLanguage(const QStringList& preferredLanguages);

} // namespace tessary
