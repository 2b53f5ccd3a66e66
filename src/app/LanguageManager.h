#pragma once

#include "app/AppLanguage.h"
#include "platform/settings/MemorySettingsStore.h"

#include <QLocale>
#include <QObject>
#include <QStringList>

#include <memory>

namespace tessary {

/// The language of the interface: the user's choice, and what it comes to. Setting it also sets
/// QLocale's default, by which numbers, dates and byte counts are written. Lives on the main
/// thread.
class LanguageManager : public QObject {
    Q_OBJECT

public:
    static constexpr QLatin1StringView settingsKey{"Tessary_AppLanguage"};

    /// The one that the interface follows. Until the application gives it the user's settings it
    /// follows the system and keeps nothing.
    [[nodiscard]] static LanguageManager& shared();

    /// Starts with the stored choice; with `system` when there is none or it makes no sense.
    explicit LanguageManager(
        std::shared_ptr<SettingsStore> store = std::make_shared<MemorySettingsStore>(),
        QStringList preferredLanguages = QLocale::system().uiLanguages(),
        const QString& systemLocale = QLocale::system().name());

    /// Takes the choice that is kept there, and keeps it there from now on.
    void useStore(std::shared_ptr<SettingsStore> store);

    [[nodiscard]] AppLanguage selectedLanguage() const {
        return selected_;
    }
    /// Stores the choice at once.
    void setSelectedLanguage(AppLanguage language);

    /// The language that texts are in: the selected one, or what `system` comes to.
    [[nodiscard]] AppLanguage effectiveLanguage() const;
    /// The system's own ("de_CH") where it is of that language, else the usual one.
    [[nodiscard]] QLocale currentLocale() const;

Q_SIGNALS:
    void selectedLanguageChanged();
    /// Right before languageChanged(): translators are exchanged now.
    void textsNeeded();
    /// Texts are in another language now: whoever shows some sets them anew.
    void languageChanged();

private:
    void select(AppLanguage language);

    std::shared_ptr<SettingsStore> store_;
    const QStringList preferredLanguages_;
    const QLocale systemLocale_;
    AppLanguage selected_ = AppLanguage::system;
};

/// Calls `setTexts` now and again whenever the interface's language changes, for as long as
/// `context` lives: keepTranslated(label, [label] { label->setText(tr("Retry")); }).
template <typename SetTexts>
void keepTranslated(QObject* context, SetTexts setTexts) {
    setTexts();
    QObject::connect(&LanguageManager::shared(), &LanguageManager::languageChanged, context,
                     std::move(setTexts));
}

} // namespace tessary
