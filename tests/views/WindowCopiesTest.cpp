#include "WindowFixture.h"

#include <QCheckBox>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class WindowCopiesTest : public WindowFixture {
protected:
    [[nodiscard]] const std::vector<CopyJob>& jobs() const {
        return window_->copyQueue().jobs();
    }
};

TEST_F(WindowCopiesTest, takenNamesOnThePhoneAreKeptBesideTheCopies) {
    openFolder();
    local_.write(u"Trip/one.txt"_s, "other");
    filesToCopy_ = {local_.write(u"alpha.txt"_s, "new a"), local_.write(u"beta.txt"_s, "new b"),
                    local_.path(u"Trip"_s)};
    whileAsked(u"Keep Both"_s, [] { question()->checkBox()->click(); });
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return isShown(u"Trip (2)"_s); }));
    EXPECT_TRUE(wait([this] { return isShown(u"beta (2).txt"_s); }));
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");
    EXPECT_EQ(phone_.content(u"DCIM/alpha (2).txt"_s), "new a");
    EXPECT_EQ(phone_.content(u"DCIM/beta (2).txt"_s), "new b");
    EXPECT_EQ(phone_.content(u"DCIM/Trip (2)/one.txt"_s), "other");
    EXPECT_EQ(phone_.content(u"DCIM/Trip/one.txt"_s), "one");
}

TEST_F(WindowCopiesTest, takenNamesAreAskedAboutBothWays) {
    openFolder();
    local_.write(u"alpha.txt"_s, "mine");
    const auto copy = [this](const QString& name, const QString& answer, Qt::Key key) {
        click(name);
        whileAsked(answer);
        press(key, Qt::ControlModifier);
    };
    copy(u"alpha.txt"_s, u"Keep Both"_s, Qt::Key_D);
    EXPECT_TRUE(wait([&] { return local_.read(u"alpha (2).txt"_s) == "a"; }));
    EXPECT_EQ(local_.read(u"alpha.txt"_s), "mine");
    copy(u"alpha.txt"_s, u"Replace"_s, Qt::Key_D);
    EXPECT_TRUE(wait([&] { return local_.read(u"alpha.txt"_s) == "a"; }));

    filesToCopy_ = {local_.write(u"alpha.txt"_s, "newer")};
    copy(u"beta.txt"_s, u"Skip"_s, Qt::Key_U);
    EXPECT_TRUE(wait([this] { return window_->copyQueue().summary().isIdle(); }));
    EXPECT_EQ(phone_.content(u"DCIM/alpha.txt"_s), "a");
    copy(u"beta.txt"_s, u"Replace"_s, Qt::Key_U);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/alpha.txt"_s) == "newer"; }));
}

TEST_F(WindowCopiesTest, whatDoesNotFitIsNamedBeforeAnythingMoves) {
    QFile huge(local_.path(u"huge.bin"_s));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{4} << 40)); // sparse
    filesToCopy_ = {huge.fileName()};
    ASSERT_TRUE(wait([this] { return !window_->browser().activeDevice()->volumes.empty(); }));
    QString said;
    whileAsked(u"Cancel"_s, [&] { said = question()->informativeText(); });
    press(Qt::Key_U, Qt::ControlModifier);
    ASSERT_TRUE(wait([&] { return !said.isEmpty() && question() == nullptr; }));
    EXPECT_TRUE(said.contains(u"4.40 TB"_s)) << said.toStdString();
    EXPECT_TRUE(jobs().empty());
    click(u"readme.md"_s);
    whileAsked(u"Copy Anyway"_s);
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return jobs().size() == 1; }));
    window_->copyQueue().cancelAll();
}

TEST_F(WindowCopiesTest, whoWishesSoHasEachCopyComparedWithItsOriginal) {
    for (const bool isWished : {false, true}) {
        window_->showSettings();
        auto* wish = window_->findChild<QCheckBox*>(u"compareCopies"_s);
        ASSERT_NE(wish, nullptr);
        if (isWished)
            wish->click();
        EXPECT_EQ(wish->isChecked(), isWished);
        wish->window()->close();
        activate();
        const QString name = isWished ? u"compared.txt"_s : u"copied.txt"_s;
        filesToCopy_ = {local_.write(name, "new")};
        phone_.android.clearRequestLog();
        press(Qt::Key_U, Qt::ControlModifier);
        EXPECT_TRUE(wait([&] { return phone_.content(name) == "new"; }));
        EXPECT_TRUE(wait([this] { return window_->copyQueue().summary().isIdle(); }));
        EXPECT_EQ(phone_.requests(MTPOperationCode::getObject), isWished ? 1U : 0U)
            << "it is read back";
    }
}

} // namespace
} // namespace tessary
