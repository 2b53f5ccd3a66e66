#pragma once

#include "base/threads/CancellationError.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/copy/ProgressPacer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace tessary {

/// Which ways a copy goes. Every row below is copied along each of them.
struct Way {
    const char* name;
    std::function<std::unique_ptr<CopyEnd>()> source;
    std::function<std::unique_ptr<CopyEnd>()> target;
};

inline void PrintTo(const Way& way, std::ostream* stream) {
    *stream << way.name;
}

class TreeCopyOverWays : public testing::TestWithParam<Way> {};

inline std::unique_ptr<CopyEnd> aDisk() {
    return std::make_unique<DiskSide>();
}

/// How many entries below a folder a copy knows for its own.
inline qint64 madeBelow(PhoneFileSystem& files, const QString& folder, const EntryMarks& made) {
    qint64 count = 0;
    for (const FileItem& item : listAll(files, folder, {}).items)
        count += (made.contains(item) ? 1 : 0) +
                 (item.isDirectory ? madeBelow(files, item.path, made) : 0);
    return count;
}

struct Row {
    const char* name;
    Contents source;
    Contents target;
    ClashAnswer answer = ClashAnswer::keepBoth;
    bool skipsSame = false;
    int targetIsNewerBy = 0; ///< seconds
    Contents expected;
    qint64 copied = 0;
    qint64 stayed = 0;
    QStringList leftOut{};
};

