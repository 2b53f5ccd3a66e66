#include "WindowFixture.h"
#include "support/StallWatch.h"
#include "views/common/ProblemText.h"

#include <QClipboard>
#include <QPushButton>
#include <QToolButton>

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
        EXPECT_TRUE(window_->findChild<QLabel*>(u"noDevices"_s)->isVisible());
    });
    press(Qt::Key_Delete);
    phone_.android.plugInto(bus_);
    EXPECT_TRUE(wait([this] { return isShown(u"alpha.txt"_s); }))
        << "nothing is deleted on a phone that went away meanwhile";
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");
}

TEST_F(WindowTroubleTest, theQuestionBeforeDeletingNamesWhatGoes) {
    const std::tuple<QStringList, QString, QString> rows[] = {
        // selected, asked, below it
        {{u"readme.md"_s}, u"Delete “readme.md”?"_s, u"This cannot be undone."_s},
        {{u"DCIM"_s}, u"Delete the folder “DCIM” and the 4 items in it?"_s, u"undone"_s},
        {{u"DCIM"_s, u"readme.md"_s}, u"Delete 2 items?"_s, u"DCIM\nreadme.md\n"_s},
    };
    for (const auto& [names, asked, below] : rows) {
        click(names.first());
        if (names.size() > 1)
            click(names.last(), Qt::ControlModifier);
        bool isSaid = false;
        whileAsked(u"Cancel"_s, [&] {
            isSaid = wait([&] { return question()->text() == asked; }) &&
                     question()->informativeText().contains(below);
        });
        press(Qt::Key_Delete);
        EXPECT_TRUE(isSaid) << asked.toStdString();
    }
}

/// Paths tell the entries of one folder apart, not those of two phones.
TEST_F(WindowTroubleTest, answersCountOnlyForThePhoneThatWasAskedAbout) {
    PluggedPhone second(bus_, phoneConfig("SECOND", "1-7"));
    second.write(u"DCIM/kept.txt"_s, "kept");
    second.write(u"other.txt"_s, "other");
    filesToCopy_ = {local_.write(u"up.txt"_s, "up")};
    whileChoosing_ = [&] {
        phone_.android.unplug();
        EXPECT_TRUE(wait([this] { return isShown(u"other.txt"_s); }));
    };
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(window_->browser().problem());
    EXPECT_TRUE(window_->copyQueue().jobs().empty());

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

TEST_F(WindowTroubleTest, aRefusedNewNameIsNamed) {
    EXPECT_EQ(problemText(BrowserProblem::of(BrowserProblem::What::rename, u"a.txt"_s,
                                             Error(PhoneError::nameNotAllowed, {u"a/b"_s})))
                  .text(),
              u"“a.txt” could not be renamed: “a/b” cannot be a name on the phone."_s);
}

TEST_F(WindowTroubleTest, theNumbersBehindAFailureAreFoldedAwayAndCanBeCopied) {
    openFolder();
    phone_.refuse(MTPOperationCode::deleteObject, MTPResponseCode::accessDenied);
    click(u"alpha.txt"_s);
    whileAsked(u"Delete"_s, [] {});
    press(Qt::Key_Delete);
    ASSERT_TRUE(wait([&] { return banner().isVisible(); }));
    auto* fold = banner().findChild<QToolButton*>(u"errorDetailsFold"_s);
    const auto* text = banner().findChild<QLabel*>(u"errorDetailsText"_s);
    ASSERT_TRUE(fold->isVisible());
    EXPECT_FALSE(text->isVisible());
    activate();
    fold->setFocus();
    QTest::keyClick(fold, Qt::Key_Space); // which is the listing's where that has the keys
    EXPECT_TRUE(text->isVisible());
    EXPECT_TRUE(text->text().contains(u"0x200f"_s)) << text->text().toStdString();
    QTest::mouseClick(banner().findChild<QToolButton*>(u"errorDetailsCopy"_s), Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text->text());
    window_->browser().showProblem({BrowserProblem::What::otherFolder, {}, 1, 1, {}});
    EXPECT_FALSE(fold->isVisible()) << "there is nothing behind it";
}

TEST_F(WindowTroubleTest, programsThatHoldAPhoneAreEndedOnceTheUserHasAgreed) {
    VirtualOpenFaults faults;
    faults.interfaceOpen = faults.interfaceSeize = usb::exclusiveAccess;
    phone_.android.unplug();
    bus_.setOpenFaults(phone_.android.config().location, faults);
    bus_.setProgramsHolding(phone_.android.config().location, {u"gvfsd-mtp (2841)"_s});
    processes_.setHolders({"kiod6", "gvfsd-mtp", "gvfsd-mtp"});
    phone_.android.plugInto(bus_);
    const auto buttons = [this] {
        QList<QAbstractButton*> shown;
        for (QAbstractButton* button : window_->findChildren<QAbstractButton*>())
            if (button->isVisible() && button->text() == u"Release the Phone"_s)
                shown << button;
        return shown;
    };
    ASSERT_TRUE(wait([&] { return buttons().size() == 1 && !banner().isVisible(); }))
        << buttons().size();
    for (const QPushButton* button : window_->findChildren<QPushButton*>())
        EXPECT_FALSE(button->isVisible() && button->text() == u"Retry"_s);

    const auto answer = [&](const QList<Qt::Key>& keys) {
        QTest::keyClick(buttons().value(0), Qt::Key_Space);
        ASSERT_TRUE(wait([] { return question() != nullptr; }));
        EXPECT_TRUE(question()->text().endsWith(u": gvfsd-mtp, kiod6"_s));
        for (const Qt::Key key : keys)
            QTest::keyClick(question()->focusWidget(), key);
        EXPECT_TRUE(wait([] { return question() == nullptr; }));
    };
    for (const Qt::Key refuses : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape}) {
        answer({refuses});
        EXPECT_EQ(processes_.ended(), QString());
    }
    answer({Qt::Key_Tab, Qt::Key_Space});
    EXPECT_TRUE(wait([this] { return processes_.ended() == u"gvfsd-mtp|kiod6"_s; }));
}

TEST_F(WindowTroubleTest, mainThreadNeverWaitsForThePhone) {
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
