#pragma once

#include "base/threads/CancellationError.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"
#include "transfer/CopySides.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/copy/ProgressPacer.h"

#include <gmock/gmock.h>

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
    ClashAnswer answer;
    Contents expected;
    qint64 copied = 0;
    qint64 stayed = 0;
    bool skipsSame = false;
    int targetIsNewerBy = 0; ///< seconds
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
    const Contents longer{{s("c.txt"), "longer"}};
    const Contents numbered{{s("c.txt"), "short"}, {s("c (2).txt"), "longer"}};
    const Contents onlyNew{{s("a.txt"), "same"}, {s("b.txt"), "new"}, {s("c.txt"), "short"}};
    Contents newBeside = onlyNew;
    newBeside[s("c (2).txt")] = "longer";
    const Contents same{{s("a.txt"), "same"}};
    const Contents other{{s("a.txt"), "else"}};
    const Contents kinds{{s("a"), "file"}, {s("b/"), {}}, {s("b/x"), "x"}, {s("c"), "c"}};
    const Contents otherKinds{{s("a/"), {}}, {s("a/y"), "y"}, {s("b"), "file"}};
    Contents bothKinds = otherKinds;
    bothKinds[s("c")] = "c";
    const QStringList inTheWay{s("a: folderInTheWay"), s("b: fileInTheWay")};
    using enum ClashAnswer;
    const std::vector<Row> rows{
        // what, here, there, answer, then there, copied, stayed, skips the same, there newer by
        {"a tree", tree, {}, keepBoth, tree, 4},
        {"both are kept", coming, old, keepBoth, both, 2},
        {"folders merge", coming, old, merge, merged, 2},
        {"what is there stays", coming, old, skip, old, 0, 2},
        {"replaced", coming, old, replace, coming, 2},
        {"older ones are replaced", coming, old, replaceOlder, coming, 2, 0, false, -60},
        {"newer ones stay", coming, old, replaceOlder, old, 0, 2, false, 60},
        {"only what is new", changed, partly, keepBoth, newBeside, 2, 1, true},
        {"and what differs stays", changed, partly, skip, onlyNew, 1, 2, true},
        {"and what differs is replaced", changed, partly, replace, changed, 2, 1, true},
        {"and what is older is replaced", changed, partly, replaceOlder, changed, 3, 0, true, -60},
        {"sizes around a piece", pieces, {}, keepBoth, pieces, pieces.size()},
        {"numbered before is not new", longer, numbered, keepBoth, numbered, 0, 1, true},
        {"another time is not the same", same, other, replace, same, 1, 0, true, 60},
        {"a file and a folder", kinds, otherKinds, replace, bothKinds, 1, 0, false, 0, inTheWay},
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

TEST_P(TreeCopyOverWays, aMoveTakesTheSourceOnlyOnceItsCopyWasComparedAndKeepsTheDate) {
    const auto source = GetParam().source();
    const auto target = GetParam().target();
    const Contents tree{
        {s("dir/"), {}}, {s("dir/deep/"), {}}, {s("dir/deep/film"), film}, {s("a.txt"), "a"}};
    source->fill(tree, noon);
    TreeCopyRequest request = requestFor(*source, *target, ClashAnswer::skip);
    request.removesSource = true;
    EXPECT_EQ(run(std::move(request)).end(), CopyOutcome::End::done);
    EXPECT_EQ(target->contents(), tree);
    for (const char* path : {"dir/deep/film", "a.txt"})
        EXPECT_EQ(require(*target->files(), target->at(s(path)), {}).modifiedDate, noon) << path;
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
