#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "devices/files/DeviceFileService.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "support/ADBFixture.h"
#include "support/Failure.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

class ADBFileBackendTest : public ADBFixture {
protected:
    explicit ADBFileBackendTest(ADBDConfig config = {}) : ADBFixture(std::move(config)) {}

    [[nodiscard]] DeviceInfo device() const {
        DeviceInfo info;
        info.platform = DevicePlatform::android;
        info.protocolMode = ProtocolMode::adbTurbo;
        info.udid = serial();
        info.serialNumber = serial();
        return info;
    }
    FileItem item(const QString& path) {
        return service_.itemAt(path, device());
    }
    template <typename Work>
    static std::string failureOf(Work work) {
        return tessary::failureOf(work).toStdString();
    }
    std::string uploadFailure(const QString& local, const QString& into = u"/"_s) {
        return failureOf([&] { service_.uploadFile(local, into, device()); });
    }
    /// Names that hold what shells and listings give a meaning to.
    static QStringList oddNames() {
        QStringList names = u"-rf\n--\n lead\ntrail \na  b\nit's\n''\n\"q\"\na -> b\n$(reboot)\n"
                            "`id`\n$HOME\na;b\na&&b\na|b\n<>\n*?[x]\n\\n\n\\\n#x\n~\n!!\n{a,b}\n"
                            "%s %n\nä📷\n2020-01-01 10:00 x\ntotal 4\n\ttab\n.hidden\n...\n=x\n"
                            "a:b"_s.split(u'\n');
        for (char c = 1; c < 127; ++c)
            if (c != '\n' && c != '/')
                names.append(u"byte "_s + QLatin1Char(c) + u" x"_s);
        return names;
    }

    /// Processes that this one has started and not waited for, the adb server among them.
    static int children() {
        int count = 0;
        for (const QString& name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
            QFile status(u"/proc/%1/status"_s.arg(name));
            if (status.open(QIODevice::ReadOnly))
                count +=
                    status.readAll().contains("\nPPid:\t" + QByteArray::number(getpid()) + '\n');
        }
        return count;
    }

    VirtualUSBBus bus_;
    DeviceFileService service_{bus_, runner_, QStringList{realADB()}};
};

TEST_F(ADBFileBackendTest, hostileNamesAreListedTravelAndAreEditedAsThemselves) {
    QSet<QString> listed;
    const QStringList names = oddNames();
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QString local = disk_.write(u"up/"_s + name, "content of " + name.toUtf8());
        service_.uploadFile(local, u"/"_s, device());
        const FileItem there = item(u"/sdcard/"_s + name);
        EXPECT_EQ(there.name, name);
        service_.downloadFile(there, disk_.path(u"down"_s), device());
        EXPECT_EQ(disk_.read(u"down"_s), "content of " + name.toUtf8());
        service_.renameItem(there, u"plain"_s, device());
        service_.renameItem(item(u"/plain"_s), name, device());
        service_.deleteFile(there, device());
        EXPECT_FALSE(disk_.has(u"phone/"_s + name));
        write(u"odd/"_s + name, {});
        if (HasFailure())
            break;
    }
    for (const FileItem& entry : service_.listDirectory(u"/odd"_s, device()))
        listed.insert(entry.name);
    EXPECT_EQ(listed, QSet<QString>(names.begin(), names.end()));
    EXPECT_EQ(service_.listDirectoryChecked(u"/odd"_s, device()).size(), names.size());
    EXPECT_EQ(adbd_->violations(), std::vector<QByteArray>());
}

TEST_F(ADBFileBackendTest, downloadIsByteEqualAndKeepsTheDate) {
    const QByteArray bytes = manyBytes(5'000'000);
    QFile file(write(u"DCIM/film.mp4"_s, bytes));
    const QDateTime date(QDate(2019, 5, 6), QTime(7, 8, 9));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) &&
                file.setFileTime(date, QFileDevice::FileModificationTime));
    file.close();
    qint64 last = 0;
    service_.downloadFile(item(u"/DCIM/film.mp4"_s), disk_.path(u"film.mp4"_s), device(),
                          [&](qint64 arrived, qint64) { last = arrived; });
    EXPECT_EQ(last, bytes.size());
    EXPECT_EQ(disk_.read(u"film.mp4"_s), bytes);
    EXPECT_EQ(QFileInfo(disk_.path(u"film.mp4"_s)).lastModified(), date);
}

