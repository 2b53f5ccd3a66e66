#include "files/BrowserEdit.h"
#include "files/FileBrowserFixture.h"
#include "mtp/MTPTransportError.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class FileBrowserEditTest : public FileBrowserFixture {
protected:
    FileBrowserEditTest() {
        fill("/root", {"a.txt", "b.txt", "c.txt", "d.txt", "e.txt", "dir/"});
        open("/root");
    }
    void failOn(const QStringList& operations, const std::function<void()>& raise) {
        files_->setScript([operations, raise](const QString& operation, const std::stop_token&) {
            if (operations.contains(operation))
                raise();
        });
    }
    static void raiseOdd() {
        throw TessaryError::fileIOError(QStringLiteral("odd"));
    }
};

TEST_F(FileBrowserEditTest, newFolderTakesTheFirstFreeNameAndIsSelected) {
    QStringList created;
    QObject::connect(&browser_, &FileBrowserViewModel::folderCreated,
                     [&](const QString& id) { created << id; });
    browser_.createFolder();
    settle();
    EXPECT_EQ(browser_.freeFolderName(), QStringLiteral("New Folder 2"));
    browser_.createFolder();
    settle();
    browser_.createFolder(QStringLiteral("mine"));
    settle();
    EXPECT_THAT(created,
                ElementsAre(QStringLiteral("/root/New Folder"),
                            QStringLiteral("/root/New Folder 2"), QStringLiteral("/root/mine")));
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/mine")});
}

TEST_F(FileBrowserEditTest, freeNameIgnoresCase) {
    const std::vector<FileItem> items{
        {QStringLiteral("new folder"), QStringLiteral("/new folder"), true, 0, std::nullopt},
        {QStringLiteral("NEW FOLDER 2"), QStringLiteral("/x"), false, 0, std::nullopt}};
    EXPECT_EQ(freeFolderName(items), QStringLiteral("New Folder 3"));
    EXPECT_EQ(freeFolderName({}), QStringLiteral("New Folder"));
}

TEST_F(FileBrowserEditTest, deletingSeveralReportsOnceAndGoesOn) {
    QStringList deleted;
    QObject::connect(&browser_, &FileBrowserViewModel::itemsDeleted,
                     [&](const QStringList& paths) { deleted = paths; });
    int errors = 0;
    QObject::connect(&browser_, &FileBrowserViewModel::errorChanged, [&] { ++errors; });
    failOn(ids({"delete b.txt", "delete d.txt"}), raiseOdd);
    browser_.deleteItems(
        ids({"/root/a.txt", "/root/b.txt", "/root/nowhere", "/root/c.txt", "/root/d.txt"}));
    EXPECT_TRUE(browser_.isEditing());
    settle();
    EXPECT_EQ(errors, 1);
    EXPECT_EQ(browser_.errorMessage(),
              QStringLiteral("Failed to delete 2 of 4 items: b.txt (File I/O error: odd), d.txt "
                             "(File I/O error: odd)"));
    EXPECT_THAT(deleted, ElementsAre(QStringLiteral("/root/a.txt"), QStringLiteral("/root/c.txt")));
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("dir"), QStringLiteral("b.txt"),
                                     QStringLiteral("d.txt"), QStringLiteral("e.txt")));
    EXPECT_EQ(browser_.editProgress().total, 4);
}

TEST_F(FileBrowserEditTest, oneFailureIsToldWithItsReason) {
    failOn(ids({"delete a.txt", "rename a.txt to z", "move a.txt to /root/dir", "create x"}),
           raiseOdd);
    browser_.deleteItems(ids({"/root/a.txt"}));
    settle();
    EXPECT_EQ(browser_.errorMessage(),
              QStringLiteral("Failed to delete a.txt: File I/O error: odd"));
    browser_.renameItem(QStringLiteral("/root/a.txt"), QStringLiteral("z"));
    settle();
    EXPECT_EQ(browser_.errorMessage(),
              QStringLiteral("Failed to rename a.txt: File I/O error: odd"));
    browser_.selectItem(QStringLiteral("/root/a.txt"));
    browser_.moveSelectedItemsToPath(QStringLiteral("/root/dir"));
    settle();
    EXPECT_EQ(browser_.errorMessage(), QStringLiteral("Failed to move a.txt: File I/O error: odd"));
    browser_.createFolder(QStringLiteral("x"));
    settle();
    EXPECT_EQ(browser_.errorMessage(), QStringLiteral("Failed to create x: File I/O error: odd"));
    browser_.dismissError();
    EXPECT_FALSE(browser_.error());
}

