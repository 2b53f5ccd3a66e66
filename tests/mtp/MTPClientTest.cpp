#include "mtp/client/MTPClient.h"

#include "mtp/MockMTPTransport.h"
#include "support/MTPContainers.h"
#include "support/MTPFailure.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <ranges>

namespace tessary {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr std::uint16_t ok = 0x2001;
constexpr std::uint32_t storage = 0x00010001;

/// A client on a transport in memory.
class MTPClientTest : public ::testing::Test {
protected:
    void answer(const std::vector<Bytes>& containers) {
        for (const Bytes& container : containers)
            mock_->enqueueIncoming(container);
    }
    std::deque<Bytes> sent() {
        return mock_->takeOutgoing();
    }
    /// The next call finds the client able to go on.
    void expectUsable(std::uint32_t nextTransactionID) {
        (void)sent();
        answer({dataOf(0x1004, nextTransactionID, hexBytes("01000000 01000100")),
                responseOf(ok, nextTransactionID)});
        EXPECT_THAT(client_->getStorageIDs(), ElementsAre(storage));
        EXPECT_THAT(sent(), ElementsAre(commandOf(0x1004, nextTransactionID, {})));
    }
    /// What a call on a new client returns, or how it fails.
    std::string outcome(const std::function<std::string(MTPClient&)>& call,
                        const std::vector<Bytes>& answers) {
        mock_ = new MockMTPTransport;
        client_.emplace(std::unique_ptr<MTPTransportProtocol>(mock_));
        answer(answers);
        std::string result;
        const std::string failure = mtpFailureOf([&] { result = call(*client_); });
        return failure == "none" ? result : failure;
    }

