// The browser, its copies and its list of apps, on a virtual iPhone by way of the real library.

#include "browser/model/FileBrowserViewModel.h"
#include "devices/files/DeviceServices.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "support/CopyNow.h"
#include "support/FakeProcessRunner.h"
#include "support/MainLoop.h"
#include "support/PluggedIPhone.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class AppBrowserTest : public MainLoop {
protected:
    AppBrowserTest() {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(here_.makeFolder(u"cache"_s)));
        iphone_.write(u"a.txt"_s, "content");
        iphone_.write(u"folder/b.txt"_s, "second");
        device_.udid = iphone_.udid();
        device_.handle = 1;
        device_.platform = DevicePlatform::iOS;
        device_.deviceName = u"Ada’s iPhone"_s;
        BrowserSetup setup;
        setup.staged = &staged_;
        setup.openApp = [this](const DeviceInfo& device, const AppInfo& app) {
            return services_.files().openApp(device, app);
        };
        browser_ = std::make_unique<FileBrowserViewModel>(queue_, setup);
    }
    ~AppBrowserTest() override {
        browser_.reset();
        EXPECT_TRUE(queue_.stop(20s));
        EXPECT_TRUE(Background::shutDown(30s));
    }
    void connect() {
        browser_->connect(device_.udid, PluggedIPhone::bundleId, u"Notes"_s, device_, u"/"_s);
        ASSERT_TRUE(loaded());
    }
    [[nodiscard]] bool loaded() {
        return eventually([this] { return !browser_->isLoading(); });
    }

    TemporaryFolder here_;
    StagedFiles staged_{u"files"_s};
    PluggedIPhone iphone_;
    VirtualUSBBus bus_;
    FakeProcessRunner processes_;
    DeviceServices services_{{bus_, processes_}};
    DeviceInfo device_;
    CopyQueue queue_;
    std::unique_ptr<FileBrowserViewModel> browser_;
};

TEST_F(AppBrowserTest, copiesGoBothWays) {
    connect();
    here_.write(u"up/x.bin"_s, QByteArray(3 << 20, 'x'));
    here_.write(u"up/sub/y"_s, "y");
    here_.makeFolder(u"down"_s);
    uploadNow(*browser_, {here_.path(u"up"_s), here_.path(u"up/sub/y"_s)});
    downloadNow(*browser_, {u"/a.txt"_s, u"/folder"_s}, here_.path(u"down"_s));
    ASSERT_TRUE(
        eventually([this] { return queue_.jobs().size() == 3 && queue_.summary().isIdle(); }));
    for (const CopyJob& job : queue_.jobs()) {
        EXPECT_EQ(job.status, CopyJob::Status::done)
            << (job.error ? job.error->what() : "left something out");
        EXPECT_EQ(job.phone, u"Notes (Ada’s iPhone)"_s);
    }
    EXPECT_EQ(iphone_.read(u"up/x.bin"_s), QByteArray(3 << 20, 'x'));
    EXPECT_EQ(iphone_.read(u"y"_s), QByteArray("y"));
    EXPECT_EQ(iphone_.read(u"up/sub/y"_s), QByteArray("y"));
    EXPECT_EQ(here_.read(u"down/a.txt"_s), QByteArray("content"));
    EXPECT_EQ(here_.read(u"down/folder/b.txt"_s), QByteArray("second"));
    // The folder is read again by itself.
    EXPECT_TRUE(eventually([&] { return browser_->filteredItems().size() == 4; }));
}

TEST_F(AppBrowserTest, aLostConnectionToAPhoneThatIsThereHealsItself) {
    connect();
    iphone_.faults([](VirtualIPhoneFaults& faults) {
        faults.requestFault = {u"afc.readDir"_s, 1, false, VirtualCut::close};
    });
    browser_->reload();
    ASSERT_TRUE(loaded());
    EXPECT_EQ(browser_->state(), BrowserState::ready);
    EXPECT_FALSE(browser_->problem());
    EXPECT_EQ(iphone_.count("houseArrest.VendDocuments"), 2U);
}

} // namespace
} // namespace tessary
