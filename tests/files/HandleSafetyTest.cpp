#include "support/FileServiceFixture.h"

namespace tessary {
namespace {

VirtualAndroidConfig withCard() {
    VirtualAndroidConfig config;
    config.storages.resize(2);
    return config;
}

/// Items keep the handle that a listing gave them; devices give others.
class HandleSafetyTest : public FileServiceFixture {
protected:
    HandleSafetyTest() : FileServiceFixture(withCard()) {
        phone().write(QStringLiteral("A/x.txt"), "A");
        phone().write(QStringLiteral("B/x.txt"), "B");
        phone().disk.write(QStringLiteral("1/x.txt"), "card");
        phone().write(QStringLiteral("x.txt"), "root");
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
    service_->renameItem(withHandle(inB, inRoot.handle), QStringLiteral("y.txt"), phone().info);
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
    service_->renameItem(folder, QStringLiteral("C"), phone().info);
    EXPECT_TRUE(has("0/C/x.txt"));
}

TEST_F(HandleSafetyTest, objectThatSomebodyElseChangedIsFoundByItsPathOrNotAtAll) {
    const FileItem inA = item("/A/x.txt");
    // Another program on this phone: x.txt becomes old.txt, and a new x.txt comes.
    DeviceFileService other(bus_, processes_);
    other.renameItem(inA, QStringLiteral("old.txt"), phone().info);
    phone().write(QStringLiteral("A/x.txt"), "new");
    service_->deleteFile(inA, phone().info);
    EXPECT_TRUE(has("0/A/old.txt"));
    EXPECT_FALSE(has("0/A/x.txt"));

    // Moved away with its folder: its path is no more, whatever its handle says.
    const FileItem inB = item("/B/x.txt");
    other.moveItem(item("/B"), QStringLiteral("/A"), phone().info);
    EXPECT_FALSE(failureOf([&] { service_->deleteFile(inB, phone().info); }).isEmpty());
    EXPECT_FALSE(
        failureOf([&] { service_->renameItem(inB, QStringLiteral("z"), phone().info); }).isEmpty());
    EXPECT_TRUE(has("0/A/B/x.txt"));
}

TEST_F(HandleSafetyTest, fileThatBecameAFolderIsNotDeletedAsTheFile) {
    const FileItem file = item("/A/x.txt");
    ASSERT_TRUE(QFile::remove(phone().disk.path(QStringLiteral("0/A/x.txt"))));
    phone().write(QStringLiteral("A/x.txt/precious"), "p");
    for (const FileItem& given : {file, withHandle(file, std::nullopt)})
        EXPECT_FALSE(failureOf([&] { service_->deleteFile(given, phone().info); }).isEmpty());
    EXPECT_TRUE(has("0/A/x.txt/precious"));
}

TEST_F(HandleSafetyTest, entryWithoutANameNeverStandsForItsFolder) {
    phone().write(QStringLiteral("A/blank"), "blank");
    phone().fault([](VirtualFaults& faults) {
        faults.nameOverrides[QStringLiteral("blank")] = QString();
        faults.nameOverrides[QStringLiteral("slash")] = QStringLiteral("B/x.txt");
    });
    phone().write(QStringLiteral("slash"), "slash");
    for (const FileItem& entry : list("/A"))
        if (entry.name.isEmpty()) {
            EXPECT_FALSE(failureOf([&] {
                             service_->downloadFile(entry, local_.path(QStringLiteral("t")) + u'/',
                                                    phone().info);
                         }).isEmpty());
            // What it stands for may go; nothing else.
            (void)failureOf([&] { service_->deleteFile(entry, phone().info); });
        }
    EXPECT_TRUE(has("0/A/x.txt"));
    // A name that reads like a path is not that path.
    for (const FileItem& entry : list("/"))
        if (entry.name == QStringLiteral("B/x.txt")) {
            (void)failureOf(
                [&] { service_->deleteFile(withHandle(entry, std::nullopt), phone().info); });
            (void)failureOf(
                [&] { service_->deleteFile(withHandle(entry, 0x12345678), phone().info); });
        }
    EXPECT_TRUE(has("0/B/x.txt"));
}

TEST_F(HandleSafetyTest, twoPhonesOfOneModelAreToldApartByWhereTheyArePlugged) {
    VirtualAndroidConfig config;
    config.location = QStringLiteral("1-2");
    PluggedPhone second(bus_, config);
    // The same tree, hence the same paths and handles, on both.
    second.write(QStringLiteral("A/x.txt"), "second A");
    second.write(QStringLiteral("B/x.txt"), "second B");
    second.write(QStringLiteral("x.txt"), "second root");
    ASSERT_EQ(second.info.udid, phone().info.udid);

    for (const PluggedPhone* each : {&phone(), &second})
        (void)service_->listDirectory(QStringLiteral("/A"), each->info);
    service_->downloadFile(item("/A/x.txt"), local_.path(QStringLiteral("x")), second.info);
    EXPECT_EQ(local_.read(QStringLiteral("x")), "second A");
    service_->deleteFile(item("/A/x.txt"), second.info);
    EXPECT_TRUE(has("0/A/x.txt"));
    EXPECT_FALSE(second.disk.has(QStringLiteral("0/A/x.txt")));

    // Without a place, and without a serial, no phone is better than the wrong one.
    DeviceInfo anywhere = second.info;
    anywhere.usbLocation.clear();
    EXPECT_FALSE(
        failureOf([&] { (void)service_->listDirectory(QStringLiteral("/"), anywhere); }).isEmpty());
    second.android.unplug();
    EXPECT_FALSE(failureOf([&] {
                     (void)service_->listDirectory(QStringLiteral("/"), second.info);
                 }).isEmpty());
}

TEST_F(HandleSafetyTest, phonesWithSerialsAreFoundAtAnyPort) {
    VirtualAndroidConfig config;
    config.serialNumber = QStringLiteral("S2");
    config.location = QStringLiteral("1-2");
    PluggedPhone second(bus_, config);
    second.write(QStringLiteral("only-here"), "x");
    second.info.usbLocation = QStringLiteral("3-9"); // where it was before
    EXPECT_EQ(service_->listDirectory(QStringLiteral("/"), second.info).size(), 1U);
}

} // namespace
} // namespace tessary
