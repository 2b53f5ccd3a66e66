#include "transfer/import/Import.h"

#include "base/local/LocalError.h"
#include "support/QtPrinters.h"
#include "transfer/ImportFixture.h"
#include "transfer/import/CameraFolders.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Operation = MemoryRequests::Operation;

FileItem fileAt(const char* path, const QDateTime& date = lunch, qint64 size = 10) {
    const QString at = QString::fromUtf8(path);
    return {at.section(u'/', -1), at, false, size, date};
}

/// "IMG_1.HEIC+IMG_1.MOV", in the order that they are shown in.
QStringList shown(const std::vector<Photo>& photos) {
    QStringList all;
    for (const Photo& photo : photos) {
        QStringList names;
        for (const FileItem& file : photo.files)
            names << file.name;
        all << names.join(u'+');
    }
    return all;
}

TEST(Photos, whatBelongsTogetherIsOne) {
    const struct {
        const char* name;
        std::vector<const char*> files;
        QStringList photos;
    } rows[] = {
        {"a moving picture", {"/D/IMG_1.MOV", "/D/IMG_1.HEIC"}, {u"IMG_1.HEIC+IMG_1.MOV"_s}},
        {"an edited one",
         {"/D/IMG_0001.HEIC", "/D/IMG_0001.AAE", "/D/IMG_E0001.JPG", "/D/IMG_O0001.AAE"},
         {u"IMG_E0001.JPG+IMG_0001.HEIC+IMG_0001.AAE+IMG_O0001.AAE"_s}},
        {"raw beside it", {"/D/a.dng", "/D/A.JPG"}, {u"A.JPG+a.dng"_s}},
        {"raw of another naming",
         {"/D/PXL_20260101_120000000.RAW-02.ORIGINAL.dng",
          "/D/PXL_20260101_120000000.RAW-01.COVER.jpg"},
         {u"PXL_20260101_120000000.RAW-01.COVER.jpg+PXL_20260101_120000000.RAW-02.ORIGINAL.dng"_s}},
        {"a film alone", {"/D/IMG_2.MOV"}, {u"IMG_2.MOV"_s}},
        {"one name in two folders",
         {"/D/1/IMG_1.JPG", "/D/2/IMG_1.JPG"},
         {u"IMG_1.JPG"_s, u"IMG_1.JPG"_s}},
        {"no edits of another number",
         {"/D/IMG_E001.JPG", "/D/IMG_001.JPG"},
         {u"IMG_001.JPG"_s, u"IMG_E001.JPG"_s}},
        {"companions of nothing and strangers", {"/D/IMG_3.AAE", "/D/notes.txt", "/D/jpg"}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<FileItem> files;
        for (const char* path : row.files)
            files.push_back(fileAt(path));
        EXPECT_EQ(shown(photosOf(files)), row.photos);
    }
}

TEST(CameraFolders, areThoseOfEachStorageAndListedDeep) {
    DeviceInfo device;
    device.platform = DevicePlatform::android;
    device.volumes.resize(2);
    device.volumes[1].id = u"ABCD"_s;
    EXPECT_EQ(cameraFoldersOf(device), (QStringList{u"/sdcard/DCIM"_s, u"/storage/ABCD/DCIM"_s}));
    const ImportFixture import;
    import.take("100APPLE/a.jpg", "a");
    import.take(".thumbnails/b.jpg", "b");
    import.take("Camera/.trashed-1-c.jpg", "c");
    import.take("Camera/d.mp4", "d");
    import.phone->addUnreadable(u"/DCIM/Camera/bad.jpg"_s, {PhoneError::unreadable});
    import.phone->addFolder(u"/DCIM/Locked"_s);
    import.phone->fail(Operation::list, u"/DCIM/Locked"_s, {PhoneError::accessDenied});
    const FoundPhotos found = import.find();
    EXPECT_EQ(shown(found.photos), (QStringList{u"a.jpg"_s, u"d.mp4"_s}));
    QStringList unreadable;
    for (const UnreadableEntry& entry : found.unreadable)
        unreadable << entry.path;
    EXPECT_THAT(unreadable,
                testing::UnorderedElementsAre(u"/DCIM/Camera/bad.jpg"_s, u"/DCIM/Locked"_s));
}

TEST(Import, interruptedItGoesOnWithWhatIsMissing) {
    const ImportFixture import;
    for (int n = 0; n < 9; ++n)
        import.take(qPrintable(u"IMG_%1.JPG"_s.arg(n)), QByteArray(5000, 'p'), lunch.addSecs(n));
    import.phone->failAfterBytes(Operation::read, u"/DCIM/IMG_4.JPG"_s, 2000,
                                 {PhoneError::unplugged});
    const CopyOutcome first = import.fetch();
    EXPECT_EQ(first.end(), CopyOutcome::End::failed);
    EXPECT_EQ(first.files, 4);
    import.phone->forgetRequests();
    EXPECT_EQ(import.fetch().files, 5);
    EXPECT_EQ(import.phone->bytes(Operation::read), 5 * 2 * 5000); // the second time to compare
    EXPECT_EQ(import.here().size(), 9);
}

TEST(Import, aCopyThatWasRenamedOrDeletedHereIsNotFetchedAgain) {
    const ImportFixture import;
    import.take("IMG_1.JPG", "one");
    import.take("IMG_2.JPG", "two");
    (void)import.fetch();
    ASSERT_TRUE(
        QFile::rename(import.target() + u"/IMG_1.JPG"_s, import.target() + u"/Beach.jpg"_s));
    ASSERT_TRUE(QFile::remove(import.target() + u"/IMG_2.JPG"_s));
    EXPECT_EQ(import.fetch().files, 0);
    EXPECT_EQ(import.here(), QStringList(u"Beach.jpg=one"_s));
    // Unless that is wished.
    const FoundPhotos found = import.find();
    const ImportPlan again =
        planImport(found.photos, *found.ledger, *import.to(), import.target(), {.again = true}, {});
    EXPECT_EQ(again.items.size(), 2U);
}

TEST(Import, filesOfOnePhotoGetOneFolderAndOneNumber) {
    const ImportFixture import;
    import.disk->write(u"pictures/2026/2026-05-17/IMG_0001.MOV"_s, "a stranger");
    import.take("IMG_0001.HEIC", "still");
    import.take("IMG_0001.MOV", "moving");
    (void)import.fetch({.byDate = true});
    // It is edited weeks later.
    import.take("IMG_E0001.HEIC", "better", lunch.addDays(30));
    (void)import.fetch({.byDate = true});
    EXPECT_EQ(import.here(), (QStringList{u"2026/2026-05-17/IMG_0001 (2).HEIC=still"_s,
                                          u"2026/2026-05-17/IMG_0001 (2).MOV=moving"_s,
                                          u"2026/2026-05-17/IMG_0001.MOV=a stranger"_s,
                                          u"2026/2026-05-17/IMG_E0001 (2).HEIC=better"_s}));
    EXPECT_EQ(QFileInfo(import.target() + u"/2026/2026-05-17/IMG_0001 (2).HEIC"_s).lastModified(),
              lunch);
}

TEST(ImportLedger, knowsAFileByPathSizeAndDate) {
    const TemporaryFolder folder;
    ImportLedger ledger(folder.path(), u"X"_s);
    ledger.add({{u"/DCIM/100/a.jpg"_s, 10, lunch, u"/home/a.jpg"_s, "hash"},
                {u"/DCIM/100/none.jpg"_s, 10, {}, {}, {}}});
    FileItem undated = fileAt("/DCIM/100/a.jpg");
    undated.modifiedDate.reset();
    FileItem namesake = fileAt("/DCIM/200/none.jpg");
    namesake.modifiedDate.reset();
    const struct {
        const char* name;
        FileItem file;
        bool isKnown;
    } rows[] = {
        {"itself", fileAt("/DCIM/100/a.jpg"), true},
        {"cut to the second by another way", fileAt("/DCIM/100/a.jpg", lunch.addMSecs(900)), true},
        {"in another time zone", fileAt("/DCIM/100/a.jpg", lunch.addSecs(9 * 3600)), true},
        {"listed without a date", undated, true},
        {"another one without a date", namesake, false},
        {"moved on the phone", fileAt("/DCIM/200/a.jpg"), true},
        {"moved, and hours younger", fileAt("/DCIM/200/a.jpg", lunch.addSecs(9 * 3600)), false},
        {"changed a minute later", fileAt("/DCIM/100/a.jpg", lunch.addSecs(60)), false},
        {"changed in size", fileAt("/DCIM/100/a.jpg", lunch, 11), false},
        {"another name", fileAt("/DCIM/100/b.jpg"), false},
        {"days later", fileAt("/DCIM/100/a.jpg", lunch.addDays(3)), false},
    };
    // As it was written, and as it is read again.
    const ImportLedger again(folder.path(), u"X"_s);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(ledger.find(row.file).has_value(), row.isKnown);
        EXPECT_EQ(again.find(row.file).has_value(), row.isKnown);
    }
    EXPECT_EQ(again.find(fileAt("/DCIM/100/a.jpg")),
              (ImportRecord{u"/DCIM/100/a.jpg"_s, 10, lunch.toUTC(), u"/home/a.jpg"_s, "hash"}));
    EXPECT_FALSE(ImportLedger(folder.path(), u"Y"_s).find(rows[0].file));
}

