#include "sync/MemoryPair.h"

#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>

// Whole runs over a computer and a phone in memory: random trees with contents that only differ
// far behind any sample, random edits, modes, moves and answers, records that a side has lost, and
// one fault in a run: the program is killed, the power goes, the phone is lost, a single call is
// refused, or the user cancels. Then a run in peace. Nothing that a user wrote and neither replaced
// nor deleted may ever be on neither side, and a one-way run takes from its source only what its
// target has got.

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Random = std::function<int(int limit)>; ///< from 0 up to the limit

const std::array<QString, 6> names{u"a"_s, u"b.txt"_s, u"d/a"_s, u"d/b"_s, u"d/e/c"_s, u"x"_s};

/// No two are the same, all but the short ones begin alike for more than 4 KiB.
QByteArray newContent(const Random& random) {
    static int serial = 0;
    const QByteArray mark = QByteArray::number(++serial).rightJustified(8, '0');
    switch (random(6)) {
    case 0:
        return {};
    case 1:
        return mark;
    case 2:
        return QByteArray(9000, 'x').left(5000 + random(2)) +
               mark.left(3); // not told apart by much
    default:
        return QByteArray(6000, 'x') + mark;
    }
}

struct World {
    explicit World(const MemoryDevice& device) : pair(device) {}

    MemoryPair pair;
    std::map<QString, QByteArray> synced; ///< content of both sides when they were last in sync
};

/// A side comes without its record, as another card or a wiped phone does, or with an older one.
void loseRecord(World& world, const Random& random, const std::optional<QByteArray>& older) {
    const bool onDevice = random(2) == 0;
    const QString path = MemoryPair::path(onDevice, SyncManifest::fileName);
    world.pair.side(onDevice).removeQuietly(path);
    if (older)
        world.pair.side(onDevice).addFile(path, *older);
}

void edit(World& world, const Random& random) {
    const bool onDevice = random(2) == 0;
    const QString& name = names[static_cast<std::size_t>(random(names.size()))];
    const MemoryTree files = world.pair.users(onDevice);
    const auto it = files.find(name);
    switch (random(6)) {
    case 0:
    case 1:
    case 2:
        world.pair.put(onDevice, name, newContent(random));
        break;
    case 3:
        world.pair.side(onDevice).removeQuietly(MemoryPair::path(onDevice, name));
        break;
    case 4: // touched
        if (it != files.end())
            world.pair.put(onDevice, name, it->second.content);
        break;
    default: // copied by hand
        if (it != files.end())
            world.pair.put(!onDevice, name, it->second.content);
    }
}

/// What both sides are, to go back to.
struct State {
    MemoryTree local;
    MemoryTree device;
    std::map<QString, QByteArray> synced;
    qint64 clock = 0;
};

State stateOf(World& world) {
    return {world.pair.all(false), world.pair.all(true), world.synced, world.pair.clock};
}

std::unique_ptr<World> worldOf(const State& state, const MemoryDevice& device) {
    auto world = std::make_unique<World>(device);
    world->synced = state.synced;
    for (const bool onDevice : {false, true})
        for (const auto& [name, file] : onDevice ? state.device : state.local)
            world->pair.side(onDevice).addFile(MemoryPair::path(onDevice, name), file.content,
                                               file.date);
    world->pair.clock = state.clock;
    return world;
}

struct Options {
    SyncMode mode = SyncMode::biDirectional;
    bool deletes = true;
    bool moves = false;
    bool confirms = false;
};

enum class Fault { none, killed, powerCut, lost, refused, cancelled };

/// Whether a file is one that did not arrive, or whose old version is still there.
bool isRest(const MemoryTree& tree, const QString& path) {
    const QString prefix = u".tessary-part-"_s;
    const QString waiting = u".tessary-part-for-"_s;
    const qsizetype at = path.lastIndexOf(u'/') + 1;
    const QString name = path.mid(at);
    return name.startsWith(prefix) &&
           (!name.startsWith(waiting) || tree.contains(path.left(at) + name.mid(waiting.size())));
}

/// Every content that is anywhere. One that waits for its name is finished by the next run.
std::set<QByteArray> contents(World& world) {
    std::set<QByteArray> all;
    for (const bool onDevice : {false, true}) {
        const MemoryTree tree = world.pair.all(onDevice);
        for (const auto& [name, file] : tree)
            if (!isRest(tree, name))
                all.insert(file.content);
    }
    return all;
}

