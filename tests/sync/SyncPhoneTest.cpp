#include "support/FileServiceFixture.h"
#include "support/OrdinaryUser.h"
#include "sync/AndroidSyncBackend.h"
#include "sync/DiskSyncFolder.h"
#include "sync/SyncRun.h"

#include <QDirIterator>
#include <QFileInfo>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>

namespace tessary {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Files = std::map<QString, QByteArray>;

/// Runs between a folder of this computer and "/Sync" of a virtual Android phone over MTP.
class SyncPhoneTest : public FileServiceFixture {
protected:
    SyncPhoneTest() {
        phone().disk.makeFolder(QStringLiteral("0/Sync"));
        pair_.deviceUDID = phone().info.udid;
        pair_.appBundleID = SyncPair::deviceStorage;
        pair_.remoteFolderPath = QStringLiteral("/Sync");
        pair_.localFolderPath = local_.makeFolder(QStringLiteral("mac"));
    }

    void here(const char* path, const QByteArray& content) {
        local_.write(QStringLiteral("mac/") + QString::fromUtf8(path), content);
    }
    void onPhone(const char* path, const QByteArray& content) {
        phone().write(QStringLiteral("Sync/") + QString::fromUtf8(path), content);
    }
    /// All that lies below a folder, the manifest aside.
    static Files below(const QString& folder) {
        Files files;
        QDirIterator walk(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            QFile file(walk.next());
            if (walk.fileName() == SyncManifest::fileName)
                continue;
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            files[QDir(folder).relativeFilePath(file.fileName())] = file.readAll();
        }
        return files;
    }
    [[nodiscard]] Files hereFiles() const {
        return below(pair_.localFolderPath);
    }
    [[nodiscard]] Files phoneFiles() {
        return below(phone().disk.path(QStringLiteral("0/Sync")));
    }

    /// What a run left on the phone a moment ago stays there for some minutes.
    static Files withoutLeftovers(Files files) {
        std::erase_if(files, [](const auto& file) {
            return file.first.contains(QLatin1StringView(".tessary-part-"));
        });
        return files;
    }

    SyncReport run(const std::stop_token& stop = {}) {
        DiskSyncFolder folder(pair_.localFolderPath);
        AndroidSyncBackend backend(*service_, phone().info, stop);
        SyncRunEvents events;
        events.ask = [this](const SyncQuestion& question) {
            questions_.push_back(question);
            return answer_;
        };
        events.progress = [this](const SyncProgress& progress) { last_ = progress; };
        return SyncRun({pair_, QStringLiteral("HOST"), QStringLiteral("Desk"), folder, backend,
                        [] { return QDateTime::currentDateTime(); }},
                       events, stop)
            .run();
    }
    [[nodiscard]] std::size_t contentRequests() {
        return phone().requests(MTPOperationCode::getObject) +
               phone().requests(MTPOperationCode::getPartialObject);
    }
    /// A further run has nothing to do and asks the phone for the manifest's content alone.
    void expectQuietRun() {
        phone().android.clearRequestLog();
        const Files before = hereFiles();
        const SyncReport report = run();
        EXPECT_FALSE(report.hasChanges()) << report.summary().toStdString();
        EXPECT_EQ(contentRequests(), 1U);
        EXPECT_EQ(phone().requests(MTPOperationCode::sendObject), 1U);
        EXPECT_EQ(phone().requests(MTPOperationCode::openSession), 2U);
        EXPECT_EQ(hereFiles(), before);
    }

