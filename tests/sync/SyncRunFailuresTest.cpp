// What a run does when something is in its way: files that are refused, listings that break off,
// records that are lost, another run.

#include "phone/PartNames.h"
#include "support/TemporaryFolder.h"
#include "sync/MemoryPair.h"
#include "sync/plan/SyncError.h"
#include "sync/run/SyncLock.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Operation = MemoryFileSystem::Operation;
using Outcome = SyncReport::Outcome;
using testing::ElementsAre;
using testing::IsEmpty;

QString paths(const std::vector<SyncSkippedItem>& skipped) {
    QStringList names;
    for (const SyncSkippedItem& item : skipped)
        names.append(item.path);
    names.sort();
    return names.join(u' ');
}

TEST(SyncRunFailuresTest, recordOfOneSideTellsOfNoDeletion) {
    const std::pair<const char*, void (*)(MemoryPair&)> rows[] = {
        {"another card, or a phone that was wiped",
         [](MemoryPair& pair) {
             pair.empty(true);
             pair.there("else", "another");
         }},
        {"another disk at the mount point",
         [](MemoryPair& pair) {
             pair.empty(false);
             pair.here("else", "another");
         }},
        {"the phone's record is an older run's",
         [](MemoryPair& pair) {
             const QString manifest = MemoryPair::path(true, SyncManifest::fileName);
             const QByteArray old = pair.device().content(manifest);
             pair.here("late", "late");
             (void)pair.goodRun();
             pair.device().addFile(manifest, old);
             pair.removeThere("a");
             pair.removeHere("b");
         }},
        {"the phone's record is cut off",
         [](MemoryPair& pair) {
             pair.device().addFile(MemoryPair::path(true, SyncManifest::fileName), "{");
             pair.removeThere("a");
         }},
    };
    for (const auto& [name, change] : rows) {
        SCOPED_TRACE(name);
        MemoryPair pair;
        pair.beginWith({"a", "b", "c"});
        change(pair);
        pair.confirmAll();
        (void)pair.goodRun();
        for (const SyncQuestion& question : pair.questions)
            EXPECT_THAT(question.candidates, IsEmpty());
        for (const char* file : {"a", "b", "c"})
            EXPECT_TRUE(pair.isAnywhere(file));
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
        pair.expectQuietRun();
    }
}

TEST(SyncRunFailuresTest, aRunThatThePhoneWasNotToldTheEndOfCostsNoLaterDeletion) {
    MemoryPair pair;
    pair.beginWith({"a", "b"});
    const QString manifest = MemoryPair::path(true, SyncManifest::fileName);
    const QByteArray old = pair.device().content(manifest);
    pair.here("late", "late");
    (void)pair.goodRun();
    pair.device().addFile(manifest, old);
    (void)pair.goodRun();
    pair.confirmAll();
    pair.removeHere("a");
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::deleteOnDevice}), ElementsAre(u"a"_s));
}

TEST(SyncRunFailuresTest, aSideThatWasPutBackFromABackupReplacesNothing) {
    for (const bool onDevice : {false, true}) {
        MemoryPair pair;
        pair.beginWith({"a"});
        const MemoryTree backup = pair.all(onDevice);
        pair.put(!onDevice, u"a"_s, "newer");
        (void)pair.goodRun();
        for (const auto& [name, file] : backup)
            pair.side(onDevice).addFile(MemoryPair::path(onDevice, name), file.content, file.date);
        (void)pair.goodRun();
        EXPECT_EQ(pair.users(!onDevice).size(), 2U);
        EXPECT_EQ(pair.users(!onDevice).at(u"a"_s).content, "newer");
    }
}

TEST(SyncRunFailuresTest, nothingIsRecordedThatIsNotOnTheDisk) {
    MemoryPair pair;
    pair.there("a", "photo");
    pair.there("d/b", "photo, too");
    int manifests = 0;
    pair.beforeCall = [&](const MemoryFileSystem::Request& request) {
        const bool isManifest =
            request.operation == Operation::rename && request.other == SyncManifest::fileName;
        if (!isManifest)
            return;
        ++manifests;
        EXPECT_EQ(pair.flushed, pair.users(false));
    };
    (void)pair.goodRun();
    EXPECT_EQ(manifests, 4) << "two at the beginning, two at the end";
}