/// Whether the user gave a file up: both sides had it, and he wrote something else on the other
/// side in its place, or deleted it there and confirmed that.
bool isGivenUp(const State& before, const QString& name, bool onDevice,
               const std::set<QString>& candidates) {
    const MemoryTree& tree = onDevice ? before.device : before.local;
    const MemoryTree& other = onDevice ? before.local : before.device;
    const auto synced = before.synced.find(name);
    if (synced == before.synced.end() || synced->second != tree.at(name).content)
        return false;
    const auto there = other.find(name);
    return there == other.end() ? candidates.contains(name)
                                : there->second.content != synced->second;
}

std::string described(const QString& lost, const Options& options, Fault fault, int at,
                      const State& before, World& world) {
    const auto lines = [](const char* title, const MemoryTree& tree) {
        QStringList files;
        for (const auto& [name, file] : tree)
            if (name != SyncManifest::fileName)
                files.append(u"%1 (%2, ends in %3)"_s.arg(name)
                                 .arg(file.content.size())
                                 .arg(QString::fromUtf8(file.content.right(8))));
        return QString::fromUtf8(title) + u": "_s + files.join(u", "_s) + u'\n';
    };
    return (lost + u" is lost; "_s + rawValue(options.mode) +
            (options.moves ? u" moving"_s : u""_s) +
            u", fault %1 at %2\n"_s.arg(static_cast<int>(fault)).arg(at) +
            lines("here before", before.local) + lines("there before", before.device) +
            lines("here", world.pair.all(false)) + lines("there", world.pair.all(true)))
        .toStdString();
}

/// A one-way run leaves its source as it is; a move takes what its target has.
void expectSourceKept(const State& before, const Options& options, World& world) {
    if (options.mode == SyncMode::biDirectional)
        return;
    const bool toDevice = options.mode == SyncMode::toPhone;
    const MemoryTree source = world.pair.users(!toDevice);
    const MemoryTree target = world.pair.users(toDevice);
    for (const auto& [name, file] : toDevice ? before.local : before.device) {
        if (name.endsWith(SyncManifest::fileName) || name.contains(u".tessary-part-"_s))
            continue;
        const auto still = source.find(name);
        if (still != source.end()) {
            RC_ASSERT(still->second.content == file.content);
            continue;
        }
        RC_ASSERT(options.moves);
        RC_ASSERT(target.contains(name) && target.at(name).content == file.content);
        world.synced.erase(name); // it was not the user who deleted it
    }
}

/// One run with a fault at one call; checks what holds however it ends. False when the fault came
/// too late to hit anything.
bool runWith(World& world, const Options& options, Fault fault, int at) {
    MemoryPair& pair = world.pair;
    const State before = stateOf(world);
    std::set<QString> confirmed;
    pair.pair.syncMode = options.mode;
    pair.pair.deleteSyncEnabled = options.deletes;
    pair.pair.moveFilesEnabled = options.moves;
    pair.answer = [&](const SyncQuestion& question) {
        RC_ASSERT(question.candidates.empty() ||
                  (options.deletes && options.mode == SyncMode::biDirectional));
        if (!options.confirms)
            return SyncAnswer::keepAll();
        for (const DeletionCandidate& candidate : question.candidates)
            confirmed.insert(candidate.relativePath);
        return SyncAnswer::deleteAll(question);
    };
    const bool isDeath = fault == Fault::killed || fault == Fault::powerCut;
    pair.killAt = isDeath ? at : -1;
    pair.flushed = pair.users(false);
    if (fault == Fault::lost)
        pair.device().loseLink(at + 1);
    if (fault == Fault::refused)
        pair.device().failCall(at + 1, Error(PhoneError::refused));
    std::stop_source stop;
    if (fault == Fault::cancelled)
        pair.beforeCall = [&, call = 0](const auto&) mutable {
            if (call++ == at)
                stop.request_stop();
        };
    const std::size_t requests = pair.device().requests().size();
    bool isDone = false;
    try {
        isDone = pair.run(stop.get_token()).outcome == SyncReport::Outcome::done;
    } catch (const Killed&) {
        RC_ASSERT(isDeath);
    }
    pair.beforeCall = nullptr;
    const bool wasHit =
        isDeath ? pair.isDead
        : fault == Fault::cancelled
            ? stop.stop_requested()
            : static_cast<std::size_t>(at) < pair.device().requests().size() - requests;
    if (fault == Fault::none)
        RC_ASSERT(isDone);
    pair.device().restoreLink();
    pair.killAt = -1;
    pair.isDead = false;
    if (fault == Fault::powerCut && wasHit) {
        // The names are there; the contents that nobody waited for are not.
        for (const auto& [name, file] : pair.users(false)) {
            // What only got another name has its content.
            const bool isNew = std::none_of(before.local.begin(), before.local.end(),
                                            [&](const auto& old) { return old.second == file; });
            const auto flushed = pair.flushed.find(name);
            if (isNew && (flushed == pair.flushed.end() || flushed->second != file))
                pair.local().addFile(MemoryPair::path(false, name), {}, file.date);
        }
    }

    if (fault == Fault::cancelled) // it tidies up
        for (const bool onDevice : {false, true})
            for (const auto& [name, file] : pair.all(onDevice))
                RC_ASSERT(!name.contains(u".tessary-part-"_s) ||
                          (onDevice ? before.device : before.local).contains(name));
    expectSourceKept(before, options, world);
    const std::set<QByteArray> left = contents(world);
    for (const bool onDevice : {false, true}) {
        const MemoryTree& tree = onDevice ? before.device : before.local;
        for (const auto& [name, file] : tree) {
            if (left.contains(file.content) || isRest(tree, name) ||
                name.endsWith(SyncManifest::fileName))
                continue;
            if (!isGivenUp(before, name, onDevice, confirmed))
                RC_FAIL(described(name, options, fault, at, before, world));
        }
    }
    return wasHit;
}

