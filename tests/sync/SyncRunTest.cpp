#include "base/local/LocalError.h"
#include "support/TemporaryFolder.h"
#include "sync/MemoryPair.h"
#include "sync/plan/SyncError.h"
#include "sync/run/SyncLock.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Operation = MemoryFileSystem::Operation;
using Outcome = SyncReport::Outcome;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

QString paths(const std::vector<SyncSkippedItem>& skipped) {
    QStringList names;
    for (const SyncSkippedItem& item : skipped)
        names.append(item.path);
    names.sort();
    return names.join(u' ');
}

const QByteArray longOne = QByteArray(20'000, 'x');

/// Another content of the same length and the same first 4096 bytes.
QByteArray editedLate(QByteArray content, char mark = 'E') {
    content[15'000] = mark;
    return content;
}

TEST(SyncRunTest, everyModeCopiesItsWayAndASecondRunIsQuiet) {
    for (const bool setsDates : {true, false})
        for (const bool ontoTaken : {true, false})
            for (const SyncMode mode : allSyncModes) {
                SCOPED_TRACE(rawValue(mode).toStdString());
                MemoryPair pair({.setsDates = setsDates, .renamesOntoTaken = ontoTaken});
                pair.pair.syncMode = mode;
                pair.here("a", "1");
                pair.here("d/e/b", longOne);
                pair.here("empty", "");
                pair.there("p/1.heic", "photo");
                const SyncReport report = pair.goodRun();
                EXPECT_EQ(report.paths({SyncDeed::upload}).size(), mode == SyncMode::toMac ? 0 : 3);
                EXPECT_EQ(report.paths({SyncDeed::download}).size(),
                          mode == SyncMode::toiPhone ? 0 : 1);
                EXPECT_EQ(pair.last.completedBytes, pair.last.totalBytes);
                if (mode == SyncMode::biDirectional) {
                    EXPECT_EQ(pair.hereContents(), pair.thereContents());
                }
                pair.expectQuietRun();
                pair.here("a", "12");
                pair.there("p/1.heic", "photo, edited");
                EXPECT_EQ(
                    pair.goodRun().paths({SyncDeed::replaceOnDevice, SyncDeed::replaceHere}).size(),
                    mode == SyncMode::biDirectional ? 2 : 1);
                pair.expectQuietRun();
            }
}

TEST(SyncRunTest, editOfTheSameSizeBehindAnySampleArrives) {
    for (const bool onDevice : {false, true})
        for (const bool hasHashes : {false, true}) {
            MemoryPair pair({.hasHashes = hasHashes});
            pair.put(onDevice, u"a"_s, longOne);
            (void)pair.goodRun();
            pair.put(onDevice, u"a"_s, editedLate(longOne));
            EXPECT_EQ(pair.goodRun().items.size(), 1U);
            EXPECT_EQ(pair.users(!onDevice).at(u"a"_s).content, editedLate(longOne));
            pair.expectQuietRun();
            // A touch alone is compared and not copied.
            pair.put(onDevice, u"a"_s, editedLate(longOne));
            EXPECT_FALSE(pair.goodRun().hasChanges());
            pair.expectQuietRun();
        }
}

TEST(SyncRunTest, datesCutToTheMinuteHideNoEdit) {
    MemoryPair pair({.dateStep = std::chrono::minutes(1)});
    pair.there("a", longOne);
    (void)pair.goodRun();
    const QDateTime date = pair.device().item(MemoryPair::path(true, u"a"_s)).modifiedDate.value();
    pair.device().addFile(MemoryPair::path(true, u"a"_s), editedLate(longOne), date);
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::replaceHere}), ElementsAre(u"a"_s));
    EXPECT_EQ(pair.users(false).at(u"a"_s).content, editedLate(longOne));
}

