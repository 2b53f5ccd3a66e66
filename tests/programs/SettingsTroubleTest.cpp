#include "support/OwnHome.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 60'000; // ms

/// A sync in the command line, with virtual phones that have next to nothing on them.
class SettingsTroubleTest : public testing::Test {
protected:
    SettingsTroubleTest() {
        for (const char* folder :
             {"phones/pixel/Notes", "phones/pixel-card", "phones/galaxy", "phones/iphone/notes",
              "phones/ipad/scores", "here", "config/tessary"})
            home.disk.makeFolder(QString::fromLatin1(folder));
        home.disk.write(u"phones/pixel/Notes/a.txt"_s, "content");
    }

    void run() {
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(QStringLiteral(TESSARY_CLI),
                      {u"--demo-folder"_s, home.disk.path(u"phones"_s), u"sync"_s, u"DEMO0001"_s,
                       home.disk.path(u"here"_s), u"/Notes"_s, u"--mode"_s, u"both"_s, u"--yes"_s});
        ASSERT_TRUE(process.waitForFinished(patience));
        status = process.exitCode();
        error = process.readAllStandardError();
    }

    OwnHome home;
    const QString settings = u"config/tessary/settings.json"_s;
    int status = -1;
    QByteArray error;
};

TEST_F(SettingsTroubleTest, syncThatWouldBeForgottenIsRefused) {
    home.disk.makeFolder(settings); // a folder of the name: not even root can store there
    run();
    EXPECT_EQ(status, 1);
    EXPECT_TRUE(error.contains("cannot be stored")) << error.toStdString();
    EXPECT_EQ(home.disk.names(u"here"_s), QStringList());
    ASSERT_TRUE(QDir().rmdir(home.disk.path(settings)));
    run();
    EXPECT_EQ(status, 0) << error.toStdString();
    EXPECT_EQ(home.disk.read(u"here/a.txt"_s), "content");
}

TEST_F(SettingsTroubleTest, damagedSettingsAreToldAndKept) {
    home.disk.write(settings, "{\"cut");
    home.disk.write(settings + u".damaged"_s, "of an earlier time");
    run();
    EXPECT_EQ(status, 0) << error.toStdString();
    EXPECT_TRUE(error.contains("are damaged and count as none")) << error.toStdString();
    EXPECT_EQ(home.disk.read(settings + u".damaged"_s), "of an earlier time");
    EXPECT_EQ(home.disk.read(settings + u".damaged-2"_s), "{\"cut");
    run();
    EXPECT_FALSE(error.contains("damaged")) << error.toStdString();
}

} // namespace
} // namespace tessary
