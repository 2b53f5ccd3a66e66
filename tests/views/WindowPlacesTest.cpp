#include "WindowFixture.h"
#include "views/listing/DragOut.h"

#include <QDropEvent>
#include <QListView>
#include <QMimeData>
#include <QProcess>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class WindowPlacesTest : public WindowFixture {
protected:
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
};

TEST_F(WindowPlacesTest, favoritesLeadToTheirFolderAndGoWithIt) {
    openFolder();
    press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(favorites(), QStringList{u"DCIM"_s});
    click(u"Trip"_s);
    press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(favorites(), (QStringList{u"DCIM"_s, u"Trip"_s}));

    clickRow(list("favoriteList"), 1);
    EXPECT_TRUE(wait([this] { return isShown(u"one.txt"_s); }));
    ASSERT_TRUE(wait([this] { return list("volumeList").model()->rowCount() > 0; }));
    clickRow(list("volumeList"), 0);
    ASSERT_TRUE(wait([this] { return isShown(u"readme.md"_s); }));

    click(u"DCIM"_s);
    whileAsked(u"Delete"_s);
    press(Qt::Key_Delete);
    EXPECT_TRUE(wait([this] { return favorites().isEmpty(); }));
}

TEST_F(WindowPlacesTest, onlyFoldersOfThisPhoneBecomeFavorites) {
    QAbstractItemModel& model = *list("favoriteList").model();
    const QString identity = window_->browser().files()->identity();
    const EntryMimeData folder(identity, {entry(u"DCIM"_s)});
    const EntryMimeData file(identity, {entry(u"readme.md"_s)});
    const EntryMimeData foreign(u"android:other"_s, {entry(u"DCIM"_s)});
    for (const EntryMimeData* refused : {&file, &foreign})
        EXPECT_FALSE(model.canDropMimeData(refused, Qt::CopyAction, 0, 0, {}));
    EXPECT_TRUE(model.dropMimeData(&folder, Qt::CopyAction, 0, 0, {}));
    EXPECT_EQ(favorites(), QStringList{u"DCIM"_s});
}

/// What is in the folder is read first; the user goes on meanwhile.
TEST_F(WindowPlacesTest, filesDroppedOnAFolderArriveWhateverIsShownByThen) {
    openFolder();
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(local_.write(u"drop.txt"_s, "dropped"))});
    dropOn(u"Trip"_s, dropped);
    window_->browser().navigateUp();
    EXPECT_TRUE(wait([this] { return phone_.content(u"DCIM/Trip/drop.txt"_s) == "dropped"; }));
}

TEST_F(WindowPlacesTest, whatIsDraggedOutIsWholeOrNothing) {
    openFolder();
    const auto urlsOf = [this](std::vector<FileItem> items) {
        const DragOutData data(window_->browser(), window_->browser().files()->identity(),
                               std::move(items));
        EXPECT_TRUE(data.hasUrls());
        return data.urls();
    };
    const QList<QUrl> urls = urlsOf({entry(u"beta.txt"_s)});
    ASSERT_EQ(urls.size(), 1);
    const auto outputOf = [](const QString& program, const QUrl& of) {
        QProcess process;
        process.start(program, {of.toLocalFile()});
        EXPECT_TRUE(process.waitForFinished(windowPatience));
        return process.readAllStandardOutput();
    };
    EXPECT_EQ(outputOf(u"cat"_s, urls.front()), "bb");
    // Folders go out where this machine mounts a folder for what is dragged; elsewhere nothing
    // does.
    const QList<QUrl> both = urlsOf({entry(u"beta.txt"_s), entry(u"Trip"_s)});
    EXPECT_TRUE(both.isEmpty() || outputOf(u"ls"_s, both.back()) == "one.txt\n");
}

TEST_F(WindowPlacesTest, shortcutsLeadOnlyToFoldersThatAreThere) {
    const auto shortcuts = [this] {
        QStringList names;
        const QAbstractItemModel& model = *list("shortcutList").model();
        for (int i = 0; i < model.rowCount(); ++i)
            names.append(model.index(i, 0).data().toString());
        return names;
    };
    EXPECT_TRUE(wait([&] { return shortcuts() == QStringList{u"Camera & Photos"_s}; }))
        << shortcuts().join(u", "_s).toStdString();
    phone_.write(u"Music/song.mp3"_s, "la");
    press(Qt::Key_F5);
    EXPECT_TRUE(wait([&] { return shortcuts().contains(u"Music"_s); })) << "once it is there";
}

} // namespace
} // namespace tessary