TEST(SyncRunTest, moveAndDeletionTrustNoSampleAndNoDate) {
    for (const SyncMode mode : {SyncMode::toiPhone, SyncMode::toMac}) {
        SCOPED_TRACE(rawValue(mode).toStdString());
        const bool fromDevice = mode == SyncMode::toMac;
        MemoryPair pair;
        pair.put(fromDevice, u"a"_s, longOne);
        (void)pair.goodRun();
        // Edited within the second of its date: no listing shows it.
        MemoryFileSystem& source = pair.side(fromDevice);
        const QString path = MemoryPair::path(fromDevice, u"a"_s);
        source.addFile(path, editedLate(longOne), source.item(path).modifiedDate);
        pair.pair.syncMode = mode;
        pair.pair.moveFilesEnabled = true;
        (void)pair.goodRun();
        EXPECT_TRUE(pair.isAnywhere(editedLate(longOne)));
        EXPECT_TRUE(pair.isAnywhere(longOne));
    }
}

TEST(SyncRunTest, recordOfOneSideTellsOfNoDeletion) {
    const std::pair<const char*, void (*)(MemoryPair&)> rows[] = {
        {"another card, or a phone that was wiped",
         [](MemoryPair& pair) {
             for (const auto& [name, file] : pair.all(true))
                 pair.device().removeQuietly(MemoryPair::path(true, name));
             pair.there("else", "another");
         }},
        {"another disk at the mount point",
         [](MemoryPair& pair) {
             for (const auto& [name, file] : pair.all(false))
                 pair.local().removeQuietly(MemoryPair::path(false, name));
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
        for (const char* file : {"a", "b", "c"})
            pair.here(file, file);
        (void)pair.goodRun();
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

TEST(SyncRunTest, otherPhonesFileOfTheNameIsNotReplacedOnlyBecauseHereIsARecord) {
    MemoryPair pair;
    pair.here("IMG_0001.JPG", "first phone's");
    (void)pair.goodRun();
    pair.device().removeQuietly(MemoryPair::path(true, SyncManifest::fileName));
    pair.there("IMG_0001.JPG", "another one's");
    EXPECT_EQ(pair.goodRun().items.front().deed, SyncDeed::keepBoth);
    EXPECT_TRUE(pair.isAnywhere("first phone's") && pair.isAnywhere("another one's"));
}

TEST(SyncRunTest, oneWayRunKeepsWhatTheTargetAloneHas) {
    for (const SyncMode mode : {SyncMode::toiPhone, SyncMode::toMac})
        for (const bool moves : {false, true})
            for (const bool targetIsNewer : {false, true}) {
                SCOPED_TRACE(rawValue(mode).toStdString());
                const bool toDevice = mode == SyncMode::toiPhone;
                MemoryPair pair;
                pair.pair.syncMode = mode;
                pair.pair.moveFilesEnabled = moves;
                if (!targetIsNewer)
                    pair.put(toDevice, u"IMG_0001.JPG"_s, "of the first phone");
                pair.put(!toDevice, u"IMG_0001.JPG"_s, "of the second");
                if (targetIsNewer)
                    pair.put(toDevice, u"IMG_0001.JPG"_s, "of the first phone");
                const SyncPreview preview = pair.makeRun().preview();
                ASSERT_EQ(preview.items.size(), 1U);
                EXPECT_EQ(preview.items[0].deed, SyncDeed::keepBoth);
                (void)pair.goodRun();
                const MemoryTree target = pair.users(toDevice);
                EXPECT_EQ(target.size(), 2U);
                EXPECT_EQ(target.at(u"IMG_0001.JPG"_s).content, "of the second");
                EXPECT_TRUE(pair.isAnywhere("of the first phone"));
                EXPECT_EQ(pair.users(!toDevice).size(), moves ? 0U : 1U);
            }
}

TEST(SyncRunTest, halfArrivedFileLosesTheConflict) {
    for (const bool onDevice : {false, true})
        for (const bool halfIsNewer : {false, true}) {
            MemoryPair pair;
            if (halfIsNewer)
                pair.put(!onDevice, u"film.mp4"_s, longOne);
            pair.put(onDevice, u"film.mp4"_s, longOne.left(9000));
            if (!halfIsNewer)
                pair.put(!onDevice, u"film.mp4"_s, longOne);
            (void)pair.goodRun();
            for (const bool side : {false, true})
                EXPECT_EQ(pair.users(side).at(u"film.mp4"_s).content, longOne);
        }
}

TEST(SyncRunTest, conflictKeepsBothOnBothSides) {
    for (const bool deviceIsNewer : {false, true}) {
        MemoryPair pair;
        pair.put(!deviceIsNewer, u"d/n.txt"_s, "old version");
        pair.put(deviceIsNewer, u"d/n.txt"_s, "newer version!");
        const SyncReport report = pair.goodRun();
        ASSERT_EQ(report.items.size(), 1U);
        EXPECT_THAT(report.items[0].other.toStdString(), HasSubstr("d/n (conflict 2023-11-1"));
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
        EXPECT_EQ(pair.users(false).at(u"d/n.txt"_s).content, "newer version!");
        EXPECT_EQ(pair.users(false).at(report.items[0].other).content, "old version");
        pair.expectQuietRun();
    }
    // Of equal contents there is none.
    MemoryPair pair({.setsDates = false});
    pair.here("same", longOne);
    pair.there("same", longOne);
    EXPECT_FALSE(pair.goodRun().hasChanges());
    pair.expectQuietRun();
}

TEST(SyncRunTest, emptiedFileReplacesNothingWithoutACopy) {
    MemoryPair pair;
    pair.here("a", "thesis");
    (void)pair.goodRun();
    pair.here("a", "");
    EXPECT_EQ(pair.goodRun().items.front().deed, SyncDeed::keepBoth);
    EXPECT_TRUE(pair.isAnywhere("thesis"));
}

TEST(SyncRunTest, editDuringARunIsLeftForTheNext) {
    // An edit on either side at every single call of a run.
    for (const bool onDevice : {false, true})
        for (int at = 0;; ++at) {
            SCOPED_TRACE(at);
            MemoryPair pair;
            pair.here("up", "1");
            pair.there("down", "1");
            pair.here("gone", "1");
            (void)pair.goodRun();
            pair.here("up", "22");
            pair.there("down", "22");
            pair.removeHere("gone");
            pair.confirmAll();
            int call = 0;
            pair.beforeCall = [&](const auto&) {
                if (call++ == at)
                    for (const QString& name : {u"up"_s, u"down"_s, u"gone"_s})
                        pair.put(onDevice, name, "edited meanwhile");
            };
            (void)pair.goodRun();
            pair.beforeCall = nullptr;
            if (call <= at)
                break;
            (void)pair.goodRun();
            EXPECT_TRUE(pair.isAnywhere("edited meanwhile"));
            EXPECT_EQ(pair.hereContents(), pair.thereContents());
        }
}

TEST(SyncRunTest, nothingIsRecordedThatIsNotOnTheDisk) {
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
    // A move's source goes once its copy is on the disk.
    pair.pair.syncMode = SyncMode::toMac;
    pair.pair.moveFilesEnabled = true;
    pair.there("c", "moved");
    pair.beforeCall = [&](const MemoryFileSystem::Request& request) {
        if (request.is(Operation::remove, MemoryPair::path(true, u"c"_s))) {
            EXPECT_TRUE(pair.flushed.contains(u"c"_s));
        }
    };
    (void)pair.goodRun();
    EXPECT_FALSE(pair.users(true).contains(u"c"_s));
}

TEST(SyncRunTest, whatCannotBeReadIsNotGone) {
    MemoryPair pair;
    for (const char* name : {"a", "dir/b", "dir/c", "z"})
        pair.here(name, name);
    (void)pair.goodRun();
    pair.confirmAll();
    const QString dir = MemoryPair::path(true, u"dir"_s);
    pair.device().fail(Operation::list, dir, Error(PhoneError::accessDenied, {dir}), 1);
    pair.removeHere("dir/b");
    pair.here("z", "edited");
    const SyncReport report = pair.goodRun();
    EXPECT_THAT(pair.questions, IsEmpty());
    EXPECT_EQ(paths(report.skipped), u"dir dir/b dir/c"_s);
    EXPECT_THAT(report.paths({SyncDeed::replaceOnDevice}), ElementsAre(u"z"_s));
    EXPECT_TRUE(pair.users(true).contains(u"dir/b"_s));
    // The record of what was left is as it was: now the deletion is one.
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::deleteOnDevice}), ElementsAre(u"dir/b"_s));
}

TEST(SyncRunTest, listingThatBreaksOffEndsTheRun) {
    MemoryPair pair;
    for (const char* name : {"a", "b", "c", "d/e"})
        pair.here(name, name);
    (void)pair.goodRun();
    pair.confirmAll();
    pair.device().cutListing(MemoryPair::deviceRoot, 1);
    const SyncReport report = pair.run();
    EXPECT_EQ(report.outcome, Outcome::failed);
    EXPECT_TRUE(report.failure && report.failure->is(PhoneError::listingBroken));
    EXPECT_FALSE(report.hasChanges());
    EXPECT_EQ(pair.hereContents(), pair.thereContents());
}

TEST(SyncRunTest, oneRefusedFileStopsNothingElse) {
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
        const SyncReport report = pair.goodRun();
        EXPECT_EQ(paths(report.skipped), u"c d/b"_s);
        EXPECT_EQ(report.skipped.front().reason, reason);
        EXPECT_THAT(report.paths({SyncDeed::upload}), ElementsAre(u"a"_s));
        EXPECT_EQ(pair.goodRun().items.size(), 2U) << "the next run tries again";
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
    }
}

