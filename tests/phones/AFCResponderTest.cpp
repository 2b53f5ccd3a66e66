#include "phones/AFCCodec.h"
#include "phones/IPhoneFixture.h"
#include "phones/RawMuxHost.h"

#include <sys/stat.h>

#include <map>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class AFCResponderTest : public IPhoneFixture {
protected:
    AFCResponderTest() {
        plugIn();
        container_ = open();
    }
    afc_client_t afc() {
        return container_.afc.get();
    }
    std::uint64_t openFile(const char* path, afc_file_mode_t mode) {
        std::uint64_t file = 0;
        EXPECT_EQ(afc_file_open(afc(), path, mode, &file), AFC_E_SUCCESS) << path;
        return file;
    }
    afc_error_t write(std::uint64_t file, const QByteArray& bytes) {
        std::uint32_t written = 0;
        return afc_file_write(afc(), file, bytes.constData(),
                              static_cast<std::uint32_t>(bytes.size()), &written);
    }
    QByteArray read(std::uint64_t file, std::uint32_t length) {
        QByteArray bytes(length, '\0');
        std::uint32_t got = 0;
        EXPECT_EQ(afc_file_read(afc(), file, bytes.data(), length, &got), AFC_E_SUCCESS);
        return bytes.left(got);
    }
    std::map<std::string, std::string> info(const char* path) {
        char** pairs = nullptr;
        std::map<std::string, std::string> found;
        if (afc_get_file_info(afc(), path, &pairs) != AFC_E_SUCCESS)
            return found;
        for (char** each = pairs; each[0] != nullptr && each[1] != nullptr; each += 2)
            found[each[0]] = each[1];
        afc_dictionary_free(pairs);
        return found;
    }

    Container container_;
};

TEST_F(AFCResponderTest, filesAreWrittenReadSoughtAndCut) {
    const std::uint64_t file = openFile("/Documents/a", AFC_FOPEN_WR);
    EXPECT_EQ(write(file, "hello world"), AFC_E_SUCCESS);
    std::uint64_t at = 0;
    EXPECT_EQ(afc_file_tell(afc(), file, &at), AFC_E_SUCCESS);
    EXPECT_EQ(at, 11U);
    EXPECT_EQ(afc_file_seek(afc(), file, -5, SEEK_END), AFC_E_SUCCESS);
    EXPECT_EQ(read(file, 100), "world");
    EXPECT_EQ(read(file, 100), "");
    EXPECT_EQ(afc_file_truncate(afc(), file, 4), AFC_E_SUCCESS);
    EXPECT_EQ(afc_file_close(afc(), file), AFC_E_SUCCESS);
    EXPECT_EQ(afc_file_close(afc(), file), AFC_E_INVALID_ARG);
    EXPECT_EQ(folder_.read(documents("a")), "hell");
    EXPECT_EQ(afc_truncate(afc(), "/Documents/a", 2), AFC_E_SUCCESS);
    const std::uint64_t more = openFile("/Documents/a", AFC_FOPEN_APPEND);
    EXPECT_EQ(write(more, "y"), AFC_E_SUCCESS);
    EXPECT_EQ(folder_.read(documents("a")), "hey");
    const std::uint64_t source = openFile("/Documents/a", AFC_FOPEN_RDONLY);
    EXPECT_EQ(write(source, "x"), AFC_E_PERM_DENIED);
    openFile("/Documents/a", AFC_FOPEN_WRONLY);
    EXPECT_EQ(folder_.read(documents("a")), "");
}

TEST_F(AFCResponderTest, infoTellsKindSizeAndDate) {
    folder_.write(documents("a"), "12345");
    EXPECT_EQ(afc_set_file_time(afc(), "/Documents/a", 1'600'000'000'123'456'789), AFC_E_SUCCESS);
    auto facts = info("/Documents/a");
    EXPECT_EQ(facts["st_ifmt"], "S_IFREG");
    EXPECT_EQ(facts["st_size"], "5");
    EXPECT_EQ(facts["st_mtime"], "1600000000123456789");
    EXPECT_EQ(info("/Documents")["st_ifmt"], "S_IFDIR");
    char* free = nullptr;
    EXPECT_EQ(afc_get_device_info_key(afc(), "FSFreeBytes", &free), AFC_E_SUCCESS);
    EXPECT_STREQ(free, "64000000000");
    ::free(free);
}

