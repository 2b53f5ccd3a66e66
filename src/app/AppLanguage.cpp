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

/// What tells a language by its code, in the order in which it is tried.
struct Mark {
    AppLanguage language;
    QLatin1StringView text;
    bool isAnywhere = false; ///< else it begins the code
};

constexpr std::array marks{
    Mark{AppLanguage::ko, QLatin1StringView("ko")},
    Mark{AppLanguage::ja, QLatin1StringView("ja")},
    Mark{AppLanguage::zhHant, QLatin1StringView("hant"), true},
    Mark{AppLanguage::zhHant, QLatin1StringView("tw"), true},
    Mark{AppLanguage::zhHant, QLatin1StringView("hk"), true},
    Mark{AppLanguage::zhHans, QLatin1StringView("zh")},
    Mark{AppLanguage::de, QLatin1StringView("de")},
    Mark{AppLanguage::fr, QLatin1StringView("fr")},
    Mark{AppLanguage::es, QLatin1StringView("es")},
    Mark{AppLanguage::ptBR, QLatin1StringView("pt")},
    Mark{AppLanguage::it, QLatin1StringView("it")},
};

} // namespace

QString rawValue(AppLanguage language) {
    return std::ranges::find(languages, language, &Row::language)->code;
}

std::optional<AppLanguage> appLanguageFromRawValue(const QString& code) {
    const auto* row = std::ranges::find(languages, code, &Row::code);
    return row == languages.end() ? std::nullopt : std::optional(row->language);
}

QString displayName(AppLanguage language) {
    return QString::fromUtf8(std::ranges::find(languages, language, &Row::language)->name);
}

AppLanguage systemLanguage(const QStringList& preferredLanguages) {
    const QString code = preferredLanguages.value(0).toLower();
    const auto* mark = std::ranges::find_if(marks, [&code](const Mark& each) {
        return each.isAnywhere ? code.contains(each.text) : code.startsWith(each.text);
    });
    return mark == marks.end() ? AppLanguage::en : mark->language;
}

} // namespace tessary