TEST(SyncRunTest, fullTargetEndsTheRunAndWhatIsDoneIsRecorded) {
    MemoryPair pair({.capacity = 30'000});
    pair.here("a", longOne);
    pair.here("b", longOne);
    const SyncReport report = pair.run();
    EXPECT_EQ(report.outcome, Outcome::failed);
    EXPECT_TRUE(report.failure && report.failure->is(PhoneError::full));
    EXPECT_THAT(report.paths({SyncDeed::upload}), ElementsAre(u"a"_s));
    pair.removeHere("b");
    EXPECT_FALSE(pair.goodRun().hasChanges());
    pair.expectQuietRun();
}

TEST(SyncRunTest, stopChangesNothingAndIsTheDefault) {
    MemoryPair pair;
    pair.here("a", "1");
    pair.here("b", "2");
    (void)pair.goodRun();
    pair.removeHere("a");
    pair.here("new", "3");
    const std::string before = pair.thereContents();
    const SyncReport report = pair.run();
    EXPECT_EQ(report.outcome, Outcome::cancelled);
    EXPECT_FALSE(report.hasChanges());
    ASSERT_EQ(pair.questions.size(), 1U);
    EXPECT_EQ(pair.thereContents(), before);
    pair.keepAll();
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::download}), ElementsAre(u"a"_s));
    pair.removeHere("a");
    pair.removeThere("b");
    pair.answer = [](const SyncQuestion& question) {
        EXPECT_EQ(question.candidates.size(), 2U);
        return SyncAnswer{true, {u"b"_s}};
    };
    const SyncReport decided = pair.goodRun();
    EXPECT_THAT(decided.paths({SyncDeed::deleteHere}), ElementsAre(u"b"_s));
    EXPECT_THAT(decided.paths({SyncDeed::download}), ElementsAre(u"a"_s));
}

