#include "WindowFixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

namespace tessary {
namespace {

/// What goes wrong under the user's hands.
class WindowTroubleTest : public WindowFixture {
protected:
    /// Does something while a question is open, then clicks its button.
    void whileAsked(const QString& button, std::function<void()> meanwhile) {
        QTimer::singleShot(50, window_.get(), [this, button, meanwhile = std::move(meanwhile)] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (question == nullptr) {
                whileAsked(button, meanwhile);
                return;
            }
            meanwhile();
            for (QAbstractButton* each : question->buttons())
                if (each->text() == button)
                    each->click();
        });
    }
};

TEST_F(WindowTroubleTest, phoneMayGoUnderAnOpenQuestion) {
    openFolder();
    click(QStringLiteral("alpha.txt"));
    whileAsked(QStringLiteral("Delete"), [this] {
        phone_.android.unplug();
        EXPECT_TRUE(
            wait([this] { return window_->browser().state() == BrowserState::deviceLost; }));
    });
    press(Qt::Key_Delete);
    phone_.android.plugInto(bus_);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("alpha.txt")); }))
        << "nothing is deleted on a phone that went away meanwhile";
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/alpha.txt")), "a");
}

/// Paths tell the entries of one folder apart, not those of two phones.
TEST_F(WindowTroubleTest, answersCountOnlyForThePhoneThatWasAskedAbout) {
    VirtualAndroidConfig config;
    config.serialNumber = QStringLiteral("SECOND");
    config.location = QStringLiteral("1-7");
    PluggedPhone second(bus_, config);
    second.write(QStringLiteral("DCIM/kept.txt"), "kept");
    second.write(QStringLiteral("other.txt"), "other");
    filesToCopy_ = {local_.write(QStringLiteral("up.txt"), "up")};
    whileChoosing_ = [&] {
        phone_.android.unplug();
        EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("other.txt")); }));
    };
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(window_->browser().error());
    EXPECT_TRUE(window_->transfers().jobs().empty());

    phone_.android.plugInto(bus_);
    click(QStringLiteral("DCIM"));
    whileAsked(QStringLiteral("Delete"), [&] {
        for (const QLabel* label : QApplication::activeModalWidget()->findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << "a name may look like HTML";
        second.android.unplug();
        EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("readme.md")); }));
    });
    press(Qt::Key_Delete);
    EXPECT_FALSE(window_->browser().isEditing());
    for (const QLabel* label : window_->findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
}

TEST_F(WindowTroubleTest, folderThatVanishesLeadsBackToWhatIsLeft) {
    openFolder();
    doubleClick(QStringLiteral("Trip"));
    ASSERT_TRUE(wait([this] { return isShown(QStringLiteral("one.txt")); }));
    ASSERT_TRUE(QDir(phone_.disk.path(QStringLiteral("0/DCIM/Trip"))).removeRecursively());
    press(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return window_->browser().state() == BrowserState::folderGone; }));
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("alpha.txt")); }));
}

TEST_F(WindowTroubleTest, longAndRightToLeftNamesAreShownAndCopied) {
    const QString longName = QString(120, QChar(u'é')) + QStringLiteral(".txt"); // 244 bytes
    const QString hebrew = QStringLiteral("שלום 123.txt");
    for (const QString& name : {longName, hebrew})
        phone_.write(QStringLiteral("Odd/") + name, "odd");
    press(Qt::Key_F5);
    ASSERT_TRUE(wait([this] { return isShown(QStringLiteral("Odd")); }));
    doubleClick(QStringLiteral("Odd"));
    ASSERT_TRUE(wait([&] { return isShown(longName) && isShown(hebrew); }));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_D, Qt::ControlModifier);
    for (const QString& name : {longName, hebrew})
        EXPECT_TRUE(wait([&] { return local_.read(name) == "odd"; })) << name.toStdString();
}

TEST_F(WindowTroubleTest, copyIntoAFolderThatTakesNoFilesFailsWithItsReason) {
    openFolder();
    window_->browser().selectAll();
    const QString id = row(QStringLiteral("alpha.txt")).data(FileListModel::idRole).toString();
    window_->browser().downloadItems({id}, QStringLiteral("/proc"));
    ASSERT_TRUE(wait([this] { return window_->transfers().summary().isIdle(); }));
    const TransferJob& job = window_->transfers().jobs().back();
    EXPECT_EQ(job.status, TransferJob::TransferStatus::failed);
    EXPECT_TRUE(job.error.value_or(QString()).contains(QStringLiteral("/proc")))
        << job.error.value_or(QString()).toStdString();
}

} // namespace
} // namespace tessary
