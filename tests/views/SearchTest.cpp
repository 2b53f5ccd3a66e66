#include "WindowFixture.h"
#include "support/FileBytes.h"
#include "support/ShownItems.h"

#include <QLineEdit>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Looking for names in all that lies below a folder.
class SearchTest : public WindowFixture {
protected:
    SearchTest()
        : WindowFixture({{u"DCIM/Trip/deep/beach one.jpg"_s, "1"},
                         {u"DCIM/Beach two.jpg"_s, "2"},
                         {u"DCIM/.thumbnails/beach.jpg"_s, "3"},
                         {u"Music/beach.mp3"_s, "4"}}) {}

    [[nodiscard]] QLineEdit& field() const {
        return *window_->findChild<QLineEdit*>(u"filter"_s);
    }
    void search(const QString& name) {
        activate();
        press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_EQ(QApplication::focusWidget(), &field());
        QTest::keyClicks(&field(), name);
        QTest::keyClick(&field(), Qt::Key_Return);
        ASSERT_TRUE(wait([this] { return !window_->browser().isLoading(); }));
    }
    [[nodiscard]] QStringList shown() const {
        return namesOf(shownItems(window_->browser()));
    }
};

TEST_F(SearchTest, findsBelowTheFolderAndLeadsBackToIt) {
    openFolder();
    search(u"BEACH"_s);
    EXPECT_EQ(shown(), (QStringList{u"beach one.jpg"_s, u"Beach two.jpg"_s}))
        << "not in hidden folders, not beside the folder";
    EXPECT_FALSE(table().isColumnHidden(FileListModel::folderColumn));
    EXPECT_EQ(
        row(u"beach one.jpg"_s).siblingAtColumn(FileListModel::folderColumn).data().toString(),
        u"Trip/deep"_s);
    EXPECT_EQ(window_->browser().currentPath(), u"/sdcard/DCIM"_s);
    EXPECT_TRUE(window_->browserView().isAncestorOf(QApplication::focusWidget()));

    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return shown().size() == 3; })) << "hidden folders, too";
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(wait([this] { return shown().size() == 2; }));

    press(Qt::Key_Escape);
    EXPECT_TRUE(wait([this] { return isShown(u"alpha.txt"_s); }));
    EXPECT_TRUE(field().text().isEmpty());
    EXPECT_TRUE(table().isColumnHidden(FileListModel::folderColumn));
}

TEST_F(SearchTest, aFilterLeadsToItsFirstAndEndsWithItsFolder) {
    openFolder();
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&field(), u"tri"_s);
    ASSERT_TRUE(wait([this] { return shown() == QStringList{u"Trip"_s}; }));
    QTest::keyClick(&field(), Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return isShown(u"one.txt"_s); })) << "and nothing is filtered there";
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&field(), u"none"_s);
    QTest::keyClick(&field(), Qt::Key_Return);
    ASSERT_TRUE(shown().isEmpty());
    press(Qt::Key_Escape);
    EXPECT_TRUE(isShown(u"one.txt"_s));
}

TEST_F(SearchTest, whatIsFoundIsUsedAsInAFolder) {
    search(u"one"_s);
    ASSERT_EQ(shown(), (QStringList{u"beach one.jpg"_s, u"one.txt"_s}));
    click(u"one.txt"_s);
    press(Qt::Key_F2);
    QCoreApplication::processEvents(); // the name without its ending is selected
    QTest::keyClicks(QApplication::focusWidget(), u"oneself"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/oneself.txt"_s) == "one"; }));
    EXPECT_TRUE(wait([this] { return row(u"oneself.txt"_s).isValid(); }));
    click(u"oneself.txt"_s);
    whileAsked(u"Delete"_s);
    press(Qt::Key_Delete);
    EXPECT_TRUE(wait([this] { return shown() == QStringList(u"beach one.jpg"_s); }));
    EXPECT_TRUE(phone_.content(u"DCIM/Trip/oneself.txt"_s).isNull());

    search(u"trip"_s);
    ASSERT_EQ(shown(), QStringList(u"Trip"_s));
    click(u"Trip"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(wait([this] { return isShown(u"deep"_s); }));
    EXPECT_EQ(window_->browser().currentPath(), u"/sdcard/DCIM/Trip"_s);
    EXPECT_TRUE(window_->browser().searchedName().isEmpty());
    EXPECT_TRUE(field().text().isEmpty());
}

} // namespace
} // namespace tessary
