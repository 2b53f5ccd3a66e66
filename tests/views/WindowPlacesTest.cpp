#include "WindowFixture.h"
#include "app/views/DragOut.h"

#include <QAbstractButton>
#include <QDropEvent>
#include <QFile>
#include <QListView>
#include <QMessageBox>
#include <QTimer>

namespace tessary {
namespace {

class WindowPlacesTest : public WindowFixture {
protected:
    [[nodiscard]] QListView& list(const char* name) const {
        return *window_->findChild<QListView*>(QString::fromLatin1(name));
    }
    void clickRow(QListView& view, int row) {
        QCoreApplication::processEvents(); // rows above may just have come
        const QModelIndex index = view.model()->index(row, 0);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }
    [[nodiscard]] QStringList favorites() const {
        QStringList names;
        for (const DeviceFavorite& favorite : app_->favoritesManager().favorites())
            names.append(favorite.name);
        return names;
    }
    /// Drops data on the middle of an entry of the listing.
    void dropOn(const QString& name, const QMimeData& data) {
        BrowserView& view = window_->browserView();
        const QPoint spot =
            table().viewport()->mapTo(&view, table().visualRect(row(name)).center());
        QDragEnterEvent enter(spot, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&view, &enter);
        QDragMoveEvent move(spot, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&view, &move);
        QDropEvent drop(spot, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, {});
        if (move.isAccepted())
            QApplication::sendEvent(&view, &drop);
    }
    [[nodiscard]] const FileItem& entry(const QString& name) const {
        return *window_->browser().itemWithId(row(name).data(FileListModel::idRole).toString());
    }
    /// Answers the next question with the button that says `text`, when it has come up.
    void answer(const QString& text) {
        QTimer::singleShot(50, window_.get(), [this, text] {
            const auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (question == nullptr) {
                answer(text);
                return;
            }
            for (QAbstractButton* button : question->buttons())
                if (button->text() == text)
                    button->click();
        });
    }
};

TEST_F(WindowPlacesTest, favoritesLeadToTheirFolderAndGoWithIt) {
    openFolder();
    press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(favorites(), QStringList{QStringLiteral("DCIM")});
    click(QStringLiteral("Trip"));
    press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(favorites(), (QStringList{QStringLiteral("DCIM"), QStringLiteral("Trip")}));

    clickRow(list("favoriteList"), 1);
    EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("one.txt")); }));
    ASSERT_TRUE(wait([this] { return list("volumeList").model()->rowCount() > 0; }));
    clickRow(list("volumeList"), 0);
    ASSERT_TRUE(wait([this] { return isShown(QStringLiteral("readme.md")); }));

    click(QStringLiteral("DCIM"));
    answer(QStringLiteral("Delete"));
    press(Qt::Key_Delete);
    EXPECT_TRUE(wait([this] { return favorites().isEmpty(); }));
}

TEST_F(WindowPlacesTest, droppedFoldersBecomeFavoritesAndRowsAreReordered) {
    QAbstractItemModel& model = *list("favoriteList").model();
    const QString identity = window_->browser().files()->identity();
    const EntryMimeData folder(identity, {entry(QStringLiteral("DCIM"))});
    const EntryMimeData file(identity, {entry(QStringLiteral("readme.md"))});
    const EntryMimeData foreign(QStringLiteral("android:other"), {entry(QStringLiteral("DCIM"))});
    for (const EntryMimeData* refused : {&file, &foreign})
        EXPECT_FALSE(model.canDropMimeData(refused, Qt::CopyAction, 0, 0, {}));
    EXPECT_TRUE(model.dropMimeData(&folder, Qt::CopyAction, 0, 0, {}));
    openFolder();
    click(QStringLiteral("Trip"));
    press(Qt::Key_B, Qt::ControlModifier);
    ASSERT_EQ(favorites(), (QStringList{QStringLiteral("DCIM"), QStringLiteral("Trip")}));
    const std::unique_ptr<QMimeData> second(model.mimeData({model.index(1, 0)}));
    model.dropMimeData(second.get(), Qt::MoveAction, 0, 0, {});
    EXPECT_EQ(favorites(), (QStringList{QStringLiteral("Trip"), QStringLiteral("DCIM")}));
}

TEST_F(WindowPlacesTest, entriesAreMovedByDroppingThemOnAFolder) {
    openFolder();
    const EntryMimeData own(window_->browser().files()->identity(),
                            {entry(QStringLiteral("alpha.txt"))});
    dropOn(QStringLiteral("beta.txt"), own); // no folder: nothing happens
    dropOn(QStringLiteral("Trip"), own);
    EXPECT_TRUE(
        wait([this] { return phone_.content(QStringLiteral("DCIM/Trip/alpha.txt")) == "a"; }));
    EXPECT_TRUE(wait([this] { return !row(QStringLiteral("alpha.txt")).isValid(); }));
}

TEST_F(WindowPlacesTest, whatIsDraggedOutIsWholeOrNothing) {
    openFolder();
    const auto urlsOf = [this](std::vector<FileItem> items) {
        const DragOutData data(window_->browser(), window_->browser().files()->identity(),
                               std::move(items));
        EXPECT_TRUE(data.hasUrls());
        return data.urls();
    };
    const QList<QUrl> urls = urlsOf({entry(QStringLiteral("beta.txt"))});
    ASSERT_EQ(urls.size(), 1);
    QFile copy(urls.front().toLocalFile());
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(copy.readAll(), "bb");
    EXPECT_TRUE(
        urlsOf({entry(QStringLiteral("beta.txt")), entry(QStringLiteral("Trip"))}).isEmpty());
}

TEST_F(WindowPlacesTest, takenNamesAreAskedAboutBothWays) {
    openFolder();
    local_.write(QStringLiteral("alpha.txt"), "mine");
    const auto local = [this](const char* name) {
        QFile file(local_.path(QString::fromLatin1(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    click(QStringLiteral("alpha.txt"));
    answer(QStringLiteral("Keep Both"));
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(wait([&] { return local("alpha (2).txt") == "a"; }));
    EXPECT_EQ(local("alpha.txt"), "mine");
    click(QStringLiteral("alpha.txt"));
    answer(QStringLiteral("Replace"));
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(wait([&] { return local("alpha.txt") == "a"; }));

    local_.write(QStringLiteral("alpha.txt"), "newer");
    filesToCopy_ = {local_.path(QStringLiteral("alpha.txt"))};
    click(QStringLiteral("beta.txt"));
    answer(QStringLiteral("Skip"));
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(phone_.content(QStringLiteral("DCIM/alpha.txt")), "a");
    click(QStringLiteral("beta.txt"));
    answer(QStringLiteral("Replace"));
    press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(
        wait([this] { return phone_.content(QStringLiteral("DCIM/alpha.txt")) == "newer"; }));
}

} // namespace
} // namespace tessary
