#include "views/common/WindowStateStore.h"
#include "WindowFixture.h"

#include <QHeaderView>
#include <QJsonArray>
#include <QJsonObject>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class WindowStateStoreTest : public WindowFixture {
protected:
    /// Closes the window and opens one on the same settings.
    void openAnew() {
        window_.reset();
        openWindow();
        browse();
    }
};

TEST_F(WindowStateStoreTest, theNextWindowIsLikeTheLast) {
    window_->resize(1000, 600); // room for all columns: the last one has no edge to move
    table().header()->resizeSection(FileListModel::dateColumn, 222);
    QTest::mouseClick(
        table().header()->viewport(), Qt::LeftButton, {},
        {table().header()->sectionViewportPosition(FileListModel::dateColumn) + 20, 8});
    press(Qt::Key_2, Qt::ControlModifier);
    const FileSortOrder order = window_->browser().sortOrder();
    ASSERT_EQ(order.front().field, FileField::modified);
    openAnew();
    EXPECT_EQ(window_->size(), QSize(1000, 600));
    EXPECT_EQ(table().header()->sectionSize(FileListModel::dateColumn), 222);
    EXPECT_EQ(table().header()->sortIndicatorSection(), FileListModel::dateColumn);
    EXPECT_EQ(window_->browser().sortOrder(), order);
    EXPECT_EQ(window_->browser().viewMode(), ViewMode::grid);
}

TEST_F(WindowStateStoreTest, nonsenseInTheSettingsLeavesAUsableWindow) {
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
        openAnew();
        EXPECT_LE(window_->width(), 1400);
        EXPECT_GE(window_->width(), window_->minimumWidth());
        EXPECT_GE(table().width(), 300);
        press(Qt::Key_2, Qt::ControlModifier);
        EXPECT_EQ(window_->browser().viewMode(), ViewMode::grid);
    }
}

} // namespace
} // namespace tessary
