#include "mtp/MTPFilesFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;
using namespace std::chrono_literals;
using testing::UnorderedElementsAre;

class MTPListingTest : public MTPFilesFixture {
protected:
    MTPListingTest() : MTPFilesFixture(phoneWithCard()) {
        phone().write(u"DCIM/Camera/1.jpg"_s, "one");
        phone().write(u"DCIM/Camera/2.jpg"_s, "two!");
        phone().write(u"note.txt"_s, "n");
        phone().disk.write(u"1/card.txt"_s, "c");
    }
};

TEST_F(MTPListingTest, pathsLeadToTheStorageThatTheyName) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        // asked for, path of the first entry, its identity
        {"", "/DCIM", "/sdcard/DCIM"},
        {"/sdcard", "/DCIM", "/sdcard/DCIM"},
        {" /sdcard/DCIM ", "/DCIM/Camera", "/sdcard/DCIM/Camera"},
        {"/storage/emulated/0/DCIM", "/DCIM/Camera", "/storage/DCIM/Camera"},
        {"/storage/65537", "/storage/65537/DCIM", "/storage/65537/DCIM"},
        {"/storage/131073/", "/storage/131073/card.txt", "/storage/131073/card.txt"},
        // as Turbo mode calls it
        {"/storage/1234-ABCD", "/storage/131073/card.txt", "/storage/131073/card.txt"},
    };
    for (const auto& [asked, path, id] : rows) {
        const auto entries = list(asked);
        ASSERT_FALSE(entries.empty()) << asked;
        EXPECT_EQ(entries[0].path, QString::fromUtf8(path)) << asked;
        EXPECT_EQ(entries[0].id(), QString::fromUtf8(id)) << asked;
    }
    EXPECT_EQ(codeOf([&] { (void)list("/storage/99/x"); }), "notFound");
    EXPECT_EQ(item("/storage/131073").name, u"SD card"_s);
    EXPECT_TRUE(item("/").isDirectory);
    EXPECT_TRUE(files_.nameRules(u"/storage/131073/x"_s, {}).forbidsFATCharacters) << "unasked";
    ASSERT_TRUE(files_.liveInfo({}));
    EXPECT_EQ(files_.rootOf(u"/storage/131073/x"_s),
              (FileTreeRoot{u"/storage/131073"_s, u"SD card"_s}));
    EXPECT_EQ(files_.rootOf(u"/DCIM"_s), (FileTreeRoot{u"/sdcard"_s, u"Internal Storage"_s}));
    EXPECT_EQ(files_.canonicalPath(u"/storage/emulated/0/DCIM//a/"_s), u"/sdcard/DCIM/a"_s);
    EXPECT_FALSE(files_.nameRules(u"/sdcard"_s, {}).forbidsFATCharacters);
}

TEST_F(MTPListingTest, whatOthersMadeWithoutAWordIsFoundByItsName) {
    (void)list("/DCIM");
    phone().write(u"DCIM/theirs.txt"_s, "t");
    EXPECT_TRUE(files_.find(u"/DCIM/theirs.txt"_s, {}));
    phone().disk.write(u"0/DCIM/Theirs/photo"_s, "p");
    EXPECT_THAT(listedNames("/DCIM/Theirs"), testing::ElementsAre(u"photo"_s));
}

TEST_F(MTPListingTest, listOfHandlesThatContradictsItselfIsNoEmptyFolder) {
    const std::pair<const char*, std::function<void(Bytes&)>> rows[] = {
        {"cut", [](Bytes& list) { list.resize(list.size() - 2); }},
        {"count too large", [](Bytes& list) { list[13] = std::byte{1}; }},
        {"count too small", [](Bytes& list) { list[12] = std::byte{1}; }},
        {"no count", [](Bytes& list) { list.resize(14); }},
        {"nothing", [](Bytes& list) { list.resize(12); }},
    };
    for (const auto& [name, change] : rows) {
        phone().rewriteData(MTPOperationCode::getObjectHandles, [&](Bytes& list) {
            change(list);
            list[0] = static_cast<std::byte>(list.size());
        });
        EXPECT_EQ(codeOf([&] { (void)list("/DCIM/Camera"); }), "listingBroken") << name;
        EXPECT_EQ(codeOf([&] { (void)list("/"); }), "listingBroken") << name;
    }
    // The root is asked for in another way when it is refused, which may show nothing.
    phone().rewriteData(MTPOperationCode::getObjectHandles, [](Bytes& list) {
        list.assign(list.begin(), list.begin() + 12);
        list.resize(16);
        list[0] = std::byte{16};
    });
    phone().refuse(MTPOperationCode::getObjectHandles, MTPResponseCode::generalError, false);
    EXPECT_EQ(codeOf([&] { (void)list("/"); }), "refused");
    phone().fault([](VirtualFaults& faults) { faults.rewrite = {}; });
    EXPECT_EQ(list("/DCIM/Camera").size(), 2U);
}

TEST_F(MTPListingTest, emptyCardSlotIsNoStorage) {
    phone().rewriteData(MTPOperationCode::getStorageIDs, [](Bytes& ids) {
        ids[16] = std::byte{0}; // 0x00010000: the first slot holds no card
    });
    EXPECT_EQ(listedNames("/"), QStringList(u"card.txt"_s));
    EXPECT_EQ(files_.liveInfo({})->volumes.size(), 1U);
}

