#include "adb/files/ADBStorages.h"

#include "adb/files/ADBSession.h"
#include "adb/protocol/ADBError.h"
#include "base/text/PathNames.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;

constexpr QLatin1Char slash('/');
constexpr View card("/sdcard");
constexpr View storage("/storage/");
const QByteArray spaceMark = "space:";

/// Folders at the top of Android's file tree.
constexpr std::array topFolders{
    View("sdcard"), View("storage"), View("mnt"),        View("data"), View("system"),
    View("vendor"), View("product"), View("odm"),        View("proc"), View("sys"),
    View("dev"),    View("etc"),     View("cache"),      View("apex"), View("config"),
    View("acct"),   View("oem"),     View("system_ext"),
};

/// What the internal storage is called besides.
constexpr std::array aliases{View("/storage/emulated/0"), View("/storage/self/primary"),
                             View("/storage/internal"), View("/mnt/sdcard")};
/// Folders of /storage that are no storages of their own.
constexpr std::array notCards{View("emulated"), View("self"), View("enc_emulated"),
                              View("knox-emulated"), View("sdcard0")};

bool isCard(const QString& name) {
    return isSafeName(name) && std::find(notCards.begin(), notCards.end(), name) == notCards.end();
}

/// The number by which MTP calls a storage; no value for anything else.
std::optional<std::uint32_t> mtpNumber(const QString& id) {
    bool isNumber = false;
    const std::uint32_t number = id.toUInt(&isNumber);
    constexpr std::uint32_t least = 0x10000; // the upper half counts the storages from 1 on
    return isNumber && number > least ? std::optional(number) : std::nullopt;
}

QString swappedCase(const QString& text) {
    QString swapped = text;
    for (QChar& letter : swapped)
        letter = letter.isUpper() ? letter.toLower() : letter.toUpper();
    return swapped;
}

} // namespace

QString ADBStorages::canonicalPath(const QString& path) const {
    // What begins with one of Android's own top folders stays, and all else lies in the card, as
    // over MTP.
    QStringList names;
    if (!path.trimmed().isEmpty())
        names = path.split(slash, Qt::SkipEmptyParts);
    const bool isAndroids =
        path.startsWith(slash) && !names.isEmpty() &&
        std::find(topFolders.begin(), topFolders.end(), names.first()) != topFolders.end();
    if (!isAndroids)
        names.prepend(QStringLiteral("sdcard"));
    const QString clean = slash + names.join(slash);
    for (const View alias : aliases)
        if (isAtOrBelow(clean, QString(alias)))
            return card + clean.mid(alias.size());
    if (!clean.startsWith(storage))
        return clean;
    const QString id = clean.section(slash, 2, 2);
    const auto number = mtpNumber(id);
    if (!number)
        return clean;
    const QString rest = clean.mid(storage.size() + id.size());
    constexpr std::uint32_t first = 1;
    if (*number >> 16 == first)
        return card + rest;
    const std::scoped_lock lock(mutex_);
    return cards_.size() == 1 ? storage + cards_.front().id + rest : clean;
}

bool ADBStorages::isByNumber(const QString& canonical) {
    return canonical.startsWith(storage) && mtpNumber(canonical.section(slash, 2, 2));
}

QString ADBStorages::rootPathOf(const QString& canonical) {
    if (canonical.startsWith(storage) && isCard(canonical.section(slash, 2, 2)))
        return canonical.section(slash, 0, 2);
    return isAtOrBelow(canonical, QString(card)) ? QString(card) : QString(slash);
}

FileTreeRoot ADBStorages::rootOf(const QString& path) const {
    const QString root = rootPathOf(canonicalPath(path));
    if (root == card)
        return {root, QStringLiteral("Internal Storage")};
    if (root.size() == 1)
        return {root, root};
    const QString id = lastComponent(root);
    const std::scoped_lock lock(mutex_);
    for (const StorageVolume& volume : cards_)
        if (volume.id == id)
            return {root, volume.name};
    return {root, id};
}

