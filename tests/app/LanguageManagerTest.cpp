#include "app/LanguageManager.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

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
        {AppLanguage::system, u"zh_TW"_s, u"zh_TW"_s},
        {AppLanguage::system, u"ja_JP"_s, u"ja_JP"_s},
        {AppLanguage::system, u"en_HK"_s, u"zh_TW"_s},
        {AppLanguage::system, u"C"_s, u"en_US"_s},
        {AppLanguage::system, u"nl_NL"_s, u"en_US"_s},
    };
    for (const auto& [choice, systemLocale, holds] : rows) {
        LanguageManager manager(std::make_shared<MemorySettingsStore>(), QStringList{systemLocale},
                                systemLocale);
        manager.setSelectedLanguage(choice);
        EXPECT_EQ(manager.currentLocale().name(), holds) << systemLocale.toStdString();
        EXPECT_EQ(QLocale().name(), holds) << systemLocale.toStdString();
    }
}

} // namespace
