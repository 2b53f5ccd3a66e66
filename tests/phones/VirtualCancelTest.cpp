#include "phones/PhoneFixture.h"

#include <thread>

namespace tessary {
namespace {

using namespace std::chrono_literals;

class VirtualCancel : public PhoneFixture {
protected:
    static constexpr std::uint16_t ok = 0x2001;
    static constexpr std::uint16_t busy = 0x2019;

    /// Reads what is left until it has been quiet; returns the bytes.
    std::size_t drain() {
        std::size_t drained = 0;
        Bytes bytes;
        while (host().read(bytes, 1 << 20, RawHost::quiet) == usb::success || !bytes.empty())
            drained += bytes.size();
        return drained;
    }
    [[nodiscard]] bool isOkSoon() {
        for (int i = 0; i < 500 && host().status() != ok; ++i)
            std::this_thread::sleep_for(5ms);
        return host().status() == ok;
    }
    void beginDownload() {
        phone().write(QStringLiteral("f"), QByteArray(8 << 20, 'x'));
        host().openSession();
        const std::uint32_t file = host().handles(storage).at(0);
        ASSERT_EQ(host().command(0x1009, {file}), usb::success);
        Bytes bytes;
        ASSERT_EQ(host().read(bytes, 65536), usb::success);
    }
    void beginUpload() {
        host().openSession();
        ASSERT_EQ(host().runOut(0x100C, {storage, root}, RawHost::objectInfo(u"f", 8 << 20)).code,
                  ok);
        ASSERT_EQ(host().command(0x100D), usb::success);
        const Bytes start = RawHost::container(2, 0x100D, host().transactionID,
                                               Bytes((2 << 20) - 12), (8 << 20) + 12);
        ASSERT_EQ(host().write(start), usb::success);
    }
};

TEST_F(VirtualCancel, stopsADownloadAndLeavesTheRestInThePipe) {
    behave([](VirtualBehaviour& behaviour) { behaviour.busyAfterCancel = 100ms; });
    beginDownload();
    EXPECT_EQ(host().status(), ok);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_EQ(host().status(), busy);
    EXPECT_TRUE(isOkSoon());
    const std::size_t left = drain();
    EXPECT_GT(left, 0U);
    EXPECT_LE(left, (2U << 20)) << "no more than the pipe holds, and no answer";
    EXPECT_EQ(host().run(0x1004).code, ok);
    EXPECT_EQ(phone().android.cancelRequests(), 1U);
}

TEST_F(VirtualCancel, stopsAnUploadAndLeavesNoObject) {
    beginUpload();
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_TRUE(isOkSoon());
    EXPECT_TRUE(host().isQuiet());
    EXPECT_TRUE(phone().names().isEmpty());
    EXPECT_EQ(host().run(0x1004).code, ok);
    EXPECT_EQ(upload(u"f", Bytes(100)).code, ok);
}

TEST_F(VirtualCancel, commandRightAfterItIsNotLost) {
    for (int i = 0; i < 30; ++i) {
        plugIn({});
        beginUpload();
        ASSERT_EQ(host().cancel(host().transactionID), usb::success);
        ASSERT_EQ(host().run(0x1004).code, ok);
    }
}

TEST_F(VirtualCancel, comesInTimeBeforeTheDataPhase) {
    phone().write(QStringLiteral("f"), QByteArray(1000, 'x'));
    host().openSession();
    const std::uint32_t file = host().handles(storage).at(0);
    phone().fault([](VirtualFaults& faults) { faults.delay = {{0x1009, 10s}, {0x100C, 10s}}; });
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(host().command(0x1009, {file}), usb::success);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_TRUE(host().isQuiet());
    EXPECT_EQ(host().run(0x1004).code, ok);
    ASSERT_EQ(host().command(0x100C, {storage, root}), usb::success);
    ASSERT_EQ(host().write(RawHost::container(2, 0x100C, host().transactionID,
                                              RawHost::objectInfo(u"g", 1))),
              usb::success);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_EQ(host().run(0x1004).code, ok) << "the dropped data phase is not taken for a command";
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
}

TEST_F(VirtualCancel, operationWithoutADataPhaseGoesOn) {
    phone().write(QStringLiteral("f"), "x");
    host().openSession();
    const std::uint32_t file = host().handles(storage).at(0);
    phone().fault([](VirtualFaults& faults) { faults.delay[0x100B] = 100ms; });
    ASSERT_EQ(host().command(0x100B, {file, 0}), usb::success);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_EQ(host().answer().code, ok);
    EXPECT_TRUE(phone().names().isEmpty());
}

TEST_F(VirtualCancel, optionsKeepThePartAndAnswer) {
    behave([](VirtualBehaviour& behaviour) {
        behaviour.keepsPartialObjects = true;
        behaviour.answersCancelled = true;
    });
    beginUpload();
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
    EXPECT_EQ(host().answer().code, 0x201F);
    EXPECT_EQ(phone().names(), QStringList(QStringLiteral("f")));
}

TEST_F(VirtualCancel, otherTransactionsAndMalformedRequestsChangeNothing) {
    beginDownload();
    EXPECT_EQ(host().cancel(host().transactionID + 1), usb::success);
    Bytes wrongCode(6);
    EXPECT_EQ(host().control(0x21, 0x64, wrongCode), usb::pipeStalled);
    Bytes tooShort{std::byte{0x01}, std::byte{0x40}};
    EXPECT_EQ(host().control(0x21, 0x64, tooShort), usb::pipeStalled);
    Bytes unknown(4);
    EXPECT_EQ(host().control(0xA1, 0x65, unknown), usb::pipeStalled);
    EXPECT_EQ(host().status(), ok);
    EXPECT_EQ(65536 + drain(), (8U << 20) + 12 + 12);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success) << "too late";
    EXPECT_EQ(host().run(0x1004).code, ok);
}

TEST_F(VirtualCancel, requestsCanBeRefused) {
    behave([](VirtualBehaviour& behaviour) {
        behaviour.refusesCancelRequest = true;
        behaviour.refusesStatusRequest = true;
    });
    beginDownload();
    EXPECT_EQ(host().cancel(host().transactionID), usb::pipeStalled);
    EXPECT_EQ(host().status(), 0);
    EXPECT_EQ(65536 + drain(), (8U << 20) + 12 + 12);
}

} // namespace
} // namespace tessary