TEST_F(ADBFileBackendTest, foldersTravelWholeWithTrueProgress) {
    for (int n = 0; n < 150; ++n)
        disk_.write(u"local/sub %1/f%2"_s.arg(n % 3).arg(n), manyBytes(1000 + n));
    disk_.write(u"local/big"_s, manyBytes(3'000'000));
    disk_.makeFolder(u"local/empty/er"_s);
    const auto up = service_.uploadDirectory(disk_.path(u"local"_s), u"/sdcard"_s, device());
    EXPECT_TRUE(up.isComplete());
    EXPECT_EQ(up.progress.completedFiles, 151);
    EXPECT_EQ(up.progress.completedBytes, up.progress.totalBytes);
    EXPECT_TRUE(disk_.has(u"phone/local/empty/er"_s));

    adbd_->faults().update([](ADBDFaults& faults) { faults.megabytesPerSecond = 3; });
    qint64 last = 0;
    bool sawPart = false;
    const auto down = service_.downloadDirectory(
        item(u"/local"_s), disk_.path(u"back"_s), device(), [&](const TransferProgress& progress) {
            EXPECT_EQ(progress.totalBytes, up.progress.totalBytes);
            EXPECT_GE(progress.completedBytes, last);
            last = progress.completedBytes;
            sawPart |= last > 0 && last < progress.totalBytes;
        });
    EXPECT_TRUE(sawPart);
    EXPECT_TRUE(down.isComplete());
    EXPECT_EQ(down.progress.completedFiles, 151);
    for (int n = 0; n < 150; ++n)
        EXPECT_EQ(disk_.read(u"back/local/sub %1/f%2"_s.arg(n % 3).arg(n)), manyBytes(1000 + n));
    EXPECT_EQ(disk_.names(u"back/local"_s).size(), 5);
}

TEST_F(ADBFileBackendTest, cancelledCopyEndsSoonAndLeavesNothing) {
    adbd_->faults().update([](ADBDFaults& faults) { faults.megabytesPerSecond = 2; });
    write(u"big"_s, manyBytes(20'000'000));
    disk_.write(u"target"_s, "old");
    const QString local = disk_.write(u"local.bin"_s, manyBytes(20'000'000));
    const FileItem there = item(u"/big"_s);
    const auto cancelled = [&](const auto& work) {
        std::stop_source stop;
        std::chrono::steady_clock::time_point asked;
        const FileProgressCallback onProgress = [&](qint64 done, qint64) {
            if (done > 0 && stop.request_stop())
                asked = std::chrono::steady_clock::now();
        };
        EXPECT_THROW(work(onProgress, stop.get_token()), CancellationError);
        EXPECT_LT(std::chrono::steady_clock::now() - asked, 5s);
        EXPECT_EQ(children(), 1) << "adb's server alone";
    };
    cancelled([&](const FileProgressCallback& onProgress, const std::stop_token& stop) {
        service_.downloadFile(there, disk_.path(u"target"_s), device(), onProgress, stop);
    });
    cancelled([&](const FileProgressCallback& onProgress, const std::stop_token& stop) {
        service_.uploadFile(local, u"/"_s, device(), onProgress, stop);
    });
    EXPECT_EQ(disk_.read(u"target"_s), "old");
    EXPECT_EQ(disk_.names(), (QStringList{u"local.bin"_s, u"phone"_s, u"target"_s}));
}

TEST_F(ADBFileBackendTest, whatIsMissingTakenOrUnderItselfIsRefused) {
    write(u"a/x"_s, "x");
    write(u"a/y"_s, "y");
    const QString local = disk_.write(u"f"_s, "f");
    const char* missing = "There is no /sdcard/none on the phone";
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"already on the phone", [&] { service_.renameItem(item(u"/a/x"_s), u"y"_s, device()); }},
        {"already on the phone", [&] { service_.createFolder(u"a"_s, u"/"_s, device()); }},
        {"into itself", [&] { service_.moveItem(item(u"/a"_s), u"/a"_s, device()); }},
        {"whole storage", [&] { service_.deleteFile(item(u"/"_s), device()); }},
        {missing, [&] { (void)service_.listDirectory(u"/none"_s, device()); }},
        {missing, [&] { (void)service_.listDirectoryChecked(u"/none"_s, device()); }},
        {missing, [&] { (void)item(u"/none"_s); }},
        {missing, [&] { service_.uploadFile(local, u"/none"_s, device()); }},
        {missing, [&] { service_.createFolder(u"x"_s, u"/none"_s, device()); }},
    };
    for (const auto& [why, work] : rows)
        EXPECT_THAT(failureOf(work), HasSubstr(why));
    for (const QString& path : {u"/sdcard/a/../a"_s, u"/sdcard/.."_s, u"/sdcard/a/."_s}) {
        const FileItem hostile(path.section(u'/', -1), path, true, 0, std::nullopt);
        EXPECT_NE(failureOf([&] { service_.deleteFile(hostile, device()); }), notThrown);
    }
    EXPECT_EQ(disk_.names(u"phone/a"_s), (QStringList{u"x"_s, u"y"_s}));
    EXPECT_EQ(disk_.names(u"phone"_s), QStringList(u"a"_s));
    service_.createFolder(u"b"_s, u"/sdcard"_s, device());
    service_.moveItem(item(u"/a/x"_s), u"/b"_s, device());
    EXPECT_EQ(content(u"b/x"_s), "x");
}

