#include "support/QtPrinters.h"
#include "oldsync/MemorySync.h"

#include <rapidcheck/gtest.h>

#include <array>
#include <set>

// Random trees, edits, modes and answers, and a failure at every single call in turn.

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// What is known of a pair between its runs.
struct State {
    MemoryWorld world;
    std::map<QString, QByteArray> synced; ///< content of both sides when they were last in sync
};

using Random = std::function<int(int limit)>; ///< from 0 up to the limit

const std::array<QString, 7> names{u"a"_s,     u"b.txt"_s, u"d/a"_s,   u"d/b"_s,
                                   u"d/e/c"_s, u"x"_s,     u"x/deep"_s};

/// A tree holds no file where it has a folder.
bool fits(const MemoryTree& tree, const QString& name) {
    for (const auto& [other, file] : tree)
        if (other.startsWith(name + u'/') || name.startsWith(other + u'/'))
            return false;
    return true;
}

/// No two edits have one date: a file edited within two seconds, to the same size, looks unedited.
QDateTime editDate(MemoryWorld& world, const Random& random) {
    static constexpr std::array<qint64, 5> jumps{10, 1000, 86'400, 40'000'000, 3};
    world.clock += jumps[static_cast<std::size_t>(random(jumps.size()))];
    const QDateTime date = world.now();
    world.clock += 5;
    return date;
}

void edit(State& state, const Random& random) {
    MemoryWorld& world = state.world;
    static int serial = 0;
    MemoryTree& tree = random(2) == 0 ? world.mac : world.device;
    const QString& name = names[static_cast<std::size_t>(random(names.size()))];
    const auto it = tree.find(name);
    const QByteArray content = QByteArray::number(++serial).rightJustified(8 + random(2), '0');
    switch (random(6)) {
    case 0:
    case 1:
    case 2: // new content
        if (fits(tree, name))
            tree[name] = {content, editDate(world, random)};
        break;
    case 3:
        if (it != tree.end())
            tree.erase(it);
        break;
    case 4: // touched
        if (it != tree.end())
            it->second.date = editDate(world, random);
        break;
    default: // copied by hand, dates and all or not
        if (it != tree.end()) {
            MemoryTree& other = &tree == &world.mac ? world.device : world.mac;
            if (fits(other, name))
                other[name] = {it->second.content,
                               random(2) == 0 ? it->second.date : editDate(world, random)};
        }
    }
}

std::multiset<QByteArray> contentsOf(const MemoryWorld& world) {
    std::multiset<QByteArray> contents;
    for (const MemoryTree* tree : {&world.mac, &world.device, &world.temporary})
        for (const auto& [path, file] : *tree)
            contents.insert(file.content);
    return contents;
}

struct Run {
    SyncPair pair;
    bool confirms = false;
};

struct Result {
    bool isDone = false;
    SyncReport report;
    std::set<QString> candidates;
};

/// One run with everything checked that holds however it ends.
Result checkedRun(State& state, const Run& run) {
    MemoryWorld& world = state.world;
    const MemoryWorld before = world;
    Result result;
    SyncRunEvents events;
    events.ask = [&](const SyncQuestion& question) {
        for (const DeletionCandidate& candidate : question.candidates)
            result.candidates.insert(candidate.relativePath);
        return run.confirms;
    };
    try {
        result.report = runOnce(world, run.pair, events);
        result.isDone = true;
    } catch (const TessaryError&) {
        RC_ASSERT(world.macManifest == before.macManifest);
        RC_ASSERT(world.deviceManifest == before.deviceManifest);
    }

    const SyncMode mode = run.pair.syncMode;
    const bool isTwoWay = mode == SyncMode::biDirectional;
    RC_ASSERT(result.candidates.empty() || (isTwoWay && run.pair.deleteSyncEnabled));

    // Nothing that existed only once is gone unless somebody wanted it.
    const auto left = contentsOf(world);
    for (const bool onMac : {true, false}) {
        const MemoryTree& tree = onMac ? before.mac : before.device;
        const MemoryTree& other = onMac ? before.device : before.mac;
        for (const auto& [path, file] : tree) {
            if (left.contains(file.content))
                continue;
            const bool confirmed = run.confirms && result.candidates.contains(path);
            const auto last = state.synced.find(path);
            const bool wasOld = last != state.synced.end() && last->second == file.content;
            const bool isTarget = mode == (onMac ? SyncMode::toMac : SyncMode::toiPhone);
            const bool replaced = other.contains(path) && (isTarget || (isTwoWay && wasOld));
            RC_ASSERT(confirmed || replaced);
        }
    }
    // A one-way mode leaves its source alone, and a move takes away only what is there.
    if (!isTwoWay) {
        const bool fromMac = mode == SyncMode::toiPhone;
        const MemoryTree& sourceBefore = fromMac ? before.mac : before.device;
        const MemoryTree& source = fromMac ? world.mac : world.device;
        const MemoryTree& target = fromMac ? world.device : world.mac;
        for (const auto& [path, file] : source)
            RC_ASSERT(sourceBefore.at(path) == file);
        for (const auto& [path, file] : sourceBefore)
            if (!source.contains(path)) {
                RC_ASSERT(run.pair.movesFiles());
                RC_ASSERT(target.at(path).content == file.content);
            }
    }
    // Without a confirmation no name is gone from either side.
    if (!run.pair.movesFiles())
        for (const auto& [tree, old] :
             {std::pair{&world.mac, &before.mac}, std::pair{&world.device, &before.device}})
            for (const auto& [path, file] : *old)
                RC_ASSERT(tree->contains(path) ||
                          (run.confirms && result.candidates.contains(path)));
    return result;
}

/// A run without a failure, and a second one that has nothing to do.
void cleanRuns(State& state, Run run) {
    MemoryWorld& world = state.world;
    world.failAt = -1;
    const Result result = checkedRun(state, run);
    RC_ASSERT(result.isDone);
    RC_ASSERT(world.temporary.empty());
    std::set<QString> skipped;
    for (const SkippedItem& item : result.report.skipped)
        skipped.insert(item.path);
    if (run.pair.syncMode == SyncMode::biDirectional) {
        for (const auto& [one, other] :
             {std::pair{&world.mac, &world.device}, std::pair{&world.device, &world.mac}})
            for (const auto& [path, file] : *one)
                if (!skipped.contains(path)) {
                    RC_ASSERT(other->contains(path));
                    RC_ASSERT(other->at(path).content == file.content);
                }
    }
    for (const QString& path : names) {
        const auto mac = world.mac.find(path);
        const auto device = world.device.find(path);
        if (mac == world.mac.end() || device == world.device.end())
            state.synced.erase(path);
        else if (mac->second.content == device->second.content)
            state.synced[path] = mac->second.content;
    }

    world.clock += 60;
    world.contentReads = 0;
    const MemoryWorld before = world;
    const Result second = checkedRun(state, run);
    RC_ASSERT(second.isDone);
    RC_ASSERT(!second.report.hasChanges());
    RC_ASSERT(world.contentReads == 0);
    RC_ASSERT(second.candidates.empty());
    RC_ASSERT(world.mac == before.mac);
    RC_ASSERT(world.device == before.device);
}

Run randomRun(const Random& random) {
    Run run;
    run.pair = memoryPair();
    run.pair.syncMode = allSyncModes[static_cast<std::size_t>(random(3))];
    run.pair.deleteSyncEnabled = random(4) != 0;
    run.pair.moveFilesEnabled = random(3) == 0;
    run.confirms = random(2) == 0;
    return run;
}

void runCase(const Random& random) {
    State state;
    state.world.samples = random(2) == 0;
    state.world.setsDates = random(2) == 0;
    for (int period = 1 + random(3); period > 0; --period) {
        for (int edits = random(12); edits > 0; --edits)
            edit(state, random);
        const Run run = randomRun(random);
        const Run repair = random(2) == 0 ? run : randomRun(random);
        // A failure at every call of this run, each in a world of its own.
        for (const bool late : {false, true}) {
            for (int call = 0;; ++call) {
                State copy = state;
                copy.world.calls = 0;
                copy.world.failAt = call;
                copy.world.failsLate = late;
                const bool isDone = checkedRun(copy, run).isDone;
                if (copy.world.calls <= call)
                    break;
                // Its discard may have failed, as at the end of a program: nobody's content.
                copy.world.temporary.clear();
                copy.world.clock += 60;
                if (isDone) {
                    copy.world.failAt = -1;
                    RC_ASSERT(checkedRun(copy, run).isDone);
                }
                copy.world.temporary.clear();
                cleanRuns(copy, repair);
            }
        }
        cleanRuns(state, run);
    }
}

RC_GTEST_PROP(SyncPropertiesTest, nothingIsLostWhateverFails, ()) {
    runCase([](int limit) { return *rc::gen::inRange(0, limit); });
}

} // namespace
} // namespace tessary
