#include "WindowFixture.h"

#include "views/common/WindowStateStore.h"
#include "views/listing/FileGridView.h"
#include "views/listing/GridLayout.h"

#include <QHeaderView>
#include <QJsonArray>
#include <QJsonObject>
#include <QMenu>
#include <QScrollBar>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Pair;

constexpr int none = -1;

TEST(GridLayoutTest, entriesStandInTheColumnsOfTheirSection) {
    // Three columns: folders 0 and 1, a day of five, one of a single entry.
    const GridLayout grid(8, {{0, false}, {2, true}, {7, true}}, 340, {100, 50}, 20);
    EXPECT_EQ(grid.columns(), 3);
    EXPECT_EQ(grid.cell(1), QRect(100, 0, 100, 50));
    EXPECT_EQ(grid.cell(2), QRect(0, 70, 100, 50));
    EXPECT_EQ(grid.cell(6), QRect(100, 120, 100, 50));
    EXPECT_EQ(grid.cell(7), QRect(0, 190, 100, 50));
    EXPECT_EQ(grid.height(), 240);
    EXPECT_EQ(grid.heading(1), QRect(0, 50, 340, 20));
    EXPECT_THAT(grid.entriesOf(1), Pair(2, 6));
    const std::tuple<QPoint, int, int> places[] = {
        // place, entry, heading
        {{150, 49}, 1, none},   {{250, 10}, none, none},  {{10, 55}, none, 1},
        {{299, 119}, 4, none},  {{320, 100}, none, none}, {{-1, 100}, none, none},
        {{10, 185}, none, 2},   {{99, 239}, 7, none},     {{10, 240}, none, none},
        {{10, -5}, none, none},
    };
    for (const auto& [place, entry, heading] : places) {
        EXPECT_EQ(grid.entryAt(place), entry) << place.x() << ',' << place.y();
        EXPECT_EQ(grid.headingAt(place), heading) << place.x() << ',' << place.y();
    }
    for (int entry = 0; entry < 8; ++entry)
        EXPECT_EQ(grid.entryAt(grid.cell(entry).center()), entry);
}

TEST(GridLayoutTest, upAndDownGoFromSectionToSection) {
    const GridLayout grid(8, {{0, false}, {2, true}, {7, true}}, 300, {100, 50}, 20);
    const int below[] = {2, 3, 5, 6, 6, 7, 7, 7};
    const int above[] = {0, 1, 0, 1, 1, 2, 3, 5};
    for (int entry = 0; entry < 8; ++entry) {
        EXPECT_EQ(grid.below(entry), below[entry]) << entry;
        EXPECT_EQ(grid.above(entry), above[entry]) << entry;
    }
}

TEST(GridLayoutTest, anAreaTouchesWhatLiesInIt) {
    const GridLayout grid(8, {{0, false}, {2, true}, {7, true}}, 300, {100, 50}, 20);
    EXPECT_THAT(grid.entriesIn({0, 0, 300, 240}), ElementsAre(Pair(0, 7)));
    EXPECT_THAT(grid.entriesIn({110, 60, 40, 100}), ElementsAre(Pair(3, 3), Pair(6, 6)));
    EXPECT_THAT(grid.entriesIn({10, 52, 200, 10}), ElementsAre());
    EXPECT_THAT(grid.entriesIn({310, 0, 50, 240}), ElementsAre());
    EXPECT_THAT(GridLayout(0, {}, 300, {100, 50}, 20).entriesIn({0, 0, 300, 300}), ElementsAre());
}

/// A window on a camera's folder: thirty pictures, three a day.
class ListingTest : public WindowFixture {
protected:
    static constexpr int count = 30;

