#include "files/FakeFileAccess.h"
#include "files/FileBrowserFixture.h"
#include "mtp/MTPTransportError.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileBrowserViewModelTest : public FileBrowserFixture {
protected:
    FileBrowserViewModelTest() {
        fill("/root", {"a/", "b/", "readme.txt", "Photo.jpg"});
        fill("/root/a", {"deep/", "one.txt"});
        fill("/root/a/deep", {"two.txt"});
    }
};

TEST_F(FileBrowserViewModelTest, newBrowserHasNothingToShowYet) {
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/"));
    EXPECT_EQ(browser_.rootPath(), QStringLiteral("/"));
    ASSERT_EQ(browser_.breadcrumbs().size(), 1U);
    EXPECT_EQ(browser_.breadcrumbs()[0].name, QStringLiteral("Root"));
    EXPECT_EQ(browser_.breadcrumbs()[0].path, QStringLiteral("/"));
    EXPECT_TRUE(browser_.isLoading());
    EXPECT_FALSE(browser_.errorMessage());
    EXPECT_TRUE(browser_.selectedItems().isEmpty());
    EXPECT_EQ(browser_.viewMode(), ViewMode::list);
    EXPECT_EQ(browser_.sortOrder().size(), 1U);
    EXPECT_EQ(browser_.history().index(), -1);
    EXPECT_EQ(browser_.appName(), QStringLiteral("Documents"));
    EXPECT_FALSE(browser_.canGoBack() || browser_.canGoForward() || browser_.canNavigateUp());
}

TEST_F(FileBrowserViewModelTest, nothingCanBeDoneWithoutAConnection) {
    browser_.navigateTo(QStringLiteral("/x"));
    browser_.navigateUp();
    browser_.goBack();
    browser_.goForward();
    browser_.reload();
    browser_.cancelLoading();
    browser_.loseDevice();
    browser_.createFolder();
    browser_.deleteItems({QStringLiteral("x")});
    browser_.renameItem(QStringLiteral("x"), QStringLiteral("y"));
    browser_.moveSelectedItemsToPath(QStringLiteral("/x"));
    browser_.downloadItems({QStringLiteral("x")}, local_.path());
    browser_.uploadFiles({local_.path()});
    browser_.cacheFileForPreview(QStringLiteral("x"));
    browser_.prepareDragURLs({QStringLiteral("x")}, [](const DragFiles&) { FAIL(); });
    browser_.handleTypeahead(QStringLiteral("x"));
    browser_.selectNextItem();
    browser_.selectAll();
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/"));
    EXPECT_TRUE(transfers_.jobs().empty());
}

TEST_F(FileBrowserViewModelTest, folderIsShownWithItsPathBar) {
    open("/root/a/deep/");
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root/a/deep"));
    EXPECT_EQ(browser_.rootPath(), QStringLiteral("/root"));
    QStringList bar;
    for (const PathComponent& component : browser_.breadcrumbs())
        bar << component.name + QLatin1Char('=') + component.path;
    EXPECT_THAT(bar, ElementsAre(QStringLiteral("Internal Storage=/root"),
                                 QStringLiteral("a=/root/a"), QStringLiteral("deep=/root/a/deep")));
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("two.txt")));
}

TEST_F(FileBrowserViewModelTest, historyGoesBackAndForward) {
    open("/root");
    go("/root/a");
    go("/root/a/deep");
    browser_.goBack();
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root/a"));
    EXPECT_TRUE(browser_.canGoForward());
    browser_.goForward();
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root/a/deep"));
    EXPECT_FALSE(browser_.canGoForward());
    browser_.goForward();
    browser_.goBack();
    browser_.goBack();
    browser_.goBack();
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root")) << "back at the first does nothing";
    go("/root/b");
    EXPECT_FALSE(browser_.canGoForward()) << "a new folder drops what lay ahead";
    browser_.navigateTo(QStringLiteral("/root/b"));
    settle();
    EXPECT_EQ(browser_.history().paths().size(), 2U) << "the folder shown is not recorded again";
    browser_.navigateTo(QStringLiteral("/root/a"), false);
    settle();
    EXPECT_EQ(browser_.history().paths().size(), 2U);
}

TEST_F(FileBrowserViewModelTest, upStopsAtTheRootAndSelectsWhereOneCameFrom) {
    open("/root/a/deep");
    browser_.navigateUp();
    settle();
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root/a"));
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/a/deep")});
    browser_.navigateUp();
    settle();
    EXPECT_FALSE(browser_.canNavigateUp());
    browser_.navigateUp();
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root"));
    browser_.enterFolder(QStringLiteral("/root/readme.txt"));
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root")) << "a file cannot be entered";
    browser_.enterFolder(QStringLiteral("/root/b"));
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root/b"));
}

