#include "transfer/copy/FileCopy.h"

#include "base/threads/CancellationError.h"
#include "support/CodeOf.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"
#include "transfer/CopySides.h"
#include "transfer/copy/FileStream.h"
#include "transfer/copy/Leftovers.h"
#include "transfer/local/LocalFileSystem.h"

#include <gmock/gmock.h>

namespace tessary {
namespace {

using Operation = MemoryFileSystem::Operation;

/// What is to be replaced is looked at again; what changed since stays.
TEST(FileCopies, whatChangedSinceItWasSeenStays) {
    const struct {
        const char* name;
        std::function<void(MemoryFileSystem& source, MemoryFileSystem& target)> change;
        const char* code;
        QByteArray left;
        bool isFree = false; ///< at first
    } rows[] = {
        {"nothing", [](auto&, auto&) {}, "nothing", "new"},
        {"the target's content", [](auto&, auto& target) { target.addFile(s("/t"), "edited"); },
         "changed", "edited"},
        {"the target's date alone",
         [](auto&, auto& target) { target.addFile(s("/t"), "old", noon.addSecs(1)); }, "changed",
         "old"},
        {"the target went", [](auto&, auto& target) { target.removeQuietly(s("/t")); }, "changed",
         QByteArray()},
        {"the source's content",
         [](auto& source, auto&) { source.addFile(s("/s"), "wen", noon.addSecs(1)); }, "changed",
         "old"},
        {"the source went", [](auto& source, auto&) { source.removeQuietly(s("/s")); }, "changed",
         "old"},
        {"the target came", [](auto&, auto& target) { target.addFile(s("/t"), "else", noon); },
         "taken", "else", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryFileSystem source({.queue = std::make_shared<PhoneQueue>()});
        MemoryFileSystem target({.queue = std::make_shared<PhoneQueue>()});
        source.addFile(s("/s"), "new", noon);
        FileCopy copy{source, source.item(s("/s")), target, s("/"), s("t")};
        if (!row.isFree) {
            target.addFile(s("/t"), "old", noon);
            copy.replaces = target.item(s("/t"));
        }
        target.beforeEach([&](const MemoryFileSystem::Request& request) {
            if (request.operation == Operation::write)
                row.change(source, target);
        });
        EXPECT_EQ(codeOf([&] { EXPECT_EQ(copyFile(copy, {}, {}).modifiedDate, noon); }), row.code);
        EXPECT_EQ(target.content(s("/t")), row.left);
        EXPECT_LE(target.tree().size(), 1); // and no part
    }
}

TEST(FileCopies, nothingIsReadOfWhatTheTargetCannotHold) {
    MemoryFileSystem source;
    MemoryFileSystem target({.capabilities = {.largestFile = 99}});
    source.addFile(s("/s"), QByteArray(100, 's'), noon);
    const FileCopy copy{source, source.item(s("/s")), target, s("/"), s("t")};
    EXPECT_EQ(codeOf([&] { (void)copyFile(copy, {}, {}); }), "tooLarge");
    EXPECT_EQ(source.count(Operation::read), 0);
}

/// Comparing asks both phones, neither to send again what it works out itself.
TEST(FileCopies, aPhoneThatWorksHashesOutSendsNothingForComparing) {
    for (const bool hasHashes : {true, false}) {
        const MemoryFileSystem::Options options{.capabilities = {.hasHashes = hasHashes},
                                                .queue = std::make_shared<PhoneQueue>()};
        MemoryFileSystem source(options);
        MemoryFileSystem target(options);
        source.addFile(s("/s"), film, noon);
        FileCopy copy{source, source.item(s("/s")), target, s("/"), s("t")};
        copy.verifies = true;
        qint64 shown = 0;
        qint64 whenAllWasThere = 0;
        const auto show = [&](qint64 done) {
            EXPECT_GE(done, shown);
            shown = done;
            if (target.bytes(Operation::write) == film.size() && whenAllWasThere == 0)
                whenAllWasThere = done;
        };
        EXPECT_NO_THROW(copyFile(copy, show, {}));
        EXPECT_EQ(source.bytes(Operation::read), hasHashes ? film.size() : 2 * film.size());
        EXPECT_EQ(target.bytes(Operation::read), hasHashes ? 0 : film.size());
        // What goes across thrice is a third done when it is there.
        EXPECT_EQ(shown, film.size());
        EXPECT_LE(whenAllWasThere, hasHashes ? film.size() : film.size() / 2);
    }
}

/// Phones take as many bytes as they were told of and ask no further; a disk is drawn from only as
/// they do.
TEST(FileStreams, ofADiskAreHeldToWhatWasSeen) {
    const QByteArray content = manyBytes(1'500'000);
    const struct {
        const char* name;
        qint64 sizeNow;
        qint64 offset;
        const char* code;
    } rows[] = {{"as seen", content.size(), 0, "nothing"},
                {"from its middle", content.size(), 700'001, "nothing"},
                {"cut", content.size() - 1, 0, "wrongSize"},
                {"grown by a byte", content.size() + 1, 0, "wrongSize"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const TemporaryFolder disk;
        const QString path = disk.write(s("s"), content);
        LocalFileSystem files(disk.path());
        const FileItem seen = require(files, path, {});
        ASSERT_TRUE(QFile::resize(path, row.sizeNow));
        FileStream stream(files, seen, FileStream::Way::ahead, 0, {}, row.offset);
        Bytes drawn(static_cast<std::size_t>(content.size() - row.offset));
        const std::string code = codeOf([&] {
            for (std::size_t at = 0; at < drawn.size();)
                at += stream.read(std::span(drawn).subspan(
                    at, std::min<std::size_t>(drawn.size() - at, 262'144)));
        });
        EXPECT_EQ(code, row.code);
        if (code == "nothing") {
            EXPECT_TRUE(
                std::ranges::equal(drawn, std::as_bytes(std::span(content)).subspan(row.offset)));
        }
    }
}

TEST(Leftovers, areFinishedOrRemovedAndNothingElseIs) {
    MemorySide target;
    DiskSide source;
    source.fill({{s("new"), "n"}}, noon);
    const QDateTime now = QDateTime::currentDateTime();
    const QString longName(245, QLatin1Char('l'));
    const QString old = newPartName({});
    const QString young = newPartName({});
    const QString used = newPartName({});
    const QString otherZone = newPartName({});
    target.put(newPartName({}), "of a clock that was wrong", now.addYears(1));
    target.put(otherZone, "z", now.addSecs(14 * 3600));
    target.put(old, "o", now.addSecs(-700));
    target.put(young, "y", now.addSecs(-500));
    target.put(used, "u", now.addSecs(-700));
    target.put(waitingName({}, s("film.mp4"), {}), "whole", noon);
    target.put(waitingName({}, s("taken"), {}), "whole", noon);
    target.put(s("taken"), "t", noon);
    target.put(waitingName({}, longName, {}), "long", noon);
    target.put(waitingName({}, longName + u'x', {}), "not awaited", noon);
    source.put(longName, "long", noon.addSecs(5));
    const PartInUse use(used);
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target.contents(), (Contents{{young, "y"},
                                           {used, "u"},
                                           {otherZone, "z"},
                                           {s("film.mp4"), "whole"},
                                           {s("taken"), "t"},
                                           {longName, "long"},
                                           {waitingName({}, longName + u'x', {}), "not awaited"},
                                           {s("new"), "n"}}));
}

TEST(Leftovers, ofTheCallersOwnGoAtOnceAndWhatIsTheUsersIsNeverRemoved) {
    Call call;
    call.partOwner = partOwner(s("me"));
    const QString other = partOwner(s("another"));
    const QString arriving = newPartName(other);
    const QString resumable = resumablePartName(s("film"));
    const QString waitsForTaken = waitingName({}, s("taken"), other);
    const QDateTime now = QDateTime::currentDateTime();
    MemorySide target({.rules = {}});
    target.put(newPartName(call.partOwner), "part", now);
    target.put(arriving, "part of another", now);
    target.put(resumable, "goes on", now);
    target.put(s("taken"), "old", noon);
    target.put(waitingName({}, s("taken"), call.partOwner), "new", now);
    target.put(waitsForTaken, "another's new", now);
    target.put(waitingName({}, s("free"), call.partOwner), "whole", now);
    target.put(respellingName(s("Photo.jpg")), "photo", noon);
    target.put(respellingName(s("TAKEN")) + s("x"), "photo, too", noon);
    target.put(s("TAKENx"), "taken, too", noon);
    target.memory->addFile(s("/side/") + respellingName(s("dcim")) + s("/1.jpg"), "one", noon);
    (void)tidied(*target.memory, listAll(*target.memory, s("/side"), {}).items, {}, {}, call);
    EXPECT_EQ(target.contents(), (Contents{{arriving, "part of another"},
                                           {resumable, "goes on"},
                                           {s("taken"), "old"},
                                           {waitsForTaken, "another's new"},
                                           {s("free"), "whole"},
                                           {s("Photo.jpg"), "photo"},
                                           {s("TAKENx"), "taken, too"},
                                           {s("TAKENx (2)"), "photo, too"},
                                           {s("dcim/"), {}},
                                           {s("dcim/1.jpg"), "one"}}));
}

/// However old the file is: its part is not.
TEST(LargeFiles, areNotFetchedAgainWhenTheirComparisonWasCancelled) {
    MemorySide source({.pieceSize = 100'000, .queue = std::make_shared<PhoneQueue>()});
    DiskSide target;
    const QByteArray content(6'000'000, 'a');
    source.put(s("film"), content, noon);
    std::stop_source stop;
    source.memory->beforeEach([&](const MemoryFileSystem::Request& request) {
        if (request.operation == Operation::find)
            stop.request_stop(); // when all is across
    });
    FileCopy copy{*source.files(), source.memory->item(source.at(s("film"))), *target.files(),
                  target.root(), s("film")};
    copy.verifies = true;
    EXPECT_THROW(copyFile(copy, {}, stop.get_token()), CancellationError);
    const auto before = source.memory->bytes(Operation::read);
    EXPECT_EQ(run(requestFor(source, target, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_LT(source.memory->bytes(Operation::read) - before, 1'500'000);
    EXPECT_EQ(target.contents(), (Contents{{s("film"), content}}));
    EXPECT_EQ(require(*target.files(), target.at(s("film")), {}).modifiedDate, noon);
}

} // namespace
} // namespace tessary
