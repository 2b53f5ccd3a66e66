#include "app/Translations.h"
#include "app/LanguageManager.h"
#include "phone/records/DeviceInfo.h"
#include "phone/records/FileCategory.h"
#include "support/QtPrinters.h"
#include "transfer/TransferJob.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
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

/// Key -> where the window takes it from.
QMap<QString, QString> usedKeys() {
    QMap<QString, QString> used;
    const auto add = [&](const QString& where, const QStringList& keys) {
        for (const QString& key : keys)
            if (key.size() > 2 && key != QLatin1StringView("Another program")) // half a message
                used.insert(key, where);
    };
    for (const char* folder : {"app", "views"}) {
        QDirIterator sources(QStringLiteral(TESSARY_SOURCES "/%1").arg(QLatin1StringView(folder)),
                             {u"*.cpp"_s, u"*.h"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (sources.hasNext()) {
            const QString path = sources.next();
            const QString name = path.mid(static_cast<int>(sizeof(TESSARY_SOURCES)));
            add(name, keysAfter(QStringLiteral(R"(\btr(?:Message)?\()"), sourceOf(name)));
        }
    }
    // Words of lower layers that views show.
    const std::pair<const char*, const char*> others[] = {
        {"app/TranslatedMessage.cpp", R"(\n    (?="))"},
        {"transfer/ErrorAdvice.cpp", R"(\w\((?=\s*"[A-Z]))"},
        {"browser/model/FileListModel.cpp", R"(QLatin1StringView\()"},
        {"browser/model/FileBrowserPaths.cpp", R"(QStringLiteral\((?="[A-Z]))"},
        {"browser/model/BrowserLoad.cpp", R"(QStringLiteral\()"},
        {"transfer/TransferEnd.cpp", R"(QStringLiteral\()"},
        {"adb/files/ADBTool.cpp", R"(,\s+View\()"},
        {"adb/files/ADBWireless.cpp", R"((?:return|:) QStringLiteral\()"},
        {"sync/manager/SyncManager.cpp", R"(SyncStatus::syncing\(QStringLiteral\()"},
        {"sync/run/SyncRun.cpp", R"(tell\(QStringLiteral\()"},
        {"sync/run/SyncWorker.cpp", R"(begin\(QStringLiteral\()"},
        {"sync/plan/SyncTreeWalk.cpp", R"(unusable\[path\] = QStringLiteral\()"},
        {"sync/run/DiskSyncFolder.cpp", R"(unusable\[path\] = QStringLiteral\()"},
        {"views/browser/BrowserActions.cpp", R"(&Actions::\w+, "[\w-]+",)"},
        {"views/window/MainMenu.cpp", R"(addMenu\(bar,)"},
        {"views/window/WelcomeView.cpp", R"(translated\()"},
        {"views/window/WelcomeView.cpp", R"(step\(\d,)"},
    };
    for (const auto& [file, opening] : others)
        add(QString::fromLatin1(file),
            keysAfter(QString::fromLatin1(opening), sourceOf(QString::fromLatin1(file))));
    for (const FileCategory category : allFileCategories)
        add(u"FileCategory"_s, {rawValue(category)});
    for (const ProtocolMode mode : {ProtocolMode::afc, ProtocolMode::mtp, ProtocolMode::adbTurbo})
        add(u"ProtocolMode"_s, {rawValue(mode)});
    using Job = TransferJob;
    for (const auto type : {Job::TransferType::upload, Job::TransferType::download})
        add(u"TransferType"_s, {rawValue(type)});
    using Status = Job::TransferStatus;
    for (const auto status :
         {Status::queued, Status::inProgress, Status::completed, Status::failed, Status::cancelled})
        add(u"TransferStatus"_s, {rawValue(status)});
    return used;
}

