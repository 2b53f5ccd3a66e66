#include "MTPClientFixture.h"
#include "mtp/IOKitMTPTransport.h"
#include "support/ScriptedUsbBus.h"

namespace tessary {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST_F(MTPClientTest, openSessionOfAnEarlierClientIsClosedFirst) {
    for (const std::uint16_t last : {ok, std::uint16_t{0x201E}}) {
        const std::uint32_t first = last == ok ? 1 : 4;
        answer({responseOf(0x201E, first), responseOf(0x2002, first + 1),
                responseOf(last, first + 2)});
        client_.openSession(1);
        EXPECT_THAT(sent(),
                    ElementsAre(commandOf(0x1002, first, {1}), commandOf(0x1003, first + 1, {}),
                                commandOf(0x1002, first + 2, {1})));
    }
    expectUsable(7);
}

TEST_F(MTPClientTest, refusedSessionLeavesTheTransportClosed) {
    answer({responseOf(0x2019, 1)});
    EXPECT_EQ(mtpFailureOf([&] { client_.openSession(1); }),
              mtpFailure("OpenSession failed with code 0x2019"));
    EXPECT_FALSE(mock_->isOpen());
    answer({responseOf(0x201E, 2), responseOf(ok, 3), responseOf(0x2002, 4)});
    EXPECT_EQ(mtpFailureOf([&] { client_.openSession(1); }),
              mtpFailure("OpenSession failed with code 0x2002"));
    answer({responseOf(ok, 5)});
    client_.openSession(1);
    EXPECT_TRUE(mock_->isOpen());
}

TEST_F(MTPClientTest, closingIsQuietWhateverTheDeviceSays) {
    client_.closeSession();
    EXPECT_THAT(sent(), IsEmpty());
    for (const bool answers : {true, false}) {
        const std::uint32_t first = answers ? 1 : 3;
        answer({responseOf(ok, first)});
        client_.openSession(1);
        if (answers)
            answer({responseOf(0x2003, first + 1)});
        client_.closeSession();
        EXPECT_FALSE(mock_->isOpen());
        EXPECT_THAT(sent(),
                    ElementsAre(commandOf(0x1002, first, {1}), commandOf(0x1003, first + 1, {})));
        client_.closeSession();
        EXPECT_THAT(sent(), IsEmpty());
    }
    answer({responseOf(ok, 5)});
    client_.openSession(1); // transaction IDs go on
    EXPECT_THAT(sent(), ElementsAre(commandOf(0x1002, 5, {1})));
}

/// A client on pipes whose content is scripted.
class MTPClientOnPipesTest : public ::testing::Test {
protected:
    MTPClientOnPipesTest() {
        bus_.send(responseOf(ok, 1));
        client_.openSession(1);
        bus_.log.clear();
        bus_.written.clear();
    }

    ScriptedUsbBus bus_;
    MTPClient client_{std::make_unique<IOKitMTPTransport>(bus_, 0x18D1, 0x4EE1)};
};

TEST_F(MTPClientOnPipesTest, failedTransactionIsSettledBeforeTheNext) {
    EXPECT_EQ(mtpFailureOf([&] { (void)client_.getObjectHandles(storage, 1); }), mtpReadTimedOut);
    EXPECT_EQ(bus_.logged("cancel"), 0U);
    // What comes too late is the answer to the first question, not to the second.
    bus_.afterWrite = [&](ByteView) {
        bus_.send(dataOf(0x1007, 2, hexBytes("01000000 11000000")));
        bus_.send(responseOf(ok, 2));
        bus_.send(dataOf(0x1007, 3, hexBytes("01000000 22000000")));
        bus_.send(responseOf(ok, 3));
    };
    EXPECT_THAT(client_.getObjectHandles(storage, 2), ElementsAre(0x22U));
    EXPECT_EQ(bus_.logged("cancel"), 1U);
    EXPECT_EQ(bus_.controls[0].data, hexBytes("0140 02000000"));
}

TEST_F(MTPClientOnPipesTest, refusedCancelEndsTheDatasetPhase) {
    bus_.writeCodes = {usb::success, usb::timeout};
    EXPECT_NE(mtpFailureOf([&] { client_.renameObject(5, QStringLiteral("x")); }), "none");
    bus_.cancelCodes = {usb::pipeStalled};
    bus_.written.clear();
    bus_.afterWrite = [&](ByteView) { bus_.send(responseOf(ok, 3)); };
    client_.deleteObject(5);
    EXPECT_EQ(bus_.written, dataOf(0x9804, 2, {}) + commandOf(0x100B, 3, {5, 0}));
}

TEST(MTPClientSession, goneDeviceIsNotTriedTwice) {
    ScriptedUsbBus bus;
    bus.unplug();
    MTPClient client(std::make_unique<IOKitMTPTransport>(bus, 0x18D1, 0x4EE1));
    EXPECT_THAT(mtpFailureOf([&] { client.openSession(1); }), HasSubstr("0x-1FFFFD40"));
    EXPECT_EQ(bus.logged("write 16"), 1U);
    EXPECT_EQ(bus.logged("open 1-1"), 1U);
    EXPECT_THAT(mtpFailureOf([&] { client.openSession(1); }), HasSubstr("0x-1FFFFD40"));
    EXPECT_EQ(bus.logged("open 1-1"), 2U);
}

} // namespace
} // namespace tessary