    SyncPair pair_;
    bool answer_ = false;
    std::vector<SyncQuestion> questions_;
    SyncProgress last_;
};

TEST_F(SyncPhoneTest, everyModeCopiesItsWayAndASecondRunIsQuiet) {
    for (const SyncMode mode : allSyncModes) {
        SCOPED_TRACE(rawValue(mode).toStdString());
        plugIn({});
        QDir(pair_.localFolderPath).removeRecursively();
        local_.makeFolder(QStringLiteral("mac"));
        phone().disk.makeFolder(QStringLiteral("0/Sync"));
        pair_.syncMode = mode;
        here("a.txt", "from here");
        here("deep/er/b.bin", manyBytes(300'000));
        here("empty", "");
        here("\xF0\x9F\x98\x80 snow.txt", "unicode");
        onPhone("DCIM/c.jpg", manyBytes(70'000));
        const Files hereBefore = hereFiles();
        const Files phoneBefore = phoneFiles();
        const SyncReport report = run();
        EXPECT_THAT(report.skipped, IsEmpty());
        EXPECT_EQ(report.uploaded.size(), mode == SyncMode::toMac ? 0 : 4);
        EXPECT_EQ(report.downloaded.size(), mode == SyncMode::toiPhone ? 0 : 1);
        if (mode == SyncMode::biDirectional) {
            EXPECT_EQ(hereFiles(), phoneFiles());
        }
        if (mode == SyncMode::toiPhone) {
            EXPECT_EQ(hereFiles(), hereBefore);
            EXPECT_EQ(phoneFiles().size(), 5U);
        }
        if (mode == SyncMode::toMac) {
            EXPECT_EQ(phoneFiles(), phoneBefore);
            EXPECT_EQ(hereFiles().size(), 5U);
        }
        EXPECT_EQ(last_.completedBytes, last_.totalBytes);
        expectQuietRun();
    }
}

TEST_F(SyncPhoneTest, foldersAreListedOnceHoweverManyFilesAreSent) {
    for (int n = 0; n < 40; ++n)
        here(("d/" + std::to_string(n)).c_str(), "x");
    phone().android.clearRequestLog();
    (void)run();
    EXPECT_EQ(phoneFiles().size(), 40U);
    // The scan, the new folder's making, its first upload, the check at the end, the manifest's.
    EXPECT_LE(phone().requests(MTPOperationCode::getObjectHandles), 12U);
    EXPECT_LE(phone().requests(MTPOperationCode::openSession), 2U);
}

TEST_F(SyncPhoneTest, editsAndConfirmedDeletionsGoAcross) {
    here("edited", "1");
    here("gone", "2");
    here("dir/gone too", "3");
    (void)run();
    here("edited", "longer");
    onPhone("new", "4");
    local_.write(QStringLiteral("mac/gone"), {});
    QFile::remove(local_.path(QStringLiteral("mac/gone")));
    QFile::remove(phone().disk.path(QStringLiteral("0/Sync/dir/gone too")));
    const Files before = hereFiles();

    // Declined: everything comes back.
    SyncReport report = run();
    ASSERT_EQ(questions_.size(), 1U);
    EXPECT_EQ(questions_[0].candidates.size(), 2U);
    EXPECT_EQ(report.deleted.size(), 0);
    EXPECT_EQ(hereFiles().size(), 4U);
    EXPECT_EQ(hereFiles(), phoneFiles());

    QFile::remove(local_.path(QStringLiteral("mac/gone")));
    QFile::remove(phone().disk.path(QStringLiteral("0/Sync/dir/gone too")));
    answer_ = true;
    report = run();
    EXPECT_EQ(report.deleted.size(), 2);
    EXPECT_EQ(hereFiles(),
              (Files{{QStringLiteral("edited"), "longer"}, {QStringLiteral("new"), "4"}}));
    EXPECT_EQ(hereFiles(), phoneFiles());
    EXPECT_FALSE(local_.has(QStringLiteral("mac/dir")));
    expectQuietRun();
}

TEST_F(SyncPhoneTest, conflictsEndWithBothVersionsOnBothSides) {
    here("note.txt", "mine");
    onPhone("note.txt", "theirs, longer");
    const SyncReport report = run();
    EXPECT_EQ(report.conflicts.size(), 1);
    EXPECT_EQ(hereFiles(), phoneFiles());
    ASSERT_EQ(hereFiles().size(), 2U);
    expectQuietRun();
}

TEST_F(SyncPhoneTest, movesLeaveNothingBehind) {
    pair_.moveFilesEnabled = true;
    pair_.syncMode = SyncMode::toiPhone;
    here("d/a", manyBytes(5000));
    here("same", "same");
    onPhone("same", "same");
    SyncReport report = run();
    EXPECT_THAT(report.moved, ElementsAre(QStringLiteral("d/a"), QStringLiteral("same")));
    EXPECT_THAT(hereFiles(), IsEmpty());
    EXPECT_FALSE(local_.has(QStringLiteral("mac/d")));
    EXPECT_EQ(phoneFiles().size(), 2U);

    pair_.syncMode = SyncMode::toMac;
    report = run();
    EXPECT_EQ(report.moved.size(), 2);
    EXPECT_EQ(hereFiles().size(), 2U);
    EXPECT_THAT(phone().names(QStringLiteral("Sync")), ElementsAre(SyncManifest::fileName));
}

/// The cable comes out after every few bytes, in either direction; then a run in peace.
TEST_F(SyncPhoneTest, unplugAtAnyStepLosesNothing) {
    int broken = 0;
    for (const UsbDirection direction : {UsbDirection::in, UsbDirection::out}) {
        for (unsigned phase = 1; phase < 60; phase += 3) {
            SCOPED_TRACE(testing::Message()
                         << (direction == UsbDirection::in ? "in " : "out ") << phase);
            plugIn({});
            QDir(pair_.localFolderPath).removeRecursively();
            local_.makeFolder(QStringLiteral("mac"));
            phone().disk.makeFolder(QStringLiteral("0/Sync"));
            here("old", "old");
            (void)run();
            here("old", "old, edited");
            here("up", manyBytes(2000));
            onPhone("down", manyBytes(3000));
            here("both", "one");
            onPhone("both", "another");
            phone().fault([&](VirtualFaults& faults) {
                faults.unplug = VirtualByteFault{direction, 12, phase};
            });
            QString failure;
            try {
                (void)run();
            } catch (const std::exception& error) {
                failure = QString::fromUtf8(error.what());
                ++broken;
            }
            phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
            replug();
            (void)run();
            const Files files = hereFiles();
            EXPECT_EQ(files, withoutLeftovers(phoneFiles()));
            EXPECT_EQ(files.at(QStringLiteral("old")), "old, edited");
            EXPECT_EQ(files.at(QStringLiteral("up")), manyBytes(2000));
            EXPECT_EQ(files.at(QStringLiteral("down")), manyBytes(3000));
            const auto holds = [&](const char* content) {
                return std::any_of(files.begin(), files.end(),
                                   [&](const auto& file) { return file.second == content; });
            };
            EXPECT_TRUE(holds("one") && holds("another"));
            expectQuietRun();
        }
    }
    EXPECT_GT(broken, 12);
}

TEST_F(SyncPhoneTest, cancellationStopsInMidFileAndTheNextRunGoesOn) {
    here("big", manyBytes(4'000'000));
    phone().fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 20; });
    std::stop_source stop;
    DiskSyncFolder folder(pair_.localFolderPath);
    AndroidSyncBackend backend(*service_, phone().info, stop.get_token());
    SyncRunEvents events;
    std::vector<qint64> steps;
    events.progress = [&](const SyncProgress& progress) {
        steps.push_back(progress.currentFileBytes);
        if (progress.currentFileBytes > 1'000'000)
            stop.request_stop();
    };
    EXPECT_THROW((void)SyncRun({pair_,
                                QStringLiteral("HOST"),
                                {},
                                folder,
                                backend,
                                [] { return QDateTime::currentDateTime(); }},
                               events, stop.get_token())
                     .run(),
                 CancellationError);
    EXPECT_THAT(phoneFiles(), IsEmpty());
    phone().fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0; });
    (void)run();
    EXPECT_EQ(hereFiles(), phoneFiles());
}

TEST_F(SyncPhoneTest, whatCannotBeSyncedIsNamedAndLeftAlone) {
    const QString outside = local_.write(QStringLiteral("outside/secret"), "secret");
    here("good", "good");
    here("what?.txt", "?");
    here("locked", "locked");
    onPhone("folder/x", "x");
    here("folder", "a file");
    QFile::link(outside, local_.path(QStringLiteral("mac/link")));
    QFile::link(local_.path(QStringLiteral("outside")), local_.path(QStringLiteral("mac/links")));
    here(".tessary-part-0123456789ab", "left by an earlier run");
    onPhone(".tessary-part-old", "left by an earlier run");
    onPhone(".tessary-part-new", "somebody is at work");
    QFile old(phone().disk.path(QStringLiteral("0/Sync/.tessary-part-old")));
    ASSERT_TRUE(old.open(QIODevice::ReadWrite) &&
                old.setFileTime(QDateTime::currentDateTime().addSecs(-3600),
                                QFileDevice::FileModificationTime));
    old.close();
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = local_.path(QStringLiteral("mac/socket")).toLocal8Bit();
    std::copy(path.begin(), path.end(), address.sun_path);
    ASSERT_EQ(bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    const SyncReport report = run();
    close(socket);
    EXPECT_THAT(report.uploaded, Contains(QStringLiteral("good")));
    QStringList skipped;
    for (const SkippedItem& item : report.skipped)
        skipped.append(item.path);
    skipped.sort();
    EXPECT_THAT(skipped, ElementsAre(QStringLiteral("folder"), QStringLiteral("folder/x"),
                                     QStringLiteral("link"), QStringLiteral("links"),
                                     QStringLiteral("socket"), QStringLiteral("what?.txt")));
    EXPECT_EQ(local_.read(QStringLiteral("outside/secret")), "secret");
    EXPECT_EQ(hereFiles().at(QStringLiteral("folder")), "a file");
    EXPECT_FALSE(phoneFiles().contains(QStringLiteral(".tessary-part-0123456789ab")));
    EXPECT_FALSE(phoneFiles().contains(QStringLiteral(".tessary-part-old")));
    EXPECT_TRUE(phoneFiles().contains(QStringLiteral(".tessary-part-new")));
}

TEST_F(SyncPhoneTest, scanThatCannotSeeEverythingEndsTheRun) {
    here("a", "a");
    onPhone("b", "b");
    (void)run();
    answer_ = true;
    const Files before = hereFiles();
    using Change = std::function<void()>;
    const std::pair<const char*, Change> rows[] = {
        {"a listing fails",
         [this] {
             phone().refuse(MTPOperationCode::getObjectHandles, MTPResponseCode::generalError,
                            false);
         }},
        {"the phone is locked", [this] { phone().android.setLocked(true); }},
        {"the folder is gone",
         [this] {
             phone().android.setLocked(false);
             QDir(phone().disk.path(QStringLiteral("0")))
                 .rename(QStringLiteral("Sync"), QStringLiteral("Elsewhere"));
         }},
    };
    for (const auto& [name, change] : rows) {
        change();
        EXPECT_FALSE(failureOf([this] { (void)run(); }).isEmpty()) << name;
        EXPECT_EQ(hereFiles(), before) << name;
    }
    EXPECT_THAT(questions_, IsEmpty());

    phone().write(QStringLiteral("c"), "c");
    phone().refuse(MTPOperationCode::getObjectInfo, MTPResponseCode::generalError, false);
    EXPECT_FALSE(failureOf([this] {
                     (void)service_->listDirectoryChecked(QStringLiteral("/"), phone().info);
                 }).isEmpty());
}

TEST_F(SyncPhoneTest, folderHereThatIsUnfitEndsTheRun) {
    here("a", "a");
    (void)run();
    QDir(pair_.localFolderPath).removeRecursively();
    EXPECT_THAT(failureOf([this] { (void)run(); }).toStdString(), HasSubstr("is missing"));
    local_.write(QStringLiteral("mac"), "a file");
    EXPECT_THAT(failureOf([this] { (void)run(); }).toStdString(), HasSubstr("not a folder"));
    QFile::remove(pair_.localFolderPath);
    local_.makeFolder(QStringLiteral("mac/unreadable"));
    onPhone("b", "b");
    {
        QFile::setPermissions(local_.path(), QFile::ReadOwner | QFile::WriteOwner |
                                                 QFile::ExeOwner | QFile::ReadGroup |
                                                 QFile::ExeGroup | QFile::ReadOther |
                                                 QFile::ExeOther);
        QFile::setPermissions(local_.path(QStringLiteral("mac/unreadable")), {});
        const OrdinaryUser user;
        EXPECT_THAT(failureOf([this] { (void)run(); }).toStdString(), HasSubstr("unreadable"));
    }
    EXPECT_EQ(phoneFiles().size(), 2U);
}

TEST_F(SyncPhoneTest, folderThatWasFilledMeanwhileIsNotTakenForAnEmptyOne) {
    onPhone("DCIM/new.jpg", "just taken");
    const FileItem folder = service_->itemAt(QStringLiteral("/Sync/DCIM"), phone().info);
    EXPECT_FALSE(failureOf([&] { service_->deleteEmptyFolder(folder, phone().info); }).isEmpty());
    EXPECT_EQ(phoneFiles().size(), 1U);
}

TEST_F(SyncPhoneTest, phoneThatCannotReplaceKeepsItsVersion) {
    here("a", "1");
    (void)run();
    phone().android.behaviour().update([](VirtualBehaviour& behaviour) {
        behaviour.unsupportedOperations.insert(
            static_cast<std::uint16_t>(MTPOperationCode::setObjectPropValue));
    });
    here("a", "edited");
    EXPECT_THAT(failureOf([this] { (void)run(); }).toStdString(), HasSubstr("cannot replace"));
    EXPECT_EQ(phoneFiles().at(QStringLiteral("a")), "1");
}

TEST_F(SyncPhoneTest, datesOfAnyCenturyAndTypeComeBack) {
    for (const auto& [name, year] : {std::pair{"first", 1970}, std::pair{"last", 2107}}) {
        here(name, name);
        QFile file(local_.path(QStringLiteral("mac/") + QString::fromUtf8(name)));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime(QDate(year, 1, 2), QTime(3, 4, 5)),
                                     QFileDevice::FileModificationTime));
    }
    onPhone("there", "there");
    (void)run();
    EXPECT_EQ(hereFiles(), phoneFiles());
    expectQuietRun();
}

} // namespace
} // namespace tessary
