#include "browser/model/FileListModel.h"
#include "files/FileBrowserFixture.h"
#include "mtp/protocol/MTPTransportError.h"

#include <QAbstractItemModelTester>
#include <QFileInfo>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class FileBrowserViewModelTest : public FileBrowserFixture {
protected:
    FileBrowserViewModelTest() {
        fill("/root", {"a/", "b/", "readme.txt", "Photo.jpg"});
        fill("/root/a", {"deep/", "one.txt"});
        fill("/root/a/deep", {"two.txt"});
    }
};

TEST_F(FileBrowserViewModelTest, hiddenEntriesAreNoLongerSelected) {
    open("/root");
    browser_.selectAll();
    browser_.setSearchText(u"photo"_s);
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{u"/root/Photo.jpg"_s});
    browser_.setSearchText(u"nothing like it"_s);
    EXPECT_TRUE(browser_.filteredItems().empty());
    EXPECT_EQ(browser_.items().size(), 4U);
    EXPECT_TRUE(browser_.selectedItems().isEmpty());
}

TEST_F(FileBrowserViewModelTest, listingThatArrivesAfterTheUserWentOnIsDropped) {
    open("/root");
    Gate slow;
    // The device does not notice that nobody wants the answer any more.
    files_->holdAt(slow, u"list /root/a"_s, false);
    browser_.navigateTo(u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return slow.waiting() == 1; }));
    EXPECT_TRUE(names().isEmpty());
    go("/root/a/deep");
    slow.open();
    turnFor(50ms);
    EXPECT_THAT(names(), ElementsAre(u"two.txt"_s));
    EXPECT_EQ(browser_.currentPath(), u"/root/a/deep"_s);
}

TEST_F(FileBrowserViewModelTest, loadIsStoppedWhenTheUserGoesOnOrCancels) {
    Gate never;
    files_->holdAt(never, u"list /root/a"_s);
    browser_.open(files_, std::nullopt, u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    go("/root/b");
    ASSERT_TRUE(eventually([&] { return never.waiting() == 0; }));

    browser_.navigateTo(u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    browser_.cancelLoading();
    EXPECT_FALSE(browser_.isLoading());
    EXPECT_EQ(browser_.state(), BrowserState::failed);
    EXPECT_TRUE(browser_.errorMessage());
    ASSERT_TRUE(eventually([&] { return never.waiting() == 0; }));
}

TEST_F(FileBrowserViewModelTest, reloadKeepsSelectionAndDropsWhatIsGone) {
    open("/root");
    browser_.selectItem(u"/root/a"_s);
    browser_.selectItem(u"/root/readme.txt"_s, SelectionChange::toggle);
    files_->setItems(u"/root"_s, {});
    fill("/root", {"b/", "readme.txt", "Photo.jpg", "new.txt"});
    int resets = 0;
    QObject::connect(&browser_.rows(), &FileRows::wasReset, [&] { ++resets; });
    browser_.reload();
    EXPECT_EQ(names().size(), 4) << "rows stay while the folder is read";
    settle();
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{u"/root/readme.txt"_s});
    EXPECT_TRUE(names().contains(u"new.txt"_s));
}

TEST_F(FileBrowserViewModelTest, failureKeepsTheRowsAndIsForgottenByTheReload) {
    const std::tuple<const char*, BrowserState, std::function<void()>> rows[] = {
        {"time-out", BrowserState::failed,
         [] { throw MTPTransportError(MTPTransportError::Case::timeout); }},
        {"other", BrowserState::failed, [] { throw TessaryError::fileIOError(u"odd"_s); }},
        {"transport", BrowserState::deviceLost,
         [] { throw MTPTransportError(MTPTransportError::Case::notConnected); }},
        {"usb", BrowserState::deviceLost,
         [] { throw MTPTransportError::pipe(u"Read failed"_s, usb::noDevice); }},
        {"service", BrowserState::deviceLost,
         [] { throw TessaryError::deviceNotFound(u"gone"_s); }},
    };
    open("/root");
    for (const auto& [name, state, raise] : rows) {
        SCOPED_TRACE(name);
        files_->setScript([raise = raise](const QString&, const std::stop_token&) { raise(); });
        browser_.reload();
        settle();
        EXPECT_EQ(browser_.state(), state);
        EXPECT_EQ(names().size(), 4);
        EXPECT_TRUE(browser_.error());
        files_->setScript({});
        browser_.reload();
        settle();
        EXPECT_EQ(browser_.state(), BrowserState::ready);
        EXPECT_FALSE(browser_.error());
    }
}

TEST_F(FileBrowserViewModelTest, persistentIndexesFollowSortFilterAndReload) {
    open("/root/a");
    FileListModel model(browser_);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto idOf = [](const QModelIndex& index) {
        return index.data(FileListModel::idRole).toString();
    };
    const QPersistentModelIndex deep(model.indexOf(u"/root/a/deep"_s));
    const QPersistentModelIndex one(model.indexOf(u"/root/a/one.txt"_s));
    fill("/root/a", {"aa.txt", "z.txt"});
    browser_.reload();
    settle();
    EXPECT_EQ(one.row(), 2);
    model.sort(FileListModel::nameColumn, Qt::DescendingOrder);
    EXPECT_EQ(deep.row(), 0) << "folders stay in front";
    EXPECT_EQ(idOf(one), u"/root/a/one.txt"_s);
    browser_.setSearchText(u"TXT"_s);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_FALSE(deep.isValid());
    EXPECT_EQ(idOf(one), u"/root/a/one.txt"_s);
    EXPECT_FALSE(model.setData(one, u"one.txt"_s, Qt::EditRole)) << "it has that name";
    go("/root/b");
    EXPECT_FALSE(one.isValid());
    EXPECT_EQ(model.rowCount(), 0);
}

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
        throw TessaryError::fileIOError(u"odd"_s);
    }
};

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
              u"Failed to delete 2 of 4 items: b.txt (File I/O error: odd), d.txt "
              "(File I/O error: odd)"_s);
    EXPECT_THAT(deleted, ElementsAre(u"/root/a.txt"_s, u"/root/c.txt"_s));
    EXPECT_THAT(names(), ElementsAre(u"dir"_s, u"b.txt"_s, u"d.txt"_s, u"e.txt"_s));
    EXPECT_EQ(browser_.editProgress().total, 4);
}

