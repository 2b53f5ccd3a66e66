#include "mtp/MTPFilesFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;

constexpr qint64 fileSize = MTPPieceWriter::smallestFile + MTPPieceWriter::checkpoint + 12'345;
const QDateTime date{QDate(2020, 2, 29), QTime(12, 34, 56)};

const QByteArray& whole() {
    static const QByteArray bytes = manyBytes(fileSize);
    return bytes;
}

class MTPPieceWriterTest : public MTPFilesFixture {
protected:
    MTPPieceWriterTest() {
        phone().disk.makeFolder(u"0/DCIM"_s);
    }
    static ByteSource from(qint64 offset) {
        return sourceOf(whole().mid(offset));
    }
    static NewFile newFile() {
        return {u"/DCIM"_s, u"video.part"_s, fileSize, date, true};
    }
    FileItem writeLarge(const ByteProgress& progress = {}, const Call& call = {}) {
        return files_.write(newFile(), from(0), progress, call);
    }
    [[nodiscard]] bool isWhole() {
        return phone().content(u"DCIM/video.part"_s) == whole();
    }
};

TEST_F(MTPPieceWriterTest, largeFileArrivesWholeAndOthersGetInBetween) {
    int listings = 0;
    std::jthread browser;
    const FileItem made = writeLarge([&](qint64 done) {
        if (done > 0 && !browser.joinable())
            browser = std::jthread([&](const std::stop_token& stop) {
                while (!stop.stop_requested()) {
                    (void)list("/");
                    ++listings;
                }
            });
    });
    browser.request_stop();
    browser.join();
    EXPECT_TRUE(isWhole());
    EXPECT_EQ(made.size, fileSize);
    EXPECT_EQ(made.name, u"video.part");
    EXPECT_GT(listings, 3);
    EXPECT_EQ(phone().requests(androidBeginEditObject), phone().requests(androidEndEditObject));
    // Smaller ones, and those that need not stay, go in one and keep their date.
    phone().android.clearRequestLog();
    NewFile other{u"/DCIM"_s, u"b"_s, fileSize, date, false};
    EXPECT_EQ(files_.write(other, from(0), {}, {}).modifiedDate, date);
    EXPECT_EQ(phone().requests(androidSendPartialObject), 0U);
}

TEST_F(MTPPieceWriterTest, dateIsKeptWhereThePhoneLetsItBeSet) {
    phone().behave([](VirtualBehaviour& behaviour) { behaviour.setsDates = true; });
    EXPECT_EQ(writeLarge().modifiedDate, date);
}

TEST_F(MTPPieceWriterTest, whatWasOnItsWayIsNotSentAgainFromFurtherOn) {
    bool wasOut = false;
    EXPECT_EQ(codeOf([&] {
                  writeLarge([&](qint64 done) {
                      if (done > 2 * MTPPieceWriter::pieceSize && !std::exchange(wasOut, true))
                          replug();
                  });
              }),
              "unplugged");
    const QByteArray begun = phone().content(u"DCIM/video.part"_s);
    EXPECT_GE(begun.size(), 2 * MTPPieceWriter::pieceSize);
    EXPECT_TRUE(whole().startsWith(begun));
}

TEST_F(MTPPieceWriterTest, editThatWasLeftOpenIsEndedBeforeTheNext) {
    phone().refuse(androidEndEditObject, MTPResponseCode::generalError, false);
    std::stop_source stop;
    const auto stopEarly = [&](qint64 done) {
        if (done > 2 * MTPPieceWriter::pieceSize)
            stop.request_stop();
    };
    EXPECT_THROW(writeLarge(stopEarly, {stop.get_token()}), CancellationError);
    const FileItem begun = item("/DCIM/video.part");
    ASSERT_GT(begun.size, 0);
    (void)files_.append(begun, begun.size, newFile(), from(begun.size), {}, {});
    EXPECT_TRUE(isWhole());
}

class MTPLyingPhoneTest : public MTPPieceWriterTest,
                          public testing::WithParamInterface<MTPOperationCode> {};

TEST_P(MTPLyingPhoneTest, phoneThatAnnouncesEditsAndRefusesThemGetsTheFileInOne) {
    phone().refuse(GetParam(), MTPResponseCode::generalError);
    EXPECT_EQ(writeLarge().modifiedDate, date);
    EXPECT_TRUE(isWhole());
    EXPECT_EQ(phone().names(u"DCIM"_s), QStringList(u"video.part"_s));
    EXPECT_FALSE(files_.capabilities({}).appends);
}

INSTANTIATE_TEST_SUITE_P(Operations, MTPLyingPhoneTest,
                         testing::Values(androidBeginEditObject, androidSendPartialObject),
                         [](const auto& row) {
                             return row.param == androidBeginEditObject ? "begin" : "piece";
                         });

TEST_F(MTPPieceWriterTest, whatEndsACopyIsToldAndLeavesNoOpenEdit) {
    (void)files_.capabilities({});
    phone().fault([](VirtualFaults& faults) { faults.storeFullAfter = 50'000'000; });
    EXPECT_EQ(codeOf([&] { writeLarge(); }), "full");
    EXPECT_EQ(phone().requests(androidBeginEditObject), phone().requests(androidEndEditObject));
    EXPECT_EQ(codeOf([&] { writeLarge(); }), "taken");
    const FileItem begun = item("/DCIM/video.part");
    phone().fault([](VirtualFaults& faults) { faults.storeFullAfter.reset(); });
    EXPECT_EQ(codeOf([&] {
                  files_.append(begun, begun.size, newFile(),
                                [](std::span<std::byte>) { return std::size_t{0}; }, {}, {});
              }),
              "wrongSize");
    phone().unlearn(androidBeginEditObject);
    replug();
    (void)list("/"); // what a phone announces is known from when its session began
    EXPECT_EQ(codeOf([&] { files_.append(begun, 0, newFile(), from(0), {}, {}); }), "notSupported");
}

} // namespace
} // namespace tessary
