#include "WindowFixture.h"
#include "simulator/adbd/VirtualADBD.h"

#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Keeps the phone's folder DCIM in step with a local one, by the window's own dialogs.
class SyncWindowTest : public WindowFixture {
protected:
    [[nodiscard]] QDialog* dialog(const char* name) const {
        for (QDialog* each : window_->findChildren<QDialog*>(QString::fromLatin1(name)))
            if (each->isVisible())
                return each;
        return nullptr;
    }
    /// Clicks a button of a dialog with the mouse, once the dialog is there and the button can be.
    void clickButton(const char* dialogName, const QString& text) {
        ASSERT_TRUE(wait([&] {
            QDialog* shown = dialog(dialogName);
            if (shown == nullptr)
                return false;
            for (QPushButton* button : shown->findChildren<QPushButton*>())
                if (button->text() == text && button->isEnabled()) {
                    QTest::mouseClick(button, Qt::LeftButton);
                    return true;
                }
            return false;
        })) << dialogName;
    }
    /// The form of a new pair, with its folder typed in.
    void openSheet() {
        openFolder();
        press(Qt::Key_Y, Qt::ControlModifier);
        QWidget* panel = window_->findChild<QWidget*>(u"syncPanel"_s);
        ASSERT_TRUE(wait([&] { return panel->isVisible(); }));
        for (QPushButton* button : panel->findChildren<QPushButton*>())
            if (button->text() == u"Sync This Folder…"_s)
                QTest::mouseClick(button, Qt::LeftButton);
        ASSERT_TRUE(wait([this] { return dialog("syncPairDialog") != nullptr; }));
        auto* folder = dialog("syncPairDialog")->findChild<QLineEdit*>(u"syncLocalFolder"_s);
        folder->selectAll();
        QTest::keyClicks(folder, local_.path());
    }
    void makePair() {
        ASSERT_NO_FATAL_FAILURE(openSheet());
        clickButton("syncPairDialog", u"Show What Will Happen"_s);
    }
    [[nodiscard]] bool hasSynced() const {
        const auto& pairs = app_->syncManager().syncPairs();
        return pairs.size() == 1 && pairs.front().status.kind == SyncStatus::Kind::completed &&
               !app_->syncManager().isRunning();
    }
    void runAgain() {
        window_->sync().run(app_->syncManager().syncPairs().front().id);
    }
    void syncOnce() {
        ASSERT_NO_FATAL_FAILURE(makePair());
        clickButton("syncPreview", u"Sync Now"_s);
        ASSERT_TRUE(wait([this] { return hasSynced(); }));
    }
    /// Deletes a file here, and syncs until that is asked about.
    void deleteAndRun() {
        QFile::remove(local_.path(u"alpha.txt"_s));
        runAgain();
        ASSERT_TRUE(wait([this] { return dialog("syncQuestion") != nullptr; }));
    }
};

TEST_F(SyncWindowTest, returnGoesOnFromTheSheetAndFromThePreview) {
    ASSERT_NO_FATAL_FAILURE(openSheet());
    QTest::keyClick(dialog("syncPairDialog")->findChild<QLineEdit*>(u"syncLocalFolder"_s),
                    Qt::Key_Return);
    clickButton("syncPreview", u"Cancel"_s);
    ASSERT_TRUE(wait([this] { return dialog("syncPairDialog") != nullptr; })) << "as it was";
    EXPECT_EQ(dialog("syncPairDialog")->findChild<QLineEdit*>(u"syncLocalFolder"_s)->text(),
              local_.path());
    clickButton("syncPairDialog", u"Show What Will Happen"_s);
    ASSERT_TRUE(wait([this] {
        const QDialog* shown = dialog("syncPreview");
        return shown != nullptr && shown->findChild<QTreeWidget*>()->topLevelItemCount() == 3;
    }));
    EXPECT_FALSE(local_.has(u"alpha.txt"_s)) << "a preview does nothing";
    QTest::keyClick(dialog("syncPreview")->findChild<QTreeWidget*>(), Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return hasSynced(); }));
    EXPECT_EQ(local_.read(u"alpha.txt"_s), "a");

    local_.write(u"new.txt"_s, "new");
    runAgain();
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/new.txt"_s) == "new"; }));
    EXPECT_TRUE(wait([this] { return isShown(u"new.txt"_s); })) << "the folder shown is read again";
}

