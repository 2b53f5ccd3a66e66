#include "files/UploadFixture.h"

#include <sys/stat.h>

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

class UploadTest : public UploadFixture {
protected:
    /// Prepares a file of one name here and on the phone; returns the one here.
    QString twoVersions() {
        phone().write(QStringLiteral("DCIM/a.txt"), oldContent);
        return local_.write(QStringLiteral("a.txt"), newContent);
    }
    /// Whether one of the two versions is on the phone, whole, whatever its name.
    [[nodiscard]] bool holdsAVersion() {
        for (const QString& name : phone().names(QStringLiteral("DCIM"))) {
            const QByteArray content = phone().content(QStringLiteral("DCIM/") + name);
            if (content == oldContent || content == newContent)
                return true;
        }
        return false;
    }
    void expectOldVersionAlone(const std::string& trace) {
        EXPECT_EQ(phone().names(QStringLiteral("DCIM")), QStringList(QStringLiteral("a.txt")))
            << trace;
        EXPECT_EQ(phone().content(QStringLiteral("DCIM/a.txt")), oldContent) << trace;
    }
};

TEST_F(UploadTest, newFileArrivesWhole) {
    phone().disk.makeFolder(QStringLiteral("0/DCIM"));
    for (const int size : {0, 1, 500, 512, 0x40000 - 12, 0x40000, 1'000'003}) {
        const QByteArray bytes(size, 'u');
        const QString file = local_.write(QStringLiteral("f%1.bin").arg(size), bytes);
        qint64 last = -1;
        upload(file, "/sdcard/DCIM", [&](qint64 done, qint64 total) {
            EXPECT_GE(done, last);
            EXPECT_EQ(total, size);
            last = done;
        });
        EXPECT_EQ(last, size);
        EXPECT_EQ(phone().content(QStringLiteral("DCIM/f%1.bin").arg(size)), bytes) << size;
    }
}

TEST_F(UploadTest, missingFolderIsAnErrorAndNothingLandsInTheRoot) {
    const QString file = local_.write(QStringLiteral("a.txt"), newContent);
    local_.write(QStringLiteral("folder/b.txt"), newContent);
    phone().write(QStringLiteral("file"), "x");
    for (const char* path :
         {"/missing", "/missing/deeper", "/file", "/file/x", "/..", "/storage/99/x"}) {
        EXPECT_FALSE(failureOf([&] { upload(file, path); }).isEmpty()) << path;
        EXPECT_FALSE(failureOf([&] { (void)uploadFolder("folder", path); }).isEmpty()) << path;
        EXPECT_FALSE(failureOf([&] {
                         service_->createFolder(QStringLiteral("new"), QString::fromUtf8(path),
                                                phone().info);
                     }).isEmpty())
            << path;
        EXPECT_FALSE(failureOf([&] { (void)list(path); }).isEmpty()) << path;
    }
    EXPECT_EQ(phone().names(), QStringList(QStringLiteral("file")));
}

TEST_F(UploadTest, fileThatIsThereIsReplaced) {
    upload(twoVersions(), "/DCIM");
    EXPECT_EQ(phone().names(QStringLiteral("DCIM")), QStringList(QStringLiteral("a.txt")));
    EXPECT_EQ(phone().content(QStringLiteral("DCIM/a.txt")), newContent);
    // The same on phones whose announced handle is worth nothing.
    phone().android.behaviour().update([](VirtualBehaviour& b) { b.forgetsSentHandle = true; });
    local_.write(QStringLiteral("a.txt"), "third");
    upload(local_.path(QStringLiteral("a.txt")), "/DCIM");
    EXPECT_EQ(phone().names(QStringLiteral("DCIM")), QStringList(QStringLiteral("a.txt")));
    EXPECT_EQ(phone().content(QStringLiteral("DCIM/a.txt")), "third");
}

TEST_F(UploadTest, folderIsNotReplacedByAFile) {
    phone().write(QStringLiteral("DCIM/a.txt/inside"), "kept");
    const QString file = local_.write(QStringLiteral("a.txt"), newContent);
    EXPECT_FALSE(failureOf([&] { upload(file, "/DCIM"); }).isEmpty());
    EXPECT_EQ(phone().content(QStringLiteral("DCIM/a.txt/inside")), "kept");
}

TEST_F(UploadTest, phoneThatCannotRenameKeepsTheOldVersionAndSaysSo) {
    const QString file = twoVersions();
    phone().android.behaviour().update([](VirtualBehaviour& b) {
        b.unsupportedOperations = {
            static_cast<std::uint16_t>(MTPOperationCode::setObjectPropValue)};
    });
    EXPECT_TRUE(
        failureOf([&] { upload(file, "/DCIM"); }).contains(QStringLiteral("cannot replace files")));
    expectOldVersionAlone("no rename");
    EXPECT_EQ(phone().requests(MTPOperationCode::sendObject), 1U);
}

