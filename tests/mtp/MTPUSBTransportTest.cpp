#include "mtp/client/MTPUSBTransport.h"

#include "support/MTPContainers.h"
#include "support/MTPFailure.h"
#include "support/ScriptedUSBBus.h"

#include <gmock/gmock.h>

#include <numeric>

namespace tessary {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;

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

Bytes slice(const Bytes& bytes, std::size_t from, std::size_t count) {
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(from);
    return {begin, begin + static_cast<std::ptrdiff_t>(std::min(count, bytes.size() - from))};
}

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
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receive(12); }),
                  "MTP Transport error: USB Read failed: " + row.text);
        EXPECT_THAT(bus_.log, ElementsAre("clear 1"));
        expectInStep();
    }
}

TEST_F(MTPUSBTransportTest, receiveHandsOutWhatArrived) {
    const Bytes data = patternOf(5000);
    bus_.send(data);
    EXPECT_EQ(transport_.receive(12), slice(data, 0, 12));
    bus_.fail(usb::pipeStalled); // is not read while enough is held
    EXPECT_EQ(transport_.receive(84), slice(data, 12, 84));
    EXPECT_EQ(transport_.receive(4000), slice(data, 96, 4000)); // held to the last byte
    EXPECT_THAT(transport_.receive(0), IsEmpty());
    EXPECT_EQ(transport_.receive(12), slice(data, 4096, 12));
    bus_.incoming = {};
    bus_.send(slice(data, 0, 100));
    EXPECT_THAT(transport_.receive(2000),
                SizeIs(904 - 12 + 100)); // one read, short of what is asked
    bus_.sendEmptyPacket();
    EXPECT_THAT(transport_.receive(10), IsEmpty());
    EXPECT_EQ(bus_.readBufferLimit, 4096U);
}

TEST_F(MTPUSBTransportTest, bytesBeyondTheContainerAreKeptForTheNext) {
    for (const std::size_t size : {4U, 500U, 5000U, 300'000U}) {
        const Bytes payload = patternOf(size);
        bus_.send(dataOf(0x1007, 7, payload) + responseOf(0x2001, 7, {1, 2}));
        EXPECT_EQ(transport_.receivePacket().payload, payload) << size;
        EXPECT_THAT(transport_.receivePacket().payload, SizeIs(8)) << size;
    }
}

TEST_F(MTPUSBTransportTest, containerWithoutPayloadNeedsOneRead) {
    for (const std::uint32_t length : {0U, 11U, 12U}) {
        bus_.send(containerOf(length, 3, 0x2001, 5, {}));
        bus_.fail(usb::generalError); // of a read that must not be made
        const MTPPacket packet = transport_.receivePacket();
        EXPECT_EQ(packet.header.length, length);
        EXPECT_THAT(packet.payload, IsEmpty());
        bus_.incoming = {};
    }
    bus_.send(containerOf(13, 3, 0x2001, 5, Bytes{std::byte{1}}));
    EXPECT_THAT(transport_.receivePacket().payload, ElementsAre(std::byte{1}));
    EXPECT_THAT(bus_.log, IsEmpty());
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

TEST_F(MTPUSBTransportTest, emptyPacketInsideContainerIsTimeout) {
    struct Row {
        const char* name;
        Bytes before;
    };
    const Bytes container = dataOf(0x1008, 7, patternOf(2000));
    for (const Row& row : {Row{"before anything", {}},
                           {"inside the header", slice(container, 0, 5)},
                           {"after the header", slice(container, 0, 12)},
                           {"inside the payload", slice(container, 0, 600)}}) {
        if (!row.before.empty())
            bus_.send(row.before);
        bus_.sendEmptyPacket();
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receivePacket(); }), mtpTimeout) << row.name;
        transport_.recover(7, MTPDataPhase::toHost);
        expectInStep();
    }
}

TEST_F(MTPUSBTransportTest, onlyOneEmptyPacketBehindDataIsItsEnd) {
    // 4096 and 512 × n + 4096 fill their last read to the end, 1000 does not.
    for (const std::size_t size : {1000U, 4096U, 4096U + 512U, 4096U + 262144U}) {
        bus_.send(dataOf(0x1007, 7, patternOf(size - 12)));
        for (int i = 0; i < 3; ++i)
            bus_.sendEmptyPacket();
        EXPECT_THAT(transport_.receivePacket().payload, SizeIs(size - 12));
        EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receivePacket(); }), mtpTimeout) << size;
        transport_.recover(7, MTPDataPhase::toHost);
        expectInStep();
    }
}

