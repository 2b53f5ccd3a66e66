#include "WindowFixture.h"
#include "support/StallWatch.h"

#include <QLineEdit>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class MainWindowTest : public WindowFixture {};

TEST_F(MainWindowTest, newFolderIsMadeAndNamedInPlace) {
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(wait([this] {
        return table().isAncestorOf(QApplication::focusWidget()) &&
               qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
    }));
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(wait([editor] { return editor->selectedText() == u"New Folder"_s; }));
    QTest::keyClicks(editor, u"Letters"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return isShown(u"Letters"_s); }));
    EXPECT_TRUE(phone_.names().contains(u"Letters"_s));
}

TEST_F(MainWindowTest, mainThreadNeverWaitsForThePhone) {
    for (int i = 0; i < 1500; ++i)
        phone_.write(u"Many/file %1.txt"_s.arg(i), "x");
    phone_.fault([](VirtualFaults& faults) { faults.delayEach = std::chrono::milliseconds(1); });
    press(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return isShown(u"Many"_s); }));
    const StallWatch watch;
    doubleClick(u"Many"_s);
    ASSERT_TRUE(wait([this] { return isShown(u"file 7.txt"_s); }));
    press(Qt::Key_A, Qt::ControlModifier);
    window_->browser().setSearchText(u"12"_s);
    EXPECT_TRUE(wait([this] { return table().model()->rowCount() < 200; }));
    // Sanitizers slow all; a wait for the phone would last its 1,500 answers or its time limit.
    EXPECT_LT(watch.longest(), 1000);
}

} // namespace
} // namespace tessary
