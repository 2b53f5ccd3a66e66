#include "mtp/protocol/MTPPropertyList.h"

#include "mtp/MTPFilesFixture.h"
#include "support/MTPContainers.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;
using testing::IsEmpty;

/// What a list of properties tells: "handle name size folder|file", and whether it was whole.
struct Read {
    std::vector<std::string> objects;
    bool isWhole = false;
    bool operator==(const Read&) const = default;
};

Read readList(const Bytes& bytes, std::size_t piece) {
    Read result;
    MTPPropertyList list([&](MTPObjectInfo&& info) {
        result.objects.push_back(std::to_string(info.id) + ' ' + info.filename.toStdString() + ' ' +
                                 std::to_string(info.effectiveSize()) +
                                 (info.isDirectory() ? " folder" : " file"));
    });
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        EXPECT_TRUE(list.add(ByteView(bytes).subspan(at, std::min(piece, bytes.size() - at))));
    result.isWhole = list.finish();
    return result;
}

// handle, property, type, value
const Bytes photo = hexBytes("2A000000 07DC FFFF 04 'a.b' 0000"
                             "2A000000 02DC 0400 0138"
                             "2A000000 04DC 0800 0100000001000000");
const Bytes folder = hexBytes("2B000000 02DC 0400 0130"
                              "2B000000 07DC FFFF 02 'd' 0000");

TEST(MTPPropertyListDataset, objectsStandWhereTheLayoutSaysHoweverTheyArrive) {
    // An array, a number of 128 bits and a property that nobody knows stand in between.
    const Bytes others = hexBytes("2A000000 86DC 0640 02000000 01000000 02000000"
                                  "2A000000 41DC 0A00 00000000000000000000000000000000"
                                  "2A000000 99D9 0200 07");
    const Bytes list = hexBytes("08000000") + photo + others + folder;
    const Read expected{{"42 a.b 4294967297 file", "43 d 0 folder"}, true};
    for (const std::size_t piece : {1U, 2U, 7U, 64U, 1000U})
        EXPECT_EQ(readList(list, piece), expected) << piece;
    EXPECT_EQ(readList(hexBytes("00000000"), 4), (Read{{}, true}));
}

TEST(MTPPropertyListDataset, hostileListsAreBroken) {
    const std::pair<const char*, Bytes> rows[] = {
        {"empty", {}},
        {"short count", hexBytes("0100")},
        {"fewer than told", hexBytes("04000000") + photo},
        {"more than told", hexBytes("02000000") + photo},
        {"no such type", hexBytes("01000000 2A000000 07DC 0B00 00")},
        {"type 0", hexBytes("01000000 2A000000 07DC 0000 00")},
        {"more properties than any folder has", hexBytes("FFFFFFFF") + photo},
        {"endless array", hexBytes("01000000 2A000000 07DC 0840 FFFFFFFF 00")},
        {"string is cut", hexBytes("01000000 2A000000 07DC FFFF FF 6100")},
    };
    for (const auto& [name, bytes] : rows)
        EXPECT_FALSE(readList(bytes, 5).isWhole) << name;
    const Bytes whole = hexBytes("05000000") + photo + folder;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(readList(cut, 16).isWhole) << size;
    }
    // Whatever follows one of them is not taken without end.
    const Bytes more(4096);
    for (const auto& [name, bytes] : rows) {
        MTPPropertyList list([](auto&&) {});
        int pieces = 0;
        for (bool isTaken = list.add(bytes); isTaken && pieces < 1000; ++pieces)
            isTaken = list.add(more);
        EXPECT_LT(pieces, 20) << name;
    }
    // A file whose name, kind or size is not told is none.
    EXPECT_THAT(readList(hexBytes("01000000 2A000000 07DC FFFF 04 'a.b' 0000"), 9).objects,
                IsEmpty());
}