TEST_F(AFCResponderTest, operationsAreRefusedAsPhonesDo) {
    folder_.write(documents("full/b"), "b");
    folder_.write(documents("a"), "a");
    const auto opened = [this](const char* path) {
        std::uint64_t file = 0;
        return afc_file_open(afc(), path, AFC_FOPEN_RDONLY, &file);
    };
    EXPECT_EQ(opened("/Documents/none"), AFC_E_OBJECT_NOT_FOUND);
    EXPECT_EQ(opened("/Documents/full"), AFC_E_OBJECT_IS_DIR);
    EXPECT_EQ(afc_remove_path(afc(), "/Documents/none"), AFC_E_OBJECT_NOT_FOUND);
    EXPECT_EQ(afc_remove_path(afc(), "/Documents/full"), AFC_E_DIR_NOT_EMPTY);
    EXPECT_EQ(afc_make_directory(afc(), "/Documents/a"), AFC_E_OBJECT_EXISTS);
    EXPECT_EQ(afc_make_directory(afc(), "/Documents/x/y"), AFC_E_SUCCESS);
    EXPECT_EQ(afc_rename_path(afc(), "/Documents/none", "/Documents/c"), AFC_E_OBJECT_NOT_FOUND);
    EXPECT_EQ(afc_rename_path(afc(), "/Documents/a", "/Documents/x/c"), AFC_E_SUCCESS);
    EXPECT_EQ(afc_remove_path_and_contents(afc(), "/Documents/full"), AFC_E_SUCCESS);
    EXPECT_EQ(afc_make_link(afc(), AFC_SYMLINK, "/etc", "/Documents/l"), AFC_E_OP_NOT_SUPPORTED);
    EXPECT_THAT(list(container_, "/Documents"), ElementsAre(".", "..", "x"));
    EXPECT_THAT(list(container_, "/Documents/x"), ElementsAre(".", "..", "c", "y"));
}

TEST_F(AFCResponderTest, noPathLeavesTheContainer) {
    const QString outside = folder_.write(u"outside/secret"_s, "secret");
    const QString link = folder_.path(documents("link"));
    QFile::link(folder_.path(u"outside"_s), link);
    QFile::link(outside, folder_.path(documents("file")));
    for (const char* path :
         {"/Documents/../../outside/secret", "/Documents/link/secret", "/Documents/file", "..",
          "/Documents/..", "/../org.test.paint/Documents", "/Library", "/", ""}) {
        std::uint64_t file = 0;
        EXPECT_NE(afc_file_open(afc(), path, AFC_FOPEN_RDONLY, &file), AFC_E_SUCCESS) << path;
        EXPECT_NE(afc_file_open(afc(), path, AFC_FOPEN_WR, &file), AFC_E_SUCCESS) << path;
        EXPECT_NE(afc_truncate(afc(), path, 0), AFC_E_SUCCESS) << path;
        EXPECT_THAT(list(container_, path), ElementsAre("(failed)")) << path;
    }
    EXPECT_EQ(info("/Documents/link")["st_ifmt"], "S_IFLNK");
    EXPECT_EQ(afc_remove_path_and_contents(afc(), "/Documents/link"), AFC_E_SUCCESS);
    EXPECT_NE(afc_remove_path_and_contents(afc(), "/Documents/.."), AFC_E_SUCCESS);
    EXPECT_NE(afc_rename_path(afc(), "/Documents/file", "/../out"), AFC_E_SUCCESS);
    EXPECT_EQ(folder_.read(u"outside/secret"_s), "secret");
}

