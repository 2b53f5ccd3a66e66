#include "support/QtPrinters.h"
#include "sync/plan/SyncPlanner.h"

#include <QTimeZone>
#include <rapidcheck/gtest.h>

#include <array>
#include <map>
#include <set>

// Random trees, edits, modes, moves and answers over many runs. Each plan is carried out in a model
// that knows every content, and nothing that a user wrote may be gone from both sides unless he
// replaced or deleted it himself. Dates and sizes lie as much as real ones do: edits of the same
// size, touches, dates that a device makes up, records that one side has lost.

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Kind = SyncPlannedAction::Kind;
using Random = std::function<int(int limit)>; ///< from 0 up to the limit

struct ModelFile {
    int content = 0; ///< no two writings have the same
    SyncFile facts;
};
using ModelTree = std::map<QString, ModelFile>;

struct World {
    ModelTree local;
    ModelTree device;
    std::map<QString, int> synced; ///< content that both sides had when they were last in sync
    std::optional<SyncRecord> record;
    qint64 clock = 1'700'000'000;
    int writings = 0;
    bool setsDates = true;

    /// Later than any date before, by more than the sync's tolerance.
    QDateTime later(qint64 seconds = 5) {
        clock += seconds;
        return QDateTime::fromSecsSinceEpoch(clock, QTimeZone::utc());
    }
};

const std::array<QString, 5> names{u"a"_s, u"b"_s, u"d/a"_s, u"d/b"_s, u"e"_s};

void edit(World& world, const Random& random) {
    ModelTree& tree = random(2) == 0 ? world.local : world.device;
    ModelTree& other = &tree == &world.local ? world.device : world.local;
    const QString& name = names[static_cast<std::size_t>(random(names.size()))];
    const auto it = tree.find(name);
    switch (random(5)) {
    case 0:
    case 1: // one of few sizes, so that many are the same; sometimes none is left
        tree[name] = {++world.writings, {random(4) == 0 ? 0 : 8 + random(2), world.later()}};
        break;
    case 2:
        if (it != tree.end())
            tree.erase(it);
        break;
    case 3: // touched
        if (it != tree.end())
            it->second.facts.date = world.later();
        break;
    default: // copied by hand
        if (it != tree.end())
            other[name] = {
                it->second.content,
                {it->second.facts.size, random(2) == 0 ? it->second.facts.date : world.later()}};
    }
}

SyncTree seen(const ModelTree& tree) {
    SyncTree result;
    for (const auto& [name, file] : tree)
        result.files[name] = file.facts;
    result.folders.insert(u"d"_s);
    return result;
}

std::set<int> contents(const World& world) {
    std::set<int> all;
    for (const ModelTree* tree : {&world.local, &world.device})
        for (const auto& [name, file] : *tree)
            all.insert(file.content);
    return all;
}

/// Carries plans out as a run does.
class Runner {
public:
    Runner(World& world, SyncMode mode)
        : world_(world),
          target_(mode == SyncMode::toMac ? &world.local : &world.device),
          mode_(mode) {}

    void carryOut(const SyncPlan& plan) {
        for (const SyncPlannedAction& action : plan.actions)
            carryOut(action);
    }
    SyncFiles record;

private:
    void copy(const ModelTree& from, ModelTree& to, const QString& name, const QString& toName) {
        ModelFile file = from.at(name);
        if (&to == &world_.device && !world_.setsDates)
            file.facts.date = world_.later();
        to[toName] = file;
    }
    void enter(const QString& name, bool isContentKnown) {
        const SyncFile& local = world_.local.at(name).facts;
        const SyncFile& device = world_.device.at(name).facts;
        record[name] = {local.size, local.date, device.date, {}, isContentKnown};
    }
    void transfer(const SyncPlannedAction& action, bool toDevice) {
        ModelTree& source = toDevice ? world_.local : world_.device;
        copy(source, toDevice ? world_.device : world_.local, action.relativePath,
             action.relativePath);
        if (action.deletesSource)
            source.erase(action.relativePath);
        else
            enter(action.relativePath, true);
    }
    void carryOut(const SyncPlannedAction& action) {
        const QString& name = action.relativePath;
        ModelTree& winner = action.deviceWins ? world_.device : world_.local;
        ModelTree& loser = action.deviceWins ? world_.local : world_.device;
        switch (action.kind) {
        case Kind::upload:
        case Kind::download:
            transfer(action, action.kind == Kind::upload);
            break;
        case Kind::moveDeleteSourceOnly:
            world_.local.erase(name);
            break;
        case Kind::moveDeleteRemoteSourceOnly:
            world_.device.erase(name);
            break;
        case Kind::alreadyInSync:
            enter(name, action.isContentKnown);
            break;
        case Kind::conflict:
            copy(loser, loser, name, action.conflictName);
            if (mode_ == SyncMode::biDirectional) {
                copy(loser, winner, name, action.conflictName);
                enter(action.conflictName, true);
            }
            transfer(action, !action.deviceWins);
            break;
        case Kind::deleteLocal:
            world_.local.erase(name);
            break;
        case Kind::deleteRemote:
            world_.device.erase(name);
            break;
        case Kind::leave:
        case Kind::skip:
            if (action.record != nullptr)
                record[name] = *action.record;
            if (action.knownToDiffer)
                record[name].differingDate = target_->at(name).facts.date;
        }
    }

