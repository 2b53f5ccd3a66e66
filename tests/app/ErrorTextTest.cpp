#include "app/texts/ErrorText.h"
#include "adb/files/ADBPhoneErrors.h"
#include "app/InterfaceTexts.h"
#include "app/LanguageManager.h"
#include "base/local/LocalError.h"
#include "phone/PhoneError.h"
#include "platform/http/HttpError.h"
#include "support/Application.h"
#include "support/QtPrinters.h"
#include "sync/plan/SyncError.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

const QString name = u"Ferien (1).jpg"_s;

/// One error for each case up to the last one, with more arguments than any needs.
template <typename Enum>
void addAll(std::vector<Error>& errors, Enum last) {
    for (int value = 0; value <= static_cast<int>(last); ++value)
        errors.emplace_back(static_cast<Enum>(value), QVariantList{name, 5, 7});
}

std::vector<Error> everyError() {
    std::vector<Error> errors;
    addAll(errors, PhoneError::full);
    addAll(errors, LocalError::notPrivate);
    addAll(errors, HttpError::badContent);
    addAll(errors, SyncError::recordNotStored);
    for (int value = 0; value <= static_cast<int>(ADBError::pathTooLong); ++value)
        errors.push_back(
            phoneErrorOf(Error(static_cast<ADBError>(value), {name, 1, u"odd"_s}), name));
    return errors;
}

class ErrorTextTest : public Application, public testing::Test {
protected:
    ErrorTextTest() {
        use(AppLanguage::en);
    }
    static void use(AppLanguage language) {
        LanguageManager::shared().setSelectedLanguage(language);
    }
    const InterfaceTexts texts_;
};

TEST_F(ErrorTextTest, everyCodeHasWordsInEveryLanguage) {
    const std::vector<Error> errors = everyError();
    std::vector<std::pair<ErrorText, QString>> english;
    for (const Error& error : errors)
        english.emplace_back(errorText(error), reasonText(error));
    for (const AppLanguage language : allAppLanguages) {
        use(language);
        for (std::size_t i = 0; i < errors.size(); ++i) {
            SCOPED_TRACE(rawValue(language).toStdString() + ' ' + errors[i].what());
            const ErrorText words = errorText(errors[i]);
            const QString reason = reasonText(errors[i]);
            EXPECT_FALSE(words.what.isEmpty() || reason.isEmpty());
            EXPECT_FALSE(words.text().contains(u'%') || reason.contains(u'%'));
            EXPECT_EQ(words.what.contains(name), english[i].first.what.contains(name));
            EXPECT_EQ(words.advice.isEmpty(), english[i].first.advice.isEmpty());
            if (LanguageManager::shared().effectiveLanguage() == AppLanguage::en)
                continue;
            EXPECT_NE(words.what, english[i].first.what);
            EXPECT_NE(reason, english[i].second);
            EXPECT_TRUE(words.advice.isEmpty() || words.advice != english[i].first.advice);
        }
    }
    use(AppLanguage::en);
}

TEST_F(ErrorTextTest, sentencesNameTheItemAndSayWhatToDo) {
    const struct {
        const char* name;
        Error error;
        const char* english;
        const char* german;
    } rows[] = {
        {"numbers", Error(PhoneError::wrongSize, {u"/a"_s, 1'000, qint64(12'345'678'901)}),
         "The phone sent 1,000 of the 12,345,678,901 bytes of “a”. Copy it again.",
         "Das Telefon hat 1.000 der 12.345.678.901 Bytes von „a“ gesendet. Kopieren Sie es noch "
         "einmal."},
        {"no reason", Error(LocalError::cannotMakeFolder, {u"/a"_s, QString()}),
         "The folder “/a” cannot be created.", "Der Ordner „/a“ kann nicht angelegt werden."},
        {"a name like a place", Error(PhoneError::sameName, {u"%2"_s, u"%1 %n"_s}),
         "“%2” is on the phone, which takes “%1 %n” for the same name. Rename one of the two "
         "first.",
         "„%2“ ist auf dem Telefon, das „%1 %n“ für denselben Namen hält. Benennen Sie zuerst "
         "eines der beiden um."},
        {"a name that turns the line round", Error(PhoneError::taken, {u"a\u202Egpj\nb"_s}),
         "“a\\u202egpj\\u000ab” is already there.", "„a\\u202egpj\\u000ab“ ist schon vorhanden."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        use(AppLanguage::en);
        EXPECT_EQ(errorText(row.error).text(), QString::fromUtf8(row.english));
        use(AppLanguage::de);
        EXPECT_EQ(errorText(row.error).text(), QString::fromUtf8(row.german));
    }
}

} // namespace