TEST_F(ADBFileBackendTest, phoneThatRefusesLiesOrGoesIsAnErrorAndNoSuccess) {
    const QString local = disk_.write(u"f.bin"_s, manyBytes(3'000'000));
    const auto push = [&] {
        return failureOf([&] {
            service_.uploadFile(local, u"/"_s, device(),
                                [&](qint64 sent, qint64 total) { EXPECT_LT(sent, total); });
        });
    };

    adbd_->faults().update([](ADBDFaults& faults) { faults.sizeLie = -1; });
    EXPECT_THAT(push(), HasSubstr("ADB push failed for f.bin: the phone has 2999999 of 3000000"));
    adbd_->faults().set({});

    adbd_->faults().update([](ADBDFaults& faults) { faults.readOnly = true; });
    EXPECT_THAT(push(),
                HasSubstr("ADB push failed for f.bin: This storage of the phone is read-only"));
    EXPECT_THAT(failureOf([&] { service_.createFolder(u"x"_s, u"/"_s, device()); }),
                HasSubstr("did not make the folder"));
    write(u"stays"_s, "1");
    EXPECT_THAT(failureOf([&] { service_.deleteFile(item(u"/stays"_s), device()); }),
                HasSubstr("did not delete"));
    adbd_->faults().set({});

    adbd_->faults().update([](ADBDFaults& faults) { faults.dropAfter = 1'000'000; });
    EXPECT_THAT(push(), HasSubstr("ADB push failed for f.bin"));
    EXPECT_TRUE(reaches(u"device"_s));
    write(u"big"_s, manyBytes(3'000'000));
    const FileItem there = item(u"/big"_s);
    adbd_->faults().update([](ADBDFaults& faults) { faults.dropAfter = 1'000'000; });
    EXPECT_THAT(failureOf([&] { service_.downloadFile(there, disk_.path(u"d"_s), device()); }),
                HasSubstr("ADB pull failed for big"));
    EXPECT_FALSE(disk_.has(u"d"_s));
}

TEST_F(ADBFileBackendTest, brokenReplacementKeepsTheOldVersion) {
    write(u"local/f.bin"_s, "old");
    disk_.write(u"local/f.bin"_s, manyBytes(3'000'000));
    disk_.write(u"local/new"_s, "n");
    const auto expectOldAlone = [&] {
        ASSERT_TRUE(reaches(u"device"_s));
        EXPECT_EQ(content(u"local/f.bin"_s), "old");
        EXPECT_FALSE(disk_.names(u"phone/local"_s).join(u' ').contains(u"part"_s));
    };
    adbd_->faults().update([](ADBDFaults& faults) { faults.dropAfter = 1'000'000; });
    EXPECT_THAT(uploadFailure(disk_.path(u"local/f.bin"_s), u"/local"_s),
                HasSubstr("ADB push failed for f.bin"));
    expectOldAlone();
    adbd_->faults().update([](ADBDFaults& faults) { faults.dropAfter = 1'000'000; });
    const QString folder = disk_.path(u"local"_s);
    EXPECT_NE(failureOf([&] { (void)service_.uploadDirectory(folder, u"/"_s, device()); }),
              notThrown);
    expectOldAlone();
    EXPECT_TRUE(service_.uploadDirectory(folder, u"/"_s, device()).skipped.empty());
    EXPECT_EQ(content(u"local/f.bin"_s), manyBytes(3'000'000));
    EXPECT_EQ(disk_.names(u"phone/local"_s), (QStringList{u"f.bin"_s, u"new"_s}));
}

