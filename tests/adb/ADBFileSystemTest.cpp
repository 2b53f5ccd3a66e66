#include "adb/ADBFilesFixture.h"

#include <QCryptographicHash>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class ADBFileSystemTest : public ADBFilesFixture {
protected:
    explicit ADBFileSystemTest(ADBDConfig config = {}) : ADBFilesFixture(std::move(config)) {}

    void TearDown() override {
        EXPECT_THAT(adbd_->violations(), IsEmpty());
    }
    void breakPhone(const std::function<void(ADBDFaults&)>& change) {
        adbd_->faults().update(change);
    }
    void setDate(const QString& path, const QDateTime& date) const {
        QFile file(disk_.path(u"phone/"_s + path));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) &&
                    file.setFileTime(date, QFileDevice::FileModificationTime));
    }
    /// Names that hold what shells and listings give a meaning to.
    static QStringList oddNames() {
        QStringList names = u"-rf\n--\n lead\ntrail \na  b\nit's\n''\n\"q\"\na -> b\n$(reboot)\n"
                            "`id`\n$HOME\na;b\na&&b\na|b\n<>\n*?[x]\n\\n\n\\\n#x\n~\n!!\n{a,b}\n"
                            "%s %n\nä📷\n2020-01-01 10:00 x\ntotal 4\n\ttab\n.hidden\n...\n=x\n"
                            "a:b\nx,33188"_s.split(u'\n');
        names.append(u"two\nlines"_s);
        names.append(QString(255, u'n'));
        return names;
    }
};

TEST_P(ADBFileSystemTest, hostileNamesAreListedTravelAndAreEditedAsThemselves) {
    disk_.makeFolder(u"phone/odd"_s);
    QStringList names = oddNames();
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray bytes = "content of " + name.toUtf8();
        const FileItem there = write(u"/"_s, name, bytes);
        EXPECT_EQ(there.name, name);
        EXPECT_EQ(there, item(u"/sdcard/"_s + name));
        EXPECT_EQ(readAll(there), bytes);
        EXPECT_EQ(files_->hash(there, {}),
                  QCryptographicHash::hash(bytes, QCryptographicHash::Sha256));
        const FileItem plain = files_->rename(there, u"plain"_s, TakenName::refused, {});
        const FileItem back = files_->rename(plain, name, TakenName::refused, {});
        (void)files_->move(back, u"/odd"_s, {});
        EXPECT_EQ(content(u"odd/"_s + name), bytes);
        if (HasFailure())
            return;
    }
    names.sort();
    EXPECT_EQ(listed(u"/odd"_s), names);
    files_->removeTree(item(u"/odd"_s), {});
    EXPECT_FALSE(disk_.has(u"phone/odd"_s));
}

TEST_P(ADBFileSystemTest, contentAndDateToTheSecondTravelBothWays) {
    const QByteArray bytes = manyBytes(5'000'000);
    const QDateTime date(QDate(2019, 5, 6), QTime(7, 8, 9));
    std::vector<qint64> steps;
    const FileItem made =
        files_->write({u"/sdcard"_s, u"film.mp4"_s, bytes.size(), date}, sourceOf(bytes),
                      [&](qint64 done) { steps.push_back(done); }, {});
    EXPECT_EQ(made.size, bytes.size());
    EXPECT_EQ(made.modifiedDate, date);
    EXPECT_EQ(content(u"film.mp4"_s), bytes);
    EXPECT_EQ(QFileInfo(disk_.path(u"phone/film.mp4"_s)).lastModified(), date);
    EXPECT_GT(steps.size(), 50U);
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    EXPECT_EQ(steps.back(), bytes.size());
    EXPECT_EQ(readAll(made), bytes);
    files_->setModified(made, date.addSecs(1), {});
    EXPECT_EQ(item(u"/film.mp4"_s).modifiedDate, date.addSecs(1));
}