/// A run in peace, and one more that has nothing to do.
void runInPeace(World& world, const Options& options) {
    MemoryPair& pair = world.pair;
    const State before = stateOf(world);
    (void)runWith(world, options, Fault::none, 0);
    if (options.mode == SyncMode::biDirectional) {
        const MemoryTree here = pair.users(false);
        const MemoryTree there = pair.users(true);
        RC_ASSERT(here.size() == there.size());
        for (const auto& [name, file] : here)
            // Without dates an edit of the same size waits for another one.
            if (!there.contains(name) ||
                (there.at(name).content != file.content &&
                 (pair.listsDates || there.at(name).content.size() != file.content.size())))
                RC_FAIL(described(name, options, Fault::none, 0, before, world));
    }
    world.synced.clear();
    const MemoryTree there = pair.users(true);
    for (const auto& [name, file] : pair.users(false))
        if (const auto other = there.find(name);
            other != there.end() && other->second.content == file.content)
            world.synced[name] = file.content;
    if (options.moves && options.mode != SyncMode::biDirectional)
        return; // what a move leaves on both sides it looks at again
    pair.device().forgetRequests();
    const SyncReport second = pair.run();
    RC_ASSERT(second.outcome == SyncReport::Outcome::done);
    RC_ASSERT(!second.hasChanges());
    for (const auto& request : pair.device().requests())
        RC_ASSERT(request.operation != MemoryFileSystem::Operation::read ||
                  request.path.endsWith(SyncManifest::fileName));
}

Options randomOptions(const Random& random) {
    return {static_cast<SyncMode>(random(3)), random(4) != 0, random(2) == 0, random(2) == 0};
}

RC_GTEST_PROP(SyncRunPropertiesTest, nothingIsLostWhateverFails, ()) {
    const Random random = [](int limit) { return *rc::gen::inRange(0, limit); };
    MemoryDevice device;
    device.setsDates = random(2) == 0;
    device.listsDates = random(3) != 0;
    device.renamesOntoTaken = random(2) == 0;
    device.hasHashes = random(3) == 0;
    auto world = std::make_unique<World>(device);
    std::optional<QByteArray> older;
    for (int period = 1 + random(2); period > 0; --period) {
        const MemoryTree there = world->pair.all(true);
        if (random(3) == 0)
            loseRecord(*world, random, random(2) == 0 ? older : std::nullopt);
        if (const auto record = there.find(SyncManifest::fileName); record != there.end())
            older = record->second.content;
        for (int edits = 1 + random(9); edits > 0; --edits)
            edit(*world, random);
        const Options options = randomOptions(random);
        const Options repair = random(2) == 0 ? options : randomOptions(random);
        const auto fault = static_cast<Fault>(1 + random(5));
        const State state = stateOf(*world);
        // At every step of the run, each in a world of its own.
        const int step = 1 + random(3);
        for (int at = random(step);; at += step) {
            const auto copy = worldOf(state, device);
            const bool wasHit = runWith(*copy, options, fault, at);
            if (!wasHit)
                break;
            runInPeace(*copy, repair);
        }
        runInPeace(*world, options);
    }
}

} // namespace
} // namespace tessary
