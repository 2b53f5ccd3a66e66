#include "files/LsOutput.h"
#include "support/QtPrinters.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

QDateTime at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

struct LineRow {
    const char* name;
    QByteArray line;
    QString entryName;
    char type;
    qint64 size;
    std::optional<QDateTime> modified;
};

class LsLineTest : public testing::TestWithParam<LineRow> {};

TEST_P(LsLineTest, isReadByItsColumns) {
    const LineRow& row = GetParam();
    const auto entry = parseLsLine(row.line);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, row.entryName);
    EXPECT_EQ(entry->type, row.type);
    EXPECT_EQ(entry->size, row.size);
    EXPECT_EQ(entry->modified, row.modified);
}

const std::vector<LineRow> lineRows{
    {"currentFile", "-rw-rw---- 1 u0_a167 media_rw 4831 2024-03-05 17:08 IMG 1.jpg", u"IMG 1.jpg"_s,
     '-', 4831, at(2024, 3, 5, 17, 8)},
    {"seconds", "-rw-rw---- 1 root root 1 2024-03-05 17:08:59 a", u"a"_s, '-', 1,
     at(2024, 3, 5, 17, 8, 59)},
    {"fractionAndZone", "-rw-rw---- 1 root root 1 2024-03-05 17:08:59.123456789 +0100 a", u"a"_s,
     '-', 1, at(2024, 3, 5, 17, 8, 59)},
    {"folderSizeCountsNothing", "drwxrwx--x 3 root sdcard_rw 3488 2024-03-05 17:08 DCIM", u"DCIM"_s,
     'd', 0, at(2024, 3, 5, 17, 8)},
    {"monthAndYear", "-rw-rw---- 1 root sdcard_rw 77 Jan  2  2020 old", u"old"_s, '-', 77,
     at(2020, 1, 2)},
    {"monthAndYearWithAColonInTheName", "-rw-rw---- 1 root sdcard_rw 77 Jan 2 2020 at 10:30 x",
     u"at 10:30 x"_s, '-', 77, at(2020, 1, 2)},
    {"noLinkCountAndNoFolderSize", "drwxrwx--x root     sdcard_rw          2015-01-01 12:00 Music",
     u"Music"_s, 'd', 0, at(2015, 1, 1, 12)},
    {"blanksAroundTheName", "-rw-rw---- 1 root root 1 2024-03-05 17:08   a  b ", u"  a  b "_s, '-',
     1, at(2024, 3, 5, 17, 8)},
    {"quotesAndArrow", "-rw-rw---- 1 root root 1 2024-03-05 17:08 it's \"a\" -> b",
     u"it's \"a\" -> b"_s, '-', 1, at(2024, 3, 5, 17, 8)},
    {"unicode", "-rw-rw---- 1 root root 1 2024-03-05 17:08 \xC3\xA4\xF0\x9F\x93\xB7.jpg",
     u"ä📷.jpg"_s, '-', 1, at(2024, 3, 5, 17, 8)},
    {"nameLikeADate", "-rw-rw---- 1 root root 1 2024-03-05 17:08 2023-01-01 10:00 x",
     u"2023-01-01 10:00 x"_s, '-', 1, at(2024, 3, 5, 17, 8)},
    {"linkTargetIsCutOff",
     "lrwxrwxrwx 1 root root 21 2024-03-05 17:08 sdcard -> /storage/self/primary", u"sdcard"_s, 'l',
     21, at(2024, 3, 5, 17, 8)},
    {"arrowInALinksName", "lrwxrwxrwx 1 root root 3 2024-03-05 17:08 a -> b -> /xy", u"a -> b"_s,
     'l', 3, at(2024, 3, 5, 17, 8)},
    {"deviceFile", "crw-rw-rw- 1 root root 1, 3 2024-03-05 17:08 null", u"null"_s, 'c', 0,
     at(2024, 3, 5, 17, 8)},
    {"selinuxDot", "-rw-rw----. 1 root root 9 2024-03-05 17:08 dotted", u"dotted"_s, '-', 9,
     at(2024, 3, 5, 17, 8)},
    {"over4GiB", "-rw-rw---- 1 root root 5368709120 2024-03-05 17:08 film", u"film"_s, '-',
     5368709120, at(2024, 3, 5, 17, 8)},
    {"unreadable", "-????????? ? ? ? ?            ? secret name", u"secret name"_s, '-', 0,
     std::nullopt},
    {"brokenDate", "-rw-rw---- 1 root root 1 2024-99-05 17:08 a", u"a"_s, '-', 1, std::nullopt},
};