TEST(SyncRunTest, emptySideAndMissingFolderAreAskedAbout) {
    using Kind = SyncQuestion::Kind;
    const std::tuple<const char*, Kind, void (*)(MemoryPair&)> rows[] = {
        {"emptied here", Kind::deletions,
         [](MemoryPair& pair) {
             pair.removeHere("a");
             pair.removeHere("b");
         }},
        {"another disk", Kind::emptySide,
         [](MemoryPair& pair) {
             for (const auto& [name, file] : pair.all(false))
                 pair.local().removeQuietly(MemoryPair::path(false, name));
         }},
        {"another card", Kind::emptySide,
         [](MemoryPair& pair) {
             for (const auto& [name, file] : pair.all(true))
                 pair.device().removeQuietly(MemoryPair::path(true, name));
         }},
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

TEST(SyncRunTest, whatWasDecidedAtAPreviewIsNotAskedAgain) {
    MemoryPair pair;
    for (const char* name : {"a", "b", "c"})
        pair.here(name, name);
    (void)pair.goodRun();
    pair.removeHere("a");
    pair.removeHere("b");
    pair.decisions.deletions = {u"a"_s};
    pair.decisions.kept = {u"b"_s};
    const SyncReport report = pair.goodRun();
    EXPECT_THAT(pair.questions, IsEmpty());
    EXPECT_THAT(report.paths({SyncDeed::deleteOnDevice}), ElementsAre(u"a"_s));
    EXPECT_THAT(report.paths({SyncDeed::download}), ElementsAre(u"b"_s));
    pair.removeHere("c"); // was not in the preview
    (void)pair.run();
    EXPECT_EQ(pair.questions.size(), 1U);
}

TEST(SyncRunTest, previewTellsAndTouchesNothing) {
    MemoryPair pair;
    pair.here("gone", "1");
    pair.here("Case", "2");
    pair.here("edited", "3");
    (void)pair.goodRun();
    pair.removeThere("gone");
    pair.removeHere("Case");
    pair.here("case", "2");
    pair.here("edited", "33");
    pair.here("new", "4");
    const MemoryTree here = pair.all(false);
    const MemoryTree there = pair.all(true);
    const SyncPreview preview = pair.makeRun().preview();
    QStringList lines;
    for (const SyncPreviewItem& item : preview.items)
        lines.append(QString::fromLatin1(item.deed ? deedName(*item.deed) : "-") + u' ' +
                     item.path);
    EXPECT_THAT(lines, ElementsAre(u"renameOnDevice case"_s, u"replaceOnDevice edited"_s,
                                   u"deleteHere gone"_s, u"upload new"_s));
    EXPECT_EQ(pair.all(false), here);
    EXPECT_EQ(pair.all(true), there);
    pair.confirmAll();
    EXPECT_EQ(pair.goodRun().items.size(), 4U);
    EXPECT_EQ(pair.hereContents(), pair.thereContents());
    pair.expectQuietRun();
}

TEST(SyncRunTest, patternsLeaveOut) {
    MemoryPair pair;
    pair.pair.patterns = {u"*.tmp"_s, u"/build/"_s};
    for (const char* name : {"a", "a.tmp", "build/x", "d/build/y", ".DS_Store"})
        pair.here(name, name);
    (void)pair.goodRun();
    EXPECT_EQ(pair.thereContents(), ".DS_Store=.DS_Store a=a d/build/y=d/build/y");
    // What is left out from now on is not deleted.
    pair.pair.patterns.append(u"a"_s);
    pair.removeHere("a");
    EXPECT_FALSE(pair.goodRun().hasChanges());
    EXPECT_TRUE(pair.users(true).contains(u"a"_s));
}

TEST(SyncRunTest, replacedAndDeletedFilesGoToTheTrash) {
    MemoryPair pair;
    QStringList trashed;
    pair.trash = [&](const QString& path) {
        trashed.append(QString::fromUtf8(pair.local().content(path)));
        pair.local().removeQuietly(path);
        return true;
    };
    pair.here("a", "old");
    pair.here("b", "unwanted");
    (void)pair.goodRun();
    pair.there("a", "newer");
    pair.removeThere("b");
    pair.confirmAll();
    (void)pair.goodRun();
    EXPECT_THAT(trashed, UnorderedElementsAre(u"old"_s, u"unwanted"_s));
    EXPECT_EQ(pair.hereContents(), "a=newer");
    pair.expectQuietRun();
}

TEST(SyncRunTest, phoneThatCannotRenameGetsNewFilesAndKeepsItsOld) {
    MemoryPair pair({.renames = false});
    pair.here("a", "1");
    (void)pair.goodRun();
    EXPECT_EQ(pair.thereContents(), "a=1");
    pair.here("a", "22");
    const SyncReport report = pair.goodRun();
    EXPECT_EQ(paths(report.skipped), u"a"_s);
    EXPECT_EQ(pair.thereContents(), "a=1");
}

TEST(SyncRunTest, recordThatCannotBeStoredIsReported) {
    MemoryPair pair;
    pair.here("a", "1");
    (void)pair.goodRun();
    pair.here("b", "2");
    const QString manifest = MemoryPair::path(true, SyncManifest::fileName);
    pair.beforeCall = [&](const MemoryFileSystem::Request& request) {
        if (request.is(Operation::remove, manifest))
            throw Error(PhoneError::accessDenied, {manifest});
    };
    const SyncReport report = pair.goodRun();
    ASSERT_EQ(report.skipped.size(), 1U);
    EXPECT_TRUE(report.skipped[0].reason.is(SyncError::recordNotStored));
    EXPECT_EQ(pair.hereContents(), pair.thereContents());
    // Plain edits go across without conflict copies all the same.
    pair.here("a", "11");
    EXPECT_THAT(pair.goodRun().paths({SyncDeed::replaceOnDevice}), ElementsAre(u"a"_s));
}

/// The copy has the size of the file that the record names, and a phone that dates files itself may
/// give it the same date.
TEST(SyncRunTest, movedFileIsNoDeletionWhereverTheRunIsKilled) {
    for (int at = 0;; ++at) {
        SCOPED_TRACE(at);
        MemoryPair pair({.setsDates = false});
        pair.here("a", "old");
        pair.here("b", "other");
        (void)pair.goodRun();
        pair.here("a", "new");
        pair.pair.syncMode = SyncMode::toiPhone;
        pair.pair.moveFilesEnabled = true;
        pair.killAt = at;
        EXPECT_THROW(
            {
                (void)pair.run();
                throw Killed();
            },
            Killed);
        const bool wasKilled = std::exchange(pair.isDead, false);
        pair.killAt = -1;
        pair.passTime();
        pair.pair.syncMode = SyncMode::biDirectional;
        pair.pair.deleteSyncEnabled = true;
        pair.confirmAll();
        (void)pair.goodRun();
        EXPECT_TRUE(pair.isAnywhere("new"));
        EXPECT_TRUE(pair.isAnywhere("other"));
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
        if (!wasKilled) {
            EXPECT_GT(at, 20);
            break;
        }
    }
}

TEST(SyncRunTest, movedFileStaysWhereTheRecordCannotBeStored) {
    MemoryPair pair;
    pair.here("a", "old");
    (void)pair.goodRun();
    pair.here("a", "new");
    pair.pair.syncMode = SyncMode::toiPhone;
    pair.pair.moveFilesEnabled = true;
    const QString manifest = MemoryPair::path(true, SyncManifest::fileName);
    pair.beforeCall = [&](const MemoryFileSystem::Request& request) {
        if (request.is(Operation::remove, manifest))
            throw Error(PhoneError::accessDenied, {manifest});
    };
    const SyncReport report = pair.run();
    EXPECT_EQ(pair.hereContents(), "a=new");
    EXPECT_EQ(pair.thereContents(), "a=new");
    EXPECT_FALSE(report.hasChanges());
    EXPECT_THAT(report.skipped, Not(testing::IsEmpty()));
}

TEST(SyncRunTest, runsOfOneUserWaitForEachOther) {
    const TemporaryFolder folder;
    const QString file = folder.path(u"runs.lock"_s);
    auto first = std::make_unique<SyncLock>(file, nullptr, std::stop_token());
    std::atomic<bool> waits = false;
    std::atomic<bool> isIn = false;
    std::jthread other([&] {
        const SyncLock second(file, [&] { waits = true; }, {});
        isIn = true;
    });
    while (!waits)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
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
    pair.onStatus = [&](const QString&) { stop.request_stop(); };
    EXPECT_EQ(pair.run(stop.get_token()).outcome, Outcome::cancelled);
    EXPECT_EQ(pair.calls, 0);
}

TEST(SyncRunTest, cancelledRunRecordsWhatItDid) {
    for (int at = 0;; ++at) {
        SCOPED_TRACE(at);
        MemoryPair pair;
        std::stop_source stop;
        pair.here("a", "1");
        pair.there("b", "2");
        pair.here("c", "33");
        pair.there("c", "4");
        int call = 0;
        pair.beforeCall = [&](const auto&) {
            if (call++ == at)
                stop.request_stop();
        };
        const SyncReport report = pair.run(stop.get_token());
        pair.beforeCall = nullptr;
        if (call <= at) {
            EXPECT_GT(at, 30);
            break;
        }
        for (const bool onDevice : {false, true})
            for (const auto& [name, file] : pair.all(onDevice))
                EXPECT_THAT(name.toStdString(), Not(HasSubstr("part-")));
        const SyncReport again = pair.goodRun();
        EXPECT_EQ(pair.hereContents(), pair.thereContents());
        for (const char* content : {"1", "2", "33", "4"})
            EXPECT_TRUE(pair.isAnywhere(content)) << content;
        EXPECT_LE(pair.users(false).size(), 5U);
        pair.expectQuietRun();
    }
}

} // namespace
} // namespace tessary
