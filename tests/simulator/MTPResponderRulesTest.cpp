#include "simulator/PhoneFixture.h"

#include <QFile>

namespace tessary {
namespace {

/// What a phone refuses, so that a client that breaks the rules is found out.
class MTPResponderRules : public PhoneFixture {
protected:
    MTPResponderRules() {
        phone_.write(QStringLiteral("file"), "content");
        phone_.write(QStringLiteral("folder/inner"), "inner");
    }
    /// A session with handles for "file" and "folder".
    void openAndList() {
        host().openSession();
        const auto listed = host().handles(storage);
        ASSERT_EQ(listed.size(), 2U);
        file_ = listed[0];
        folder_ = listed[1];
    }
    std::uint16_t announce(std::uint32_t parent, const Bytes& info) {
        return host().runOut(0x100C, {storage, parent}, info).code;
    }

    std::uint32_t file_ = 0;
    std::uint32_t folder_ = 0;
};

TEST_F(MTPResponderRules, transactionIDsRiseWithinOneSession) {
    EXPECT_EQ(host().run(0x1004).code, 0x2003) << "no session";
    EXPECT_EQ(host().run(0x1001).code, ok);
    host().transactionID = 500;
    host().openSession();
    EXPECT_EQ(host().run(0x1002, {1}).code, 0x201E);
    for (const std::uint32_t before : {500U, 501U, 0xFFFFFFFEU}) {
        host().transactionID = before;
        EXPECT_EQ(host().run(0x1004).code, 0x2004) << before;
    }
    host().transactionID = 600;
    EXPECT_EQ(host().run(0x1004).code, ok);
    EXPECT_EQ(host().run(0x1003).code, ok);
    EXPECT_EQ(host().run(0x1004).code, 0x2003);
}

TEST_F(MTPResponderRules, whatCannotBeACommandHaltsThePipe) {
    struct Row {
        const char* name;
        Bytes sent;
    };
    const Row rows[] = {
        {"data where a command is due", dataOf(0x1004, 1, Bytes(4))},
        {"length that promises more", containerOf(16, 1, 0x1004, 1, {})},
        {"length that promises less", containerOf(12, 1, 0x1005, 1, Bytes(4))},
        {"half a parameter", wholeContainer(1, 0x1005, 1, Bytes(2))},
        {"eleven bytes", Bytes(11)},
    };
    Bytes bytes;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(host().write(row.sent), usb::success);
        EXPECT_EQ(host().read(bytes), usb::pipeStalled);
        EXPECT_EQ(host().read(bytes), usb::pipeStalled) << "until it is cleared";
        EXPECT_EQ(host().clearStall(1), usb::success);
        EXPECT_EQ(host().run(0x1001).code, ok);
    }
    EXPECT_EQ(phone_.android.needlessHaltClears(), 0U);
    EXPECT_EQ(host().clearStall(1), usb::success);
    EXPECT_EQ(phone_.android.needlessHaltClears(), 1U);
}

TEST_F(MTPResponderRules, uploadsAreChecked) {
    openAndList();
    EXPECT_EQ(host().runOut(0x100D, {}, Bytes(1)).code, 0x2015) << "nothing was announced";
    EXPECT_EQ(announce(77, RawHost::objectInfo(u"x", 1)), 0x201A);
    EXPECT_EQ(announce(root, RawHost::objectInfo(u"file", 1)), 0x2002) << "it exists";
    EXPECT_EQ(upload(u"whole", Bytes(5000)).code, ok);
    EXPECT_EQ(host().runOut(0x100D, {}, Bytes(1)).code, 0x2015) << "announced once, sent once";
    for (const std::size_t size : {4999U, 5001U, 0U}) {
        ASSERT_EQ(announce(root, RawHost::objectInfo(u"other", 5000)), ok);
        EXPECT_EQ(host().runOut(0x100D, {}, Bytes(size)).code, 0x2007) << size;
    }
    EXPECT_EQ(phone_.content(QStringLiteral("other")), QByteArray());
}

TEST_F(MTPResponderRules, nothingTheHostSendsLeavesTheFolder) {
    ASSERT_TRUE(QFile::link(QStringLiteral("/etc"), phone_.disk.path(QStringLiteral("0/link"))));
    openAndList();
    EXPECT_EQ(announce(root, RawHost::objectInfo(u"link", 1)), ok) << "links do not show";
    EXPECT_EQ(host().runOut(0x100D, {}, Bytes(1)).code, 0x2002) << "never through the link";
    const std::u16string_view names[] = {
        u"..", u".", u"", u"../x", u"/tmp/x", u"a/b", std::u16string_view(u"a\0b", 3), u"\xD800",
    };
    for (const std::u16string_view name : names) {
        SCOPED_TRACE(
            QString::fromUtf16(name.data(), static_cast<qsizetype>(name.size())).toStdString());
        for (const std::uint16_t format : {std::uint16_t{0x3000}, std::uint16_t{0x3001}})
            EXPECT_EQ(announce(root, RawHost::objectInfo(name, 1, format)), 0x201D);
        Bytes text{static_cast<std::byte>(name.size() + 1)};
        for (const char16_t unit : name)
            appendLittleEndian(text, static_cast<std::uint16_t>(unit));
        text.resize(text.size() + 2);
        EXPECT_EQ(host().runOut(0x9804, {file_, 0xDC07}, text).code, 0x201D);
    }
    EXPECT_EQ(phone_.disk.names(), QStringList(QStringLiteral("0")));
}

using VirtualFramings = PhoneFixture;

struct FramingCase {
    const char* name;
    void (*set)(VirtualFaults&);
    std::size_t payload;
    std::vector<std::size_t> transfers; ///< sizes, the response's 12 bytes last
};

TEST_F(VirtualFramings, framingsCutTransfersDifferently) {
    const auto usual = [](VirtualFaults&) {};
    const auto alone = [](VirtualFaults& faults) { faults.headerInOwnTransfer = true; };
    const auto joined = [](VirtualFaults& faults) { faults.dataAndResponseJoined = true; };
    const auto noZero = [](VirtualFaults& faults) { faults.omitsZeroPacket = true; };
    const auto moreZero = [](VirtualFaults& faults) { faults.extraZeroPacket = true; };
    const auto extraByte = [](VirtualFaults& faults) { faults.extraByte = true; };
    const FramingCase rows[] = {
        {"usual, whole packets", usual, 1012, {1024, 12}},
        {"usual, empty object", usual, 0, {12, 12}},
        {"header alone, whole packets", alone, 1024, {12, 1024, 12}},
        {"joined, whole packets", joined, 1012, {1036}},
        {"missing zero packet joins the response", noZero, 1012, {1036}},
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
