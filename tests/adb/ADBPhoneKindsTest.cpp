#include "adb/ADBFilesFixture.h"

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

struct CaselessPhoneTest : ADBFilesFixture {
    CaselessPhoneTest() : ADBFilesFixture({.folder = {}, .ignoresCase = true}) {}
};

TEST_P(CaselessPhoneTest, ofNamesThatThePhoneTakesForOneTheFirstIsMade) {
    disk_.makeFolder(u"phone/many"_s);
    const QString composed = u"caf\u00e9"_s;
    const QString decomposed = u"cafe\u0301"_s;
    const auto made = files_->writeTogether(
        u"/sdcard/many"_s,
        {{composed, "one", {}}, {decomposed, "two", {}}, {u"CAF\u00c9"_s, "three", {}}},
        [](std::size_t) { return true; }, {}, {});
    ASSERT_EQ(made.size(), 3U);
    EXPECT_TRUE(made[0]);
    EXPECT_FALSE(made[1] || made[2]);
    EXPECT_EQ(disk_.names(u"phone/many"_s), QStringList(composed));
    EXPECT_EQ(content(u"many/"_s + composed), "one");
}

INSTANTIATE_TEST_SUITE_P(Ways, CaselessPhoneTest, allADBWays, testing::PrintToStringParamName());

struct OldPhoneTest : ADBFilesFixture {
    OldPhoneTest() : ADBFilesFixture(oldADBD(23)) {}
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
}

INSTANTIATE_TEST_SUITE_P(Ways, OldPhoneTest, allADBWays, testing::PrintToStringParamName());

struct AncientPhoneTest : ADBFilesFixture {
    AncientPhoneTest() : ADBFilesFixture(oldADBD(22)) {}
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
struct CardPhoneTest : ADBFilesFixture {
    CardPhoneTest()
        : ADBFilesFixture({.folder = {},
                           .cards = {{.folder = cardFolder_.makeFolder(u"card"_s)},
                                     {.id = u"ABCD-0001"_s,
                                      .folder = cardFolder_.makeFolder(u"stick"_s),
                                      .isStick = true,
                                      .free = 0}}}) {}
    inline static const TemporaryFolder cardFolder_;
};

TEST_P(CardPhoneTest, storagesAreVolumesRootsAndWorkAlike) {
    const auto info = files_->liveInfo({});
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
    EXPECT_TRUE(files_->nameRules(card, {}).forbidsFATCharacters);
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
        {u"/storage/emulated/0/DCIM//a/"_s, u"/sdcard/DCIM/a"_s},
        {u"/storage/self/primary/x"_s, u"/sdcard/x"_s},
        {u"/storage/internal/x"_s, u"/sdcard/x"_s}, // by its id as a volume
        {u"DCIM"_s, u"/sdcard/DCIM"_s},
        {u"/storage/1234-ABCD/"_s, u"/storage/1234-ABCD"_s},
        {u"/data/local/tmp"_s, u"/data/local/tmp"_s},
        {u"/storage/65537/DCIM"_s, u"/sdcard/DCIM"_s}, // as over MTP
        {u"/storage/131073/x"_s, u"/storage/131073/x"_s},
    };
    (void)files_->liveInfo({});
    for (const auto& [path, form] : rows)
        EXPECT_EQ(files_->canonicalPath(path), form) << path.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Ways, CardPhoneTest, allADBWays, testing::PrintToStringParamName());

struct OneCardPhoneTest : ADBFilesFixture {
    OneCardPhoneTest()
        : ADBFilesFixture(
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
