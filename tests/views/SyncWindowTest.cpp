#include "WindowFixture.h"

#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

namespace tessary {
namespace {

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
    void makePair() {
        openFolder();
        press(Qt::Key_Y, Qt::ControlModifier);
        QWidget* panel = window_->findChild<QWidget*>(QStringLiteral("syncPanel"));
        ASSERT_TRUE(wait([&] { return panel->isVisible(); }));
        for (QPushButton* button : panel->findChildren<QPushButton*>())
            if (button->text() == QStringLiteral("Sync This Folder…"))
                QTest::mouseClick(button, Qt::LeftButton);
        ASSERT_TRUE(wait([this] { return dialog("syncPairSheet") != nullptr; }));
        auto* folder =
            dialog("syncPairSheet")->findChild<QLineEdit*>(QStringLiteral("syncLocalFolder"));
        folder->selectAll();
        QTest::keyClicks(folder, local_.path());
        clickButton("syncPairSheet", QStringLiteral("Show What Will Happen"));
    }
    [[nodiscard]] bool hasSynced() const {
        const auto& pairs = app_->syncManager().syncPairs();
        return pairs.size() == 1 && pairs.front().status.kind == SyncStatus::Kind::completed &&
               !app_->syncManager().isRunning();
    }
    void runAgain() {
        window_->sync().run(app_->syncManager().syncPairs().front().id);
    }
};

TEST_F(SyncWindowTest, pairIsMadePreviewedAndRun) {
    ASSERT_NO_FATAL_FAILURE(makePair());
    ASSERT_TRUE(wait([this] {
        const QDialog* shown = dialog("syncPreview");
        return shown != nullptr && shown->findChild<QTreeWidget*>()->topLevelItemCount() == 3;
    }));
    EXPECT_FALSE(local_.has(QStringLiteral("alpha.txt"))) << "a preview does nothing";
    clickButton("syncPreview", QStringLiteral("Sync Now"));
    EXPECT_TRUE(wait([this] { return hasSynced(); }));
    EXPECT_EQ(local_.read(QStringLiteral("Trip/one.txt")), "one");

    local_.write(QStringLiteral("new.txt"), "new");
    runAgain();
    EXPECT_TRUE(wait([this] { return phone_.content(QStringLiteral("DCIM/new.txt")) == "new"; }));
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("new.txt")); }))
        << "the folder shown is read again";
}

TEST_F(SyncWindowTest, deletionIsAskedAboutAndOnlyThenDone) {
    ASSERT_NO_FATAL_FAILURE(makePair());
    clickButton("syncPreview", QStringLiteral("Sync Now"));
    ASSERT_TRUE(wait([this] { return hasSynced(); }));
    QFile::remove(local_.path(QStringLiteral("alpha.txt")));
    runAgain();
    ASSERT_NO_FATAL_FAILURE(clickButton("syncQuestion", QStringLiteral("Keep")));
    EXPECT_TRUE(wait([this] { return hasSynced(); }));
    EXPECT_EQ(local_.read(QStringLiteral("alpha.txt")), "a") << "what is kept comes back";

    QFile::remove(local_.path(QStringLiteral("alpha.txt")));
    runAgain();
    ASSERT_TRUE(wait([this] { return dialog("syncQuestion") != nullptr; }));
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/alpha.txt")), "a");
    clickButton("syncQuestion", QStringLiteral("Delete"));
    EXPECT_TRUE(
        wait([this] { return hasSynced() && !row(QStringLiteral("alpha.txt")).isValid(); }));
}

TEST_F(SyncWindowTest, unpluggedPhoneEndsTheRunAndItsQuestion) {
    ASSERT_NO_FATAL_FAILURE(makePair());
    clickButton("syncPreview", QStringLiteral("Sync Now"));
    ASSERT_TRUE(wait([this] { return hasSynced(); }));
    QFile::remove(local_.path(QStringLiteral("alpha.txt")));
    runAgain();
    ASSERT_TRUE(wait([this] { return dialog("syncQuestion") != nullptr; }));
    phone_.android.unplug();
    clickButton("syncQuestion", QStringLiteral("Delete"));
    EXPECT_TRUE(wait([this] {
        return app_->syncManager().syncPairs().front().status.kind == SyncStatus::Kind::error;
    }));
    EXPECT_EQ(dialog("syncQuestion"), nullptr);
}

} // namespace
} // namespace tessary