TEST_P(ADBFileSystemTest, rangesAreReadWithoutWhatLiesAround) {
    const QByteArray bytes = manyBytes(9'000'000);
    write(u"big"_s, bytes);
    const FileItem big = item(u"/big"_s);
    ASSERT_TRUE(files_->capabilities({}).readsRanges);
    const ByteRange rows[] = {{0, 0},          {0, 1},  {0, 100'000},          {65'536, 65'536},
                              {65'535, 2},     {1, -1}, {8'999'999, -1},       {8'999'990, 100},
                              {9'000'000, -1}, {0, -1}, {4'000'001, 3'000'003}};
    for (const ByteRange range : rows)
        EXPECT_EQ(readAll(big, range), bytes.mid(range.offset, range.length))
            << range.offset << ' ' << range.length;
}

TEST_P(ADBFileSystemTest, whatIsMissingTakenOrOfAnotherKindIsRefused) {
    write(u"a/x"_s, "x");
    write(u"a/y"_s, "y");
    write(u"f"_s, "f");
    disk_.makeFolder(u"phone/b"_s);
    const FileItem x = item(u"/a/x"_s);
    const FileItem a = item(u"/a"_s);
    FileItem notAFolder = x;
    notAFolder.isDirectory = true;
    FileItem gone = x;
    gone.name = u"gone"_s;
    gone.path = u"/sdcard/a/gone"_s;
    const auto refused = TakenName::refused;
    const auto replaced = TakenName::replaced;
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"taken", [&] { (void)files_->rename(x, u"y"_s, refused, {}); }},
        {"taken", [&] { (void)files_->rename(a, u"b"_s, refused, {}); }},
        {"nameNotAllowed", [&] { (void)files_->rename(x, u"../f"_s, replaced, {}); }},
        {"taken", [&] { (void)files_->rename(item(u"/f"_s), u"a"_s, replaced, {}); }},
        {"taken", [&] { (void)files_->makeFolder(u"/"_s, u"a"_s, {}); }},
        {"taken", [&] { (void)write(u"/a"_s, u"x"_s, "new"); }},
        {"notFound", [&] { (void)write(u"/none"_s, u"x"_s, "new"); }},
        {"notAFolder", [&] { (void)write(u"/f"_s, u"x"_s, "new"); }},
        {"notFound", [&] { (void)files_->makeFolder(u"/none"_s, u"x"_s, {}); }},
        {"notFound", [&] { (void)listed(u"/none"_s); }},
        {"notAFolder", [&] { (void)listed(u"/f"_s); }},
        {"notFound", [&] { (void)readAll(gone); }},
        {"notFound", [&] { files_->remove(gone, {}); }},
        {"notFound", [&] { (void)files_->hash(gone, {}); }},
        {"notFound", [&] { (void)files_->rename(gone, u"z"_s, refused, {}); }},
        {"notFound", [&] { (void)files_->move(x, u"/none"_s, {}); }},
        {"changed", [&] { files_->removeTree(notAFolder, {}); }},
        {"changed", [&] { (void)readAll(FileItem(u"a"_s, u"/sdcard/a"_s, false, 1, {})); }},
        {"folderNotEmpty", [&] { files_->remove(a, {}); }},
        {"insideItself", [&] { (void)files_->move(a, u"/sdcard/a"_s, {}); }},
        {"insideItself", [&] { (void)files_->move(a, u"/storage/emulated/0/a/b"_s, {}); }},
        {"wholeStorage", [&] { files_->removeTree(item(u"/"_s), {}); }},
        {"nameNotAllowed", [&] { (void)files_->rename(x, u".."_s, refused, {}); }},
        {"nameNotAllowed", [&] { (void)files_->makeFolder(u"/"_s, QString(256, u'n'), {}); }},
        {"nameNotAllowed", [&] { (void)files_->makeFolder(u"/"_s, u"a"_s + QChar(0xD800), {}); }},
    };
    for (std::size_t n = 0; n < std::size(rows); ++n)
        EXPECT_EQ(codeOf(rows[n].second), rows[n].first) << n;
    for (const QString& path : {u"/sdcard/a/../a"_s, u"/sdcard/.."_s, u"/sdcard/a/."_s}) {
        const FileItem hostile(path.section(u'/', -1), path, true, 0, std::nullopt);
        EXPECT_EQ(codeOf([&] { files_->removeTree(hostile, {}); }), "nameNotAllowed");
    }
    EXPECT_EQ(disk_.names(u"phone/a"_s), (QStringList{u"x"_s, u"y"_s}));
    EXPECT_EQ(content(u"a/x"_s), "x");
    EXPECT_EQ(disk_.names(u"phone"_s), (QStringList{u"a"_s, u"b"_s, u"f"_s}));
    EXPECT_EQ(files_->find(u"/none/at/all"_s, {}), std::nullopt);
}

