#include "simulator/faults/FaultyADBD.h"

#include "support/ADBFixture.h"

#include <gmock/gmock.h>

namespace tessary {

namespace {

using testing::HasSubstr;

class VirtualADBDTest : public ADBFixture {};

TEST_F(VirtualADBDTest, shellRunsNothingButWhatItKnows) {
    for (const char* line : {"id", "ls", "ls -la /sdcard/$HOME", "rm -rf /sdcard/*", "echo `id`",
                             "ls -la '/sdcard", "mkdir -p /sdcard/a; id", "ls -la /sdcard | id"})
        EXPECT_NE(shell(line).exitStatus, 0) << line;
    EXPECT_EQ(adbd_->violations().size(), 8u);
}

class OldADBDTest : public ADBFixture {
protected:
    OldADBDTest()
        : ADBFixture([] {
              ADBDConfig config;
              config.hasShellV2 = false;
              config.listing = ADBDListingForm::monthAndDay;
              return config;
          }()) {}
};

TEST_F(OldADBDTest, noExitStatusReachesTheHostAndErrorsAreAmongTheOutput) {
    const ProcessResult missing = shell("ls -la '/sdcard/nowhere/'");
    EXPECT_EQ(missing.exitStatus, 0);
    EXPECT_THAT(missing.standardOutput.toStdString(), HasSubstr("No such file or directory"));
    const QString local = disk_.write(QStringLiteral("local.bin"), manyBytes(200'000));
    EXPECT_TRUE(adb({QStringLiteral("push"), local, QStringLiteral("/sdcard/x.bin")}).succeeded());
    EXPECT_EQ(content(QStringLiteral("x.bin")), manyBytes(200'000));
}

} // namespace

} // namespace tessary
