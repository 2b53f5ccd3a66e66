#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <map>
#include <optional>

namespace tessary {

/// What is known of one file. Dates are UTC, see syncDate().
struct SyncFileEntry {
    qint64 size = 0; ///< bytes
    QDateTime modifiedDate;
    /// In a manifest: the date that the device listed, where it is another one.
    std::optional<QDateTime> deviceModifiedDate;
    /// In a manifest: the date of a side whose changed file was left alone because its content
    /// differs. While it has that date its content need not be looked at again.
    std::optional<QDateTime> differingDate;

    bool operator==(const SyncFileEntry&) const = default;
};

/// Files by relative path: components joined by "/", none in front.
using SyncFiles = std::map<QString, SyncFileEntry>;

/// A date as the sync compares and stores it: UTC, in the years 1 to 9999; none is 1970.
[[nodiscard]] QDateTime syncDate(const std::optional<QDateTime>& date);

/// Whether a key may be a relative path: no empty component, no "." or "..", no NUL, and not the
/// manifest itself.
[[nodiscard]] bool isSyncPath(const QString& path);

/// The state of one pair as one computer last left it.
struct SyncHostEntry {
    QString macName;
    QString deviceUDID;
    QString remoteFolderPath;
    QString localFolderPath;
    QDateTime lastSynced;
    SyncFiles files; ///< every file that was in sync

    bool operator==(const SyncHostEntry&) const = default;
};

/// The file ".tessary.sync" at the root of both folders of a pair: one entry for each computer.
struct SyncManifest {
    static constexpr QLatin1StringView fileName{".tessary.sync"};
    /// A longer text is no manifest.
    static constexpr qint64 maxBytes = 512LL * 1024 * 1024;

    qint64 version = 1;
    std::map<QString, SyncHostEntry> hosts; ///< by host identifier

    /// Pretty-printed JSON with sorted keys and whole seconds in UTC:
    ///
    ///     {"hosts": {"<id>": {"deviceUDID": …, "files": {"<path>": {"deviceModifiedDate"?: …,
    ///      "differingDate"?: …, "modifiedDate": "2024-05-01T10:00:00Z", "size": 1}},
    ///      "lastSynced": …, "localFolderPath": …, "macName": …, "remoteFolderPath": …}},
    ///      "version": 1}
    [[nodiscard]] QByteArray encode() const;
    /// The reverse. No value when the text is no such document or lacks a field. Files under keys
    /// that are no relative path, or of a negative size, are left out.
    [[nodiscard]] static std::optional<SyncManifest> decode(const QByteArray& json);

    /// Both copies in one: where both have an entry the device's counts, and the higher version.
    [[nodiscard]] static SyncManifest merged(std::optional<SyncManifest> local,
                                             std::optional<SyncManifest> device);

    bool operator==(const SyncManifest&) const = default;
};

} // namespace tessary
