#include "platform/settings/JsonUserDefaults.h"
#include "support/OrdinaryUser.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <sys/stat.h>

using namespace tessary;

namespace {

constexpr std::chrono::seconds patience(20);
const QString key = QStringLiteral("Tessary_AppLanguage");

class JsonUserDefaultsTest : public testing::Test {
protected:
    TemporaryFolder folder_;
    const QString file_ = folder_.path(QStringLiteral("tessary/settings.json"));
};

TEST_F(JsonUserDefaultsTest, damagedFilesAreToldAndEachIsKept) {
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
            JsonUserDefaults defaults(file_);
            EXPECT_TRUE(defaults.value(key).isUndefined());
            ASSERT_TRUE(defaults.trouble());
            EXPECT_EQ(defaults.trouble()->kind, SettingsTrouble::Kind::damaged);
            EXPECT_TRUE(defaults.trouble()->aside.isEmpty()) << "nothing is changed by looking";
            defaults.setValue(key, QStringLiteral("日本語 \" \n"));
            EXPECT_TRUE(defaults.store(patience));
            EXPECT_EQ(defaults.trouble()->aside, folder_.path(QStringLiteral("tessary/") + aside));
        }
        EXPECT_EQ(JsonUserDefaults(file_).value(key), QStringLiteral("日本語 \" \n"));
        EXPECT_EQ(folder_.read(QStringLiteral("tessary/") + aside), content);
    }
}

TEST_F(JsonUserDefaultsTest, changesOfTwoProgramsDoNotUndoEachOther) {
    const auto count = [this](const QString& prefix) {
        JsonUserDefaults defaults(file_);
        for (int i = 0; i < 20; ++i)
            defaults.setValue(prefix + QString::number(i), i);
    };
    std::jthread other([&] { count(QStringLiteral("cli")); });
    count(QStringLiteral("window"));
    other.join();
    const JsonUserDefaults after(file_);
    for (const char* prefix : {"cli", "window"})
        for (int i = 0; i < 20; ++i)
            EXPECT_EQ(after.value(QString::fromLatin1(prefix) + QString::number(i)), i);
}

TEST_F(JsonUserDefaultsTest, changeThatMeetsALockHoldsAtOnceAndIsStoredLater) {
    {
        JsonUserDefaults defaults(file_);
        defaults.setValue(QStringLiteral("gone"), 1);
        folder_.write(QStringLiteral("tessary/any"), {});
        QLockFile other(file_ + QStringLiteral(".lock"));
        ASSERT_TRUE(other.tryLock(10'000));
        QElapsedTimer timer;
        timer.start();
        defaults.setValue(key, 1);
        defaults.setValue(QStringLiteral("gone"), QJsonValue::Undefined);
        EXPECT_LT(timer.elapsed(), 1000);
        EXPECT_EQ(defaults.value(key), 1);
    }
    const JsonUserDefaults again(file_);
    EXPECT_EQ(again.value(key), 1);
    EXPECT_TRUE(again.value(QStringLiteral("gone")).isUndefined());
}

TEST_F(JsonUserDefaultsTest, whatCannotBeStoredIsToldAndStoredLater) {
    using Kind = SettingsTrouble::Kind;
    // A file where the folder should be: no user may write below it.
    folder_.write(QStringLiteral("tessary"), "in the way");
    JsonUserDefaults defaults(file_);
    EXPECT_EQ(defaults.trouble(), std::nullopt);
    std::atomic<int> told = 0;
    defaults.whenTroubleChanges([&] { ++told; });
    defaults.setValue(key, QStringLiteral("fr"));
    EXPECT_FALSE(defaults.store(patience));
    EXPECT_EQ(defaults.value(key), QStringLiteral("fr"));
    EXPECT_EQ(folder_.read(QStringLiteral("tessary")), "in the way");
    ASSERT_TRUE(defaults.trouble());
    EXPECT_EQ(defaults.trouble()->kind, Kind::notStored);
    EXPECT_EQ(defaults.trouble()->file, file_);
    EXPECT_FALSE(defaults.trouble()->reason.isEmpty());
    EXPECT_EQ(told, 1);

    ASSERT_TRUE(QFile::remove(folder_.path(QStringLiteral("tessary"))));
    EXPECT_TRUE(defaults.store(patience));
    EXPECT_EQ(defaults.trouble(), std::nullopt);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(JsonUserDefaults(file_).value(key), QStringLiteral("fr"));
}

TEST_F(JsonUserDefaultsTest, fileThatCannotBeReadIsLeftAlone) {
    ASSERT_EQ(chmod(qUtf8Printable(folder_.path()), 0777), 0);
    const OrdinaryUser user;
    folder_.write(QStringLiteral("tessary/settings.json"), "{\"pairs\": 1}");
    ASSERT_EQ(chmod(qUtf8Printable(file_), 0), 0);
    JsonUserDefaults defaults(file_);
    EXPECT_TRUE(defaults.trouble()) << "told before anything is changed";
    defaults.setValue(key, 1);
    EXPECT_FALSE(defaults.store(patience));
    ASSERT_EQ(chmod(qUtf8Printable(file_), 0600), 0);
    EXPECT_TRUE(defaults.store(patience));
    EXPECT_EQ(defaults.trouble(), std::nullopt);
    EXPECT_EQ(JsonUserDefaults(file_).value(QStringLiteral("pairs")), 1);
}

} // namespace
