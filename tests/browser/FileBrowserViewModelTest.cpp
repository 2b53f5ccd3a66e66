#include "browser/FileBrowserFixture.h"
#include "browser/model/FileListModel.h"
#include "support/ShownItems.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class FileBrowserViewModelTest : public FileBrowserFixture {
protected:
    FileBrowserViewModelTest() {
        fill("/root", {"a/", "b/", "readme.txt", "Photo.jpg"});
        fill("/root/a", {"deep/", "one.txt"});
        fill("/root/a/deep", {"two.txt"});
    }
};

TEST_F(FileBrowserViewModelTest, listingThatArrivesAfterTheUserWentOnIsDropped) {
    open("/root");
    Gate slow;
    // The device does not notice that nobody wants the answer any more.
    holdAt(slow, Operation::list, "/root/a", false);
    browser_.navigateTo(u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return slow.waiting() == 1; }));
    EXPECT_TRUE(names().isEmpty());
    go("/root/a/deep");
    slow.open();
    turnFor(50ms);
    EXPECT_THAT(names(), ElementsAre(u"two.txt"_s));
    EXPECT_EQ(browser_.currentPath(), u"/root/a/deep"_s);
}

TEST_F(FileBrowserViewModelTest, listingThatAChangeOvertookIsNotRemembered) {
    open("/root");
    Gate slow;
    holdAt(slow, Operation::list, "/root/a");
    browser_.navigateTo(u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return slow.waiting() == 1; }));
    browser_.folders().entryChanged(files_->identity(), u"/root/a/one.txt"_s);
    slow.open();
    settle();
    EXPECT_FALSE(browser_.folders().recall(files_->identity(), u"/root/a"_s));
}

TEST_F(FileBrowserViewModelTest, loadIsStoppedWhenTheUserGoesOnOrCancels) {
    Gate never;
    holdAt(never, Operation::list, "/root/a");
    browser_.open(files_, std::nullopt, u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    go("/root/b");
    ASSERT_TRUE(eventually([&] { return never.waiting() == 0; }));

    browser_.navigateTo(u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return never.waiting() == 1; }));
    EXPECT_TRUE(browser_.canCancelLoading());
    browser_.cancelLoading();
    EXPECT_FALSE(browser_.isLoading());
    EXPECT_EQ(browser_.state(), BrowserState::failed);
    EXPECT_TRUE(browser_.problem());
    ASSERT_TRUE(eventually([&] { return never.waiting() == 0; }));
}

TEST_F(FileBrowserViewModelTest, failureKeepsTheRowsAndIsForgottenByTheReload) {
    const std::pair<PhoneError, BrowserState> rows[] = {
        {PhoneError::noAnswer, BrowserState::failed},
        {PhoneError::accessDenied, BrowserState::failed},
        {PhoneError::listingBroken, BrowserState::failed},
        {PhoneError::notConnected, BrowserState::deviceLost},
        {PhoneError::unplugged, BrowserState::deviceLost},
    };
    open("/root");
    for (const auto& [code, state] : rows) {
        SCOPED_TRACE(errorName(code));
        files_->fail(Operation::list, u"/root"_s, Error(code, {u"/root"_s}), 1);
        browser_.reload();
        settle();
        EXPECT_EQ(browser_.state(), state);
        EXPECT_EQ(names().size(), 4);
        EXPECT_TRUE(browser_.problem());
        browser_.reload();
        settle();
        EXPECT_EQ(browser_.state(), BrowserState::ready);
        EXPECT_FALSE(browser_.problem());
    }
}

TEST_F(FileBrowserViewModelTest, longListingIsShownWhileItArrives) {
    for (int n = 0; n < 40; ++n)
        files_->addFile(u"/long/file %1"_s.arg(n), "x");
    // The phone hands out three rows at a time, and stops after the first eighteen.
    Gate rest;
    std::atomic<int> handedOut = 0;
    open("/root");
    files_->betweenRows([&] {
        if (++handedOut == 6)
            rest.pass();
        std::this_thread::sleep_for(40ms);
    });
    browser_.navigateTo(u"/long"_s);
    EXPECT_TRUE(eventually([this] { return browser_.rows().count() >= 3; }));
    EXPECT_LT(browser_.rows().count(), 40);
    EXPECT_TRUE(browser_.isLoading());
    browser_.selection().select(u"/long/file 0"_s);
    rest.open();
    settle();
    EXPECT_EQ(browser_.rows().count(), 40);
    EXPECT_EQ(browser_.selection().ids(), QSet<QString>{u"/long/file 0"_s});
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
};

