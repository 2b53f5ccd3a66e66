#include "browser/listing/DirectoryCache.h"
#include "browser/FileBrowserFixture.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<FileItem> listing(const char* name) {
    const QString text = QString::fromLatin1(name);
    return {FileItem(text, u"/"_s + text, false, 1, std::nullopt)};
}

class DirectoryCacheTest : public testing::Test {
protected:
    [[nodiscard]] bool has(const char* key) {
        return cache_.get(QString::fromLatin1(key)).has_value();
    }

    std::chrono::steady_clock::time_point now_{1h};
    DirectoryCache cache_{10, [this] { return now_; }};
    const QString a_ = u"a"_s;
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

TEST_F(RememberedFolderTest, whatTheProgramChangesIsForgotten) {
    const QString file = local_.write(u"new.txt"_s, "x");
    const char* const all[] = {"/root/a", "/root/a/deep", "/root/b"};
    const std::tuple<const char*, std::function<void()>, std::vector<std::string>> rows[] = {
        // what is done, change, left
        {"upload", [&] { uploadNow(browser_, {file}, u"/root/a"_s); }, {"/root/a/deep", "/root/b"}},
        {"create",
         [&] { browser_.createFolder(u"deep"_s); },
         {"/root/a", "/root/a/deep", "/root/b"}},
        {"move",
         [&] {
             browser_.changes().move(browser_.itemsWithIds(ids({"/root/c.txt"})), u"/root/a"_s);
         },
         {"/root/a/deep", "/root/b"}},
        {"rename", [&] { browser_.renameItem(u"/root/b"_s, u"x"_s); }, {"/root/a", "/root/a/deep"}},
        {"delete", [&] { browser_.deleteItems(ids({"/root/a"})); }, {"/root/b"}},
    };
    for (const auto& [what, change, left] : rows) {
        SCOPED_TRACE(what);
        visit();
        const int listings = count(Operation::list, "/root");
        const auto jobs = queue_.jobs().size();
        change();
        ASSERT_TRUE(std::string_view(what) != "upload" ||
                    eventually([&] { return queue_.jobs().size() > jobs; }));
        settle();
        EXPECT_FALSE(browser_.problem());
        EXPECT_TRUE(!isRemembered("/root") || count(Operation::list, "/root") > listings);
        std::vector<std::string> kept;
        for (const char* folder : all)
            if (isRemembered(folder))
                kept.emplace_back(folder);
        EXPECT_EQ(kept, left);
    }
}

TEST_F(RememberedFolderTest, whatAListingShowsToBeGoneIsForgotten) {
    visit();
    for (const QString& path : ids({"/root/a", "/root/b", "/root/c.txt"}))
        files_->removeQuietly(path);
    browser_.reload();
    settle();
    EXPECT_FALSE(isRemembered("/root/a") || isRemembered("/root/a/deep"));
    EXPECT_TRUE(isRemembered("/root"));

    files_->fail(Operation::list, u"/root"_s, Error(PhoneError::nonsense));
    browser_.reload();
    settle();
    EXPECT_FALSE(isRemembered("/root")) << "it could not be read";
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

TEST_F(RememberedFolderTest, deviceThatGoesTakesItsFoldersAlong) {
    fill("/root", {"a/"});
    DeviceInfo phone;
    phone.udid = u"P"_s;
    phone.platform = DevicePlatform::android;
    DeviceInfo replugged = phone;
    replugged.handle = 2;
    DeviceInfo turbo = phone;
    turbo.protocolMode = ProtocolMode::adbTurbo;
    for (const auto& lose : std::vector<std::function<void()>>{
             [&] { browser_.folders().keepOnly({replugged}); }, [&] { browser_.loseDevice(); },
             [&] { browser_.updateDevice(turbo); }}) {
        browser_.connectAndroid(phone, u"/root"_s);
        settle();
        browser_.folders().keepOnly({phone});
        EXPECT_TRUE(isRemembered("/root"));
        lose();
        EXPECT_FALSE(isRemembered("/root"));
    }
}

} // namespace
} // namespace tessary