TEST_F(FileBrowserViewModelTest, listingThatArrivesAfterTheUserWentOnIsDropped) {
    open("/root");
    Gate slow;
    // The device does not notice that nobody wants the answer any more.
    files_->setScript([&](const QString& operation, const std::stop_token&) {
        if (operation == QStringLiteral("list /root/a"))
            slow.pass({});
    });
    browser_.navigateTo(QStringLiteral("/root/a"));
    ASSERT_TRUE(eventually([&] { return slow.waiting() == 1; }));
    EXPECT_TRUE(names().isEmpty());
    go("/root/a/deep");
    slow.open();
    turnFor(50ms);
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("two.txt")));
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root/a/deep"));
}

TEST_F(FileBrowserViewModelTest, loadIsStoppedWhenTheUserGoesOnOrCancels) {
    Gate never;
    files_->setScript([&](const QString& operation, const std::stop_token& stop) {
        if (operation != QStringLiteral("list /root/b"))
            never.pass(stop);
    });
    browser_.open(files_, std::nullopt, QStringLiteral("/root/a"));
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    go("/root/b");
    ASSERT_TRUE(eventually([&] { return never.waiting() == 0; }));

    browser_.navigateTo(QStringLiteral("/root/a"));
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    browser_.cancelLoading();
    EXPECT_FALSE(browser_.isLoading());
    EXPECT_EQ(browser_.state(), BrowserState::failed);
    EXPECT_TRUE(browser_.errorMessage());
    ASSERT_TRUE(eventually([&] { return never.waiting() == 0; }));
}

TEST_F(FileBrowserViewModelTest, browserThatGoesEndsItsLoad) {
    Gate never;
    files_->setScript([&](const QString&, const std::stop_token& stop) { never.pass(stop); });
    auto other = std::make_unique<FileBrowserViewModel>(transfers_);
    other->open(files_, std::nullopt, QStringLiteral("/root"));
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    other.reset();
    EXPECT_TRUE(eventually([&] { return never.waiting() == 0; }));
}

TEST_F(FileBrowserViewModelTest, reloadKeepsSelectionAndDropsWhatIsGone) {
    open("/root");
    browser_.selectItem(QStringLiteral("/root/a"));
    browser_.selectItem(QStringLiteral("/root/readme.txt"), SelectionChange::toggle);
    files_->remove(QStringLiteral("/root/a"));
    fill("/root", {"new.txt"});
    int resets = 0;
    QObject::connect(&browser_.rows(), &FileRows::wasReset, [&] { ++resets; });
    browser_.reload();
    EXPECT_EQ(names().size(), 4) << "rows stay while the folder is read";
    settle();
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/readme.txt")});
    EXPECT_TRUE(names().contains(QStringLiteral("new.txt")));
}

TEST_F(FileBrowserViewModelTest, navigatingClearsSelectionAndError) {
    open("/root");
    browser_.selectAll();
    EXPECT_EQ(browser_.selectedItems().size(), 4);
    go("/root/nowhere");
    EXPECT_TRUE(browser_.errorMessage());
    go("/root/a");
    EXPECT_TRUE(browser_.selectedItems().isEmpty());
    EXPECT_FALSE(browser_.errorMessage());
    EXPECT_EQ(browser_.state(), BrowserState::ready);
}

TEST_F(FileBrowserViewModelTest, failureThatPassesIsForgottenByTheReload) {
    open("/root");
    files_->setScript([](const QString&, const std::stop_token&) {
        throw MTPTransportError(MTPTransportError::Case::timeout);
    });
    browser_.reload();
    settle();
    EXPECT_EQ(browser_.state(), BrowserState::failed);
    EXPECT_EQ(names().size(), 4) << "what was shown stays";
    ASSERT_TRUE(browser_.error());
    EXPECT_TRUE(browser_.error()->message.contains(QStringLiteral("does not answer")));
    EXPECT_FALSE(browser_.error()->advice.isEmpty());
    files_->setScript({});
    browser_.reload();
    settle();
    EXPECT_EQ(browser_.state(), BrowserState::ready);
    EXPECT_FALSE(browser_.error());
}

TEST_F(FileBrowserViewModelTest, folderThatWasDeletedOnThePhoneLeadsUp) {
    open("/root");
    go("/root/a");
    go("/root/a/deep");
    files_->remove(QStringLiteral("/root/a/deep"));
    files_->remove(QStringLiteral("/root/a"));
    browser_.reload();
    settle();
    EXPECT_EQ(browser_.state(), BrowserState::folderGone);
    EXPECT_TRUE(names().isEmpty());
    EXPECT_TRUE(browser_.errorMessage()->contains(QStringLiteral("\"deep\"")));
    browser_.navigateUp();
    settle();
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root")) << "past what is gone as well";
    EXPECT_EQ(browser_.state(), BrowserState::ready);
}

