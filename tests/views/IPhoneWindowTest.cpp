#include "WindowFixture.h"
#include "ios/Multiplexer.h"
#include "support/PluggedIPhone.h"

#include <QLineEdit>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A window with an iPhone and no other phone.
class IPhoneWindowTest : public AppWindowFixture {
protected:
    explicit IPhoneWindowTest(const VirtualIPhoneConfig& config = {}) : phone_(config) {
        phone_.write(u"letter.txt"_s, "dear");
        open(DeviceSources(bus_, &multiplexer_));
    }
    ~IPhoneWindowTest() override {
        close();
    }

    [[nodiscard]] QListView& appList() const {
        return list("appList");
    }
    [[nodiscard]] bool showsApps() const {
        return appList().isVisible() && appList().model()->rowCount() > 0;
    }
    [[nodiscard]] bool showsLetter() const {
        const auto& items = window_->browser().items();
        return !window_->browser().isLoading() && items.size() == 1 &&
               items.front().name == u"letter.txt"_s;
    }

    PluggedIPhone phone_;
    SystemMultiplexer multiplexer_;
};

TEST_F(IPhoneWindowTest, appIsChosenAndItsDocumentsAreCopied) {
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    auto& search = *window_->findChild<QLineEdit*>(u"appSearch"_s);
    QTest::keyClicks(&search, u"zzz"_s);
    EXPECT_TRUE(wait([this] { return !appList().isVisible(); }));
    QTest::keyClick(&search, Qt::Key_Escape);
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    clickRow(appList(), 0);
    ASSERT_TRUE(wait([this] { return showsLetter(); }));

    window_->browser().selectAll();
    window_->browserView().actions().download->trigger();
    EXPECT_TRUE(wait([this] { return local_.read(u"letter.txt"_s) == "dear"; }));

    window_->browser().clearSelection();
    window_->browserView().actions().favorite->trigger();
    window_->browserView().actions().apps->trigger();
    EXPECT_TRUE(wait([this] { return showsApps(); }));
    clickRow(list("favoriteList"), 0);
    EXPECT_TRUE(wait([this] { return showsLetter() && !appList().isVisible(); }));
}

TEST_F(IPhoneWindowTest, replugReturnsToTheAppThatWasOpen) {
    ASSERT_TRUE(wait([this] { return showsApps(); }));
    clickRow(appList(), 0);
    ASSERT_TRUE(wait([this] { return showsLetter(); }));
    phone_.phone.unplug();
    EXPECT_TRUE(wait([this] { return window_->browser().state() == BrowserState::deviceLost; }));
    phone_.phone.plugInto(phone_.mux);
    EXPECT_TRUE(wait(
        [this] { return window_->browser().state() == BrowserState::ready && showsLetter(); }));
}

/// The page of an iPhone that cannot be read yet.
class WaitingIPhoneWindowTest : public IPhoneWindowTest {
protected:
    using IPhoneWindowTest::IPhoneWindowTest;

    [[nodiscard]] bool saysWhatToDo(const QString& advice) const {
        const auto& device = app_->deviceManager().devices();
        const auto trouble =
            device.size() == 1 ? app_->deviceManager().trouble(device[0].id()) : std::nullopt;
        return trouble && trouble->advice == advice && !showsApps();
    }
    /// Shown by itself, within the time that a person would take for "at once".
    [[nodiscard]] bool showsAppsSoon() const {
        return QTest::qWaitFor([this] { return showsApps(); }, 2000);
    }
};

class UntrustingIPhoneWindowTest : public WaitingIPhoneWindowTest {
protected:
    UntrustingIPhoneWindowTest() : WaitingIPhoneWindowTest(wishes()) {}
    static VirtualIPhoneConfig wishes() {
        VirtualIPhoneConfig config;
        config.isPaired = false;
        config.trust = VirtualTrust::asking;
        return config;
    }
};

TEST_F(UntrustingIPhoneWindowTest, itsAppsAreShownOnceItTrustsThisComputer) {
    ASSERT_TRUE(wait([this] { return saysWhatToDo(u"Unlock the phone and tap Trust on it."_s); }));
    EXPECT_EQ(phone_.count("lockdown.Pair"), 1U);
    phone_.phone.setTrust(VirtualTrust::trusted);
    EXPECT_TRUE(showsAppsSoon());
    EXPECT_EQ(phone_.count("lockdown.Pair"), 1U);
}

class LockedIPhoneWindowTest : public WaitingIPhoneWindowTest {
protected:
    LockedIPhoneWindowTest() : WaitingIPhoneWindowTest(wishes()) {}
    static VirtualIPhoneConfig wishes() {
        VirtualIPhoneConfig config;
        config.isLocked = true;
        return config;
    }
};

TEST_F(LockedIPhoneWindowTest, itsAppsAreShownOnceItIsUnlocked) {
    ASSERT_TRUE(wait([this] { return saysWhatToDo(u"Unlock the phone and try again."_s); }));
    phone_.phone.setLocked(false);
    EXPECT_TRUE(showsAppsSoon());
}

} // namespace
} // namespace tessary