TEST_F(FileBrowserEditTest, lostDeviceEndsTheEditAndCountsTheRest) {
    failOn(ids({"delete b.txt"}),
           [] { throw MTPTransportError(MTPTransportError::Case::notConnected); });
    browser_.deleteItems(ids({"/root/a.txt", "/root/b.txt", "/root/c.txt", "/root/d.txt"}));
    settle();
    EXPECT_EQ(browser_.state(), BrowserState::deviceLost);
    EXPECT_TRUE(browser_.errorMessage()->startsWith(
        QStringLiteral("Failed to delete 3 of 4 items: b.txt (The phone is not connected.)")))
        << browser_.errorMessage()->toStdString();
    EXPECT_TRUE(browser_.errorMessage()->endsWith(QStringLiteral("and 2 more")));
    EXPECT_EQ(files_->count(QStringLiteral("delete c.txt")), 0);
}

TEST_F(FileBrowserEditTest, cancelledEditLeavesTheRestAndIsNoFailure) {
    Gate gate;
    files_->setScript([&](const QString& operation, const std::stop_token& stop) {
        if (operation == QStringLiteral("delete b.txt"))
            gate.pass(stop);
    });
    browser_.deleteItems(ids({"/root/a.txt", "/root/b.txt", "/root/c.txt"}));
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    browser_.cancelEdits();
    settle();
    EXPECT_FALSE(browser_.error());
    EXPECT_FALSE(names().contains(QStringLiteral("a.txt")));
    EXPECT_TRUE(names().contains(QStringLiteral("b.txt")));
    EXPECT_TRUE(names().contains(QStringLiteral("c.txt")));
}

TEST_F(FileBrowserEditTest, renameRefusesWhatIsTakenOrEmpty) {
    QStringList renamed;
    QObject::connect(&browser_, &FileBrowserViewModel::itemRenamed,
                     [&](const QString& from, const QString& to) { renamed << from << to; });
    browser_.renameItem(QStringLiteral("/root/a.txt"), QStringLiteral("b.txt"));
    EXPECT_EQ(browser_.errorMessage(),
              QStringLiteral("Failed to rename a.txt: \"b.txt\" is already there"));
    browser_.renameItem(QStringLiteral("/root/a.txt"), {});
    EXPECT_TRUE(browser_.errorMessage()->contains(QStringLiteral("empty")));
    EXPECT_FALSE(browser_.isEditing());
    browser_.renameItem(QStringLiteral("/root/a.txt"), QStringLiteral("A.txt"));
    settle();
    EXPECT_THAT(renamed, ElementsAre(QStringLiteral("/root/a.txt"), QStringLiteral("/root/A.txt")));
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/A.txt")});
}

TEST_F(FileBrowserEditTest, selectionMovesIntoAFolderButNotTheFolderIntoItself) {
    for (const char* id : {"/root/a.txt", "/root/b.txt", "/root/dir"})
        browser_.selectItem(QString::fromLatin1(id), SelectionChange::toggle);
    browser_.moveSelectedItems(QStringLiteral("/root/c.txt"));
    EXPECT_FALSE(browser_.isEditing()) << "a file is no target";
    browser_.moveSelectedItemsToPath(QStringLiteral("/root"));
    EXPECT_FALSE(browser_.isEditing()) << "they are there already";
    browser_.moveSelectedItems(QStringLiteral("/root/dir"));
    settle();
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("dir"), QStringLiteral("c.txt"),
                                     QStringLiteral("d.txt"), QStringLiteral("e.txt")));
    go("/root/dir");
    EXPECT_THAT(names(), ElementsAre(QStringLiteral("a.txt"), QStringLiteral("b.txt")));
}

