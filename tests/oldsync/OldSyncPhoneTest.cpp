#include "support/OrdinaryUser.h"
#include "oldsync/SyncFolders.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SyncPhoneTest : public SyncByMTP {
protected:
    [[nodiscard]] std::string runFailure() {
        return failureOf([this] { (void)run(); }).toStdString();
    }
};

/// The cable comes out after every few bytes, in either direction; then a run in peace.
TEST_F(SyncPhoneTest, unplugAtAnyStepLosesNothing) {
    int broken = 0;
    for (const USBDirection direction : {USBDirection::in, USBDirection::out}) {
        for (unsigned phase = 1; phase < 60; phase += 3) {
            SCOPED_TRACE(testing::Message()
                         << (direction == USBDirection::in ? "in " : "out ") << phase);
            plugIn({});
            clear();
            here(u"old"_s, "old");
            (void)run();
            here(u"old"_s, "old, edited");
            here(u"up"_s, manyBytes(2000));
            onPhone(u"down"_s, manyBytes(3000));
            here(u"both"_s, "one");
            onPhone(u"both"_s, "another");
            phone().fault([&](VirtualFaults& faults) {
                faults.unplug = VirtualByteFault{direction, 12, phase};
            });
            broken += runFailure().empty() ? 0 : 1;
            phone().fault([](VirtualFaults& faults) { faults.unplug.reset(); });
            replug();
            (void)run();
            const Files files = hereFiles();
            EXPECT_EQ(files, phoneFilesButLeftovers());
            EXPECT_EQ(files.at(u"old"_s), "old, edited");
            EXPECT_EQ(files.at(u"up"_s), manyBytes(2000));
            EXPECT_EQ(files.at(u"down"_s), manyBytes(3000));
            EXPECT_TRUE(holds("one") && holds("another"));
            expectQuietRun();
        }
    }
    EXPECT_GT(broken, 12);
}

TEST_F(SyncPhoneTest, cancellationStopsInMidFileAndTheNextRunGoesOn) {
    here(u"big"_s, manyBytes(4'000'000));
    phone().fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 20; });
    std::stop_source stop;
    onProgress_ = [&](const SyncProgress& progress) {
        if (progress.currentFileBytes > 1'000'000)
            stop.request_stop();
    };
    EXPECT_THROW((void)run(stop.get_token()), CancellationError);
    EXPECT_THAT(phoneFiles(), IsEmpty());
    phone().fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 0; });
    (void)run();
    EXPECT_EQ(hereFiles(), phoneFiles());
}

TEST_F(SyncPhoneTest, whatCannotBeSyncedIsNamedAndLeftAlone) {
    const QString outside = computer_.write(u"outside/secret"_s, "secret");
    here(u"good"_s, "good");
    here(u"what?.txt"_s, "?");
    here(u"locked"_s, "locked");
    onPhone(u"folder/x"_s, "x");
    here(u"folder"_s, "a file");
    QFile::link(outside, computer_.path(u"mac/link"_s));
    QFile::link(computer_.path(u"outside"_s), computer_.path(u"mac/links"_s));
    here(u".tessary-part-0123456789ab"_s, "left by an earlier run");
    onPhone(u".tessary-part-old"_s, "left by an earlier run");
    onPhone(u".tessary-part-new"_s, "somebody is at work");
    setDate(phoneFolder() + u"/.tessary-part-old"_s, QDateTime::currentDateTime().addSecs(-3600));
    ASSERT_EQ(mkfifo(qPrintable(computer_.path(u"mac/pipe"_s)), 0600), 0);
    const SyncReport report = run();
    EXPECT_THAT(report.uploaded, Contains(u"good"_s));
    QStringList skipped;
    for (const SkippedItem& item : report.skipped)
        skipped.append(item.path);
    skipped.sort();
    EXPECT_THAT(skipped, ElementsAre(u"folder"_s, u"folder/x"_s, u"link"_s, u"links"_s, u"pipe"_s,
                                     u"what?.txt"_s));
    EXPECT_EQ(computer_.read(u"outside/secret"_s), "secret");
    EXPECT_EQ(hereFiles().at(u"folder"_s), "a file");
    EXPECT_FALSE(phoneFiles().contains(u".tessary-part-0123456789ab"_s));
    EXPECT_FALSE(phoneFiles().contains(u".tessary-part-old"_s));
    EXPECT_TRUE(phoneFiles().contains(u".tessary-part-new"_s));
}

TEST_F(SyncPhoneTest, scanThatCannotSeeEverythingEndsTheRun) {
    here(u"a"_s, "a");
    onPhone(u"b"_s, "b");
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
             QDir(phone().disk.path(u"0"_s)).rename(u"Sync"_s, u"Elsewhere"_s);
         }},
    };
    for (const auto& [name, change] : rows) {
        change();
        EXPECT_FALSE(runFailure().empty()) << name;
        EXPECT_EQ(hereFiles(), before) << name;
    }
    EXPECT_THAT(questions_, IsEmpty());

    phone().write(u"c"_s, "c");
    phone().refuse(MTPOperationCode::getObjectInfo, MTPResponseCode::generalError, false);
    EXPECT_FALSE(failureOf([this] {
                     (void)service_->listDirectoryChecked(u"/"_s, phone().info);
                 }).isEmpty());
}

TEST_F(SyncPhoneTest, folderHereThatIsUnfitEndsTheRun) {
    here(u"a"_s, "a");
    (void)run();
    QDir(pair_.localFolderPath).removeRecursively();
    EXPECT_THAT(runFailure(), HasSubstr("is missing"));
    computer_.write(u"mac"_s, "a file");
    EXPECT_THAT(runFailure(), HasSubstr("not a folder"));
    QFile::remove(pair_.localFolderPath);
    computer_.makeFolder(u"mac/unreadable"_s);
    onPhone(u"b"_s, "b");
    {
        ASSERT_EQ(chmod(qPrintable(computer_.path()), 0755), 0);
        ASSERT_EQ(chmod(qPrintable(computer_.path(u"mac/unreadable"_s)), 0), 0);
        const OrdinaryUser user;
        EXPECT_THAT(runFailure(), HasSubstr("unreadable"));
    }
    EXPECT_EQ(phoneFiles().size(), 2U);
}

} // namespace
} // namespace tessary
