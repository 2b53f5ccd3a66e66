#include "simulator/faults/FaultyADBD.h"

#include "support/ADBFixture.h"

namespace tessary {

namespace {

class VirtualADBDTest : public ADBFixture {};

TEST_F(VirtualADBDTest, shellRunsNothingButWhatItKnows) {
    for (const char* line : {"id", "ls", "ls -la /sdcard/$HOME", "rm -rf /sdcard/*", "echo `id`",
                             "ls -la '/sdcard", "mkdir -p /sdcard/a; id", "ls -la /sdcard | id"})
        EXPECT_NE(shell(line).exitStatus, 0) << line;
    EXPECT_EQ(adbd_->violations().size(), 8u);
}

} // namespace

} // namespace tessary