/// Texts that are the same in English.
const QMap<AppLanguage, QStringList>& sameInEnglish() {
    const auto words = [](const char* list) { return QString::fromUtf8(list).split(u'|'); };
    static const QMap<AppLanguage, QStringList> same{
        {AppLanguage::de, words("Downloads|Apps|Updates|Version|Filter|Name|Video|Audio|OK")},
        {AppLanguage::es, words("General|Audio|%1 bytes")},
        {AppLanguage::fr, words("Documents|Apps|Version|Image|Audio|Document|Archive|OK")},
        {AppLanguage::it, words("File|Video|Audio|OK")},
        {AppLanguage::ptBR, words("Downloads|Apps|1 item|OK|%1 bytes")},
        {AppLanguage::ja, words("OK")},
        {AppLanguage::ko, {}},
        {AppLanguage::zhHans, {}},
        {AppLanguage::zhHant, {}},
    };
    return same;
}

QStringList holes(const QString& text) {
    static const QRegularExpression hole(u"%\\d"_s);
    QStringList found;
    for (const auto& match : hole.globalMatch(text))
        found.append(match.captured());
    found.sort();
    return found;
}

std::string at(AppLanguage language, const QString& key) {
    return (rawValue(language) + u": "_s + key).toStdString();
}

TEST(Translations, everyKeyThatTheWindowUsesIsInTheEnglishTable) {
    const auto& english = Translations::dictionary().at(AppLanguage::en);
    const auto used = usedKeys();
    EXPECT_GT(used.size(), 120);
    for (auto key = used.cbegin(); key != used.cend(); ++key)
        EXPECT_TRUE(english.contains(key.key()))
            << "add to src/app/translations/*/*.h: \"" << key.key().toStdString() << "\" of "
            << key.value().toStdString();
}

TEST(Translations, everyLanguageHasTheKeysOfEnglishAndNoOthers) {
    const auto& dictionary = Translations::dictionary();
    EXPECT_EQ(dictionary.size(), allAppLanguages.size() - 1);
    const auto keysOf = [&](AppLanguage language) {
        const QStringList keys = dictionary.at(language).keys();
        return QSet<QString>(keys.begin(), keys.end());
    };
    const QSet<QString> english = keysOf(AppLanguage::en);
    for (const auto& [language, texts] : dictionary) {
        for (const QString& missing : english - keysOf(language))
            ADD_FAILURE() << "missing in " << at(language, missing);
        for (const QString& stray : keysOf(language) - english)
            ADD_FAILURE() << "not in the English table: " << at(language, stray);
    }
}

TEST(Translations, noTextIsLeftInEnglish) {
    const auto& dictionary = Translations::dictionary();
    const auto& english = dictionary.at(AppLanguage::en);
    for (auto same = sameInEnglish().cbegin(); same != sameInEnglish().cend(); ++same) {
        const auto& texts = dictionary.at(same.key());
        for (auto text = texts.cbegin(); text != texts.cend(); ++text)
            EXPECT_TRUE(*text != english.value(text.key()) || same->contains(*text))
                << at(same.key(), *text);
    }
}

TEST(Translations, textsHaveTheHolesOfTheEnglishOneAndNoLooseEnds) {
    const auto& dictionary = Translations::dictionary();
    const auto& english = dictionary.at(AppLanguage::en);
    for (const auto& [language, texts] : dictionary) {
        for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
            const QString& original = english.value(text.key());
            EXPECT_EQ(holes(*text), holes(original)) << at(language, text.key());
            EXPECT_FALSE(text->isEmpty()) << at(language, text.key());
            EXPECT_FALSE(text->endsWith(u' ')) << at(language, text.key());
            EXPECT_EQ(text->startsWith(u' ') && language != AppLanguage::ko,
                      original.startsWith(u' ') && language != AppLanguage::ko)
                << at(language, text.key());
        }
    }
}

/// In German, where the order of words shows whether a message was taken apart rightly.
TEST(Translations, messagesWithNamesAreTakenApartAndPutTogetherAgain) {
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
TEST(Translations, messagesOfTheLowerLayersAreKnown) {
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
