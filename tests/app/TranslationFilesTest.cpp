#include "support/ProgramRun.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"
#include "support/TranslationFile.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

/// Those with a file of their own, English excepted: its file holds plural forms alone.
QList<AppLanguage> translatedLanguages() {
    QList<AppLanguage> languages(allAppLanguages.begin(), allAppLanguages.end());
    languages.removeOne(AppLanguage::system);
    languages.removeOne(AppLanguage::en);
    return languages;
}

std::string at(AppLanguage language, const TranslatedText& text) {
    return (rawValue(language) + u", "_s + text.context + u": "_s + text.source).toStdString();
}

QSet<QString> keysOf(const std::vector<TranslatedText>& texts) {
    QSet<QString> keys;
    for (const TranslatedText& text : texts)
        keys.insert(text.context + u": "_s + text.source +
                    (text.dependsOnNumber ? u" (plural)"_s : QString()));
    return keys;
}

/// What the sources hold, by the tool that translators' files are made with.
std::vector<TranslatedText> textsOfTheSources(const QStringList& options, const QString& language) {
    const TemporaryFolder folder;
    const QString file = folder.path() + u"/new.ts"_s;
    const ProgramRun lupdate(QStringLiteral(TESSARY_LUPDATE),
                             QStringList{u"-silent"_s, u"-extensions"_s, u"cpp,h"_s, u"-I"_s,
                                         QStringLiteral(TESSARY_SOURCES),
                                         QStringLiteral(TESSARY_SOURCES), u"-target-language"_s,
                                         language, u"-ts"_s, file} +
                                 options);
    EXPECT_EQ(lupdate.status, 0) << lupdate.error.toStdString();
    return readTranslations(file);
}

TEST(TranslationFiles, everyTextOfTheSourcesIsInEveryLanguageAndNoOther) {
    const auto sources = textsOfTheSources({}, u"de_DE"_s);
    EXPECT_GT(sources.size(), 400U);
    const QSet<QString> expected = keysOf(sources);
    for (const AppLanguage language : translatedLanguages()) {
        const QSet<QString> found = keysOf(translationsOf(language));
        for (const QString& missing : expected - found)
            ADD_FAILURE() << "missing in " << translationFileName(language).toStdString() << ": "
                          << missing.toStdString() << " (build the target `texts`)";
        for (const QString& stray : found - expected)
            ADD_FAILURE() << "not in the sources: " << translationFileName(language).toStdString()
                          << ": " << stray.toStdString();
    }
    EXPECT_EQ(keysOf(translationsOf(AppLanguage::en)),
              keysOf(textsOfTheSources({u"-pluralonly"_s}, u"en_US"_s)));
}

/// A context that no class has comes of a text that lupdate could not place: it would not be found
/// when the program runs.
TEST(TranslationFiles, contextsAreClassesOrNamedByTheSources) {
    const QSet<QString> named{u"BrowserActions"_s,  u"BrowserEdit"_s,    u"ByteFormat"_s,
                              u"ClashQuestion"_s,   u"DisplayNames"_s,   u"CopyText"_s,
                              u"ErrorText"_s,       u"ProblemText"_s,    u"MainMenu"_s,
                              u"ReleaseQuestion"_s, u"QPlatformTheme"_s, u"SyncFileList"_s,
                              u"SyncTexts"_s,       u"DeleteQuestion"_s, u"SharedWords"_s};
    for (const TranslatedText& text : translationsOf(AppLanguage::de))
        EXPECT_TRUE(text.context.startsWith(u"tessary::"_s) || named.contains(text.context))
            << at(AppLanguage::de, text);
}

/// Whether there is more than signs and places.
bool hasWords(const QString& text) {
    static const QRegularExpression word(u"[a-zA-Z]{2}"_s);
    return word.match(text).hasMatch();
}