TEST_F(UploadTest, refusalAtAnyStepOfAReplacementKeepsAVersion) {
    using enum MTPOperationCode;
    const QString file = twoVersions();
    for (const MTPOperationCode operation : {getStorageIDs, getObjectHandles, sendObjectInfo,
                                             sendObject, setObjectPropValue, deleteObject})
        for (const bool always : {false, true}) {
            phone().refuse(operation, MTPResponseCode::accessDenied, always);
            const bool failed = !failureOf([&] { upload(file, "/DCIM"); }).isEmpty();
            phone().fault([](VirtualFaults& faults) { faults.errors.clear(); });
            // A root that is refused once is asked for in the other way.
            EXPECT_TRUE(failed || (operation == getObjectHandles && !always));
            if (!failed)
                (void)twoVersions();
            const std::string trace =
                std::to_string(static_cast<int>(operation)) + (always ? " always" : " once");
            // Only what cannot be deleted at all stays beside the old version.
            if (operation == deleteObject && always) {
                EXPECT_EQ(phone().content(QStringLiteral("DCIM/a.txt")), oldContent);
                QDir(phone().disk.path(QStringLiteral("0/DCIM"))).removeRecursively();
                (void)twoVersions();
            } else {
                expectOldVersionAlone(trace);
            }
        }
    // The last step: the old version is gone, the new one is there under the name that is told.
    phone().fault([&](VirtualFaults& faults) {
        faults.rewrite = [&](const VirtualAnswer& answer) -> std::optional<Bytes> {
            if (answer.operation == static_cast<std::uint16_t>(deleteObject))
                phone().refuse(setObjectPropValue, MTPResponseCode::accessDenied);
            return std::nullopt;
        };
    });
    const QString failure = failureOf([&] { upload(file, "/DCIM"); });
    const QStringList names = phone().names(QStringLiteral("DCIM"));
    ASSERT_EQ(names.size(), 1);
    EXPECT_TRUE(failure.contains(names[0])) << failure.toStdString();
    EXPECT_EQ(phone().content(QStringLiteral("DCIM/") + names[0]), newContent);
}

TEST_F(UploadTest, unpluggingAtAnyStepOfAReplacementKeepsAVersion) {
    const QString file = twoVersions();
    int failures = 0;
    for (const UsbDirection direction : {UsbDirection::out, UsbDirection::in})
        for (const std::uint64_t after : {0, 12, 20})
            for (unsigned phase = 1; phase <= 8; ++phase) {
                phone().fault([&](VirtualFaults& faults) {
                    faults.unplug = VirtualByteFault{direction, after, phase};
                });
                const bool failed = !failureOf([&] { upload(file, "/DCIM"); }).isEmpty();
                phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
                phone().android.unplug(); // waits until the phone has cleaned up
                failures += failed ? 1 : 0;
                EXPECT_TRUE(holdsAVersion()) << after << " bytes of phase " << phase;
                if (!failed) {
                    EXPECT_EQ(phone().content(QStringLiteral("DCIM/a.txt")), newContent);
                }
                QDir(phone().disk.path(QStringLiteral("0/DCIM"))).removeRecursively();
                (void)twoVersions();
                replug();
            }
    EXPECT_GT(failures, 15);
    // Between the commands there is no data phase: the cable is pulled while the phone works.
    for (const MTPOperationCode operation :
         {MTPOperationCode::setObjectPropValue, MTPOperationCode::deleteObject}) {
        phone().android.clearRequestLog();
        phone().fault([&](VirtualFaults& faults) {
            faults.delay[static_cast<std::uint16_t>(operation)] = 4s;
        });
        std::jthread hand([&](const std::stop_token& stop) {
            while (phone().requests(operation) == 0 && !stop.stop_requested())
                std::this_thread::sleep_for(1ms);
            phone().android.unplug();
        });
        EXPECT_FALSE(failureOf([&] { upload(file, "/DCIM"); }).isEmpty());
        hand.join();
        EXPECT_TRUE(holdsAVersion());
        phone().fault([](VirtualFaults& faults) { faults.delay.clear(); });
        ASSERT_NE(phone().android.plugInto(bus_), 0U);
    }
}

