#include "support/FileServiceFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Items keep the handle that a listing gave them; devices give others.
class HandleSafetyTest : public FileServiceFixture {
protected:
    HandleSafetyTest() : FileServiceFixture(twoStorages()) {
        phone().write(u"A/x.txt"_s, "A");
        phone().write(u"B/x.txt"_s, "B");
        phone().disk.write(u"1/x.txt"_s, "card");
        phone().write(u"x.txt"_s, "root");
    }
    [[nodiscard]] bool has(const char* path) {
        return phone().disk.has(QString::fromUtf8(path));
    }
    static FileItem withHandle(FileItem item, std::optional<std::uint32_t> handle) {
        item.handle = handle;
        return item;
    }
};

TEST_F(HandleSafetyTest, recycledHandleOfTheSameNameElsewhereIsNotFollowed) {
    const FileItem inA = item("/A/x.txt");
    const FileItem inB = item("/B/x.txt");
    const FileItem inRoot = item("/x.txt");
    const FileItem onCard = item("/storage/131073/x.txt");
    // Each of them with the handle that now is the other's.
    service_->deleteFile(withHandle(inA, inB.handle), phone().info);
    EXPECT_FALSE(has("0/A/x.txt"));
    EXPECT_TRUE(has("0/B/x.txt"));
    service_->renameItem(withHandle(inB, inRoot.handle), u"y.txt"_s, phone().info);
    EXPECT_TRUE(has("0/B/y.txt"));
    EXPECT_TRUE(has("0/x.txt"));
    // Both lie in a root: only the storage tells them apart.
    service_->deleteFile(withHandle(onCard, inRoot.handle), phone().info);
    EXPECT_FALSE(has("1/x.txt"));
    EXPECT_TRUE(has("0/x.txt"));
}

TEST_F(HandleSafetyTest, handlesOfAnEarlierPluggingAreResolvedAnew) {
    const FileItem inA = item("/A/x.txt");
    const FileItem folder = item("/B");
    (void)list("/A");
    (void)list("/B");
    replug();
    (void)list("/B"); // in another order than before
    service_->deleteFile(inA, phone().info);
    EXPECT_FALSE(has("0/A/x.txt"));
    EXPECT_TRUE(has("0/B/x.txt"));
    service_->renameItem(folder, u"C"_s, phone().info);
    EXPECT_TRUE(has("0/C/x.txt"));
}

TEST_F(HandleSafetyTest, objectThatSomebodyElseChangedIsFoundByItsPathOrNotAtAll) {
    const FileItem inA = item("/A/x.txt");
    // Another program on this phone: x.txt becomes old.txt, and a new x.txt comes.
    DeviceFileService other(bus_, processes_);
    other.renameItem(inA, u"old.txt"_s, phone().info);
    phone().write(u"A/x.txt"_s, "new");
    service_->deleteFile(inA, phone().info);
    EXPECT_TRUE(has("0/A/old.txt"));
    EXPECT_FALSE(has("0/A/x.txt"));

    // Moved away with its folder: its path is no more, whatever its handle says.
    const FileItem inB = item("/B/x.txt");
    other.moveItem(item("/B"), u"/A"_s, phone().info);
    EXPECT_TRUE(fails([&] { service_->deleteFile(inB, phone().info); }));
    EXPECT_TRUE(fails([&] { service_->renameItem(inB, u"z"_s, phone().info); }));
    EXPECT_TRUE(has("0/A/B/x.txt"));
}

TEST_F(HandleSafetyTest, fileThatBecameAFolderIsNotDeletedAsTheFile) {
    const FileItem file = item("/A/x.txt");
    ASSERT_TRUE(QFile::remove(phone().disk.path(u"0/A/x.txt"_s)));
    phone().write(u"A/x.txt/precious"_s, "p");
    for (const FileItem& given : {file, withHandle(file, std::nullopt)})
        EXPECT_TRUE(fails([&] { service_->deleteFile(given, phone().info); }));
    EXPECT_TRUE(has("0/A/x.txt/precious"));
}

TEST_F(HandleSafetyTest, entryWithoutANameNeverStandsForItsFolder) {
    phone().write(u"A/blank"_s, "blank");
    phone().write(u"slash"_s, "slash");
    phone().fault([](VirtualFaults& faults) {
        faults.nameOverrides[u"blank"_s] = QString();
        faults.nameOverrides[u"slash"_s] = u"B/x.txt"_s;
    });
    const auto named = [this](const char* folder, const QString& name) {
        const auto entries = list(folder);
        return *std::find_if(entries.begin(), entries.end(),
                             [&](const FileItem& entry) { return entry.name == name; });
    };
    const FileItem blank = named("/A", {});
    const QString target = local_.path(u"t"_s) + u'/';
    EXPECT_TRUE(fails([&] { service_->downloadFile(blank, target, phone().info); }));
    // What it stands for may go; nothing else.
    (void)failureOf([&] { service_->deleteFile(blank, phone().info); });
    EXPECT_TRUE(has("0/A/x.txt"));
    // A name that reads like a path is not that path.
    const FileItem slash = named("/", u"B/x.txt"_s);
    for (const auto handle : {std::optional<std::uint32_t>(), std::optional(0x12345678U)})
        (void)failureOf([&] { service_->deleteFile(withHandle(slash, handle), phone().info); });
    EXPECT_TRUE(has("0/B/x.txt"));
}

TEST_F(HandleSafetyTest, twoPhonesOfOneModelAreToldApartByWhereTheyArePlugged) {
    PluggedPhone second(bus_, phoneConfig("", "1-2"));
    // The same tree, hence the same paths and handles, on both.
    second.write(u"A/x.txt"_s, "second A");
    second.write(u"B/x.txt"_s, "second B");
    second.write(u"x.txt"_s, "second root");
    ASSERT_EQ(second.info.udid, phone().info.udid);

    for (const PluggedPhone* each : {&phone(), &second})
        (void)service_->listDirectory(u"/A"_s, each->info);
    service_->downloadFile(item("/A/x.txt"), local_.path(u"x"_s), second.info);
    EXPECT_EQ(local_.read(u"x"_s), "second A");
    service_->deleteFile(item("/A/x.txt"), second.info);
    EXPECT_TRUE(has("0/A/x.txt"));
    EXPECT_FALSE(second.disk.has(u"0/A/x.txt"_s));

    // Without a place, and without a serial, no phone is better than the wrong one.
    DeviceInfo anywhere = second.info;
    anywhere.usbLocation.clear();
    EXPECT_TRUE(fails([&] { (void)service_->listDirectory(u"/"_s, anywhere); }));
    second.android.unplug();
    EXPECT_TRUE(fails([&] { (void)service_->listDirectory(u"/"_s, second.info); }));
}

} // namespace
} // namespace tessary
