#include "FileBrowserFixture.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// Changes to the files of a phone, and taking them back.
class EntryChangesTest : public FileBrowserFixture {
protected:
    EntryChangesTest() {
        fill("/root", {"a/", "a/deep/", "b.txt", "c.txt", ".hidden"});
        open("/root");
    }
    [[nodiscard]] std::optional<UndoStep::Kind> undoable() const {
        const auto step = browser_.changes().undoable();
        return step ? std::optional(step->kind) : std::nullopt;
    }
    void undo() {
        browser_.changes().undo();
        settle();
    }
    /// Within the phone, into the folder shown when there is none.
    void copy(const QStringList& paths, const QString& folder) {
        browser_.copies().prepareTransfer(
            files_, browser_.itemsWithIds(paths), folder,
            [this](const PreparedCopy& prepared) { browser_.copies().start(prepared, {}); });
    }
    /// What a copy did is there.
    void settleCopies() {
        ASSERT_TRUE(eventually([this] {
            return !queue_.jobs().empty() && queue_.summary().isIdle() && !browser_.isEditing();
        }));
    }
};

TEST_F(EntryChangesTest, everyChangeIsTakenBackWhole) {
    const QStringList before = files_->tree();
    const std::tuple<const char*, UndoStep::Kind, std::function<void()>, const char*> rows[] = {
        // what, kind, change, a path that is there after it
        {"rename", UndoStep::Kind::rename, [&] { browser_.renameItem(u"/root/b.txt"_s, u"x"_s); },
         "/root/x"},
        {"move two", UndoStep::Kind::move,
         [&] {
             browser_.changes().move(browser_.itemsWithIds(ids({"/root/b.txt", "/root/c.txt"})),
                                     u"/root/a"_s);
         },
         "/root/a/c.txt"},
        {"create", UndoStep::Kind::create, [&] { browser_.createFolder(u"new"_s); }, "/root/new"},
    };
    for (const auto& [what, kind, change, path] : rows) {
        SCOPED_TRACE(what);
        change();
        settle();
        EXPECT_TRUE(files_->has(QString::fromUtf8(path)));
        EXPECT_EQ(undoable(), kind);
        undo();
        EXPECT_EQ(files_->tree(), before);
        EXPECT_FALSE(browser_.problem());
        EXPECT_EQ(undoable(), std::nullopt);
    }
}

TEST_F(EntryChangesTest, whatCannotBeTakenBackSaysWhyAndHarmsNothing) {
    browser_.createFolder(u"new"_s);
    settle();
    files_->addFile(u"/root/new/filled.txt"_s, "kept");
    undo();
    ASSERT_TRUE(browser_.problem());
    EXPECT_TRUE(browser_.problem()->failures.front().error.is(PhoneError::folderNotEmpty));
    EXPECT_EQ(files_->content(u"/root/new/filled.txt"_s), "kept");

    browser_.renameItem(u"/root/b.txt"_s, u"x"_s);
    settle();
    files_->addFile(u"/root/b.txt"_s, "another");
    undo();
    EXPECT_TRUE(browser_.problem()->failures.front().error.is(PhoneError::taken));
    EXPECT_EQ(files_->content(u"/root/b.txt"_s), "another");
    EXPECT_TRUE(files_->has(u"/root/x"_s));
}

TEST_F(EntryChangesTest, aFailedChangeIsNotTakenBack) {
    files_->fail(Operation::move, u"/root/b.txt"_s, Error(PhoneError::accessDenied));
    browser_.changes().move(browser_.itemsWithIds(ids({"/root/b.txt", "/root/c.txt"})),
                            u"/root/a"_s);
    settle();
    ASSERT_TRUE(browser_.changes().undoable());
    const std::vector<UndoStep::Change> done{{u"/root/c.txt"_s, u"/root/a/c.txt"_s}};
    EXPECT_EQ(browser_.changes().undoable()->changes, done);
}

