#include "WindowFixture.h"
#include "app/views/StatusBanner.h"
#include "support/StallWatch.h"

#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>

namespace tessary {
namespace {

class MainWindowTest : public WindowFixture {};

TEST_F(MainWindowTest, foldersAreEnteredAndLeftByMouseAndKeys) {
    openFolder();
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("readme.md")); }));
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("beta.txt")); }));
    click(QStringLiteral("Trip"));
    press(Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("one.txt")); }));
    press(Qt::Key_Backspace);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("Trip")); }));
    EXPECT_EQ(window_->browser().currentPath(), QStringLiteral("/sdcard/DCIM"));
}

TEST_F(MainWindowTest, typingSelectsAndTheFilterNarrows) {
    openFolder();
    table().setFocus();
    QTest::keyClicks(&table(), QStringLiteral("be"));
    EXPECT_EQ(selectedNames(), QStringList{QStringLiteral("beta.txt")});
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("ALPHA"));
    EXPECT_TRUE(wait([this] { return table().model()->rowCount() == 1; }));
    press(Qt::Key_Escape);
    EXPECT_TRUE(wait([this] { return table().model()->rowCount() == 3; }));
}

TEST_F(MainWindowTest, severalRowsAreSelectedAsOnTheDesktop) {
    openFolder();
    click(QStringLiteral("alpha.txt"));
    click(QStringLiteral("Trip"), Qt::ControlModifier);
    EXPECT_EQ(selectedNames().size(), 2);
    click(QStringLiteral("Trip"));
    click(QStringLiteral("beta.txt"), Qt::ShiftModifier);
    EXPECT_EQ(selectedNames().size(), 3);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedNames().size(), 3);
}

TEST_F(MainWindowTest, renamingInPlaceReachesThePhone) {
    openFolder();
    click(QStringLiteral("alpha.txt"));
    press(Qt::Key_F2);
    auto* editor = table().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(wait([editor] { return editor->selectedText() == QStringLiteral("alpha"); }));
    QTest::keyClicks(editor, QStringLiteral("gamma"));
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("gamma.txt")); }));
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/gamma.txt")), "a");
    EXPECT_TRUE(phone_.content(QStringLiteral("DCIM/alpha.txt")).isNull());
}

TEST_F(MainWindowTest, deletingAsksFirst) {
    openFolder();
    for (const bool confirms : {false, true}) {
        click(QStringLiteral("beta.txt"));
        bool wasAsked = false;
        QTimer::singleShot(200, window_.get(), [&] {
            QWidget* question = QApplication::activeModalWidget();
            ASSERT_NE(question, nullptr);
            wasAsked = true;
            for (QPushButton* button : question->findChildren<QPushButton*>())
                if (button->text().contains(QStringLiteral("Delete")) == confirms) {
                    QTest::mouseClick(button, Qt::LeftButton);
                    return;
                }
        });
        press(Qt::Key_Delete);
        EXPECT_TRUE(wasAsked);
        EXPECT_TRUE(wait([&] { return !confirms || !row(QStringLiteral("beta.txt")).isValid(); }));
        EXPECT_EQ(phone_.content(QStringLiteral("DCIM/beta.txt")).isNull(), confirms);
    }
}

TEST_F(MainWindowTest, newFolderIsMadeAndNamedInPlace) {
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(wait([this] {
        return table().isAncestorOf(QApplication::focusWidget()) &&
               qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
    }));
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(wait([editor] { return editor->selectedText() == QStringLiteral("New Folder"); }));
    QTest::keyClicks(editor, QStringLiteral("Letters"));
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("Letters")); }));
    EXPECT_TRUE(phone_.names().contains(QStringLiteral("Letters")));
}

TEST_F(MainWindowTest, filesAreCopiedBothWaysByShortcutAndDrop) {
    openFolder();
    click(QStringLiteral("alpha.txt"));
    click(QStringLiteral("Trip"), Qt::ControlModifier);
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return !local_.read(QStringLiteral("Trip/one.txt")).isNull(); }));
    EXPECT_TRUE(wait([this] { return window_->transfers().summary().isIdle(); }));
    EXPECT_EQ(local_.read(QStringLiteral("alpha.txt")), "a");

    filesToCopy_ = {local_.write(QStringLiteral("up.txt"), "upwards")};
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("up.txt")); }));
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/up.txt")), "upwards");

    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(local_.write(QStringLiteral("drop.txt"), "dropped"))});
    BrowserView& view = window_->browserView();
    const QPoint onTrip =
        table().viewport()->mapTo(&view, table().visualRect(row(QStringLiteral("Trip"))).center());
    QDragEnterEvent enter(onTrip, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(&view, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(onTrip, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QApplication::sendEvent(&view, &drop);
    EXPECT_TRUE(
        wait([this] { return phone_.content(QStringLiteral("DCIM/Trip/drop.txt")) == "dropped"; }));
}

TEST_F(MainWindowTest, unpluggedPhoneComesBackWhereItWas) {
    openFolder();
    phone_.android.unplug();
    EXPECT_TRUE(wait([this] { return window_->browser().state() == BrowserState::deviceLost; }));
    phone_.android.plugInto(bus_);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("alpha.txt")); }));
    EXPECT_EQ(window_->browser().currentPath(), QStringLiteral("/sdcard/DCIM"));
}

TEST_F(MainWindowTest, lockedPhoneIsExplainedAndFollowedWhenUnlocked) {
    const auto explained = [this] {
        for (const QWidget* page : window_->findChildren<QWidget*>(QStringLiteral("placeholder")))
            if (page->isVisible() &&
                page->accessibleName() == QStringLiteral("This phone is locked"))
                return true;
        return false;
    };
    phone_.android.setLocked(true);
    EXPECT_TRUE(wait(explained));
    phone_.android.setLocked(false);
    EXPECT_TRUE(wait([&] { return !explained() && isShown(QStringLiteral("DCIM")); }));
}

TEST_F(MainWindowTest, programThatHoldsThePhoneIsNamed) {
    VirtualOpenFaults held;
    held.interfaceOpen = held.interfaceSeize = usb::exclusiveAccess;
    bus_.setOpenFaults(phone_.info.usbLocation, held);
    bus_.setProgramsHolding(phone_.info.usbLocation, {QStringLiteral("gvfsd-mtp (process 7)")});
    const auto* banner = window_->findChild<StatusBanner*>(QStringLiteral("statusBanner"));
    EXPECT_TRUE(wait([banner] {
        return banner->isVisible() &&
               banner->accessibleName().contains(QStringLiteral("gvfsd-mtp (process 7)"));
    }));
}

TEST_F(MainWindowTest, mainThreadNeverWaitsForThePhone) {
    for (int i = 0; i < 1500; ++i)
        phone_.write(QStringLiteral("Many/file %1.txt").arg(i), "x");
    phone_.fault([](VirtualFaults& faults) { faults.delayEach = std::chrono::milliseconds(1); });
    press(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return isShown(QStringLiteral("Many")); }));
    const StallWatch watch;
    doubleClick(QStringLiteral("Many"));
    ASSERT_TRUE(wait([this] { return isShown(QStringLiteral("file 7.txt")); }));
    press(Qt::Key_A, Qt::ControlModifier);
    window_->browser().setSearchText(QStringLiteral("12"));
    EXPECT_TRUE(wait([this] { return table().model()->rowCount() < 200; }));
    RecordProperty("longestStallMs", std::to_string(watch.longest()));
    std::printf("longest stall of the main thread: %lld ms\n",
                static_cast<long long>(watch.longest()));
}

} // namespace
} // namespace tessary
