#include "mtp/IOKitMTPTransport.h"
#include "support/MTPContainers.h"
#include "support/MTPFailure.h"
#include "support/ScriptedUsbBus.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class MTPRecoveryTest : public ::testing::Test {
protected:
    MTPRecoveryTest() {
        bus_.attached[0].interfaces.insert(bus_.attached[0].interfaces.begin(), {8, 6, {}, {}});
        transport_.open();
        bus_.log.clear();
    }

    /// An upload whose source fails after this many bytes.
    void breakUploadOff(std::uint64_t after) {
        std::uint64_t rest = after;
        const MTPDataSource source = [&](std::span<std::byte> buffer) {
            const auto count =
                static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), rest));
            rest -= count;
            return count;
        };
        EXPECT_NE(mtpFailureOf([&] {
                      transport_.sendContainer({1'000'012, MTPContainerType::data, 0x100D, 9},
                                               1'000'000, source, {});
                  }),
                  "none");
        bus_.log.clear();
        bus_.written.clear();
    }

    std::uint16_t nextCode() {
        return transport_.receivePacket().header.code;
    }

    ScriptedUsbBus bus_;
    IOKitMTPTransport transport_{bus_, 0x18D1, 0x4EE1};
};

TEST_F(MTPRecoveryTest, cancelNamesTransactionAndInterface) {
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

TEST_F(MTPRecoveryTest, haltsThatTheStatusTellsOfAreCleared) {
    bus_.statusAnswers = {hexBytes("0800 1F20 81000000")};
    transport_.recover(3, MTPDataPhase::toHost);
    EXPECT_THAT(bus_.log, ElementsAre("cancel", "status", "clear 1", "clear 2"));
    bus_.log.clear();
    bus_.statusAnswers = {hexBytes("0400 19")};
    transport_.recover(3, MTPDataPhase::toHost);
    EXPECT_THAT(bus_.log, ElementsAre("cancel", "status")) << "a short answer tells nothing";
}

TEST_F(MTPRecoveryTest, refusedCancelEndsAnUploadByTheShortestWrite) {
    struct Row {
        const char* name;
        std::uint64_t after;
        std::string write;
    };
    for (const Row& row :
         {Row{"nothing sent yet", 10, "write 12"}, {"after whole packets", 300'000, "write 0"}}) {
        breakUploadOff(row.after);
        bus_.cancelCodes = {usb::pipeStalled};
        bus_.send(responseOf(0x2007, 9));
        EXPECT_EQ(transport_.recover(9, MTPDataPhase::toDevice), MTPPipeState::drained) << row.name;
        EXPECT_THAT(bus_.log, ElementsAre("cancel", row.write)) << row.name;
        EXPECT_EQ(bus_.written, row.write == "write 12" ? dataOf(0x100D, 9, {}) : Bytes());
        bus_.send(responseOf(0x2001, 10));
        EXPECT_EQ(nextCode(), 0x2001) << row.name;
    }
}

TEST_F(MTPRecoveryTest, onlyADatasetThatCouldNotBeWrittenIsEnded) {
    transport_.send(dataOf(0x100C, 9, Bytes(100)));
    bus_.log.clear();
    bus_.cancelCodes = {usb::pipeStalled};
    transport_.recover(9, MTPDataPhase::toDevice);
    EXPECT_THAT(bus_.log, ElementsAre("cancel"));

    bus_.writeCodes = {usb::timeout};
    EXPECT_NE(mtpFailureOf([&] { transport_.send(dataOf(0x100C, 10, Bytes(100))); }), "none");
    bus_.written.clear();
    bus_.cancelCodes = {usb::timeout};
    transport_.recover(10, MTPDataPhase::toDevice);
    EXPECT_EQ(bus_.written, dataOf(0x100C, 10, {}));
}

TEST_F(MTPRecoveryTest, haltedPipesAreCleared) {
    bus_.fail(usb::pipeStalled);
    bus_.send(Bytes(100));
    bus_.fail(usb::pipeStalled);
    transport_.recover(7, MTPDataPhase::toHost);
    EXPECT_EQ(bus_.logged("clear 1"), 2U);

    breakUploadOff(300'000);
    bus_.cancelCodes = {usb::pipeStalled};
    bus_.writeCodes = {usb::pipeStalled};
    bus_.send(responseOf(0x2007, 9)); // is dropped although the pipe out is halted
    EXPECT_EQ(transport_.recover(9, MTPDataPhase::toDevice), MTPPipeState::drained);
    EXPECT_THAT(bus_.log, ElementsAre("cancel", "write 0", "clear 2"));
}

TEST_F(MTPRecoveryTest, goneDeviceIsLeftAtOnce) {
    breakUploadOff(300'000);
    bus_.unplug();
    EXPECT_EQ(transport_.recover(9, MTPDataPhase::toDevice), MTPPipeState::quiet);
    EXPECT_THAT(bus_.log, ::testing::Each(::testing::StrNe("status"))) << "nothing is waited for";
}

TEST_F(MTPRecoveryTest, lateContainersOfBrokenOffTransactionAreDropped) {
    transport_.recover(7, MTPDataPhase::toHost);
    bus_.send(dataOf(0x1007, 7, Bytes(3000)));
    bus_.send(responseOf(0x2001, 7));
    bus_.send(responseOf(0x2009, 8));
    EXPECT_EQ(nextCode(), 0x2009);

    transport_.recover(8, MTPDataPhase::toHost);
    bus_.send(responseOf(0x2001, 8));
    bus_.send(dataOf(0x1009, 9, Bytes(100)));
    std::size_t received = 0;
    const MTPPacket packet =
        transport_.receiveContainer([&](ByteView bytes) { received += bytes.size(); }, {});
    EXPECT_EQ(packet.header.transactionID, 9U);
    EXPECT_EQ(received, 100U);
}

TEST_F(MTPRecoveryTest, constantTransactionIDsAreNotDroppedForEver) {
    transport_.recover(7, MTPDataPhase::toHost);
    bus_.send(responseOf(0x2001, 7));
    bus_.send(responseOf(0x2001, 7));
    bus_.send(responseOf(0x2002, 7));
    EXPECT_EQ(nextCode(), 0x2002);
    bus_.send(responseOf(0x2003, 7));
    EXPECT_EQ(nextCode(), 0x2003);
}

} // namespace
} // namespace tessary
