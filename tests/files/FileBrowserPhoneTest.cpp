#include "files/AndroidFileAccess.h"
#include "files/FileBrowserViewModel.h"
#include "files/MainLoop.h"
#include "support/FakeProcessRunner.h"
#include "support/PluggedPhone.h"
#include "support/StallWatch.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using Status = TransferJob::TransferStatus;

/// The browser and the transfers over a virtual Android phone.
class FileBrowserPhoneTest : public MainLoop {
protected:
    FileBrowserPhoneTest() {
        phone_.write(QStringLiteral("DCIM/IMG_2.jpg"), "second");
        phone_.write(QStringLiteral("DCIM/IMG_10.jpg"), "tenth");
        phone_.write(QStringLiteral("DCIM/trip/sea.jpg"), "sea");
        phone_.write(QStringLiteral("note.txt"), "note");
    }
    ~FileBrowserPhoneTest() override {
        browser_.reset();
        transfers_.reset();
        EXPECT_TRUE(engine_.stop(30s));
        EXPECT_TRUE(Background::shutDown(30s));
    }
    static VirtualAndroidConfig config() {
        VirtualAndroidConfig config;
        config.serialNumber = QStringLiteral("PHONE1");
        config.storages.resize(2);
        config.storages[1].description = QStringLiteral("SD card");
        return config;
    }
    DeviceInfo device() {
        DeviceInfo info = phone_.info;
        info.volumes = {
            {QString::number(PluggedPhone::firstStorage), QStringLiteral("Internal"), 10, 5, false},
            {QString::number(PluggedPhone::secondStorage), QStringLiteral("SD card"), 10, 5, true}};
        return info;
    }
    void open(const QString& path) {
        browser_->connectAndroid(device(), path);
        settle();
    }
    void settle() {
        ASSERT_TRUE(eventually([this] {
            return !browser_->isLoading() && !browser_->isEditing() &&
                   transfers_->summary().isIdle();
        }));
    }
    [[nodiscard]] QStringList names() const {
        QStringList names;
        for (const FileItem& item : browser_->filteredItems())
            names << item.name;
        return names;
    }
    [[nodiscard]] QString id(const char* name) const {
        for (const FileItem& item : browser_->items())
            if (item.name == QString::fromUtf8(name))
                return item.id();
        return {};
    }

    const TemporaryFolder local_;
    VirtualUsbBus bus_;
    PluggedPhone phone_{bus_, config()};
    FakeProcessRunner processes_;
    DeviceFileService service_{bus_, processes_};
    PreviewCache previews_{local_.path(QStringLiteral("TessaryCache"))};
    TransferEngine engine_;
    std::unique_ptr<TransferViewModel> transfers_ = std::make_unique<TransferViewModel>(engine_);
    std::unique_ptr<FileBrowserViewModel> browser_ = std::make_unique<FileBrowserViewModel>(
        *transfers_, BrowserSetup{.openAndroid =
                                      [this](const DeviceInfo& info) {
                                          return std::make_shared<AndroidFileAccess>(service_,
                                                                                     info);
                                      },
                                  .previews = &previews_,
                                  .clock = {}});
};

TEST_F(FileBrowserPhoneTest, foldersAreWalkedAndEdited) {
    open(QStringLiteral("/sdcard"));
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("DCIM"), QStringLiteral("note.txt")));
    browser_->enterFolder(id("DCIM"));
    settle();
    EXPECT_EQ(browser_->currentPath(), QStringLiteral("/sdcard/DCIM"));
    EXPECT_EQ(browser_->breadcrumbs().front().name, QStringLiteral("Internal Storage"));
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("trip"), QStringLiteral("IMG_2.jpg"),
                                     QStringLiteral("IMG_10.jpg")));

    browser_->createFolder();
    settle();
    browser_->renameItem(id("New Folder"), QStringLiteral("older"));
    settle();
    browser_->moveItemsToPath({id("IMG_2.jpg")}, QStringLiteral("/sdcard/DCIM/older"));
    settle();
    browser_->deleteItems({id("trip"), id("IMG_10.jpg")});
    settle();
    EXPECT_FALSE(browser_->error()) << browser_->error()->message.toStdString();
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("older")));
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/older/IMG_2.jpg")), "second");
    EXPECT_FALSE(phone_.disk.has(QStringLiteral("0/DCIM/trip")));
    browser_->navigateUp();
    settle();
    EXPECT_FALSE(browser_->canNavigateUp());
}

TEST_F(FileBrowserPhoneTest, secondStorageHasARootOfItsOwn) {
    phone_.disk.write(QStringLiteral("1/music/a.mp3"), "la");
    const QString root = QStringLiteral("/storage/%1").arg(PluggedPhone::secondStorage);
    open(root);
    EXPECT_EQ(browser_->rootPath(), root);
    EXPECT_EQ(browser_->breadcrumbs().front().name, QStringLiteral("SD card"));
    browser_->enterFolder(id("music"));
    settle();
    EXPECT_EQ(browser_->currentPath(), root + QStringLiteral("/music"));
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("a.mp3")));
    browser_->navigateUp();
    settle();
    EXPECT_FALSE(browser_->canNavigateUp());
}

