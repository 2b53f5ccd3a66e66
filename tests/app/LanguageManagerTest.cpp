#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tessary;

namespace {

const QString key = LanguageManager::userDefaultsKey;

/// A manager on settings that hold this value, on a system that prefers French.
struct Started {
    explicit Started(const QJsonValue& stored,
                     const QStringList& preferred = {QStringLiteral("fr-CA")})
        : manager((store->setValue(key, stored), store), preferred) {}
    std::shared_ptr<UserDefaults> store = std::make_shared<MemoryUserDefaults>();
    LanguageManager manager;
};

TEST(AppLanguage, systemLanguageIsDerivedFromTheFirstPreference) {
    const std::pair<QStringList, AppLanguage> rows[] = {
        {{}, AppLanguage::en},
        {{QStringLiteral("ko-KR")}, AppLanguage::ko},
        {{QStringLiteral("JA")}, AppLanguage::ja},
        {{QStringLiteral("zh-TW")}, AppLanguage::zhHant},
        {{QStringLiteral("zh-Hant-MO")}, AppLanguage::zhHant},
        {{QStringLiteral("zh-CN")}, AppLanguage::zhHans},
        {{QStringLiteral("en-HK")}, AppLanguage::zhHant},
        {{QStringLiteral("de-AT"), QStringLiteral("ja")}, AppLanguage::de},
        {{QStringLiteral("pt-PT")}, AppLanguage::ptBR},
        {{QStringLiteral("es-419")}, AppLanguage::es},
        {{QStringLiteral("it")}, AppLanguage::it},
        {{QStringLiteral("nl"), QStringLiteral("de")}, AppLanguage::en},
    };
    for (const auto& [preferred, language] : rows)
        EXPECT_EQ(systemLanguage(preferred), language)
            << preferred.join(QLatin1Char(' ')).toStdString();
}

TEST(AppLanguage, codesAreReadBackExactly) {
    for (const AppLanguage language : allAppLanguages)
        EXPECT_EQ(appLanguageFromRawValue(rawValue(language)), language);
    for (const char* unknown : {"xx", "", "DE", "pt", "zh-hans"})
        EXPECT_EQ(appLanguageFromRawValue(QString::fromLatin1(unknown)), std::nullopt) << unknown;
    EXPECT_EQ(displayName(AppLanguage::zhHant), QStringLiteral("繁體中文"));
}

TEST(LanguageManager, storedSettingsOfAnyShapeStartWithTheSystemsLanguage) {
    const QJsonValue rows[] = {QJsonValue::Undefined,
                               QJsonValue::Null,
                               QStringLiteral("xx"),
                               7,
                               QJsonArray{QStringLiteral("de")},
                               QJsonObject{{QStringLiteral("de"), 1}}};
    for (const QJsonValue& stored : rows) {
        const Started start(stored);
        EXPECT_EQ(start.manager.selectedLanguage(), AppLanguage::system);
        EXPECT_EQ(start.manager.effectiveLanguage(), AppLanguage::fr);
    }
    EXPECT_EQ(Started(QStringLiteral("ja")).manager.selectedLanguage(), AppLanguage::ja);
}

TEST(LanguageManager, aChoiceIsStoredToldAndSetsTheFormatOfNumbers) {
    Started start(QJsonValue::Undefined);
    const QSignalSpy changed(&start.manager, &LanguageManager::languageChanged);
    start.manager.setSelectedLanguage(AppLanguage::de);
    EXPECT_EQ(start.store->value(key), QStringLiteral("de"));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(QLocale().toString(1234.5, 'f', 1), QStringLiteral("1.234,5"));
    start.manager.setSelectedLanguage(AppLanguage::en);
    EXPECT_EQ(QLocale().toString(1234.5, 'f', 1), QStringLiteral("1,234.5"));

    // From French by choice to French by the system no text changes.
    start.manager.setSelectedLanguage(AppLanguage::fr);
    const auto before = changed.size();
    start.manager.setSelectedLanguage(AppLanguage::system);
    EXPECT_EQ(changed.size(), before);
    EXPECT_EQ(start.store->value(key), QStringLiteral("system"));
}

TEST(LanguageManager, localesNameTheRightScript) {
    Started start(QStringLiteral("zh-Hant"));
    EXPECT_EQ(start.manager.currentLocale().script(), QLocale::TraditionalHanScript);
    start.manager.setSelectedLanguage(AppLanguage::zhHans);
    EXPECT_EQ(start.manager.currentLocale().script(), QLocale::SimplifiedHanScript);
    start.manager.setSelectedLanguage(AppLanguage::ptBR);
    EXPECT_EQ(start.manager.currentLocale().territory(), QLocale::Brazil);
}

TEST(LanguageManager, unknownKeysStandForThemselves) {
    const Started start(QStringLiteral("de"));
    EXPECT_EQ(start.manager.localized(QStringLiteral("browser.keep")), QStringLiteral("Behalten"));
    EXPECT_EQ(start.manager.localized(QStringLiteral("No such key")),
              QStringLiteral("No such key"));
}

TEST(LanguageManager, textsFollowTheLanguageForAsLongAsTheirOwnerLives) {
    LanguageManager& shared = LanguageManager::shared();
    const auto store = std::make_shared<MemoryUserDefaults>();
    store->setValue(key, QStringLiteral("en"));
    shared.useStore(store);
    QString text;
    auto owner = std::make_unique<QObject>();
    keepTranslated(owner.get(), [&] { text = tr("browser.retry"); });
    EXPECT_EQ(text, QStringLiteral("Retry"));
    shared.setSelectedLanguage(AppLanguage::it);
    EXPECT_EQ(text, QStringLiteral("Riprova"));
    owner.reset();
    shared.setSelectedLanguage(AppLanguage::ja);
    EXPECT_EQ(text, QStringLiteral("Riprova"));
}

TEST(TranslatedMessage, namesAndDetailsStayAndTheWordsAroundThemChange) {
    LanguageManager::shared().setSelectedLanguage(AppLanguage::de);
    const std::pair<const char*, const char*> rows[] = {
        {"The phone is busy.", "Das Telefon ist beschäftigt."},
        {"The phone is busy. (MTP error 0x2019)",
         "Das Telefon ist beschäftigt. (MTP error 0x2019)"},
        {"File I/O error: Cannot read /a: b: no such file",
         "Dateifehler: /a kann nicht gelesen werden: b: no such file"},
        {"Failed to delete Folder: The phone protects this file. (0x200D)",
         "Folder konnte nicht gelöscht werden: Das Telefon schützt diese Datei. (0x200D)"},
        {"gvfsd-mtp (process 12) is using the phone.",
         "gvfsd-mtp (process 12) benutzt das Telefon."},
        {"File I/O error: \"%2 %1\nx\" is already on the phone.",
         "Dateifehler: „%2 %1\nx“ ist schon auf dem Telefon."},
        {"Something else (12)", "Something else (12)"},
        {"", ""},
    };
    for (const auto& [message, shown] : rows)
        EXPECT_EQ(trMessage(QString::fromUtf8(message)), QString::fromUtf8(shown));
}

} // namespace