TEST_P(ADBFileSystemTest, takenNameIsReplacedInOneStepOnlyWhenAsked) {
    write(u"new"_s, "new");
    write(u"old"_s, "old");
    const FileItem there = files_->rename(item(u"/new"_s), u"old"_s, TakenName::replaced, {});
    EXPECT_EQ(there.path, u"/sdcard/old"_s);
    EXPECT_EQ(content(u"old"_s), "new");
    EXPECT_EQ(disk_.names(u"phone"_s), QStringList(u"old"_s));
}

TEST_P(ADBFileSystemTest, phoneThatRefusesIsAnErrorAndNothingIsLeft) {
    write(u"stays"_s, "1");
    const FileItem stays = item(u"/stays"_s);
    breakPhone([](ADBDFaults& faults) { faults.readOnly = true; });
    const std::function<void()> rows[] = {
        [&] { (void)write(u"/"_s, u"x"_s, manyBytes(3'000'000)); },
        [&] { (void)files_->makeFolder(u"/"_s, u"x"_s, {}); },
        [&] { files_->remove(stays, {}); },
        [&] { (void)files_->rename(stays, u"x"_s, TakenName::refused, {}); },
        [&] { files_->setModified(stays, QDateTime::currentDateTime().addDays(-1), {}); },
    };
    for (const auto& work : rows)
        EXPECT_EQ(codeOf(work), "writeProtected");
    breakPhone([](ADBDFaults& faults) { faults = {}; });
    EXPECT_EQ(disk_.names(u"phone"_s), QStringList(u"stays"_s));
}

