#include "adb/files/LsOutput.h"
#include "adb/server/ADBDevices.h"
#include "support/QtPrinters.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

QDateTime at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

TEST(LsOutputTest, linesAreReadByTheirColumns) {
    const QByteArray file = "-rw-rw---- 1 root root 1 2024-03-05 17:08 ";
    const QDateTime minute = at(2024, 3, 5, 17, 8);
    const std::pair<QByteArray, LsEntry> rows[] = {
        // fraction and zone
        {"-rw-rw---- 1 a b 1 2024-03-05 17:08:59.123456789 +0100 a",
         {u"a"_s, '-', 1, minute.addSecs(59)}},
        // folder, whose size counts nothing
        {"drwxrwx--x 3 root sdcard_rw 3488 2024-03-05 17:08 D", {u"D"_s, 'd', 0, minute}},
        // month and year
        {"-rw-rw---- 1 root sdcard_rw 77 Jan  2  2020 old", {u"old"_s, '-', 77, at(2020, 1, 2)}},
        // month, year and a time in the name
        {"-rw-rw---- 1 a b 77 Jan 2 2020 at 10:30 x", {u"at 10:30 x"_s, '-', 77, at(2020, 1, 2)}},
        // no link count and no size
        {"drwxrwx--x root     sdcard_rw          2015-01-01 12:00 M",
         {u"M"_s, 'd', 0, at(2015, 1, 1, 12)}},
        // blanks around the name
        {file + "  a  b ", {u"  a  b "_s, '-', 1, minute}},
        // quotes and arrow
        {file + "it's \"a\" -> b", {u"it's \"a\" -> b"_s, '-', 1, minute}},
        // name like a date
        {file + "2023-01-01 10:00 x", {u"2023-01-01 10:00 x"_s, '-', 1, minute}},
        // arrow in a link's name
        {"lrwxrwxrwx 1 root root 3 2024-03-05 17:08 a -> b -> /xy", {u"a -> b"_s, 'l', 3, minute}},
        // device file
        {"crw-rw-rw- 1 root root 1, 3 2024-03-05 17:08 null", {u"null"_s, 'c', 0, minute}},
        // SELinux dot, over 4 GiB
        {"-rw-rw----. 1 root root 5368709120 2024-03-05 17:08 film",
         {u"film"_s, '-', 5368709120, minute}},
        // unreadable
        {"-????????? ? ? ? ?            ? secret name", {u"secret name"_s, '-', 0, {}, false}},
        // broken date
        {"-rw-rw---- 1 root root 1 2024-99-05 17:08 a", {u"a"_s, '-', 1, {}}},
    };
    for (const auto& [line, entry] : rows)
        EXPECT_EQ(parseLsLine(line), entry) << line.toStdString();
}

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

TEST(ADBDevicesTest, listingsAreReadByTheirColumnsOrTabs) {
    const auto devices = parseADBDevices(
        "* daemon not running; starting now at tcp:5037\n"
        "* daemon started successfully\n"
        "List of devices attached\n"
        "8XV7N18403000001       device usb:1-4.2 product:panther model:Pixel_7 device:panther "
        "transport_id:3\n"
        "192.168.1.20:5555      device product:gta model:Galaxy_Tab device:gta transport_id:12\n"
        "ab device cd           unauthorized usb:1-2 transport_id:4\n"
        "USB-1                  recovery usb:1-3 transport_id:5\n"
        "adb-8XV7N1-abcdef._adb-tls-connect._tcp offline transport_id:6\n"
        "a  b \toffline\r\n"
        "no use at all\n\n");
    const std::tuple<QString, QString, bool> rows[] = {
        // serial, state, is network
        {u"8XV7N18403000001"_s, u"device"_s, false},
        {u"192.168.1.20:5555"_s, u"device"_s, true},
        {u"ab device cd"_s, u"unauthorized"_s, false},
        {u"USB-1"_s, u"recovery"_s, false},
        {u"adb-8XV7N1-abcdef._adb-tls-connect._tcp"_s, u"offline"_s, true},
        {u"a  b"_s, u"offline"_s, false}};
    ASSERT_EQ(devices.size(), std::size(rows));
    for (std::size_t n = 0; n < devices.size(); ++n)
        EXPECT_EQ(std::tuple(devices[n].serial, devices[n].state, devices[n].isNetwork()), rows[n]);
    EXPECT_EQ(devices[0].path, u"usb:1-4.2"_s);
    EXPECT_EQ(devices[0].model, u"Pixel 7"_s);
    EXPECT_EQ(devices[0].transportId, u"3"_s);
    EXPECT_TRUE(parseADBDevices(QByteArray("\x7F") + QByteArray(100'000, 'x')).empty());
}

} // namespace

} // namespace tessary