TEST_F(AFCResponderTest, aFullPhoneTakesWhatFits) {
    phone_->setFree(10);
    const std::uint64_t file = openFile("/Documents/a", AFC_FOPEN_WR);
    EXPECT_EQ(write(file, "1234567"), AFC_E_SUCCESS);
    EXPECT_EQ(write(file, "1234567"), AFC_E_NO_SPACE_LEFT);
    EXPECT_EQ(phone_->freeBytes(), 0U);
    EXPECT_EQ(afc_file_close(afc(), file), AFC_E_SUCCESS);
    EXPECT_EQ(folder_.read(documents("a")), "1234567123");
    EXPECT_EQ(afc_remove_path(afc(), "/Documents/a"), AFC_E_SUCCESS);
    EXPECT_EQ(phone_->freeBytes(), 10U);
    const std::uint64_t sparse = openFile("/Documents/c", AFC_FOPEN_WR);
    EXPECT_EQ(afc_file_seek(afc(), sparse, 8, SEEK_SET), AFC_E_SUCCESS);
    EXPECT_EQ(write(sparse, "123"), AFC_E_NO_SPACE_LEFT);
    EXPECT_EQ(phone_->freeBytes(), 0U);
    phone_->setFree(10);
    fault([](auto& faults) { faults.storeFullAfter = 3; });
    EXPECT_EQ(write(openFile("/Documents/b", AFC_FOPEN_WR), "1234567"), AFC_E_NO_SPACE_LEFT);
    EXPECT_EQ(folder_.read(documents("b")), "123");
}

TEST_F(AFCResponderTest, statusesComeOnDemandAndTheConnectionGoesOn) {
    for (const std::uint64_t status : {8, 10, 18, 25, 33}) {
        fault([status](auto& faults) { faults.statuses[u"afc.fileWrite"_s] = {status}; });
        const std::uint64_t file = openFile("/Documents/a", AFC_FOPEN_WR);
        EXPECT_EQ(static_cast<std::uint64_t>(write(file, QByteArray(3 << 20, 'x'))), status);
        EXPECT_EQ(write(file, "whole"), AFC_E_SUCCESS);
        EXPECT_EQ(folder_.read(documents("a")), "whole");
    }
}

TEST_F(AFCResponderTest, oddNamesInfosAndShortReadsComeOnDemand) {
    folder_.write(documents("plain"), "12345");
    fault([](auto& faults) {
        faults.nameOverrides[u"plain"_s] = u"a/b\n\""_s;
        faults.rewriteFileInfo = [](const QString&, const QStringList&) {
            return QStringList{u"st_size"_s, u"many"_s};
        };
        faults.longestRead = 2;
    });
    EXPECT_THAT(list(container_, "/Documents"), ElementsAre(".", "..", "a/b\n\""));
    EXPECT_THAT(info("/Documents/plain"), ElementsAre(std::pair("st_size", "many")));
    EXPECT_EQ(read(openFile("/Documents/plain", AFC_FOPEN_RDONLY), 5), "12");
}

/// The start of a packet, with what its header claims.
Bytes packet(std::uint64_t packetLength, std::uint64_t headLength, std::uint64_t operation,
             std::initializer_list<std::uint64_t> numbers = {}) {
    const auto head = AFCCodec::encodeHeader({packetLength, headLength, 1, operation});
    Bytes bytes(head.begin(), head.end());
    for (const std::uint64_t number : numbers)
        appendLittleEndian(bytes, number);
    return bytes;
}