TEST_F(SyncWindowTest, phoneOnTheNetworkIsBrowsedSyncedAndCopiedToWithoutADB) {
    VirtualADBD adbd({.folder = phone_.disk.path(u"0"_s)});
    adbd.start();
    close();
    phone_.android.unplug();
    open({bus_, nullptr, true});
    EXPECT_EQ(list("deviceList").model()->rowCount(), 0);
    services_.adbWays().connect(adbd.address(), {});
    ASSERT_TRUE(wait([this] { return list("deviceList").model()->rowCount() == 1; }));
    clickRow(list("deviceList"), 0);
    browse();
    ASSERT_NO_FATAL_FAILURE(syncOnce());
    EXPECT_EQ(local_.read(u"Trip/one.txt"_s), "one");
    const TemporaryFolder elsewhere;
    filesToCopy_ = {elsewhere.write(u"up.txt"_s, "up")};
    click(u"alpha.txt"_s); // into the files again
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return isShown(u"up.txt"_s); }));
    EXPECT_EQ(phone_.content(u"DCIM/up.txt"_s), "up");
}

TEST_F(SyncWindowTest, deletionIsAskedAboutAndOnlyThenDone) {
    ASSERT_NO_FATAL_FAILURE(syncOnce());
    ASSERT_NO_FATAL_FAILURE(deleteAndRun());
    // What one presses without reading changes nothing.
    QTest::keyClick(dialog("syncQuestion"), Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return !app_->syncManager().isRunning(); }));
    EXPECT_FALSE(local_.has(u"alpha.txt"_s));
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");

    ASSERT_NO_FATAL_FAILURE(deleteAndRun());
    clickButton("syncQuestion", u"Keep"_s);
    EXPECT_TRUE(wait([this] { return hasSynced(); }));
    EXPECT_EQ(local_.read(u"alpha.txt"_s), "a") << "what is kept comes back";

    ASSERT_NO_FATAL_FAILURE(deleteAndRun());
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");
    clickButton("syncQuestion", u"Delete"_s);
    EXPECT_TRUE(wait([this] { return hasSynced() && !row(u"alpha.txt"_s).isValid(); }));
}

TEST_F(SyncWindowTest, deletionAndConflictAreDecidedInThePreview) {
    ASSERT_NO_FATAL_FAILURE(syncOnce());
    QFile::remove(local_.path(u"alpha.txt"_s));
    QFile::remove(local_.path(u"beta.txt"_s));
    local_.write(u"both.txt"_s, "mine");
    phone_.write(u"DCIM/both.txt"_s, "theirs");
    window_->sync().requestPreview(app_->syncManager().syncPairs().front());
    ASSERT_TRUE(wait([this] {
        QDialog* shown = dialog("syncPreview");
        return shown != nullptr && shown->findChild<QTreeWidget*>()->topLevelItemCount() >= 2;
    }));
    auto* list = dialog("syncPreview")->findChild<QTreeWidget*>();
    for (const auto* button : dialog("syncPreview")->findChildren<QPushButton*>())
        EXPECT_EQ(button->isDefault(), button->text() == u"Cancel") << "Return deletes nothing";
    for (int n = 0; n < list->topLevelItemCount(); ++n)
        if (list->topLevelItem(n)->text(0) == u"alpha.txt"_s)
            list->topLevelItem(n)->setCheckState(0, Qt::Unchecked);
    auto* choice = list->findChild<QComboBox*>();
    ASSERT_NE(choice, nullptr);
    choice->setCurrentIndex(choice->findText(u"Keep this computer's"_s));
    clickButton("syncPreview", u"Sync Now"_s);
    EXPECT_TRUE(wait([this] {
        return hasSynced() && phone_.content(u"DCIM/both.txt"_s) == "mine" &&
               local_.has(u"alpha.txt"_s);
    }));
    EXPECT_EQ(dialog("syncQuestion"), nullptr) << "all was decided";

    window_->sync().requestReports(app_->syncManager().syncPairs().front().id);
    ASSERT_TRUE(wait([this] {
        QDialog* shown = dialog("syncReports");
        return shown != nullptr && shown->findChild<QTreeWidget*>()->topLevelItemCount() > 0;
    })) << "every run leaves a report";
    dialog("syncReports")->close();
}

} // namespace
} // namespace tessary