    World& world_;
    const ModelTree* const target_;
    const SyncMode mode_;
};

struct Run {
    SyncMode mode = SyncMode::biDirectional;
    bool deletes = true;
    bool moves = false;
    bool confirms = false;

    [[nodiscard]] bool isMove() const {
        return moves && mode != SyncMode::biDirectional;
    }
};

/// Whether the user gave a file up: it is what both sides had, and he wrote something else in its
/// place on the other side, or deleted it there and confirmed that.
bool isGivenUp(const World& before, const QString& name, bool isLocal,
               const std::set<QString>& confirmed) {
    const ModelTree& tree = isLocal ? before.local : before.device;
    const ModelTree& other = isLocal ? before.device : before.local;
    const auto synced = before.synced.find(name);
    if (synced == before.synced.end() || synced->second != tree.at(name).content)
        return false;
    const auto there = other.find(name);
    return there == other.end() ? confirmed.contains(name)
                                : there->second.content != synced->second;
}

void run(World& world, const Run& run) {
    const World before = world;
    const SyncTree local = seen(world.local);
    const SyncTree device = seen(world.device);
    const QDateTime startedAt = world.later();
    SyncPlanner planner({local,
                         device,
                         world.record ? &*world.record : nullptr,
                         run.mode,
                         run.deletes,
                         run.moves,
                         true,
                         {},
                         {},
                         startedAt,
                         0});
    SyncDecisions decisions;
    std::set<QString> confirmed;
    for (const DeletionCandidate& candidate : planner.deletionCandidates()) {
        RC_ASSERT(run.deletes && run.mode == SyncMode::biDirectional);
        if (run.confirms) {
            decisions.deletions.insert(candidate.relativePath);
            confirmed.insert(candidate.relativePath);
        }
    }
    SyncComparisons comparisons;
    for (const QString& name : planner.pathsToCompare())
        comparisons[name] = world.local.at(name).content == world.device.at(name).content
                                ? SyncComparison::equal
                                : SyncComparison::differing;
    Runner runner(world, run.mode);
    runner.carryOut(planner.plan(decisions, comparisons));

    const std::set<int> left = contents(world);
    for (const bool isLocal : {true, false})
        for (const auto& [name, file] : isLocal ? before.local : before.device)
            if (!left.contains(file.content))
                RC_ASSERT(isGivenUp(before, name, isLocal, confirmed));
    // A one-way mode takes from its source nothing that its target has not got.
    if (run.mode != SyncMode::biDirectional) {
        const bool toDevice = run.mode == SyncMode::toiPhone;
        const ModelTree& source = toDevice ? world.local : world.device;
        for (const auto& [name, file] : toDevice ? before.local : before.device) {
            const auto still = source.find(name);
            if (still != source.end()) {
                RC_ASSERT(still->second.content == file.content);
                continue;
            }
            RC_ASSERT(run.isMove());
            RC_ASSERT((toDevice ? world.device : world.local).at(name).content == file.content);
        }
    }
    for (const QString& name : names) {
        const auto here = world.local.find(name);
        const auto there = world.device.find(name);
        if (here == world.local.end() || there == world.device.end())
            world.synced.erase(name);
        else if (here->second.content == there->second.content)
            world.synced[name] = here->second.content;
    }
    const qint64 number = world.record ? world.record->runNumber + 1 : 1;
    world.record = SyncRecord{std::move(runner.record), true, number, startedAt};
}

/// The next run finds nothing to do and compares nothing.
void quietRun(World world, const Run& again) {
    const SyncTree local = seen(world.local);
    const SyncTree device = seen(world.device);
    SyncPlanner planner({local,
                         device,
                         &*world.record,
                         again.mode,
                         again.deletes,
                         again.moves,
                         true,
                         {},
                         {},
                         world.later(),
                         0});
    RC_ASSERT(planner.deletionCandidates().empty());
    const QStringList compared = planner.pathsToCompare();
    const SyncPlan plan = planner.plan({}, {});
    if (again.isMove())
        return; // what a move left on both sides it compares again
    RC_ASSERT(plan.totalFiles == 0);
    RC_ASSERT(compared.empty());
}

RC_GTEST_PROP(SyncPlanPropertiesTest, nothingIsLost, ()) {
    const Random random = [](int limit) { return *rc::gen::inRange(0, limit); };
    World world;
    world.setsDates = random(2) == 0;
    for (int period = 1 + random(4); period > 0; --period) {
        for (int edits = random(10); edits > 0; --edits)
            edit(world, random);
        if (world.record && random(6) == 0) {
            // The phone was full, or another card lay in it once.
            world.record->isShared = false;
            for (auto& [name, entry] : world.record->files)
                entry.isContentKnown = false;
        }
        if (random(8) == 0)
            world.record.reset();
        const Run chosen{allSyncModes[static_cast<std::size_t>(random(3))], random(4) != 0,
                         random(2) == 0, random(2) == 0};
        run(world, chosen);
        quietRun(world, chosen);
    }
}

} // namespace
} // namespace tessary
