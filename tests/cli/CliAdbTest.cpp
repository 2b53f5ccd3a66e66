#include "cli/CliRunner.h"
#include "phones/VirtualUsbBus.h"
#include "platform/MemoryUserDefaults.h"
#include "support/AdbFixture.h"

#include <cstdio>

namespace tessary {

namespace {

/// Every command of the command line on a phone that only adb reaches.
class CliAdbTest : public AdbFixture {
protected:
    CliRunner::ExitStatus run(const QStringList& arguments) {
        const auto parsed = parseCommandLine(
            QStringList{QStringLiteral("--protocol"), QStringLiteral("adb")} + arguments);
        if (!std::holds_alternative<CliRequest>(parsed))
            return CliRunner::wrongUsage;
        std::FILE* out = std::tmpfile();
        const auto status =
            CliRunner(bus_, files_, defaults_, out, stderr).run(std::get<CliRequest>(parsed), {});
        std::rewind(out);
        printed_.clear();
        for (int c = std::fgetc(out); c != EOF; c = std::fgetc(out))
            printed_.append(static_cast<char>(c));
        std::fclose(out);
        return status;
    }

    VirtualUsbBus bus_;
    DeviceFileService files_{bus_, runner_, QStringList{realAdb()}};
    MemoryUserDefaults defaults_;
    QByteArray printed_;
};

TEST_F(CliAdbTest, everyCommandWorksThroughAdb) {
    const QString local = disk_.write(QStringLiteral("file.txt"), "content");
    const auto phone = [this](const char* command, const QStringList& more) {
        return run(QStringList{QString::fromUtf8(command), serial()} + more);
    };
    EXPECT_EQ(phone("mkdir", {QStringLiteral("/sdcard/new")}), CliRunner::done);
    EXPECT_EQ(phone("put", {local, QStringLiteral("/new")}), CliRunner::done);
    EXPECT_EQ(content(QStringLiteral("new/file.txt")), "content");
    EXPECT_EQ(phone("ls", {QStringLiteral("/new")}), CliRunner::done);
    EXPECT_TRUE(printed_.contains("file.txt"));
    EXPECT_EQ(phone("info", {QStringLiteral("/new/file.txt")}), CliRunner::done);
    EXPECT_TRUE(printed_.contains("/sdcard/new/file.txt"));
    EXPECT_EQ(phone("info", {}), CliRunner::done);
    EXPECT_TRUE(printed_.contains("Turbo Mode (ADB)"));
    EXPECT_EQ(phone("mv", {QStringLiteral("/new/file.txt"), QStringLiteral("b.txt")}),
              CliRunner::done);
    EXPECT_EQ(phone("get", {QStringLiteral("/new/b.txt"), disk_.path(QStringLiteral("back"))}),
              CliRunner::done);
    EXPECT_EQ(disk_.read(QStringLiteral("back")), "content");
    disk_.write(QStringLiteral("mac/deep/song"), "la");
    EXPECT_EQ(phone("sync", {disk_.path(QStringLiteral("mac")), QStringLiteral("/sdcard/new"),
                             QStringLiteral("--mode"), QStringLiteral("both")}),
              CliRunner::done);
    EXPECT_EQ(content(QStringLiteral("new/deep/song")), "la");
    EXPECT_EQ(disk_.read(QStringLiteral("mac/b.txt")), "content");
    EXPECT_EQ(phone("rm", {QStringLiteral("/new")}), CliRunner::done);
    EXPECT_TRUE(disk_.names(QStringLiteral("phone")).isEmpty());
    EXPECT_EQ(run({QStringLiteral("ls"), QStringLiteral("unknown")}), CliRunner::failed);
}

} // namespace

} // namespace tessary
