#include "app/InterfaceTexts.h"

#include "app/LanguageManager.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include <array>

// Outside of all namespaces: the macro declares a function.
static void takeResources() {
    Q_INIT_RESOURCE(translations);
}

namespace tessary {

namespace {

/// The words of standard buttons stand among our own: not every machine has Qt's. Qt asks for them
/// under this context.
[[maybe_unused]] constexpr std::array standardButtons{
    QT_TRANSLATE_NOOP("QPlatformTheme", "OK"),    QT_TRANSLATE_NOOP("QPlatformTheme", "Cancel"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Close"), QT_TRANSLATE_NOOP("QPlatformTheme", "&Yes"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "&No"),
};

void put(QTranslator& translator, const QString& name, const QString& folder) {
    QCoreApplication::removeTranslator(&translator);
    if (translator.load(name, folder))
        QCoreApplication::installTranslator(&translator);
}

} // namespace

InterfaceTexts::InterfaceTexts() {
    takeResources();
    follow();
    connect(&LanguageManager::shared(), &LanguageManager::textsNeeded, this,
            &InterfaceTexts::follow);
}

void InterfaceTexts::follow() {
    const AppLanguage language = LanguageManager::shared().effectiveLanguage();
    // The one that is put in last is asked first: our words for standard buttons win.
    // Qt's files have the names of locales.
    put(qt_, QStringLiteral("qtbase_") + QLocale(rawValue(language)).name(),
        QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    put(own_, QStringLiteral("tessary_") + rawValue(language), QStringLiteral(":/i18n"));
}

} // namespace tessary
