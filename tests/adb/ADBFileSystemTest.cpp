#include "adb/ADBFilesFixture.h"

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class ADBFileSystemTest : public ADBFilesFixture {};

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
    breakPhone([](ADBDFaults& faults) {
        faults = {};
        faults.sizeLie = -1;
    });
    EXPECT_EQ(codeOf([&] { (void)write(u"/"_s, u"x"_s, manyBytes(100'000)); }), "wrongSize");
    breakPhone([](ADBDFaults& faults) { faults = {}; });
    EXPECT_EQ(disk_.names(u"phone"_s), QStringList(u"stays"_s));
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
    for (int n = 0; n < 2000; ++n)
        write(u"many/%1"_s.arg(n), {});
    breakPhone([](ADBDFaults& faults) { faults.dropAfter = 80'000; });
    EXPECT_EQ(codeOf([&] { (void)listed(u"/many"_s); }), "brokenOff") << "never less, nor twice";
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(listed(u"/many"_s).size(), 2000);
    adbd_->cut(); // between two calls
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(listed(u"/many"_s).size(), 2000);
    adbd_->stop();
    cable_.unplug();
    const std::string code = codeOf([&] { (void)listed(u"/"_s); });
    EXPECT_THAT((std::set<std::string>{"brokenOff", "notReachable", "notConnected"}),
                testing::Contains(code));
}

TEST_P(ADBFileSystemTest, entriesThatCannotBeUsedAreReportedAndNeverLeftOut) {
    write(u"good"_s, "1");
    const QByteArray folder = QFile::encodeName(disk_.path(u"phone/"_s));
    const QByteArray bad = folder + "bad\xFF.txt";
    ASSERT_EQ(::close(::open(bad.constData(), O_CREAT | O_WRONLY, 0600)), 0);
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
    ASSERT_EQ(::unlink(bad.constData()), 0);
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

INSTANTIATE_TEST_SUITE_P(Ways, ADBFileSystemTest, allADBWays, testing::PrintToStringParamName());

} // namespace

} // namespace tessary
