#pragma once

#include "sync/plan/SyncTree.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <map>
#include <optional>

namespace tessary {

/// What is known of one file that was in sync. Dates are UTC, see syncDate().
struct SyncFileEntry {
    qint64 size = 0; ///< bytes
    QDateTime modifiedDate;
    /// The date that the device listed, where it is another one.
    std::optional<QDateTime> deviceModifiedDate;
    /// The date of a side whose changed file was left alone because its content differs. While it
    /// has that date its content need not be looked at again.
    std::optional<QDateTime> differingDate;
    /// The whole content was seen to be the same on both sides: this program copied or compared it.
    bool isContentKnown = false;
    /// Of the content, where the device lists no dates and nothing else tells of an edit; empty
    /// elsewhere.
    QByteArray sha256{};

    /// The date that the device has by it.
    [[nodiscard]] const QDateTime& deviceDate() const {
        return deviceModifiedDate ? *deviceModifiedDate : modifiedDate;
    }

    bool operator==(const SyncFileEntry&) const = default;
};

/// Files by relative path.
using SyncFiles = std::map<QString, SyncFileEntry>;

/// Whether a key may be a relative path: no empty component, no "." or "..", no NUL, and not the
/// manifest itself.
[[nodiscard]] bool isSyncPath(const QString& path);

/// The state of one pair as one run left it.
struct SyncHostEntry {
    QString macName;
    QString deviceUDID;
    QString appBundleID; ///< of the app, or SyncPair::deviceStorage
    QString remoteFolderPath;
    QString localFolderPath;
    QString runID;        ///< of the run that wrote it; no two runs share one
    qint64 runNumber = 0; ///< the higher, the newer
    QDateTime startedAt;  ///< when that run began
    QDateTime lastSynced; ///< and when it ended
    SyncFiles files;      ///< every file that was in sync

    bool operator==(const SyncHostEntry&) const = default;
};

/// The file ".tessary.sync" at the root of both folders of a pair: one entry a pair.
struct SyncManifest {
    static constexpr QLatin1StringView fileName{".tessary.sync"};
    /// A longer text is no manifest.
    static constexpr qint64 maxBytes = 512LL * 1024 * 1024;

    qint64 version = 1;
    std::map<QString, SyncHostEntry> hosts; ///< by the key of a pair, see syncRecordKey()

    /// Pretty-printed JSON with sorted keys and whole seconds in UTC:
    ///
    ///     {"hosts": {"<key>": {"appBundleID": …, "deviceUDID": …,
    ///      "files": {"<path>": {"contentKnown"?: true, "deviceModifiedDate"?: …,
    ///                           "differingDate"?: …, "modifiedDate": "2024-05-01T10:00:00Z",
    ///                           "sha256"?: "<64 hex digits>", "size": 1}},
    ///      "lastSynced": …, "localFolderPath": …, "macName": …, "remoteFolderPath": …,
    ///      "runID": …, "runNumber": 1, "startedAt": …}}, "version": 1}
    [[nodiscard]] QByteArray encode() const;
    /// The reverse. No value when the text is no such document or lacks a field; the fields of a
    /// run, which older ones do not have, stay empty. Files under keys
    /// that are no relative path, or of a negative size, are left out.
    [[nodiscard]] static std::optional<SyncManifest> decode(const QByteArray& json);

    /// Both copies in one: where both have an entry the device's counts, and the higher version.
    [[nodiscard]] static SyncManifest merged(std::optional<SyncManifest> local,
                                             std::optional<SyncManifest> device);

    bool operator==(const SyncManifest&) const = default;
};

} // namespace tessary
