#include "files/DirectoryCache.h"
#include "files/FileBrowserFixture.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<FileItem> listing(const char* name) {
    const QString text = QString::fromLatin1(name);
    return {FileItem(text, QStringLiteral("/") + text, false, 1, std::nullopt)};
}

class DirectoryCacheTest : public testing::Test {
protected:
    [[nodiscard]] bool has(const char* key) {
        return cache_.get(QString::fromLatin1(key)).has_value();
    }

    std::chrono::steady_clock::time_point now_{1h};
    DirectoryCache cache_{10, [this] { return now_; }};
    const QString a_ = QStringLiteral("a");
};

TEST_F(DirectoryCacheTest, entryHoldsForItsTimeAndIsThenGoneForGood) {
    cache_.set(a_, listing("old"));
    now_ += 9s;
    cache_.set(a_, listing("new"));
    now_ += 10s;
    EXPECT_EQ(cache_.get(a_), listing("new")) << "neither the age counts on, nor is 10 s over 10 s";
    now_ += 1ms;
    EXPECT_FALSE(has("a"));
    now_ -= 5s;
    EXPECT_FALSE(has("a"));
}

TEST_F(DirectoryCacheTest, onlyWhatIsNamedIsRemoved) {
    for (const char* key : {"a", "a/b", "ab", "c"})
        cache_.set(QString::fromLatin1(key), listing(key));
    cache_.invalidate(QStringLiteral("unknown"));
    cache_.invalidate(QStringLiteral("c"));
    cache_.invalidateBelow(QStringLiteral("a/"));
    EXPECT_TRUE(has("a") && has("ab"));
    EXPECT_FALSE(has("a/b") || has("c"));
    cache_.clearAll();
    cache_.clearAll();
    EXPECT_FALSE(has("a") || has("ab"));
}

TEST_F(DirectoryCacheTest, aboveTheLimitTheOneNotUsedForLongestGoes) {
    for (std::size_t n = 0; n < DirectoryCache::countLimit; ++n)
        cache_.set(QString::number(n), {});
    EXPECT_TRUE(has("0"));
    cache_.set(a_, {});
    EXPECT_TRUE(has("0") && has("2") && has("a"));
    EXPECT_FALSE(has("1"));
}

/// A browser whose phone answers no listing until the gate opens.
class RememberedFolderTest : public FileBrowserFixture {
protected:
    RememberedFolderTest() {
        fill("/root", {"a/", "b/", "c.txt"});
        fill("/root/a", {"deep/", "one.txt", "two.txt"});
        fill("/root/a/deep", {"three.txt"});
    }
    void visit() {
        open("/root");
        for (const char* path : {"/root/b", "/root/a", "/root/a/deep", "/root/a", "/root"})
            go(path);
    }
    void holdListings() {
        files_->setScript([this](const QString& operation, const std::stop_token& stop) {
            if (operation.startsWith(QLatin1StringView("list")))
                gate_.pass(stop);
        });
    }
    [[nodiscard]] bool isRemembered(const char* folder) {
        return browser_.folders().recall(*files_, QString::fromUtf8(folder)).has_value();
    }

    Gate gate_;
};

TEST_F(RememberedFolderTest, folderAppearsAtOnceAndItsRefreshMovesNothing) {
    visit();
    holdListings();
    browser_.navigateTo(QStringLiteral("/root/a"));
    EXPECT_THAT(names(), ElementsAre(u"deep", u"one.txt", u"two.txt"));
    EXPECT_TRUE(browser_.isLoading());
    browser_.selectItem(QStringLiteral("/root/a/two.txt"));
    int changes = 0;
    const auto count = [&changes] { ++changes; };
    QObject::connect(&browser_.rows(), &FileRows::aboutToBeReset, count);
    QObject::connect(&browser_.rows(), &FileRows::changed, count);
    QObject::connect(&browser_, &FileBrowserViewModel::selectionChanged, count);
    gate_.open();
    settle();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(files_->count(QStringLiteral("list /root/a")), 3) << "read anew behind it";
    EXPECT_EQ(browser_.state(), BrowserState::ready);
}