    MockMTPTransport* mock_ = new MockMTPTransport;
    std::optional<MTPClient> client_{std::in_place, std::unique_ptr<MTPTransportProtocol>(mock_)};
};

/// The dataset of a storage called "SD", and of a file called "a" with 5 bytes.
const Bytes storageDataset = hexBytes("0400 0200 0000 0010000000000000 0004000000000000 FFFFFFFF"
                                      "03 'SD' 0000  00");

Bytes objectDataset(std::uint32_t size) {
    Bytes bytes = hexBytes("01000100 0030 0000");
    appendLittleEndian(bytes, size);
    return bytes + Bytes(40) + hexBytes("02 'a' 0000 00 00 00");
}

std::string text(const std::vector<std::uint32_t>& values) {
    std::string joined;
    for (const std::uint32_t value : values)
        joined += std::to_string(value) + " ";
    return joined;
}

// Calls whose result is told as a text.

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
const Bytes done = responseOf(ok, 1);
const Bytes twoValues = hexBytes("02000000 05000000 06000000");

struct Operation {
    const char* name;
    std::string (*call)(MTPClient&);
    std::vector<Bytes> commands; ///< the exact bytes that go out
    std::vector<Bytes> answers;
    std::string result;
    const char* refused; ///< what comes of the response 0x2009 in place of the first answer
};

/// A command that is answered with data.
Operation reading(const char* name, std::string (*call)(MTPClient&), std::uint16_t code,
                  const std::vector<std::uint32_t>& parameters, const Bytes& data,
                  const char* result, const char* refused) {
    return {name,   call,   {commandOf(code, 1, parameters)}, {dataOf(code, 1, data), done},
            result, refused};
}

/// A command, or one with data, that is answered with no more than a response.
Operation changing(const char* name, std::string (*call)(MTPClient&), std::vector<Bytes> commands,
                   const char* refused) {
    return {name, call, std::move(commands), {done}, "done", refused};
}

const std::vector<Operation> operations{
    reading("storages", storages, 0x1004, {}, twoValues, "5 6 ",
            "Expected data packet for GetStorageIDs (got type response, code 0x2009)"),
    reading("storage info", storageInfo, 0x1005, {storage}, storageDataset, "SD 4096 1024 65537",
            "Failed to parse StorageInfo"),
    reading("battery", battery, 0x1015, {0x5001}, hexBytes("55"), "85", nullptr),
    reading("handles", handles, 0x1007, {storage, 0, 0xFFFFFFFF}, twoValues, "5 6 ",
            "GetObjectHandles failed: 0x2009"),
    reading("object info", objectInfo, 0x1008, {0x99}, objectDataset(5), "a 5 153",
            "Failed to parse ObjectInfo for handle 153"),
    reading("object", object, 0x1009, {0x99}, abc, "ABC", "GetObject failed: 0x2009"),
    {"upload",
     upload,
     {commandOf(0x100C, 1, {storage, 7}), dataOf(0x100C, 1, uploadDataset),
      commandOf(0x100D, 2, {}), dataOf(0x100D, 2, abc)},
     {responseOf(ok, 1, {storage, 7, 42}), responseOf(ok, 2)},
     "42",
     "SendObjectInfo failed: 0x2009"},
    {"folder",
     folder,
     {commandOf(0x100C, 1, {storage, 7}), dataOf(0x100C, 1, folderDataset)},
     {responseOf(ok, 1, {storage, 7, 43})},
     "43",
     "CreateFolder failed: 0x2009"},
    changing("renaming", renaming,
             {commandOf(0x9804, 1, {0x99, 0xDC07}), dataOf(0x9804, 1, hexBytes("04 'new' 0000"))},
             "RenameObject failed: 0x2009"),
    changing("moving", moving, {commandOf(0x1019, 1, {0x99, storage, 7})},
             "MoveObject failed: 0x2009"),
    changing("deletion", deletion, {commandOf(0x100B, 1, {0x99, 0})},
             "DeleteObject failed: 0x2009"),
};

TEST_F(MTPClientTest, operationsSendTheirBytesAndTellResultsAndFailures) {
    for (const Operation& operation : operations) {
        SCOPED_TRACE(operation.name);
        const auto expect = [&](const std::vector<Bytes>& answers, const std::string& expected) {
            EXPECT_THAT(outcome(operation.call, answers), HasSubstr(expected));
            const std::deque<Bytes> out = sent();
            EXPECT_TRUE(std::ranges::equal(out, operation.commands | std::views::take(out.size())));
            expectUsable(out.size() == 4 ? 3 : 2);
        };
        std::vector<Bytes> refusedAtTheEnd = operation.answers;
        refusedAtTheEnd.back() = responseOf(0x2009, operation.commands.size() == 4 ? 2 : 1);
        expect(operation.answers, operation.result);
        expect({responseOf(0x2009, 1)},
               operation.refused ? mtpFailure(operation.refused) : "unknown");
        expect(refusedAtTheEnd, operation.refused ? "0x2009" : "unknown");
        expect({}, mtpTimeout);
    }
}

TEST_F(MTPClientTest, oddAnswersAreUnderstood) {
    EXPECT_EQ(outcome(storages, {done}), "") << "without data";
    EXPECT_EQ(outcome(handles, {done}), "") << "without data";
    EXPECT_EQ(outcome(battery, {dataOf(0x1015, 1, {}), done}), "unknown");
    EXPECT_EQ(outcome(object, {dataOf(0x1009, 1, {}), done}), "");
    EXPECT_EQ(outcome(upload, {done, responseOf(ok, 2)}), "0") << "without a handle";
    EXPECT_EQ(outcome(deletion, {responseOf(ok, 0x5A5A5A5A)}), "done");
}

TEST_F(MTPClientTest, missingSizePropertyIsAskedForOnce) {
    answer({dataOf(0x9803, 1, hexBytes("FFFFFFFFFFFFFFFF")), responseOf(ok, 1)});
    EXPECT_EQ(client_->getObjectSize(0x99), std::nullopt) << "no object is that large";
    (void)sent();
    std::uint32_t next = 2;
    for (const unsigned code : {0x2009U, 0x2019U, 0x2002U, 0x2005U}) { // the last one for good
        answer({responseOf(static_cast<std::uint16_t>(code), next)});
        EXPECT_EQ(client_->getObjectSize(0x99), std::nullopt);
        EXPECT_THAT(sent(), ElementsAre(commandOf(0x9803, next, {0x99, 0xDC04})));
        ++next;
    }
    EXPECT_EQ(client_->getObjectSize(0x99), std::nullopt);
    EXPECT_TRUE(sent().empty());
}

TEST_F(MTPClientTest, openSessionOfAnEarlierClientIsClosedFirst) {
    for (const std::uint16_t last : {ok, std::uint16_t{0x201E}}) {
        const std::uint32_t first = last == ok ? 1 : 4;
        answer({responseOf(0x201E, first), responseOf(0x2002, first + 1),
                responseOf(last, first + 2)});
        client_->openSession(1);
        EXPECT_THAT(sent(),
                    ElementsAre(commandOf(0x1002, first, {1}), commandOf(0x1003, first + 1, {}),
                                commandOf(0x1002, first + 2, {1})));
    }
    expectUsable(7);
}

} // namespace
} // namespace tessary
