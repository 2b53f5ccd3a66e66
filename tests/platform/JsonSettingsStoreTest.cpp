#include "platform/settings/JsonSettingsStore.h"
#include "platform/settings/StoredList.h"
#include "support/OrdinaryUser.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QJsonArray>
#include <QJsonObject>
#include <gmock/gmock.h>

#include <thread>

#include <sys/stat.h>

using namespace tessary;

namespace {

constexpr std::chrono::seconds patience(20);
const QString key = QStringLiteral("Tessary_AppLanguage");

/// "a1 b1": entry a with content 1, then b.
QJsonArray listOf(const char* words) {
    QJsonArray list;
    for (const QString& word :
         QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        list.append(QJsonObject{{QStringLiteral("id"), word.left(1)},
                                {QStringLiteral("content"), word.mid(1)}});
    return list;
}

QString wordsOf(const QJsonValue& list) {
    QStringList words;
    for (const QJsonValue& entry : list.toArray())
        words.append(entry[QStringLiteral("id")].toString() +
                     entry[QStringLiteral("content")].toString());
    return words.join(QLatin1Char(' '));
}

class JsonSettingsStoreTest : public testing::Test {
protected:
    TemporaryFolder folder_;
    const QString file_ = folder_.path(QStringLiteral("tessary/settings.json"));
};

TEST_F(JsonSettingsStoreTest, damagedFilesAreToldAndEachIsKept) {
    const std::tuple<const char*, QByteArray, QString> rows[] = {
        // what, content, kept as
        {"cut off", "{\"Tessary_AppLanguage\": \"de", QStringLiteral("settings.json.damaged")},
        {"binary", QByteArray("\0\xff\xfe{", 4), QStringLiteral("settings.json.damaged-2")},
        {"nested beyond measure", QByteArray(200'000, '['),
         QStringLiteral("settings.json.damaged-3")},
    };
    for (const auto& [what, content, aside] : rows) {
        SCOPED_TRACE(what);
        folder_.write(QStringLiteral("tessary/settings.json"), content);
        {
            JsonSettingsStore defaults(file_);
            EXPECT_TRUE(defaults.value(key).isUndefined());
            ASSERT_TRUE(defaults.trouble());
            EXPECT_EQ(defaults.trouble()->kind, SettingsTrouble::Kind::damaged);
            EXPECT_TRUE(defaults.trouble()->aside.isEmpty()) << "nothing is changed by looking";
            defaults.setValue(key, QStringLiteral("日本語 \" \n"));
            EXPECT_TRUE(defaults.store(patience));
            EXPECT_EQ(defaults.trouble()->aside, folder_.path(QStringLiteral("tessary/") + aside));
        }
        EXPECT_EQ(JsonSettingsStore(file_).value(key), QStringLiteral("日本語 \" \n"));
        EXPECT_EQ(folder_.read(QStringLiteral("tessary/") + aside), content);
    }
}

TEST_F(JsonSettingsStoreTest, changesOfTwoProgramsDoNotUndoEachOther) {
    const auto count = [this](const QString& prefix) {
        JsonSettingsStore defaults(file_);
        for (int i = 0; i < 20; ++i)
            defaults.setValue(prefix + QString::number(i), i);
    };
    std::jthread other([&] { count(QStringLiteral("cli")); });
    count(QStringLiteral("window"));
    other.join();
    const JsonSettingsStore after(file_);
    for (const char* prefix : {"cli", "window"})
        for (int i = 0; i < 20; ++i)
            EXPECT_EQ(after.value(QString::fromLatin1(prefix) + QString::number(i)), i);
}

TEST_F(JsonSettingsStoreTest, listThatTwoProgramsChangeKeepsWhatBothDid) {
    const QString listKey = QStringLiteral("list");
    const struct {
        const char* name;
        const char* before;
        const char* window;
        const char* demo; ///< stored later
        const char* after;
    } rows[] = {
        {"first ones", "", "a1", "b1", "a1 b1"},
        {"both add", "a1", "a1 b1", "a1 c1", "a1 b1 c1"},
        {"both change", "a1 b1", "a2 b1", "a1 b2", "a2 b2"},
        {"the same one", "a1 b1", "a2 b1", "a3 b1", "a3 b1"},
        {"one removes", "a1 b1", "b1", "a1 b1 c1", "b1 c1"},
        {"removed and changed", "a1 b1", "b1", "a2 b1", "b1"},
        {"both remove", "a1 b1 c1", "b1 c1", "a1 b1", "b1"},
        {"moved", "a1 b1 c1", "a1 b1 c1 d1", "c1 a1 b1", "c1 a1 b1 d1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        JsonSettingsStore window(file_);
        window.setValue(listKey, *row.before == '\0' ? QJsonValue(QJsonValue::Undefined)
                                                     : QJsonValue(listOf(row.before)));
        ASSERT_TRUE(window.store(patience));
        JsonSettingsStore demo(file_);
        StoredList ofWindow(window, listKey);
        StoredList ofDemo(demo, listKey);
        ofWindow.setKnown(listOf(row.before));
        ofDemo.setKnown(listOf(row.before));
        ofWindow.store(listOf(row.window));
        ASSERT_TRUE(window.store(patience));
        ofDemo.store(listOf(row.demo));
        ASSERT_TRUE(demo.store(patience));
        EXPECT_EQ(wordsOf(JsonSettingsStore(file_).value(listKey)), QString::fromLatin1(row.after));
    }
}

TEST_F(JsonSettingsStoreTest, fileThatCannotBeReadIsLeftAlone) {
    ASSERT_EQ(chmod(qUtf8Printable(folder_.path()), 0777), 0);
    const OrdinaryUser user;
    folder_.write(QStringLiteral("tessary/settings.json"), "{\"pairs\": 1}");
    ASSERT_EQ(chmod(qUtf8Printable(file_), 0), 0);
    JsonSettingsStore defaults(file_);
    EXPECT_TRUE(defaults.trouble()) << "told before anything is changed";
    defaults.setValue(key, 1);
    EXPECT_FALSE(defaults.store(patience));
    ASSERT_EQ(chmod(qUtf8Printable(file_), 0600), 0);
    EXPECT_TRUE(defaults.store(patience));
    EXPECT_EQ(defaults.trouble(), std::nullopt);
    EXPECT_EQ(JsonSettingsStore(file_).value(QStringLiteral("pairs")), 1);

    auto next = std::make_unique<JsonSettingsStore>(file_);
    ASSERT_EQ(chmod(qUtf8Printable(file_), 0), 0);
    next->setValue(key, 2);
    EXPECT_FALSE(next->store(patience));
    ASSERT_EQ(chmod(qUtf8Printable(file_), 0600), 0);
    next.reset();
    EXPECT_EQ(JsonSettingsStore(file_).value(key), 2) << "tried once more at the end";
}

} // namespace
