#include "views/tabs/Tabs.h"
#include "WindowFixture.h"
#include "views/common/WindowStateStore.h"
#include "views/listing/TranslatedFileModel.h"
#include "views/window/Panes.h"
#include "views/window/WindowSession.h"

#include <QJsonObject>
#include <QMenuBar>
#include <QStyle>
#include <QTabBar>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class TabsTest : public WindowFixture {
protected:
    [[nodiscard]] QTabBar& bar() const {
        return *window_->findChild<QTabBar*>(u"tabBar"_s);
    }
    [[nodiscard]] const std::vector<PhoneTab*>& tabs() const {
        return window_->findChild<Tabs*>()->all();
    }
    [[nodiscard]] QString path() const {
        return window_->browser().currentPath();
    }
    [[nodiscard]] bool isIn(const QString& folder) const {
        return path() == folder && !window_->browser().isLoading() && table().hasFocus();
    }
    /// Has the window of a new start of the program begin where the last one ended.
    void startAgain() {
        close();
        open(bus_);
        session_ = std::make_unique<WindowSession>(*window_, *defaults_);
        session_->reopen();
    }
    void close() {
        session_.reset();
        AppWindowFixture::close();
    }
    ~TabsTest() override {
        close();
    }
    [[nodiscard]] QStringList titles() const {
        QStringList all;
        for (int i = 0; i < bar().count(); ++i)
            all.append(bar().tabText(i));
        return all;
    }
    [[nodiscard]] QPoint middleOf(int tab) const {
        return bar().tabRect(tab).center();
    }
    void middleClick(const QString& name) const {
        QTest::mouseClick(table().viewport(), Qt::MiddleButton, {},
                          table().visualRect(row(name)).center());
    }

    std::unique_ptr<WindowSession> session_ = std::make_unique<WindowSession>(*window_, *defaults_);
};

TEST_F(TabsTest, eachTabHasAPlaceAndKeysOfItsOwn) {
    openFolder();
    EXPECT_FALSE(bar().isVisible());
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(bar().isVisible());
    ASSERT_TRUE(wait([this] { return isIn(u"/sdcard/DCIM"_s); })) << "where one was";
    press(Qt::Key_Up, Qt::AltModifier);
    ASSERT_TRUE(wait([this] { return isIn(u"/sdcard"_s) && isShown(u"readme.md"_s); }));
    EXPECT_EQ(bar().tabText(0), u"DCIM"_s);
    EXPECT_EQ(bar().tabText(1), u"Internal Storage"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_FALSE(window_->browser().selection().ids().isEmpty());
    EXPECT_FALSE(list("shortcutList").currentIndex().isValid());

    press(Qt::Key_PageUp, Qt::ControlModifier);
    ASSERT_TRUE(wait([this] { return isIn(u"/sdcard/DCIM"_s); }));
    EXPECT_TRUE(selectedNames().isEmpty()) << "the other's";
    EXPECT_TRUE(wait([this] { return list("shortcutList").currentIndex().isValid(); }));
    click(u"beta.txt"_s);
    whileAsked(u"Delete"_s);
    press(Qt::Key_Delete);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/beta.txt"_s).isNull(); }));
    EXPECT_TRUE(phone_.names().contains(u"readme.md"_s));

    activate();
    press(Qt::Key_Tab, Qt::ControlModifier);
    ASSERT_TRUE(wait([this] { return isIn(u"/sdcard"_s); }));
    click(u"readme.md"_s);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_W, Qt::ControlModifier);
    ASSERT_TRUE(wait([this] { return isIn(u"/sdcard/DCIM"_s); }));
    EXPECT_FALSE(bar().isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/readme.md"_s) == "hello"; }))
        << "what was copied stays, and the keys are back";
    ASSERT_TRUE(wait([this] { return window_->copyQueue().summary().isIdle(); }));
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window_->isVisible()) << "with the last one goes the window";
}