TEST(Import, whatCannotBeRecordedIsNoSuccess) {
    const ImportFixture import;
    import.take("IMG_1.JPG", "one");
    const FoundPhotos found = import.find();
    TreeCopyRequest request = importRequest(import.phone, import.to(), import.plan(), found.ledger);
    import.disk->write(u"ledgers"_s, "in the way");
    const CopyOutcome outcome = TreeCopy(request).run({}, {});
    ASSERT_EQ(outcome.end(), CopyOutcome::End::failed);
    EXPECT_TRUE(outcome.failure->is(LocalError::notAFolder));
    EXPECT_EQ(import.here(), QStringList{u"IMG_1.JPG=one"_s});
    // It is recorded by the next try, which has nothing to fetch.
    QFile::remove(import.ledgers());
    EXPECT_EQ(TreeCopy(request).run({}, {}).end(), CopyOutcome::End::done);
    EXPECT_TRUE(import.find().newOnes().empty());
}

TEST(ImportLedger, damagedLinesCountAsNoneAndTheNextOneStandsAlone) {
    const TemporaryFolder folder;
    ImportLedger ledger(folder.path(), u"../x"_s);
    ledger.add({{u"/a.jpg"_s, 10, lunch, {}, {}}});
    EXPECT_EQ(QFileInfo(ledger.file()).path(), folder.path());
    QFile file(ledger.file());
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(
        "[]\n{\"path\":\"/b.jpg\"}\n{\"path\":\"/c.jpg\",\"size\":-1}\nxx\n{\"path\":\"/d.j");
    file.close();
    ImportLedger(folder.path(), u"../x"_s).add({{u"/e.jpg"_s, 10, lunch, {}, {}}});
    const ImportLedger again(folder.path(), u"../x"_s);
    for (const auto& [path, isKnown] : {std::pair("/a.jpg", true),
                                        {"/b.jpg", false},
                                        {"/c.jpg", false},
                                        {"/d.jpg", false},
                                        {"/e.jpg", true}})
        EXPECT_EQ(again.find(fileAt(path)).has_value(), isKnown) << path;
}

