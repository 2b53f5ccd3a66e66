#include "phones/PhoneFixture.h"

namespace tessary {
namespace {

using namespace std::chrono_literals;

class VirtualFaultsTest : public PhoneFixture {
protected:
    static constexpr std::uint16_t ok = 0x2001;

    void openWithFile(std::size_t size) {
        content_ = patternBytes(size);
        phone().write(QStringLiteral("f"), asArray(content_));
        host().openSession();
        file_ = host().handles(storage).at(0);
    }
    template <typename Work>
    static std::chrono::nanoseconds timeOf(Work work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::steady_clock::now() - start;
    }

    Bytes content_;
    std::uint32_t file_ = 0;
};

TEST_F(VirtualFaultsTest, unplugAfterAnyNumberOfBytesOfADownload) {
    for (const std::uint64_t bytes : {0U, 1U, 12U, 511U, 512U, 5000U, 99'999U, 100'012U}) {
        SCOPED_TRACE(bytes);
        plugIn({});
        openWithFile(100'000);
        phone().fault([&](VirtualFaults& faults) { faults.unplug = {UsbDirection::in, bytes, 2}; });
        EXPECT_EQ(host().run(0x1008, {file_}).code, ok) << "the phase before";
        ASSERT_EQ(host().command(0x1009, {file_}), usb::success);
        Bytes received;
        Bytes part;
        UsbCode code = usb::success;
        while (code == usb::success) {
            code = host().read(part, 4096);
            received.insert(received.end(), part.begin(), part.end());
        }
        EXPECT_EQ(code, usb::noDevice);
        const bool whole = bytes == 100'012;
        EXPECT_EQ(received.size(), whole ? bytes : bytes / 512 * 512);
        EXPECT_TRUE(bus_.devices().empty());
    }
}

TEST_F(VirtualFaultsTest, unplugAfterAnyNumberOfBytesOfAnUploadLeavesNothing) {
    for (const bool keeps : {false, true}) {
        for (const std::uint64_t bytes : {0U, 5U, 12U, 13U, 70'000U, 3'000'012U}) {
            SCOPED_TRACE(bytes);
            plugIn({});
            behave([&](VirtualBehaviour& behaviour) { behaviour.keepsPartialObjects = keeps; });
            phone().fault([&](VirtualFaults& faults) {
                faults.unplug = {UsbDirection::out, bytes, 2};
            });
            host().openSession();
            EXPECT_EQ(upload(u"f", Bytes(3'000'000)).usb, usb::noDevice);
            phone().android.unplug(); // waits for the phone's thread
            const auto left = phone().content(QStringLiteral("f")).size();
            const bool all = bytes == 3'000'012;
            EXPECT_EQ(left, keeps && bytes > 12 ? static_cast<qsizetype>(bytes - 12)
                            : all && keeps      ? 3'000'000
                                                : 0);
            EXPECT_EQ(phone().names().isEmpty(), !keeps);
        }
    }
}

TEST_F(VirtualFaultsTest, stallEndsOneTransactionOnly) {
    openWithFile(100'000);
    phone().fault([](VirtualFaults& faults) { faults.stall = {UsbDirection::in, 2048, 1}; });
    ASSERT_EQ(host().command(0x1009, {file_}), usb::success);
    Bytes bytes;
    EXPECT_EQ(host().read(bytes), usb::pipeStalled);
    EXPECT_EQ(bytes.size(), 2048U);
    EXPECT_EQ(host().pipes().clearPipeStallBothEnds(1), usb::success);
    EXPECT_EQ(host().run(0x1009, {file_}).data, content_);

    phone().fault([](VirtualFaults& faults) { faults.stall = {UsbDirection::out, 600'000, 2}; });
    EXPECT_EQ(upload(u"g", Bytes(4 << 20)).usb, usb::pipeStalled);
    EXPECT_EQ(host().pipes().clearPipeStallBothEnds(2), usb::success);
    EXPECT_EQ(upload(u"g", Bytes(1000)).code, ok);
}

TEST_F(VirtualFaultsTest, errorsComeOnceOrAlways) {
    openWithFile(10);
    phone().fault([](VirtualFaults& faults) {
        faults.errors[0x1008] = {0x2019, false};
        faults.errors[0x100D] = {0x200F, true};
    });
    EXPECT_EQ(host().run(0x1008, {file_}).code, 0x2019);
    EXPECT_EQ(host().run(0x1008, {file_}).code, ok);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(upload(u"g", Bytes(100'000)).code, 0x200F);
    EXPECT_EQ(phone().names(), QStringList(QStringLiteral("f")));
}

TEST_F(VirtualFaultsTest, hangingOperationIsNeverAnswered) {
    openWithFile(10);
    phone().fault([](VirtualFaults& faults) { faults.hang = {0x1008, 0x100C}; });
    ASSERT_EQ(host().command(0x1008, {file_}), usb::success);
    EXPECT_TRUE(host().isQuiet());
    ASSERT_EQ(host().command(0x100C, {storage, root}), usb::success);
    ASSERT_EQ(host().write(RawHost::container(2, 0x100C, host().transactionID,
                                              RawHost::objectInfo(u"g", 1))),
              usb::success);
    EXPECT_TRUE(host().isQuiet());
    EXPECT_EQ(host().run(0x1009, {file_}).data, content_);
    behave([](VirtualBehaviour& behaviour) { behaviour.hangsBeyondEnd = true; });
    ASSERT_EQ(host().command(0x101B, {file_, 10, 5}), usb::success);
    EXPECT_TRUE(host().isQuiet());
}

TEST_F(VirtualFaultsTest, phoneThatIsUpsetByANeedlessClearIsSilentUntilPluggedInAgain) {
    phone().fault([](VirtualFaults& faults) { faults.upsetByNeedlessClear = true; });
    host().openSession();
    EXPECT_EQ(host().pipes().clearPipeStallBothEnds(1), usb::success);
    ASSERT_EQ(host().command(0x1004), usb::success);
    EXPECT_TRUE(host().isQuiet());
    EXPECT_TRUE(bus_.detach(phone().android.config().location));
    phone().android.plugInto(bus_);
    connect();
    host().openSession();
}

TEST_F(VirtualFaultsTest, delaysAndPaceTakeTheirTime) {
    openWithFile(1'000'000);
    phone().fault([](VirtualFaults& faults) {
        faults.delay[0x1004] = 60ms;
        faults.sendObjectPause = 60ms;
    });
    EXPECT_GE(timeOf([&] { host().run(0x1004); }), 60ms);
    EXPECT_GE(timeOf([&] { upload(u"g", Bytes(1)); }), 60ms);
    phone().fault([](VirtualFaults& faults) {
        faults = {};
        faults.megabytesPerSecond = 10;
    });
    EXPECT_GE(timeOf([&] { EXPECT_EQ(host().run(0x1009, {file_}).data, content_); }), 90ms);
    EXPECT_GE(timeOf([&] { EXPECT_EQ(upload(u"h", content_).code, ok); }), 90ms);
    // A pause does not outlive the plug.
    phone().fault([](VirtualFaults& faults) { faults.delayEach = 60s; });
    ASSERT_EQ(host().command(0x1004), usb::success);
    EXPECT_LT(timeOf([&] { phone().android.unplug(); }), 10s);
}

TEST_F(VirtualFaultsTest, storeFillsUpInTheMiddle) {
    host().openSession();
    phone().fault([](VirtualFaults& faults) { faults.storeFullAfter = 300'000; });
    EXPECT_EQ(upload(u"g", Bytes(2'000'000)).code, 0x200C);
    EXPECT_TRUE(phone().names().isEmpty());
    EXPECT_EQ(upload(u"g", Bytes(300'000)).code, ok);
}

struct FramingCase {
    const char* name;
    void (*set)(VirtualFaults&);
    std::size_t payload;
    std::vector<std::size_t> transfers; ///< sizes, the response's 12 bytes last
    bool timesOut = false;              ///< the first read never sees the transfer's end
};

class Framing : public VirtualFaultsTest, public testing::WithParamInterface<FramingCase> {};

TEST_P(Framing, cutsTransfersDifferently) {
    openWithFile(GetParam().payload);
    phone().fault(GetParam().set);
    ASSERT_EQ(host().command(0x1009, {file_}), usb::success);
    Bytes all;
    for (const std::size_t size : GetParam().transfers) {
        Bytes bytes;
        ASSERT_EQ(host().read(bytes), usb::success);
        EXPECT_EQ(bytes.size(), size);
        all.insert(all.end(), bytes.begin(), bytes.end());
    }
    EXPECT_TRUE(host().isQuiet());
    ASSERT_GE(all.size(), 24 + content_.size());
    EXPECT_EQ(readLittleEndian<std::uint32_t>(all, 0), 12 + content_.size());
    EXPECT_TRUE(std::equal(content_.begin(), content_.end(), all.begin() + 12));
    EXPECT_EQ(readLittleEndian<std::uint16_t>(all, all.size() - 6), ok);
}

INSTANTIATE_TEST_SUITE_P(
    Variants, Framing,
    testing::Values(
        FramingCase{"usual", [](VirtualFaults&) {}, 100, {112, 12}},
        FramingCase{"usualWholePackets", [](VirtualFaults&) {}, 1012, {1024, 12}},
        FramingCase{"emptyObject", [](VirtualFaults&) {}, 0, {12, 12}},
        FramingCase{"headerAlone",
                    [](VirtualFaults& f) { f.headerInOwnTransfer = true; },
                    100,
                    {12, 100, 12}},
        FramingCase{"headerAloneWholePackets",
                    [](VirtualFaults& f) { f.headerInOwnTransfer = true; },
                    1024,
                    {12, 1024, 12}},
        FramingCase{"headerAloneOfAnEmptyObject",
                    [](VirtualFaults& f) { f.headerInOwnTransfer = true; },
                    0,
                    {12, 12}},
        FramingCase{"joined", [](VirtualFaults& f) { f.dataAndResponseJoined = true; }, 100, {124}},
        FramingCase{"joinedWholePackets",
                    [](VirtualFaults& f) { f.dataAndResponseJoined = true; },
                    1012,
                    {1036}},
        FramingCase{"missingZeroPacketJoinsTheResponse",
                    [](VirtualFaults& f) { f.omitsZeroPacket = true; },
                    1012,
                    {1036}},
        FramingCase{"missingZeroPacketOfOthers",
                    [](VirtualFaults& f) { f.omitsZeroPacket = true; },
                    1011,
                    {1023, 12}},
        FramingCase{"extraZeroPacket",
                    [](VirtualFaults& f) { f.extraZeroPacket = true; },
                    100,
                    {112, 0, 12}},
        FramingCase{"extraByte", [](VirtualFaults& f) { f.extraByte = true; }, 100, {113, 12}}),
    [](const auto& row) { return row.param.name; });

TEST_F(VirtualFaultsTest, junkTransactionIDsAndRewrittenContainers) {
    openWithFile(10);
    phone().fault([](VirtualFaults& faults) { faults.junkTransactionID = true; });
    EXPECT_NE(host().run(0x1004).transactionID, host().transactionID);
    phone().fault([](VirtualFaults& faults) {
        faults = {};
        faults.rewrite = [](const VirtualAnswer& answer) -> std::optional<Bytes> {
            if (answer.operation != 0x1004)
                return std::nullopt;
            if (answer.type == MTPContainerType::response)
                return Bytes(2000, std::byte{7});
            Bytes shorter = answer.container;
            shorter.resize(15);
            return shorter;
        };
    });
    ASSERT_EQ(host().command(0x1004), usb::success);
    EXPECT_EQ(host().transfer().size(), 15U);
    EXPECT_EQ(host().transfer(), Bytes(2000, std::byte{7}));
    EXPECT_EQ(host().run(0x1009, {file_}).data, content_);
}

} // namespace
} // namespace tessary
