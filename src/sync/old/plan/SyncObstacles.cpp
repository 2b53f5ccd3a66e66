#include "sync/old/plan/SyncObstacles.h"

#include <algorithm>
#include <cstdint>

namespace tessary {

namespace {

/// A path as a side compares it.
QString folded(const QString& path, const SyncNameRules& rules) {
    QString result = rules.ignoresCase ? path.toCaseFolded() : path;
    return rules.ignoresUnicodeForm ? result.normalized(QString::NormalizationForm_C) : result;
}

std::uint64_t mix(std::uint64_t hash, char16_t unit) {
    constexpr std::uint64_t prime = 0x100000001B3;
    return (hash ^ unit) * prime;
}

/// A hash of the folded path, that plain names need no second string for.
std::uint64_t foldedHash(const QString& path, const SyncNameRules& rules) {
    constexpr char16_t firstBeyondAscii = 0x80;
    constexpr char16_t caseBit = 0x20;
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const QChar unit : path) {
        char16_t code = unit.unicode();
        if (code >= firstBeyondAscii) {
            hash = 0xCBF29CE484222325;
            for (const QChar other : folded(path, rules))
                hash = mix(hash, other.unicode());
            return hash;
        }
        if (rules.ignoresCase && code >= u'A' && code <= u'Z')
            code |= caseBit;
        hash = mix(hash, code);
    }
    return hash;
}

struct Spelling {
    std::uint64_t hash;
    const QString* path;
};

bool holds(const SyncScan& scan, const QString& path) {
    return scan.files.contains(path) || scan.folders.contains(path);
}

void addClashes(QSet<QString>& clashes, const std::vector<const QString*>& paths,
                const SyncNameRules& rules, const SyncScan& side) {
    if (!rules.ignoresCase && !rules.ignoresUnicodeForm)
        return;
    std::vector<Spelling> spellings;
    spellings.reserve(paths.size());
    for (const QString* path : paths)
        spellings.push_back({foldedHash(*path, rules), path});
    std::sort(spellings.begin(), spellings.end(),
              [](const Spelling& a, const Spelling& b) { return a.hash < b.hash; });
    for (auto first = spellings.begin(); first != spellings.end();) {
        const auto last = std::find_if(first, spellings.end(), [&](const Spelling& other) {
            return other.hash != first->hash;
        });
        // A hash that two paths share by chance stops them too: once in an age of the world.
        const bool differ = std::any_of(
            first, last, [&](const Spelling& other) { return *other.path != *first->path; });
        const auto isHeld = [&](const Spelling& other) { return holds(side, *other.path); };
        if (differ && !std::all_of(first, last, isHeld))
            for (auto it = first; it != last; ++it)
                clashes.insert(*it->path);
        first = last;
    }
}

} // namespace

template <typename Container>
typename Container::const_iterator SyncObstacles::Follower<Container>::find(const QString& path) {
    const auto keyOf = [](const auto& element) -> const QString& {
        if constexpr (std::is_same_v<typename Container::value_type, QString>)
            return element;
        else
            return element.first;
    };
    while (at_ != end_ && keyOf(*at_) < path)
        ++at_;
    return at_ != end_ && keyOf(*at_) == path ? at_ : end_;
}

SyncObstacles::SyncObstacles(const SyncScan& local, const SyncScan& device)
    : local_(local),
      device_(device),
      localFolders_(local.folders),
      deviceFolders_(device.folders),
      localUnusable_(local.unusable),
      deviceUnusable_(device.unusable) {}

QString SyncObstacles::reasonFor(const QString& path, bool isLocalFile, bool isDeviceFile) {
    for (auto* unusable : {&localUnusable_, &deviceUnusable_})
        if (const auto it = unusable->find(path); !unusable->isEnd(it))
            return it->second;
    const bool localFolder = !localFolders_.isEnd(localFolders_.find(path));
    const bool deviceFolder = !deviceFolders_.isEnd(deviceFolders_.find(path));
    if ((isLocalFile && deviceFolder) || (isDeviceFile && localFolder))
        return QStringLiteral("it is a file on one side and a folder on the other");
    const QStringView folder =
        QStringView(path).left(std::max<qsizetype>(0, path.lastIndexOf(u'/')));
    if (folder != folder_) {
        folder_ = folder.toString();
        folderReason_ = reasonAbove(folder);
    }
    return folderReason_;
}

QString SyncObstacles::reasonAbove(QStringView folder) const {
    for (qsizetype end = folder.indexOf(u'/'); !folder.isEmpty();
         end = folder.indexOf(u'/', end + 1)) {
        const QString above = (end < 0 ? folder : folder.left(end)).toString();
        for (const SyncScan* side : {&local_, &device_}) {
            if (const auto it = side->unusable.find(above); it != side->unusable.end())
                return QStringLiteral("in %1: %2").arg(above, it->second);
            if (side->files.contains(above))
                return QStringLiteral("%1 is a file on one side and a folder on the other")
                    .arg(above);
        }
        if (end < 0)
            break;
    }
    return {};
}

QSet<QString> clashingPaths(const SyncScan& local, const SyncScan& device,
                            const SyncNameRules& localNames, const SyncNameRules& deviceNames) {
    QSet<QString> clashes;
    std::vector<const QString*> paths;
    for (const SyncScan* side : {&local, &device}) {
        for (const auto& [path, entry] : side->files)
            paths.push_back(&path);
        for (const QString& folder : side->folders)
            paths.push_back(&folder);
    }
    addClashes(clashes, paths, localNames, local);
    addClashes(clashes, paths, deviceNames, device);
    return clashes;
}

bool isUnderAny(const QString& path, const QSet<QString>& set) {
    if (set.isEmpty())
        return false;
    for (qsizetype end = path.indexOf(u'/'); end >= 0; end = path.indexOf(u'/', end + 1))
        if (set.contains(path.left(end)))
            return true;
    return set.contains(path);
}

} // namespace tessary
