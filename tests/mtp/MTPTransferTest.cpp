#include "MTPPhoneFixture.h"
#include "base/threads/CancellationError.h"

namespace tessary {
namespace {

/// One way of cutting a conversation into transfers.
struct Framing {
    const char* name;
    std::vector<bool VirtualFaults::*> faults;
    std::uint16_t packetSize = 512;
};

struct FramedPhone : public MTPPhoneFixture {
    explicit FramedPhone(std::uint16_t packetSize)
        : MTPPhoneFixture({.maxPacketSize = packetSize}) {}
    void TestBody() override {}

    /// Objects whose containers end around a packet, around the first read, around a request, or so
    /// shortly before a packet's end that an answer behind them does not fit into it.
    void transferAllSizes() {
        for (const std::size_t size :
             {0U,     1U,      51U,     52U,     53U,     499U,      500U,   501U,
              1012U,  4083U,   4084U,   4085U,   4596U,   10216U,    10217U, 10222U,
              10226U, 262131U, 262132U, 262133U, 266228U, 1'000'000U}) {
            SCOPED_TRACE(size);
            const Bytes content = patternOf(size);
            upload(client_, storage, QStringLiteral("object"), content);
            EXPECT_EQ(phone_.content(QStringLiteral("object")), asArray(content));
            const std::uint32_t handle = find(client_, QStringLiteral("object"));
            EXPECT_EQ(client_.getObjectInfo(handle).effectiveSize(), size);
            EXPECT_EQ(client_.getObjectSize(handle), size);
            EXPECT_EQ(contentOf(client_, handle), content);
            client_.renameObject(handle, QStringLiteral("renamed"));
            client_.deleteObject(handle);
        }
        // Names whose ObjectInfo fills its last packet: 70 bytes and two for each unit.
        for (const int length : {29, 61, 221}) {
            const QString name(length, u'n');
            upload(client_, storage, name, patternOf(10));
            client_.deleteObject(find(client_, name));
            client_.createFolder(name, mtpRootHandle, storage);
            client_.deleteObject(find(client_, name));
        }
        EXPECT_EQ(client_.getBatteryLevel(), 80);
        EXPECT_EQ(client_.getStorageInfo(storage).id, storage);
        client_.createFolder(QStringLiteral("folder"), mtpRootHandle, storage);
        EXPECT_EQ(phone_.names(), QStringList{QStringLiteral("folder")});
        EXPECT_EQ(phone_.android.cancelRequests(), 0U) << "nothing needed mending";
        EXPECT_EQ(phone_.android.needlessHaltClears(), 0U);
    }

    void set(const std::vector<bool VirtualFaults::*>& wanted) {
        phone_.fault([&](VirtualFaults& faults) {
            for (const auto fault : wanted)
                faults.*fault = true;
        });
    }
};

class FramingTest : public ::testing::TestWithParam<Framing> {};

TEST_P(FramingTest, everySizeComesThroughBothWays) {
    FramedPhone phone(GetParam().packetSize);
    phone.set(GetParam().faults);
    phone.transferAllSizes();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FramingTest,
    ::testing::Values(Framing{"plain", {}}, Framing{"packetsOf64", {}, 64},
                      Framing{"packetsOf1024", {}, 1024},
                      Framing{"headerAlone", {&VirtualFaults::headerInOwnTransfer}},
                      Framing{"joined", {&VirtualFaults::dataAndResponseJoined}},
                      Framing{"noZeroPacket", {&VirtualFaults::omitsZeroPacket}},
                      Framing{"refusesZeroPacket", {&VirtualFaults::refusesZeroPacket}},
                      Framing{"extraZeroPacket", {&VirtualFaults::extraZeroPacket}},
                      Framing{"extraByte", {&VirtualFaults::extraByte}},
                      Framing{"extraByteJoined",
                              {&VirtualFaults::extraByte, &VirtualFaults::dataAndResponseJoined}},
                      Framing{"headerAloneExtraByte",
                              {&VirtualFaults::headerInOwnTransfer, &VirtualFaults::extraByte,
                               &VirtualFaults::extraZeroPacket}},
                      Framing{"junkTransactionIDs", {&VirtualFaults::junkTransactionID}}),
    [](const auto& row) { return std::string(row.param.name); });

/// A phone that cancels in its own way.
struct Cancelling {
    const char* name;
    std::vector<bool VirtualBehaviour::*> ways;
    std::chrono::milliseconds busy{50};
};

class CancelTest : public MTPPhoneFixture, public ::testing::WithParamInterface<Cancelling> {
protected:
    static constexpr std::size_t size = 6'000'000;