TEST(SyncRunFailuresTest, whatCannotBeReadIsNotGone) {
    MemoryPair pair;
    pair.beginWith({"a", "dir/b", "dir/c", "z"});
    pair.confirmAll();
    const QString dir = MemoryPair::path(true, u"dir"_s);
    pair.device().fail(Operation::list, dir, Error(PhoneError::accessDenied, {dir}), 1);
    pair.removeHere("dir/b");
    pair.here("z", "edited");
    const SyncReport report = pair.runTo(Outcome::incomplete);
    EXPECT_THAT(pair.questions, IsEmpty());
    EXPECT_EQ(paths(report.skipped), u"dir dir/b dir/c"_s);
    EXPECT_THAT(report.paths({SyncDeed::replaceOnDevice}), ElementsAre(u"z"_s));
    EXPECT_TRUE(pair.users(true).contains(u"dir/b"_s));
    // The record of what was left is as it was: now the deletion is one.
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::deleteOnDevice}), ElementsAre(u"dir/b"_s));
}

TEST(SyncRunFailuresTest, recordThatIsRefusedOnceIsReadAllTheSame) {
    MemoryPair pair;
    pair.here("a", "1");
    pair.here("b", "2");
    (void)pair.goodRun();
    pair.removeHere("a");
    pair.confirmAll();
    const QString manifest = MemoryPair::path(true, SyncManifest::fileName);
    pair.device().fail(Operation::read, manifest, Error(PhoneError::refused, {manifest}), 1);
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::deleteOnDevice}), ElementsAre(u"a"_s));
}

TEST(SyncRunFailuresTest, listingThatBreaksOffEndsTheRun) {
    MemoryPair pair;
    pair.beginWith({"a", "b", "c", "d/e"});
    pair.confirmAll();
    pair.device().cutListing(MemoryPair::deviceRoot, 1);
    const SyncReport report = pair.run();
    EXPECT_EQ(report.outcome, Outcome::failed);
    EXPECT_TRUE(report.failure && report.failure->is(PhoneError::listingBroken));
    EXPECT_FALSE(report.hasChanges());
    EXPECT_EQ(pair.hereContents(), pair.thereContents());
}

TEST(SyncRunFailuresTest, oneRefusedFileStopsNothingElse) {
    const Error reasons[] = {Error(PhoneError::accessDenied), Error(PhoneError::tooLarge),
                             Error(PhoneError::nameNotAllowed), Error(PhoneError::refused)};
    for (const Error& reason : reasons) {
        SCOPED_TRACE(reason.what());
        MemoryPair pair;
        pair.here("a", "1");
        pair.here("d/b", "2");
        pair.there("c", "3");
        pair.device().fail(Operation::makeFolder, MemoryPair::path(true, u"d"_s), reason, 1);
        pair.device().fail(Operation::read, MemoryPair::path(true, u"c"_s), reason, 1);
        const bool isForName = reason.is(PhoneError::nameNotAllowed);
        const SyncReport report = pair.runTo(isForName ? Outcome::done : Outcome::incomplete);
        ASSERT_EQ(paths(report.skipped), u"c d/b"_s);
        EXPECT_EQ(report.skipped.front().reason, reason);
        EXPECT_THAT(report.paths({SyncDeed::upload}), ElementsAre(u"a"_s));
        EXPECT_EQ(pair.goodRun().items.size(), 2U) << "the next run tries again";
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
    }
}

TEST(SyncRunFailuresTest, conflictThatNeverEndsKeepsItsLoserOnce) {
    const MemoryDevice replacing{.renamesOntoTaken = true};
    const std::tuple<const char*, MemoryDevice, SyncMode, bool, const char*> rows[] = {
        {"phone that replaces nothing", {.renames = false}, SyncMode::biDirectional, false, ""},
        {"the same, one way", {.renames = false}, SyncMode::toPhone, false, ""},
        {"old one is kept there", replacing, SyncMode::biDirectional, false, "a.txt"},
        {"old one is kept here", replacing, SyncMode::biDirectional, true, "a.txt"},
        {"copy is refused", replacing, SyncMode::biDirectional, false, "(conflict"},
    };
    for (const auto& [name, device, mode, deviceIsNewer, refused] : rows) {
        SCOPED_TRACE(name);
        MemoryPair pair(device);
        pair.pair.syncMode = mode;
        pair.put(!deviceIsNewer, u"a.txt"_s, "older");
        pair.put(deviceIsNewer, u"a.txt"_s, "newer one");
        const QString& root = deviceIsNewer ? MemoryPair::localRoot : MemoryPair::deviceRoot;
        pair.beforeCall = [&root, refused](const MemoryFileSystem::Request& request) {
            if (*refused != '\0' && request.path.startsWith(root) &&
                request.other.contains(QLatin1StringView(refused)))
                throw Error(PhoneError::accessDenied, {request.path});
        };
        for (int run = 0; run < 3; ++run) {
            EXPECT_EQ(paths(pair.runTo(Outcome::incomplete).skipped).count(u"a.txt"_s), 1);
            EXPECT_LE(pair.users(false).size(), 2U);
            EXPECT_LE(pair.users(true).size(), 2U);
        }
        // Another loser is another copy.
        MemoryFileSystem& loser = pair.side(!deviceIsNewer);
        const QString path = MemoryPair::path(!deviceIsNewer, u"a.txt"_s);
        loser.addFile(path, "OLDER", loser.item(path).modifiedDate);
        (void)pair.run();
        for (const char* content : {"older", "OLDER", "newer one"})
            EXPECT_TRUE(pair.isAnywhere(content)) << content;
        pair.beforeCall = nullptr;
        if (!device.renames)
            continue;
        (void)pair.goodRun();
        EXPECT_EQ(pair.users(false).size(), 3U);
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
        pair.expectQuietRun();
    }
}

