#include "MTPPhoneFixture.h"

#include <chrono>
#include <set>

namespace tessary {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t bigSize = 3'000'000;

/// An operation with a data phase of `phaseBytes` bytes, header included.
struct Operation {
    const char* name;
    USBDirection direction;
    std::uint64_t phaseBytes;
    std::function<void(MTPClient&, std::uint32_t handle)> run;
    unsigned phase = 1; ///< which of its data phases in that direction
};

constexpr std::uint32_t onlyStorage = PluggedPhone::firstStorage;
const Bytes bigContent = patternOf(bigSize);

void uploadNew(MTPClient& client, std::uint32_t) {
    upload(client, onlyStorage, QStringLiteral("new"), bigContent);
}

const std::vector<Operation> operations{
    {"handles", USBDirection::in, 12 + 4 + 4 * 200,
     [](auto& client, auto) { (void)client.getObjectHandles(onlyStorage, mtpRootHandle); }},
    {"object", USBDirection::in, 12 + bigSize,
     [](auto& client, auto handle) { (void)contentOf(client, handle); }},
    {"rename", USBDirection::out, 12 + 9,
     [](auto& client, auto handle) { client.renameObject(handle, QStringLiteral("new")); }},
    {"uploadInfo", USBDirection::out, 12 + 64, uploadNew},
    {"upload", USBDirection::out, 12 + bigSize, uploadNew, 2},
};

/// Where something may go wrong: around the header, around packets, inside, at the end.
std::set<std::uint64_t> interestingBytes(std::uint64_t phaseBytes) {
    std::set<std::uint64_t> places{0,   1,    11,   12,   13,     511,    512,
                                   513, 4095, 4096, 4097, 262143, 262144, 300'000};
    places.insert({phaseBytes / 2, phaseBytes - 1, phaseBytes});
    std::erase_if(places, [&](std::uint64_t place) { return place > phaseBytes; });
    return places;
}

class MTPFaultTest : public MTPPhoneFixture {
protected:
    MTPFaultTest() {
        for (int i = 0; i < 198; ++i)
            put(QStringLiteral("file%1").arg(i), {});
        put(QStringLiteral("big"), bigContent);
        put(QStringLiteral("small"), patternOf(100));
    }
    /// What the operation changed is undone, so that it can be done again.
    void tidyUp() {
        for (const QString& name : {QStringLiteral("new"), QStringLiteral("big")})
            if (const std::uint32_t handle = find(client_, name))
                client_.deleteObject(handle);
        put(QStringLiteral("big"), bigContent);
    }
};

class EveryOperationTest : public MTPFaultTest, public ::testing::WithParamInterface<Operation> {};

TEST_P(EveryOperationTest, unpluggingFailsAtOnceAndPluggingInMends) {
    const Operation& operation = GetParam();
    for (const std::uint64_t bytes : interestingBytes(operation.phaseBytes)) {
        SCOPED_TRACE(bytes);
        const std::uint32_t handle = find(client_, QStringLiteral("big"));
        phone_.fault([&](VirtualFaults& faults) {
            faults.unplug = VirtualByteFault{operation.direction, bytes, operation.phase};
        });
        const auto start = Clock::now();
        EXPECT_TRUE(mtpFailureOf([&] { operation.run(client_, handle); }).value().isDeviceGone());
        EXPECT_TRUE(mtpFailureOf([&] { (void)client_.getStorageIDs(); }).value().isDeviceGone());
        EXPECT_LT(Clock::now() - start, MTPWaits::pipeTimeout);
        replug();
        EXPECT_EQ(phone_.names().size(), 200) << "nothing half done is left";
        operation.run(client_, find(client_, QStringLiteral("big")));
        tidyUp();
    }
    expectUsable();
}

INSTANTIATE_TEST_SUITE_P(Operations, EveryOperationTest, ::testing::ValuesIn(operations),
                         [](const auto& row) { return std::string(row.param.name); });

/// What a client that dies without a word leaves behind.
struct DeadClient {
    const char* name;
    std::function<void(MTPTransport&, std::uint32_t handle)> lastWords;
};

const auto endlessThenDead = [left = 5](std::span<std::byte> buffer) mutable {
    return --left > 0 ? buffer.size() : 0;
};

void announce(MTPTransport& transport, std::uint32_t size) {
    transport.send(commandOf(0x100C, 2, {onlyStorage, mtpRootHandle}));
    MTPObjectInfo info;
    info.filename = QStringLiteral("half");
    info.compressedSize = size;
    transport.send(dataOf(0x100C, 2, MTPPacketCodec::encodeObjectInfo(info)));
    (void)transport.receivePacket();
    transport.send(commandOf(0x100D, 3, {}));
}

class DeadClientTest : public MTPFaultTest, public ::testing::WithParamInterface<DeadClient> {};

TEST_P(DeadClientTest, nextClientWorks) {
    const std::uint32_t handle = find(client_, QStringLiteral("big"));
    client_.closeSession();
    {
        MTPTransport transport(bus_, address());
        transport.open();
        transport.send(commandOf(0x1002, 1, {1}));
        (void)transport.receivePacket();
        GetParam().lastWords(transport, handle);
    }
    client_.openSession(1);
    expectUsable();
    EXPECT_FALSE(phone_.names().contains(QStringLiteral("half")));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DeadClientTest,
    ::testing::Values(DeadClient{"inDownload",
                                 [](auto& transport, auto handle) {
                                     transport.send(commandOf(0x1009, 2, {handle}));
                                     EXPECT_THROW((void)transport.receiveContainer(
                                                      [](ByteView) { throw DeadClient(); }, {}),
                                                  DeadClient);
                                 }},
                      DeadClient{"beforeResponse",
                                 [](auto& transport, auto) {
                                     transport.send(commandOf(0x1004, 2, {}));
                                     (void)transport.receivePacket();
                                 }},
                      DeadClient{"inUpload",
                                 [](auto& transport, auto) {
                                     announce(transport, 8'000'000);
                                     (void)mtpFailureOf([&] {
                                         transport.sendContainer(
                                             {8'000'012, MTPContainerType::data, 0x100D, 3},
                                             8'000'000, endlessThenDead, {});
                                     });
                                 }},
                      DeadClient{"beforeUploadData",
                                 [](auto& transport, auto) { announce(transport, 1000); }}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace tessary