TEST_F(FileBrowserEditTest, editThatEndsElsewhereDoesNotReloadWhatIsShown) {
    Gate gate;
    files_->setScript([&](const QString& operation, const std::stop_token& stop) {
        if (operation == QStringLiteral("delete a.txt"))
            gate.pass(stop);
    });
    browser_.deleteItems(ids({"/root/a.txt"}));
    browser_.navigateTo(QStringLiteral("/root/dir"));
    ASSERT_TRUE(eventually([&] { return !browser_.isLoading(); }));
    gate.open();
    settle();
    turnFor(20ms);
    EXPECT_EQ(files_->count(QStringLiteral("list /root/dir")), 1);
}

TEST_F(FileBrowserEditTest, uploadsGoIntoTheFolderShownWhichIsReadAgain) {
    const QString one = local_.write(QStringLiteral("one.bin"), "1");
    const QString two = local_.write(QStringLiteral("a.txt"), "2");
    browser_.uploadFiles({one});
    ASSERT_TRUE(eventually([this] { return names().contains(QStringLiteral("one.bin")); }));
    browser_.uploadFiles({two}, QStringLiteral("/root/dir"));
    EXPECT_EQ(transfers_.jobs()[1].destinationPath, QStringLiteral("/root/dir/a.txt"));
    browser_.uploadFiles({two}, QStringLiteral("/root/b.txt"));
    EXPECT_EQ(transfers_.jobs().size(), 2U) << "a file takes nothing in";
    settle();
    const int listed = files_->count(QStringLiteral("list /root"));
    turnFor(500ms);
    EXPECT_EQ(files_->count(QStringLiteral("list /root")), listed)
        << "an upload elsewhere is no reason to read this folder";
}

TEST_F(FileBrowserEditTest, manyUploadsReadTheFolderSeldom) {
    QStringList paths;
    for (int i = 0; i < 200; ++i)
        paths << local_.write(QStringLiteral("u%1").arg(i), "x");
    const int before = files_->count(QStringLiteral("list /root"));
    browser_.uploadFiles(paths);
    ASSERT_TRUE(eventually([this] { return names().size() == 206; }));
    EXPECT_LE(files_->count(QStringLiteral("list /root")), before + 2);
}

TEST_F(FileBrowserEditTest, downloadKeepsWhatIsThereAndNeverLeavesTheFolder) {
    FileItem twin(QStringLiteral("a.txt"), QStringLiteral("/root/a.txt"), false, 3, std::nullopt,
                  7);
    files_->setItems(
        QStringLiteral("/root"),
        {FileItem(QStringLiteral("a.txt"), QStringLiteral("/root/a.txt"), false, 5, std::nullopt),
         twin, FileItem(QStringLiteral(".."), QStringLiteral("/root/.."), false, 5, std::nullopt)});
    browser_.reload();
    settle();
    const QString target = local_.makeFolder(QStringLiteral("in"));
    local_.write(QStringLiteral("in/a.txt"), "old");
    QStringList all;
    for (int row = 0; row < browser_.rows().count(); ++row)
        all << browser_.rows().id(row);
    EXPECT_EQ(browser_.namesTakenIn(target, all).size(), 2);
    browser_.downloadItems(all, target);
    settle();
    EXPECT_EQ(local_.read(QStringLiteral("in/a.txt")), "old");
    EXPECT_THAT(local_.names(QStringLiteral("in")),
                UnorderedElementsAre(QStringLiteral("a.txt"), QStringLiteral("a (2).txt"),
                                     QStringLiteral("a (3).txt")));
    EXPECT_THAT(
        transfers_.jobs(),
        testing::Contains(testing::Field(&TransferJob::status, TransferJob::TransferStatus::failed))
            .Times(1));
    browser_.downloadItems({QStringLiteral("/root/a.txt")}, target, NameClash::replace);
    settle();
    EXPECT_EQ(local_.read(QStringLiteral("in/a.txt")), "xxxxx");
}

} // namespace
} // namespace tessary
