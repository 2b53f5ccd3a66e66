#include "ios/files/AFCFileSystem.h"

#include "base/local/FileHandle.h"
#include "phone/PartNames.h"
#include "support/IPhoneFiles.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"

#include <QFile>
#include <QTimeZone>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <thread>
#include <unistd.h>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using testing::StartsWith;

constexpr qint64 mebibyte = qint64{1} << 20;
const QDateTime someDate(QDate(2021, 3, 4), QTime(5, 6, 7, 89), QTimeZone::utc());

class AFCFileSystemTest : public testing::Test {
protected:
    void callListed(const QString& name, const QString& shown) {
        iphone_.faults([&](VirtualIPhoneFaults& faults) { faults.nameOverrides[name] = shown; });
    }

    [[nodiscard]] std::size_t requests() {
        std::size_t count = 0;
        for (const char* request :
             {"readDir", "getFileInfo", "fileOpen", "fileRead", "fileWrite", "fileClose",
              "fileSeek", "setFileModTime", "removePath", "renamePath"})
            count += iphone_.count(("afc." + std::string(request)).c_str());
        return count;
    }

    [[nodiscard]] std::size_t timesOpened(const QString& name) {
        const auto requests = iphone_.phone.log().requests();
        return static_cast<std::size_t>(
            std::count_if(requests.begin(), requests.end(), [&](const auto& one) {
                return one.request == u"afc.fileOpen"_s && one.detail.endsWith(u'/' + name);
            }));
    }

    IPhoneFiles iphone_;
    AFCFileSystem& files_ = iphone_.files;
};

TEST(AFCFileSystem, opensDocumentsWhereverTheContainerHasThem) {
    for (const bool areRoot : {false, true}) {
        IPhoneFiles iphone({.documentsAreRoot = areRoot});
        iphone.write(u"Documents/a"_s, "1"); // a folder called like the root is not the root
        iphone.write(u"keep"_s, "2");
        EXPECT_EQ(iphone.names(u"/"_s), (QStringList{u"Documents"_s, u"keep"_s}));
        EXPECT_EQ(iphone.get(u"/Documents/a"_s), "1");
        iphone.files.removeTree(iphone.item(u"/Documents"_s), {});
        EXPECT_EQ(iphone.names(u"/"_s), QStringList(u"keep"_s));
    }
}

TEST(AFCFileSystem, aLieAboutTheDocumentsDoesNotOutliveItsQuestion) {
    constexpr std::uint64_t notFound = 8;
    IPhoneFiles iphone;
    iphone.write(u"a.txt"_s, "content");
    iphone.refuse("afc.readDir", notFound);
    EXPECT_THROW((void)iphone.names(u"/"_s), Error);
    EXPECT_EQ(iphone.names(u"/"_s), QStringList(u"a.txt"_s));
}

/// Whoever keeps folders in step would find another folder in the place of his own.
TEST(AFCFileSystem, aLookForTheDocumentsThatIsRefusedOpensNoOtherFolder) {
    constexpr std::uint64_t permissionDenied = 10;
    for (const bool areRoot : {false, true})
        for (const unsigned before : {0, 1}) // the look at "/Documents", and that at "/"
            for (const std::uint64_t status : {1, 10}) {
                SCOPED_TRACE(std::to_string(before) + ", status " + std::to_string(status));
                if (before == 1 && status == permissionDenied)
                    continue; // so phones keep to themselves what lies beside the documents
                IPhoneFiles iphone({.documentsAreRoot = areRoot});
                iphone.write(u"Documents/a"_s, "1");
                iphone.write(u"keep"_s, "2");
                iphone.faults([&](VirtualIPhoneFaults& faults) {
                    faults.statuses[u"afc.readDir"_s] = {status, false, before};
                });
                EXPECT_NE(errorOf([&] { (void)iphone.names(u"/"_s); }), "nothing was thrown");
                EXPECT_EQ(iphone.names(u"/"_s), (QStringList{u"Documents"_s, u"keep"_s}));
            }
}

