#include "mtp/MTPClient.h"

#include "MTPClientFixture.h"
#include "core/CancellationError.h"
#include "mtp/IOKitMTPTransport.h"
#include "support/ScriptedUsbBus.h"

namespace tessary {
namespace {

using ::testing::ElementsAre;

/// The dataset of a storage called "SD", and of a file called "a" with 5 bytes.
const Bytes storageDataset = hexBytes("0400 0200 0000 0010000000000000 0004000000000000 FFFFFFFF"
                                      "03 'SD' 0000  00");

Bytes objectDataset(std::uint32_t size, std::string_view name = "02 'a' 0000") {
    Bytes bytes = hexBytes("01000100 0030 0000");
    appendLittleEndian(bytes, size);
    return bytes + Bytes(40) + hexBytes(name) + hexBytes("00 00 00");
}

struct Transaction {
    const char* name;
    std::function<std::string(MTPClient&)> call; ///< gives the result as a text
    std::vector<Bytes> answers;
    std::vector<Bytes> commands; ///< the exact bytes that go out
    std::string outcome;         ///< the result, or the failure
};

std::string text(const std::vector<std::uint32_t>& values) {
    std::string joined;
    for (const std::uint32_t value : values)
        joined += std::to_string(value) + " ";
    return joined;
}

std::string storages(MTPClient& client) {
    return text(client.getStorageIDs());
}
std::string storageInfo(MTPClient& client) {
    const MTPStorageInfo info = client.getStorageInfo(storage);
    return info.storageDescription.toStdString() + " " + std::to_string(info.maxCapacity) + " " +
           std::to_string(info.freeSpaceInBytes) + " " + std::to_string(info.id);
}
std::string battery(MTPClient& client) {
    const auto level = client.getBatteryLevel();
    return level ? std::to_string(*level) : "unknown";
}
std::string handles(MTPClient& client) {
    return text(client.getObjectHandles(storage, mtpRootHandle));
}
std::string objectInfo(MTPClient& client) {
    const MTPObjectInfo info = client.getObjectInfo(0x99);
    return info.filename.toStdString() + " " + std::to_string(info.effectiveSize()) + " " +
           std::to_string(info.id);
}
std::string object(MTPClient& client) {
    const Bytes bytes = client.getObject(0x99);
    return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}
std::string upload(MTPClient& client) {
    return std::to_string(client.sendObject(hexBytes("414243"), QStringLiteral("b.t"), 7, storage));
}
std::string folder(MTPClient& client) {
    return std::to_string(client.createFolder(QStringLiteral("New"), 7, storage));
}
std::string renaming(MTPClient& client) {
    client.renameObject(0x99, QStringLiteral("new"));
    return "done";
}
std::string moving(MTPClient& client) {
    client.moveObject(0x99, storage, 7);
    return "done";
}
std::string deletion(MTPClient& client) {
    client.deleteObject(0x99);
    return "done";
}

const Bytes abc = hexBytes("414243");
const Bytes uploadDataset = hexBytes("01000100 0030 0000 03000000 0000 00000000 00000000 00000000 "
                                     "00000000 00000000 00000000 07000000 0000 00000000 00000000 "
                                     "04 'b.t' 0000 00 00 00");
const Bytes folderDataset = hexBytes("01000100 0130 0000 00000000 0000 00000000 00000000 00000000 "
                                     "00000000 00000000 00000000 07000000 0100 00000000 00000000 "
                                     "04 'New' 0000 00 00 00");
const std::vector<Bytes> storagesOut{commandOf(0x1004, 1, {})};
const std::vector<Bytes> storageInfoOut{commandOf(0x1005, 1, {storage})};
const std::vector<Bytes> batteryOut{commandOf(0x1015, 1, {0x5001})};
const std::vector<Bytes> handlesOut{commandOf(0x1007, 1, {storage, 0, 0xFFFFFFFF})};
const std::vector<Bytes> objectInfoOut{commandOf(0x1008, 1, {0x99})};
const std::vector<Bytes> objectOut{commandOf(0x1009, 1, {0x99})};
const std::vector<Bytes> uploadInfoOut{commandOf(0x100C, 1, {storage, 7}),
                                       dataOf(0x100C, 1, uploadDataset)};
const std::vector<Bytes> uploadOut{uploadInfoOut[0], uploadInfoOut[1], commandOf(0x100D, 2, {}),
                                   dataOf(0x100D, 2, abc)};
const std::vector<Bytes> folderOut{commandOf(0x100C, 1, {storage, 7}),
                                   dataOf(0x100C, 1, folderDataset)};
const std::vector<Bytes> renameOut{commandOf(0x9804, 1, {0x99, 0xDC07}),
                                   dataOf(0x9804, 1, hexBytes("04 'new' 0000"))};
const std::vector<Bytes> moveOut{commandOf(0x1019, 1, {0x99, storage, 7})};
const std::vector<Bytes> deleteOut{commandOf(0x100B, 1, {0x99, 0})};

const Bytes done = responseOf(ok, 1);
const Bytes twoValues = hexBytes("02000000 05000000 06000000");

const std::vector<Transaction> transactions{
    {"storages", storages, {dataOf(0x1004, 1, twoValues), done}, storagesOut, "5 6 "},
    {"storagesBareOk", storages, {done}, storagesOut, ""},
    {"storagesTruncatedArray",
     storages,
     {dataOf(0x1004, 1, hexBytes("02000000 05000000")), done},
     storagesOut,
     ""},
    {"storagesRefused",
     storages,
     {responseOf(0x2003, 1)},
     storagesOut,
     mtpFailure("Expected data packet for GetStorageIDs (got type response, code 0x2003)")},
    {"storagesSilent", storages, {}, storagesOut, mtpTimeout},

    {"storageInfo",
     storageInfo,
     {dataOf(0x1005, 1, storageDataset), done},
     storageInfoOut,
     "SD 4096 1024 65537"},
    {"storageInfoTooShort",
     storageInfo,
     {dataOf(0x1005, 1, Bytes(25)), done},
     storageInfoOut,
     mtpFailure("Failed to parse StorageInfo")},

    {"battery", battery, {dataOf(0x1015, 1, hexBytes("55")), done}, batteryOut, "85"},
    {"batteryNotSupported", battery, {responseOf(0x2005, 1)}, batteryOut, "unknown"},
    {"batteryEmptyData", battery, {dataOf(0x1015, 1, {}), done}, batteryOut, "unknown"},

    {"handles", handles, {dataOf(0x1007, 1, twoValues), done}, handlesOut, "5 6 "},
    {"handlesBareOk", handles, {done}, handlesOut, ""},
    {"handlesTruncated",
     handles,
     {dataOf(0x1007, 1, hexBytes("03000000 05000000 06000000")), done},
     handlesOut,
     ""},
    {"handlesRefused",
     handles,
     {responseOf(0x2009, 1)},
     handlesOut,
     mtpFailure("GetObjectHandles failed: 0x2009")},

    {"objectInfo",
     objectInfo,
     {dataOf(0x1008, 1, objectDataset(5)), done},
     objectInfoOut,
     "a 5 153"},
    {"objectInfoTooShort",
     objectInfo,
     {dataOf(0x1008, 1, Bytes(51)), done},
     objectInfoOut,
     mtpFailure("Failed to parse ObjectInfo for handle 153")},

    {"object", object, {dataOf(0x1009, 1, abc), done}, objectOut, "ABC"},
    {"objectEmpty", object, {dataOf(0x1009, 1, {}), done}, objectOut, ""},
    {"objectWithoutData", object, {done}, objectOut, ""},
    {"objectRefused",
     object,
     {responseOf(0x2009, 1)},
     objectOut,
     mtpFailure("GetObject failed: 0x2009")},
    {"objectBrokenOff",
     object,
     {dataOf(0x1009, 1, abc), responseOf(0x2007, 1)},
     objectOut,
     mtpFailure("GetObject failed: 0x2007")},

    {"upload", upload, {responseOf(ok, 1, {storage, 7, 42}), responseOf(ok, 2)}, uploadOut, "42"},
    {"uploadWithoutHandle", upload, {done, responseOf(ok, 2)}, uploadOut, "0"},
    {"uploadInfoRefused",
     upload,
     {responseOf(0x200C, 1)},
     uploadInfoOut,
     mtpFailure("SendObjectInfo failed: 0x200C")},
    {"uploadRefused",
     upload,
     {done, responseOf(0x200C, 2)},
     uploadOut,
     mtpFailure("SendObject failed: 0x200C")},

    {"folder", folder, {responseOf(ok, 1, {storage, 7, 43})}, folderOut, "43"},
    {"rename", renaming, {done}, renameOut, "done"},
    {"move", moving, {done}, moveOut, "done"},
    {"delete", deletion, {done}, deleteOut, "done"},
    {"deleteRefused",
     deletion,
     {responseOf(0x2012, 1)},
     deleteOut,
     mtpFailure("DeleteObject failed: 0x2012")},
    {"junkTransactionID", deletion, {responseOf(ok, 0x5A5A5A5A)}, deleteOut, "done"},
    {"shortHeader",
     deletion,
     {Bytes(11)},
     deleteOut,
     "Received invalid MTP container packet header."},
};

class TransactionTest : public MTPClientTest, public ::testing::WithParamInterface<Transaction> {};

TEST_P(TransactionTest, sendsAndUnderstands) {
    const Transaction& row = GetParam();
    for (const Bytes& container : row.answers)
        mock_->enqueueIncoming(ByteView(container));
    std::string outcome;
    const std::string failure = mtpFailureOf([&] { outcome = row.call(client_); });
    EXPECT_EQ(failure == "none" ? outcome : failure, row.outcome);
    EXPECT_EQ(sent(), row.commands);
    expectUsable(row.commands.size() == 4 ? 3 : 2);
}

INSTANTIATE_TEST_SUITE_P(Rows, TransactionTest, ::testing::ValuesIn(transactions),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(MTPClientTest, trueSizeOfLargeObjectComesFromItsProperty) {
    answer({dataOf(0x1008, 1, objectDataset(0xFFFFFFFF)), responseOf(ok, 1),
            dataOf(0x9803, 2, hexBytes("0000004001000000")), responseOf(ok, 2)});
    const MTPObjectInfo info = client_.getObjectInfo(0x99);
    EXPECT_EQ(info.effectiveSize(), 0x140000000U);
    EXPECT_THAT(sent(),
                ElementsAre(commandOf(0x1008, 1, {0x99}), commandOf(0x9803, 2, {0x99, 0xDC04})));
    answer({dataOf(0x9803, 3, hexBytes("FFFFFFFFFFFFFFFF")), responseOf(ok, 3)});
    EXPECT_EQ(client_.getObjectSize(0x99), std::nullopt) << "no object is that large";
}

TEST_F(MTPClientTest, missingSizePropertyIsAskedForOnce) {
    struct Row {
        std::uint16_t code;
        bool forgets; ///< asks again for the next object
    };
    std::uint32_t next = 1;
    for (const Row& row : {Row{0x2009, true}, {0x2019, true}, {0x2002, true}, {0x2005, false}}) {
        answer({responseOf(row.code, next)});
        EXPECT_EQ(client_.getObjectSize(0x99), std::nullopt);
        EXPECT_THAT(sent(), ElementsAre(commandOf(0x9803, next, {0x99, 0xDC04})));
        ++next;
    }
    EXPECT_EQ(client_.getObjectSize(0x99), std::nullopt);
    EXPECT_TRUE(sent().empty());
}

TEST_F(MTPClientTest, transferThatCannotBeginIsNotAnnounced) {
    struct Unreadable {};
    const MTPDataSource broken = [](std::span<std::byte>) -> std::size_t { throw Unreadable(); };
    const MTPDataSource empty = [](std::span<std::byte>) { return std::size_t{0}; };
    const MTPDataSource source = [](std::span<std::byte> buffer) { return buffer.size(); };
    const auto upload = [&](const MTPDataSource& from, const MTPStreamOptions& options) {
        client_.sendObject(from, 3, QStringLiteral("b"), 7, storage, options);
    };
    std::stop_source stop;
    stop.request_stop();
    MTPStreamOptions stopped;
    stopped.stop = stop.get_token();
    EXPECT_THROW(client_.getObject(
                     0x99, [](ByteView) {}, stopped),
                 CancellationError);
    EXPECT_THROW(upload(source, stopped), CancellationError);
    EXPECT_THROW(upload(broken, {}), Unreadable);
    EXPECT_EQ(mtpFailureOf([&] { upload(empty, {}); }),
              mtpFailure("the data ended after 0 of 3 bytes"));
    EXPECT_TRUE(sent().empty());
    expectUsable(1);
}

TEST(MTPClientUpload, sizeBeyond32BitsIsAnnouncedAsUnknown) {
    struct Row {
        std::uint64_t size;
        std::uint32_t announced;
        std::uint32_t length;
    };
    constexpr std::uint32_t full = 0xFFFFFFFF;
    for (const Row& row : {Row{std::uint64_t{5} << 30, full, full},
                           {full - 13U, full - 13U, full - 1U},
                           {600'000, 600'000, 600'012}}) {
        ScriptedUsbBus bus;
        MTPClient client(std::make_unique<IOKitMTPTransport>(bus, 0x18D1, 0x4EE1));
        bus.send(responseOf(ok, 1));
        client.openSession(1);
        bus.written.clear();
        bus.writtenSize = 0;
        bus.send(responseOf(ok, 2));
        bus.send(responseOf(ok, 3));
        const MTPDataSource zeros = [](std::span<std::byte> buffer) { return buffer.size(); };
        client.sendObject(zeros, row.size, QStringLiteral("b"), 7, storage);
        // 20 bytes of command, 12 of header and 60 of dataset, 12 of command, then the object
        EXPECT_EQ(readLittleEndian<std::uint32_t>(bus.written, 20 + 12 + 8), row.announced);
        EXPECT_EQ(readLittleEndian<std::uint32_t>(bus.written, 20 + 12 + 60 + 12), row.length);
        EXPECT_EQ(bus.writtenSize, 20 + 12 + 60 + 12 + 12 + row.size);
    }
}

} // namespace
} // namespace tessary
