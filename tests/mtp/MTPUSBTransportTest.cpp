#include "mtp/client/MTPUSBTransport.h"

#include "support/MTPContainers.h"
#include "support/MTPFailure.h"
#include "support/ScriptedUSBBus.h"

#include <gmock/gmock.h>

#include <numeric>

namespace tessary {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

class MTPUSBTransportTest : public ::testing::Test {
protected:
    MTPUSBTransportTest() {
        bus_.attached[0].interfaces.insert(bus_.attached[0].interfaces.begin(), {8, 6, {}, {}});
        transport_.open();
        bus_.log.clear();
    }

    /// A response comes through, so the stream is in step.
    void expectInStep() {
        bus_.send(responseOf(0x2001, 99));
        const MTPPacket packet = transport_.receivePacket();
        EXPECT_EQ(packet.header, (MTPContainerHeader{12, MTPContainerType::response, 0x2001, 99}));
    }

    /// Sends `size` zeros in one data container.
    void upload(std::uint32_t length, std::uint64_t size) {
        const MTPDataSource zeros = [](std::span<std::byte> buffer) { return buffer.size(); };
        transport_.sendContainer({length, MTPContainerType::data, 0x100D, 7}, size, zeros, {});
    }

    ScriptedUSBBus bus_;
    MTPUSBTransport transport_{bus_, 0x18D1, 0x4EE1};
};

constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;
constexpr std::uint32_t unknown = 0xFFFFFFFF;

TEST_F(MTPUSBTransportTest, failedCallsTellTheirCodeAndClearTheHalt) {
    struct Row {
        USBCode code;
        std::string text;
    };
    const std::vector<Row> rows{{usb::timeout, "0x-1FFFFD2A"},
                                {usb::pipeStalled, "0x-1FFFBFB1"},
                                {usb::generalError, "0x-1FFFFD44"},
                                {USBCode{0x1F}, "0x1F"},
                                {std::numeric_limits<USBCode>::min(), "0x-80000000"}};
    for (const Row& row : rows) {
        bus_.log.clear();
        bus_.writeCodes = {row.code};
        EXPECT_EQ(mtpFailureOf([&] { transport_.send(Bytes(600'000)); }),
                  "MTP Transport error: USB Write failed: " + row.text);
        EXPECT_THAT(bus_.log, ElementsAre("write 262144", "clear 2"));
        bus_.log.clear();
        bus_.fail(row.code);
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receivePacket(); }),
                  "MTP Transport error: USB Read failed: " + row.text);
        EXPECT_THAT(bus_.log, ElementsAre("clear 1"));
        expectInStep();
    }
}

TEST_F(MTPUSBTransportTest, promisedBytesThatNeverComeCostNoMemory) {
    for (const std::uint32_t length : {13U, 513U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        bus_.readBufferLimit = 0;
        bus_.send(containerOf(length, 2, 0x1009, 5, {}));
        // What is kept whole has a limit of its own.
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receivePacket(); }),
                  length > 1000U ? "MTP USB buffer overflow." : mtpReadTimedOut);
        transport_.recover(5, MTPDataPhase::toHost);
        bus_.send(containerOf(length, 2, 0x1009, 5, {}));
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receiveContainer([](ByteView) {}, {}); }),
                  mtpReadTimedOut);
        EXPECT_LE(bus_.readBufferLimit, 1U << 20) << length;
        transport_.recover(5, MTPDataPhase::toHost);
        expectInStep();
    }
}

TEST_F(MTPUSBTransportTest, objectsBeyond32BitsArriveWhole) {
    constexpr std::uint64_t whole = 5 * gibibyte - 12; // packets
    constexpr auto low = static_cast<std::uint32_t>(5 * gibibyte + 12);
    const struct {
        const char* name;
        std::uint32_t length;
        std::optional<std::uint64_t> expected;
        std::uint64_t payload;
        bool terminated; ///< by a zero-length packet
    } rows[] = {
        {"expected", unknown, 5 * gibibyte, 5 * gibibyte, false},
        {"expected whole packets", unknown, whole, whole, false},
        {"until a short packet", unknown, std::nullopt, 5 * gibibyte, false},
        {"until an empty packet", unknown, std::nullopt, whole, true},
        {"length cut to 32 bits", low, 5 * gibibyte, 5 * gibibyte, false},
        {"length cut, and nobody knows", low, std::nullopt, 5 * gibibyte, false},
        {"the header tells the truth", 1012, 5 * gibibyte, 1000, false},
    };
    for (const auto& row : rows) {
        bus_.incoming.push_back({containerOf(row.length, 2, 0x1009, 7, {}), row.payload, {}});
        if (row.terminated)
            bus_.sendEmptyPacket();
        std::uint64_t received = 0;
        qint64 reported = 0;
        MTPStreamOptions options;
        options.expectedSize = row.expected;
        options.progress = [&](qint64 done, qint64) { reported = done; };
        (void)transport_.receiveContainer([&](ByteView bytes) { received += bytes.size(); },
                                          options);
        EXPECT_EQ(received, row.payload) << row.name;
        EXPECT_EQ(reported, static_cast<qint64>(row.payload)) << row.name;
        expectInStep();
        EXPECT_LE(bus_.readBufferLimit, 1U << 20) << row.name;
    }
}