    ListingTest() : WindowFixture(pictures()) {
        for (int n = 0; n < count; ++n) {
            QFile file(phone_.disk.path(u"0/DCIM/Camera/"_s + nameOf(n)));
            const QDateTime taken(today_.addDays(-n / 3), QTime(12, 0));
            EXPECT_TRUE(file.open(QIODevice::ReadWrite) &&
                        file.setFileTime(taken, QFile::FileModificationTime));
        }
        window_->browser().navigateTo(u"/sdcard/DCIM/Camera"_s);
        EXPECT_TRUE(wait([this] { return isShown(nameOf(count - 1)); }));
    }
    static QString nameOf(int n) {
        return u"p%1.jpg"_s.arg(n, 2, 10, QLatin1Char('0'));
    }
    static QMap<QString, QByteArray> pictures() {
        QMap<QString, QByteArray> files;
        for (int n = 0; n < count; ++n)
            files.insert(u"DCIM/Camera/"_s + nameOf(n), "no picture");
        return files;
    }
    [[nodiscard]] FileGridView& grid() const {
        return *window_->findChild<FileGridView*>(u"fileGrid"_s);
    }
    void showGrid() {
        press(Qt::Key_2, Qt::ControlModifier);
        ASSERT_TRUE(wait([this] { return grid().isVisible(); }));
    }
    /// The numbers of the pictures that are selected.
    [[nodiscard]] std::string selected() const {
        QStringList names;
        for (const FileItem& item : window_->browser().selection().entries())
            names << QString::number(item.name.mid(1, 2).toInt());
        return names.join(u' ').toStdString();
    }
    /// Draws from one place of a view to another.
    static void draw(QAbstractItemView& view, QPoint from, QPoint to,
                     Qt::KeyboardModifiers keys = {}) {
        QTest::mousePress(view.viewport(), Qt::LeftButton, keys, from);
        moveTo(view, from + (to - from) / 2, keys);
        moveTo(view, to, keys);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, keys, to);
    }
    /// With the left button held.
    static void moveTo(QAbstractItemView& view, QPoint to, Qt::KeyboardModifiers keys = {}) {
        QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, keys);
        QApplication::sendEvent(view.viewport(), &move);
    }

    const QDate today_ = QDate::currentDate();
};

TEST_F(ListingTest, picturesStandByDaysAndADayIsChosenByItsHeading) {
    const QAction& group = *window_->browserView().actions().groupByDay;
    EXPECT_FALSE(group.isEnabled()); // a list has none
    showGrid();
    ASSERT_TRUE(group.isChecked());
    const auto placeOf = [this](int n) { return grid().visualRect(row(nameOf(n))); };
    EXPECT_EQ(placeOf(0).top(), placeOf(2).top());
    EXPECT_GT(placeOf(3).top(), placeOf(2).bottom() + 10) << "a heading between two days";
    const auto clickHeading = [&](int firstOfDay, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, keys,
                          placeOf(firstOfDay).topLeft() + QPoint(20, -8));
    };
    clickHeading(3);
    EXPECT_EQ(selected(), "3 4 5");
    clickHeading(0, Qt::ControlModifier);
    EXPECT_EQ(selected(), "0 1 2 3 4 5");

    // Keys go from day to day, and so does a selection.
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, placeOf(1).center());
    press(Qt::Key_Down);
    EXPECT_EQ(selected(), "4");
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "4 5 6 7");
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, Qt::ShiftModifier, placeOf(2).center());
    EXPECT_EQ(selected(), "2 3 4");
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selected(), "0 1 2");

    // The choice for this folder outlives the window, and the selection the change.
    press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_FALSE(group.isChecked());
    EXPECT_EQ(selected(), "0 1 2");
    EXPECT_EQ(placeOf(3).top(), placeOf(0).top());
    window_.reset();
    openWindow();
    window_->browser().navigateTo(u"/sdcard/DCIM/Camera"_s);
    ASSERT_TRUE(wait([this] { return isShown(nameOf(count - 1)); }));
    EXPECT_FALSE(window_->browserView().actions().groupByDay->isChecked());
}

