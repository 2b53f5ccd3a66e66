#include "app/InterfaceTexts.h"
#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "support/Application.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

class TranslatedMessageTest : public Application, public testing::Test {
protected:
    const InterfaceTexts texts_;
};

/// In German, where the order of words shows whether a message was taken apart rightly.
TEST_F(TranslatedMessageTest, messagesWithNamesAreTakenApartAndPutTogetherAgain) {
    LanguageManager::shared().setSelectedLanguage(AppLanguage::de);
    const std::pair<const char*, const char*> rows[] = {
        {"Error: Cannot read the folder /a: b: no such file",
         "Fehler: Der Ordner /a kann nicht gelesen werden: b: no such file"},
        {"Error: The phone did not delete /sdcard/x. The phone does not allow this.",
         "Fehler: Das Telefon hat /sdcard/x nicht gelöscht. Das Telefon erlaubt das nicht."},
        {"File I/O error: \"%2 %1\nx\" is already on the phone.",
         "Dateifehler: „%2 %1\nx“ ist schon auf dem Telefon."},
        {"", ""},
        {"in Old: its name is not valid text", "in „Old“: der Name ist kein gültiger Text"},
        {"2 uploaded, 1 kept twice, 1 skipped",
         "2 hochgeladen, 1 doppelt behalten, 1 übersprungen"},
        {"2 of a kind, 1 deleted", "2 of a kind, 1 deleted"},
        {"4 of 9 files were not copied: a (1).txt (not a regular file), b (odd) and 2 more",
         "4 von 9 Dateien wurden nicht kopiert: a (1).txt (keine gewöhnliche Datei), b (odd) und "
         "2 weitere"},
    };
    for (const auto& [message, expected] : rows)
        EXPECT_EQ(trMessage(QString::fromUtf8(message)), QString::fromUtf8(expected));
    LanguageManager::shared().setSelectedLanguage(AppLanguage::system);
}

} // namespace
