#include "app/QtTexts.h"

#include "app/LanguageManager.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace tessary {

namespace {

/// The name that Qt's files give a language.
QString qtCode(AppLanguage language) {
    switch (language) {
    case AppLanguage::ptBR:
        return QStringLiteral("pt_BR");
    case AppLanguage::zhHans:
        return QStringLiteral("zh_CN");
    case AppLanguage::zhHant:
        return QStringLiteral("zh_TW");
    default:
        return rawValue(language);
    }
}

} // namespace

QtTexts::QtTexts() {
    keepTranslated(this, [this] { follow(); });
}

void QtTexts::follow() {
    QCoreApplication::removeTranslator(&translator_);
    const QString code = qtCode(LanguageManager::shared().effectiveLanguage());
    if (translator_.load(QStringLiteral("qtbase_") + code,
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator_);
}

} // namespace tessary