TEST_F(ListingTest, aFrameSelectsFromWhatIsBesideTheNames) {
    QTreeView& view = table();
    const auto beside = [&](int n) {
        const QRect name = view.visualRect(row(nameOf(n)));
        return QPoint(name.right() - 10, name.center().y());
    };
    draw(view, beside(2), beside(4) + QPoint(40, 0));
    EXPECT_EQ(selected(), "2 3 4");
    draw(view, beside(7), beside(6), Qt::ControlModifier);
    EXPECT_EQ(selected(), "2 3 4 6 7");
    draw(view, beside(8), beside(5));
    EXPECT_EQ(selected(), "5 6 7 8");
    press(Qt::Key_Up);
    EXPECT_EQ(selected(), "4") << "the keyboard goes on from where the pointer was";
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, beside(3));
    EXPECT_EQ(selected(), "3") << "a click beside the name still chooses the row";

    // At the edge the view scrolls on under a pointer that rests.
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, beside(1));
    const QPoint edge(beside(1).x(), view.viewport()->height() + 20);
    moveTo(view, edge);
    QScrollBar& bar = *view.verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    EXPECT_TRUE(wait([&] { return bar.value() == bar.maximum(); }));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, edge);
    EXPECT_EQ(window_->browser().selection().ids().size(), count - 1);

    window_->browser().navigateTo(u"/sdcard/DCIM"_s);
    ASSERT_TRUE(wait([this] { return isShown(u"beta.txt"_s); }));
    const QRect last = view.visualRect(row(u"beta.txt"_s));
    const QPoint below(last.right() - 10, last.bottom() + 60);
    draw(view, below, last.center());
    EXPECT_EQ(window_->browser().selection().entries().back().name, u"beta.txt"_s);
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, below);
    EXPECT_TRUE(window_->browser().selection().ids().isEmpty());
}

TEST_F(ListingTest, shiftGoesOnFromWhereTheHandWasLast) {
    for (const bool isGrid : {false, true}) {
        if (isGrid)
            showGrid();
        QAbstractItemView& view = window_->browserView().currentListing();
        const auto clickOn = [&](int n, Qt::KeyboardModifiers keys = {}) {
            const QRect cell = view.visualRect(row(nameOf(n)));
            QTest::mouseClick(view.viewport(), Qt::LeftButton, keys,
                              cell.topLeft() + QPoint(50, 12));
        };
        clickOn(1);
        for (const Qt::Key key : {Qt::Key_P, Qt::Key_0, Qt::Key_4})
            press(key);
        EXPECT_EQ(selected(), "4");
        clickOn(6, Qt::ShiftModifier);
        EXPECT_EQ(selected(), "4 5 6") << "from what was typed";
        press(Qt::Key_Escape);
        press(Qt::Key_Right, Qt::ShiftModifier);
        press(Qt::Key_Down, Qt::ShiftModifier);
        EXPECT_TRUE(selected().starts_with("6 7")) << "not from before Esc: " << selected();

        clickOn(2);
        window_->browser().setSortOrder({{FileField::name, true}});
        QCoreApplication::processEvents();
        const QPoint middle = view.visualRect(row(nameOf(2))).center();
        EXPECT_TRUE(view.viewport()->rect().contains(middle)) << "what is selected stays in sight";
        window_->browser().setSortOrder({{FileField::name, false}});
        QCoreApplication::processEvents();
    }
}

TEST_F(ListingTest, theEntryBehindWhatWasDeletedHasTheKeyboard) {
    for (const bool isGrid : {false, true}) {
        if (isGrid)
            showGrid();
        const int first = isGrid ? 6 : 2;
        const QString id = idOf(nameOf(first));
        window_->browser().selection().set({id, idOf(nameOf(first + 2))}, id);
        whileAsked(u"Delete"_s);
        press(Qt::Key_Delete);
        ASSERT_TRUE(wait([&] { return !row(nameOf(first + 2)).isValid(); }));
        activate();
        EXPECT_EQ(window_->browserView().currentListing().currentIndex().data(), nameOf(first + 1));
        press(Qt::Key_Down, Qt::ShiftModifier);
        EXPECT_TRUE(selected().starts_with(std::to_string(first + 1))) << selected();
    }
}

