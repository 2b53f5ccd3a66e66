#include "phones/PhoneFixture.h"

namespace tessary {
namespace {

using VirtualFaultsTest = PhoneFixture;

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