TEST_P(TreeCopyOverWays, rows) {
    const Contents tree{{s("a.txt"), "a"},   {s("dir/b.txt"), "bb"}, {s("dir/deep/film"), film},
                        {s("dir/none"), ""}, {s("dir/empty/"), {}},  {s("dir/deep/"), {}},
                        {s("dir/"), {}}};
    const Contents old{{s("a.txt"), "old"}, {s("dir/"), {}}, {s("dir/b.txt"), "older"}};
    const Contents coming{{s("a.txt"), "new"}, {s("dir/"), {}}, {s("dir/b.txt"), "newer"}};
    Contents both = old;
    both[s("a (2).txt")] = "new";
    both[s("dir (2)/")] = {};
    both[s("dir (2)/b.txt")] = "newer";
    Contents merged = old;
    merged[s("a (2).txt")] = "new";
    merged[s("dir/b (2).txt")] = "newer";
    const Contents changed{{s("a.txt"), "same"}, {s("b.txt"), "new"}, {s("c.txt"), "longer"}};
    const Contents partly{{s("a.txt"), "same"}, {s("c.txt"), "short"}};
    Contents pieces;
    for (const int size : {1, 65'535, 65'536, 65'537, 131'071, 131'072, 131'073})
        pieces[QString::number(size)] = manyBytes(size);
    const std::vector<Row> rows{
        {.name = "a tree", .source = tree, .target = {}, .expected = tree, .copied = 4},
        {.name = "both are kept", .source = coming, .target = old, .expected = both, .copied = 2},
        {.name = "folders merge",
         .source = coming,
         .target = old,
         .answer = ClashAnswer::merge,
         .expected = merged,
         .copied = 2},
        {.name = "what is there stays",
         .source = coming,
         .target = old,
         .answer = ClashAnswer::skip,
         .expected = old,
         .stayed = 2},
        {.name = "replaced",
         .source = coming,
         .target = old,
         .answer = ClashAnswer::replace,
         .expected = coming,
         .copied = 2},
        {.name = "older ones are replaced",
         .source = coming,
         .target = old,
         .answer = ClashAnswer::replaceOlder,
         .targetIsNewerBy = -60,
         .expected = coming,
         .copied = 2},
        {.name = "newer ones stay",
         .source = coming,
         .target = old,
         .answer = ClashAnswer::replaceOlder,
         .targetIsNewerBy = 60,
         .expected = old,
         .stayed = 2},
        {.name = "only what is new",
         .source = changed,
         .target = partly,
         .skipsSame = true,
         .expected = {{s("a.txt"), "same"},
                      {s("b.txt"), "new"},
                      {s("c.txt"), "short"},
                      {s("c (2).txt"), "longer"}},
         .copied = 2,
         .stayed = 1},
        {.name = "only what is new, and what differs stays",
         .source = changed,
         .target = partly,
         .answer = ClashAnswer::skip,
         .skipsSame = true,
         .expected = {{s("a.txt"), "same"}, {s("b.txt"), "new"}, {s("c.txt"), "short"}},
         .copied = 1,
         .stayed = 2},
        {.name = "only what is new, and what differs is replaced",
         .source = changed,
         .target = partly,
         .answer = ClashAnswer::replace,
         .skipsSame = true,
         .expected = changed,
         .copied = 2,
         .stayed = 1},
        {.name = "only what is new, and what is older is replaced",
         .source = changed,
         .target = partly,
         .answer = ClashAnswer::replaceOlder,
         .skipsSame = true,
         .targetIsNewerBy = -60,
         .expected = changed,
         .copied = 3},
        {.name = "sizes around a piece",
         .source = pieces,
         .target = {},
         .expected = pieces,
         .copied = pieces.size()},
        {.name = "what was numbered before is not new",
         .source = {{s("c.txt"), "longer"}},
         .target = {{s("c.txt"), "short"}, {s("c (2).txt"), "longer"}},
         .skipsSame = true,
         .expected = {{s("c.txt"), "short"}, {s("c (2).txt"), "longer"}},
         .stayed = 1},
        {.name = "the same size at another time is not the same",
         .source = {{s("a.txt"), "same"}},
         .target = {{s("a.txt"), "else"}},
         .answer = ClashAnswer::replace,
         .skipsSame = true,
         .targetIsNewerBy = 60,
         .expected = {{s("a.txt"), "same"}},
         .copied = 1},
        {.name = "a file and a folder never replace each other",
         .source = {{s("a"), "file"}, {s("b/"), {}}, {s("b/x"), "x"}, {s("c"), "c"}},
         .target = {{s("a/"), {}}, {s("a/y"), "y"}, {s("b"), "file"}},
         .answer = ClashAnswer::replace,
         .expected = {{s("a/"), {}}, {s("a/y"), "y"}, {s("b"), "file"}, {s("c"), "c"}},
         .copied = 1,
         .leftOut = {s("a: folderInTheWay"), s("b: fileInTheWay")}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto source = GetParam().source();
        const auto target = GetParam().target();
        source->fill(row.source, noon);
        target->fill(row.target, noon.addSecs(row.targetIsNewerBy));
        TreeCopyRequest request = requestFor(*source, *target, row.answer);
        request.skipsSame = row.skipsSame;
        const CopyOutcome outcome = run(std::move(request));
        EXPECT_EQ(outcome.failure ? outcome.failure->logText() : QString(), QString());
        EXPECT_EQ(target->contents(), row.expected)
            << target->contents().keys().join(u' ').toStdString();
        EXPECT_EQ(source->contents(), row.source);
        EXPECT_EQ(outcome.files, row.copied);
        EXPECT_EQ(madeBelow(*target->files(), target->root(), outcome.entries),
                  outcome.files + outcome.folders);
        EXPECT_EQ(outcome.alreadyThere, row.stayed);
        EXPECT_EQ(namesLeftOut(outcome), row.leftOut);
        EXPECT_EQ(outcome.end() == CopyOutcome::End::done, row.leftOut.isEmpty());
    }
}

TEST_P(TreeCopyOverWays, copiesHaveTheDateOfWhatTheyComeFrom) {
    const auto source = GetParam().source();
    const auto target = GetParam().target();
    source->fill({{s("dir/"), {}}, {s("dir/a.txt"), "a"}}, noon);
    EXPECT_EQ(run(requestFor(*source, *target, ClashAnswer::skip)).end(), CopyOutcome::End::done);
    EXPECT_EQ(require(*target->files(), target->at(s("dir/a.txt")), {}).modifiedDate, noon);
}

TEST_P(TreeCopyOverWays, aMoveTakesTheSourceOnlyOnceItsCopyWasCompared) {
    const auto source = GetParam().source();
    const auto target = GetParam().target();
    const Contents tree{
        {s("dir/"), {}}, {s("dir/deep/"), {}}, {s("dir/deep/film"), film}, {s("a.txt"), "a"}};
    source->fill(tree, noon);
    TreeCopyRequest request = requestFor(*source, *target, ClashAnswer::skip);
    request.removesSource = true;
    EXPECT_EQ(run(std::move(request)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target->contents(), tree);
    EXPECT_THAT(source->contents(), testing::IsEmpty());
}

/// What has come across of a large file does not come across again, where the target can go on.
TEST_P(TreeCopyOverWays, aLargeFileGoesOnInItsMiddle) {
    const auto source = GetParam().source();
    const auto target = GetParam().target();
    const QByteArray large = QByteArray(5'000'000, 'l') + QByteArray(4'000'000, 'm');
    source->put(s("large"), large, noon);
    FileCopy copy{*source->files(), require(*source->files(), source->at(s("large")), {}),
                  *target->files(), target->root(), s("large")};
    const auto can = target->files()->capabilities({});
    std::stop_source stop;
    const auto stopLate = [&stop](qint64 done) {
        if (done > 6'000'000)
            stop.request_stop();
    };
    EXPECT_THROW(copyFile(copy, stopLate, stop.get_token()), CancellationError);
    qint64 first = -1;
    const auto noteFirst = [&first](qint64 done) { first = first < 0 ? done : first; };
    copy.verifies = true;
    EXPECT_EQ(copyFile(copy, noteFirst, {}).size, large.size());
    EXPECT_EQ(target->contents(), (Contents{{s("large"), large}}));
    if (!can.appends || can.appendsFrom > large.size())
        return;
    int times = 1; // that it goes across, for comparing
    for (const auto& files : {source->files(), target->files()})
        times += files->queue() && !files->capabilities({}).hasHashes ? 1 : 0;
    EXPECT_GT(first, 4'000'000 / times);
}

TEST_P(TreeCopyOverWays, whatWasLeftOutIsTriedAgainAlone) {
    const auto source = GetParam().source();
    const auto target = GetParam().target();
    const Contents coming{{s("a"), "a"}, {s("b"), "b"}, {s("d/"), {}}, {s("d/c"), "c"}};
    source->fill(coming, noon);
    target->fill({{s("b/"), {}}, {s("d/"), {}}, {s("d/c/"), {}}}, noon);
    TreeCopyRequest request = requestFor(*source, *target, ClashAnswer::replace);
    const CopyOutcome first = run(request);
    EXPECT_EQ(first.files, 1);
    EXPECT_EQ(namesLeftOut(first), (QStringList{s("b: folderInTheWay"), s("c: folderInTheWay")}));
    for (const char* path : {"b", "d/c"})
        target->files()->removeTree(require(*target->files(), target->at(s(path)), {}), {});
    request.items.clear();
    for (const LeftOut& one : first.leftOut)
        request.items.push_back(one.item);
    const CopyOutcome rest = run(request);
    EXPECT_EQ(rest.end(), CopyOutcome::End::done);
    EXPECT_EQ(rest.files, 2);
    EXPECT_EQ(target->contents(), coming);
}

TEST_P(TreeCopyOverWays, totalsAreKnownBeforeTheFirstByteAndReachedAtTheEnd) {
    const auto source = GetParam().source();
    const auto target = GetParam().target();
    source->fill({{s("dir/"), {}}, {s("dir/film"), film}, {s("a.txt"), "a"}, {s("b.txt"), "b"}},
                 noon);
    target->fill({{s("b.txt"), "b"}}, noon);
    TreeCopyRequest request = requestFor(*source, *target, ClashAnswer::skip);
    std::vector<TransferProgress> seen;
    const auto begun = std::chrono::steady_clock::now();
    (void)TreeCopy(std::move(request))
        .run([&seen](const TransferProgress& progress) { seen.push_back(progress); }, {});
    const auto paces = (std::chrono::steady_clock::now() - begun) / ProgressPacer::interval;
    ASSERT_GE(seen.size(), 2U);
    EXPECT_LT(seen.size(), 10U + static_cast<std::size_t>(paces)); // there are hundreds of pieces
    const auto known =
        std::find_if(seen.begin(), seen.end(), [](const auto& one) { return one.totalFiles == 3; });
    ASSERT_NE(known, seen.end());
    EXPECT_EQ(known->totalBytes, film.size() + 2);
    EXPECT_EQ(known->completedBytes, 0);
    EXPECT_EQ(seen.back().totalFiles, 2); // one stayed
    EXPECT_EQ(seen.back().completedFiles, 2);
    EXPECT_EQ(seen.back().completedBytes, seen.back().totalBytes);
}

} // namespace tessary