/// The cards and sticks, without their sizes. What each is, is asked once.
std::vector<StorageVolume> ADBStorages::removable(ADBSession& session,
                                                  const std::stop_token& stop) {
    constexpr std::size_t most = 16;
    std::vector<StorageVolume> found;
    const auto take = [&](const ADBFacts& facts, QByteArray&& bytes) {
        const QString name = QString::fromUtf8(bytes);
        if ((facts.isFolder() || facts.isLink()) && isCard(name) && name.toUtf8() == bytes &&
            found.size() < most)
            found.push_back({name, name, 0, 0, true});
    };
    session.asking(stop, [&](ADBSyncClient& sync) {
        sync.list("/storage/", take, {stop, ADBSession::patience});
    });
    {
        const std::scoped_lock lock(mutex_);
        for (StorageVolume& volume : found)
            for (const StorageVolume& known : cards_)
                if (known.id == volume.id)
                    volume = known;
        if (found == cards_)
            return found;
    }
    // "public:179,65 mounted 1234-ABCD": the number of the driver tells cards from sticks.
    const ADBCommandResult kinds =
        session.tryRun({"sm", "list-volumes", "public"}, ADBSession::patience, stop);
    for (StorageVolume& volume : found)
        for (const QByteArray& line : kinds.output.split('\n')) {
            const QByteArrayList words = line.simplified().split(' ');
            if (words.size() < 3 || words[2] != volume.id.toUtf8())
                continue;
            volume.isSDCard = words[0].startsWith("public:179,");
            volume.name =
                (volume.isSDCard ? QStringLiteral("SD Card") : QStringLiteral("USB Drive"));
        }
    for (std::size_t n = 1; n < found.size(); ++n)
        if (std::any_of(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(n),
                        [&](const StorageVolume& one) { return one.name == found[n].name; }))
            found[n].name += QStringLiteral(" (%1)").arg(found[n].id);
    const std::scoped_lock lock(mutex_);
    cards_ = found;
    return found;
}

LiveDeviceInfo ADBStorages::ask(ADBSession& session, const std::stop_token& stop) {
    LiveDeviceInfo info;
    info.volumes = removable(session, stop);
    info.volumes.insert(info.volumes.begin(), {QStringLiteral("internal"),
                                               QStringLiteral("Internal Storage"), 0, 0, false});
    // One line for all, since each costs the phone a process. That of a storage that went
    // meanwhile, or cannot be looked at, says nothing of its size.
    QByteArray line = "dumpsys battery";
    for (std::size_t n = 0; n < info.volumes.size(); ++n)
        line += "; " + ADBSession::lineOf(
                           {"stat", "-f", "-c", spaceFormat(static_cast<int>(n)),
                            n == 0 ? QByteArray("/sdcard/")
                                   : QByteArray("/storage/") + info.volumes[n].id.toUtf8()});
    const ADBCommandResult result = session.shell(stop).run(line, {stop, ADBSession::patience});
    info.battery = batteryLevelIn(result.output);
    const QHash<int, ADBSpace> spaces = spacesIn(result.output);
    if (!spaces.contains(0))
        return {info.battery, {}}; // before the phone is unlocked for the first time
    for (auto space = spaces.cbegin(); space != spaces.cend(); ++space)
        if (const auto n = static_cast<std::size_t>(space.key()); n < info.volumes.size()) {
            info.volumes[n].totalBytes = space->total;
            info.volumes[n].freeBytes = space->free;
        }
    return info;
}

