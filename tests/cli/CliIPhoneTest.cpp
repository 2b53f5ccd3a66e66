#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// The program itself, against a virtual iPhone of this process.
class CliIPhoneTest : public testing::Test {
protected:
    CliIPhoneTest() {
        iphone_.write(u"a.txt"_s, "content");
        iphone_.write(u"folder/b.txt"_s, "second");
    }

    struct Result {
        int status = -1;
        QString out;
        QString error;

        [[nodiscard]] QJsonDocument json() const {
            return QJsonDocument::fromJson(out.toUtf8());
        }
    };

    static Result run(const QStringList& arguments) {
        QProcess process;
        process.start(QStringLiteral(TESSARY_CLI), arguments);
        EXPECT_TRUE(process.waitForFinished(60'000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
    /// A command on the app's files.
    static Result inApp(const QString& command, const QStringList& arguments) {
        return run(QStringList{command, u"--app"_s, PluggedIPhone::bundleId, u"0000810"_s} +
                   arguments);
    }

    TemporaryFolder here_;
    PluggedIPhone iphone_;
};

TEST_F(CliIPhoneTest, devicesAndAppsAreListed) {
    const QJsonObject device = run({u"devices"_s, u"--json"_s}).json().array().at(0).toObject();
    EXPECT_EQ(device.value(u"udid"_s), iphone_.udid());
    EXPECT_EQ(device.value(u"deviceName"_s), u"iPhone"_s);
    EXPECT_EQ(device.value(u"totalStorageBytes"_s).toInteger(), 128'000'000'000);
    const QJsonArray apps = run({u"apps"_s, u"iphone"_s, u"--json"_s}).json().array();
    ASSERT_EQ(apps.size(), 1);
    EXPECT_EQ(apps.at(0).toObject().value(u"bundleIdentifier"_s), PluggedIPhone::bundleId);
    EXPECT_TRUE(run({u"info"_s, u"iphone"_s}).out.contains(u"free of 128"_s));
}

TEST_F(CliIPhoneTest, anAppsFilesAreCopiedBothWaysAndEdited) {
    const QJsonArray list = inApp(u"ls"_s, {u"--json"_s}).json().array();
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list.at(1).toObject().value(u"path"_s), u"/a.txt"_s);

    EXPECT_EQ(inApp(u"get"_s, {u"/folder"_s, here_.path(u"tree"_s)}).status, 0);
    EXPECT_EQ(here_.read(u"tree/b.txt"_s), QByteArray("second"));

    EXPECT_EQ(inApp(u"mkdir"_s, {u"/new"_s}).status, 0);
    EXPECT_EQ(inApp(u"put"_s, {here_.path(u"tree"_s), u"/new"_s}).status, 0);
    EXPECT_EQ(iphone_.read(u"new/tree/b.txt"_s), QByteArray("second"));
    EXPECT_EQ(inApp(u"mv"_s, {u"/a.txt"_s, u"/folder/c.txt"_s}).status, 0);
    EXPECT_EQ(iphone_.read(u"folder/c.txt"_s), QByteArray("content"));
    EXPECT_EQ(inApp(u"rm"_s, {u"/new"_s, u"/folder/b.txt"_s}).status, 0);
    EXPECT_FALSE(iphone_.has(u"new"_s));
    EXPECT_FALSE(iphone_.has(u"folder/b.txt"_s));
}

TEST_F(CliIPhoneTest, refusalsAreOneClearLine) {
    const struct {
        QStringList arguments;
        const char* text;
    } rows[] = {
        {{u"ls"_s, u"iphone"_s}, "Give one with --app; tessary-cli apps iphone lists them."},
        {{u"ls"_s, u"iphone"_s, u"--app"_s, u"com.none"_s}, "House Arrest error: "},
        {{u"get"_s, u"iphone"_s, u"/none"_s, here_.path(), u"--app"_s, PluggedIPhone::bundleId},
         "AFC Error: objectNotFound (code 8)"},
        {{u"rm"_s, u"iphone"_s, u"/"_s, u"--app"_s, PluggedIPhone::bundleId},
         "cannot be deleted as a whole"},
    };
    for (const auto& row : rows) {
        const Result result = run(row.arguments);
        EXPECT_EQ(result.status, 1) << row.text;
        EXPECT_TRUE(result.error.contains(QString::fromLatin1(row.text)))
            << result.error.toStdString();
    }
    EXPECT_EQ(iphone_.read(u"a.txt"_s), QByteArray("content"));
}

TEST_F(CliIPhoneTest, anInterruptLeavesNoPart) {
    iphone_.disk.writeSparse(iphone_.inDocuments(u"big"_s), qint64{1} << 30);
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.megabytesPerSecond = 10; });
    here_.makeFolder(u"into"_s);
    QProcess process;
    process.start(QStringLiteral(TESSARY_CLI),
                  {u"get"_s, u"iphone"_s, u"/big"_s, here_.path(u"into"_s), u"--app"_s,
                   PluggedIPhone::bundleId});
    ASSERT_TRUE(process.waitForStarted());
    while (iphone_.count("afc.fileRead") < 2)
        std::this_thread::sleep_for(5ms);
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(30'000));
    EXPECT_EQ(process.exitCode(), 130);
    EXPECT_TRUE(here_.names(u"into"_s).isEmpty());
}

} // namespace
} // namespace tessary