TEST(SyncRunFailuresTest, emptySideAndMissingFolderAreAskedAbout) {
    using Kind = SyncQuestion::Kind;
    const std::tuple<const char*, Kind, void (*)(MemoryPair&)> rows[] = {
        {"emptied here", Kind::deletions,
         [](MemoryPair& pair) {
             pair.removeHere("a");
             pair.removeHere("b");
         }},
        {"another disk", Kind::emptySide, [](MemoryPair& pair) { pair.empty(false); }},
        {"another card", Kind::emptySide, [](MemoryPair& pair) { pair.empty(true); }},
        {"no disk", Kind::missingLocalFolder,
         [](MemoryPair& pair) { pair.local().removeQuietly(MemoryPair::localRoot); }},
    };
    for (const auto& [name, kind, change] : rows) {
        SCOPED_TRACE(name);
        MemoryPair pair;
        pair.here("a", "1");
        pair.here("b", "2");
        (void)pair.goodRun();
        change(pair);
        const std::string here = pair.hereContents();
        const std::string there = pair.thereContents();
        (void)pair.run();
        ASSERT_EQ(pair.questions.size(), 1U);
        EXPECT_EQ(pair.questions[0].kind, kind);
        EXPECT_NE(pair.questions[0].guard.kind, SyncGuard::Kind::nothing);
        EXPECT_EQ(pair.hereContents(), here);
        EXPECT_EQ(pair.thereContents(), there);
        pair.keepAll();
        (void)pair.goodRun();
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
        EXPECT_EQ(pair.users(false).size(), 2U);
        pair.expectQuietRun();
    }
}

TEST(SyncRunFailuresTest, recordThatCannotBeStoredIsReported) {
    MemoryPair pair;
    pair.here("a", "1");
    (void)pair.goodRun();
    pair.here("a", "2");
    pair.here("b", "2");
    pair.refuseRecord();
    const SyncReport report = pair.runTo(Outcome::incomplete);
    ASSERT_EQ(report.skipped.size(), 1U);
    EXPECT_TRUE(report.skipped[0].reason.is(SyncError::recordNotStored));
    EXPECT_EQ(pair.hereContents(), pair.thereContents());
    // What the phone's record says of it is older: an edit goes across without a conflict copy.
    pair.here("a", "11");
    EXPECT_THAT(pair.run().paths({SyncDeed::replaceOnDevice}), ElementsAre(u"a"_s));
}

TEST(SyncRunFailuresTest, movedFileThatARecordStillNamesKeepsItsSource) {
    MemoryPair pair;
    pair.here("a", "1");
    (void)pair.goodRun();
    pair.pair.syncMode = SyncMode::toComputer;
    pair.pair.moveFilesEnabled = true;
    pair.refuseRecord();
    EXPECT_TRUE(paths(pair.runTo(Outcome::incomplete).skipped).contains(u"a"_s));
    EXPECT_EQ(pair.thereContents(), "a=1");
    pair.beforeCall = nullptr;
    (void)pair.goodRun();
    EXPECT_EQ(pair.thereContents(), "");
    EXPECT_EQ(pair.hereContents(), "a=1");
}