TEST(ImportRemoval, takesFromThePhoneOnlyWhatLiesHereWhole) {
    const struct {
        const char* name;
        std::function<void(const ImportFixture&)> change;
        const char* left; ///< on the phone
        qint64 photos;
    } rows[] = {
        {"all is well", [](const auto&) {}, "", 2},
        {"renamed here",
         [](const auto& import) {
             QFile::rename(import.target() + u"/IMG_1.JPG"_s, import.target() + u"/B.jpg"_s);
         },
         "", 2},
        {"deleted here",
         [](const auto& import) { QFile::remove(import.target() + u"/IMG_1.JPG"_s); },
         "IMG_1.JPG IMG_1.MOV", 1},
        {"damaged here",
         [](const auto& import) { import.disk->write(u"pictures/IMG_1.MOV"_s, "mOving"); },
         "IMG_1.JPG IMG_1.MOV", 1},
        {"changed on the phone",
         [](const auto& import) { import.take("IMG_1.MOV", "other one", lunch.addSecs(9)); },
         "IMG_1.JPG IMG_1.MOV", 1},
        {"another of its size and date on the phone",
         [](const auto& import) { import.take("IMG_1.MOV", "MOVING"); }, "IMG_1.JPG IMG_1.MOV", 1},
        {"not fetched as a whole", [](const auto& import) { import.take("IMG_1.AAE", "edits"); },
         "IMG_1.AAE IMG_1.JPG IMG_1.MOV", 1},
        {"refused by the phone",
         [](const auto& import) {
             import.phone->fail(Operation::remove, u"/DCIM/IMG_1.JPG"_s,
                                {PhoneError::accessDenied});
         },
         "IMG_1.JPG IMG_1.MOV", 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ImportFixture import;
        import.take("IMG_1.JPG", "one");
        import.take("IMG_1.MOV", "moving");
        import.take("IMG_2.JPG", "two");
        ASSERT_EQ(import.fetch().files, 3);
        row.change(import);
        const ImportRemoval result = import.removeAll();
        EXPECT_EQ(result.photos, row.photos);
        EXPECT_EQ(result.leftOut.empty(), row.photos == 2);
        QStringList left;
        for (const QString& path : import.phone->tree())
            if (!path.endsWith(u'/'))
                left << path.section(u'/', -1);
        EXPECT_EQ(left.join(u' '), QString::fromLatin1(row.left));
    }
}

} // namespace
} // namespace tessary
