#include "mtp/MTPFilesFixture.h"
#include "mtp/protocol/MTPError.h"
#include "support/MTPContainers.h"
#include "support/Soon.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;

class MTPReadTest : public MTPFilesFixture {
protected:
    static constexpr qint64 large = MTPFileReader::largestWhole + 3'000'001;
};

TEST_F(MTPReadTest, rangesCostNoMoreThanTheyHold) {
    const QByteArray bytes = manyBytes(200'000);
    phone().write(u"f.bin"_s, bytes);
    const FileItem file = item("/f.bin");
    const std::tuple<qint64, qint64, QByteArray> rows[] = {
        {1000, 512, bytes.mid(1000, 512)},
        {199'990, 100, bytes.mid(199'990)},
    };
    EXPECT_TRUE(files_.capabilities({}).readsRanges);
    for (const bool hasWide : {true, false}) {
        for (const auto& [offset, length, expected] : rows)
            EXPECT_EQ(read(file, {offset, length}), expected) << offset << ' ' << length;
        EXPECT_EQ(phone().requests(getObject), 0U);
        phone().unlearn(androidGetPartialObject64);
        (void)hasWide; // announced still: the second round finds out
        if (hasWide)
            replug();
    }
    // Where the phone hands out no parts, a length ends the reading early.
    phone().unlearn(getPartialObject);
    replug();
    EXPECT_EQ(read(item("/f.bin"), {0, 10}), bytes.left(10)); // by now the plug was noticed
    EXPECT_FALSE(files_.capabilities({}).readsRanges);
    EXPECT_EQ(read(item("/f.bin")), bytes) << "and leaves the session usable";
}

TEST_F(MTPReadTest, partsThatThePhoneAnnouncesAndRefusesAreDoneWithout) {
    phone().write(u"f.bin"_s, manyBytes(5000));
    phone().refuse(androidGetPartialObject64, MTPResponseCode::operationNotSupported);
    EXPECT_EQ(read(item("/f.bin"), {10, 20}), manyBytes(5000).mid(10, 20));
    EXPECT_FALSE(files_.capabilities({}).readsRanges);
}

TEST_F(MTPReadTest, fileThatChangesBetweenTwoPiecesIsNotPutTogether) {
    phone().write(u"film"_s, manyBytes(large));
    const FileItem film = item("/film");
    bool changed = false;
    EXPECT_EQ(codeOf([&] {
                  files_.read(film, {},
                              [&](ByteView) {
                                  if (std::exchange(changed, true))
                                      return;
                                  phone().write(u"film"_s, manyBytes(large - 1));
                                  queue_->noteEdit();
                                  phone().android.unplug();
                                  (void)phone().android.plugInto(bus_);
                              },
                              {});
              }),
              "unplugged");
    EXPECT_EQ(codeOf([&] { read(film); }), "changed");
}

TEST_F(MTPReadTest, lessThanTheTellingSizeIsTakenAsTheWhole) {
    // The size in the listing may be stale: what the container holds is the file.
    phone().write(u"f.bin"_s, manyBytes(5000));
    phone().rewriteData(getObjectPropValue, [](Bytes& container) {
        container[12] = std::byte{6000 & 0xFF};
        container[13] = std::byte{6000 >> 8};
    });
    EXPECT_EQ(read(item("/f.bin")), manyBytes(5000));
    EXPECT_EQ(phone().requests(getObjectPropValue), 0U) << "32 bits hold its size";
}

TEST_F(MTPReadTest, moreThanTheTellingSizeComesInPiecesToo) {
    phone().write(u"film"_s, manyBytes(large));
    phone().rewriteData(getObjectPropValue, [](Bytes& container) {
        constexpr std::size_t sizeAt = 12;
        for (const auto& [n, value] :
             {std::pair(0, large - 1000), std::pair(1, (large - 1000) >> 8)})
            container[sizeAt + static_cast<std::size_t>(n)] = static_cast<std::byte>(value & 0xFF);
    });
    const FileItem film = item("/film");
    ASSERT_EQ(film.size, large - 1000);
    EXPECT_TRUE(read(film) == manyBytes(large));
}

