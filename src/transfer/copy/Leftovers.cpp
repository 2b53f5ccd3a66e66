#include "transfer/copy/Leftovers.h"

#include "base/log/DiagnosticsLogger.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <mutex>

namespace tessary {

namespace {

struct InUse {
    std::mutex mutex;
    QHash<QString, int> names; ///< guarded
};

InUse& inUse() {
    static InUse& all = *new InUse;
    return all;
}

/// By this computer's clock; a phone's own may show the time of another zone.
bool isOld(const FileItem& item, PartName::Kind kind) {
    if (!item.modifiedDate)
        return false;
    const std::chrono::milliseconds age(item.modifiedDate->msecsTo(QDateTime::currentDateTime()));
    // What can be gone on with is found by its name, however wrong a clock was.
    if (kind == PartName::Kind::resumable)
        return age > oldestBrokenOff;
    return age > oldestPart || age < -std::chrono::hours(24);
}

/// Runs a step of tidying up that may fail.
bool tries(const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        DiagnosticsLogger::shared().transfer.standard("a leftover stays: %s", {error.logText()});
        return false;
    }
}

} // namespace

QString resumableName(const PhoneFileSystem& from, const FileItem& file) {
    const QStringList identity{from.identity(), file.path, QString::number(file.size),
                               QString::number(file.modifiedDateOrEpoch().toMSecsSinceEpoch())};
    return resumablePartName(identity.join(QChar::Null));
}

PartInUse::PartInUse(QString name) : name_(std::move(name)) {
    const std::scoped_lock lock(inUse().mutex);
    ++inUse().names[name_];
}

PartInUse::~PartInUse() {
    const std::scoped_lock lock(inUse().mutex);
    if (--inUse().names[name_] == 0)
        inUse().names.remove(name_);
}

bool PartInUse::has(const QString& name) {
    const std::scoped_lock lock(inUse().mutex);
    return inUse().names.contains(name);
}

std::vector<FileItem> tidied(PhoneFileSystem& files, std::vector<FileItem> entries,
                             const NameRules& rules, const QStringList& awaited, const Call& call) {
    const auto isOurs = [](const FileItem& item) { return isPartName(item.name); };
    const auto firstOurs =
        std::stable_partition(entries.begin(), entries.end(), std::not_fn(isOurs));
    const std::vector<FileItem> ours(firstOurs, entries.end());
    entries.erase(firstOurs, entries.end());
    if (ours.empty())
        return entries;
    QSet<QString> taken;
    for (const FileItem& item : entries)
        taken.insert(rules.key(item.name));
    const auto isTaken = [&taken](const QString& key) { return taken.contains(key); };
    const auto giveName = [&](const FileItem& item, const QString& name) {
        tries([&] {
            entries.push_back(files.rename(item, name, TakenName::refused, call));
            taken.insert(rules.key(name));
        });
    };
    for (const FileItem& item : ours) {
        if (PartInUse::has(item.name))
            continue;
        const PartName part = partNameOf(item.name, awaited).value_or(PartName());
        const bool isFree = part.awaited && !isTaken(rules.key(*part.awaited));
        const bool isOwn = !part.owner.isEmpty() && part.owner == call.partOwner;
        if (part.kind == PartName::Kind::respelled) {
            if (part.awaited && rules.accepts(*part.awaited))
                giveName(item, freeNameUnder(rules, *part.awaited, item.isDirectory, isTaken));
        } else if (part.kind == PartName::Kind::waiting && !item.isDirectory &&
                   (isFree || !part.awaited)) {
            if (isFree && rules.accepts(*part.awaited))
                giveName(item, *part.awaited);
        } else if (isOwn || isOld(item, part.kind)) {
            tries([&] { files.removeTree(item, call); });
        }
    }
    return entries;
}

} // namespace tessary
