#include "mtp/MTPFilesFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using enum MTPOperationCode;

/// A virtual cable holds fewer bytes: once they are sent, the phone takes the object. Real phones
/// cannot be cancelled earlier either.
constexpr qint64 certainlyReceived = 1'200'000;

class MTPWriteTest : public MTPFilesFixture {
protected:
    MTPWriteTest() {
        phone().disk.makeFolder(u"0/DCIM"_s);
    }
};

TEST_F(MTPWriteTest, fileKeepsItsDateWhereThePhoneSetsIt) {
    const QDateTime date(QDate(2020, 2, 29), QTime(12, 34, 56));
    const auto send = [&](const QString& name) {
        return files_.write({u"/DCIM"_s, name, 3, date}, sourceOf("abc"), {}, {});
    };
    // An ObjectInfo that fills its packet: 102 bytes with a date, and two for each unit.
    EXPECT_EQ(send(QString(205, u'n')).modifiedDate, date);
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.datesFilesItself = true; });
    const FileItem other = send(u"b"_s);
    EXPECT_GT(other.modifiedDate, date) << "what the phone made of it is what is told";
}

TEST_F(MTPWriteTest, filesThatOthersPutIntoAKnownFolderAreNotWrittenOver) {
    (void)list("/DCIM");
    phone().write(u"DCIM/theirs"_s, "t");
    queue_->noteEdit();
    EXPECT_EQ(codeOf([&] { write("/DCIM", u"theirs"_s, "x"); }), "taken");
    phone().write(u"DCIM/late"_s, "t");
    std::this_thread::sleep_for(MTPKnownFolder::freshness + 100ms);
    EXPECT_EQ(codeOf([&] { write("/DCIM", u"late"_s, "x"); }), "taken");
    EXPECT_EQ(phone().content(u"DCIM/late"_s), "t");
}

TEST_F(MTPWriteTest, folderIsMadeEmptyAlsoUnderAHandleThatWasAnothers) {
    for (const char* content : {"first", "second"}) {
        (void)files_.makeFolder(u"/DCIM"_s, u"new"_s, {});
        EXPECT_EQ(read(write("/DCIM/new", u"a"_s, content)), content);
        QDir(phone().disk.path(u"0/DCIM/new"_s)).removeRecursively();
        (void)list("/DCIM");
    }
}

TEST_F(MTPWriteTest, announcedHandleMayBeWorthNothing) {
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.forgetsSentHandle = true; });
    const FileItem made = write("/DCIM", u"a.txt"_s, "content");
    EXPECT_EQ(read(made), "content");
    // Made in a folder that was listed before.
    (void)list("/DCIM");
    EXPECT_EQ(read(write("/DCIM", u"b.txt"_s, "more")), "more");
}

TEST_F(MTPWriteTest, fileThatShowsToTheNextSessionOnlyIsFoundThere) {
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.hidesSentFiles = true; });
    for (const int size : {0, 100}) {
        const FileItem made = write("/DCIM", QString::number(size), manyBytes(size));
        EXPECT_EQ(made.size, size);
        EXPECT_EQ(read(made), manyBytes(size));
    }
}

TEST_F(MTPWriteTest, cancelAndFailureLeaveNoPartialObject) {
    const QByteArray bytes = manyBytes(3'000'000);
    for (const bool keepsPartial : {false, true})
        for (const qint64 after : {certainlyReceived, qint64{3'000'000}}) {
            phone().behave([&](VirtualBehaviour& behaviour) {
                behaviour.keepsPartialObjects = keepsPartial;
                behaviour.createsObjectEarly = keepsPartial;
            });
            std::stop_source stop;
            const std::string code = codeOf([&] {
                write(
                    "/DCIM", u"big.bin"_s, bytes,
                    [&](qint64 done) {
                        if (done >= after)
                            stop.request_stop();
                    },
                    stop.get_token());
            });
            if (code == "nothing") {
                EXPECT_EQ(after, 3'000'000) << "only the end comes too late to cancel";
                remove("/DCIM/big.bin");
            }
            EXPECT_TRUE(phone().names(u"DCIM"_s).isEmpty()) << after;
        }
    phone().fault([](VirtualFaults& faults) {
        faults.stall = VirtualByteFault{USBDirection::out, 700'000, 2};
    });
    EXPECT_NE(codeOf([&] { write("/DCIM", u"big.bin"_s, bytes); }), "nothing");
    EXPECT_TRUE(phone().names(u"DCIM"_s).isEmpty());
    EXPECT_EQ(write("/DCIM", u"big.bin"_s, bytes).size, 3'000'000) << "nothing stands in its way";
}

TEST_F(MTPWriteTest, stopBetweenTheBytesLeavesNothingEither) {
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.createsObjectEarly = true; });
    for (const MTPOperationCode place : {sendObjectInfo, getObjectInfo})
        phone().fault([&](VirtualFaults& faults) {
            faults.delay[static_cast<std::uint16_t>(place)] = 300ms;
        });
    for (const MTPOperationCode place : {sendObjectInfo, getObjectInfo}) {
        SCOPED_TRACE(static_cast<int>(place));
        std::stop_source stop;
        std::jthread hand([&, sent = phone().requests(sendObjectInfo)] {
            while (phone().requests(sendObjectInfo) == sent)
                std::this_thread::sleep_for(1ms);
            const std::size_t asked = place == sendObjectInfo ? sent : phone().requests(place);
            while (phone().requests(place) == asked)
                std::this_thread::sleep_for(1ms);
            stop.request_stop();
        });
        EXPECT_EQ(codeOf([&] { write("/DCIM", u"a.txt"_s, "text", {}, stop.get_token()); }),
                  "cancelled");
        EXPECT_TRUE(phone().names(u"DCIM"_s).isEmpty());
    }
}

TEST_F(MTPWriteTest, neighbourThatAppearsMeanwhileOutlivesARefusedUpload) {
    (void)list("/DCIM");
    phone().write(u"DCIM/a.txt"_s, "theirs");
    phone().refuse(sendObjectInfo, MTPResponseCode::accessDenied);
    EXPECT_EQ(codeOf([&] { write("/DCIM", u"a.txt"_s, "ours"); }), "accessDenied");
    EXPECT_EQ(phone().content(u"DCIM/a.txt"_s), "theirs");
}

} // namespace
} // namespace tessary
