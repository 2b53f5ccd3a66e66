#include "WindowFixture.h"

#include "views/listing/GridItemDelegate.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QLineEdit>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

/// What fits where there is little room.
class RoomTest : public WindowFixture {};

TEST_F(RoomTest, thePathIsTheLastToGiveWay) {
    window_->browser().navigateTo(u"/sdcard/DCIM/Trip"_s);
    ASSERT_TRUE(wait([this] { return isShown(u"one.txt"_s); }));
    auto* path = window_->findChild<QWidget*>(u"breadcrumbs"_s);
    auto* filter = window_->findChild<QLineEdit*>(u"filter"_s);
    for (const QSize size : {QSize(1180, 740), QSize(960, 600), QSize(800, 500)}) {
        window_->resize(size);
        const QToolButton* last = nullptr;
        const auto isLaidOut = [&] {
            last = nullptr;
            bool fits = true;
            for (const QToolButton* part : path->findChildren<QToolButton*>())
                if (part->isVisible()) {
                    fits = fits && path->rect().contains(part->geometry());
                    last = part;
                }
            return fits && last != nullptr && last->accessibleName() == u"Trip";
        };
        // Commands lose their words first, and then the path is laid out anew.
        QCoreApplication::processEvents();
        ASSERT_TRUE(wait(isLaidOut)) << size.width();
    }
    EXPECT_FALSE(filter->isVisible());
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(filter->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_TRUE(wait([&] { return !filter->isVisible(); }));
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
