#include "app/LanguageManager.h"

#include "app/Translations.h"

namespace tessary {

LanguageManager& LanguageManager::shared() {
    static LanguageManager manager;
    return manager;
}

LanguageManager::LanguageManager(std::shared_ptr<UserDefaults> store,
                                 QStringList preferredLanguages)
    : preferredLanguages_(std::move(preferredLanguages)) {
    useStore(std::move(store));
    QLocale::setDefault(currentLocale());
}

void LanguageManager::useStore(std::shared_ptr<UserDefaults> store) {
    store_ = std::move(store);
    const QString code = store_->value(userDefaultsKey).toString();
    select(appLanguageFromRawValue(code).value_or(AppLanguage::system));
}

void LanguageManager::setSelectedLanguage(AppLanguage language) {
    store_->setValue(userDefaultsKey, rawValue(language));
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
    Q_EMIT languageChanged();
}

AppLanguage LanguageManager::effectiveLanguage() const {
    return selected_ == AppLanguage::system ? systemLanguage(preferredLanguages_) : selected_;
}

QLocale LanguageManager::currentLocale() const {
    return QLocale(rawValue(effectiveLanguage()));
}

QString LanguageManager::localized(const QString& key) const {
    const auto& dictionary = Translations::dictionary();
    for (const AppLanguage language : {effectiveLanguage(), AppLanguage::en}) {
        const Translations::Texts& texts = dictionary.at(language);
        if (const auto found = texts.constFind(key); found != texts.cend())
            return *found;
    }
    return key;
}

} // namespace tessary