TEST(TranslationFiles, everyTextIsTranslatedInEachFormThatTheLanguageHas) {
    // Words that are the same in English, and what has no words.
    const QMap<AppLanguage, QString> same{
        {AppLanguage::de,
         u"Apps|Updates|Version|Downloads|Filter|Name|Video|Videos|Audio|Tabs|OK"_s},
        {AppLanguage::es, u"General|Audio|&No|1 byte"_s},
        {AppLanguage::fr, u"Documents|Photos|Apps|Version|Image|Audio|Document|Archive|OK"_s},
        {AppLanguage::it, u"File|Video|Audio|OK|&No|1 byte"_s},
        {AppLanguage::ptBR, u"Downloads|Apps|OK|1 byte"_s},
        {AppLanguage::ja, u"OK"_s},
    };
    for (const AppLanguage language : translatedLanguages()) {
        const bool hasPlural =
            !QList{AppLanguage::ja, AppLanguage::ko, AppLanguage::zhHans, AppLanguage::zhHant}
                 .contains(language);
        const QStringList fine = same.value(language).split(u'|');
        for (const TranslatedText& text : translationsOf(language)) {
            EXPECT_TRUE(text.isFinished) << at(language, text);
            EXPECT_EQ(text.forms.size(), text.dependsOnNumber && hasPlural ? 2 : 1)
                << at(language, text);
            for (const QString& form : text.forms)
                EXPECT_TRUE(form != text.source || fine.contains(form) || text.dependsOnNumber ||
                            !hasWords(text.source))
                    << at(language, text);
        }
    }
}

/// "%1", "%2", and "%n" for the number.
QStringList placesIn(const QString& text) {
    static const QRegularExpression place(u"%(L?[n\\d])"_s);
    QStringList places;
    for (const auto& match : place.globalMatch(text))
        places.append(match.captured(1));
    places.sort();
    return places;
}

TEST(TranslationFiles, textsHaveThePlacesOfTheEnglishOneAndNoLooseEnds) {
    auto languages = translatedLanguages();
    languages.append(AppLanguage::en);
    for (const AppLanguage language : languages) {
        for (const TranslatedText& text : translationsOf(language)) {
            for (qsizetype i = 0; i < text.forms.size(); ++i) {
                const QString& form = text.forms[i];
                QStringList expected = placesIn(text.source);
                // "the other one": a form for one thing need not say the number.
                if (i == 0 && text.forms.size() > 1 && !form.contains(u"%Ln"_s))
                    expected.removeOne(u"Ln"_s);
                EXPECT_EQ(placesIn(form), expected) << at(language, text);
                EXPECT_TRUE(form == form.trimmed() || !hasWords(text.source)) << at(language, text);
                EXPECT_FALSE(form.isEmpty()) << at(language, text);
            }
        }
    }
}

/// Our own words: those that lower layers still say, and Qt's buttons, are among them.
TEST(TranslationFiles, eachLanguageKeepsToItsGlossary) {
    QFile file(QStringLiteral(TESSARY_TRANSLATIONS "/glossary.json"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject glossary = QJsonDocument::fromJson(file.readAll()).object();
    EXPECT_EQ(glossary.size(), translatedLanguages().size());
    for (const AppLanguage language : translatedLanguages()) {
        const QJsonObject words = glossary[rawValue(language)].toObject();
        const auto texts = translationsOf(language);
        for (const char* thing : {"phone", "computer", "folder", "file", "item", "copy", "delete",
                                  "link", "storage", "turbo", "address"}) {
            const QString word = words[QLatin1StringView(thing)].toString();
            EXPECT_TRUE(std::ranges::any_of(texts,
                                            [&](const TranslatedText& text) {
                                                return !word.isEmpty() &&
                                                       text.forms.join(u' ').contains(
                                                           word, Qt::CaseInsensitive);
                                            }))
                << rawValue(language).toStdString() << " has no text with its word for " << thing;
        }
        const QJsonObject ruledOut = words[u"ruledOut"_s].toObject();
        EXPECT_GT(ruledOut.size(), 2);
        for (auto rule = ruledOut.begin(); rule != ruledOut.end(); ++rule) {
            const QRegularExpression wrong(rule.key(),
                                           QRegularExpression::UseUnicodePropertiesOption);
            ASSERT_TRUE(wrong.isValid()) << rule.key().toStdString();
            for (const TranslatedText& text : texts)
                EXPECT_FALSE(wrong.match(text.forms.join(u'\n')).hasMatch())
                    << at(language, text) << " -> " << text.forms.join(u'|').toStdString()
                    << "\nwrite: " << rule.value().toString().toStdString();
        }
    }
}

} // namespace