TEST_F(AFCFileSystemTest, listsFactsAndNamesWhatCannotBeRead) {
    iphone_.write(u"b.txt"_s, "12345");
    iphone_.disk.makeFolder(iphone_.inDocuments(u"zoo"_s));
    for (const QString& name : {u"evil"_s, u"slash"_s, u"gone"_s})
        iphone_.write(name, "x");
    ASSERT_EQ(symlink("b.txt", iphone_.disk.path(iphone_.inDocuments(u"link"_s)).toUtf8()), 0);
    const QByteArray latin = iphone_.disk.path(iphone_.inDocuments(u"\u00e9"_s)).toLatin1();
    FileHandle(::open(latin.constData(), O_CREAT | O_CLOEXEC, 0600));
    callListed(u"evil"_s, u".."_s + u"/../escaped"_s);
    callListed(u"slash"_s, u"a/b"_s);
    callListed(u"gone"_s, u"nowhere"_s);
    files_.setModified(iphone_.item(u"/b.txt"_s), someDate, {});

    const Listing listing = listAll(files_, u"/"_s, {});
    ASSERT_EQ(listing.items.size(), 2U);
    EXPECT_EQ(listing.items[0], FileItem(u"b.txt"_s, u"/b.txt"_s, false, 5, someDate));
    EXPECT_EQ(listing.items[1].path, u"/zoo"_s);
    EXPECT_TRUE(listing.items[1].isDirectory);
    std::vector<std::string> unreadable;
    for (const UnreadableEntry& entry : listing.unreadable)
        unreadable.emplace_back(entry.error.what());
    EXPECT_THAT(unreadable,
                testing::UnorderedElementsAre("nameNotAllowed (escaped)", "nameNotAllowed (b)",
                                              "unreadable (/nowhere)", "notSupported (/link)",
                                              StartsWith("nameNotAllowed (")));
    ASSERT_EQ(unlink(latin.constData()), 0); // Qt would not find it
}

TEST_F(AFCFileSystemTest, aLongFolderIsListedByTwoConnectionsInThePhonesOrder) {
    constexpr int count = 1200;
    for (int n = 0; n < count; ++n)
        iphone_.write(u"many/%1"_s.arg(n, 5, 10, QLatin1Char('0')), "x");
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.delayEach = 2ms; });
    std::optional<std::size_t> askedBefore; // the first rows
    QStringList names;
    files_.list(u"/many"_s,
                {[&](std::vector<FileItem>&& rows) {
                     if (!askedBefore)
                         askedBefore = iphone_.count("afc.getFileInfo");
                     for (const FileItem& row : rows)
                         names << row.name;
                 },
                 {}},
                {});
    EXPECT_EQ(names.size(), count);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(iphone_.count("houseArrest.VendDocuments"), 2U);
    EXPECT_LT(askedBefore, std::size_t{count});
}

TEST_F(AFCFileSystemTest, aLongListingThatIsCutOnEitherConnectionIsAnError) {
    for (int n = 0; n < 600; ++n)
        iphone_.write(u"many/%1"_s.arg(n), "x");
    (void)listAll(files_, u"/many"_s, {});
    for (unsigned nth = 20; nth <= 600; nth += 97) {
        iphone_.faults([&](VirtualIPhoneFaults& faults) {
            faults.requestFault = {u"afc.getFileInfo"_s, nth, false, VirtualCut::close};
        });
        EXPECT_THAT(errorOf([&] { (void)listAll(files_, u"/many"_s, {}); }),
                    StartsWith("brokenOff"))
            << nth;
        EXPECT_EQ(listAll(files_, u"/many"_s, {}).items.size(), 600U);
    }
}

TEST_F(AFCFileSystemTest, aRefusalOfALockedPhoneIsNotTheFilesDoing) {
    (void)iphone_.names(u"/"_s);
    iphone_.phone.setLocked(true);
    iphone_.refuse("afc.makeDir", 10);
    EXPECT_EQ(errorOf([&] { files_.makeFolder(u"/"_s, u"b"_s, {}); }),
              "locked, caused by permissionDenied (10)");
}

