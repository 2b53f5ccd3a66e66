#include "app/Translations.h"

#include "app/LanguageManager.h"
#include "app/translations/messages/BrazilianPortuguese.h"
#include "app/translations/messages/English.h"
#include "app/translations/messages/French.h"
#include "app/translations/messages/German.h"
#include "app/translations/messages/Italian.h"
#include "app/translations/messages/Japanese.h"
#include "app/translations/messages/Korean.h"
#include "app/translations/messages/SimplifiedChinese.h"
#include "app/translations/messages/Spanish.h"
#include "app/translations/messages/TraditionalChinese.h"
#include "app/translations/window/BrazilianPortuguese.h"
#include "app/translations/window/English.h"
#include "app/translations/window/French.h"
#include "app/translations/window/German.h"
#include "app/translations/window/Italian.h"
#include "app/translations/window/Japanese.h"
#include "app/translations/window/Korean.h"
#include "app/translations/window/SimplifiedChinese.h"
#include "app/translations/window/Spanish.h"
#include "app/translations/window/TraditionalChinese.h"

#include <span>

namespace tessary {

namespace {

using namespace translations;

Translations::Texts index(std::span<const TranslationRow> window,
                          std::span<const TranslationRow> messages) {
    Translations::Texts texts;
    texts.reserve(static_cast<qsizetype>(window.size() + messages.size()));
    for (const auto rows : {window, messages})
        for (const TranslationRow& row : rows)
            texts.insert(QString::fromUtf8(row.key),
                         QString::fromUtf8(row.text != nullptr ? row.text : row.key));
    return texts;
}

} // namespace

const std::map<AppLanguage, Translations::Texts>& Translations::dictionary() {
    static const std::map<AppLanguage, Texts> texts{
        {AppLanguage::en, index(window::english, messages::english)},
        {AppLanguage::de, index(window::german, messages::german)},
        {AppLanguage::es, index(window::spanish, messages::spanish)},
        {AppLanguage::fr, index(window::french, messages::french)},
        {AppLanguage::it, index(window::italian, messages::italian)},
        {AppLanguage::ptBR, index(window::brazilianPortuguese, messages::brazilianPortuguese)},
        {AppLanguage::ja, index(window::japanese, messages::japanese)},
        {AppLanguage::ko, index(window::korean, messages::korean)},
        {AppLanguage::zhHans, index(window::simplifiedChinese, messages::simplifiedChinese)},
        {AppLanguage::zhHant, index(window::traditionalChinese, messages::traditionalChinese)},
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
