#include "app/Translations.h"

#include "app/LanguageManager.h"
#include "app/translations/Tables.h"

#include <span>

namespace tessary {

namespace {

using translations::TranslationRow;

Translations::Texts index(std::span<const TranslationRow> rows) {
    Translations::Texts texts;
    texts.reserve(static_cast<qsizetype>(rows.size()));
    for (const TranslationRow& row : rows)
        texts.insert(QString::fromUtf8(row.key),
                     QString::fromUtf8(row.text != nullptr ? row.text : row.key));
    return texts;
}

} // namespace

const std::map<AppLanguage, Translations::Texts>& Translations::dictionary() {
    static const std::map<AppLanguage, Texts> texts{
        {AppLanguage::en, index(translations::english)},
        {AppLanguage::de, index(translations::german)},
        {AppLanguage::es, index(translations::spanish)},
        {AppLanguage::fr, index(translations::french)},
        {AppLanguage::it, index(translations::italian)},
        {AppLanguage::ptBR, index(translations::brazilianPortuguese)},
        {AppLanguage::ja, index(translations::japanese)},
        {AppLanguage::ko, index(translations::korean)},
        {AppLanguage::zhHans, index(translations::simplifiedChinese)},
        {AppLanguage::zhHant, index(translations::traditionalChinese)},
    };
    return texts;
}

QString tr(const QString& key) {
    return LanguageManager::shared().localized(key);
}

QString tr(const char* key) {
    return tr(QString::fromUtf8(key));
}

} // namespace tessary
