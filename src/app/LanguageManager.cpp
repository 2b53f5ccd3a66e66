#include "app/LanguageManager.h"

namespace tessary {

LanguageManager& LanguageManager::shared() {
    static LanguageManager manager;
    return manager;
}

LanguageManager::LanguageManager(std::shared_ptr<SettingsStore> store,
                                 QStringList preferredLanguages, const QString& systemLocale)
    : preferredLanguages_(std::move(preferredLanguages)), systemLocale_(systemLocale) {
    useStore(std::move(store));
    QLocale::setDefault(currentLocale());
}

void LanguageManager::useStore(std::shared_ptr<SettingsStore> store) {
    store_ = std::move(store);
    const QString code = store_->value(settingsKey).toString();
    select(appLanguageFromRawValue(code).value_or(AppLanguage::system));
}

void LanguageManager::setSelectedLanguage(AppLanguage language) {
    store_->setValue(settingsKey, rawValue(language));
    select(language);
}

void LanguageManager::select(AppLanguage language) {
    if (language == selected_)
        return;
    const AppLanguage before = effectiveLanguage();
    selected_ = language;
    Q_EMIT selectedLanguageChanged();
    if (effectiveLanguage() == before)
        return;
    QLocale::setDefault(currentLocale());
    Q_EMIT textsNeeded();
    Q_EMIT languageChanged();
}

AppLanguage LanguageManager::effectiveLanguage() const {
    return selected_ == AppLanguage::system ? systemLanguage(preferredLanguages_) : selected_;
}

QLocale LanguageManager::currentLocale() const {
    const QLocale usual(rawValue(effectiveLanguage()));
    const bool isSystems =
        usual.language() == systemLocale_.language() && usual.script() == systemLocale_.script();
    return isSystems ? systemLocale_ : usual;
}

} // namespace tessary
