#include "WindowFixture.h"

#include "app/LanguageManager.h"
#include "views/listing/GridItemDelegate.h"
#include "views/window/Panes.h"

#include <QDir>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

/// What fits where there is little room.
class RoomTest : public WindowFixture {};

/// Each button that is seen lies in the row, and the last part of the path has all of its name;
/// else what is wrong.
QString troubleIn(const QWidget& toolbar, const QString& folder) {
    const auto* path = toolbar.findChild<QWidget*>(u"breadcrumbs"_s);
    QString last;
    for (const QToolButton* button : toolbar.findChildren<QToolButton*>()) {
        if (!button->isVisible())
            continue;
        const QWidget* row = path->isAncestorOf(button) ? path : &toolbar;
        const QRect place(button->mapTo(row, QPoint()), button->size());
        if (!row->rect().contains(place))
            return button->accessibleName() + u" has no room"_s;
        if (row == path)
            last = button->text();
    }
    return last == folder ? QString() : u"the path ends with "_s + last;
}

TEST_F(RoomTest, thePathIsTheLastToGiveWay) {
    ASSERT_TRUE(QDir(local_.path()).mkdir(u"Summer"_s)); // a page stands in for the list
    defaults_->setValue(LocalPane::folderKey, local_.path(u"Summer"_s));
    window_->browser().navigateTo(u"/sdcard/DCIM/Trip"_s);
    ASSERT_TRUE(wait([this] { return isShown(u"one.txt"_s); }));
    auto* toolbar = window_->browserView().findChild<QWidget*>(u"toolbar"_s);
    auto* filter = toolbar->findChild<QLineEdit*>(u"filter"_s);
    auto* more = toolbar->findChild<QToolButton*>(u"moreButton"_s);
    const auto troubleAt = [&](int width) {
        const QString trouble = troubleIn(*toolbar, u"Trip"_s);
        const auto* pane = window_->findChild<LocalPane*>(u"localPane"_s);
        if (!trouble.isEmpty() || pane == nullptr)
            return trouble;
        if (pane->mapTo(window_.get(), QPoint(pane->width(), 0)).x() > width)
            return u"the other side runs out of the window"_s;
        return troubleIn(*pane->findChild<QWidget*>(u"toolbar"_s), u"Summer"_s);
    };
    const auto check = [&](const QSize& size) {
        SCOPED_TRACE(size.width());
        window_->resize(size);
        QCoreApplication::processEvents(); // parts of a path appear when the loop is round again
        EXPECT_TRUE(wait([&] { return troubleAt(size.width()).isEmpty(); }))
            << troubleAt(size.width()).toStdString();
    };
    for (const AppLanguage language : {AppLanguage::en, AppLanguage::de}) {
        LanguageManager::shared().setSelectedLanguage(language);
        for (const QSize size : {QSize(1180, 740), QSize(960, 600), QSize(800, 500)})
            check(size);
    }
    EXPECT_FALSE(filter->isVisible());
    EXPECT_FALSE(more->isVisible());
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(filter->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(wait([&] { return !filter->isVisible(); }));

    window_->panes().toggle().trigger();
    ASSERT_TRUE(wait([&] { return window_->panes().localFolder() == local_.path(u"Summer"_s); }));
    for (const AppLanguage language : {AppLanguage::de, AppLanguage::en}) {
        LanguageManager::shared().setSelectedLanguage(language);
        for (const QSize size : {QSize(960, 600), QSize(800, 500)})
            check(size);
    }
    LanguageManager::shared().setSelectedLanguage(AppLanguage::system);
    ASSERT_TRUE(more->isVisible()) << "what has no room is still at hand";
    Q_EMIT more->menu()->aboutToShow();
    EXPECT_TRUE(more->menu()->actions().contains(window_->browserView().actions().newFolder));
}

TEST_F(RoomTest, whatIsFoundHasItsName) {
    window_->resize(800, 500);
    window_->browser().searchBelow(u"one"_s);
    ASSERT_TRUE(wait([this] { return isShown(u"one.txt"_s); }));
    const QHeaderView& columns = *table().header();
    EXPECT_EQ(columns.length(), table().viewport()->width());
    EXPECT_GE(columns.sectionSize(0), 160);
    EXPECT_GE(columns.sectionSize(FileListModel::folderColumn), 160);
}

TEST_F(RoomTest, theEdgeThatIsDraggedMovesAlone) {
    QHeaderView& columns = *table().header();
    const auto widths = [&] {
        std::vector<int> all;
        for (int i = 0; i < columns.count(); ++i)
            if (!columns.isSectionHidden(i))
                all.push_back(columns.sectionSize(i));
        return all;
    };
    const auto dragEdge = [&](int column, int by) {
        const QPoint edge(columns.sectionViewportPosition(column) + columns.sectionSize(column) - 1,
                          columns.height() / 2);
        QTest::mousePress(columns.viewport(), Qt::LeftButton, {}, edge);
        QTest::mouseMove(columns.viewport(), edge + QPoint(by / 2, 0));
        QTest::mouseMove(columns.viewport(), edge + QPoint(by, 0));
        QTest::mouseRelease(columns.viewport(), Qt::LeftButton, {}, edge + QPoint(by, 0));
    };
    ASSERT_EQ(columns.length(), table().viewport()->width());
    const std::vector<int> before = widths();
    dragEdge(0, -40);
    EXPECT_THAT(widths(), ElementsAre(before[0] - 40, before[1] + 40, before[2], before[3]));
    dragEdge(1, 30);
    EXPECT_THAT(widths(), ElementsAre(before[0] - 40, before[1] + 70, before[2] - 30, before[3]));
    window_->resize(window_->width() + 100, window_->height());
    QCoreApplication::processEvents();
    EXPECT_EQ(columns.sectionSize(0), before[0] + 60) << "names take the room that is won";
    EXPECT_EQ(columns.length(), table().viewport()->width());
}

TEST(GridNames, areCutInTheMiddleOfTheLastOfThreeLines) {
    const QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const int width = 120;
    const QString numbered = u"IMG_20310704_183000_a very long name of a picture that goes on and "
                             u"on until its number 0042.jpg"_s;
    EXPECT_THAT(GridItemDelegate::linesOf(u"a.txt"_s, font, width), ElementsAre(u"a.txt"_s));
    const QStringList parted = GridItemDelegate::linesOf(u"IMG_20241121_011000.png"_s, font, width);
    EXPECT_EQ(parted.join(QString()), u"IMG_20241121_011000.png"_s);
    EXPECT_TRUE(parted.size() == 1 || parted.front() == u"IMG_20241121_"_s)
        << "not within a number: " << parted.front().toStdString();
    const QStringList lines = GridItemDelegate::linesOf(numbered, font, width);
    ASSERT_EQ(lines.size(), GridItemDelegate::mostLines);
    EXPECT_TRUE(lines.last().endsWith(u"2.jpg"_s)) << lines.last().toStdString();
    EXPECT_EQ(lines.join(QString()).count(u'…'), 1) << "cut once";
    for (const QString& line : lines)
        EXPECT_LE(QFontMetrics(font).horizontalAdvance(line), width);
}

} // namespace
} // namespace tessary