TEST_F(AFCFileSystemTest, nothingIsRemovedOrRenamedThatIsNotWhatWasSeen) {
    iphone_.write(u"a"_s, "12345");
    const FileItem seen = iphone_.item(u"/a"_s);
    const std::tuple<const char*, const char*, QDateTime> rows[] = {
        {"another size", "123456", *seen.modifiedDate}, {"another date", "54321", someDate}};
    for (const auto& [name, content, date] : rows) {
        SCOPED_TRACE(name);
        iphone_.write(u"a"_s, content);
        files_.setModified(iphone_.item(u"/a"_s), date, {});
        EXPECT_EQ(errorOf([&] { files_.remove(seen, {}); }), "changed (/a)");
        EXPECT_EQ(errorOf([&] { files_.removeTree(seen, {}); }), "changed (/a)");
        EXPECT_EQ(errorOf([&] { files_.rename(seen, u"b"_s, TakenName::refused, {}); }),
                  "changed (/a)");
        EXPECT_EQ(iphone_.names(u"/"_s), QStringList(u"a"_s));
    }
}

TEST(AFCFileSystem, aFullFolderStaysUnlessTheTreeIsMeantWhateverTheRefusalsNumber) {
    for (const std::uint64_t status : {33, 1}) {
        IPhoneFiles iphone({.fullFolderStatus = status});
        iphone.write(u"tree/a/b/c.txt"_s, "1");
        iphone.write(u"tree/d.txt"_s, "2");
        iphone.write(u"stays.txt"_s, "3");
        ASSERT_EQ(
            symlink("../stays.txt", iphone.disk.path(iphone.inDocuments(u"tree/l"_s)).toUtf8()), 0);
        const FileItem tree = iphone.item(u"/tree"_s);
        EXPECT_THAT(errorOf([&] { iphone.files.remove(tree, {}); }),
                    StartsWith("folderNotEmpty (/tree)"));
        EXPECT_TRUE(iphone.has(u"tree/a/b/c.txt"_s));
        iphone.files.removeTree(tree, {});
        EXPECT_EQ(iphone.names(u"/"_s), QStringList(u"stays.txt"_s));
        EXPECT_EQ(errorOf([&] { iphone.files.removeTree(iphone.item(u"/"_s), {}); }),
                  "wholeStorage (/)");
    }
}

TEST_F(AFCFileSystemTest, removalStaysInItsFolderWhateverNamesAreListed) {
    iphone_.write(u"tree/inner"_s, "1");
    iphone_.write(u"precious"_s, "2");
    const FileItem tree = iphone_.item(u"/tree"_s);
    callListed(u"inner"_s, u"../precious"_s);
    EXPECT_EQ(errorOf([&] { files_.removeTree(tree, {}); }), "nameNotAllowed (../precious)");
    EXPECT_TRUE(iphone_.has(u"precious"_s));
}

TEST_F(AFCFileSystemTest, aPhoneThatReplacesNothingByARenameIsBelievedFromThenOn) {
    iphone_.write(u"a"_s, "a");
    iphone_.write(u"b"_s, "b");
    const auto replace = [&] {
        files_.rename(iphone_.item(u"/a"_s), u"b"_s, TakenName::replaced, {});
    };
    iphone_.refuse("afc.renamePath", 16);
    EXPECT_TRUE(files_.capabilities({}).renamesOntoTaken);
    EXPECT_EQ(errorOf(replace),
              "notSupported (/a), caused by taken (/a), caused by objectExists (16)");
    EXPECT_FALSE(files_.capabilities({}).renamesOntoTaken);
    EXPECT_EQ(errorOf(replace), "notSupported (/a)");
    EXPECT_EQ(iphone_.count("afc.renamePath"), 1U);
    EXPECT_EQ(iphone_.read(u"b"_s), "b");

    AFCFileSystem another(iphone_.identity(), IPhoneFiles::notes(), iphone_.queue);
    another.rename(iphone_.item(u"/a"_s), u"b"_s, TakenName::replaced, {});
    EXPECT_EQ(iphone_.read(u"b"_s), "a");
}

