#include "sync/plan/SyncObstacles.h"

#include "base/local/LocalError.h"
#include "phone/PhoneError.h"
#include "sync/plan/SyncError.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <ranges>
#include <vector>

namespace tessary {

namespace {

using Reason = std::shared_ptr<const Error>;

/// Whether an error says that a name itself is what cannot be used: it is no other file's then.
bool isAboutItsName(const Error& error) {
    return error.is(PhoneError::nameNotAllowed) || error.is(LocalError::nameNotUsable) ||
           error.is(LocalError::link);
}

/// The folders that hold an entry of which not even the name is certain: a file that seems to be
/// gone from there may be it.
std::set<QString> gaps(const SyncTree& side, const SyncTree& other, const SyncFiles& record) {
    std::set<QString> folders;
    for (const auto& [path, error] : side.unknown) {
        const bool isNamed = isAboutItsName(error) || side.folders.contains(path) ||
                             record.contains(path) || other.files.contains(path) ||
                             other.folders.contains(path);
        if (!isNamed)
            folders.insert(folderOf(path));
    }
    return folders;
}

/// Whether a path, or a folder above it, is missing from a folder with a gap and was known.
bool mayBeInGap(const QString& path, const std::set<QString>& gaps, const SyncTree& side,
                const SyncFiles& record) {
    if (gaps.empty())
        return false;
    const auto wasKnown = [&record](const QString& name) {
        const QString below = name + QLatin1Char('/');
        const auto first = record.lower_bound(below);
        return record.contains(name) || (first != record.end() && first->first.startsWith(below));
    };
    for (qsizetype end = path.indexOf(u'/');; end = path.indexOf(u'/', end + 1)) {
        const QString name = end < 0 ? path : path.left(end);
        if (gaps.contains(folderOf(name)) && !side.files.contains(name) &&
            !side.folders.contains(name) && wasKnown(name))
            return true;
        if (end < 0)
            return false;
    }
}

std::uint64_t mix(std::uint64_t hash, char16_t unit) {
    constexpr std::uint64_t prime = 0x100000001B3;
    return (hash ^ unit) * prime;
}

/// A hash of the folded path, that plain names need no second string for.
std::uint64_t foldedHash(const QString& path, const NameRules& rules) {
    constexpr char16_t firstBeyondAscii = 0x80;
    constexpr char16_t caseBit = 0x20;
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const QChar unit : path) {
        char16_t code = unit.unicode();
        if (code >= firstBeyondAscii) {
            hash = 0xCBF29CE484222325;
            for (const QChar other : rules.key(path))
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

bool holds(const SyncTree& scan, const QString& path) {
    return scan.files.contains(path) || scan.folders.contains(path);
}

void addClashes(QSet<QString>& clashes, const std::vector<const QString*>& paths,
                const NameRules& rules, const SyncTree& side) {
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

SyncObstacles::SyncObstacles(const SyncTree& local, const SyncTree& device, const SyncFiles& record)
    : local_(local),
      device_(device),
      record_(record),
      localGaps_(gaps(local, device, record)),
      deviceGaps_(gaps(device, local, record)) {
    const auto note = [this](const SyncTree& side, const SyncTree& other) {
        std::ranges::set_intersection(side.files | std::views::keys, other.folders,
                                      std::inserter(kindsDiffer_, kindsDiffer_.end()),
                                      std::less<>());
    };
    note(local, device);
    note(device, local);
}

Reason SyncObstacles::reasonFor(const QString& path, bool isLocalFile, bool isDeviceFile) {
    for (const SyncTree* side : {&local_, &device_})
        if (const auto it = side->unknown.find(path); it != side->unknown.end())
            return std::make_shared<const Error>(it->second);
    if (kindsDiffer_.contains(path))
        return std::make_shared<const Error>(SyncError::kindsDiffer, QVariantList{path});
    if ((!isLocalFile && mayBeInGap(path, localGaps_, local_, record_)) ||
        (!isDeviceFile && mayBeInGap(path, deviceGaps_, device_, record_)))
        return std::make_shared<const Error>(SyncError::notListed, QVariantList{path});
    if (const QString folder = folderOf(path); folder != folder_) {
        folder_ = folder;
        folderReason_ = reasonAbove(folder);
    }
    return folderReason_;
}

Reason SyncObstacles::reasonAbove(const QString& folder) const {
    for (qsizetype end = folder.indexOf(u'/'); !folder.isEmpty();
         end = folder.indexOf(u'/', end + 1)) {
        const QString above = end < 0 ? folder : folder.left(end);
        for (const SyncTree* side : {&local_, &device_}) {
            if (const auto it = side->unknown.find(above); it != side->unknown.end())
                return std::make_shared<const Error>(SyncError::aboveUnknown, QVariantList{above},
                                                     it->second);
            if (side->files.contains(above))
                return std::make_shared<const Error>(SyncError::kindsDiffer, QVariantList{above});
        }
        if (end < 0)
            break;
    }
    return {};
}

QSet<QString> clashingPaths(const SyncTree& local, const SyncTree& device,
                            const NameRules& localNames, const NameRules& deviceNames) {
    QSet<QString> clashes;
    // One that both sides have in one spelling stands for both.
    std::vector<const QString*> paths;
    const auto addPaths = [&paths](const auto& some, const auto& others, auto pathOf) {
        const auto text = [](const QString* path) -> const QString& { return *path; };
        const auto places = std::views::transform(pathOf);
        std::ranges::set_union(some | places, others | places, std::back_inserter(paths),
                               std::less<>(), text, text);
    };
    addPaths(local.files, device.files, [](const auto& file) { return &file.first; });
    addPaths(local.folders, device.folders, [](const QString& folder) { return &folder; });
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
