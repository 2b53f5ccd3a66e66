#include "browser/listing/DirectoryCache.h"
#include "browser/FileBrowserFixture.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

using testing::ElementsAre;

/// A browser whose phone answers no listing until the gate opens.
class RememberedFolderTest : public FileBrowserFixture {
protected:
    void visit() {
        fill("/root", {"a/", "b/", "c.txt"});
        fill("/root/a", {"deep/", "one.txt", "two.txt"});
        fill("/root/a/deep", {"three.txt"});
        open("/root");
        for (const char* path : {"/root/b", "/root/a", "/root/a/deep", "/root/a", "/root"})
            go(path);
    }
    [[nodiscard]] bool isRemembered(const char* folder) {
        return browser_.folders().recall(files_->identity(), QString::fromUtf8(folder)).has_value();
    }

    Gate gate_;
};

TEST_F(RememberedFolderTest, folderAppearsAtOnceAndItsRefreshMovesNothing) {
    visit();
    go("/root/a/deep");
    holdAt(gate_, Operation::list, "");
    browser_.navigateUp();
    EXPECT_THAT(names(), ElementsAre(u"deep", u"one.txt", u"two.txt"));
    EXPECT_TRUE(browser_.isLoading());
    EXPECT_EQ(browser_.selection().ids(), QSet<QString>{u"/root/a/deep"_s})
        << "where one came from";
    browser_.selection().select(u"/root/a/two.txt"_s);
    int changes = 0;
    const auto note = [&changes] { ++changes; };
    QObject::connect(&browser_.rows(), &FileRows::aboutToBeReset, note);
    QObject::connect(&browser_.rows(), &FileRows::changed, note);
    QObject::connect(&browser_.selection(), &EntrySelection::changed, note);
    gate_.open();
    settle();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(count(Operation::list, "/root/a"), 3) << "read anew behind it";
    EXPECT_EQ(browser_.state(), BrowserState::ready);
}

TEST_F(RememberedFolderTest, listingThatAChangeOvertookIsNotKept) {
    visit();
    holdAt(gate_, Operation::list, "");
    browser_.navigateTo(u"/root/a"_s);
    ASSERT_TRUE(eventually([this] { return gate_.waiting() > 0; }));
    browser_.folders().entryChanged(files_->identity(), u"/root/a/one.txt"_s);
    gate_.open();
    settle();
    EXPECT_FALSE(isRemembered("/root/a"));
}

} // namespace
} // namespace tessary
