#include "phones/VirtualAdbd.h"

#include "phones/AdbdShell.h"
#include "support/AdbFixture.h"

#include <QRegularExpression>

#include <gmock/gmock.h>

namespace tessary {

namespace {

using testing::HasSubstr;

class VirtualAdbdTest : public AdbFixture {};

TEST_F(VirtualAdbdTest, listingIsInTheFormOfCurrentPhones) {
    write(QStringLiteral("DCIM/a b.jpg"), "12345");
    const ProcessResult listing = shell("ls -la '/sdcard/DCIM/'");
    EXPECT_EQ(listing.exitStatus, 0);
    static const QRegularExpression file(QStringLiteral(
        "(?m)^-rw-r--r--  1 \\S+ \\S+ +5 \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d a b\\.jpg$"));
    EXPECT_TRUE(QString::fromUtf8(listing.standardOutput).contains(file))
        << listing.standardOutput.toStdString();
    EXPECT_TRUE(listing.standardOutput.startsWith("total "));

    EXPECT_THAT(shell("ls -la /sdcard").standardOutput.toStdString(),
                HasSubstr("/sdcard -> /storage/self/primary"));
    const ProcessResult missing = shell("ls -la '/sdcard/nowhere/'");
    EXPECT_EQ(missing.exitStatus, 1);
    EXPECT_EQ(missing.standardError, "ls: /sdcard/nowhere/: No such file or directory\n");
}

TEST_F(VirtualAdbdTest, filesAndFoldersTravelBothWays) {
    const QByteArray bytes = manyBytes(3'000'000);
    const QString local = disk_.write(QStringLiteral("local.bin"), bytes);
    const ProcessResult push =
        adb({QStringLiteral("push"), local, QStringLiteral("/sdcard/new/x.bin")});
    EXPECT_TRUE(push.succeeded()) << push.standardError.toStdString();
    EXPECT_EQ(content(QStringLiteral("new/x.bin")), bytes);
    write(QStringLiteral("new/empty"), {});
    EXPECT_TRUE(adb({QStringLiteral("pull"), QStringLiteral("/storage/emulated/0/new"),
                     disk_.path(QStringLiteral("pulled"))})
                    .succeeded());
    EXPECT_EQ(disk_.read(QStringLiteral("pulled/x.bin")), bytes);
    EXPECT_EQ(disk_.read(QStringLiteral("pulled/empty")), QByteArray(""));
    EXPECT_FALSE(
        adb({QStringLiteral("pull"), QStringLiteral("/sdcard/missing"), disk_.path()}).succeeded());
}

TEST_F(VirtualAdbdTest, editsWorkOnTheBackingFolder) {
    EXPECT_TRUE(shell("mkdir -p '/sdcard/a/b'").succeeded());
    write(QStringLiteral("a/b/file"), "1");
    EXPECT_TRUE(shell("mv '/sdcard/a/b/file' '/sdcard/a/it'\\''s'").succeeded());
    EXPECT_EQ(content(QStringLiteral("a/it's")), "1");
    EXPECT_EQ(shell("head -c 4096 '/sdcard/a/it'\\''s'").standardOutput, "1");
    EXPECT_EQ(shell("stat -c '%f %s' '/sdcard/a/it'\\''s'").standardOutput, "81a4 1\n");
    EXPECT_TRUE(shell("rm -rf '/sdcard/a'").succeeded());
    EXPECT_FALSE(disk_.has(QStringLiteral("phone/a")));
    EXPECT_THAT(adb({QStringLiteral("shell"), QStringLiteral("dumpsys"), QStringLiteral("battery")})
                    .standardOutput.toStdString(),
                HasSubstr("  level: 80\n"));
    EXPECT_TRUE(adbd_->violations().empty());
}

TEST_F(VirtualAdbdTest, shellRunsNothingButWhatItKnows) {
    for (const char* line : {"id", "ls", "ls -la /sdcard/$HOME", "rm -rf /sdcard/*", "echo `id`",
                             "ls -la '/sdcard", "mkdir -p /sdcard/a; id", "ls -la /sdcard | id"})
        EXPECT_NE(shell(line).exitStatus, 0) << line;
    EXPECT_EQ(adbd_->violations().size(), 8u);
}

TEST_F(VirtualAdbdTest, phoneThatIsCutComesBackByItself) {
    adbd_->faults().update([](AdbdFaults& faults) { faults.dropAfter = 100'000; });
    const QString local = disk_.write(QStringLiteral("local.bin"), manyBytes(3'000'000));
    EXPECT_FALSE(adb({QStringLiteral("push"), local, QStringLiteral("/sdcard/x.bin")}).succeeded());
    EXPECT_TRUE(reaches(QStringLiteral("device")));
    EXPECT_FALSE(disk_.has(QStringLiteral("phone/x.bin")));
}

class AskingAdbdTest : public AdbFixture {
protected:
    AskingAdbdTest()
        : AdbFixture([] {
              AdbdConfig config;
              config.asksForKeys = true;
              return config;
          }()) {
        adbd_->setAllowsUnknownKeys(false);
    }
    void SetUp() override {
        server_.connect(serial());
    }
};

TEST_F(AskingAdbdTest, computerIsLetInOnceThePersonAllowsIt) {
    EXPECT_TRUE(reaches(QStringLiteral("unauthorized")));
    EXPECT_FALSE(shell("ls -la '/sdcard/'").succeeded());
    adbd_->setAllowsUnknownKeys(true);
    EXPECT_TRUE(reaches(QStringLiteral("device")));
    EXPECT_TRUE(shell("ls -la '/sdcard/'").succeeded());

    // From now on the computer's signature is enough.
    adbd_->setAllowsUnknownKeys(false);
    adbd_->cut();
    server_.disconnect(serial());
    server_.connect(serial());
    EXPECT_TRUE(reaches(QStringLiteral("device")));
}

class OldAdbdTest : public AdbFixture {
protected:
    OldAdbdTest()
        : AdbFixture([] {
              AdbdConfig config;
              config.hasShellV2 = false;
              config.listing = AdbdListingForm::monthAndDay;
              return config;
          }()) {}
};

TEST_F(OldAdbdTest, noExitStatusReachesTheHostAndErrorsAreAmongTheOutput) {
    const ProcessResult missing = shell("ls -la '/sdcard/nowhere/'");
    EXPECT_EQ(missing.exitStatus, 0);
    EXPECT_THAT(missing.standardOutput.toStdString(), HasSubstr("No such file or directory"));
    const QString local = disk_.write(QStringLiteral("local.bin"), manyBytes(200'000));
    EXPECT_TRUE(adb({QStringLiteral("push"), local, QStringLiteral("/sdcard/x.bin")}).succeeded());
    EXPECT_EQ(content(QStringLiteral("x.bin")), manyBytes(200'000));
}

TEST(AdbdCommandLineTest, quotedWordsAreTakenLiterally) {
    const auto commands = parseAdbdCommandLine(R"(mv 'a $(x) "b"' 'it'\''s' && echo done; echo 2)");
    ASSERT_TRUE(commands);
    ASSERT_EQ(commands->size(), 3u);
    EXPECT_EQ((*commands)[0].words, (std::vector<std::string>{"mv", R"(a $(x) "b")", "it's"}));
    EXPECT_TRUE((*commands)[1].onlyAfterSuccess);
    EXPECT_FALSE((*commands)[2].onlyAfterSuccess);
}

} // namespace

} // namespace tessary