TEST_F(MTPReadTest, pieceWithoutAnEndIsNoneOfTheFile) {
    phone().write(u"f.bin"_s, manyBytes(5000));
    phone().rewriteData(androidGetPartialObject64, [](Bytes& container) {
        container.resize(container.size() + (4 << 20));
        writeLength(container);
    });
    EXPECT_EQ(codeOf([&] { read(item("/f.bin"), {10, 20}); }), "wrongSize");
}

TEST_F(MTPReadTest, dataThatThePhoneEndsEarlyEndWithItsAnswer) {
    for (const int size : {5000, 512 * 1000 - 12}) { // a short packet, or an empty one
        phone().write(u"f.bin"_s, manyBytes(size));
        const FileItem file = item("/f.bin");
        for (const auto& [answer, code] : {std::pair(MTPResponseCode::accessDenied, "accessDenied"),
                                           std::pair(MTPResponseCode::ok, "refused")}) {
            phone().fault([&, answer = answer](VirtualFaults& faults) {
                faults.rewrite = [=](const VirtualAnswer& one) {
                    Bytes container = one.container;
                    if (one.operation != static_cast<std::uint16_t>(getObject))
                        return container;
                    if (one.type == MTPContainerType::data)
                        container[2] ^= std::byte{0x10}; // a MiB more than there is
                    else
                        container[6] = static_cast<std::byte>(answer); // 0x20XX all
                    return container;
                };
            });
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(codeOf([&] { read(file); }), code) << size;
            EXPECT_LT(std::chrono::steady_clock::now() - start, soon);
            phone().fault([](VirtualFaults& faults) { faults.rewrite = {}; });
            EXPECT_EQ(read(file), manyBytes(size));
        }
    }
}

TEST_F(MTPReadTest, refusalsAreToldByWhatTheyMean) {
    phone().write(u"f.bin"_s, manyBytes(5000));
    const FileItem file = item("/f.bin");
    const std::pair<std::uint16_t, const char*> rows[] = {
        {0x2002, "refused"},      {0x2005, "notSupported"},   {0x2009, "notFound"},
        {0x200C, "full"},         {0x200D, "writeProtected"}, {0x200E, "writeProtected"},
        {0x200F, "accessDenied"}, {0x2019, "busy"},           {0x2013, "noStorage"},
        {0x2003, "sessionEnded"}, {0x201E, "sessionEnded"},   {0xA809, "tooLarge"},
    };
    for (const auto& [response, code] : rows) {
        phone().refuse(getObject, static_cast<MTPResponseCode>(response), false);
        try {
            read(file);
            ADD_FAILURE() << code;
        } catch (const Error& error) {
            EXPECT_STREQ(error.code().name(), code);
            ASSERT_NE(error.cause(), nullptr);
            EXPECT_TRUE(error.cause()->is(MTPError::refused));
            EXPECT_EQ(error.cause()->arguments().value(0).toUInt(), response);
        }
        EXPECT_EQ(read(file), manyBytes(5000)) << "after " << code;
    }
}

TEST_F(MTPReadTest, oneFileThatBreaksOffIsSkippedAndTwoInARowEndIt) {
    phone().write(u"bad"_s, manyBytes(300'000));
    phone().write(u"good"_s, manyBytes(3000));
    const FileItem bad = item("/bad");
    const FileItem good = item("/good");
    (void)files_.capabilities({}); // asked once
    const auto stall = [&] {
        phone().fault([](VirtualFaults& faults) {
            faults.stall = VirtualByteFault{USBDirection::in, 100'000, 2}; // behind its facts
        });
        try {
            read(bad);
        } catch (const Error& error) {
            return std::pair(std::string(error.code().name()), concernsOneItem(error));
        }
        return std::pair(std::string(), false);
    };
    for (int n = 0; n < 3; ++n) {
        EXPECT_EQ(stall(), std::pair(std::string("refused"), true));
        EXPECT_EQ(read(good), manyBytes(3000));
    }
    EXPECT_EQ(phone().requests(openSession), 1U);
    EXPECT_EQ(stall(), std::pair(std::string("refused"), true));
    EXPECT_EQ(stall(), std::pair(std::string("brokenOff"), false));
    EXPECT_EQ(read(good), manyBytes(3000)) << "in another session";
}

} // namespace
} // namespace tessary