TEST_F(AFCResponderTest, hostilePacketsAreRefusedOrEndTheirConnection) {
    constexpr std::uint64_t huge = ~std::uint64_t{0};
    folder_.write(documents("a"), "a");
    const auto code = [](AFCOperation operation) { return static_cast<std::uint64_t>(operation); };
    const struct {
        const char* name;
        Bytes bytes;
        std::uint64_t status; ///< 0: the connection ends
    } rows[] = {
        {"no magic", Bytes(40, std::byte{0}), 0},
        {"lengths of everything", packet(huge, huge, 3), 0},
        {"a head longer than its packet", packet(40, 48, 3), 0},
        {"a path of gigabytes", packet(std::uint64_t{1} << 40, std::uint64_t{1} << 40, 3), 0},
        {"a path behind the head of gigabytes", packet(std::uint64_t{1} << 40, 40, 3), 0},
        {"no path", packet(40, 40, code(AFCOperation::readDir)), 7},
        {"half a number", packet(44, 44, code(AFCOperation::fileClose)), 7},
        {"one name of two", packet(48, 48, code(AFCOperation::renamePath), {0x4141414141414141}),
         7},
        {"no such file", packet(56, 56, code(AFCOperation::fileRead), {99, huge}), 7},
        {"a write to no file", packet(56, 48, code(AFCOperation::fileWrite), {99, 0}), 7},
        {"a write without a file", packet(44, 40, code(AFCOperation::fileWrite)), 7},
        {"a seek from nowhere", packet(64, 64, code(AFCOperation::fileSeek), {1, 9, huge}), 7},
        {"an open in no mode", packet(56, 56, code(AFCOperation::fileOpen), {huge, 0x61}), 7},
        {"a date at the end of time", packet(56, 56, code(AFCOperation::setFileModTime), {huge, 0}),
         10},
        {"no operation", packet(40, 40, huge), 15},
    };
    const std::uint32_t device = [this] {
        const auto devices = RawMuxHost(*mux_).ask({{u"MessageType"_s, u"ListDevices"_s}});
        return devices[u"DeviceList"_s].toList()[0].toMap()[u"DeviceID"_s].toUInt();
    }();
    for (const auto& row : rows) {
        RawMuxHost host(*mux_);
        const auto port = phone_->offerService(u"com.apple.mobile.house_arrest"_s, {});
        ASSERT_EQ(host.connectTo(device, port), 0) << row.name;
        host.sendMessage(
            {{u"Command"_s, u"VendDocuments"_s}, {u"Identifier"_s, u"org.test.notes"_s}});
        const Bytes granted = host.receiveBytes(4);
        ASSERT_EQ(granted.size(), 4U) << row.name;
        (void)host.receiveBytes(std::to_integer<std::size_t>(granted[2]) << 8 |
                                std::to_integer<std::size_t>(granted[3]));
        host.send(row.bytes);
        // What claims to be longer than it is ends here.
        host.send(Bytes(row.status == 0
                            ? 0
                            : AFCCodec::decodeHeader(row.bytes)->packetLength - row.bytes.size()));
        if (row.status == 0)
            host.stopSending();
        const Bytes answer = host.receiveBytes(48);
        ASSERT_EQ(answer.size(), row.status == 0 ? 0U : 48U) << row.name;
        if (row.status != 0) {
            EXPECT_EQ(readLittleEndian<std::uint64_t>(answer, 40), row.status) << row.name;
        }
    }
    EXPECT_THAT(list(container_, "/Documents"), ElementsAre(".", "..", "a"));
}

TEST_F(AFCResponderTest, headersThatContradictThemselvesAreNone) {
    AFCHeader header{50, 45, 3, 10};
    auto bytes = AFCCodec::encodeHeader(header);
    const auto decoded = AFCCodec::decodeHeader(bytes);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->packetLength, 50U);
    EXPECT_EQ(decoded->operation, 10U);
    EXPECT_FALSE(AFCCodec::decodeHeader(ByteView(bytes).first(39)));
    bytes[0] = std::byte{'X'};
    EXPECT_FALSE(AFCCodec::decodeHeader(bytes));
    EXPECT_FALSE(AFCCodec::decodeHeader(AFCCodec::encodeHeader({39, 39, 0, 1})));
    EXPECT_FALSE(AFCCodec::decodeHeader(AFCCodec::encodeHeader({44, 45, 0, 1})));
}

} // namespace
} // namespace tessary
