#include "phones/PhoneFixture.h"

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

class VirtualFaultsTest : public PhoneFixture {
protected:
    void openWithFile(std::size_t size) {
        content_ = patternOf(size);
        phone_.write(QStringLiteral("f"), asArray(content_));
        host().openSession();
        file_ = host().handles(storage).at(0);
    }
    [[nodiscard]] bool isOkSoon() {
        for (int i = 0; i < 500 && host().status() != ok; ++i)
            std::this_thread::sleep_for(5ms);
        return host().status() == ok;
    }

    Bytes content_;
    std::uint32_t file_ = 0;
};

TEST_F(VirtualFaultsTest, unpluggingOrStallingStopsAtItsByte) {
    openWithFile(100'000);
    Bytes received;
    phone_.fault([](VirtualFaults& faults) { faults.stall = {UsbDirection::in, 2048, 1}; });
    ASSERT_EQ(host().command(0x1009, {file_}), usb::success);
    EXPECT_EQ(host().read(received), usb::pipeStalled);
    EXPECT_EQ(received.size(), 2048U);
    EXPECT_EQ(host().clearStall(1), usb::success);
    EXPECT_EQ(host().run(0x1009, {file_}).data, content_) << "one transaction only";

    phone_.fault([](VirtualFaults& faults) { faults.unplug = {UsbDirection::in, 5000, 2}; });
    EXPECT_EQ(host().run(0x1008, {file_}).code, ok) << "the phase before";
    ASSERT_EQ(host().command(0x1009, {file_}), usb::success);
    EXPECT_EQ(host().read(received), usb::noDevice);
    EXPECT_EQ(received.size(), 5000U / 512 * 512);
    EXPECT_TRUE(bus_.devices().empty());
}

TEST_F(VirtualFaultsTest, brokenUploadLeavesNothingUnlessThePhoneKeepsParts) {
    for (const bool keeps : {false, true}) {
        behave([&](VirtualBehaviour& behaviour) { behaviour.keepsPartialObjects = keeps; });
        phone_.fault([](VirtualFaults& faults) { faults.unplug = {UsbDirection::out, 70'000, 2}; });
        host().openSession();
        EXPECT_EQ(upload(u"f", Bytes(3'000'000)).usb, usb::noDevice);
        phone_.android.unplug(); // waits for the phone's thread
        EXPECT_EQ(phone_.content(QStringLiteral("f")).size(), keeps ? 70'000 - 12 : 0);
        EXPECT_EQ(phone_.names().isEmpty(), !keeps);
        phone_.android.plugInto(bus_);
        reconnect();
    }
}

TEST_F(VirtualFaultsTest, cancelledDownloadLeavesTheRestInThePipe) {
    behave([](VirtualBehaviour& behaviour) { behaviour.busyAfterCancel = 100ms; });
    openWithFile(8 << 20);
    ASSERT_EQ(host().command(0x1009, {file_}), usb::success);
    Bytes bytes;
    ASSERT_EQ(host().read(bytes, RawHost::soon, 65536), usb::success);
    EXPECT_EQ(host().status(), ok);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_EQ(host().status(), 0x2019);
    EXPECT_TRUE(isOkSoon());
    std::size_t left = 0;
    while (host().read(bytes, RawHost::quiet) == usb::success || !bytes.empty())
        left += bytes.size();
    EXPECT_GT(left, 0U);
    EXPECT_LE(left, (2U << 20)) << "no more than the pipe holds, and no answer";
    EXPECT_EQ(host().run(0x1004).code, ok);
}

TEST_F(VirtualFaultsTest, cancelledUploadLeavesNoObject) {
    host().openSession();
    ASSERT_EQ(host().runOut(0x100C, {storage, root}, RawHost::objectInfo(u"f", 8 << 20)).code, ok);
    ASSERT_EQ(host().command(0x100D), usb::success);
    ASSERT_EQ(host().write(containerOf((8 << 20) + 12, 2, 0x100D, host().transactionID,
                                       Bytes((2 << 20) - 12))),
              usb::success);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_TRUE(isOkSoon());
    EXPECT_TRUE(host().isQuiet());
    EXPECT_TRUE(phone_.names().isEmpty());
    EXPECT_EQ(upload(u"f", Bytes(100)).code, ok);
}

struct FramingCase {
    const char* name;
    void (*set)(VirtualFaults&);
    std::size_t payload;
    std::vector<std::size_t> transfers; ///< sizes, the response's 12 bytes last
};

TEST_F(VirtualFaultsTest, framingsCutTransfersDifferently) {
    const auto usual = [](VirtualFaults&) {};
    const auto alone = [](VirtualFaults& faults) { faults.headerInOwnTransfer = true; };
    const auto joined = [](VirtualFaults& faults) { faults.dataAndResponseJoined = true; };
    const auto noZero = [](VirtualFaults& faults) { faults.omitsZeroPacket = true; };
    const auto moreZero = [](VirtualFaults& faults) { faults.extraZeroPacket = true; };
    const auto extraByte = [](VirtualFaults& faults) { faults.extraByte = true; };
    const FramingCase rows[] = {
        {"usual", usual, 100, {112, 12}},
        {"usual, whole packets", usual, 1012, {1024, 12}},
        {"usual, empty object", usual, 0, {12, 12}},
        {"header alone", alone, 100, {12, 100, 12}},
        {"header alone, whole packets", alone, 1024, {12, 1024, 12}},
        {"header alone, empty object", alone, 0, {12, 12}},
        {"joined", joined, 100, {124}},
        {"joined, whole packets", joined, 1012, {1036}},
        {"missing zero packet joins the response", noZero, 1012, {1036}},
        {"missing zero packet of others", noZero, 1011, {1023, 12}},
        {"extra zero packet", moreZero, 100, {112, 0, 12}},
        {"extra byte", extraByte, 100, {113, 12}},
    };
    host().openSession();
    for (const FramingCase& row : rows) {
        SCOPED_TRACE(row.name);
        const Bytes content = patternOf(row.payload);
        phone_.write(QStringLiteral("f"), asArray(content));
        const std::uint32_t file = host().handles(storage).at(0);
        phone_.fault([&](VirtualFaults& faults) {
            faults = {};
            row.set(faults);
        });
        ASSERT_EQ(host().command(0x1009, {file}), usb::success);
        Bytes all;
        for (const std::size_t size : row.transfers) {
            Bytes bytes;
            ASSERT_EQ(host().read(bytes), usb::success);
            EXPECT_EQ(bytes.size(), size);
            all.insert(all.end(), bytes.begin(), bytes.end());
        }
        EXPECT_TRUE(host().isQuiet());
        ASSERT_GE(all.size(), 24 + content.size());
        EXPECT_EQ(readLittleEndian<std::uint32_t>(all, 0), 12 + content.size());
        EXPECT_TRUE(std::equal(content.begin(), content.end(), all.begin() + 12));
        EXPECT_EQ(readLittleEndian<std::uint16_t>(all, all.size() - 6), ok);
        phone_.fault([](VirtualFaults& faults) { faults = {}; });
    }
}

} // namespace
} // namespace tessary