TEST_F(RememberedFolderTest, upSelectsAtOnceWhereOneCameFrom) {
    visit();
    go("/root/a");
    holdListings();
    browser_.navigateUp();
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/a")});
    browser_.selectItem(QStringLiteral("/root/b"));
    gate_.open();
    settle();
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/b")});
}

TEST_F(RememberedFolderTest, whatTheProgramChangesIsForgotten) {
    const QString file = local_.write(QStringLiteral("new.txt"), "x");
    const std::string all[] = {"/root/a", "/root/a/deep", "/root/b"};
    struct Row {
        const char* operation;
        std::function<void()> change;
        std::vector<std::string> kept;
    };
    const Row rows[] = {
        {"upload new.txt",
         [&] { browser_.uploadFiles({file}, QStringLiteral("/root/a")); },
         {"/root/a/deep", "/root/b"}},
        {"create deep",
         [&] { browser_.createFolder(QStringLiteral("deep")); },
         {"/root/a", "/root/a/deep", "/root/b"}},
        {"move c.txt",
         [&] { browser_.moveItemsToPath(ids({"/root/c.txt"}), QStringLiteral("/root/a")); },
         {"/root/a/deep", "/root/b"}},
        {"rename b",
         [&] { browser_.renameItem(QStringLiteral("/root/b"), QStringLiteral("x")); },
         {"/root/a", "/root/a/deep"}},
        {"delete a", [&] { browser_.deleteItems(ids({"/root/a"})); }, {"/root/b"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.operation);
        visit();
        const int listings = files_->count(QStringLiteral("list /root"));
        row.change();
        settle();
        EXPECT_EQ(files_->count(QString::fromLatin1(row.operation)), 1);
        EXPECT_TRUE(!isRemembered("/root") ||
                    files_->count(QStringLiteral("list /root")) > listings);
        std::vector<std::string> kept;
        std::copy_if(std::begin(all), std::end(all), std::back_inserter(kept),
                     [&](const std::string& folder) { return isRemembered(folder.c_str()); });
        EXPECT_EQ(kept, row.kept);
    }
}

TEST_F(RememberedFolderTest, whatAListingShowsToBeGoneIsForgotten) {
    visit();
    files_->setItems(QStringLiteral("/root"), {});
    browser_.reload();
    settle();
    EXPECT_FALSE(isRemembered("/root/a") || isRemembered("/root/a/deep"));
    EXPECT_TRUE(isRemembered("/root"));

    files_->setScript([](const QString& operation, const std::stop_token&) {
        if (operation == QStringLiteral("list /root"))
            throw TessaryError::fileIOError(QStringLiteral("odd"));
    });
    browser_.reload();
    settle();
    EXPECT_FALSE(isRemembered("/root")) << "it could not be read";
}

TEST_F(RememberedFolderTest, listingThatAChangeOvertookIsNotKept) {
    visit();
    holdListings();
    browser_.navigateTo(QStringLiteral("/root/a"));
    ASSERT_TRUE(eventually([this] { return gate_.waiting() > 0; }));
    browser_.folders().entryChanged(files_->identity(), QStringLiteral("/root/a/one.txt"));
    gate_.open();
    settle();
    EXPECT_FALSE(isRemembered("/root/a"));
}

TEST_F(RememberedFolderTest, deviceThatGoesTakesItsFoldersAlong) {
    DeviceInfo phone;
    phone.udid = QStringLiteral("P");
    phone.platform = DevicePlatform::android;
    const auto open = [&] {
        browser_.connectAndroid(phone, QStringLiteral("/root"));
        settle();
        EXPECT_TRUE(isRemembered("/root"));
    };
    open();
    browser_.folders().keepOnly({phone});
    EXPECT_TRUE(isRemembered("/root"));
    DeviceInfo other = phone;
    other.handle = 2;
    browser_.folders().keepOnly({other});
    EXPECT_FALSE(isRemembered("/root")) << "the same phone, plugged in anew";

    open();
    browser_.loseDevice();
    EXPECT_FALSE(isRemembered("/root"));

    open();
    phone.protocolMode = ProtocolMode::adbTurbo;
    browser_.updateDevice(phone);
    EXPECT_FALSE(isRemembered("/root")) << "the other protocol lists in its own way";
}

} // namespace
} // namespace tessary
