// What every way to a phone must do: MTP, the real adb, and the real library for iPhones, with the
// computer's side on a real disk.

#include "sync/SyncWays.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

template <typename Way>
class SyncWaysTest : public Way {};

using Ways = testing::Types<SyncByMTP, SyncByADB, SyncByAFC>;
TYPED_TEST_SUITE(SyncWaysTest, Ways, );

/// Two files of one size that begin alike for more than any sample.
QByteArray longContent(char last) {
    return QByteArray(20'000, 'x') + last;
}

TYPED_TEST(SyncWaysTest, everyModeCopiesItsWayAndASecondRunIsQuiet) {
    for (const SyncMode mode : {SyncMode::biDirectional, SyncMode::toPhone, SyncMode::toComputer}) {
        SCOPED_TRACE(rawValue(mode).toStdString());
        this->clear();
        this->pair_.syncMode = mode;
        this->here(u"deep/er/it's.txt"_s, QByteArray(300'000, 'h'));
        this->here(u"empty"_s, {});
        this->here(u"😀 snow.txt"_s, "unicode");
        this->onPhone(u"photos/1.heic"_s, QByteArray(70'000, 'p'));
        const auto hereBefore = this->hereFiles();
        const auto phoneBefore = this->phoneFiles();
        const SyncReport report = this->goodRun();
        EXPECT_EQ(report.paths({SyncDeed::upload}).size(), mode == SyncMode::toComputer ? 0 : 3);
        EXPECT_EQ(report.paths({SyncDeed::download}).size(), mode == SyncMode::toPhone ? 0 : 1);
        EXPECT_EQ(this->last_.completedBytes, this->last_.totalBytes);
        auto both = hereBefore;
        both.insert(phoneBefore.begin(), phoneBefore.end());
        EXPECT_EQ(this->hereFiles(), mode == SyncMode::toPhone ? hereBefore : both);
        EXPECT_EQ(this->phoneFiles(), mode == SyncMode::toComputer ? phoneBefore : both);
        EXPECT_THAT(this->parts(), IsEmpty());
        this->expectQuietRun();
    }
}

TYPED_TEST(SyncWaysTest, editsConflictsDeletionsAndMovesGoAcross) {
    this->here(u"edited"_s, longContent('1'));
    this->here(u"edited there"_s, longContent('1'));
    this->here(u"gone"_s, "2");
    this->here(u"dir/gone there"_s, "3");
    (void)this->goodRun();
    this->here(u"edited"_s, longContent('2'), 50);
    this->onPhone(u"edited there"_s, longContent('3'), 50);
    this->removeHere(u"gone"_s);
    this->removeOnPhone(u"dir/gone there"_s);
    this->here(u"both"_s, "mine");
    this->onPhone(u"both"_s, "theirs", 50);
    const SyncReport report = this->goodRun();
    EXPECT_THAT(report.paths({SyncDeed::replaceOnDevice}), ElementsAre(u"edited"_s));
    EXPECT_THAT(report.paths({SyncDeed::replaceHere}), ElementsAre(u"edited there"_s));
    EXPECT_THAT(report.paths({SyncDeed::deleteHere, SyncDeed::deleteOnDevice}),
                UnorderedElementsAre(u"gone"_s, u"dir/gone there"_s));
    EXPECT_EQ(report.paths({SyncDeed::keepBoth}).size(), 1);
    EXPECT_EQ(this->hereFiles(), this->phoneFiles());
    EXPECT_EQ(this->hereFiles().size(), 4U);
    EXPECT_EQ(this->hereFiles().at(u"both"_s), "theirs") << "the newer one keeps the name";
    for (const QByteArray& content :
         {longContent('2'), longContent('3'), QByteArray("mine"), QByteArray("theirs")})
        EXPECT_TRUE(this->holds(content));
    EXPECT_FALSE(this->computer_.has(u"mac/dir"_s));
    this->expectQuietRun();

    this->pair_.syncMode = SyncMode::toComputer;
    this->pair_.moveFilesEnabled = true;
    this->onPhone(u"deep/er/new"_s, "new");
    EXPECT_EQ(this->goodRun().paths({SyncDeed::moveHere}).size(), 5);
    EXPECT_THAT(this->phoneFiles(), IsEmpty());
    EXPECT_FALSE(QFileInfo::exists(this->phoneFolder() + u"/deep"_s));
    EXPECT_EQ(this->hereFiles().size(), 5U);
    this->pair_.syncMode = SyncMode::toPhone;
    EXPECT_EQ(this->goodRun().paths({SyncDeed::moveToDevice}).size(), 5);
    EXPECT_THAT(this->hereFiles(), IsEmpty());
    EXPECT_EQ(this->phoneFiles().size(), 5U);
}

/// What a second run asks the phone is what it takes to list the folders and to read the record.
TYPED_TEST(SyncWaysTest, secondRunAsksForNothingButTheListing) {
    for (int n = 0; n < 40; ++n)
        this->here(u"folder %1/file %2"_s.arg(n % 4).arg(n), QByteArray::number(n));
    (void)this->goodRun();
    this->forgetRequests();
    {
        const auto phone = this->open();
        (void)phone->capabilities({}); // what a connection asks once
        (void)phone->nameRules(u"/Sync"_s, {});
        std::vector<QString> folders{u"/Sync"_s};
        for (std::size_t n = 0; n < folders.size(); ++n)
            for (const FileItem& item : listAll(*phone, QString(folders[n]), {}).items)
                if (item.isDirectory)
                    folders.push_back(item.path);
                else if (item.name == SyncManifest::fileName)
                    phone->read(item, {}, [](ByteView) {}, {});
        ASSERT_EQ(folders.size(), 5U);
    }
    const std::size_t listing = this->requestCount();
    this->forgetRequests();
    EXPECT_FALSE(this->goodRun().hasChanges());
    std::printf("listing %zu requests, second run %zu\n", listing, this->requestCount());
    constexpr std::size_t root = 4; // whether the pair's folder and its record are there
    EXPECT_LE(this->requestCount(), listing + root);
}

TYPED_TEST(SyncWaysTest, nameThatChangedInCaseOnlyIsARename) {
    this->here(u"Photos/a.JPG"_s, longContent('1'));
    (void)this->goodRun();
    ASSERT_TRUE(QFile::rename(this->pair_.localFolderPath + u"/Photos/a.JPG"_s,
                              this->pair_.localFolderPath + u"/Photos/A.jpg"_s));
    EXPECT_THAT(this->goodRun().paths({SyncDeed::renameOnDevice}), ElementsAre(u"Photos/A.jpg"_s));
    EXPECT_EQ(this->hereFiles(), this->phoneFiles());
    EXPECT_THAT(this->questions_, IsEmpty());
    this->expectQuietRun();
}

/// A phone that keeps an object to itself for once is not without the folder, and one without its
/// card has it nowhere else.
TEST_F(SyncByMTP, folderThatIsNotShownIsMadeNowhereElse) {
    here(u"a"_s, "1");
    here(u"b"_s, "2");
    (void)goodRun();
    const Files all = phoneFiles();
    const QStringList names = phone_.names();
    const auto info = static_cast<std::uint16_t>(MTPOperationCode::getObjectInfo);
    phone_.fault([&](VirtualFaults& faults) { faults.errors[info] = {.always = true}; });
    EXPECT_EQ(run().outcome, SyncReport::Outcome::failed);
    phone_.fault([&](VirtualFaults& faults) { faults.errors.clear(); });
    pair_.remoteFolderPath = u"/storage/131073/Sync"_s;
    EXPECT_EQ(run().outcome, SyncReport::Outcome::failed);
    EXPECT_EQ(phone_.names(), names);
    EXPECT_EQ(phoneFiles(), all);
    EXPECT_THAT(questions_, IsEmpty());
    pair_.remoteFolderPath = u"/Sync"_s;
    expectQuietRun();
}

TEST_F(SyncByMTP, cableThatComesOutAtAnyPhaseLosesNothing) {
    int broken = 0;
    for (const USBDirection direction : {USBDirection::in, USBDirection::out}) {
        for (unsigned phase = 2; phase < 60; phase += 5) {
            SCOPED_TRACE(phase);
            prepareManyChanges();
            phone_.unplugAfter(direction, 20, phase);
            broken += run().outcome == SyncReport::Outcome::failed ? 1 : 0;
            phone_.fault([](VirtualFaults& faults) { faults.unplug.reset(); });
            phone_.android.unplug();
            ASSERT_NE(phone_.android.plugInto(bus_), 0U);
            expectManyChanges();
        }
    }
    EXPECT_GT(broken, 5);
}

TEST_F(SyncByADB, manySmallFilesAreNotSentOneByOne) {
    constexpr std::size_t files = 400;
    for (std::size_t n = 0; n < files; ++n)
        here(u"%1/%2.bin"_s.arg(n / 100).arg(n), QByteArray(20'000, 'x') + QByteArray::number(n));
    flushes_ = false;
    forgetRequests();
    (void)goodRun();
    EXPECT_LE(requestCount(), 6 * files);
    EXPECT_EQ(phoneFiles().size(), files);
}

class SyncByCaselessADB : public SyncByADB {
protected:
    SyncByCaselessADB() : SyncByADB({.folder = {}, .ignoresCase = true}) {}
};

/// It takes a third name for that, and the phone leaves the folder there.
TEST_F(SyncByCaselessADB, folderThatIsBeingSpelledInAnotherWayIsNotLost) {
    const QByteArray photo = longContent('p');
    here(u"Photos/1.jpg"_s, photo, 100'000);
    (void)goodRun();
    ASSERT_TRUE(
        QFile::rename(pair_.localFolderPath + u"/Photos"_s, pair_.localFolderPath + u"/photos"_s));
    adbd_->faults().update([this](ADBDFaults& faults) {
        faults.rewrite = [this](const QByteArray& line) -> std::optional<QByteArray> {
            const qsizetype at = line.indexOf(".tessary-part-");
            if (!line.startsWith("'mv'") || at < 0)
                return std::nullopt;
            const QByteArray between = line.mid(at, line.indexOf('\'', at) - at);
            QFile::rename(phoneFolder() + u"/Photos"_s,
                          phoneFolder() + u'/' + QString::fromUtf8(between));
            const QByteArray end = line.mid(line.indexOf("echo ") + 5);
            return end.left(end.indexOf(':')) + ":0\n"; // it says that all went well
        };
    });
    EXPECT_FALSE(run().skipped.empty());
    ASSERT_FALSE(QFileInfo::exists(phoneFolder() + u"/Photos"_s));
    adbd_->faults().update([](ADBDFaults& faults) { faults.rewrite = nullptr; });
    // Much later, whoever visits the folder takes what is old for a leftover.
    for (const QString& path : parts())
        ASSERT_EQ(::utimensat(AT_FDCWD, qUtf8Printable(path),
                              std::array{timespec{1, 0}, timespec{1, 0}}.data(), 0),
                  0);
    removeHere(u"photos/1.jpg"_s); // the phone's is the only one
    confirms_ = false;
    (void)goodRun();
    EXPECT_EQ(phoneFiles(), (Files{{u"photos/1.jpg"_s, photo}}));
}

TEST_F(SyncByAFC, cutConnectionLosesNothing) {
    int broken = 0;
    for (unsigned nth = 1; nth < 40; nth += 6) {
        for (const char* request :
             {"afc.fileWrite", "afc.getFileInfo", "afc.fileOpen", "afc.renamePath"}) {
            SCOPED_TRACE(std::string(request) + " " + std::to_string(nth));
            prepareManyChanges();
            iphone_.faults([&](VirtualIPhoneFaults& faults) {
                faults.requestFault = VirtualIPhoneRequestFault{QString::fromLatin1(request), nth,
                                                                nth % 8 == 1, VirtualCut::close};
            });
            broken += run().outcome == SyncReport::Outcome::failed ? 1 : 0;
            iphone_.faults([](VirtualIPhoneFaults& faults) { faults.requestFault.reset(); });
            expectManyChanges();
        }
    }
    EXPECT_GT(broken, 2);
}

TEST_F(SyncByAFC, fileWithoutASizeIsNotAnEmptyOne) {
    here(u"a"_s, "1");
    here(u"b"_s, "2");
    (void)goodRun();
    here(u"b"_s, "22", 50);
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.rewriteFileInfo = [](const QString& path, QStringList pairs) {
            if (path.endsWith(u"/a"_s))
                pairs.remove(pairs.indexOf(u"st_size"_s), 2);
            return pairs;
        };
    });
    const SyncReport report = run();
    EXPECT_THAT(report.paths({SyncDeed::replaceOnDevice}), ElementsAre(u"b"_s));
    ASSERT_EQ(report.skipped.size(), 1U);
    EXPECT_EQ(report.skipped.front().path, u"a"_s);
    EXPECT_EQ(hereFiles().at(u"a"_s), "1");
}

/// In a folder of a thousand a changed file costs what it costs alone: each other one is asked for
/// by the listing and never again.
TEST_F(SyncByAFC, oneChangedFileDoesNotAskForItsSiblings) {
    constexpr int siblings = 1000;
    for (int n = 0; n < siblings; ++n)
        here(u"many/sibling %1"_s.arg(n), "1");
    here(u"many/one"_s, "1");
    (void)goodRun();
    std::map<QString, int> asked; // of the siblings
    const auto requests = [&] {   // about one path, other than those
        forgetRequests();
        (void)goodRun();
        int others = 0;
        asked.clear();
        for (const VirtualIPhoneRequest& request : iphone_.phone.log().requests())
            if (request.detail.contains(u"/sibling "_s))
                ++asked[request.detail];
            else if (request.detail.contains(u"/Sync/"_s) && request.request != u"afc.readDir"_s)
                ++others;
        return others;
    };
    const int quiet = requests();
    here(u"many/one"_s, "edited", 50);
    const int changed = requests();
    EXPECT_EQ(asked.size(), static_cast<std::size_t>(siblings));
    for (const auto& [path, times] : asked)
        EXPECT_EQ(times, 1) << path.toStdString();
    // To open it, to date it and to look at it, to look at what it replaces and at it again, to
    // rename it and to look at the end; and of the record all but the date and the look at the end,
    // and one more at what it replaces.
    constexpr int file = 7;
    constexpr int record = 6;
    EXPECT_EQ(changed - quiet, file + record);
}

} // namespace
} // namespace tessary
