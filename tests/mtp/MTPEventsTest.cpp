#include "mtp/MTPFilesFixture.h"
#include "support/Soon.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum MTPOperationCode;

class MTPEventsTest : public MTPFilesFixture {
protected:
    MTPEventsTest() {
        phone().write(u"D/a"_s, "a");
        phone().write(u"D/b"_s, "b");
    }
    /// Tells of something, and waits until it was read.
    void tell(MTPEventCode code, std::uint32_t parameter) {
        phone().android.sendEvent(code, parameter);
        waitUntilTold();
    }
    /// They are read one by one: what was before another that was read is noted.
    void waitUntilTold() {
        for (const bool isAnother : {false, true}) {
            if (isAnother)
                phone().android.sendEvent(MTPEventCode::devicePropChanged, 0);
            ASSERT_TRUE(comesTrue([this] { return phone().android.unreadEvents() == 0; }));
        }
    }
};

TEST_F(MTPEventsTest, eventsAreReadForAsLongAsTheSessionLasts) {
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.waitsForEventReader = true; });
    (void)list("/D");
    for (std::uint32_t n = 0; n < 20; ++n)
        phone().android.sendEvent(MTPEventCode::devicePropChanged, n);
    EXPECT_EQ(list("/D").size(), 2U) << "a phone with unread events would not answer";
    EXPECT_EQ(write("/D", u"c"_s, "c").size, 1);
}

TEST_F(MTPEventsTest, whatOthersAddRemoveOrChangeIsSeenAtOnce) {
    const auto rows = list("/D");
    const std::uint64_t edits = queue_->edits();
    phone().write(u"D/new"_s, "theirs");
    tell(MTPEventCode::objectAdded, 0x00ABCDEF);
    EXPECT_EQ(codeOf([&] { write("/D", u"new"_s, "ours"); }), "taken");
    EXPECT_GT(queue_->edits(), edits) << "whoever shows the folder hears of it";

    ASSERT_TRUE(QFile::remove(phone().disk.path(u"0/D/a"_s)));
    tell(MTPEventCode::objectRemoved, *rows[0].handle);
    EXPECT_EQ(files_.find(u"/D/a"_s, {}), std::nullopt);
    EXPECT_EQ(write("/D", u"a"_s, "ours").size, 4);

    phone().android.setLocked(true);
    tell(MTPEventCode::storeRemoved, PluggedPhone::firstStorage);
    EXPECT_EQ(codeOf([&] { (void)list("/"); }), "noStorage");
}

TEST_F(MTPEventsTest, foldersThatOthersRemoveMayBeKnown) {
    // Where an entry lies in a table is another one in each process: many rounds meet the worst.
    constexpr int rounds = 60;
    constexpr int folders = 12;
    for (int n = 0; n < rounds * folders; ++n)
        phone().disk.makeFolder(u"0/P%1/%2"_s.arg(n / folders).arg(n % folders));
    for (int round = 0; round < rounds; ++round) {
        const std::string parent = "/P" + std::to_string(round);
        const auto rows = list(parent.c_str());
        ASSERT_EQ(rows.size(), std::size_t{folders});
        for (const FileItem& row : rows)
            (void)list(row.path.toUtf8().constData());
        (void)list(parent.c_str()); // known since later than what lies in it
        for (const FileItem& row : rows)
            phone().android.sendEvent(MTPEventCode::objectRemoved, *row.handle);
        for (const FileItem& row : rows)
            ASSERT_TRUE(QDir().rmdir(phone().disk.path(u"0"_s + row.path)));
        waitUntilTold();
        EXPECT_EQ(files_.find(rows[0].path, {}), std::nullopt);
    }
}

TEST_F(MTPEventsTest, echoesOfOwnEditsCostNothing) {
    (void)list("/D");
    for (int n = 0; n < 5; ++n) {
        const FileItem made = write("/D", u"own %1"_s.arg(n), "x");
        tell(MTPEventCode::objectAdded, *made.handle);
    }
    phone().android.clearRequestLog();
    const std::uint64_t edits = queue_->edits();
    (void)write("/D", u"last"_s, "x");
    EXPECT_EQ(phone().requests(getObjectHandles), 0U);
    EXPECT_EQ(queue_->edits(), edits + 1);
}

} // namespace
} // namespace tessary