NameRules ADBStorages::nameRules(const QString& canonical, ADBSession& session,
                                 const std::stop_token& stop) {
    const QString root = rootPathOf(canonical);
    {
        const std::scoped_lock lock(mutex_);
        if (const auto known = rules_.constFind(root); known != rules_.cend())
            return *known;
    }
    NameRules rules;
    if (root == card) {
        // Whether an entry is found under its name in other letters, too. An empty storage tells
        // nothing: then names that differ in letters alone are kept apart for now.
        rules.ignoresCase = rules.ignoresUnicodeForm = true;
        QString name;
        const auto take = [&](const ADBFacts&, QByteArray&& bytes) {
            const QString one = QString::fromUtf8(bytes);
            if (name.isEmpty() && one.toUtf8() == bytes && isSafeName(one) &&
                swappedCase(one) != one)
                name = one;
        };
        session.asking(stop, [&](ADBSyncClient& sync) {
            sync.list("/sdcard/", take, {stop, ADBSession::patience});
        });
        if (name.isEmpty())
            return rules;
        const auto facts = session.facts({{(card + slash + name).toUtf8(), false},
                                          {(card + slash + swappedCase(name)).toUtf8(), false}},
                                         stop);
        rules.ignoresCase = facts[0] && facts[1] && *facts[0] == *facts[1];
        rules.ignoresUnicodeForm = rules.ignoresCase; // by one rule of Android's file systems
    } else if (root.size() > 1) {
        // Cards and sticks are formatted by FAT or its successor.
        constexpr int longest = 255;
        rules.ignoresCase = true;
        rules.forbidsFATCharacters = true;
        rules.longestUTF16 = longest;
    }
    const std::scoped_lock lock(mutex_);
    rules_.insert(root, rules);
    return rules;
}

std::optional<std::uint64_t> ADBStorages::freeBytes(const QString& canonical, ADBSession& session,
                                                    const std::stop_token& stop) {
    // An open stream for commands that has ended shows by this one.
    if (!session.facts((canonical + slash).toUtf8(), true, stop))
        throw Error(PhoneError::notFound, {canonical});
    const ADBCommandResult result =
        session.tryRun({"stat", "-f", "-c", spaceFormat(0), (canonical + slash).toUtf8()},
                       ADBSession::patience, stop);
    const QHash<int, ADBSpace> spaces = spacesIn(result.output);
    const auto space = spaces.constFind(0);
    return space != spaces.cend() && space->total > 0 ? std::optional(space->free) : std::nullopt;
}

std::optional<int> batteryLevelIn(const QByteArray& output) {
    constexpr int full = 100;
    const QByteArray sign = "level:";
    for (const QByteArray& line : output.split('\n')) {
        if (!line.trimmed().startsWith(sign))
            continue;
        bool isNumber = false;
        const int level = line.trimmed().mid(sign.size()).trimmed().toInt(&isNumber);
        return isNumber && level >= 0 && level <= full ? std::optional(level) : std::nullopt;
    }
    return std::nullopt;
}

QByteArray spaceFormat(int number) {
    return spaceMark + QByteArray::number(number) + " %a %S %b";
}

QHash<int, ADBSpace> spacesIn(const QByteArray& output) {
    constexpr std::uint64_t limit = std::uint64_t{1} << 62; // bytes: below the signed range
    QHash<int, ADBSpace> spaces;
    for (const QByteArray& line : output.split('\n')) {
        const QByteArrayList words = line.simplified().split(' ');
        bool isNumbered = false;
        const int place = words[0].mid(spaceMark.size()).toInt(&isNumbered);
        if (words.size() != 4 || !words[0].startsWith(spaceMark) || !isNumbered)
            continue;
        std::array<std::uint64_t, 3> numbers{};
        bool areNumbers = true;
        for (std::size_t n = 0; n < numbers.size(); ++n) {
            bool isNumber = false;
            numbers[n] = words[static_cast<qsizetype>(n) + 1].toULongLong(&isNumber);
            areNumbers = areNumbers && isNumber;
        }
        const auto [free, unit, total] = numbers;
        const bool makesSense =
            areNumbers && unit > 0 && free < limit / unit && total < limit / unit;
        spaces.insert(place, makesSense ? ADBSpace{free * unit, total * unit} : ADBSpace());
    }
    return spaces;
}

} // namespace tessary