TEST_F(MTPUSBTransportTest, dataAndResponseOfWholePacketsAreTerminatedTogether) {
    bus_.send(dataOf(0x1007, 7, patternOf(4096 - 24)) + responseOf(0x2001, 7));
    bus_.sendEmptyPacket();
    EXPECT_THAT(transport_.receivePacket().payload, SizeIs(4096 - 24));
    EXPECT_EQ(transport_.receivePacket().header.code, 0x2001);
    expectInStep();
}

TEST_F(MTPUSBTransportTest, patienceHasAnEndAndIsForTheFirstByteOnly) {
    for (int i = 0; i < 3; ++i)
        bus_.fail(usb::timeout);
    bus_.send(responseOf(0x2001, 7));
    EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receivePacket(std::chrono::seconds(15)); }),
              mtpReadTimedOut);
    transport_.recover(7, MTPDataPhase::toHost);

    bus_.send(slice(responseOf(0x2001, 7), 0, 5));
    EXPECT_EQ(mtpFailureOf([&] { (void)transport_.receivePacket(std::chrono::seconds(15)); }),
              mtpReadTimedOut);
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

TEST_F(MTPUSBTransportTest, cancelNamesTransactionAndInterface) {
    EXPECT_EQ(transport_.recover(0x01020304, MTPDataPhase::toHost), MTPPipeState::quiet);
    ASSERT_THAT(bus_.controls, SizeIs(2));
    const ScriptedControl& cancel = bus_.controls[0];
    EXPECT_EQ(cancel.request.requestType, 0x21);
    EXPECT_EQ(cancel.request.request, 0x64);
    EXPECT_EQ(cancel.request.value, 0);
    EXPECT_EQ(cancel.request.index, 1); // the second interface
    EXPECT_EQ(cancel.data, hexBytes("0140 04030201"));
    const ScriptedControl& status = bus_.controls[1];
    EXPECT_EQ(status.request.requestType, 0xA1);
    EXPECT_EQ(status.request.request, 0x67);
    EXPECT_EQ(status.request.index, 1);
}

TEST_F(MTPUSBTransportTest, statusIsAskedWhileTheDeviceIsBusyAndTellsOfHalts) {
    const Bytes busy = hexBytes("0400 1920");
    const std::pair<std::deque<Bytes>, std::vector<std::string>> rows[] = {
        {{busy, busy, hexBytes("0400 0120")}, {"cancel", "status", "status", "status"}},
        {{hexBytes("0400 19"), busy}, {"cancel", "status"}}, // a short answer tells nothing
        {{hexBytes("0800 1F20 81000000")}, {"cancel", "status", "clear 1", "clear 2"}},
    };
    for (const auto& [answers, calls] : rows) {
        bus_.log.clear();
        bus_.statusAnswers = answers;
        transport_.recover(3, MTPDataPhase::toHost);
        EXPECT_EQ(bus_.log, calls);
    }
    bus_.fail(usb::pipeStalled);
    bus_.send(Bytes(100));
    EXPECT_EQ(transport_.recover(3, MTPDataPhase::toHost), MTPPipeState::drained);
    EXPECT_EQ(bus_.log.back(), "clear 1");
}

TEST_F(MTPUSBTransportTest, refusedCancelEndsAnUploadByTheShortestWrite) {
    for (const auto& [after, write] : {std::pair{10, "write 12"}, std::pair{300'000, "write 0"}}) {
        const MTPDataSource source = [rest = static_cast<std::size_t>(after)](auto buffer) mutable {
            const std::size_t count = std::min(buffer.size(), rest);
            rest -= count;
            return count;
        };
        EXPECT_NE(mtpFailureOf([&] {
                      transport_.sendContainer({600'012, MTPContainerType::data, 0x100D, 9},
                                               600'000, source, {});
                  }),
                  "none");
        const bool hasBegun = std::string(write) == "write 0";
        bus_.log.clear();
        bus_.cancelCodes = {usb::pipeStalled};
        // A device that has begun to read is told the end of its data, and is asked to cancel only
        // when it does not answer to that.
        transport_.recover(9, MTPDataPhase::toDevice);
        if (hasBegun)
            EXPECT_THAT(bus_.log, ElementsAre("write 0", "clear 1", "cancel"));
        else
            EXPECT_THAT(bus_.log, ElementsAre("cancel", write));
    }
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

TEST_F(MTPUSBTransportTest, constantTransactionIDsAreNotDroppedForEver) {
    transport_.recover(7, MTPDataPhase::toHost);
    bus_.send(responseOf(0x2001, 7));
    bus_.send(responseOf(0x2001, 7));
    bus_.send(responseOf(0x2002, 7));
    EXPECT_EQ(transport_.receivePacket().header.code, 0x2002);
    bus_.send(responseOf(0x2003, 7));
    EXPECT_EQ(transport_.receivePacket().header.code, 0x2003);
}

} // namespace
} // namespace tessary
