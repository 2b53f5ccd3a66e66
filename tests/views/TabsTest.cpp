#include "views/tabs/Tabs.h"
#include "WindowFixture.h"
#include "views/listing/TranslatedFileModel.h"

#include <QDropEvent>
#include <QMenuBar>
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
    void middleClick(const QString& name) const {
        QTest::mouseClick(table().viewport(), Qt::MiddleButton, {},
                          table().visualRect(row(name)).center());
    }
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
    press(Qt::Key_PageDown, Qt::ControlModifier);
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

TEST_F(TabsTest, aFolderOpensBehindByTheMiddleButtonAndTakesWhatIsDroppedOnItsTab) {
    openFolder();
    middleClick(u"Trip"_s);
    middleClick(u"alpha.txt"_s);
    ASSERT_EQ(bar().count(), 2) << "a file is no folder";
    EXPECT_EQ(path(), u"/sdcard/DCIM"_s) << "what is shown stays";
    ASSERT_TRUE(wait([this] { return bar().tabText(1) == u"Trip"_s; }));
    ASSERT_TRUE(wait([this] { return !tabs()[1]->browser().isLoading(); }));

    const QString id = row(u"alpha.txt"_s).data(FileListModel::idRole).toString();
    const EntryMimeData dragged(window_->browser().files(), {*window_->browser().itemWithId(id)});
    const auto drop = [&](int tab) {
        const QPoint spot = bar().tabRect(tab).center();
        const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
        QDragEnterEvent enter(spot, actions, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(&bar(), &enter);
        QDragMoveEvent move(spot, actions, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(&bar(), &move);
        QDropEvent end(spot, actions, &dragged, Qt::LeftButton, {});
        if (move.isAccepted())
            QApplication::sendEvent(&bar(), &end);
        return move.isAccepted();
    };
    EXPECT_FALSE(drop(0)) << "it is there already";
    EXPECT_TRUE(drop(1));
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/alpha.txt"_s) == "a"; }));
    EXPECT_TRUE(phone_.content(u"DCIM/alpha.txt"_s).isNull());
}

TEST_F(TabsTest, quittingAsksOnceAndClosesAllWindowsOrNone) {
    MainWindow& second = window_->openWindow();
    activate();
    phone_.fault([](VirtualFaults& faults) { faults.delayEach = std::chrono::milliseconds(500); });
    openFolder();
    click(u"alpha.txt"_s);
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
