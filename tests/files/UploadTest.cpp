#include "files/UploadFixture.h"

#include <sys/stat.h>

#include <latch>
#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class UploadTest : public UploadFixture {
protected:
    /// Prepares a file of one name here and on the phone; returns the one here.
    QString twoVersions() {
        phone().write(u"DCIM/a.txt"_s, oldContent);
        return local_.write(u"a.txt"_s, newContent);
    }
    /// Whether one of the two versions is on the phone, whole, whatever its name.
    [[nodiscard]] bool holdsAVersion() {
        for (const QString& name : phone().names(u"DCIM"_s)) {
            const QByteArray content = phone().content(u"DCIM/"_s + name);
            if (content == oldContent || content == newContent)
                return true;
        }
        return false;
    }
    void expectAlone(const QByteArray& content) {
        EXPECT_EQ(phone().names(u"DCIM"_s), QStringList(u"a.txt"_s));
        EXPECT_EQ(phone().content(u"DCIM/a.txt"_s), content);
    }
};

TEST_F(UploadTest, newFileArrivesWhole) {
    phone().disk.makeFolder(u"0/DCIM"_s);
    for (const int size : {0, 1, 500, 512, 0x40000 - 12, 0x40000, 1'000'003}) {
        const QByteArray bytes(size, 'u');
        const QString file = local_.write(u"f%1.bin"_s.arg(size), bytes);
        qint64 last = -1;
        upload(file, "/sdcard/DCIM", [&](qint64 done, qint64 total) {
            EXPECT_GE(done, last);
            EXPECT_EQ(total, size);
            last = done;
        });
        EXPECT_EQ(last, size);
        EXPECT_EQ(phone().content(u"DCIM/f%1.bin"_s.arg(size)), bytes) << size;
    }
}

TEST_F(UploadTest, missingFolderIsAnErrorAndNothingLandsInTheRoot) {
    const QString file = local_.write(u"a.txt"_s, newContent);
    local_.write(u"folder/b.txt"_s, newContent);
    phone().write(u"file"_s, "x");
    for (const char* path :
         {"/missing", "/missing/deeper", "/file", "/file/x", "/..", "/storage/99/x"}) {
        EXPECT_TRUE(fails([&] { upload(file, path); })) << path;
        EXPECT_TRUE(fails([&] { (void)uploadFolder("folder", path); })) << path;
        EXPECT_TRUE(fails([&] {
            service_->createFolder(u"new"_s, QString::fromUtf8(path), phone().info);
        })) << path;
        EXPECT_TRUE(fails([&] { (void)list(path); })) << path;
    }
    EXPECT_EQ(phone().names(), QStringList(u"file"_s));
}

TEST_F(UploadTest, fileThatIsThereIsReplaced) {
    upload(twoVersions(), "/DCIM");
    expectAlone(newContent);
    // The same on phones whose announced handle is worth nothing.
    phone().behave([](VirtualBehaviour& b) { b.forgetsSentHandle = true; });
    local_.write(u"a.txt"_s, "third");
    upload(local_.path(u"a.txt"_s), "/DCIM");
    expectAlone("third");
}

TEST_F(UploadTest, folderIsNotReplacedByAFile) {
    phone().write(u"DCIM/a.txt/inside"_s, "kept");
    const QString file = local_.write(u"a.txt"_s, newContent);
    EXPECT_TRUE(fails([&] { upload(file, "/DCIM"); }));
    EXPECT_EQ(phone().content(u"DCIM/a.txt/inside"_s), "kept");
}

TEST_F(UploadTest, phoneThatCannotRenameKeepsTheOldVersionAndSaysSo) {
    const QString file = twoVersions();
    phone().behave([](VirtualBehaviour& b) {
        b.unsupportedOperations = {
            static_cast<std::uint16_t>(MTPOperationCode::setObjectPropValue)};
    });
    EXPECT_TRUE(failureOf([&] { upload(file, "/DCIM"); }).contains(u"cannot replace files"_s));
    expectAlone(oldContent);
    EXPECT_EQ(phone().requests(MTPOperationCode::sendObject), 1U);
}

