#include "simulator/adbd/VirtualADBD.h"
#include "support/PluggedIPhone.h"
#include "support/ProgramRun.h"
#include "support/QtPrinters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

const QString program = QStringLiteral(TESSARY_CLI);

/// The program itself.
struct CliRun : ProgramRun {
    explicit CliRun(const QStringList& arguments, const QProcessEnvironment& environment =
                                                      QProcessEnvironment::systemEnvironment())
        : ProgramRun(program, arguments, environment) {}

    [[nodiscard]] QJsonDocument json() const {
        return QJsonDocument::fromJson(out);
    }
};

TEST(CliProcess, exitStatusTellsWrongUsageFromFailure) {
    const CliRun usage({u"get"_s});
    EXPECT_EQ(usage.status, 2);
    EXPECT_FALSE(usage.error.isEmpty());
    EXPECT_TRUE(usage.out.isEmpty());
    const CliRun failure({u"--demo"_s, u"ls"_s, u"nobody"_s});
    EXPECT_EQ(failure.status, 1);
    EXPECT_EQ(failure.error.count('\n'), 1) << failure.error.toStdString();
    EXPECT_EQ(CliRun({u"--help"_s}).status, 0);
}

TEST(CliProcess, virtualPhoneIsReachedThroughAnADBServerOfItsOwn) {
    const TemporaryFolder disk;
    QTcpServer users; // stands where the user's own adb server would listen
    ASSERT_TRUE(users.listen(QHostAddress::LocalHost));
    const QString port = QString::number(users.serverPort());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ANDROID_ADB_SERVER_PORT"_s, port);
    environment.insert(u"ADB_SERVER_SOCKET"_s, u"tcp:"_s + port);
    const auto run = [&](const QStringList& arguments) {
        return CliRun(
            QStringList{u"--demo-folder"_s, disk.path(u"phones"_s), u"--protocol"_s, u"adb"_s} +
                arguments,
            environment);
    };
    const CliRun devices = run({u"devices"_s, u"--json"_s});
    EXPECT_EQ(devices.out.count("\"udid\": \"DEMO0001\""), 1) << devices.out.toStdString();
    EXPECT_EQ(devices.out.count("\"udid\": \"127.0.0.1"), 0) << "one row for both halves";
    EXPECT_EQ(devices.out.count("Turbo Mode (ADB)"), 1) << devices.out.toStdString();
    EXPECT_EQ(run({u"ls"_s, u"DEMO0001"_s}).status, 0);
    EXPECT_FALSE(users.waitForNewConnection(0));
}

/// In a mount namespace where no adb lies, with nothing in PATH.
TEST(CliProcess, withoutADBATurboPhoneIsBrowsedCopiedAndKeptInStep) {
    const TemporaryFolder disk;
    const QString hidden = u"mount --bind /dev/null /usr/bin/adb"_s;
    if (ProgramRun(u"unshare"_s, {u"-m"_s, u"sh"_s, u"-c"_s, hidden}).status != 0)
        GTEST_SKIP() << "no mount namespace can be had here (unshare -m)";
    disk.write(u"album/sub/b.txt"_s, "b");
    disk.makeFolder(u"pair"_s);
    VirtualADBD adbd({.folder = disk.makeFolder(u"phone"_s)});
    adbd.start();
    const auto run = [&](const QStringList& arguments) {
        const QString script = hidden + u" && PATH=/nowhere exec \"$@\""_s;
        const QStringList whole{u"-m"_s, u"sh"_s, u"-c"_s,         script,
                                u"sh"_s, program, u"--protocol"_s, u"adb"_s};
        return ProgramRun(u"unshare"_s, whole + arguments);
    };
    const QStringList demo{u"--demo-folder"_s, disk.path(u"demo"_s)};
    const std::tuple<QStringList, QString, QString> phones[] = {
        {{}, adbd.address(), u"phone"_s}, {demo, u"DEMO0001"_s, u"demo/pixel"_s}};
    for (const auto& [options, phone, folder] : phones) {
        SCOPED_TRACE(phone.toStdString());
        const ProgramRun put =
            run(options + QStringList{u"put"_s, phone, disk.path(u"album"_s), u"/sdcard"_s});
        EXPECT_EQ(put.status, 0) << put.error.toStdString();
        EXPECT_EQ(disk.read(folder + u"/album/sub/b.txt"_s), "b");
        const ProgramRun list = run(options + QStringList{u"ls"_s, phone, u"/sdcard/album"_s});
        EXPECT_TRUE(list.out.contains("sub/")) << list.error.toStdString();
        const QString back = disk.path(u"back of "_s + phone);
        const ProgramRun get = run(options + QStringList{u"get"_s, phone, u"/album"_s, back});
        EXPECT_EQ(get.status, 0) << get.error.toStdString();
        EXPECT_EQ(disk.read(u"back of "_s + phone + u"/sub/b.txt"_s), "b");
        const ProgramRun sync = run(options + QStringList{u"sync"_s, phone, disk.path(u"pair"_s),
                                                          u"/album"_s, u"--mode"_s, u"both"_s});
        EXPECT_EQ(sync.status, 0) << sync.error.toStdString();
        EXPECT_EQ(disk.read(u"pair/sub/b.txt"_s), "b");
    }
}

