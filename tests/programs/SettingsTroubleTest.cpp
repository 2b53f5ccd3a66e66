#include "support/OwnHome.h"
#include "support/ProgramRun.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

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

    [[nodiscard]] ProgramRun run() const {
        return {QStringLiteral(TESSARY_CLI),
                {u"--demo-folder"_s, home.disk.path(u"phones"_s), u"sync"_s, u"DEMO0001"_s,
                 home.disk.path(u"here"_s), u"/Notes"_s, u"--mode"_s, u"both"_s, u"--yes"_s},
                home.environment};
    }

    OwnHome home;
    const QString settings = u"config/tessary/settings.json"_s;
};

TEST_F(SettingsTroubleTest, syncThatWouldBeForgottenIsRefused) {
    home.disk.makeFolder(settings); // a folder of the name: not even root can store there
    const ProgramRun refused = run();
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.error.contains("cannot be stored")) << refused.error.toStdString();
    EXPECT_EQ(home.disk.names(u"here"_s), QStringList());
    ASSERT_TRUE(QDir().rmdir(home.disk.path(settings)));
    EXPECT_EQ(run().status, 0);
    EXPECT_EQ(home.disk.read(u"here/a.txt"_s), "content");
}

TEST_F(SettingsTroubleTest, damagedSettingsAreToldAndKept) {
    home.disk.write(settings, "{\"cut");
    home.disk.write(settings + u".damaged"_s, "of an earlier time");
    const ProgramRun told = run();
    EXPECT_EQ(told.status, 0);
    EXPECT_TRUE(told.error.contains("are damaged and count as none")) << told.error.toStdString();
    EXPECT_EQ(home.disk.read(settings + u".damaged"_s), "of an earlier time");
    EXPECT_EQ(home.disk.read(settings + u".damaged-2"_s), "{\"cut");
    EXPECT_FALSE(run().error.contains("damaged"));
}

} // namespace
} // namespace tessary