    CancelTest() {
        phone_.android.behaviour().update([](VirtualBehaviour& behaviour) {
            for (const auto way : GetParam().ways)
                behaviour.*way = true;
            behaviour.busyAfterCancel = GetParam().busy;
        });
        put(QStringLiteral("big"), content_);
        put(QStringLiteral("small"), patternOf(100));
    }

    const Bytes content_ = patternOf(size);
};

TEST_P(CancelTest, transfersMayBeStoppedAnywhere) {
    const std::uint32_t handle = find(client_, QStringLiteral("big"));
    const QStringList before = phone_.names();
    // Before it begins, the first piece, somewhere, before the last piece.
    for (const qint64 place : {0, 1, 262'144, 3'000'000, 5'700'000}) {
        SCOPED_TRACE(place);
        const auto stopped = [place](const std::function<void(const MTPStreamOptions&)>& run) {
            std::stop_source stop;
            MTPStreamOptions options;
            options.stop = stop.get_token();
            options.progress = [&](qint64 done) {
                if (done >= place)
                    stop.request_stop();
            };
            if (place == 0)
                stop.request_stop();
            EXPECT_THROW(run(options), CancellationError);
        };
        stopped([&](const MTPStreamOptions& options) {
            client_.getObject(
                handle,
                [&, done = qint64{0}](ByteView bytes) mutable {
                    options.progress(done += static_cast<qint64>(bytes.size()));
                },
                options);
        });
        EXPECT_EQ(client_.getObjectInfo(handle).filename, QStringLiteral("big"));
        stopped([&](const MTPStreamOptions& options) {
            upload(client_, storage, QStringLiteral("new"), content_, options);
        });
        EXPECT_EQ(client_.getStorageIDs().size(), 1U);
        EXPECT_EQ(phone_.names(), before);
    }
    EXPECT_EQ(contentOf(client_, handle), content_);
    expectUsable();
}

TEST_P(CancelTest, fullDiskHereAndVanishedFileHereLeaveTheSessionUsable) {
    struct DiskFull {};
    const MTPDataSink sink = [taken = std::size_t{0}](ByteView bytes) mutable {
        taken += bytes.size();
        if (taken > 1'000'000)
            throw DiskFull();
    };
    EXPECT_THROW(client_.getObject(find(client_, QStringLiteral("big")), sink), DiskFull);
    const MTPDataSource source = [given = std::size_t{0}](std::span<std::byte> buffer) mutable {
        given += buffer.size();
        return given > 1'000'000 ? 0 : buffer.size();
    };
    const auto failure =
        mtpFailureOf([&] { upload(client_, storage, QStringLiteral("new"), source, size); });
    EXPECT_TRUE(failure.value().logText().contains(QStringLiteral("the data ended after")));
    EXPECT_FALSE(phone_.names().contains(QStringLiteral("new")));
    expectUsable();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CancelTest,
    ::testing::Values(
        Cancelling{"byTheBook", {}},
        Cancelling{"refused", {&VirtualBehaviour::refusesCancelRequest}},
        Cancelling{"withoutStatus", {&VirtualBehaviour::refusesStatusRequest}},
        Cancelling{"answered", {&VirtualBehaviour::answersCancelled}},
        Cancelling{"slow", {&VirtualBehaviour::answersCancelled}, std::chrono::milliseconds(200)}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace tessary