TEST(SyncRunFailuresTest, movedFilesThatMayNotBeOnTheDiskKeepTheirSources) {
    MemoryPair pair;
    pair.pair.syncMode = SyncMode::toComputer;
    pair.pair.moveFilesEnabled = true;
    for (const char* name : {"a", "b", "c"})
        pair.there(name, name);
    pair.beforeCall = [&](const MemoryFileSystem::Request& request) {
        if (request.operation == Operation::rename && request.other == u"c"_s)
            pair.flushError = Error(LocalError::cannotWrite, {MemoryPair::localRoot, u"EIO"_s});
    };
    const SyncReport report = pair.runTo(Outcome::incomplete);
    EXPECT_EQ(paths(report.skipped), u"a b c"_s);
    EXPECT_THAT(report.items, IsEmpty());
    EXPECT_EQ(pair.thereContents(), "a=a b=b c=c");
    pair.beforeCall = nullptr;
    EXPECT_EQ(pair.goodRun().items.size(), 3U);
    EXPECT_EQ(pair.thereContents(), "");
}

TEST(SyncRunFailuresTest, aFolderIsNotMovedIntoItself) {
    MemoryPair pair;
    pair.pair.syncMode = SyncMode::toPhone;
    pair.pair.moveFilesEnabled = true;
    for (const bool onDevice : {false, true})
        pair.put(onDevice, u"a"_s, "a");
    // The phone's folder, shown here by another program: what this one gets, that one has.
    pair.beforeCall = [&](const MemoryFileSystem::Request& request) {
        if (request.operation == Operation::find)
            for (const auto& [name, file] : pair.all(false))
                if (isPartName(name))
                    pair.device().addFile(MemoryPair::path(true, name), file.content, file.date);
    };
    EXPECT_EQ(paths(pair.runTo(Outcome::incomplete).skipped), u"a"_s);
    EXPECT_EQ(pair.hereContents(), "a=a");
}

TEST(SyncRunFailuresTest, openQuestionHoldsUpNobodyAndIsAskedAgainWhereItChanged) {
    const TemporaryFolder folder;
    MemoryPair pair;
    pair.lockFile = folder.path(u"runs.lock"_s);
    pair.beginWith({"a", "b", "c"});
    pair.removeHere("a");
    pair.removeHere("b");
    pair.answer = [&](const SyncQuestion& question) {
        std::stop_source stopped;
        stopped.request_stop();
        EXPECT_NO_THROW(SyncLock(pair.lockFile, nullptr, stopped.get_token()));
        EXPECT_TRUE(pair.device().queue()->tryTake());
        if (pair.questions.size() == 1) {
            pair.here("a", "a, back again");
            pair.removeHere("c");
        }
        return SyncAnswer::deleteAll(question);
    };
    (void)pair.goodRun();
    EXPECT_EQ(pair.questions.size(), 2U);
    EXPECT_EQ(pair.hereContents(), "a=a, back again");
    EXPECT_EQ(pair.thereContents(), "a=a, back again");

    // What was said beforehand takes no second look.
    pair.removeHere("a");
    pair.here("d", "d");
    pair.saidBeforehand = SyncAnswer::deleteAll;
    pair.device().forgetRequests();
    (void)pair.goodRun();
    EXPECT_EQ(pair.questions.size(), 2U);
    EXPECT_EQ(pair.thereContents(), "d=d");
    const auto requests = pair.device().requests();
    EXPECT_EQ(std::count_if(requests.begin(), requests.end(),
                            [](const auto& each) { return each.operation == Operation::list; }),
              1);
}

TEST(SyncRunFailuresTest, runsOfOneUserWaitForEachOther) {
    const TemporaryFolder folder;
    const QString file = folder.path(u"runs.lock"_s);
    auto first = std::make_unique<SyncLock>(file, nullptr, std::stop_token());
    std::promise<bool> waits;
    std::atomic<bool> isIn = false;
    std::jthread other([&] {
        bool waited = false;
        const auto wait = [&] {
            waited = true;
            waits.set_value(true);
        };
        const SyncLock second(file, wait, {});
        isIn = true;
        if (!waited)
            waits.set_value(false);
    });
    ASSERT_TRUE(waits.get_future().get());
    EXPECT_FALSE(isIn);
    first.reset();
    other.join();
    EXPECT_TRUE(isIn);

    // A run that waits can be cancelled, and has touched nothing.
    const SyncLock held(file, nullptr, {});
    std::stop_source stop;
    MemoryPair pair;
    pair.here("a", "1");
    pair.lockFile = file;
    pair.onProgress = [&](const SyncProgress&) { stop.request_stop(); };
    EXPECT_EQ(pair.run(stop.get_token()).outcome, Outcome::cancelled);
    EXPECT_EQ(pair.calls, 0);
}

} // namespace
} // namespace tessary