TEST_F(FileBrowserViewModelTest, folderThatIsThereButFailsIsNotCalledGone) {
    open("/root");
    files_->setScript([](const QString& operation, const std::stop_token&) {
        if (operation == QStringLiteral("list /root/a"))
            throw TessaryError::fileIOError(QStringLiteral("odd"));
    });
    go("/root/a");
    EXPECT_EQ(browser_.state(), BrowserState::failed);
    EXPECT_EQ(browser_.errorMessage(), QStringLiteral("File I/O error: odd"));
}

TEST_F(FileBrowserViewModelTest, lostDeviceIsAStateOfItsOwn) {
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"transport", [] { throw MTPTransportError(MTPTransportError::Case::notConnected); }},
        {"usb",
         [] { throw MTPTransportError::pipe(QStringLiteral("Read failed"), usb::noDevice); }},
        {"service", [] { throw TessaryError::deviceNotFound(QStringLiteral("gone")); }},
    };
    for (const auto& [name, raise] : rows) {
        files_->setScript({});
        open("/root");
        files_->setScript([raise](const QString&, const std::stop_token&) { raise(); });
        browser_.reload();
        settle();
        EXPECT_EQ(browser_.state(), BrowserState::deviceLost) << name;
        EXPECT_EQ(names().size(), 4) << name;
        EXPECT_TRUE(browser_.error()) << name;
    }
}

TEST_F(FileBrowserViewModelTest, unpluggedDeviceComesBackWithItsFolder) {
    DeviceInfo device;
    device.udid = QStringLiteral("phone");
    device.platform = DevicePlatform::android;
    device.volumes = {{QStringLiteral("1"), QStringLiteral("Internal"), 10, 5, false}};
    browser_.connectAndroid(device, QStringLiteral("/root/a"));
    settle();
    browser_.selectItem(QStringLiteral("/root/a/one.txt"));
    Gate never;
    files_->setScript([&](const QString&, const std::stop_token& stop) { never.pass(stop); });
    browser_.reload();
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    browser_.loseDevice();
    EXPECT_EQ(browser_.state(), BrowserState::deviceLost);
    EXPECT_FALSE(browser_.isLoading());
    files_->setScript({});
    device.usbLocation = QStringLiteral("2-1");
    browser_.updateDevice(device);
    settle();
    EXPECT_EQ(browser_.state(), BrowserState::ready);
    EXPECT_EQ(browser_.currentPath(), QStringLiteral("/root/a"));
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/a/one.txt")});
    EXPECT_FALSE(browser_.error());
}

TEST_F(FileBrowserViewModelTest, unlockedPhoneIsReadAgain) {
    DeviceInfo device;
    device.udid = QStringLiteral("phone");
    device.platform = DevicePlatform::android;
    browser_.connectAndroid(device, QStringLiteral("/root"));
    settle();
    const int before = files_->count(QStringLiteral("list /root"));
    device.batteryLevel = 20;
    browser_.updateDevice(device);
    device.volumes = {{QStringLiteral("1"), QStringLiteral("Internal"), 10, 5, false}};
    browser_.updateDevice(device);
    settle();
    device.batteryLevel = 19;
    browser_.updateDevice(device);
    settle();
    EXPECT_EQ(files_->count(QStringLiteral("list /root")), before + 1);
}

TEST_F(FileBrowserViewModelTest, otherConnectionStartsWithAHistoryOfItsOwn) {
    open("/root");
    go("/root/a");
    open("/root/b");
    EXPECT_FALSE(browser_.canGoBack());
    EXPECT_EQ(browser_.history().paths().size(), 1U);
}

TEST_F(FileBrowserViewModelTest, hiddenEntriesAreNoLongerSelected) {
    open("/root");
    browser_.selectAll();
    browser_.setSearchText(QStringLiteral("photo"));
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/Photo.jpg")});
    browser_.setSearchText(QStringLiteral("nothing like it"));
    EXPECT_TRUE(browser_.filteredItems().empty());
    EXPECT_EQ(browser_.items().size(), 4U);
    EXPECT_TRUE(browser_.selectedItems().isEmpty());
}

TEST_F(FileBrowserViewModelTest, typedLettersSelectAndRepeatedOnesGoRound) {
    fill("/root", {"photo2.jpg", "Pier.jpg"});
    open("/root");
    browser_.handleTypeahead(QStringLiteral("p"));
    EXPECT_EQ(browser_.lastSelectedItemID(), QStringLiteral("/root/Photo.jpg"));
    now_ += 200ms;
    browser_.handleTypeahead(QStringLiteral("P"));
    EXPECT_EQ(browser_.lastSelectedItemID(), QStringLiteral("/root/photo2.jpg"));
    now_ += 900ms;
    browser_.handleTypeahead(QStringLiteral("r"));
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/readme.txt")});
}

} // namespace
} // namespace tessary
