#include "adb/ADBFilesFixture.h"
#include "support/Soon.h"

#include <QCryptographicHash>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class ADBFileSystemTest : public ADBFilesFixture {
protected:
    explicit ADBFileSystemTest(ADBDConfig config = {}) : ADBFilesFixture(std::move(config)) {}

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
    for (const qint64 size : {0, 65'535, 65'536, 65'537})
        EXPECT_EQ(readAll(write(u"/"_s, u"f%1"_s.arg(size), manyBytes(size))), manyBytes(size));
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
    EXPECT_EQ(files_->find(u"/a/x/below/a/file"_s, {}), std::nullopt);
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
    breakPhone([](ADBDFaults& faults) {
        faults = {};
        faults.sizeLie = -1;
    });
    EXPECT_EQ(codeOf([&] { (void)write(u"/"_s, u"x"_s, manyBytes(100'000)); }), "wrongSize");
    breakPhone([](ADBDFaults& faults) { faults = {}; });
    EXPECT_EQ(disk_.names(u"phone"_s), QStringList(u"stays"_s));
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
    EXPECT_EQ(readAll(big).size(), 5'000'000);
}

TEST_P(ADBFileSystemTest, cancelledStepEndsSoonAndLeavesNothing) {
    breakPhone([](ADBDFaults& faults) { faults.megabytesPerSecond = 0.5; });
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
        EXPECT_LT(std::chrono::steady_clock::now() - asked, soon);
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

INSTANTIATE_TEST_SUITE_P(Ways, ADBFileSystemTest, allADBWays, testing::PrintToStringParamName());

} // namespace

} // namespace tessary