TEST_F(FileBrowserEditTest, deletingSeveralReportsOnceAndGoesOn) {
    QStringList deleted;
    QObject::connect(&browser_, &FileBrowserViewModel::itemsDeleted,
                     [&](const QStringList& paths) { deleted = paths; });
    int problems = 0;
    QObject::connect(&browser_, &FileBrowserViewModel::problemChanged, [&] { ++problems; });
    const Error refused(PhoneError::writeProtected, {u"x"_s});
    files_->fail(Operation::removeTree, u"/root/b.txt"_s, refused);
    files_->fail(Operation::removeTree, u"/root/d.txt"_s, refused);
    browser_.deleteItems(
        ids({"/root/a.txt", "/root/b.txt", "/root/nowhere", "/root/c.txt", "/root/d.txt"}));
    EXPECT_TRUE(browser_.isEditing());
    settle();
    EXPECT_EQ(problems, 1);
    const BrowserProblem expected{BrowserProblem::What::remove,
                                  u"b.txt"_s,
                                  2,
                                  4,
                                  {{u"b.txt"_s, refused}, {u"d.txt"_s, refused}}};
    EXPECT_EQ(browser_.problem(), expected);
    EXPECT_THAT(deleted, ElementsAre(u"/root/a.txt"_s, u"/root/c.txt"_s));
    EXPECT_THAT(names(), ElementsAre(u"dir"_s, u"b.txt"_s, u"d.txt"_s, u"e.txt"_s));
    EXPECT_EQ(browser_.editProgress().total, 4);
}

TEST_F(FileBrowserEditTest, lostDeviceEndsTheEditAndCountsTheRest) {
    files_->fail(Operation::removeTree, u"/root/b.txt"_s, Error(PhoneError::unplugged));
    browser_.deleteItems(ids({"/root/a.txt", "/root/b.txt", "/root/c.txt", "/root/d.txt"}));
    settle();
    EXPECT_EQ(browser_.state(), BrowserState::deviceLost);
    ASSERT_TRUE(browser_.problem());
    EXPECT_EQ(browser_.problem()->failed, 3);
    EXPECT_EQ(browser_.problem()->total, 4);
    EXPECT_EQ(count(Operation::removeTree, "/root/c.txt"), 0);
}

TEST_F(FileBrowserEditTest, withoutAMountOnlyWholeCopiesAreDragged) {
    files_->addHostile(u"/root"_s, u"-/../x"_s, "x");
    files_->fail(Operation::read, u"/root/c.txt"_s, Error(PhoneError::unreadable, {u"c"_s}));
    open("/root");
    QString hostile;
    for (const FileItem& item : browser_.items())
        if (item.name.contains(u'/'))
            hostile = item.id();
    using What = BrowserProblem::What;
    const std::tuple<QStringList, int, std::optional<What>> table[] = {
        // entries, local copies, why not
        {ids({"/root/a.txt", "/root/b.txt"}), 2, std::nullopt},
        {ids({"/root/a.txt", "/root/c.txt"}), 1, What::fetch},
        {ids({"/root/a.txt", "/root/dir"}), 0, What::dragFolder},
        {ids({"/root/a.txt"}) + QStringList(hostile), 0, What::fetch},
    };
    for (const auto& [entries, copies, what] : table) {
        std::optional<DragFiles> drag;
        prepareDrag(&browser_, {files_, browser_.itemsWithIds(entries), nullptr, staged_},
                    [&](const DragFiles& ready) { drag = ready; });
        ASSERT_TRUE(eventually([&] { return drag.has_value(); }));
        EXPECT_EQ(drag->localPaths.size(), copies);
        ASSERT_EQ(drag->notReady.empty(), !what);
        EXPECT_TRUE(!what || drag->notReady.front().what == *what);
    }
    Gate never;
    holdAt(never, Operation::read, "/root/d.txt");
    std::optional<DragFiles> late;
    prepareDrag(&browser_, {files_, browser_.itemsWithIds(ids({"/root/d.txt"})), nullptr, staged_},
                [&](const DragFiles& ready) { late = ready; });
    ASSERT_TRUE(eventually([&] { return late.has_value(); }));
    ASSERT_EQ(late->notReady.size(), 1U);
    EXPECT_EQ(late->notReady.front().what, What::dragLong);
}

} // namespace
} // namespace tessary