TEST_F(UploadTest, refusalAtAnyStepOfAReplacementKeepsAVersion) {
    using enum MTPOperationCode;
    const QString file = twoVersions();
    for (const MTPOperationCode operation : {getStorageIDs, getObjectHandles, sendObjectInfo,
                                             sendObject, setObjectPropValue, deleteObject})
        for (const bool always : {false, true}) {
            phone().refuse(operation, MTPResponseCode::accessDenied, always);
            const bool failed = fails([&] { upload(file, "/DCIM"); });
            phone().fault([](VirtualFaults& faults) { faults.errors.clear(); });
            // A root that is refused once is asked for in the other way.
            EXPECT_TRUE(failed || (operation == getObjectHandles && !always));
            if (!failed)
                (void)twoVersions();
            SCOPED_TRACE(std::to_string(static_cast<int>(operation)) + (always ? " always" : ""));
            // Only what cannot be deleted at all stays beside the old version.
            if (operation == deleteObject && always) {
                EXPECT_EQ(phone().content(u"DCIM/a.txt"_s), oldContent);
                QDir(phone().disk.path(u"0/DCIM"_s)).removeRecursively();
                (void)twoVersions();
            } else {
                expectAlone(oldContent);
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
    const QStringList names = phone().names(u"DCIM"_s);
    ASSERT_EQ(names.size(), 1);
    EXPECT_TRUE(failure.contains(names[0])) << failure.toStdString();
    EXPECT_EQ(phone().content(u"DCIM/"_s + names[0]), newContent);
}

TEST_F(UploadTest, unpluggingAtAnyStepOfAReplacementKeepsAVersion) {
    const QString file = twoVersions();
    int failures = 0;
    for (const USBDirection direction : {USBDirection::out, USBDirection::in})
        for (const std::uint64_t after : {0, 12, 20})
            for (unsigned phase = 1; phase <= 8; ++phase) {
                phone().unplugAfter(direction, after, phase);
                const bool failed = fails([&] { upload(file, "/DCIM"); });
                phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
                phone().android.unplug(); // waits until the phone has cleaned up
                failures += failed ? 1 : 0;
                EXPECT_TRUE(holdsAVersion()) << after << " bytes of phase " << phase;
                EXPECT_TRUE(failed || phone().content(u"DCIM/a.txt"_s) == newContent) << phase;
                QDir(phone().disk.path(u"0/DCIM"_s)).removeRecursively();
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
        EXPECT_TRUE(fails([&] { upload(file, "/DCIM"); }));
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
    phone().rewriteData(MTPOperationCode::getObjectInfo,
                        [count = std::make_shared<int>(0)](Bytes& info) {
                            if (++*count == 2)
                                PluggedPhone::cutToHeader(info);
                        });
    EXPECT_TRUE(fails([&] { upload(file, "/DCIM"); }));
    expectAlone(oldContent);
}

TEST_F(UploadTest, fileThatAppearedMeanwhileOutlivesARefusedUpload) {
    MTPUploadMemory memory;
    phone().disk.makeFolder(u"0/DCIM"_s);
    const auto send = [&](const char* name) {
        const QString file = local_.write(QString::fromUtf8(name), newContent);
        return failureOf(
            [&] { service_->uploadFile(file, u"/DCIM"_s, phone().info, true, memory, {}, {}); });
    };
    EXPECT_EQ(send("first"), QString());
    phone().write(u"DCIM/a.txt"_s, oldContent);
    phone().refuse(MTPOperationCode::sendObjectInfo, MTPResponseCode::accessDenied);
    EXPECT_NE(send("a.txt"), QString());
    EXPECT_EQ(phone().content(u"DCIM/a.txt"_s), oldContent);
}

TEST_F(UploadTest, fileThatChangesWhileItsSuccessorIsSentIsKept) {
    const QString file = twoVersions();
    const QString failure = failureOf([&] {
        upload(file, "/DCIM",
               [&](qint64, qint64) { phone().write(u"DCIM/a.txt"_s, "edited on the phone"); });
    });
    EXPECT_TRUE(failure.contains(u"has changed"_s)) << failure.toStdString();
    expectAlone("edited on the phone");
}

TEST_F(UploadTest, namesThatPhonesTakeForOneClash) {
    phone().write(u"DCIM/img.jpg"_s, oldContent);
    const QString file = local_.write(u"IMG.JPG"_s, newContent);
    EXPECT_TRUE(failureOf([&] { upload(file, "/DCIM"); }).contains(u"for the same name"_s));
    local_.write(u"Trip/a"_s, newContent);
    local_.write(u"Trip/A"_s, newContent);
    EXPECT_EQ(uploadFolder("Trip", "/DCIM").skipped.size(), 1U);
    phone().write(u"DCIM/b.jpg"_s, oldContent);
    const auto rename = [&](const QString& name) {
        return failureOf([&] { service_->renameItem(item("/DCIM/b.jpg"), name, phone().info); });
    };
    EXPECT_TRUE(rename(u"Img.jpg"_s).contains(u"for the same name"_s));
    EXPECT_EQ(rename(u"B.jpg"_s), QString());
    EXPECT_EQ(phone().names(u"DCIM"_s), (QStringList{u"B.jpg"_s, u"Trip"_s, u"img.jpg"_s}));
}

TEST_F(UploadTest, fullFolderIsReadOnceForManyFilesAndEdits) {
    for (int n = 0; n < 100; ++n)
        phone().write(u"DCIM/old %1"_s.arg(n), "x");
    const auto infosFor = [&](const auto& work) {
        phone().android.clearRequestLog();
        EXPECT_EQ(failureOf(work), QString());
        return phone().requests(MTPOperationCode::getObjectInfo);
    };
    const auto send = [&](int n) { upload(local_.write(u"new %1"_s.arg(n), newContent), "/DCIM"); };
    EXPECT_GE(infosFor([&] { send(0); }), 100U);
    for (int n = 1; n < 4; ++n)
        EXPECT_LT(infosFor([&] { send(n); }), 6U);
    EXPECT_LT(infosFor([&] { service_->createFolder(u"N"_s, u"/DCIM"_s, phone().info); }), 6U);
    const FileItem first = item("/DCIM/new 1");
    EXPECT_LT(infosFor([&] { service_->renameItem(first, u"x"_s, phone().info); }), 8U);
    EXPECT_LT(infosFor([&] { send(1); }), 8U) << "its name is free again";
    replug(); // the handles are others now
    EXPECT_GE(infosFor([&] { send(2); }), 100U);
    EXPECT_EQ(phone().names(u"DCIM"_s).size(), 106);
}

TEST_F(UploadTest, editsGetInBetweenTheFilesOfAFolder) {
    phone().write(u"Trip/z.txt"_s, oldContent);
    for (const char* name : {"a", "b", "free", "z.txt"})
        local_.write(u"Trip/"_s + QString::fromUtf8(name), newContent);
    const FileItem old = item("/Trip/z.txt");
    std::latch isAtWork{1};
    std::jthread editor;
    const TransferOutcome outcome = uploadFolder("Trip", "/", [&](const TransferProgress& now) {
        if (now.completedFiles == 1 && now.currentFileBytes == 0 && !editor.joinable()) {
            editor = std::jthread([&] {
                isAtWork.count_down();
                service_->renameItem(old, u"FREE"_s, phone().info);
            });
            isAtWork.wait();
            std::this_thread::sleep_for(300ms);
        }
    });
    editor.join();
    EXPECT_EQ(skippedPaths(outcome), QStringList(u"free"_s)) << "the edit took its name";
    EXPECT_EQ(phone().content(u"Trip/FREE"_s), oldContent);
    EXPECT_EQ(phone().content(u"Trip/z.txt"_s), newContent);
}

TEST_F(UploadTest, cancelAndFailureLeaveNoPartialObject) {
    phone().disk.makeFolder(u"0/DCIM"_s);
    const QString file = local_.write(u"big.bin"_s, QByteArray(3'000'000, 'b'));
    for (const bool keepsPartial : {false, true})
        for (const qint64 after : {certainlyReceived, qint64{3'000'000}}) {
            phone().behave([&](VirtualBehaviour& behaviour) {
                behaviour.keepsPartialObjects = keepsPartial;
                behaviour.createsObjectEarly = keepsPartial;
            });
            std::stop_source stop;
            try {
                upload(
                    file, "/DCIM",
                    [&](qint64 done, qint64) {
                        if (done >= after)
                            stop.request_stop();
                    },
                    stop.get_token());
                EXPECT_EQ(after, 3'000'000) << "only the end comes too late to cancel";
                EXPECT_EQ(phone().content(u"DCIM/big.bin"_s).size(), 3'000'000);
                service_->deleteFile(item("/DCIM/big.bin"), phone().info);
            } catch (const CancellationError&) {
                EXPECT_TRUE(phone().names(u"DCIM"_s).isEmpty()) << after;
            }
        }
    phone().fault([](VirtualFaults& faults) {
        faults.stall = VirtualByteFault{USBDirection::out, 700'000, 2};
    });
    EXPECT_TRUE(fails([&] { upload(file, "/DCIM"); }));
    EXPECT_TRUE(phone().names(u"DCIM"_s).isEmpty());
}

TEST_F(UploadTest, fileThatShrinksWhileItIsReadIsAnErrorAndLeavesNothing) {
    phone().disk.makeFolder(u"0/DCIM"_s);
    const QString file = local_.write(u"log.txt"_s, QByteArray(4'000'000, 'l'));
    const QString failure = failureOf([&] {
        upload(file, "/DCIM", [&](qint64 done, qint64) {
            if (done >= certainlyReceived)
                QFile::resize(file, 1000);
        });
    });
    EXPECT_TRUE(failure.contains(u"shorter"_s)) << failure.toStdString();
    EXPECT_TRUE(phone().names(u"DCIM"_s).isEmpty());
    EXPECT_EQ(listedNames("/"), QStringList(u"DCIM"_s));
}

TEST_F(UploadTest, whatIsNoFileIsRefusedBeforeThePhoneHearsOfIt) {
    const QString pipe = local_.path(u"pipe"_s);
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    const QString dangling = local_.path(u"dangling"_s);
    QFile::link(local_.path(u"gone"_s), dangling);
    for (const QString& path : {pipe, dangling, local_.path(), local_.path(u"gone"_s)})
        EXPECT_TRUE(fails([&] { upload(path, "/"); })) << path.toStdString();
    const QString longName = local_.write(QString(255, u'n'), "x");
    EXPECT_TRUE(fails([&] { upload(longName, "/"); }));
    EXPECT_EQ(phone().requests(MTPOperationCode::sendObjectInfo), 0U);
    upload(local_.write(QString(250, u'n'), "x"), "/");
    EXPECT_EQ(phone().names(), QStringList(QString(250, u'n')));
}

} // namespace
} // namespace tessary