TEST_F(FileBrowserPhoneTest, filesAndFoldersAreCopiedBothWays) {
    open(QStringLiteral("/sdcard/DCIM"));
    const QString target = local_.makeFolder(QStringLiteral("target"));
    browser_->downloadItems({id("IMG_2.jpg"), id("trip")}, target);
    settle();
    EXPECT_EQ(local_.read(QStringLiteral("target/IMG_2.jpg")), "second");
    EXPECT_EQ(local_.read(QStringLiteral("target/trip/sea.jpg")), "sea");

    local_.write(QStringLiteral("up/x/y.txt"), "y");
    local_.write(QStringLiteral("up/z.txt"), "z");
    browser_->uploadFiles(
        {local_.path(QStringLiteral("up")), local_.path(QStringLiteral("up/z.txt"))});
    ASSERT_TRUE(eventually([this] { return names().contains(QStringLiteral("z.txt")); }));
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/up/x/y.txt")), "y");
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/z.txt")), "z");
    for (const TransferJob& job : transfers_->jobs())
        EXPECT_EQ(job.status, Status::completed) << job.error.value_or(QString()).toStdString();
}

TEST_F(FileBrowserPhoneTest, folderIsListedWhileACopyRuns) {
    phone_.write(QStringLiteral("big/one"), QByteArray(1'500'000, 'x'));
    phone_.write(QStringLiteral("big/two"), QByteArray(1'500'000, 'x'));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 1; });
    open(QStringLiteral("/sdcard"));
    browser_->downloadItems({id("big")}, local_.path());
    ASSERT_TRUE(eventually([this] {
        return transfers_->jobs()[0].status == Status::inProgress &&
               transfers_->jobs()[0].doneBytes() > 0;
    }));
    StallWatch stall;
    browser_->navigateTo(QStringLiteral("/sdcard/DCIM"));
    ASSERT_TRUE(eventually([this] { return !browser_->isLoading(); }));
    EXPECT_EQ(names().size(), 3);
    EXPECT_EQ(transfers_->jobs()[0].status, Status::inProgress);
    settle();
    EXPECT_EQ(transfers_->jobs()[0].status, Status::completed);
    EXPECT_LT(stall.longest(), 1000) << "the main thread waited";
}

TEST_F(FileBrowserPhoneTest, cancelledCopyLeavesNoFileAndTheNextRuns) {
    phone_.write(QStringLiteral("big"), QByteArray(4'000'000, 'x'));
    phone_.fault([](VirtualFaults& faults) { faults.megabytesPerSecond = 1; });
    open(QStringLiteral("/sdcard"));
    const QString target = local_.makeFolder(QStringLiteral("target"));
    browser_->downloadItems({id("big"), id("note.txt")}, target);
    ASSERT_TRUE(eventually([this] { return transfers_->jobs()[0].doneBytes() > 0; }));
    transfers_->cancelJob(transfers_->jobs()[0].id);
    settle();
    EXPECT_EQ(transfers_->jobs()[1].status, Status::completed)
        << transfers_->jobs()[1].error.value_or(QString()).toStdString();
    EXPECT_THAT(local_.names(QStringLiteral("target")), ElementsAre(QStringLiteral("note.txt")));
}

TEST_F(FileBrowserPhoneTest, unpluggedPhoneIsLostAndComesBack) {
    open(QStringLiteral("/sdcard/DCIM"));
    phone_.android.unplug();
    browser_->reload();
    settle();
    EXPECT_EQ(browser_->state(), BrowserState::deviceLost);
    ASSERT_TRUE(browser_->error());
    EXPECT_FALSE(browser_->error()->advice.isEmpty());
    ASSERT_NE(phone_.android.plugInto(bus_), 0U);
    browser_->reload();
    settle();
    EXPECT_EQ(browser_->state(), BrowserState::ready);
    EXPECT_EQ(names().size(), 3);
}

TEST_F(FileBrowserPhoneTest, folderDeletedOnThePhoneIsGone) {
    open(QStringLiteral("/sdcard/DCIM/trip"));
    ASSERT_TRUE(QDir(phone_.disk.path(QStringLiteral("0/DCIM"))).removeRecursively());
    browser_->reload();
    settle();
    EXPECT_EQ(browser_->state(), BrowserState::folderGone);
    browser_->navigateUp();
    settle();
    EXPECT_EQ(browser_->currentPath(), QStringLiteral("/sdcard"));
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("note.txt")));
}

TEST_F(FileBrowserPhoneTest, previewAndDragGetLocalCopies) {
    open(QStringLiteral("/sdcard/DCIM"));
    QString preview;
    QObject::connect(browser_.get(), &FileBrowserViewModel::previewReady,
                     [&](const QString&, const QString& path) { preview = path; });
    browser_->cacheFileForPreview(id("IMG_2.jpg"));
    ASSERT_TRUE(eventually([&] { return !preview.isEmpty(); }));
    QFile copy(preview);
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(copy.readAll(), "second");
    std::optional<DragFiles> drag;
    browser_->prepareDragURLs({id("IMG_10.jpg"), id("trip")},
                              [&](const DragFiles& files) { drag = files; });
    ASSERT_TRUE(eventually([&] { return drag.has_value(); }));
    ASSERT_EQ(drag->localPaths.size(), 1);
    EXPECT_EQ(QFileInfo(drag->localPaths.front()).fileName(), QStringLiteral("IMG_10.jpg"));
    EXPECT_EQ(drag->notReady.size(), 1U);
}

} // namespace
} // namespace tessary
