#include "transfer/copy/FileCopy.h"

#include "base/threads/CancellationError.h"
#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/FileStream.h"
#include "transfer/copy/PartNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using Operation = MemoryFileSystem::Operation;
using testing::ElementsAre;

/// What one item refuses is left out; what the phone as a whole refuses ends the copy.
TEST(TreeCopyErrors, oneItemIsLeftOutAndThePhoneEndsAll) {
    const QString b = s("/side/b");
    const struct {
        const char* name;
        std::function<void(MemoryFileSystem&)> fault;
        CopyOutcome::End end;
        QStringList there;
        QStringList leftOut;
    } rows[] = {
        {"one cannot be read",
         [&](auto& phone) {
             phone.fail(Operation::read, b, {PhoneError::accessDenied, {b}});
         },
         CopyOutcome::End::incomplete,
         {s("a"), s("c"), s("d/"), s("d/e")},
         {s("b: accessDenied")}},
        {"one breaks off",
         [&](auto& phone) {
             phone.failAfterBytes(Operation::read, b, 700'000, {PhoneError::unreadable, {b}});
         },
         CopyOutcome::End::incomplete,
         {s("a"), s("c"), s("d/"), s("d/e")},
         {s("b: unreadable")}},
        {"one is shorter than announced",
         [&](auto& phone) { phone.announce(b, film.size() + 1); },
         CopyOutcome::End::incomplete,
         {s("a"), s("c"), s("d/"), s("d/e")},
         {s("b: wrongSize")}},
        {"one goes on and on",
         [&](auto& phone) { phone.announce(b, film.size() - FileStream::slack - 1); },
         CopyOutcome::End::incomplete,
         {s("a"), s("c"), s("d/"), s("d/e")},
         {s("b: wrongSize")}},
        {"one has grown a little",
         [&](auto& phone) { phone.announce(b, film.size() - 1000); },
         CopyOutcome::End::done,
         {s("a"), s("b"), s("c"), s("d/"), s("d/e")},
         {}},
        {"a folder's listing breaks off",
         [&](auto& phone) { phone.cutListing(s("/side/d"), 1); },
         CopyOutcome::End::incomplete,
         {s("a"), s("b"), s("c")},
         {s("d: listingBroken")}},
        {"the cable goes in the middle",
         [&](auto& phone) {
             phone.failAfterBytes(Operation::read, b, 700'000, {PhoneError::unplugged});
         },
         CopyOutcome::End::failed,
         {s("a")},
         {}},
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
        EXPECT_EQ(outcome.end(), row.end);
        EXPECT_EQ(target.contents().keys(), row.there);
        EXPECT_EQ(namesLeftOut(outcome), row.leftOut);
    }
}

TEST(TreeCopyErrors, aListingOlderThanItsFileIsLookedUpOnceMore) {
    MemorySide source({.queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.put(s("a"), "short", noon);
    TreeCopyRequest request = requestFor(source, target, ClashAnswer::skip);
    source.put(s("a"), "much longer", noon.addSecs(5));
    request.items[0].item.size = 500;
    EXPECT_EQ(run(std::move(request)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents().value(s("a")), "much longer");
}

TEST(TreeCopyErrors, aFullTargetEndsTheCopyBeforeItIsFull) {
    DiskSide source;
    MemorySide target({.capacity = 1'000'000, .queue = std::make_shared<PhoneQueue>()});
    source.fill(
        {{s("a/"), {}}, {s("a/1"), QByteArray(600'000, '1')}, {s("a/2"), QByteArray(600'000, '2')}},
        noon);
    const CopyOutcome outcome = run(requestFor(source, target, ClashAnswer::skip));
    EXPECT_EQ(outcome.end(), CopyOutcome::End::failed);
    EXPECT_EQ(outcome.failure, Error(PhoneError::full, {s("/side/a")}));
    EXPECT_EQ(outcome.files, 1);
    EXPECT_EQ(target.memory->bytes(Operation::write), 600'000); // the second was not even begun
}

TEST(TreeCopyErrors, aFileThatIsTooLargeForTheCardIsLeftOut) {
    DiskSide source;
    MemorySide target({.capabilities = {.largestFile = 100}});
    source.fill({{s("large"), QByteArray(101, 'l')}, {s("small"), "s"}}, noon);
    const CopyOutcome outcome = run(requestFor(source, target, ClashAnswer::skip));
    EXPECT_THAT(namesLeftOut(outcome), ElementsAre(s("large: tooLarge")));
    EXPECT_EQ(target.contents().keys(), QStringList{s("small")});
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

TEST(TreeCopyErrors, cancelledSoonAndWithoutAPart) {
    MemorySide source({.queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.fill({{s("a"), "a"}, {s("b"), film}}, noon);
    target.fill({{s("b"), "old"}}, noon);
    std::stop_source stop;
    source.memory->beforeEach([&stop](const MemoryFileSystem::Request& request) {
        if (request.is(Operation::read, s("/side/b")))
            stop.request_stop();
    });
    const CopyOutcome outcome =
        TreeCopy(requestFor(source, target, ClashAnswer::replace)).run({}, stop.get_token());
    EXPECT_EQ(outcome.end(), CopyOutcome::End::cancelled);
    EXPECT_EQ(target.contents(), (Contents{{s("a"), "a"}, {s("b"), "old"}}));
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
class TreeCopyLostLink : public testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Ways, TreeCopyLostLink, testing::Bool(), [](const auto& way) {
    return way.param ? "renamesOntoTaken" : "removesFirst";
});

TEST_P(TreeCopyLostLink, atEveryRequest) {
    const Contents coming{{s("a"), "new a"}, {s("d/"), {}}, {s("d/b"), film}, {s("d/c"), "new c"}};
    const Contents old{{s("a"), "old a"}, {s("d/"), {}}, {s("d/b"), "old b"}};
    int requests = 0;
    for (int lostAt = 1; requests == 0 || lostAt <= requests; ++lostAt) {
        SCOPED_TRACE(lostAt);
        DiskSide source;
        MemorySide target({.capabilities = {.renamesOntoTaken = GetParam(), .setsDates = true},
                           .queue = std::make_shared<PhoneQueue>()});
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
                                    waitingName({}, lastComponent(name));
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

MemoryFileSystem::Options phoneForMany() {
    return {.capabilities = {.setsDates = true, .readsTogether = true, .writesTogether = true},
            .queue = std::make_shared<PhoneQueue>()};
}

TEST(SmallFilesTogether, whatDoesNotGoThatWayGoesAloneAndSaysWhy) {
    const Contents coming{{s("a"), "1"}, {s("b"), "2"}, {s("c"), "3"}, {s("d"), "4"}};
    DiskSide source;
    MemorySide target(phoneForMany());
    source.fill(coming, noon);
    target.memory->fail(Operation::write, s("/side/b"), {PhoneError::refused}); // not as a part
    target.memory->beforeEach([&](const MemoryFileSystem::Request& request) {
        if (request.operation == Operation::write && request.path == s("/side/c"))
            target.memory->addFile(s("/side/c"), "another's", noon);
    });
    const CopyOutcome outcome = run(requestFor(source, target, ClashAnswer::skip));
    EXPECT_THAT(namesLeftOut(outcome), testing::ElementsAre(s("c: taken")));
    EXPECT_EQ(outcome.files, 3);
    Contents expected = coming;
    expected[s("c")] = "another's";
    EXPECT_EQ(target.contents(), expected);
}

TEST(SmallFilesTogether, aLinkLostAtAnyRequestIsMadeGood) {
    const Contents coming{{s("a"), "1"}, {s("d/"), {}}, {s("d/b"), "2"}, {s("d/c"), "3"}};
    for (const bool isUpload : {true, false})
        for (int lostAt = 1;; ++lostAt) {
            SCOPED_TRACE(lostAt);
            DiskSide disk;
            MemorySide phone(phoneForMany());
            CopyEnd& source = isUpload ? static_cast<CopyEnd&>(disk) : phone;
            CopyEnd& target = isUpload ? static_cast<CopyEnd&>(phone) : disk;
            source.fill(coming, noon);
            TreeCopyRequest request = requestFor(source, target, ClashAnswer::skip);
            phone.memory->loseLink(lostAt);
            const CopyOutcome broken = run(std::move(request));
            phone.memory->restoreLink();
            if (broken.end() != CopyOutcome::End::done) {
                ASSERT_EQ(broken.end(), CopyOutcome::End::failed);
                TreeCopyRequest again = requestFor(source, target, ClashAnswer::merge);
                again.skipsSame = true;
                EXPECT_EQ(run(std::move(again)).end(), CopyOutcome::End::done);
            }
            EXPECT_EQ(target.contents(), coming);
            if (broken.end() == CopyOutcome::End::done) {
                EXPECT_GE(lostAt, 5);
                break;
            }
        }
}

TEST(Leftovers, foldersOfOursGoWithAllInThemOnceTheyAreOld) {
    MemorySide target({.rules = {}});
    const QDateTime now = QDateTime::currentDateTime();
    target.memory->addFile(s("/side/.tessary-part-old/x"), "x", now);
    target.memory->addFile(s("/side/.tessary-part-new/x"), "x", now);
    std::vector<FileItem> items = listAll(*target.memory, s("/side"), {}).items;
    for (FileItem& item : items)
        item.modifiedDate = item.name == s(".tessary-part-old") ? now.addSecs(-3600) : now;
    EXPECT_THAT(tidied(*target.memory, items, {}, {}, {}), testing::IsEmpty());
    EXPECT_EQ(target.memory->tree(), (QStringList{s("/side/"), s("/side/.tessary-part-new/"),
                                                  s("/side/.tessary-part-new/x")}));
}

/// What is to be replaced is looked at again; what changed since stays.
TEST(FileCopies, whatChangedSinceItWasSeenStays) {
    const struct {
        const char* name;
        std::function<void(MemoryFileSystem& source, MemoryFileSystem& target)> change;
        std::optional<ErrorCode> code;
        QByteArray left;
    } rows[] = {
        {"nothing", [](auto&, auto&) {}, std::nullopt, "new"},
        {"the target's content",
         [](auto&, auto& target) { target.addFile(s("/t"), "edited", noon); },
         ErrorCode(PhoneError::changed), "edited"},
        {"the target's date alone",
         [](auto&, auto& target) { target.addFile(s("/t"), "old", noon.addSecs(1)); },
         ErrorCode(PhoneError::changed), "old"},
        {"the target went",
         [](auto&, auto& target) { target.removeQuietly(s("/t")); },
         ErrorCode(PhoneError::changed),
         {}},
        {"the source's content",
         [](auto& source, auto&) { source.addFile(s("/s"), "wen", noon.addSecs(1)); },
         ErrorCode(PhoneError::changed), "old"},
        {"the source went", [](auto& source, auto&) { source.removeQuietly(s("/s")); },
         ErrorCode(PhoneError::changed), "old"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryFileSystem source({.queue = std::make_shared<PhoneQueue>()});
        MemoryFileSystem target({.queue = std::make_shared<PhoneQueue>()});
        source.addFile(s("/s"), "new", noon);
        target.addFile(s("/t"), "old", noon);
        const FileCopy copy{.from = source,
                            .file = source.item(s("/s")),
                            .to = target,
                            .folder = s("/"),
                            .name = s("t"),
                            .replaces = target.item(s("/t"))};
        target.beforeEach([&](const MemoryFileSystem::Request& request) {
            if (request.operation == Operation::write)
                row.change(source, target);
        });
        std::optional<ErrorCode> code;
        try {
            EXPECT_EQ(copyFile(copy, {}, {}).modifiedDate, noon);
        } catch (const Error& error) {
            code = error.code();
        }
        EXPECT_EQ(code, row.code);
        EXPECT_EQ(target.content(s("/t")), row.left);
        EXPECT_LE(target.tree().size(), 1); // and no part
    }
}

TEST(FileCopies, aNameThatWasFreeAndIsTakenNowIsRefused) {
    MemoryFileSystem source({.queue = std::make_shared<PhoneQueue>()});
    MemoryFileSystem target({.queue = std::make_shared<PhoneQueue>()});
    source.addFile(s("/s"), "new", noon);
    target.beforeEach([&](const MemoryFileSystem::Request& request) {
        if (request.operation == Operation::write)
            target.addFile(s("/t"), "somebody's", noon);
    });
    EXPECT_THROW(copyFile({source, source.item(s("/s")), target, s("/"), s("t")}, {}, {}), Error);
    EXPECT_EQ(target.content(s("/t")), "somebody's");
    EXPECT_EQ(target.tree(), QStringList{s("/t")});
}

TEST(FileCopies, aWayThatCannotRenameGetsNewFilesOnly) {
    MemoryFileSystem source;
    MemoryFileSystem target({.capabilities = {.renames = false, .moves = false}});
    source.addFile(s("/s"), "new", noon);
    target.addFile(s("/t"), "old", noon);
    FileCopy copy{source, source.item(s("/s")), target, s("/"), s("u")};
    EXPECT_EQ(copyFile(copy, {}, {}).path, s("/u"));
    copy.name = s("t");
    copy.replaces = target.item(s("/t"));
    EXPECT_THROW(copyFile(copy, {}, {}), Error);
    EXPECT_EQ(target.content(s("/t")), "old");
    EXPECT_EQ(target.count(Operation::write), 1);
}

TEST(FileCopies, whatArrivedWrongIsFoundByComparing) {
    MemoryFileSystem source;
    for (const bool hasHashes : {true, false}) {
        MemoryFileSystem target({.capabilities = {.hasHashes = hasHashes}});
        source.addFile(s("/s"), film, noon);
        bool breaks = false;
        target.beforeEach([&](const MemoryFileSystem::Request& request) {
            if (breaks &&
                (request.operation == Operation::hash || request.operation == Operation::read))
                target.addFile(request.path, QByteArray(film.size(), 'g'), noon);
        });
        FileCopy copy{source, source.item(s("/s")), target, s("/"), s("t")};
        copy.verifies = true;
        EXPECT_NO_THROW(copyFile(copy, {}, {}));
        EXPECT_EQ(target.bytes(Operation::read), hasHashes ? 0 : film.size());
        breaks = true;
        copy.name = s("u");
        EXPECT_THROW(copyFile(copy, {}, {}), Error);
        EXPECT_EQ(target.tree(), QStringList{s("/t")});
    }
}

TEST(Leftovers, areFinishedOrRemovedAndNothingElseIs) {
    MemorySide target;
    DiskSide source;
    source.fill({{s("new"), "n"}}, noon);
    const QDateTime now = QDateTime::currentDateTime();
    const QString longName(245, QLatin1Char('l'));
    const QString old = PartFile::newName();
    const QString young = PartFile::newName();
    const QString used = PartFile::newName();
    target.put(old, "o", now.addSecs(-700));
    target.put(young, "y", now.addSecs(-500));
    target.put(used, "u", now.addSecs(-700));
    target.put(waitingName({}, s("film.mp4")), "whole", noon);
    target.put(waitingName({}, s("taken")), "whole", noon);
    target.put(s("taken"), "t", noon);
    target.put(waitingName({}, longName), "long", noon);
    target.put(waitingName({}, longName + u'x'), "not awaited", noon);
    source.put(longName, "long", noon.addSecs(5));
    const PartInUse use(used);
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents(), (Contents{{young, "y"},
                                           {used, "u"},
                                           {s("film.mp4"), "whole"},
                                           {s("taken"), "t"},
                                           {longName, "long"},
                                           {waitingName({}, longName + u'x'), "not awaited"},
                                           {s("new"), "n"}}));
}

TEST(Leftovers, areNoneOfTheUsersFiles) {
    MemorySide source;
    DiskSide target;
    source.fill({{s("d/a"), "a"}, {s("d/") + PartFile::newName(), "part"}}, noon);
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents().keys(), (QStringList{s("d/"), s("d/a")}));
}

/// Breaks off a copy of a large file at any point, and goes on.
TEST(LargeFiles, goOnInTheirMiddle) {
    const QByteArray large = QByteArray(3'000'000, 'l') + QByteArray(4'000'000, 'm');
    constexpr qint64 lastPiece = 1024 * 1024;
    for (const qint64 brokenAt : {0, 1, 500'000, 1'100'000, 4'000'000, 6'999'999}) {
        for (const bool verifies : {false, true}) {
            SCOPED_TRACE(brokenAt);
            MemorySide source({.pieceSize = 100'000, .queue = std::make_shared<PhoneQueue>()});
            DiskSide target;
            source.put(s("film"), large, noon);
            target.put(s("film"), "old", noon.addDays(-1));
            TreeCopyRequest request = requestFor(source, target, ClashAnswer::replace);
            request.verifies = verifies;
            source.memory->failAfterBytes(Operation::read, s("/side/film"), brokenAt,
                                          {PhoneError::unplugged});
            EXPECT_EQ(run(request).end(), CopyOutcome::End::failed);
            EXPECT_EQ(target.contents().value(s("film")), "old");
            source.memory->forgetRequests();
            EXPECT_EQ(run(request).end(), CopyOutcome::End::done);
            EXPECT_LE(source.memory->bytes(Operation::read),
                      large.size() - brokenAt + lastPiece + FileStream::mostAhead);
            EXPECT_EQ(target.contents(), (Contents{{s("film"), large}}));
        }
    }
}

TEST(LargeFiles, beginAnewWhenTheSourceChanged) {
    MemorySide source({.pieceSize = 100'000, .queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.put(s("film"), QByteArray(6'000'000, 'a'), noon);
    source.memory->failAfterBytes(Operation::read, s("/side/film"), 5'500'000,
                                  {PhoneError::unplugged});
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(), CopyOutcome::End::failed);
    const QByteArray other(6'000'000, 'b');
    source.put(s("film"), other, noon.addSecs(1));
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents().value(s("film")), other);
}

TEST(LargeFiles, leaveNothingWhenTheSourceContradictsItself) {
    MemorySide source({.pieceSize = 100'000, .queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.put(s("film"), QByteArray(6'000'000, 'a'), noon);
    source.memory->announce(s("/side/film"), 7'000'000);
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(),
              CopyOutcome::End::incomplete);
    EXPECT_TRUE(target.contents().isEmpty());
}

TEST(LargeFiles, thatWereGivenUpAreRemovedAfterADay) {
    MemorySide source({.queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.put(s("a"), "a", noon);
    const FileItem item = source.items()[0];
    const QDateTime now = QDateTime::currentDateTime();
    FileItem other = item;
    other.path += s("2");
    const QString young = resumableName(*source.memory, item);
    target.put(young, "y", now.addSecs(-23 * 3600));
    target.put(resumableName(*source.memory, other), "o", now.addSecs(-25 * 3600));
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents(), (Contents{{young, "y"}, {s("a"), "a"}}));
}

/// A copy that broke off goes on under the names that it gave, and what was left out alone.
TEST(TreeCopyAgain, goesOnWhereItBrokeOff) {
    DiskSide source;
    MemorySide target({.queue = std::make_shared<PhoneQueue>()});
    source.fill({{s("d/"), {}}, {s("d/a"), "a"}, {s("d/b"), film}, {s("d/c"), "c"}}, noon);
    target.fill({{s("d/"), {}}, {s("d/x"), "x"}}, noon);
    TreeCopyRequest request = requestFor(source, target, ClashAnswer::keepBoth);
    target.memory->loseLink(9);
    const CopyOutcome broken = run(request);
    ASSERT_EQ(broken.end(), CopyOutcome::End::failed);
    ASSERT_GE(broken.files, 1);
    target.memory->restoreLink();
    target.memory->forgetRequests();
    request.items = broken.items;
    request.skipsSame = true;
    const CopyOutcome rest = run(request);
    EXPECT_EQ(rest.end(), CopyOutcome::End::done);
    EXPECT_EQ(rest.alreadyThere, broken.files);
    EXPECT_EQ(target.contents().keys(), (QStringList{s("d (2)/"), s("d (2)/a"), s("d (2)/b"),
                                                     s("d (2)/c"), s("d/"), s("d/x")}));
}

TEST(TreeCopyAgain, whatWasLeftOutIsCopiedAlone) {
    MemorySide source({.queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    source.fill({{s("d/e/a"), "a"}, {s("d/e/b"), "b"}, {s("d/e/c"), "c"}}, noon);
    TreeCopyRequest request = requestFor(source, target, ClashAnswer::skip);
    source.memory->fail(Operation::read, s("/side/d/e/b"), {PhoneError::refused}, 1);
    const CopyOutcome first = run(request);
    ASSERT_EQ(first.leftOut.size(), 1U);
    EXPECT_EQ(first.leftOut[0].item.folder, s("d/e"));
    request.items = {first.leftOut[0].item};
    source.memory->forgetRequests();
    EXPECT_EQ(run(request).end(), CopyOutcome::End::done);
    EXPECT_EQ(source.memory->bytes(Operation::read), 1);
    EXPECT_EQ(target.contents().value(s("d/e/b")), "b");
    // Nor does a folder that has gone, or become a file, keep the others from being copied.
    request.items.push_back(first.leftOut[0].item);
    request.items[0].folder = s("x/y");
    request.items[1].folder = s("d/e/a/z");
    const CopyOutcome again = run(request);
    EXPECT_THAT(namesLeftOut(again), ElementsAre(s("b: notAFolder")));
    EXPECT_EQ(target.contents().value(s("x/y/b")), "b");
}

TEST(TreeCopyAgain, withoutItsTargetFolderThereIsNoCopy) {
    MemorySide source;
    DiskSide target;
    source.fill({{s("a"), "a"}}, noon);
    TreeCopyRequest request = requestFor(source, target, ClashAnswer::skip);
    request.folder += s("/missing");
    const CopyOutcome outcome = run(request);
    EXPECT_EQ(outcome.end(), CopyOutcome::End::failed);
    EXPECT_EQ(outcome.failure, Error(LocalError::notFound, {request.folder}));
}

} // namespace
} // namespace tessary