TEST(AFCFileSystem, theMediaFolderIsReadAndWrittenWhereThePhoneTakesIt) {
    const TemporaryFolder media;
    media.write(u"DCIM/100APPLE/IMG_0001.HEIC"_s, "picture");
    IPhoneFiles iphone({.mediaFolder = media.path()}, true);
    EXPECT_EQ(iphone.names(u"/DCIM/100APPLE"_s), QStringList(u"IMG_0001.HEIC"_s));
    EXPECT_EQ(iphone.get(u"/DCIM/100APPLE/IMG_0001.HEIC"_s), "picture");
    EXPECT_EQ(errorOf([&] {
                  iphone.put({u"/DCIM/100APPLE"_s, u"b"_s, 1, {}}, "b");
              }),
              "accessDenied (/DCIM/100APPLE/b), caused by permissionDenied (10)");
    EXPECT_EQ(media.names(u"DCIM/100APPLE"_s), QStringList(u"IMG_0001.HEIC"_s));
    media.makeFolder(u"Downloads"_s);
    EXPECT_EQ(iphone.put({u"/Downloads"_s, u"b"_s, 1, {}}, "b").size, 1);
    iphone.files.remove(iphone.item(u"/DCIM/100APPLE/IMG_0001.HEIC"_s), {});
    EXPECT_FALSE(media.has(u"DCIM/100APPLE/IMG_0001.HEIC"_s));
}

TEST_F(AFCFileSystemTest, aSmallFileTakesThreeRequestsToReadAndSixToWrite) {
    iphone_.write(u"a"_s, manyBytes(1000));
    const FileItem item = iphone_.item(u"/a"_s);
    std::size_t before = requests();
    EXPECT_EQ(files_.read(item, {}, [](ByteView) {}, {}), 1000);
    EXPECT_EQ(requests() - before, 3U);
    before = requests();
    iphone_.put({u"/"_s, u"b"_s, 1000, someDate}, manyBytes(1000));
    EXPECT_EQ(requests() - before, 6U); // look, open, write, close, date, look
    before = requests();
    const FileItem part = iphone_.put({u"/"_s, newPartName(), 1000, someDate}, manyBytes(1000));
    const FileItem whole = files_.rename(part, u"b"_s, TakenName::replaced, {});
    EXPECT_EQ(requests() - before, 6U); // open, write, close, date, look, rename
    EXPECT_EQ(whole, iphone_.item(u"/b"_s));
    // Only right afterwards is it known to be the same still.
    before = requests();
    files_.rename(whole, u"c"_s, TakenName::replaced, {});
    EXPECT_EQ(requests() - before, 2U);
}

TEST_F(AFCFileSystemTest, aFileThatGrewOrShrankIsReadAsItIs) {
    for (const qint64 size : {qint64{3}, qint64{7}, 2 * mebibyte}) {
        iphone_.write(u"a"_s, "12345");
        const FileItem seen = iphone_.item(u"/a"_s);
        iphone_.write(u"a"_s, manyBytes(size));
        qint64 count = 0;
        const ByteSink sink = [&](ByteView bytes) { count += static_cast<qint64>(bytes.size()); };
        EXPECT_EQ(files_.read(seen, {}, sink, {}), size);
        EXPECT_EQ(count, size);
    }
}

TEST_F(AFCFileSystemTest, aFileThatIsNotClosedLeavesNothingOnThePhone) {
    iphone_.refuse("afc.fileClose", 20);
    EXPECT_EQ(errorOf([&] {
                  iphone_.put({u"/"_s, u"up"_s, 3 * mebibyte, {}}, manyBytes(3 * mebibyte));
              }),
              "unreadable (/up), caused by ioError (20)");
    EXPECT_EQ(iphone_.names(u"/"_s), QStringList());
}

TEST_F(AFCFileSystemTest, aCopyThatThePhoneKeptOnlyInPartIsAnError) {
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.rewriteFileInfo = [](const QString&, const QStringList&) {
            return QStringList({u"st_ifmt"_s, u"S_IFREG"_s, u"st_size"_s, u"4"_s});
        };
    });
    EXPECT_EQ(errorOf([&] {
                  iphone_.put({u"/"_s, u"up"_s, 5, {}}, "12345");
              }),
              "wrongSize (/up, 4, 5)");
    EXPECT_EQ(iphone_.names(u"/"_s), QStringList());
}

