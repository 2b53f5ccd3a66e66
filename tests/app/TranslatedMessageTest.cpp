#include "app/InterfaceTexts.h"
#include "app/LanguageManager.h"
#include "app/Translations.h"
#include "support/Application.h"
#include "support/QtPrinters.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

const QString literalsOnly = QStringLiteral(R"x(((?:\s*"(?:[^"\\]|\\.)*")+))x");

/// The text of adjacent string literals.
QString unquoted(const QString& literals) {
    static const QRegularExpression one(QStringLiteral(R"x("((?:[^"\\]|\\.)*)")x"));
    QString text;
    for (const auto& match : one.globalMatch(literals))
        text += match.captured(1);
    return text.replace(QLatin1StringView("\\\""), QLatin1StringView("\""));
}

/// What a source passes to calls that match `opening`.
QStringList keysAfter(const QString& opening, const QString& source) {
    QStringList keys;
    const QRegularExpression call(opening + literalsOnly);
    for (const auto& match : call.globalMatch(source))
        keys.append(unquoted(match.captured(1)));
    return keys;
}

QString sourceOf(const QString& relative) {
    QFile file(QStringLiteral(TESSARY_SOURCES "/") + relative);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << relative.toStdString();
    return QString::fromUtf8(file.readAll());
}

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

/// What views are handed as it is, by anything below them.
TEST_F(TranslatedMessageTest, messagesOfTheLowerLayersAreKnown) {
    LanguageManager::shared().setSelectedLanguage(AppLanguage::de);
    const QStringList openings{
        QStringLiteral(R"x((?:fileIOError|deviceNotFound)\(\s*QStringLiteral\()x"),
        QStringLiteral(R"x(,\s*QStringLiteral\((?=\s*"(?:an?|the|its?|not|another|folders) ))x")};
    int found = 0;
    for (const char* folder :
         {"base", "phone", "ios", "mtp", "adb", "transfer", "devices", "browser", "sync"}) {
        QDirIterator sources(QStringLiteral(TESSARY_SOURCES "/%1").arg(QLatin1StringView(folder)),
                             {u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (sources.hasNext()) {
            const QString name = sources.next().mid(static_cast<int>(sizeof(TESSARY_SOURCES)));
            for (const QString& opening : openings)
                for (QString text : keysAfter(opening, sourceOf(name))) {
                    text.replace(QRegularExpression(u"%\\d"_s), u"x"_s);
                    if (text.endsWith(u' '))
                        text += u"x: x"_s;
                    EXPECT_NE(trMessage(text), text) << name.toStdString();
                    ++found;
                }
        }
    }
    EXPECT_GT(found, 60);
    LanguageManager::shared().setSelectedLanguage(AppLanguage::system);
}

} // namespace
