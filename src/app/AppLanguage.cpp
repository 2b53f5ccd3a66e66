#include "app/AppLanguage.h"

#include <QStringList>

#include <algorithm>

namespace tessary {

namespace {

struct Row {
    AppLanguage language;
    QLatin1StringView code;
    const char* name; ///< UTF-8
};

constexpr std::array languages{
    Row{AppLanguage::system, QLatin1StringView("system"), "System Default"},
    Row{AppLanguage::en, QLatin1StringView("en"), "English"},
    Row{AppLanguage::de, QLatin1StringView("de"), "Deutsch"},
    Row{AppLanguage::es, QLatin1StringView("es"), "Español"},
    Row{AppLanguage::fr, QLatin1StringView("fr"), "Français"},
    Row{AppLanguage::it, QLatin1StringView("it"), "Italiano"},
    Row{AppLanguage::ptBR, QLatin1StringView("pt-BR"), "Português (Brasil)"},
    Row{AppLanguage::ja, QLatin1StringView("ja"), "日本語"},
    Row{AppLanguage::ko, QLatin1StringView("ko"), "한국어"},
    Row{AppLanguage::zhHans, QLatin1StringView("zh-Hans"), "简体中文"},
    Row{AppLanguage::zhHant, QLatin1StringView("zh-Hant"), "繁體中文"},
};

const Row& rowOf(AppLanguage language) {
    return *std::ranges::find(languages, language, &Row::language);
}

struct PrefixRow {
    QLatin1StringView prefix;
    AppLanguage language;
};

/// In the order in which they are tried, before and after the test for Traditional Chinese.
constexpr std::array firstPrefixes{
    PrefixRow{QLatin1StringView("ko"), AppLanguage::ko},
    PrefixRow{QLatin1StringView("ja"), AppLanguage::ja},
};
constexpr std::array traditionalMarks{QLatin1StringView("hant"), QLatin1StringView("tw"),
                                      QLatin1StringView("hk")};
constexpr std::array laterPrefixes{
    PrefixRow{QLatin1StringView("zh"), AppLanguage::zhHans},
    PrefixRow{QLatin1StringView("de"), AppLanguage::de},
    PrefixRow{QLatin1StringView("fr"), AppLanguage::fr},
    PrefixRow{QLatin1StringView("es"), AppLanguage::es},
    PrefixRow{QLatin1StringView("pt"), AppLanguage::ptBR},
    PrefixRow{QLatin1StringView("it"), AppLanguage::it},
};

} // namespace

QString rawValue(AppLanguage language) {
    return rowOf(language).code;
}

std::optional<AppLanguage> appLanguageFromRawValue(const QString& code) {
    const auto* row = std::ranges::find(languages, code, &Row::code);
    return row == languages.end() ? std::nullopt : std::optional(row->language);
}

QString displayName(AppLanguage language) {
    return QString::fromUtf8(rowOf(language).name);
}

AppLanguage systemLanguage(const QStringList& preferredLanguages) {
    const QString code = preferredLanguages.value(0, QStringLiteral("en")).toLower();
    for (const PrefixRow& row : firstPrefixes)
        if (code.startsWith(row.prefix))
            return row.language;
    for (const QLatin1StringView mark : traditionalMarks)
        if (code.contains(mark))
            return AppLanguage::zhHant;
    for (const PrefixRow& row : laterPrefixes)
        if (code.startsWith(row.prefix))
            return row.language;
    return AppLanguage::en;
}

} // namespace tessary
