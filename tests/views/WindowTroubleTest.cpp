#include "WindowFixture.h"

#include <QDir>
#include <QLabel>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// What goes wrong under the user's hands.
class WindowTroubleTest : public WindowFixture {};

TEST_F(WindowTroubleTest, phoneMayGoUnderAnOpenQuestion) {
    openFolder();
    click(u"alpha.txt"_s);
    whileAsked(u"Delete"_s, [this] {
        phone_.android.unplug();
        EXPECT_TRUE(
            wait([this] { return window_->browser().state() == BrowserState::deviceLost; }));
    });
    press(Qt::Key_Delete);
    phone_.android.plugInto(bus_);
    EXPECT_TRUE(wait([this] { return isShown(u"alpha.txt"_s); }))
        << "nothing is deleted on a phone that went away meanwhile";
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");
}

/// Paths tell the entries of one folder apart, not those of two phones.
TEST_F(WindowTroubleTest, answersCountOnlyForThePhoneThatWasAskedAbout) {
    VirtualAndroidConfig config;
    config.serialNumber = u"SECOND"_s;
    config.location = u"1-7"_s;
    PluggedPhone second(bus_, config);
    second.write(u"DCIM/kept.txt"_s, "kept");
    second.write(u"other.txt"_s, "other");
    filesToCopy_ = {local_.write(u"up.txt"_s, "up")};
    whileChoosing_ = [&] {
        phone_.android.unplug();
        EXPECT_TRUE(wait([this] { return isShown(u"other.txt"_s); }));
    };
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(window_->browser().error());
    EXPECT_TRUE(window_->transfers().jobs().empty());

    phone_.android.plugInto(bus_);
    click(u"DCIM"_s);
    whileAsked(u"Delete"_s, [&] {
        for (const QLabel* label : QApplication::activeModalWidget()->findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << "a name may look like HTML";
        second.android.unplug();
        EXPECT_TRUE(wait([this] { return isShown(u"readme.md"_s); }));
    });
    press(Qt::Key_Delete);
    EXPECT_FALSE(window_->browser().isEditing());
    for (const QLabel* label : window_->findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
}

TEST_F(WindowTroubleTest, folderThatVanishesLeadsBackToWhatIsLeft) {
    openFolder();
    doubleClick(u"Trip"_s);
    ASSERT_TRUE(wait([this] { return isShown(u"one.txt"_s); }));
    ASSERT_TRUE(QDir(phone_.disk.path(u"0/DCIM/Trip"_s)).removeRecursively());
    press(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return window_->browser().state() == BrowserState::folderGone; }));
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(wait([this] { return isShown(u"alpha.txt"_s); }));
}

} // namespace
} // namespace tessary