TEST_F(FileBrowserEditTest, lostDeviceEndsTheEditAndCountsTheRest) {
    failOn(ids({"delete b.txt"}),
           [] { throw MTPTransportError(MTPTransportError::Case::notConnected); });
    browser_.deleteItems(ids({"/root/a.txt", "/root/b.txt", "/root/c.txt", "/root/d.txt"}));
    settle();
    EXPECT_EQ(browser_.state(), BrowserState::deviceLost);
    EXPECT_THAT(browser_.errorMessage()->toStdString(),
                testing::MatchesRegex("Failed to delete 3 of 4 items: b.txt .*and 2 more"));
    EXPECT_EQ(files_->count(u"delete c.txt"_s), 0);
}

TEST_F(FileBrowserEditTest, cancelledEditLeavesTheRestAndIsNoFailure) {
    Gate gate;
    files_->holdAt(gate, u"delete b.txt"_s);
    browser_.deleteItems(ids({"/root/a.txt", "/root/b.txt", "/root/c.txt"}));
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    browser_.cancelEdits();
    settle();
    EXPECT_FALSE(browser_.error());
    EXPECT_THAT(names(), ElementsAre(u"dir"_s, u"b.txt"_s, u"c.txt"_s, u"d.txt"_s, u"e.txt"_s));
}

TEST_F(FileBrowserEditTest, withoutAMountOnlyWholeCopiesAreDragged) {
    files_->staged = local_.write(u"copy"_s, "whole");
    files_->fill(u"/root"_s, {u"-/../x"_s});
    failOn(ids({"stage c.txt"}), raiseOdd);
    const std::tuple<QStringList, int, const char*> table[] = {
        // entries, local copies, why not
        {ids({"/root/a.txt", "/root/b.txt"}), 2, ""},
        {ids({"/root/a.txt", "/root/c.txt"}), 1, "odd"},
        {ids({"/root/a.txt", "/root/dir"}), 0, "folders are copied, not dragged"},
        {ids({"/root/a.txt", "/root/-/../x"}), 0, "cannot be used on this computer"},
    };
    open("/root");
    for (const auto& [entries, copies, reason] : table) {
        std::optional<DragFiles> drag;
        browser_.prepareDragURLs(entries, [&](const DragFiles& ready) { drag = ready; });
        ASSERT_TRUE(eventually([&] { return drag.has_value(); }));
        EXPECT_EQ(drag->localPaths.size(), copies) << reason;
        ASSERT_EQ(drag->notReady.empty(), reason == std::string_view()) << reason;
        const QString said = drag->notReady.empty() ? QString() : drag->notReady.front().reason;
        EXPECT_TRUE(said.contains(QString::fromUtf8(reason))) << said.toStdString();
    }
    files_->staged = local_.path(u"not there yet"_s);
    std::optional<DragFiles> late;
    browser_.prepareDragURLs(ids({"/root/a.txt"}), [&](const DragFiles& ready) { late = ready; });
    ASSERT_TRUE(eventually([&] { return late.has_value(); }));
    EXPECT_TRUE(late->localPaths.isEmpty());
}

