#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

const QString key = LanguageManager::userDefaultsKey;

/// A manager on settings that hold this value, on a system that prefers French.
struct Started {
    explicit Started(const QJsonValue& stored, const QStringList& preferred = {u"fr-CA"_s})
        : manager((store->setValue(key, stored), store), preferred) {}
    std::shared_ptr<UserDefaults> store = std::make_shared<MemoryUserDefaults>();
    LanguageManager manager;
};

TEST(AppLanguage, systemLanguageIsDerivedFromTheFirstPreference) {
    const std::pair<QStringList, AppLanguage> rows[] = {
        {{}, AppLanguage::en},
        {{u"JA"_s}, AppLanguage::ja},
        {{u"zh-TW"_s}, AppLanguage::zhHant},
        {{u"zh-Hant-MO"_s}, AppLanguage::zhHant},
        {{u"en-HK"_s}, AppLanguage::zhHant},
        {{u"pt-PT"_s}, AppLanguage::ptBR},
        {{u"nl"_s, u"de"_s}, AppLanguage::en},
    };
    for (const auto& [preferred, language] : rows)
        EXPECT_EQ(systemLanguage(preferred), language) << preferred.join(u' ').toStdString();
}

TEST(LanguageManager, storedSettingsOfAnyShapeStartWithTheSystemsLanguage) {
    const QJsonValue rows[] = {QJsonValue::Undefined, QJsonValue::Null,         u"xx"_s, 7,
                               QJsonArray{u"de"_s},   QJsonObject{{u"de"_s, 1}}};
    for (const QJsonValue& stored : rows) {
        const Started start(stored);
        EXPECT_EQ(start.manager.selectedLanguage(), AppLanguage::system);
        EXPECT_EQ(start.manager.effectiveLanguage(), AppLanguage::fr);
    }
    EXPECT_EQ(Started(u"ja"_s).manager.selectedLanguage(), AppLanguage::ja);
}

TEST(LanguageManager, aChoiceIsStoredToldAndSetsTheFormatOfNumbers) {
    Started start(QJsonValue::Undefined);
    const QSignalSpy changed(&start.manager, &LanguageManager::languageChanged);
    start.manager.setSelectedLanguage(AppLanguage::de);
    EXPECT_EQ(start.store->value(key), u"de"_s);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(QLocale().toString(1234.5, 'f', 1), u"1.234,5"_s);
    start.manager.setSelectedLanguage(AppLanguage::en);
    EXPECT_EQ(QLocale().toString(1234.5, 'f', 1), u"1,234.5"_s);

    // From French by choice to French by the system no text changes.
    start.manager.setSelectedLanguage(AppLanguage::fr);
    const auto before = changed.size();
    start.manager.setSelectedLanguage(AppLanguage::system);
    EXPECT_EQ(changed.size(), before);
    EXPECT_EQ(start.store->value(key), u"system"_s);
}

TEST(LanguageManager, textsFollowTheLanguageForAsLongAsTheirOwnerLives) {
    LanguageManager& shared = LanguageManager::shared();
    const auto store = std::make_shared<MemoryUserDefaults>();
    store->setValue(key, u"en"_s);
    shared.useStore(store);
    QString text;
    auto owner = std::make_unique<QObject>();
    keepTranslated(owner.get(), [&] { text = tr("browser.retry"); });
    EXPECT_EQ(text, u"Retry"_s);
    shared.setSelectedLanguage(AppLanguage::it);
    EXPECT_EQ(text, u"Riprova"_s);
    owner.reset();
    shared.setSelectedLanguage(AppLanguage::ja);
    EXPECT_EQ(text, u"Riprova"_s);
}

} // namespace