TEST_F(MTPUSBTransportTest, headerAndFirstBytesGoOutTogether) {
    Bytes sent;
    bus_.afterWrite = [&](ByteView chunk) { sent.insert(sent.end(), chunk.begin(), chunk.end()); };
    const Bytes payload = patternOf(600'000);
    std::size_t at = 0;
    // A source may give less than it is asked for.
    const MTPDataSource source = [&](std::span<std::byte> buffer) {
        const std::size_t count = std::min({buffer.size(), payload.size() - at, std::size_t{999}});
        std::copy_n(payload.begin() + static_cast<std::ptrdiff_t>(at), count, buffer.begin());
        at += count;
        return count;
    };
    std::vector<std::pair<qint64, qint64>> progress;
    MTPStreamOptions options;
    options.progress = [&](qint64 done, qint64 total) { progress.emplace_back(done, total); };
    transport_.sendContainer({600'012, MTPContainerType::data, 0x100D, 7}, payload.size(), source,
                             options);
    EXPECT_THAT(bus_.log, ElementsAre("write 262144", "write 262144", "write 75724"));
    EXPECT_EQ(bus_.mostWrites, 3U) << "the pipe never idles while the source is read";
    EXPECT_EQ(sent, dataOf(0x100D, 7, payload));
    EXPECT_THAT(progress,
                ElementsAre(Pair(262132, 600000), Pair(524276, 600000), Pair(600000, 600000)));
}

TEST_F(MTPUSBTransportTest, dataThatFillsItsLastPacketIsClosedByAnEmptyOne) {
    struct Row {
        const char* name;
        std::uint32_t length;
        std::uint64_t size;
        bool closed;
    };
    for (const Row& row : {Row{"known, whole packets", 524288, 524276, true},
                           {"known, one packet", 512, 500, true},
                           {"known, short packet", 513, 501, false},
                           {"no payload", 12, 0, false},
                           {"unknown, whole packets", unknown, 5 * gibibyte - 12, true},
                           {"unknown, one packet", unknown, 500, true},
                           {"unknown, short packet", unknown, 5 * gibibyte, false}}) {
        bus_.log.clear();
        bus_.writtenSize = 0;
        upload(row.length, row.size);
        EXPECT_EQ(bus_.writtenSize, row.size + 12) << row.name;
        EXPECT_EQ(bus_.logged("write 0"), row.closed ? 1U : 0U) << row.name;
        EXPECT_EQ(bus_.log.back() == "write 0", row.closed) << row.name;
    }
    // The same for a dataset; a command is no data.
    for (const auto& [type, closed] : {std::pair(2, true), {1, false}}) {
        bus_.log.clear();
        transport_.send(containerOf(512, static_cast<std::uint16_t>(type), 0x100C, 7, Bytes(500)));
        EXPECT_EQ(bus_.logged("write 0"), closed ? 1U : 0U) << type;
    }
}

TEST_F(MTPUSBTransportTest, deviceThatWantsNoEmptyPacketHasTheDataAllTheSame) {
    for (const USBCode refusal : {usb::pipeStalled, usb::timeout}) {
        bus_.log.clear();
        bus_.writeCodes = {usb::success, refusal};
        upload(512, 500);
        EXPECT_THAT(bus_.log, ElementsAre("write 512", "write 0", "clear 2"));
        expectInStep();
    }
    bus_.writeCodes = {usb::success, usb::noDevice};
    EXPECT_NE(mtpFailureOf([&] { upload(512, 500); }), "none");
}

TEST_F(MTPUSBTransportTest, deviceThatHaltsAtTheEndOfACancelledUploadIsDoneWithIt) {
    for (const auto& [atTheEnd, state] : {std::pair{usb::success, MTPPipeState::busy},
                                          std::pair{usb::pipeStalled, MTPPipeState::quiet}}) {
        EXPECT_NE(mtpFailureOf([&] {
                      transport_.sendContainer(
                          {600'012, MTPContainerType::data, 0x100D, 9}, 600'000,
                          [first = true](auto buffer) mutable {
                              return std::exchange(first, false) ? buffer.size() : 0;
                          },
                          {});
                  }),
                  "none");
        bus_.writeCodes = {atTheEnd};
        EXPECT_EQ(transport_.recover(9, MTPDataPhase::toDevice), state);
    }
}

TEST_F(MTPUSBTransportTest, lateContainersOfBrokenOffTransactionAreDropped) {
    transport_.recover(7, MTPDataPhase::toHost);
    bus_.send(dataOf(0x1007, 7, Bytes(3000)));
    bus_.send(responseOf(0x2001, 7));
    bus_.send(responseOf(0x2009, 8));
    EXPECT_EQ(transport_.receivePacket().header.code, 0x2009);

    transport_.recover(8, MTPDataPhase::toHost);
    bus_.send(responseOf(0x2001, 8));
    bus_.send(dataOf(0x1009, 9, Bytes(100)));
    std::size_t received = 0;
    const MTPPacket packet =
        transport_.receiveContainer([&](ByteView bytes) { received += bytes.size(); }, {});
    EXPECT_EQ(packet.header.transactionID, 9U);
    EXPECT_EQ(received, 100U);
}

} // namespace
} // namespace tessary