TEST_F(AFCFileSystemTest, othersUseThePhoneWhileALargeFileCrosses) {
    const QByteArray content = manyBytes(3 * mebibyte);
    const auto inTurn = [&](const std::function<void()>& work) {
        const PhoneQueue::Turn turn = iphone_.queue->take({});
        work();
    };
    const char* none = "nothing was thrown";
    const struct {
        const char* name;
        std::function<void(const QString& file)> meanwhile;
        std::string error;
    } rows[] = {
        {"a listing", [&](const QString&) { EXPECT_EQ(iphone_.names(u"/"_s).size(), 2); }, none},
        {"a file is read", [&](const QString&) { (void)iphone_.get(u"/small"_s); }, none},
        {"a file is written",
         [&](const QString&) {
             iphone_.put({u"/"_s, u"new"_s, 3, {}}, "new");
         },
         none},
        {"what is written fails",
         [&](const QString&) {
             const ByteSource broken = [](std::span<std::byte>) -> std::size_t {
                 throw Error(PhoneError::refused);
             };
             EXPECT_EQ(errorOf([&] {
                           files_.write({u"/"_s, u"n"_s, 1, {}}, broken, {}, {});
                       }),
                       "refused");
         },
         none},
        {"the link is lost",
         [&](const QString&) {
             iphone_.faults([](VirtualIPhoneFaults& faults) {
                 faults.requestFault = {u"afc.readDir"_s, 1, false, VirtualCut::close};
             });
             (void)iphone_.names(u"/"_s);
         },
         none},
        {"it is cut short",
         [&](const QString& file) { inTurn([&] { iphone_.write(file, "short"); }); },
         "changed (/%1)"},
        {"it is removed",
         [&](const QString& file) {
             inTurn([&] { QFile::remove(iphone_.disk.path(iphone_.inDocuments(file))); });
         },
         "notFound (/%1)"},
    };
    int files = 0;
    for (const auto& row : rows)
        for (const bool isUpload : {false, true}) {
            // What the phone still does about an earlier one is not done to this one.
            const QString large = u"large %1"_s.arg(++files);
            SCOPED_TRACE(std::string(row.name) + (isUpload ? " up" : " down"));
            for (const QString& left : iphone_.disk.names(iphone_.inDocuments({})))
                QFile::remove(iphone_.disk.path(iphone_.inDocuments(left)));
            iphone_.faults([](VirtualIPhoneFaults& faults) { faults = {}; });
            iphone_.write(u"small"_s, "small");
            if (!isUpload)
                iphone_.write(large, content);
            const FileItem seen = isUpload ? FileItem() : iphone_.item(QLatin1Char('/') + large);
            iphone_.faults([](VirtualIPhoneFaults& faults) { faults.megabytesPerSecond = 10; });
            const std::size_t opened = timesOpened(large);
            std::jthread other;
            const auto meet = [&](qint64 done) {
                if (done < mebibyte || other.joinable())
                    return;
                other = std::jthread([&] { row.meanwhile(large); });
                while (iphone_.queue->waitingCount() == 0)
                    std::this_thread::yield();
            };
            const Call call{{}, Urgency::copy};
            QByteArray arrived;
            const std::string error = errorOf([&] {
                if (isUpload)
                    files_.write({u"/"_s, large, content.size(), {}}, sourceOf(content, meet), {},
                                 call);
                else
                    files_.read(
                        seen, {},
                        [&, into = sinkInto(arrived)](ByteView bytes) {
                            into(bytes);
                            meet(arrived.size());
                        },
                        call);
            });
            other.join();
            EXPECT_EQ(error,
                      QString::fromStdString(row.error).replace(u"%1"_s, large).toStdString());
            if (row.error != none)
                continue;
            EXPECT_EQ(timesOpened(large), opened + 2);
            EXPECT_TRUE(iphone_.read(large) == content);
            EXPECT_TRUE(isUpload || arrived == content);
        }
}

TEST(AFCFileSystem, silenceWithoutAnEndIsNoAnswer) {
    IPhoneFiles iphone({}, false, {.afterStop = 100ms, .ofSilence = 4s});
    iphone.faults([](VirtualIPhoneFaults& faults) { faults.hang.insert(u"afc.getFileInfo"_s); });
    EXPECT_EQ(errorOf([&] { (void)iphone.item(u"/a"_s); }), "noAnswer");
    iphone.faults([](VirtualIPhoneFaults& faults) { faults.hang.clear(); });
    iphone.phone.unplug();
    iphone.phone.plugInto(iphone.mux);
    EXPECT_EQ(iphone.names(u"/"_s), QStringList());
}

} // namespace
} // namespace tessary
