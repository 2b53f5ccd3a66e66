#pragma once

#include "sync/pair/SyncPatterns.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <optional>

namespace tessary {

/// How files flow.
enum class SyncMode { biDirectional, toPhone, toComputer };

/// The text of a mode in JSON and for people.
[[nodiscard]] QString rawValue(SyncMode mode);
[[nodiscard]] std::optional<SyncMode> syncModeFromRawValue(const QString& text);

/// What a run is at.
enum class SyncStage {
    none,
    connecting,
    waiting, ///< for another run
    scanning,
    confirming, ///< the user is asked about deletions
    planning,
    starting,
    uploading,
    downloading,
    moving,
    clearing, ///< what is moved is on the other side already
    deleting,
    upToDate,
    completed,
    failed,
};

/// The text of a stage in JSON; for people it is put into words where they are shown it.
[[nodiscard]] QString rawValue(SyncStage stage);
/// SyncStage::none for any other text.
[[nodiscard]] SyncStage syncStageFromRawValue(const QString& text);

/// The state of one pair. A value.
struct SyncStatus {
    enum class Kind { idle, syncing, completed, error };

    Kind kind = Kind::idle;
    SyncStage stage = SyncStage::none; ///< of `syncing`
    QString message;                   ///< of `error`: what went wrong, not for people

    [[nodiscard]] static SyncStatus syncing(SyncStage stage) {
        return {Kind::syncing, stage, {}};
    }
    [[nodiscard]] static SyncStatus completed() {
        return {Kind::completed, SyncStage::none, {}};
    }
    [[nodiscard]] static SyncStatus error(const QString& message) {
        return {Kind::error, SyncStage::none, message};
    }

    bool operator==(const SyncStatus&) const = default;
};

/// Counters of one run. All signed 64-bit; bytes unless they count files.
struct SyncProgress {
    qint64 totalFiles = 0; ///< actions planned for the run
    qint64 completedFiles = 0;
    qint64 totalBytes = 0;     ///< of all planned transfers
    qint64 completedBytes = 0; ///< of finished transfers
    qint64 currentFileBytes = 0;
    QString currentFileName; ///< relative path
    SyncStage stage = SyncStage::none;

    /// "2/3", the file under way included once it has moved; empty without files.
    [[nodiscard]] QString filesDescription() const;
    /// "900 kB / 1.2 MB", clamped to the total.
    [[nodiscard]] QString bytesDescription() const;
    /// The share of the bytes that are across, 0 to 100.
    [[nodiscard]] int percent() const;

    bool operator==(const SyncProgress&) const = default;

private:
    [[nodiscard]] qint64 bytesDone() const;
};

/// One folder of this computer tied to one folder of a device. A value; `id` is its identity.
struct SyncPair {
    /// The bundle identifier of a folder in a device's general storage.
    static constexpr QLatin1StringView deviceStorage{"device.storage"};

    QUuid id = QUuid::createUuid();
    QString deviceUDID;
    QString deviceName; ///< when the pair was made
    QString appBundleID;
    QString appName;          ///< of the app, or of the storage
    QString remoteFolderPath; ///< "/" or empty: the root
    QString localFolderPath;  ///< absolute
    SyncMode syncMode = SyncMode::biDirectional;
    bool deleteSyncEnabled = true;
    bool moveFilesEnabled = false;
    bool runsWhenPluggedIn = false;                  ///< by itself, whenever its phone comes
    QStringList patterns = SyncPatterns::defaults(); ///< what is left out, see SyncPatterns
    std::optional<QDateTime> lastSyncedAt;           ///< end of the last run that did not break off
    SyncStatus status;
    SyncProgress progress;

    /// Whether files are moved: one-way modes only.
    [[nodiscard]] bool movesFiles() const {
        return moveFilesEnabled && syncMode != SyncMode::biDirectional;
    }

    bool operator==(const SyncPair&) const = default;
};

/// One file that a run would delete, as the user is asked about it.
struct DeletionCandidate {
    QString relativePath;
    bool isHere = true;                 ///< on this computer, else on the phone
    qint64 size = 0;                    ///< bytes
    bool isEditedSinceLastSync = false; ///< its date is a little off the recorded one
};

} // namespace tessary
