#include "app/LanguageManager.h"
#include "app/InterfaceTexts.h"
#include "support/Application.h"
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

TEST(LanguageManager, aRegionOfTheLanguageWritesDatesItsOwnWay) {
    const std::tuple<AppLanguage, QString, QString> rows[] = {
        // choice, the system's locale, what holds
        {AppLanguage::system, u"en_GB"_s, u"en_GB"_s},
        {AppLanguage::en, u"en_GB"_s, u"en_GB"_s},
        {AppLanguage::de, u"en_GB"_s, u"de_DE"_s},
        {AppLanguage::de, u"de_CH"_s, u"de_CH"_s},
        {AppLanguage::system, u"pt_PT"_s, u"pt_PT"_s},
        {AppLanguage::zhHant, u"zh_CN"_s, u"zh_TW"_s},
        {AppLanguage::system, u"zh_HK"_s, u"zh_HK"_s},
        {AppLanguage::system, u"en_HK"_s, u"zh_TW"_s},
        {AppLanguage::system, u"C"_s, u"en_US"_s},
        {AppLanguage::system, u"nl_NL"_s, u"en_US"_s},
    };
    for (const auto& [choice, systemLocale, holds] : rows) {
        LanguageManager manager(std::make_shared<MemoryUserDefaults>(), QStringList{systemLocale},
                                systemLocale);
        manager.setSelectedLanguage(choice);
        EXPECT_EQ(manager.currentLocale().name(), holds) << systemLocale.toStdString();
        EXPECT_EQ(QLocale().name(), holds) << systemLocale.toStdString();
    }
}

class InterfaceTextsTest : public Application, public testing::Test {
protected:
    InterfaceTextsTest() {
        LanguageManager::shared().setSelectedLanguage(AppLanguage::en);
    }
    const InterfaceTexts texts_;
};

TEST_F(InterfaceTextsTest, textsFollowTheLanguageForAsLongAsTheirOwnerLives) {
    LanguageManager& shared = LanguageManager::shared();
    QString text;
    auto owner = std::make_unique<QObject>();
    keepTranslated(owner.get(),
                   [&] { text = QCoreApplication::translate("tessary::FolderNotice", "Retry"); });
    EXPECT_EQ(text, u"Retry"_s);
    shared.setSelectedLanguage(AppLanguage::it);
    EXPECT_EQ(text, u"Riprova"_s);
    owner.reset();
    shared.setSelectedLanguage(AppLanguage::ja);
    EXPECT_EQ(text, u"Riprova"_s);
}

TEST_F(InterfaceTextsTest, numbersTakeTheFormsAndTheDigitsOfTheLanguage) {
    const struct {
        AppLanguage language;
        QStringList texts; ///< with 0, 1, 2 and 12,345
    } rows[] = {
        {AppLanguage::en, {u"0 items"_s, u"1 item"_s, u"2 items"_s, u"12,345 items"_s}},
        {AppLanguage::de, {u"0 Objekte"_s, u"1 Objekt"_s, u"2 Objekte"_s, u"12.345 Objekte"_s}},
        {AppLanguage::fr,
         {u"0 élément"_s, u"1 élément"_s, u"2 éléments"_s, u"12\u202f345 éléments"_s}},
        {AppLanguage::ja, {u"0 項目"_s, u"1 項目"_s, u"2 項目"_s, u"12,345 項目"_s}},
    };
    for (const auto& [language, texts] : rows) {
        LanguageManager::shared().setSelectedLanguage(language);
        QStringList made;
        for (const int number : {0, 1, 2, 12'345})
            made.append(
                QCoreApplication::translate("tessary::BrowserView", "%Ln items", nullptr, number));
        EXPECT_EQ(made, texts);
    }
}

/// Whether the machine has Qt's own texts or not.
TEST_F(InterfaceTextsTest, standardButtonsAreInTheLanguageOfTheInterface) {
    QSet<QString> words;
    for (const AppLanguage language : allAppLanguages) {
        LanguageManager::shared().setSelectedLanguage(language);
        words.insert(QCoreApplication::translate("QPlatformTheme", "Cancel"));
    }
    EXPECT_EQ(words.size(), 8); // one word in Spanish and Portuguese, one in both Chinese scripts
}

} // namespace