/// The program itself, against a virtual iPhone of this process.
class CliIPhoneTest : public testing::Test {
protected:
    CliIPhoneTest() {
        iphone_.write(u"a.txt"_s, "content");
        iphone_.write(u"folder/b.txt"_s, "second");
    }

    /// A command on the app's files.
    static CliRun inApp(const QString& command, const QStringList& arguments) {
        return CliRun(QStringList{command, u"--app"_s, PluggedIPhone::bundleId, u"0000810"_s} +
                      arguments);
    }

    TemporaryFolder here_;
    PluggedIPhone iphone_;
};

TEST_F(CliIPhoneTest, devicesAndAppsAreListed) {
    const QJsonObject device = CliRun({u"devices"_s, u"--json"_s}).json().array().at(0).toObject();
    EXPECT_EQ(device.value(u"udid"_s), iphone_.udid());
    EXPECT_EQ(device.value(u"totalStorageBytes"_s).toInteger(), 128'000'000'000);
    const QJsonArray apps = CliRun({u"apps"_s, u"iphone"_s, u"--json"_s}).json().array();
    ASSERT_EQ(apps.size(), 1);
    EXPECT_EQ(apps.at(0).toObject().value(u"bundleIdentifier"_s), PluggedIPhone::bundleId);
    EXPECT_TRUE(CliRun({u"info"_s, u"iphone"_s}).out.contains("free of 128"));
}

TEST_F(CliIPhoneTest, anAppsFilesAreCopiedBothWaysAndEdited) {
    EXPECT_TRUE(inApp(u"ls"_s, {}).out.contains("a.txt"));

    EXPECT_EQ(inApp(u"get"_s, {u"/folder"_s, here_.path(u"tree"_s)}).status, 0);
    EXPECT_EQ(here_.read(u"tree/b.txt"_s), QByteArray("second"));

    EXPECT_EQ(inApp(u"mkdir"_s, {u"/new"_s}).status, 0);
    EXPECT_EQ(inApp(u"put"_s, {here_.path(u"tree"_s), u"/new"_s}).status, 0);
    EXPECT_EQ(iphone_.read(u"new/tree/b.txt"_s), QByteArray("second"));
    EXPECT_EQ(inApp(u"mv"_s, {u"/a.txt"_s, u"/folder/b.txt"_s}).status, 1);
    EXPECT_EQ(iphone_.read(u"folder/b.txt"_s), QByteArray("second"));
    EXPECT_EQ(iphone_.read(u"a.txt"_s), QByteArray("content")) << "not even half of it is done";
    EXPECT_EQ(inApp(u"mv"_s, {u"/a.txt"_s, u"/folder/c.txt"_s}).status, 0);
    EXPECT_EQ(iphone_.read(u"folder/c.txt"_s), QByteArray("content"));
    EXPECT_EQ(inApp(u"mv"_s, {u"/folder/b.txt"_s, u"/new/tree/d.txt"_s}).status, 0);
    EXPECT_EQ(iphone_.read(u"new/tree/d.txt"_s), QByteArray("second")) << "b.txt is there, too";
    EXPECT_EQ(inApp(u"rm"_s, {u"/new"_s, u"/folder/c.txt"_s}).status, 0);
    EXPECT_FALSE(iphone_.has(u"new"_s));
    EXPECT_FALSE(iphone_.has(u"folder/c.txt"_s));
}

TEST_F(CliIPhoneTest, refusalsAreOneClearLine) {
    const std::pair<QStringList, const char*> rows[] = {
        // arguments, text
        {{u"ls"_s, u"iphone"_s}, "give one with --app; tessary-cli apps iphone lists them."},
        {{u"ls"_s, u"iphone"_s, u"--app"_s, u"com.none"_s}, "tessary-cli: "},
        {{u"get"_s, u"iphone"_s, u"/none"_s, here_.path(), u"--app"_s, PluggedIPhone::bundleId},
         "There is no “none” on the phone."},
        {{u"get"_s, u"iphone"_s, u"/a.txt"_s, here_.path(u"none/"_s), u"--app"_s,
          PluggedIPhone::bundleId},
         "/none/\". Make it first."},
        {{u"rm"_s, u"iphone"_s, u"/"_s, u"--app"_s, PluggedIPhone::bundleId},
         "A whole storage cannot be changed"},
    };
    for (const auto& [arguments, text] : rows) {
        const CliRun result(arguments);
        EXPECT_EQ(result.status, 1) << text;
        EXPECT_TRUE(result.error.contains(text)) << result.error.toStdString();
    }
    EXPECT_EQ(iphone_.read(u"a.txt"_s), QByteArray("content"));
}

TEST(CliIPhone, whatThePhoneWaitsForIsSaidInWords) {
    const struct {
        const char* name;
        VirtualIPhoneConfig config;
        const char* handshake; ///< what each handshake is answered with; empty: as it should be
        const char* words;
    } rows[] = {
        {"forgotten",
         {},
         "InvalidHostID",
         "The phone has forgotten this computer. Unplug the phone, plug it in again and tap "
         "“Trust” on it."},
        {"asks",
         {.trust = VirtualTrust::asking, .isPaired = false},
         "",
         "The phone has not allowed this computer yet. Unlock the phone and answer its question"},
        {"denied",
         {.trust = VirtualTrust::denied, .isPaired = false},
         "",
         "The phone has not allowed this computer yet."},
        {"locked", {.isLocked = true}, "", "The phone is locked. Unlock the phone and try again."},
    };
    for (const auto& row : rows) {
        PluggedIPhone iphone(row.config);
        iphone.faults([&](VirtualIPhoneFaults& faults) {
            faults.handshakesToFail = *row.handshake == '\0' ? 0 : 1000;
            faults.handshakeError = QString::fromLatin1(row.handshake);
        });
        // By its name, which an untrusted phone does not tell, and by its identifier.
        for (const QString& device : {u"iphone"_s, iphone.udid()}) {
            SCOPED_TRACE(row.name + (' ' + device.toStdString()));
            const CliRun run({u"ls"_s, device, u"--app"_s, PluggedIPhone::bundleId});
            EXPECT_EQ(run.status, 1);
            EXPECT_TRUE(run.error.contains(row.words)) << run.error.toStdString();
        }
    }
    const PluggedIPhone iphone;
    EXPECT_TRUE(CliRun({u"devices"_s}).out.contains("battery 80 %"));
}

} // namespace
} // namespace tessary