INSTANTIATE_TEST_SUITE_P(Rows, LsLineTest, testing::ValuesIn(lineRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LsOutputTest, whatIsNoEntryIsNone) {
    for (const char* line : {"total 12", "ls: /sdcard/x: Permission denied",
                             "* daemon not running; starting now at "
                             "tcp:5037",
                             "-rw-rw---- 1 root root 1 2024-03-05 17:08", "-rw-rw---- 1 root",
                             "/system/bin/sh: syntax error: 10:00 x", "-", ""})
        EXPECT_FALSE(parseLsLine(line)) << line;
}

TEST(LsOutputTest, yearThatIsLeftOutIsTheLastOneThatFits) {
    const QDate day = QDate::currentDate().addDays(-30);
    const QString line =
        QLocale::c().toString(day, u"'-rw-rw---- 1 root root 1' MMM d '10:30 x'"_s);
    const auto entry = parseLsLine(line.toUtf8());
    ASSERT_TRUE(entry && entry->modified);
    EXPECT_EQ(*entry->modified, QDateTime(day, QTime(10, 30)));
}

const QByteArray listing = "total 8\n"
                           "drwxrwx--x 4 root sdcard_rw 3488 2024-03-05 17:08 .\n"
                           "drwx--x--x 4 root sdcard_rw 3488 2024-03-05 17:08 ..\n"
                           "ls: /sdcard/Android/data: Permission denied\n"
                           "lrwxrwxrwx 1 root root 2 2024-03-05 17:08 link -> /x\n"
                           "-rw-rw---- 1 root sdcard_rw 5 2024-03-05 17:08 a b\n\n";

TEST(LsOutputTest, listingLeavesOutWhatIsNoEntry) {
    const auto items = parseLsOutput(listing, u"/sdcard/"_s);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0], FileItem(u"link"_s, u"/sdcard/link"_s, true, 0, at(2024, 3, 5, 17, 8)));
    EXPECT_EQ(items[1], FileItem(u"a b"_s, u"/sdcard/a b"_s, false, 5, at(2024, 3, 5, 17, 8)));
}

TEST(LsOutputTest, carriageReturnsAreLineEndsOnlyWhenEveryLineHasOne) {
    QByteArray windows = listing;
    windows.replace("\n\n", "\n");
    windows.replace("\n", "\r\n");
    EXPECT_EQ(parseLsOutput(windows, u"/sdcard"_s), parseLsOutput(listing, u"/sdcard"_s));
    const auto items = parseLsOutput("total 4\n-rw-rw---- 1 a b 5 2024-03-05 17:08 cr\r\n", u"/"_s);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].name, u"cr\r"_s);
}

TEST(LsOutputTest, checkedListingIsWholeOrNothing) {
    const QByteArray file = "-rw-rw---- 1 root sdcard_rw 5 2024-03-05 17:08 a b\n";
    const auto check = [](const QByteArray& text) {
        return parseCheckedLsOutput(text, u"/sdcard"_s, "end");
    };
    EXPECT_FALSE(check(listing + "end\n")) << "a line is an error";
    EXPECT_FALSE(check("total 8\n" + file)) << "cut off";
    EXPECT_FALSE(check("total 8\n" + file + "end\n" + file)) << "goes on";
    EXPECT_FALSE(check(file + "-????????? ? ? ? ?            ? secret\nend\n")) << "no facts";
    EXPECT_FALSE(check({}));

    const auto whole = check("total 8\n" + file +
                             "lrwxrwxrwx 1 root root 2 2024-03-05 17:08 link -> /x\n"
                             "crw-rw-rw- 1 root root 1, 3 2024-03-05 17:08 null\nend\n");
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->items.size(), 1u);
    ASSERT_EQ(whole->skipped.size(), 2u);
    EXPECT_EQ(whole->skipped[0].path, u"/sdcard/link"_s);
}

} // namespace

} // namespace tessary
