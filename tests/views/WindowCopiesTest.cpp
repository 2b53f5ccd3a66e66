#include "WindowFixture.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>

namespace tessary {
namespace {

class WindowCopiesTest : public WindowFixture {
protected:
    /// Answers the next question with the button of this text; tells what it said.
    void answer(const QString& button, bool forAll = false) {
        said_.clear();
        auto* look = new QTimer(window_.get());
        QObject::connect(look, &QTimer::timeout, look, [=, this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr)
                return;
            look->stop();
            look->deleteLater();
            said_ = box->informativeText();
            if (forAll)
                box->checkBox()->click();
            for (QAbstractButton* candidate : box->buttons())
                if (candidate->text().remove(QLatin1Char('&')) == button) {
                    QTest::mouseClick(candidate, Qt::LeftButton);
                    return;
                }
            ADD_FAILURE() << "no button " << button.toStdString();
            box->reject();
        });
        look->start(20);
    }
    [[nodiscard]] const std::vector<TransferJob>& jobs() const {
        return window_->transfers().jobs();
    }

    QString said_;
};

TEST_F(WindowCopiesTest, takenNamesOnThePhoneAreKeptBesideTheCopies) {
    openFolder();
    local_.write(QStringLiteral("Trip/one.txt"), "other");
    filesToCopy_ = {local_.write(QStringLiteral("alpha.txt"), "new a"),
                    local_.write(QStringLiteral("beta.txt"), "new b"),
                    local_.path(QStringLiteral("Trip"))};
    answer(QStringLiteral("Keep Both"), true);
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("Trip (2)")); }));
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("beta (2).txt")); }));
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/alpha.txt")), "a");
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/alpha (2).txt")), "new a");
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/beta (2).txt")), "new b");
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/Trip (2)/one.txt")), "other");
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/Trip/one.txt")), "one");
}

TEST_F(WindowCopiesTest, whatDoesNotFitIsNamedBeforeAnythingMoves) {
    QFile huge(local_.path(QStringLiteral("huge.bin")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{4} << 40)); // sparse
    filesToCopy_ = {huge.fileName()};
    ASSERT_TRUE(wait([this] { return !window_->browser().activeDevice()->volumes.empty(); }));
    answer(QStringLiteral("Cancel"));
    press(Qt::Key_U, Qt::ControlModifier);
    ASSERT_TRUE(wait([this] { return !said_.isEmpty() && !QApplication::activeModalWidget(); }));
    EXPECT_TRUE(said_.contains(QStringLiteral("4.40 TB"))) << said_.toStdString();
    EXPECT_TRUE(jobs().empty());
    click(QStringLiteral("readme.md"));
    answer(QStringLiteral("Copy Anyway"));
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return jobs().size() == 1; }));
    window_->transfers().cancelAll();
}

} // namespace
} // namespace tessary
