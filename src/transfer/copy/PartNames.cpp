#include "transfer/copy/PartNames.h"

#include "base/log/DiagnosticsLogger.h"

#include <QCryptographicHash>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <mutex>

namespace tessary {

namespace {

constexpr QLatin1StringView waitingPrefix{".tessary-part-for-"};
constexpr QLatin1StringView hashedPrefix{".tessary-part-for#"};
constexpr QLatin1StringView resumablePrefix{".tessary-part-of-"};

struct InUse {
    std::mutex mutex;
    QHash<QString, int> names; ///< guarded
};

InUse& inUse() {
    static InUse& all = *new InUse;
    return all;
}

QString shortHash(const QString& text) {
    constexpr qsizetype digits = 32;
    return QString::fromLatin1(
        QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex().left(digits));
}

QString hashedName(const QString& name) {
    return hashedPrefix + shortHash(name);
}

bool isOld(const FileItem& item) {
    const std::chrono::milliseconds most =
        item.name.startsWith(resumablePrefix) ? oldestBrokenOff : oldestPart;
    return item.modifiedDate &&
           item.modifiedDate->msecsTo(QDateTime::currentDateTime()) > most.count();
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

bool isPartName(const QString& name) {
    return name.startsWith(PartFile::namePrefix);
}

QString waitingName(const NameRules& rules, const QString& name) {
    const QString plain = waitingPrefix + name;
    return rules.accepts(plain) ? plain : hashedName(name);
}

std::optional<QString> nameWaitedFor(const QString& waitingName, const QStringList& awaited) {
    if (waitingName.startsWith(waitingPrefix))
        return waitingName.mid(waitingPrefix.size());
    if (waitingName.startsWith(hashedPrefix))
        for (const QString& name : awaited)
            if (hashedName(name) == waitingName)
                return name;
    return std::nullopt;
}

QString resumableName(const PhoneFileSystem& from, const FileItem& file) {
    const QStringList identity{from.identity(), file.path, QString::number(file.size),
                               QString::number(file.modifiedDateOrEpoch().toMSecsSinceEpoch())};
    return resumablePrefix + shortHash(identity.join(QChar::Null));
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
    for (const FileItem& item : ours) {
        if (PartInUse::has(item.name))
            continue;
        const auto name = nameWaitedFor(item.name, awaited);
        const bool waits = !item.isDirectory && (item.name.startsWith(waitingPrefix) ||
                                                 item.name.startsWith(hashedPrefix));
        if (waits && !(name && taken.contains(rules.key(*name)))) {
            if (name && rules.accepts(*name))
                tries([&] {
                    entries.push_back(files.rename(item, *name, TakenName::refused, call));
                    taken.insert(rules.key(*name));
                });
        } else if (isOld(item)) {
            tries([&] { files.removeTree(item, call); });
        }
    }
    return entries;
}

} // namespace tessary