TEST_F(MTPListingTest, lockedPhoneHasNoStorageUntilItIsUnlocked) {
    for (const bool omitsList : {false, true}) {
        phone().behave([&](VirtualBehaviour& b) { b.omitsEmptyStorageList = omitsList; });
        phone().android.setLocked(true);
        EXPECT_EQ(codeOf([&] { (void)list("/"); }), "noStorage");
        EXPECT_EQ(codeOf([&] { (void)files_.liveInfo({}); }), "noStorage");
        phone().android.setLocked(false);
        EXPECT_EQ(list("/").size(), 2U);
    }
}

TEST_F(MTPListingTest, rowsComeAsTheyArriveAndAStopEndsTheListing) {
    for (int n = 0; n < 40; ++n)
        phone().write(u"Many/%1"_s.arg(n), "x");
    phone().unlearn(getObjectPropList);
    (void)list("/");
    phone().fault([](VirtualFaults& faults) {
        faults.delay[static_cast<std::uint16_t>(MTPOperationCode::getObjectInfo)] = 10ms;
    });
    std::size_t mostReads = 0; // that wait while the phone looks an object up
    std::jthread watch([&](const std::stop_token& end) {
        for (; !end.stop_requested(); std::this_thread::sleep_for(1ms))
            mostReads = std::max(mostReads, phone().android.waitingReads());
    });
    std::vector<std::size_t> pieces;
    std::stop_source stop;
    const ListingReceiver receiver{[&](std::vector<FileItem>&& rows) {
                                       pieces.push_back(rows.size());
                                       if (pieces.size() == 2)
                                           stop.request_stop();
                                   },
                                   {}};
    EXPECT_EQ(codeOf([&] { files_.list(u"/Many"_s, receiver, stop.get_token()); }), "cancelled");
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_LT(pieces[0] + pieces[1], 40U);
    watch = {};
    EXPECT_EQ(mostReads, 2U) << "the answer waits for this computer between its two parts";
    phone().fault([](VirtualFaults& faults) { faults.delay.clear(); });
    EXPECT_EQ(list("/Many").size(), 40U) << "what was broken off is not taken for the whole";
}

TEST_F(MTPListingTest, everyRootThatPhonesListIsUnderstood) {
    using Root = VirtualBehaviour::RootListing;
    for (const Root root : {Root::allOnes, Root::zero, Root::either}) {
        phone().behave([&](VirtualBehaviour& behaviour) { behaviour.rootListing = root; });
        EXPECT_THAT(listedNames("/"), UnorderedElementsAre(u"DCIM"_s, u"note.txt"_s));
    }
    phone().fault([](VirtualFaults& faults) {
        faults.repeatsHandles = true;
        faults.foldersHoldThemselves = true;
    });
    EXPECT_EQ(listedNames("/DCIM"), QStringList(u"Camera"_s));
}

TEST_F(MTPListingTest, sizesThatThePhoneCutsTo32BitsAreListedWhole) {
    constexpr qint64 fiveGiB = qint64{5} << 30;
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.cutsSizesTo32Bits = true; });
    phone().unlearn(getObjectPropList);
    (void)phone().disk.writeSparse(u"0/films/a"_s, fiveGiB);
    (void)phone().disk.writeSparse(u"0/films/b"_s, (qint64{4} << 30) + 5);
    phone().write(u"films/c"_s, "small");
    std::vector<qint64> sizes;
    for (const FileItem& file : list("/films"))
        sizes.push_back(file.size);
    EXPECT_THAT(sizes, testing::ElementsAre(fiveGiB, (qint64{4} << 30) + 5, 5));
    EXPECT_EQ(item("/films/a").size, fiveGiB);
}

TEST_F(MTPListingTest, namesThatArePaddedWithNULsAreListedWithoutThem) {
    phone().write(u"Padded/1"_s, "x");
    phone().fault(
        [](VirtualFaults& faults) { faults.nameOverrides[u"1"_s] = u"a.txt\u0000\u0000"_s; });
    EXPECT_EQ(listedNames("/Padded"), QStringList(u"a.txt"_s));
}

TEST_F(MTPListingTest, liveInfoNeverWaits) {
    const auto info = files_.liveInfo({});
    ASSERT_TRUE(info);
    EXPECT_EQ(info->battery, 80);
    ASSERT_EQ(info->volumes.size(), 2U);
    EXPECT_TRUE(info->volumes[1].isSDCard);
    {
        const auto turn = queue_->take({});
        EXPECT_EQ(files_.liveInfo({}), std::nullopt);
    }
    // A phone without a battery is asked for it once; its storages are shown all the same.
    phone().refuse(MTPOperationCode::getDevicePropValue, MTPResponseCode::operationNotSupported);
    for (int n = 0; n < 3; ++n)
        EXPECT_EQ(files_.liveInfo({})->volumes.size(), 2U);
    phone().android.clearRequestLog();
    (void)files_.liveInfo({});
    EXPECT_EQ(phone().requests(MTPOperationCode::getDevicePropValue), 0U);
}

} // namespace
} // namespace tessary