TEST_F(ADBFileBackendTest, whatTookTheNameOfADeletedItemStays) {
    write(u"x"_s, "1");
    const FileItem seen = item(u"/x"_s);
    QFile::remove(disk_.path(u"phone/x"_s));
    EXPECT_THAT(failureOf([&] { service_.deleteFile(seen, device()); }), HasSubstr("There is no"));
    write(u"x/y"_s, "2");
    EXPECT_THAT(failureOf([&] { service_.deleteFile(seen, device()); }), HasSubstr("There is no"));
    EXPECT_EQ(content(u"x/y"_s), "2");
    service_.deleteFile(item(u"/x"_s), device());
    EXPECT_TRUE(disk_.names(u"phone"_s).isEmpty());
}

TEST_F(ADBFileBackendTest, nameInTheWayCostsAFolderPullThatPartOnly) {
    write(u"f/sub/deep/a"_s, "1");
    write(u"f/b"_s, "2");
    disk_.write(u"to/sub"_s, "a file here");
    const auto outcome =
        service_.downloadDirectoryContents(item(u"/f"_s), disk_.path(u"to"_s), device());
    ASSERT_EQ(outcome.skipped.size(), 1u);
    EXPECT_EQ(outcome.skipped[0].path, u"/sdcard/f/sub"_s);
    EXPECT_EQ(outcome.progress.completedFiles, 1);
    EXPECT_EQ(disk_.read(u"to/b"_s), "2");
    EXPECT_EQ(disk_.read(u"to/sub"_s), "a file here");
}

struct CaselessPhoneTest : ADBFileBackendTest {
    CaselessPhoneTest() : ADBFileBackendTest({.folder = {}, .ignoresCase = true}) {}
};

TEST_F(CaselessPhoneTest, otherSpellingOfANameIsNotOverwritten) {
    write(u"img.jpg"_s, "old");
    const QString local = disk_.write(u"up/IMG.JPG"_s, "new");
    EXPECT_THAT(uploadFailure(local), HasSubstr("takes \"IMG.JPG\" for the same name"));
    EXPECT_EQ(content(u"img.jpg"_s), "old");
    disk_.write(u"up/img.jpg"_s, "third");
    const auto outcome = service_.uploadDirectory(disk_.path(u"up"_s), u"/"_s, device());
    EXPECT_EQ(outcome.skipped.size(), 1u);
    EXPECT_EQ(content(u"up/IMG.JPG"_s), "new");
    service_.renameItem(item(u"/img.jpg"_s), u"Img.jpg"_s, device());
    EXPECT_EQ(content(u"Img.jpg"_s), "old");
}

TEST_F(ADBFileBackendTest, listingThatEndsEarlyFailsTheCheckedOneOnly) {
    write(u"a"_s, "1");
    adbd_->faults().update([](ADBDFaults& faults) {
        faults.rewrite = [](const QByteArray& command) -> std::optional<QByteArray> {
            if (!command.startsWith("ls "))
                return std::nullopt;
            return "total 8\n-rw-rw---- 1 root root 5 2024-03-05 17:08 seen\nls: /sdcard/b: "
                   "Permission denied\n";
        };
    });
    EXPECT_EQ(service_.listDirectory(u"/"_s, device()).size(), 1u);
    EXPECT_THAT(failureOf([&] { (void)service_.listDirectoryChecked(u"/"_s, device()); }),
                HasSubstr("cannot be read whole"));
}

TEST_F(ADBFileBackendTest, namesThatLeadElsewhereDoNotLeaveTheTargetFolder) {
    write(u"folder/a"_s, "1");
    write(u"escaped"_s, "x"); // what "../escaped" names on the phone
    adbd_->faults().update([](ADBDFaults& faults) {
        faults.extraNames = {"../escaped", "../../escaped", "../../../escaped", ".."};
    });
    const std::string failure = failureOf([&] {
        (void)service_.downloadDirectoryContents(item(u"/folder"_s), disk_.path(u"x/y/z"_s),
                                                 device());
    });
    EXPECT_THAT(failure, HasSubstr("ADB directory pull failed for folder"));
    EXPECT_EQ(disk_.names(u"x"_s), QStringList(u"y"_s));
    EXPECT_EQ(disk_.names(u"x/y"_s), QStringList(u"z"_s));
    EXPECT_FALSE(disk_.has(u"x/y/z/escaped"_s));
}

} // namespace

} // namespace tessary