TEST_P(ADBFileSystemTest, wrongSizeIsAnErrorAndTheFileGoes) {
    breakPhone([](ADBDFaults& faults) { faults.sizeLie = -1; });
    EXPECT_EQ(codeOf([&] { (void)write(u"/"_s, u"x"_s, manyBytes(100'000)); }), "wrongSize");
    breakPhone([](ADBDFaults& faults) { faults = {}; });
    EXPECT_EQ(codeOf([&] {
                  (void)files_->write({u"/"_s, u"x"_s, 5, {}}, sourceOf("four"), {}, {});
              }),
              "wrongSize");
    EXPECT_THAT(disk_.names(u"phone"_s), IsEmpty());
}

TEST_P(ADBFileSystemTest, sourceOrSinkThatFailsPassesThroughAndLeavesNoPart) {
    struct Stop {};
    write(u"big"_s, manyBytes(5'000'000));
    const FileItem big = item(u"/big"_s);
    EXPECT_THROW((void)files_->read(big, {}, [](ByteView) { throw Stop(); }, {}), Stop);
    EXPECT_THROW((void)files_->write({u"/"_s, u"x"_s, 5'000'000, {}},
                                     [n = 0](std::span<std::byte> to) mutable {
                                         if (++n > 3)
                                             throw Stop();
                                         return to.size();
                                     },
                                     {}, {}),
                 Stop);
    EXPECT_EQ(disk_.names(u"phone"_s), QStringList(u"big"_s));
    // The connection goes on; where the machine is too busy for the phone to end its stream in
    // time, it is given up and the next call has a new one.
    if (codeOf([&] { (void)readAll(big); }) != "nothing") {
        ASSERT_TRUE(comesBack());
    }
    EXPECT_EQ(readAll(big).size(), 5'000'000);
}

TEST_P(ADBFileSystemTest, cancelledStepEndsSoonAndLeavesNothing) {
    breakPhone([](ADBDFaults& faults) { faults.megabytesPerSecond = 2; });
    write(u"big"_s, manyBytes(20'000'000));
    const FileItem big = item(u"/big"_s);
    const auto cancelled = [&](const auto& work) {
        std::stop_source stop;
        std::chrono::steady_clock::time_point asked;
        const auto onProgress = [&] {
            if (stop.request_stop())
                asked = std::chrono::steady_clock::now();
        };
        EXPECT_EQ(codeOf([&] { work(stop.get_token(), onProgress); }), "cancelled");
        EXPECT_LT(std::chrono::steady_clock::now() - asked, 3s);
    };
    cancelled([&](const std::stop_token& stop, const auto& onProgress) {
        (void)files_->read(
            big, {}, [&](ByteView) { onProgress(); }, stop);
    });
    cancelled([&](const std::stop_token& stop, const auto& onProgress) {
        (void)write(u"/"_s, u"x"_s, manyBytes(20'000'000), stop, [&](qint64) { onProgress(); });
    });
    breakPhone([](ADBDFaults& faults) { faults = {}; });
    EXPECT_EQ(listed(u"/"_s), QStringList(u"big"_s));
}

TEST_P(ADBFileSystemTest, hangingPhoneLetsACancelledCallGo) {
    breakPhone([](ADBDFaults& faults) { faults.hang = {"sync", "'rm'"}; });
    std::stop_source stop;
    std::jthread later([&] {
        std::this_thread::sleep_for(200ms);
        stop.request_stop();
    });
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(codeOf([&] { (void)listAll(*files_, u"/"_s, stop.get_token()); }), "cancelled");
    EXPECT_LT(std::chrono::steady_clock::now() - start, 3s);
}

TEST_P(ADBFileSystemTest, lostLinkIsAnErrorAndTheNextCallConnectsAnew) {
    write(u"big"_s, manyBytes(8'000'000));
    const FileItem big = item(u"/big"_s);
    const auto lose = [&] { breakPhone([](ADBDFaults& faults) { faults.dropAfter = 3'000'000; }); };
    lose();
    EXPECT_EQ(codeOf([&] { (void)readAll(big); }), "brokenOff");
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(readAll(big).size(), big.size);
    lose();
    EXPECT_EQ(codeOf([&] { (void)write(u"/"_s, u"x"_s, manyBytes(8'000'000)); }), "brokenOff");
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(listed(u"/"_s), QStringList(u"big"_s));
    adbd_->cut(); // between two calls
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(listed(u"/"_s), QStringList(u"big"_s));
    adbd_->stop();
    cable_.unplug();
    const std::string code = codeOf([&] { (void)listed(u"/"_s); });
    EXPECT_THAT((std::set<std::string>{"brokenOff", "notReachable", "notConnected"}),
                testing::Contains(code));
}

TEST_P(ADBFileSystemTest, manyRequestsShareOneStream) {
    for (int n = 0; n < 20; ++n)
        write(u"d%1/f"_s.arg(n), "x");
    (void)listed(u"/"_s);
    (void)files_->makeFolder(u"/"_s, u"new"_s, {});
    adbd_->clearLog();
    for (int n = 0; n < 20; ++n) {
        (void)files_->rename(item(u"/d%1/f"_s.arg(n)), u"e"_s, TakenName::refused, {});
        (void)files_->rename(item(u"/d%1/e"_s.arg(n)), u"f"_s, TakenName::refused, {});
        EXPECT_EQ(listed(u"/d%1"_s.arg(n)), QStringList(u"f"_s));
        (void)write(u"/d%1"_s.arg(n), u"g"_s, "g");
        (void)readAll(item(u"/d%1/g"_s.arg(n)));
    }
    EXPECT_EQ(adbd_->log().size(), 0U) << "no further service was opened, and no shell";
}

TEST_P(ADBFileSystemTest, entriesThatCannotBeUsedAreReportedAndNeverLeftOut) {
    write(u"good"_s, "1");
    const QByteArray folder = QFile::encodeName(disk_.path(u"phone/"_s));
    ASSERT_EQ(::close(::open((folder + "bad\xFF"
                                       "name")
                                 .constData(),
                             O_CREAT | O_WRONLY, 0600)),
              0);
    ASSERT_EQ(::mkfifo((folder + "pipe").constData(), 0600), 0);
    ASSERT_EQ(::symlink("good", (folder + "link").constData()), 0);
    ASSERT_EQ(::symlink("nowhere", (folder + "broken").constData()), 0);
    ASSERT_EQ(::symlink("loop", (folder + "loop").constData()), 0);
    breakPhone([](ADBDFaults& faults) { faults.extraNames = {"../escaped", "a/b", ""}; });
    const Listing listing = listAll(*files_, u"/"_s, {});
    EXPECT_EQ(namesIn(listing), (QStringList{u"broken"_s, u"good"_s, u"link"_s, u"loop"_s}));
    std::vector<std::string> codes;
    for (const UnreadableEntry& entry : listing.unreadable)
        codes.emplace_back(entry.error.code().name());
    std::sort(codes.begin(), codes.end());
    EXPECT_THAT(codes, ElementsAre("nameNotAllowed", "nameNotAllowed", "nameNotAllowed", "notAFile",
                                   "unreadable"));
    breakPhone([](ADBDFaults& faults) { faults = {}; });
    ASSERT_EQ(::unlink((folder + "bad\xFF"
                                 "name")
                           .constData()),
              0);
    EXPECT_EQ(readAll(item(u"/link"_s)), "1");
    files_->remove(item(u"/link"_s), {});
    files_->remove(item(u"/loop"_s), {});
    EXPECT_TRUE(disk_.has(u"phone/good"_s));
}

TEST_P(ADBFileSystemTest, linkToAFolderGoesAloneWithItsTree) {
    write(u"kept/x"_s, "1");
    disk_.makeFolder(u"phone/t"_s);
    ASSERT_EQ(::symlink("../kept", QFile::encodeName(disk_.path(u"phone/t/link"_s)).constData()),
              0);
    EXPECT_TRUE(item(u"/t/link"_s).isDirectory);
    EXPECT_EQ(listed(u"/t/link"_s), QStringList(u"x"_s));
    files_->removeTree(item(u"/t"_s), {});
    EXPECT_TRUE(disk_.has(u"phone/kept/x"_s));
    EXPECT_FALSE(disk_.has(u"phone/t"_s));
}

TEST_P(ADBFileSystemTest, edgesOfSizeAreKept) {
    EXPECT_EQ(write(u"/"_s, u"empty"_s, {}).size, 0);
    EXPECT_EQ(readAll(item(u"/empty"_s)), QByteArray());
    for (const qint64 size : {1, 65'535, 65'536, 65'537, 131'072}) {
        const QByteArray bytes = manyBytes(size);
        const FileItem there = write(u"/"_s, u"f%1"_s.arg(size), bytes);
        EXPECT_EQ(there.size, size);
        EXPECT_EQ(readAll(there), bytes);
    }
    disk_.makeFolder(u"phone/none"_s);
    EXPECT_THAT(listed(u"/none"_s), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Ways, ADBFileSystemTest, allADBWays, testing::PrintToStringParamName());

struct CaselessPhoneTest : ADBFileSystemTest {
    CaselessPhoneTest() : ADBFileSystemTest({.folder = {}, .ignoresCase = true}) {}
};

TEST_P(CaselessPhoneTest, otherSpellingOfANameIsTheSameName) {
    write(u"img.jpg"_s, "old");
    disk_.makeFolder(u"phone/Dir"_s);
    write(u"Dir/x"_s, "x");
    const FileItem there = item(u"/img.jpg"_s);
    EXPECT_TRUE(files_->nameRules(u"/"_s).ignoresCase);
    EXPECT_EQ(codeOf([&] { (void)write(u"/"_s, u"IMG.JPG"_s, "new"); }), "sameName");
    EXPECT_EQ(codeOf([&] { (void)files_->makeFolder(u"/"_s, u"DIR"_s, {}); }), "sameName");
    EXPECT_EQ(
        codeOf([&] { (void)files_->rename(item(u"/Dir/x"_s), u"X"_s, TakenName::refused, {}); }),
        "nothing");
    EXPECT_EQ(files_->rename(there, u"Img.jpg"_s, TakenName::refused, {}).name, u"Img.jpg"_s);
    EXPECT_EQ(files_->rename(item(u"/Dir"_s), u"dir"_s, TakenName::replaced, {}).name, u"dir"_s);
    EXPECT_EQ(content(u"Img.jpg"_s), "old");
    EXPECT_EQ(content(u"dir/X"_s), "x");
    EXPECT_EQ(disk_.names(u"phone"_s).size(), 2);
}

INSTANTIATE_TEST_SUITE_P(Ways, CaselessPhoneTest, allADBWays, testing::PrintToStringParamName());

/// A phone of Android 6 to 7: no second version of anything, but a shell with the commands.
struct OldPhoneTest : ADBFileSystemTest {
    OldPhoneTest()
        : ADBFileSystemTest({.folder = {},
                             .hasShellV2 = false,
                             .hasStatV2 = false,
                             .hasLsV2 = false,
                             .apiLevel = 23,
                             .missingCommands = {"sha256sum"}}) {}
};

TEST_P(OldPhoneTest, everythingGoesByTheOlderRecords) {
    write(u"a/x"_s, "x");
    ASSERT_EQ(::symlink("a", QFile::encodeName(disk_.path(u"phone/link"_s)).constData()), 0);
    EXPECT_TRUE(item(u"/link"_s).isDirectory);
    disk_.writeSparse(u"phone/huge"_s, (qint64{5} << 30) + 7);
    const Listing top = listAll(*files_, u"/"_s, {});
    EXPECT_EQ(namesIn(top), (QStringList{u"a"_s, u"huge"_s, u"link"_s}));
    for (const FileItem& one : top.items)
        EXPECT_EQ(one, item(one.path));
    EXPECT_EQ(item(u"/huge"_s).size, (qint64{5} << 30) + 7);
    EXPECT_FALSE(files_->capabilities({}).readsRanges);
    EXPECT_TRUE(files_->capabilities({}).hasHashes) << "toybox knows it";
    EXPECT_EQ(readAll(item(u"/a/x"_s), {0, 1}), "x");
    (void)files_->makeFolder(u"/a"_s, u"it's"_s, {});
    EXPECT_EQ(codeOf([&] { (void)files_->makeFolder(u"/a"_s, u"it's"_s, {}); }), "taken");
    EXPECT_EQ(codeOf([&] { files_->remove(item(u"/a"_s), {}); }), "folderNotEmpty");
    const FileItem moved = files_->move(write(u"/"_s, u"n"_s, "n"), u"/a/it's"_s, {});
    EXPECT_EQ(content(u"a/it's/n"_s), "n");
    files_->removeTree(item(u"/a"_s), {});
    EXPECT_FALSE(disk_.has(u"phone/a"_s));
}

INSTANTIATE_TEST_SUITE_P(Ways, OldPhoneTest, allADBWays, testing::PrintToStringParamName());

struct AncientPhoneTest : ADBFileSystemTest {
    AncientPhoneTest()
        : ADBFileSystemTest({.folder = {},
                             .hasShellV2 = false,
                             .hasStatV2 = false,
                             .hasLsV2 = false,
                             .apiLevel = 22}) {}
};

TEST_P(AncientPhoneTest, isLeftToMTPAndTheCauseSaysWhy) {
    try {
        (void)listed(u"/"_s);
        FAIL() << "listed";
    } catch (const Error& error) {
        EXPECT_TRUE(error.is(PhoneError::notReachable));
        EXPECT_EQ(error.find<ADBError>(), ADBError::tooOld);
        EXPECT_TRUE(endsEverything(error));
    }
}

INSTANTIATE_TEST_SUITE_P(Ways, AncientPhoneTest, allADBWays, testing::PrintToStringParamName());

/// A phone with an SD card and a stick.
struct CardPhoneTest : ADBFileSystemTest {
    CardPhoneTest()
        : ADBFileSystemTest({.folder = {},
                             .cards = {{.folder = cardFolder_.makeFolder(u"card"_s)},
                                       {.id = u"ABCD-0001"_s,
                                        .folder = cardFolder_.makeFolder(u"stick"_s),
                                        .isStick = true,
                                        .free = 0}}}) {}
    inline static const TemporaryFolder cardFolder_;
};

TEST_P(CardPhoneTest, storagesAreVolumesRootsAndWorkAlike) {
    const auto info = files_->liveInfo();
    ASSERT_TRUE(info);
    EXPECT_EQ(info->battery, 80);
    EXPECT_THAT(info->volumes,
                ElementsAre(StorageVolume{u"internal"_s, u"Internal Storage"_s,
                                          std::uint64_t{128} << 30, std::uint64_t{64} << 30, false},
                            StorageVolume{u"1234-ABCD"_s, u"SD Card"_s, std::uint64_t{32} << 30,
                                          std::uint64_t{16} << 30, true},
                            StorageVolume{u"ABCD-0001"_s, u"USB Drive"_s, std::uint64_t{32} << 30,
                                          0, false}));
    const QString card = u"/storage/1234-ABCD"_s;
    EXPECT_EQ(files_->rootOf(card + u"/DCIM"_s), (FileTreeRoot{card, u"SD Card"_s}));
    EXPECT_EQ(files_->freeBytes(card, {}), std::uint64_t{16} << 30);
    EXPECT_EQ(files_->freeBytes(u"/storage/ABCD-0001"_s, {}), std::uint64_t{0});
    EXPECT_TRUE(files_->nameRules(card).forbidsFATCharacters);
    EXPECT_EQ(item(card).name, u"SD Card"_s);
    const FileItem dcim = files_->makeFolder(card, u"DCIM"_s, {});
    EXPECT_EQ(write(dcim.path, u"x"_s, "x").path, card + u"/DCIM/x"_s);
    EXPECT_EQ(listed(card), QStringList(u"DCIM"_s));
    EXPECT_EQ(codeOf([&] { (void)files_->move(dcim, u"/"_s, {}); }), "otherStorage");
    EXPECT_EQ(codeOf([&] { files_->removeTree(item(card), {}); }), "wholeStorage");
    files_->removeTree(dcim, {});
}

TEST_P(CardPhoneTest, storageThatMTPOnlyNumbersIsNotGuessed) {
    EXPECT_EQ(codeOf([&] { (void)listed(u"/storage/131073"_s); }), "notFound");
    EXPECT_EQ(codeOf([&] { (void)item(u"/storage/131073/x"_s); }), "notFound");
    EXPECT_THAT(listed(u"/storage/65537"_s), IsEmpty());
}

TEST_P(CardPhoneTest, pathsOfAllKindsHaveOneForm) {
    const std::pair<QString, QString> rows[] = {
        {u""_s, u"/sdcard"_s},
        {u"/"_s, u"/sdcard"_s},
        {u"/storage/emulated/0"_s, u"/sdcard"_s},
        {u"/storage/emulated/0/DCIM//a/"_s, u"/sdcard/DCIM/a"_s},
        {u"/storage/self/primary/x"_s, u"/sdcard/x"_s},
        {u"DCIM"_s, u"/sdcard/DCIM"_s},
        {u"/DCIM"_s, u"/sdcard/DCIM"_s},
        {u"/storage/1234-ABCD/"_s, u"/storage/1234-ABCD"_s},
        {u"/data/local/tmp"_s, u"/data/local/tmp"_s},
        {u"/storage/65537/DCIM"_s, u"/sdcard/DCIM"_s}, // as over MTP
        {u"/storage/131073/x"_s, u"/storage/131073/x"_s},
    };
    (void)files_->liveInfo();
    for (const auto& [path, form] : rows)
        EXPECT_EQ(files_->canonicalPath(path), form) << path.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Ways, CardPhoneTest, allADBWays, testing::PrintToStringParamName());

struct OneCardPhoneTest : ADBFileSystemTest {
    OneCardPhoneTest()
        : ADBFileSystemTest(
              {.folder = {}, .cards = {{.folder = cardFolder_.makeFolder(u"card"_s)}}}) {}
    inline static const TemporaryFolder cardFolder_;
};

TEST_P(OneCardPhoneTest, placesThatWereKeptOverMTPAreTheSameHere) {
    cardFolder_.write(u"card/Music/a.mp3"_s, "a");
    write(u"DCIM/b.jpg"_s, "b");
    EXPECT_EQ(listed(u"/storage/131073/Music"_s), QStringList(u"a.mp3"_s));
    const FileItem music = item(u"/storage/131073/Music/a.mp3"_s);
    EXPECT_EQ(music.path, u"/storage/1234-ABCD/Music/a.mp3"_s);
    EXPECT_EQ(readAll(music), "a");
    EXPECT_EQ(listed(u"/storage/65537/DCIM"_s), QStringList(u"b.jpg"_s));
    const FileItem made = write(u"/storage/131073/Music"_s, u"c"_s, "c");
    EXPECT_EQ(made.path, u"/storage/1234-ABCD/Music/c"_s);
    files_->remove(made, {});
}

INSTANTIATE_TEST_SUITE_P(Ways, OneCardPhoneTest, allADBWays, testing::PrintToStringParamName());

} // namespace

} // namespace tessary