class MTPFolderPropertiesTest : public MTPFilesFixture {
protected:
    MTPFolderPropertiesTest() : MTPFilesFixture(phoneWithCard()) {
        for (int n = 0; n < 50; ++n)
            phone().write(u"DCIM/IMG_%1.jpg"_s.arg(n), QByteArray(n, 'j'));
        phone().disk.makeFolder(u"0/DCIM/sub"_s);
        phone().disk.write(u"1/card.txt"_s, "c");
    }
    struct Counts {
        std::size_t lists, infos, all;
    };
    Counts listDCIM() {
        phone().android.clearRequestLog();
        const auto rows = list("/DCIM");
        EXPECT_EQ(rows.size(), 51U);
        EXPECT_EQ(rows[40].size, rows[40].name.mid(4, rows[40].name.size() - 8).toInt());
        EXPECT_TRUE(rows[40].modifiedDate && rows[40].handle);
        EXPECT_EQ(rows.back().isDirectory, rows.back().name == u"sub"_s);
        return {phone().requests(getObjectPropList), phone().requests(getObjectInfo),
                phone().android.requestCount()};
    }
};

TEST_F(MTPFolderPropertiesTest, wholeFolderComesInOneRequest) {
    (void)list("/");
    const Counts counts = listDCIM();
    EXPECT_EQ(counts.lists, 1U);
    EXPECT_EQ(counts.infos, 0U);
    EXPECT_EQ(counts.all, 2U) << "the handles and the list";
    EXPECT_EQ(read(item("/DCIM/IMG_7.jpg")), QByteArray(7, 'j'));
    EXPECT_EQ(listedNames("/storage/131073"), QStringList(u"card.txt"_s));
    EXPECT_EQ(listedNames("/"), QStringList(u"DCIM"_s)) << "the card's root is not this one";
}

TEST_F(MTPFolderPropertiesTest, phoneThatStallsAtAListIsAskedOneByOne) {
    (void)list("/");
    phone().fault([](VirtualFaults& faults) {
        faults.stall = VirtualByteFault{USBDirection::in, 1000, 2}; // behind the handles
    });
    (void)listDCIM();
    const Counts again = listDCIM();
    EXPECT_EQ(again.lists, 0U);
    EXPECT_EQ(again.infos, 51U);
}

TEST_F(MTPFolderPropertiesTest, phonesThatDoNotAnswerOrLieAreAskedOneByOne) {
    struct Row {
        const char* name;
        std::function<void(PluggedPhone&)> be;
    };
    const Row rows[] = {
        {"not announced", [](PluggedPhone& phone) { phone.unlearn(getObjectPropList); }},
        {"announced and refused",
         [](PluggedPhone& phone) {
             phone.refuse(getObjectPropList, MTPResponseCode::operationNotSupported);
         }},
        {"the folder itself only",
         [](PluggedPhone& phone) {
             phone.behave([](VirtualBehaviour& b) { b.listsFolderOnly = true; });
         }},
        {"cut",
         [](PluggedPhone& phone) {
             phone.rewriteData(getObjectPropList, [](Bytes& list) {
                 list.resize(list.size() / 2);
                 writeLength(list);
             });
         }},
        {"megabytes behind the last",
         [](PluggedPhone& phone) {
             phone.rewriteData(getObjectPropList, [](Bytes& list) {
                 list.resize(list.size() + (8 << 20));
                 writeLength(list);
             });
         }},
        {"nonsense",
         [](PluggedPhone& phone) {
             phone.rewriteData(getObjectPropList, [](Bytes& list) { list[22] = std::byte{0xFE}; });
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        phone().android.unplug();
        row.be(phone());
        ASSERT_NE(phone().android.plugInto(bus_), 0U);
        (void)listDCIM();
        const Counts again = listDCIM();
        EXPECT_EQ(again.lists, 0U) << "remembered";
        EXPECT_EQ(again.infos, 51U);
        phone().behave([](VirtualBehaviour& b) {
            b.unsupportedOperations.clear();
            b.listsFolderOnly = false;
        });
        phone().fault([](VirtualFaults& faults) {
            faults.errors.clear();
            faults.rewrite = {};
        });
    }
}

} // namespace
} // namespace tessary
