// The browser, its transfers and its list of apps, on a virtual iPhone by way of the real library.

#include "browser/model/FileBrowserViewModel.h"
#include "devices/files/AppFileAccess.h"
#include "support/Failure.h"
#include "support/MainLoop.h"
#include "support/PluggedIPhone.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class AppBrowserTest : public MainLoop {
protected:
    AppBrowserTest() {
        iphone_.write(u"a.txt"_s, "content");
        iphone_.write(u"folder/b.txt"_s, "second");
        device_.udid = iphone_.udid();
        device_.handle = 1;
        device_.deviceName = u"Ada’s iPhone"_s;
        setup_.previews = &previews_;
        setup_.openApp = [this](const DeviceInfo& device, const AppInfo& app) {
            return std::make_shared<AppFileAccess>(device, app,
                                                   AppFileAccess::Setup{.staging = &previews_});
        };
        browser_ = std::make_unique<FileBrowserViewModel>(transfers_, setup_);
    }
    ~AppBrowserTest() override {
        browser_.reset();
        EXPECT_TRUE(engine_.stop(20s));
        EXPECT_TRUE(Background::shutDown(30s));
    }
    void connect() {
        browser_->connect(device_.udid, PluggedIPhone::bundleId, u"Notes"_s, device_, u"/"_s);
        ASSERT_TRUE(loaded());
    }
    [[nodiscard]] bool loaded() {
        return eventually([this] { return !browser_->isLoading(); });
    }
    AppFileAccess access(BusyPhones* busy = nullptr) {
        return AppFileAccess(device_, {PluggedIPhone::bundleId, u"Notes"_s, true, false},
                             {.busy = busy, .staging = &previews_});
    }

    TemporaryFolder here_;
    PreviewCache previews_{here_.path(u"cache"_s)};
    PluggedIPhone iphone_;
    DeviceInfo device_;
    BrowserSetup setup_;
    TransferEngine engine_;
    TransferViewModel transfers_{engine_};
    std::unique_ptr<FileBrowserViewModel> browser_;
};

TEST_F(AppBrowserTest, copiesGoBothWaysWithProgress) {
    connect();
    here_.write(u"up/x.bin"_s, QByteArray(3 << 20, 'x'));
    here_.write(u"up/sub/y"_s, "y");
    here_.makeFolder(u"down"_s);
    browser_->uploadFiles({here_.path(u"up"_s), here_.path(u"up/sub/y"_s)});
    transfers_.enqueueUpload({here_.path(u"up/sub"_s), u"sub (2)"_s}, u"/"_s, browser_->files());
    transfers_.enqueueUpload({here_.path(u"up/sub/y"_s), u"y (2)"_s}, u"/"_s, browser_->files());
    browser_->downloadItems({u"/a.txt"_s, u"/folder"_s}, here_.path(u"down"_s));
    ASSERT_TRUE(eventually([this] { return transfers_.summary().isIdle(); }));
    for (const TransferJob& job : transfers_.jobs()) {
        EXPECT_EQ(job.status, TransferJob::TransferStatus::completed)
            << job.error.value_or(QString()).toStdString();
        EXPECT_EQ(job.deviceName, u"Notes (Ada’s iPhone)"_s);
    }
    EXPECT_EQ(iphone_.read(u"up/x.bin"_s), QByteArray(3 << 20, 'x'));
    EXPECT_EQ(iphone_.read(u"y"_s), QByteArray("y"));
    EXPECT_EQ(iphone_.read(u"y (2)"_s), QByteArray("y"));
    EXPECT_EQ(iphone_.read(u"sub (2)/y"_s), QByteArray("y"));
    EXPECT_EQ(here_.read(u"down/a.txt"_s), QByteArray("content"));
    EXPECT_EQ(here_.read(u"down/folder/b.txt"_s), QByteArray("second"));
    // The folder is read again by itself.
    EXPECT_TRUE(eventually([&] { return browser_->filteredItems().size() == 6; }));
}

TEST_F(AppBrowserTest, aLostConnectionToAPhoneThatIsThereHealsItself) {
    connect();
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.requestFault = {u"afc.readDir"_s, 1, false, VirtualCut::close};
    });
    browser_->reload();
    ASSERT_TRUE(loaded());
    EXPECT_EQ(browser_->state(), BrowserState::ready);
    EXPECT_FALSE(browser_->error());
    EXPECT_EQ(iphone_.count("houseArrest.VendDocuments"), 2U);
}

TEST_F(AppBrowserTest, nothingIsReplacedByANewNameNorAnythingOutsideReached) {
    AppFileAccess files = access();
    const FileItem item = files.itemAt(u"/a.txt"_s, {});
    iphone_.write(u"folder/a.txt"_s, "other");
    const FileItem folder = files.itemAt(u"/folder"_s, {});
    const FileItem root = files.itemAt(u"/"_s, {});
    const std::pair<std::function<void()>, QString> rows[] = {
        {[&] { files.moveItem(item, u"/folder"_s, {}); }, u"already there"_s},
        {[&] { files.moveItem(item, u"/none"_s, {}); }, u"objectNotFound"_s},
        {[&] { files.createFolder(u"x"_s, u"/none"_s, {}); }, u"objectNotFound"_s},
        {[&] { files.moveItem(folder, u"/folder/in"_s, {}); }, u"into itself"_s},
        {[&] { files.deleteItem(root, {}); }, u"as a whole"_s},
    };
    for (const auto& [work, why] : rows)
        EXPECT_TRUE(failureOf(work).contains(why)) << why.toStdString();
    EXPECT_EQ(iphone_.read(u"folder/a.txt"_s), QByteArray("other"));
    EXPECT_FALSE(iphone_.has(u"none"_s));
    for (const QString& name : {u""_s, u"."_s, u".."_s, u"a/b"_s}) {
        EXPECT_NE(failureOf([&] { files.renameItem(item, name, {}); }), u"nothing was thrown"_s);
        EXPECT_NE(failureOf([&] { files.createFolder(name, u"/"_s, {}); }),
                  u"nothing was thrown"_s);
    }
    EXPECT_EQ(iphone_.read(u"a.txt"_s), QByteArray("content"));
}

TEST_F(AppBrowserTest, aFolderCalledLikeTheContainersRootIsAFolder) {
    iphone_.write(u"Documents/inner"_s, "1");
    AppFileAccess files = access();
    EXPECT_EQ(files.listDirectory(u"/Documents"_s, {}).front().path, u"/Documents/inner"_s);
    files.deleteItem(files.itemAt(u"/Documents"_s, {}), {});
    EXPECT_FALSE(iphone_.has(u"Documents"_s));
    EXPECT_TRUE(iphone_.has(u"a.txt"_s));
}

TEST_F(AppBrowserTest, aPhoneIsBusyForAsLongAsACallRuns) {
    BusyPhones busy;
    AppFileAccess files = access(&busy);
    iphone_.faults([](VirtualIPhoneFaults& faults) { faults.delay[u"afc.readDir"_s] = 300ms; });
    std::jthread lister([&] { (void)files.listDirectory(u"/"_s, {}); });
    EXPECT_TRUE(eventually([&] { return busy.isBusy(device_.udid); }));
    lister.join();
    EXPECT_FALSE(busy.isBusy(device_.udid));
}

} // namespace
} // namespace tessary
