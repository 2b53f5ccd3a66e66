#include "WindowFixture.h"
#include "ios/Multiplexer.h"
#include "support/PluggedIPhone.h"

#include <QLineEdit>
#include <QListView>
#include <QTest>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A window with an iPhone and no other phone, used by mouse and keyboard.
class IPhoneWindowTest : public ::testing::Test {
protected:
    IPhoneWindowTest() {
        Background::restart();
        phone_.write(u"letter.txt"_s, "dear");
        app_ = std::make_unique<TessaryApp>(DeviceSources(bus_, &multiplexer_), files_,
                                            TessaryAppSetup{});
        window_ = std::make_unique<MainWindow>(
            *app_, BrowserView::Dialogs{[this](QWidget*) { return local_.path(); },
                                        [](QWidget*) { return QStringList(); },
                                        [](QWidget*) { return QString(); }});
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get(), windowPatience));
    }
    ~IPhoneWindowTest() override {
        window_.reset();
        app_.reset();
    }

    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, windowPatience);
    }
    [[nodiscard]] QListView& appList() const {
        return *window_->findChild<QListView*>(u"appList"_s);
    }
    [[nodiscard]] bool showsApps() const {
        return appList().isVisible() && appList().model()->rowCount() > 0;
    }
    [[nodiscard]] bool showsLetter() const {
        const auto& items = window_->browser().items();
        return !window_->browser().isLoading() && items.size() == 1 &&
               items.front().name == u"letter.txt"_s;
    }
    void clickFirstApp() {
        const QModelIndex first = appList().model()->index(0, 0);
        QTest::mouseClick(appList().viewport(), Qt::LeftButton, {},
                          appList().visualRect(first).center());
    }

    TemporaryFolder local_;
    PluggedIPhone phone_;
    VirtualUsbBus bus_;
    SystemMultiplexer multiplexer_;
    QtProcessRunner processes_;
    DeviceFileService files_{bus_, processes_};
    std::unique_ptr<TessaryApp> app_;
    std::unique_ptr<MainWindow> window_;
};

TEST_F(IPhoneWindowTest, appIsChosenAndItsDocumentsAreCopied) {
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    auto& search = *window_->findChild<QLineEdit*>(u"appSearch"_s);
    QTest::keyClicks(&search, u"zzz"_s);
    EXPECT_TRUE(wait([this] { return !appList().isVisible(); }));
    QTest::keyClick(&search, Qt::Key_Escape);
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    clickFirstApp();
    ASSERT_TRUE(wait([this] { return showsLetter(); }));

    window_->browser().selectAll();
    window_->browserView().actions().download->trigger();
    EXPECT_TRUE(wait([this] { return local_.read(u"letter.txt"_s) == "dear"; }));

    window_->browser().clearSelection();
    window_->browserView().actions().favorite->trigger();
    window_->browserView().actions().apps->trigger();
    EXPECT_TRUE(wait([this] { return showsApps(); }));
    auto& favorites = *window_->findChild<QListView*>(u"favoriteList"_s);
    QCoreApplication::processEvents();
    QTest::mouseClick(favorites.viewport(), Qt::LeftButton, {},
                      favorites.visualRect(favorites.model()->index(0, 0)).center());
    EXPECT_TRUE(wait([this] { return showsLetter() && !appList().isVisible(); }));
}

TEST_F(IPhoneWindowTest, replugReturnsToTheAppThatWasOpen) {
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    clickFirstApp();
    ASSERT_TRUE(wait([this] { return showsLetter(); }));
    phone_.phone.unplug();
    EXPECT_TRUE(wait([this] { return window_->browser().state() == BrowserState::deviceLost; }));
    phone_.phone.plugInto(phone_.mux);
    EXPECT_TRUE(wait(
        [this] { return window_->browser().state() == BrowserState::ready && showsLetter(); }));
}

} // namespace
} // namespace tessary