TEST_F(EntryChangesTest, changesOfAnotherPhoneStayWithIt) {
    browser_.renameItem(u"/root/b.txt"_s, u"x"_s);
    settle();
    const auto other =
        std::make_shared<MemoryFileSystem>(MemoryFileSystem::Options{.identity = u"other"_s});
    other->addFile(u"/x"_s, "not this one");
    browser_.open(other, std::nullopt, u"/"_s);
    settle();
    EXPECT_EQ(undoable(), std::nullopt);
    undo();
    EXPECT_TRUE(other->has(u"/x"_s));
    browser_.open(files_, std::nullopt, {});
    settle();
    EXPECT_EQ(undoable(), UndoStep::Kind::rename);
    browser_.changes().remove(browser_.itemsWithIds(ids({"/root/c.txt"})));
    settle();
    EXPECT_EQ(undoable(), std::nullopt) << "of nothing before a deletion";
}

TEST_F(EntryChangesTest, ofACopyThatGoesAgainWhichIsThereAnew) {
    browser_.renameItem(u"/root/b.txt"_s, u"x"_s);
    settle();
    const QStringList before = files_->tree();
    Gate gate;
    holdAt(gate, Operation::write, "");
    copy(ids({"/root/c.txt"}), {});
    EXPECT_TRUE(browser_.copies().isPreparing());
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    EXPECT_EQ(undoable(), UndoStep::Kind::copy);
    browser_.changes().undo();
    EXPECT_FALSE(browser_.isEditing()) << "of nothing that was before it";
    EXPECT_TRUE(browser_.copies().areBeingRead(*files_, {*browser_.itemWithId(u"/root/c.txt"_s)}));
    gate.open();
    settleCopies();
    EXPECT_TRUE(files_->has(u"/root/c (2).txt"_s));
    undo();
    EXPECT_EQ(files_->tree(), before);
    EXPECT_EQ(undoable(), UndoStep::Kind::rename);

    uploadNow(browser_, {local_.write(u"c.txt"_s, "instead")});
    ASSERT_TRUE(eventually([this] { return queue_.jobs().size() == 2; }));
    settleCopies();
    EXPECT_EQ(undoable(), std::nullopt) << "what was replaced is not there any more";
}

