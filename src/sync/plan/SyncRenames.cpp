#include "sync/plan/SyncRenames.h"

#include "phone/NameRules.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace tessary {

namespace {

/// Deeper trees have none that could be told from chance.
constexpr int maxRounds = 64;

/// Moves every key at or below `from` to `to`.
template <typename Map>
void moveKeys(Map& map, const QString& from, const QString& to) {
    const QString below = from + QLatin1Char('/');
    std::vector<typename Map::node_type> nodes;
    if (auto node = map.extract(from))
        nodes.push_back(std::move(node));
    for (auto it = map.lower_bound(below); it != map.end();) {
        const auto next = std::next(it);
        const QString* key = nullptr;
        if constexpr (requires { it->first; })
            key = &it->first;
        else
            key = &*it;
        if (!key->startsWith(below))
            break;
        nodes.push_back(map.extract(it));
        it = next;
    }
    for (auto& node : nodes) {
        if constexpr (requires { node.key(); })
            node.key() = to + node.key().mid(from.size());
        else
            node.value() = to + node.value().mid(from.size());
        map.insert(std::move(node));
    }
}

void rename(SyncTree& tree, const QString& from, const QString& to) {
    moveKeys(tree.files, from, to);
    moveKeys(tree.folders, from, to);
    moveKeys(tree.unknown, from, to);
}

/// The topmost name in which two paths of one folded form differ, when the side `follows` can take
/// the new one over.
std::optional<SyncRename> topmost(const QString& from, const QString& to, const SyncTree& leads,
                                  const SyncTree& follows) {
    const QStringList oldNames = from.split(u'/');
    const QStringList newNames = to.split(u'/');
    if (oldNames.size() != newNames.size())
        return std::nullopt;
    const auto [oldAt, newAt] = std::mismatch(oldNames.begin(), oldNames.end(), newNames.begin());
    const auto depth = oldAt - oldNames.begin() + 1;
    SyncRename rename;
    rename.from = oldNames.first(depth).join(u'/');
    rename.to = newNames.first(depth).join(u'/');
    if (leads.contains(rename.from) || follows.contains(rename.to) ||
        leads.files.contains(rename.to) != follows.files.contains(rename.from))
        return std::nullopt;
    return rename;
}

/// The first rename that side `leads` shows and `follows` has not got yet.
std::optional<SyncRename> nextRename(const SyncTree& leads, const SyncTree& follows,
                                     const SyncFiles& record) {
    QHash<QString, QString> gone; // recorded paths that only `follows` still has, by their form
    for (const auto& [path, entry] : record)
        if (!leads.contains(path) && follows.files.contains(path))
            gone.insert(phoneNames.key(path), path);
    if (gone.isEmpty())
        return std::nullopt;
    for (const auto& [path, file] : leads.files) {
        if (record.contains(path) || follows.contains(path))
            continue;
        const auto old = gone.constFind(phoneNames.key(path));
        if (old == gone.constEnd() || record.at(*old).size != file.size)
            continue;
        if (auto rename = topmost(*old, path, leads, follows))
            return rename;
    }
    return std::nullopt;
}

} // namespace

std::vector<SyncRename> takeCaseRenames(SyncTree& local, SyncTree& device, SyncFiles& record,
                                        SyncMode mode) {
    std::vector<SyncRename> renames;
    for (const bool onDevice : {true, false}) {
        if (mode == (onDevice ? SyncMode::toComputer : SyncMode::toPhone))
            continue;
        SyncTree& follows = onDevice ? device : local;
        for (int round = 0; round < maxRounds; ++round) {
            auto rename = nextRename(onDevice ? local : device, follows, record);
            if (!rename)
                break;
            rename->onDevice = onDevice;
            tessary::rename(follows, rename->from, rename->to);
            moveKeys(record, rename->from, rename->to);
            renames.push_back(*std::move(rename));
        }
    }
    return renames;
}

void takeBack(const SyncRename& rename, SyncFiles& record) {
    moveKeys(record, rename.to, rename.from);
}

} // namespace tessary