TEST_F(UploadTest, neighbourWhoseInformationFailsOnceIsNotTakenForALeftover) {
    const QString file = twoVersions();
    const FileItem folder = item("/DCIM"); // known from now on, so that the file's info is next
    replug();
    (void)list("/");
    phone().android.clearRequestLog();
    // The old file's information fails when the folder is listed; the phone then refuses a second
    // object of that name, and the old one must survive the cleaning up.
    const auto count = std::make_shared<int>(0);
    phone().fault([&](VirtualFaults& faults) {
        faults.rewrite = [count](const VirtualAnswer& answer) -> std::optional<Bytes> {
            const bool isInfo =
                answer.operation == static_cast<std::uint16_t>(MTPOperationCode::getObjectInfo) &&
                answer.type == MTPContainerType::data;
            if (!isInfo || ++*count != 2)
                return std::nullopt;
            Bytes cut(answer.container.begin(), answer.container.begin() + 12);
            cut[0] = std::byte{12};
            cut[1] = cut[2] = cut[3] = std::byte{0};
            return cut;
        };
    });
    EXPECT_FALSE(failureOf([&] { upload(file, "/DCIM"); }).isEmpty());
    expectOldVersionAlone("unreadable once");
}

TEST_F(UploadTest, cancelAndFailureLeaveNoPartialObject) {
    phone().disk.makeFolder(QStringLiteral("0/DCIM"));
    const QString file = local_.write(QStringLiteral("big.bin"), QByteArray(2'000'000, 'b'));
    for (const bool keepsPartial : {false, true})
        for (const qint64 after : {qint64{1}, qint64{1'000'000}, qint64{2'000'000}}) {
            phone().android.behaviour().update([&](VirtualBehaviour& behaviour) {
                behaviour.keepsPartialObjects = keepsPartial;
                behaviour.createsObjectEarly = keepsPartial;
            });
            std::stop_source stop;
            try {
                upload(
                    file, "/DCIM",
                    [&](qint64 done, qint64) {
                        if (done < after || stop.stop_requested())
                            return;
                        awaitReceiver();
                        stop.request_stop();
                    },
                    stop.get_token());
                EXPECT_EQ(after, 2'000'000) << "only the end comes too late to cancel";
                EXPECT_EQ(phone().content(QStringLiteral("DCIM/big.bin")).size(), 2'000'000);
                service_->deleteFile(item("/DCIM/big.bin"), phone().info);
            } catch (const CancellationError&) {
                EXPECT_TRUE(phone().names(QStringLiteral("DCIM")).isEmpty()) << after;
            }
        }
    phone().fault([](VirtualFaults& faults) {
        faults.stall = VirtualByteFault{UsbDirection::out, 700'000, 2};
    });
    EXPECT_FALSE(failureOf([&] { upload(file, "/DCIM"); }).isEmpty());
    EXPECT_TRUE(phone().names(QStringLiteral("DCIM")).isEmpty());
}

TEST_F(UploadTest, fileThatShrinksWhileItIsReadIsAnErrorAndLeavesNothing) {
    phone().disk.makeFolder(QStringLiteral("0/DCIM"));
    const QString file = local_.write(QStringLiteral("log.txt"), QByteArray(2'000'000, 'l'));
    const QString failure = failureOf([&] {
        upload(file, "/DCIM", [&](qint64, qint64) {
            awaitReceiver();
            QFile::resize(file, 1000);
        });
    });
    EXPECT_TRUE(failure.contains(QStringLiteral("shorter"))) << failure.toStdString();
    EXPECT_TRUE(phone().names(QStringLiteral("DCIM")).isEmpty());
    EXPECT_EQ(listedNames("/"), QStringList(QStringLiteral("DCIM")));
}

TEST_F(UploadTest, whatIsNoFileIsRefusedBeforeThePhoneHearsOfIt) {
    const QString pipe = local_.path(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    const QString dangling = local_.path(QStringLiteral("dangling"));
    QFile::link(local_.path(QStringLiteral("gone")), dangling);
    for (const QString& path : {pipe, dangling, local_.path(), local_.path(QStringLiteral("gone"))})
        EXPECT_FALSE(failureOf([&] { upload(path, "/"); }).isEmpty()) << path.toStdString();
    const QString longName = local_.write(QString(255, QLatin1Char('n')), "x");
    EXPECT_FALSE(failureOf([&] { upload(longName, "/"); }).isEmpty());
    EXPECT_EQ(phone().requests(MTPOperationCode::sendObjectInfo), 0U);
    upload(local_.write(QString(250, QLatin1Char('n')), "x"), "/");
    EXPECT_EQ(phone().names(), QStringList(QString(250, QLatin1Char('n'))));
}

} // namespace
} // namespace tessary
