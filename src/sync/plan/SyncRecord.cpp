#include "sync/plan/SyncRecord.h"

#include <QDir>
#include <QStringList>
#include <QUuid>

#include <algorithm>

namespace tessary {

namespace {

/// Any one; every version of the program has it.
constexpr QUuid recordNames(0x1d4a9c3e, 0x77b5, 0x4a0c, 0x8e, 0x15, 0x5b, 0x21, 0xd0, 0x94, 0x3f,
                            0x6a);

/// "/", "" and "/a/" are written in many ways.
QString remoteForm(const QString& path) {
    return QDir::cleanPath(QLatin1Char('/') + path);
}

bool isOfPair(const SyncHostEntry& entry, const SyncPair& pair) {
    return entry.deviceUDID == pair.deviceUDID && entry.appBundleID == pair.appBundleID &&
           remoteForm(entry.remoteFolderPath) == remoteForm(pair.remoteFolderPath) &&
           QDir::cleanPath(entry.localFolderPath) == QDir::cleanPath(pair.localFolderPath);
}

const SyncHostEntry* entryOf(const std::optional<SyncManifest>& manifest, const QString& key,
                             const SyncPair& pair) {
    if (!manifest)
        return nullptr;
    const auto found = manifest->hosts.find(key);
    return found != manifest->hosts.end() && isOfPair(found->second, pair) ? &found->second
                                                                           : nullptr;
}

} // namespace

QString syncRecordKey(const QString& hostID, const SyncPair& pair) {
    const QStringList names{hostID, pair.deviceUDID, pair.appBundleID,
                            remoteForm(pair.remoteFolderPath),
                            QDir::cleanPath(pair.localFolderPath)};
    return QUuid::createUuidV5(recordNames, names.join(QChar::Null))
        .toString(QUuid::WithoutBraces)
        .toUpper();
}

std::optional<SyncRecord> syncRecord(const std::optional<SyncManifest>& local,
                                     const std::optional<SyncManifest>& device,
                                     const QString& hostID, const SyncPair& pair) {
    const QString key = syncRecordKey(hostID, pair);
    const SyncHostEntry* here = entryOf(local, key, pair);
    const SyncHostEntry* there = entryOf(device, key, pair);
    if (here == nullptr || there == nullptr)
        return std::nullopt;
    const SyncHostEntry& newer = there->runNumber > here->runNumber ? *there : *here;
    SyncRecord record{newer.files, !here->runID.isEmpty() && here->runID == there->runID,
                      newer.runNumber, newer.startedAt};
    if (record.isShared)
        return record;
    const SyncHostEntry& older = &newer == here ? *there : *here;
    record.isOlderOnDevice = &older == there;
    // What a run did whose end only one side was told of is not known to be on the other.
    for (auto& [path, entry] : record.files) {
        const auto before = older.files.find(path);
        if (before != older.files.end() && before->second == entry)
            continue;
        entry.isContentKnown = false;
        if (before != older.files.end())
            record.before.emplace_hint(record.before.end(), path, before->second);
    }
    return record;
}

std::optional<qint64> filesOnceSynced(const std::optional<SyncManifest>& local,
                                      const std::optional<SyncManifest>& device,
                                      const QString& hostID, const SyncPair& pair) {
    const QString key = syncRecordKey(hostID, pair);
    std::optional<qint64> most;
    for (const auto* manifest : {&local, &device})
        if (const SyncHostEntry* entry = entryOf(*manifest, key, pair))
            most = std::max(most.value_or(0), static_cast<qint64>(entry->files.size()));
    return most;
}

} // namespace tessary