TEST_F(ListingTest, theMenuSortsWhatHasNoHeader) {
    showGrid();
    QMenu& menu = window_->browserView().sortMenu();
    const std::pair<QString, FileComparator> rows[] = {{u"Descending"_s, {FileField::name, true}},
                                                       {u"Size"_s, {FileField::size, true}},
                                                       {u"Ascending"_s, {FileField::size, false}}};
    for (const auto& [chosen, order] : rows) {
        for (QAction* action : menu.actions())
            if (action->text() == chosen)
                action->trigger();
        EXPECT_EQ(window_->browser().sortOrder(), FileSortOrder{order}) << chosen.toStdString();
    }
    table().header()->setSortIndicator(FileListModel::dateColumn, Qt::DescendingOrder);
    for (const QAction* action : menu.actions())
        EXPECT_EQ(action->isChecked(),
                  action->text() == u"Date Modified" || action->text() == u"Descending");
}

TEST_F(ListingTest, theNextWindowHasTheColumnsTheOrderTheViewAndTheSizeOfTheLast) {
    QHeaderView* columns = table().header();
    const auto width = [&] { return table().viewport()->width(); };
    // The last one has an edge of its own: what it gives stays free.
    const int kind = columns->sectionSize(FileListModel::kindColumn);
    columns->resizeSection(FileListModel::kindColumn, kind - 30);
    EXPECT_EQ(columns->length(), width() - 30);
    columns->resizeSection(FileListModel::kindColumn, kind);
    EXPECT_EQ(columns->length(), width());
    columns->resizeSection(FileListModel::kindColumn, kind + 50);
    EXPECT_EQ(columns->length(), width()) << "names give what is wanted";
    EXPECT_EQ(columns->sectionSize(FileListModel::kindColumn), kind + 50);
    columns->moveSection(columns->visualIndex(FileListModel::kindColumn), 1);
    columns->resizeSection(FileListModel::kindColumn, kind + 20);
    EXPECT_EQ(columns->length(), width()) << "the neighbour is the one that stands there now";
    window_->browserView().columnMenu().actions().at(0)->trigger();
    EXPECT_TRUE(columns->isSectionHidden(FileListModel::sizeColumn));
    window_->resize(1000, 600);
    QTest::mouseClick(columns->viewport(), Qt::LeftButton, {},
                      {columns->sectionViewportPosition(FileListModel::dateColumn) + 20, 8});
    press(Qt::Key_2, Qt::ControlModifier);
    const FileSortOrder order = window_->browser().sortOrder();
    ASSERT_EQ(order.front().field, FileField::modified);
    window_.reset();
    openWindow();
    browse();
    EXPECT_EQ(window_->size(), QSize(1000, 600));
    EXPECT_EQ(window_->browser().sortOrder(), order);
    EXPECT_EQ(window_->browser().viewMode(), ViewMode::grid);
    columns = table().header();
    EXPECT_EQ(columns->sortIndicatorSection(), FileListModel::dateColumn);
    EXPECT_TRUE(columns->isSectionHidden(FileListModel::sizeColumn));
    EXPECT_EQ(columns->visualIndex(FileListModel::kindColumn), 1);
    EXPECT_EQ(columns->sectionSize(FileListModel::kindColumn), kind + 20);
}

TEST_F(ListingTest, nonsenseInTheSettingsLeavesAUsableWindow) {
    const QJsonValue nonsense[] = {QJsonObject{{u"width"_s, -5},
                                               {u"height"_s, 1e300},
                                               {u"sidebar"_s, 2'000'000'000},
                                               {u"columns"_s, QJsonArray{-3, 1e9, u"wide"_s}}},
                                   QJsonObject{{u"width"_s, 999'999}, {u"height"_s, 999'999}},
                                   QJsonArray{1, 2}, u"window"_s};
    for (const QJsonValue& value : nonsense) {
        window_.reset();
        app_->defaults().setValue(WindowStateStore::windowKey, value);
        app_->defaults().setValue(
            WindowStateStore::devicesKey,
            QJsonArray{QJsonObject{{u"device"_s, phone_.info.udid}, {u"column"_s, 77}}, 5});
        openWindow();
        browse();
        EXPECT_LE(window_->width(), 1400);
        EXPECT_GE(window_->width(), window_->minimumWidth());
        EXPECT_GE(table().width(), 300);
        press(Qt::Key_2, Qt::ControlModifier);
        EXPECT_EQ(window_->browser().viewMode(), ViewMode::grid);
    }
}

} // namespace
} // namespace tessary