TEST_F(FileBrowserEditTest, downloadKeepsWhatIsThereAndNeverLeavesTheFolder) {
    const FileItem plain(u"a.txt"_s, u"/root/a.txt"_s, false, 5, std::nullopt);
    FileItem twin = plain;
    twin.handle = 7;
    files_->setItems(u"/root"_s,
                     {plain, twin, FileItem(u".."_s, u"/root/.."_s, false, 5, std::nullopt)});
    browser_.reload();
    settle();
    local_.write(u"in/a.txt"_s, "old");
    QStringList all;
    for (int row = 0; row < browser_.rows().count(); ++row)
        all << browser_.rows().id(row);
    browser_.downloadItems(all, local_.path(u"in"_s));
    settle();
    EXPECT_EQ(local_.read(u"in/a.txt"_s), "old");
    EXPECT_THAT(local_.names(u"in"_s),
                UnorderedElementsAre(u"a.txt"_s, u"a (2).txt"_s, u"a (3).txt"_s));
}

/// The cache of the fixture holds 100 bytes.
class FileBrowserPreviewTest : public FileBrowserFixture {
protected:
    FileBrowserPreviewTest() {
        QObject::connect(&browser_, &FileBrowserViewModel::previewReady,
                         [this](const QString& id, const QString& path) {
                             ready_ << id;
                             lastPath_ = path;
                         });
        QObject::connect(&browser_, &FileBrowserViewModel::previewFailed,
                         [](const QString& id) { ADD_FAILURE() << id.toStdString(); });
    }
    static FileItem item(const QString& name, qint64 size, int day = 1) {
        return {name, u"/root/"_s + name, false, size,
                QDateTime(QDate(2024, 1, day), QTime(12, 0), Qt::UTC)};
    }
    QString fetch(const FileItem& wanted) {
        return previews_.fetch(*files_, wanted, {}, {});
    }
    [[nodiscard]] int copies() const {
        return static_cast<int>(local_.names(u"TessaryCache"_s).size());
    }

    QStringList ready_;
    QString lastPath_;
};

TEST_F(FileBrowserPreviewTest, copyIsMadeOncePerPathSizeAndDate) {
    const FileItem original = item(u"a.jpg"_s, 10);
    FileItem elsewhere = original;
    elsewhere.path = u"/root/other/a.jpg"_s;
    FileItem undated = original;
    undated.modifiedDate.reset();
    QSet<QString> paths;
    for (const FileItem& version :
         {original, original, elsewhere, undated, item(u"a.jpg"_s, 11), item(u"a.jpg"_s, 10, 2)})
        paths.insert(fetch(version));
    EXPECT_EQ(paths.size(), 5);
    EXPECT_EQ(files_->count(u"download a.jpg"_s), 5);
    EXPECT_EQ(QFileInfo(local_.path(u"TessaryCache"_s)).permissions() &
                  (QFileDevice::ReadGroup | QFileDevice::ReadOther),
              QFileDevice::Permissions());
}

TEST_F(FileBrowserPreviewTest, oldestCopiesGoWhenTheRoomIsFull) {
    const FileItem a = item(u"a"_s, 40);
    const FileItem b = item(u"b"_s, 40);
    for (const FileItem& used : {a, b, a, item(u"c"_s, 40)}) { // b is the oldest at the end
        fetch(used);
        std::this_thread::sleep_for(20ms);
    }
    EXPECT_TRUE(previews_.find(*files_, a));
    EXPECT_FALSE(previews_.find(*files_, b));
    EXPECT_EQ(copies(), 2);
}

TEST_F(FileBrowserPreviewTest, namesThatCannotLieHereGetAnother) {
    const std::pair<QString, QString> rows[] = {
        {u".."_s, u"preview"_s},
        {u"x/../../../evil.jpg"_s, u"preview.jpg"_s},
        {QString(300, QChar(0x0635)) + u".png"_s, u"preview.png"_s},
    };
    for (const auto& [name, local] : rows) {
        const QString path = fetch(item(name, 1));
        EXPECT_TRUE(path.startsWith(local_.path(u"TessaryCache/"_s)));
        EXPECT_EQ(QFileInfo(path).fileName(), local);
    }
    EXPECT_EQ(copies(), 3);
}

TEST_F(FileBrowserPreviewTest, browserAnswersForTheLastOneAskedFor) {
    fill("/root", {"a.jpg", "b.jpg"});
    open("/root");
    Gate gate;
    files_->holdAt(gate, u"download a.jpg"_s);
    browser_.cacheFileForPreview(u"/root/a.jpg"_s);
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    browser_.cacheFileForPreview(u"/root/b.jpg"_s);
    ASSERT_TRUE(eventually([this] { return !ready_.isEmpty(); }));
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 0; })) << "the first was stopped";
    turnFor(20ms);
    EXPECT_THAT(ready_, ElementsAre(u"/root/b.jpg"_s));
    EXPECT_TRUE(QFileInfo::exists(lastPath_));
}

} // namespace
} // namespace tessary
