#include "transfer/copy/TreeCopy.h"

#include "base/local/LocalError.h"
#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/FileStream.h"
#include "transfer/copy/Leftovers.h"

#include <gmock/gmock.h>

#include <atomic>

namespace tessary {
namespace {

using Operation = MemoryFileSystem::Operation;
using testing::ElementsAre;

/// Names are decided by the target, and nothing is left out in silence.
TEST(TreeCopyNames, theTargetDecides) {
    MemorySide source({.identity = s("source"), .rules = {}});
    const NameRules strict{.ignoresCase = true, .ignoresUnicodeForm = true};
    MemorySide target({.rules = strict});
    const QString longest = QString(251, u'x') + s(".txt");
    source.fill({{s("Foto.jpg"), "1"},
                 {s("foto.jpg"), "2"},
                 {s("caf\u00e9"), "3"},
                 {s("cafe\u0301"), "4"},
                 {s("Dir/"), {}},
                 {s("Dir/x"), "7"},
                 {s("dir/"), {}},
                 {s("dir/x"), "8"},
                 {s("a/"), {}},
                 {s("FOTO.jpg"), "9"},
                 {s("1%1.b/"), {}},
                 {s("1%1.B/"), {}},
                 {longest, "10"},
                 {longest.toUpper(), "11"}},
                noon);
    source.memory->addHostile(source.root(), s(".."), "up");
    source.memory->addHostile(source.root(), s("x/y"), "slash");
    source.memory->addHostile(source.root(), s("../z"), {}, true);
    source.memory->addUnreadable(source.at(s("broken")), {PhoneError::unreadable});
    TreeCopyRequest request{.from = source.memory, .to = target.memory, .folder = target.root()};
    // As a folder, since what a listing of the top reports is the caller's to show.
    const FileItem all = source.memory->item(source.root());
    request.items = {{all, s("all")}};
    const CopyOutcome outcome = run(std::move(request));
    EXPECT_EQ(target.contents().keys(),
              (QStringList{s("all/"), s("all/1%1.B/"), s("all/1%1.b (2)/"), s("all/Dir/"),
                           s("all/Dir/x"), s("all/FOTO.jpg"), s("all/Foto (2).jpg"),
                           s("all/") + longest.toUpper(), s("all/a/"), s("all/cafe\u0301"),
                           s("all/caf\u00e9 (2)"), s("all/dir (2)/"), s("all/dir (2)/x"),
                           s("all/foto (3).jpg"), s("all/") + QString(247, u'x') + s(" (2).txt")}));
    EXPECT_THAT(namesLeftOut(outcome),
                ElementsAre(s("../z: nameNotAllowed"), s("..: nameNotAllowed"),
                            s("broken: unreadable"), s("x/y: nameNotAllowed")));
    EXPECT_EQ(outcome.end(), CopyOutcome::End::incomplete);
    EXPECT_EQ(outcome.files, 9);
}

TEST(TreeCopyNames, twoFilesOfOneNameBothArrive) {
    MemorySide source({.givesHandles = true, .queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.put(s("a.txt"), "first", noon);
    source.memory->addTwin(source.at(s("a.txt")), "second", noon);
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::replace)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents(), (Contents{{s("a.txt"), "first"}, {s("a (2).txt"), "second"}}));
}

/// What one item refuses is left out; what the phone as a whole refuses ends the copy.
TEST(TreeCopyErrors, oneItemIsLeftOutAndThePhoneEndsAll) {
    const QString b = s("/side/b");
    const struct {
        const char* name;
        std::function<void(MemoryFileSystem&)> fault;
        const char* there;
        QStringList leftOut;
    } rows[] = {
        {"one cannot be read",
         [&](auto& phone) {
             phone.fail(Operation::read, b, {PhoneError::accessDenied, {b}});
         },
         "a c d/ d/e",
         {s("b: accessDenied")}},
        {"one breaks off",
         [&](auto& phone) {
             phone.failAfterBytes(Operation::read, b, 700'000, {PhoneError::unreadable, {b}});
         },
         "a c d/ d/e",
         {s("b: unreadable")}},
        {"one is shorter than announced",
         [&](auto& phone) { phone.announce(b, film.size() + 1); },
         "a c d/ d/e",
         {s("b: wrongSize")}},
        {"one goes on and on",
         [&](auto& phone) { phone.announce(b, film.size() - FileStream::slack - 1); },
         "a c d/ d/e",
         {s("b: wrongSize")}},
        {"one has grown a little",
         [&](auto& phone) { phone.announce(b, film.size() - 1000); },
         "a b c d/ d/e",
         {}},
        {"a folder's listing breaks off",
         [&](auto& phone) { phone.cutListing(s("/side/d"), 1); },
         "a b c",
         {s("d: listingBroken")}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemorySide source({.queue = std::make_shared<PhoneQueue>()});
        DiskSide target;
        source.fill({{s("a"), "a"}, {s("b"), film}, {s("c"), "c"}, {s("d/e"), "e"}}, noon);
        TreeCopyRequest request = requestFor(source, target, ClashAnswer::skip);
        std::sort(request.items.begin(), request.items.end(),
                  [](const auto& one, const auto& other) { return one.name < other.name; });
        row.fault(*source.memory);
        for (CopyItem& item : request.items)
            item.item = source.memory->item(item.item.path);
        const CopyOutcome outcome = run(std::move(request));
        EXPECT_EQ(outcome.end(),
                  row.leftOut.isEmpty() ? CopyOutcome::End::done : CopyOutcome::End::incomplete);
        EXPECT_EQ(target.contents().keys().join(u' '), s(row.there));
        EXPECT_EQ(namesLeftOut(outcome), row.leftOut);
    }
}

TEST(TreeCopyErrors, aFolderIsNotCopiedIntoItself) {
    MemorySide side({.queue = std::make_shared<PhoneQueue>()});
    side.fill({{s("a/b/c"), "c"}, {s("d"), "d"}}, noon);
    TreeCopyRequest request{.from = side.memory, .to = side.memory, .folder = side.at(s("a/b"))};
    request.items = {{side.memory->item(side.at(s("a"))), s("a")},
                     {side.memory->item(side.at(s("d"))), s("d")}};
    EXPECT_THAT(namesLeftOut(run(std::move(request))), ElementsAre(s("a: insideItself")));
    EXPECT_EQ(side.contents().value(s("a/b/d")), "d");
}

TEST(TreeCopyErrors, aCopyNeverReplacesWhatItComesFrom) {
    MemorySide side({.queue = std::make_shared<PhoneQueue>()});
    side.fill({{s("d"), "d"}}, noon);
    EXPECT_EQ(run(requestFor(side, side, ClashAnswer::replace)).end(), CopyOutcome::End::done);
    EXPECT_EQ(side.contents(), (Contents{{s("d"), "d"}, {s("d (2)"), "d"}}));
}

/// Two copies that cross must not wait for each other's phone.
TEST(TreeCopyErrors, copiesThatCrossBothEnd) {
    MemorySide one({.identity = s("one"), .queue = std::make_shared<PhoneQueue>()});
    MemorySide other({.identity = s("other"), .queue = std::make_shared<PhoneQueue>()});
    one.fill({{s("x"), film}, {s("y"), film}}, noon);
    other.fill({{s("v"), film}, {s("w"), film}}, noon);
    TreeCopyRequest there = requestFor(one, other, ClashAnswer::skip);
    TreeCopyRequest back = requestFor(other, one, ClashAnswer::skip);
    std::optional<CopyOutcome::End> end;
    std::jthread crossing([&] { end = run(std::move(back)).end(); });
    EXPECT_EQ(run(std::move(there)).end(), CopyOutcome::End::done);
    crossing.join();
    EXPECT_EQ(end, CopyOutcome::End::done);
    EXPECT_EQ(one.contents(), other.contents());
}

/// Whichever request the link goes at, no old file is lost, no half one has a name, and a second
/// run completes what the first did not.
class TreeCopyLostLink : public testing::TestWithParam<FileSystemCapabilities> {};
INSTANTIATE_TEST_SUITE_P(
    Ways, TreeCopyLostLink,
    testing::Values(FileSystemCapabilities{.setsDates = true},
                    FileSystemCapabilities{.renamesOntoTaken = true, .setsDates = true},
                    FileSystemCapabilities{.setsDates = true, .writesTogether = true}));

TEST_P(TreeCopyLostLink, atEveryRequest) {
    const Contents coming{{s("a"), "new a"},
                          {s("d/"), {}},
                          {s("d/b"), film},
                          {s("d/c"), "new c"},
                          {s("d/e"), "new e"}};
    const Contents old{{s("a"), "old a"}, {s("d/"), {}}, {s("d/b"), "old b"}};
    int requests = 0;
    for (int lostAt = 1; requests == 0 || lostAt <= requests; ++lostAt) {
        SCOPED_TRACE(lostAt);
        DiskSide source;
        MemorySide target({.capabilities = GetParam(), .queue = std::make_shared<PhoneQueue>()});
        source.fill(coming, noon);
        target.fill(old, noon.addDays(-1));
        target.memory->loseLink(lostAt);
        const CopyOutcome broken = run(requestFor(source, target, ClashAnswer::replace));
        if (broken.end() == CopyOutcome::End::done) {
            requests = lostAt;
            break;
        }
        ASSERT_EQ(broken.end(), CopyOutcome::End::failed);
        for (const QString& name : {s("a"), s("d/b")}) {
            const Contents now = target.contents();
            const QString waiting = parentPath(QLatin1Char('/') + name).mid(1) +
                                    (name.contains(u'/') ? s("/") : s("")) +
                                    waitingName({}, lastComponent(name), {});
            EXPECT_TRUE(now.value(name) == old[name] || now.value(name) == coming[name] ||
                        now.value(waiting) == coming[name])
                << name.toStdString();
        }
        target.memory->restoreLink();
        TreeCopyRequest again = requestFor(source, target, ClashAnswer::replace);
        again.skipsSame = true;
        EXPECT_EQ(run(std::move(again)).end(), CopyOutcome::End::done);
        Contents now = target.contents();
        for (const QString& name : now.keys())
            if (isPartName(lastComponent(name)))
                now.remove(name); // too young to be taken for a leftover
        EXPECT_EQ(now, coming);
    }
    EXPECT_GT(requests, 10);
}

/// Wherever the cable goes: what is there already is neither copied twice nor left at its source.
TEST(TreeCopyAgain, aMoveGoesOnWhereItBrokeOff) {
    const Contents tree{
        {s("a"), "a"}, {s("d/"), {}}, {s("d/b"), "b"}, {s("d/c"), film}, {s("e/"), {}}};
    int lostAt = 1;
    for (bool isWhole = false; !isWhole; ++lostAt) {
        SCOPED_TRACE(lostAt);
        MemorySide source({.queue = std::make_shared<PhoneQueue>()});
        DiskSide target;
        source.fill(tree, noon);
        TreeCopyRequest request = requestFor(source, target, ClashAnswer::keepBoth);
        request.removesSource = true;
        source.memory->loseLink(lostAt);
        const CopyOutcome first = run(request);
        isWhole = first.end() == CopyOutcome::End::done;
        source.memory->restoreLink();
        if (target.contents().contains(s("a")))
            target.put(s("a"), "a", noon.addDays(1)); // as where no date is kept
        request.items = first.items;
        request.skipsSame = true;
        const CopyOutcome rest = run(request);
        EXPECT_THAT(namesLeftOut(rest), testing::IsEmpty());
        EXPECT_EQ(rest.end(), CopyOutcome::End::done);
        EXPECT_EQ(target.contents(), tree) << target.contents().keys().join(u' ').toStdString();
        EXPECT_THAT(source.contents(), testing::IsEmpty());
    }
    EXPECT_GT(lostAt, 15);
}

TEST(TreeCopyAgain, aMoveTakesNothingThatMayNotBeOnTheDisk) {
    const Contents tree{{s("a"), "a"}, {s("d/"), {}}, {s("d/b"), "b"}};
    MemorySide source({.queue = std::make_shared<PhoneQueue>()});
    MemorySide target({.identity = s("stick")});
    source.fill(tree, noon);
    TreeCopyRequest request = requestFor(source, target, ClashAnswer::keepBoth);
    request.removesSource = true;
    target.memory->fail(Operation::flush, {}, {LocalError::cannotWrite});
    const CopyOutcome first = run(request);
    EXPECT_THAT(namesLeftOut(first), ElementsAre(s("a: cannotWrite"), s("b: cannotWrite")));
    EXPECT_EQ(source.contents(), tree);
    target.memory->forgetFaults();
    request.items = first.items;
    request.skipsSame = true;
    EXPECT_EQ(run(request).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents(), tree);
    EXPECT_THAT(source.contents(), testing::IsEmpty());
    // As after a kill: nobody has noted what is gone already.
    request.items = {first.items.front()};
    EXPECT_EQ(run(request).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents(), tree);
}

TEST(TreeCopyErrors, whatAPhoneKeptOnlyPartOfReplacesNothing) {
    DiskSide source;
    MemorySide phone({.keepsAtMost = 5, .queue = std::make_shared<PhoneQueue>()});
    source.fill({{s("a"), "the new one"}, {s("b"), "small"}}, noon);
    phone.fill({{s("a"), "old"}, {s("b"), "old"}}, noon);
    TreeCopyRequest request = requestFor(source, phone, ClashAnswer::replace);
    EXPECT_THAT(namesLeftOut(run(std::move(request))), ElementsAre(s("a: differs")));
    EXPECT_EQ(phone.contents(), (Contents{{s("a"), "old"}, {s("b"), "small"}}));
}

TEST(TreeCopyAgain, aPhoneThatDatesFilesItselfGetsNoneTwice) {
    const Contents tree{
        {s("a"), "a"}, {s("d/"), {}}, {s("d/b"), "b"}, {s("d/c"), film}, {s("e"), "e"}};
    int stopAt = 1;
    for (bool isWhole = false; !isWhole; ++stopAt) {
        SCOPED_TRACE(stopAt);
        DiskSide source;
        MemorySide phone({.datesItself = true, .queue = std::make_shared<PhoneQueue>()});
        source.fill(tree, noon);
        TreeCopyRequest request = requestFor(source, phone, ClashAnswer::keepBoth);
        std::stop_source stop;
        std::atomic<int> left = stopAt;
        phone.memory->beforeEach([&](const auto&) {
            if (--left == 0)
                stop.request_stop();
        });
        const CopyOutcome first = TreeCopy(request).run({}, stop.get_token());
        isWhole = !first.isCancelled;
        request.items = first.items;
        request.skipsSame = true;
        request.brought = first.brought;
        EXPECT_EQ(run(request).end(), CopyOutcome::End::done);
        EXPECT_EQ(phone.contents(), tree) << phone.contents().keys().join(u' ').toStdString();
    }
    EXPECT_GT(stopAt, 10);
}

/// What only looks the same is not taken for the copy of a file that goes.
TEST(TreeCopyAgain, aMoveThatGoesOnRemovesNothingThatIsNotThere) {
    MemorySide source({.queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.fill({{s("a"), "this"}}, noon);
    target.fill({{s("a"), "that"}}, noon);
    TreeCopyRequest request = requestFor(source, target, ClashAnswer::keepBoth);
    request.removesSource = true;
    request.skipsSame = true;
    EXPECT_THAT(namesLeftOut(run(std::move(request))), ElementsAre(s("a: taken")));
    EXPECT_EQ(source.contents(), (Contents{{s("a"), "this"}}));
    EXPECT_EQ(target.contents(), (Contents{{s("a"), "that"}}));
}

/// Another program shows the phone's folder on this computer.
TEST(TreeCopyAgain, aFolderIsNotMovedIntoItself) {
    for (const ClashAnswer answer : {ClashAnswer::keepBoth, ClashAnswer::replace}) {
        MemorySide source({.queue = std::make_shared<PhoneQueue>()});
        DiskSide target;
        source.fill({{s("a"), "this"}}, noon);
        target.fill({{s("a"), "this"}}, noon);
        source.memory->beforeEach([&](const MemoryFileSystem::Request& request) {
            if (request.operation != Operation::find)
                return;
            for (const QString& name : target.contents().keys())
                if (isPartName(name))
                    source.memory->addFile(joinPath(source.root(), name), {}, noon);
        });
        TreeCopyRequest request = requestFor(source, target, answer);
        request.removesSource = true;
        request.skipsSame = answer == ClashAnswer::keepBoth;
        EXPECT_THAT(namesLeftOut(run(std::move(request))), ElementsAre(s("a: insideItself")));
        EXPECT_EQ(source.contents().value(s("a")), "this");
        EXPECT_EQ(target.contents(), (Contents{{s("a"), "this"}}));
    }
}

} // namespace
} // namespace tessary