TEST_F(TabsTest, aFolderOpensBehindAndTakesWhatIsDroppedOnItsTab) {
    phone_.write(u"DCIM/Tour/two.txt"_s, "2");
    openFolder();
    click(u"Trip"_s);
    press(Qt::Key_Return, Qt::ControlModifier);
    middleClick(u"alpha.txt"_s);
    ASSERT_EQ(bar().count(), 2) << "a file is no folder";
    EXPECT_EQ(path(), u"/sdcard/DCIM"_s) << "what is shown stays";
    ASSERT_TRUE(wait([this] { return bar().tabText(1) == u"Trip"_s; }));
    ASSERT_TRUE(wait([this] { return !tabs()[1]->browser().isLoading(); }));

    const QString id = row(u"alpha.txt"_s).data(FileListModel::idRole).toString();
    const EntryMimeData dragged(window_->browser().files(), {*window_->browser().itemWithId(id)});
    const auto hover = [&](int tab) { return drag(bar(), middleOf(tab), dragged); };
    EXPECT_FALSE(hover(0)) << "it is there already";
    ASSERT_TRUE(hover(1));
    drop(bar(), middleOf(1), dragged);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/alpha.txt"_s) == "a"; }));
    EXPECT_TRUE(phone_.content(u"DCIM/alpha.txt"_s).isNull());

    // Where a drag rests, its tab is shown; one that went on in time is not.
    (void)hover(1);
    QDragLeaveEvent leave;
    QApplication::sendEvent(&bar(), &leave);
    QTest::qWait(2 * bar().style()->styleHint(QStyle::SH_TabBar_ChangeCurrentDelay));
    EXPECT_EQ(bar().currentIndex(), 0);
    (void)hover(1);
    EXPECT_TRUE(wait([this] { return isIn(u"/sdcard/DCIM/Trip"_s); }));

    press(Qt::Key_Up, Qt::AltModifier);
    ASSERT_TRUE(wait([this] { return isIn(u"/sdcard/DCIM"_s) && isShown(u"Tour"_s); }));
    click(u"Trip"_s);
    click(u"Tour"_s, Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(bar().count(), 4) << "each in its own";
}

TEST_F(TabsTest, theyComeBackAsTheyWereMovedAtTheNextStart) {
    session_->reopen();
    openFolder();
    middleClick(u"Trip"_s);
    ASSERT_TRUE(wait([this] { return titles() == QStringList{u"DCIM"_s, u"Trip"_s}; }));
    const QPoint to = middleOf(1) + QPoint(bar().tabRect(1).width() / 2, 0);
    QTest::mousePress(&bar(), Qt::LeftButton, {}, middleOf(0));
    QTest::mouseMove(&bar(), (middleOf(0) + to) / 2);
    QTest::mouseMove(&bar(), to);
    QTest::mouseRelease(&bar(), Qt::LeftButton, {}, to);
    ASSERT_TRUE(wait([this] { return titles() == QStringList{u"Trip"_s, u"DCIM"_s}; }));
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return isIn(u"/sdcard/DCIM/Trip"_s); })) << "what is shown moved too";
    local_.write(u"beside/a.txt"_s, "a");
    Panes& other = window_->openWindow({phone_.info.udid, std::nullopt, u"/sdcard"_s}).panes();
    other.split(local_.path(u"beside"_s));
    ASSERT_TRUE(wait([&] { return other.localFolder() == local_.path(u"beside"_s); }));
    defaults_->setValue(LocalPane::folderKey, u"/"_s);
    activate();
    press(Qt::Key_Q, Qt::ControlModifier);
    phone_.android.unplug();

    startAgain();
    EXPECT_EQ(titles(), (QStringList{u"Trip"_s, u"DCIM"_s})) << "the phone is not there yet";
    ASSERT_EQ(window_->allWindows().size(), 2U);
    EXPECT_FALSE(window_->browser().problem());
    PluggedPhone another(bus_, phoneConfig("ANOTHER", "1-2"));
    phone_.android.plugInto(bus_);
    EXPECT_TRUE(wait([this] { return path() == u"/sdcard/DCIM/Trip"_s && isShown(u"one.txt"_s); }));
    EXPECT_EQ(tabs()[1]->browser().currentPath(), u"/sdcard/DCIM"_s);
    EXPECT_EQ(window_->allWindows()[1]->browser().currentPath(), u"/sdcard"_s);
    EXPECT_FALSE(window_->panes().localFolder());
    EXPECT_TRUE(wait([&] {
        return window_->allWindows()[1]->panes().localFolder() == local_.path(u"beside"_s);
    }));

    defaults_->setValue(WindowStateStore::openTabsKey,
                        QJsonArray{5, QJsonObject{{u"tabs"_s, QJsonArray{u"x"_s, QJsonObject()}}}});
    startAgain();
    EXPECT_EQ(window_->allWindows().size(), 1U) << "nonsense opens nothing";
    close();
}

TEST_F(TabsTest, quittingAsksOnceAndClosesAllWindowsOrNone) {
    MainWindow& second = window_->openWindow(window_->place());
    activate();
    openFolder();
    click(u"alpha.txt"_s);
    phone_.fault([](VirtualFaults& faults) { faults.delayEach = std::chrono::seconds(5); });
    press(Qt::Key_D, Qt::ControlModifier);
    ASSERT_TRUE(wait([this] { return !window_->copyQueue().summary().isIdle(); }));
    for (const bool agrees : {false, true}) {
        int asked = 0;
        whileAsked(agrees ? u"Quit Tessary"_s : u"Cancel"_s, [&] { ++asked; });
        activate();
        press(Qt::Key_Q, Qt::ControlModifier);
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(window_->isVisible(), !agrees);
        EXPECT_TRUE(agrees || second.isVisible());
    }
}

} // namespace
} // namespace tessary