TEST_F(EntryChangesTest, ofACopyWhatHasChangedSinceStaysAndIsNamed) {
    qputenv("XDG_DATA_HOME", QFile::encodeName(local_.makeFolder(u"data"_s)));
    files_->addFile(u"/root/a/deep/inner.txt"_s, "inner");
    files_->addFolder(u"/to"_s);
    local_.makeFolder(u"to"_s);
    browser_.createFolder(u"new"_s);
    settle();
    const QStringList copied = ids({"/root/a", "/root/b.txt", "/root/c.txt"});
    const struct {
        const char* name;
        std::function<void()> copy;
        std::function<void(const QString&)> change;
        std::function<bool(const QString&)> has;
    } rows[] = {
        {"on the phone", [&] { copy(copied, u"/to"_s); },
         [this](const QString& path) { files_->addFile(u'/' + path, "else"); },
         [this](const QString& path) { return files_->has(u'/' + path); }},
        {"to this computer", [&] { downloadNow(browser_, copied, local_.path(u"to"_s)); },
         [this](const QString& path) { local_.write(path, "else"); },
         [this](const QString& path) { return local_.has(path); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        row.copy();
        ASSERT_TRUE(eventually([this] {
            const auto step = browser_.changes().undoable();
            return step && step->kind == UndoStep::Kind::copy && !step->changes.empty();
        }));
        row.change(u"to/a/deep/new.txt"_s);
        row.change(u"to/b.txt"_s);
        undo();
        for (const QString& stays :
             {u"to/a/deep/inner.txt"_s, u"to/a/deep/new.txt"_s, u"to/b.txt"_s})
            EXPECT_TRUE(row.has(stays)) << stays.toStdString();
        EXPECT_FALSE(row.has(u"to/c.txt"_s));
        ASSERT_TRUE(browser_.problem());
        EXPECT_EQ(browser_.problem()->failed, 2);
        EXPECT_TRUE(browser_.problem()->failures.front().error.is(PhoneError::notAsCopied));
        EXPECT_EQ(undoable(), UndoStep::Kind::create) << "it is not tried again";
    }
    EXPECT_TRUE(local_.has(u"data/Trash/files/c.txt"_s));
    EXPECT_TRUE(files_->has(u"/root/c.txt"_s));
    qunsetenv("XDG_DATA_HOME");
}

/// As between a phone's own storage and its card.
TEST_F(EntryChangesTest, whatThePhoneCannotMoveIsCopiedAndRemoved) {
    for (const char* path : {"/root/a", "/root/b.txt"})
        files_->fail(Operation::move, QString::fromUtf8(path), Error(PhoneError::otherStorage));
    files_->addFile(u"/root/a/deep/inner.txt"_s, "inner");
    files_->addFolder(u"/card"_s);
    files_->addFile(u"/card/b.txt"_s, "was there");
    browser_.changes().move(browser_.itemsWithIds(ids({"/root/a", "/root/b.txt", "/root/c.txt"})),
                            u"/card"_s);
    settleCopies();
    EXPECT_FALSE(browser_.problem());
    EXPECT_EQ(files_->content(u"/card/a/deep/inner.txt"_s), "inner");
    EXPECT_EQ(files_->content(u"/card/b.txt"_s), "was there");
    EXPECT_EQ(files_->content(u"/card/b (2).txt"_s), QByteArray(10, 'x'));
    EXPECT_TRUE(files_->has(u"/card/c.txt"_s)) << "moved by the phone";
    for (const char* gone : {"/root/a", "/root/b.txt", "/root/c.txt"})
        EXPECT_FALSE(files_->has(QString::fromUtf8(gone))) << gone;
    EXPECT_TRUE(eventually([this] { return names().isEmpty(); })) << "the folder is read again";
}

TEST_F(EntryChangesTest, aFolderThatIsOpenedDuringAMoveIntoItShowsAllOfIt) {
    Gate gate;
    holdAt(gate, Operation::move, "/root/c.txt");
    browser_.changes().move(browser_.itemsWithIds(ids({"/root/b.txt", "/root/c.txt"})),
                            u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    browser_.navigateTo(u"/root/a"_s);
    ASSERT_TRUE(eventually([this] { return names().contains(u"b.txt"_s); }));
    gate.open();
    EXPECT_TRUE(eventually([this] { return names().contains(u"c.txt"_s); }));
}

TEST_F(EntryChangesTest, whatALinkLeadsToStaysWhenTheLinkIsMovedToThePhone) {
    const QString file = local_.write(u"archive/report.pdf"_s, "report");
    const QString link = local_.path(u"link.pdf"_s);
    ASSERT_TRUE(QFile::link(file, link));
    browser_.copies().prepareUpload(
        {link, local_.write(u"own.txt"_s, "own")}, {},
        [this](const PreparedCopy& prepared) { browser_.copies().start(prepared, {}); },
        BrowserCopies::Afterwards::removeSource);
    settleCopies();
    EXPECT_EQ(files_->content(u"/root/link.pdf"_s), "report");
    EXPECT_EQ(files_->content(u"/root/own.txt"_s), "own");
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_FALSE(local_.has(u"own.txt"_s));
}

TEST_F(EntryChangesTest, aStoppedMoveDoesNotGoOnAsACopy) {
    const QStringList before = files_->tree();
    files_->fail(Operation::move, u"/root/b.txt"_s, Error(PhoneError::otherStorage));
    Gate gate;
    holdAt(gate, Operation::move, "/root/c.txt");
    browser_.changes().move(browser_.itemsWithIds(ids({"/root/b.txt", "/root/c.txt"})),
                            u"/root/a"_s);
    ASSERT_TRUE(eventually([&] { return gate.waiting() == 1; }));
    browser_.changes().cancel();
    settle();
    EXPECT_TRUE(queue_.jobs().empty());
    EXPECT_EQ(files_->tree(), before);
}

} // namespace
} // namespace tessary
