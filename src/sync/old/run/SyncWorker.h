#pragma once

#include "sync/old/run/SyncRun.h"

#include <QSet>

#include <map>

namespace tessary {

/// Carries the actions of a plan out, one after the other, and knows in the end what is in sync.
/// Every deletion and every replacement is checked against the scan right before it happens: a file
/// that changed in between is kept and reported.
class SyncWorker {
public:
    SyncWorker(SyncRunSetup& setup, SyncRunEvents& events, QString remoteRoot,
               SyncProgress& progress, std::stop_token stop);

    /// Throws what the sides throw, and CancellationError.
    void carryOut(const SyncPlannedAction& action);
    /// Removes folders that became empty, checks what was transferred against fresh listings of
    /// the folders that it went to, and returns the files that are in sync.
    [[nodiscard]] SyncFiles finish();
    [[nodiscard]] SyncReport takeReport() {
        return std::move(report_);
    }

private:
    using Action = SyncPlannedAction;
    struct Transferred {
        SyncFileEntry local; ///< as it is here, or was when it was sent
        /// As it was on the device when it was fetched or sent; no value where that is not known.
        std::optional<SyncFileEntry> device;
        bool isSent = false;
    };

    void upload(const Action& action);
    void download(const Action& action);
    void deleteMovedSource(const Action& action);
    void deleteConfirmed(const Action& action);
    void resolveConflict(const Action& action);
    void keepRecord(const Action& action);

    [[nodiscard]] std::optional<Transferred> send(const QString& relativePath,
                                                  const Action* replaced = nullptr);
    void fetch(const QString& relativePath, const QString& temporary, qint64 size);
    void keepLoserOfDevice(const Action& action, const QString& temporary);
    void keepLoserHere(const Action& action);
    bool removeLocal(const QString& relativePath, const SyncFileEntry& expected);
    bool removeRemote(const QString& relativePath, const SyncFileEntry& expected);
    [[nodiscard]] bool isLocalAsScanned(const Action& action);
    [[nodiscard]] bool isDeviceAsScanned(const Action& action);

    [[nodiscard]] QString remote(const QString& relativePath) const;
    [[nodiscard]] FileProgressCallback byteProgress();
    void begin(const QString& stage, const QString& relativePath);
    void endFile(const Action& action);
    void addBytes(qint64 bytes);
    void confirmTransfers();
    [[nodiscard]] bool isAsTransferred(const QString& relativePath, const Transferred& transferred,
                                       const SyncFileEntry& now);
    void sendLoser(const Action& action, qint64 bytes);
    void skip(const QString& relativePath, const QString& reason);
    [[nodiscard]] static const QString& changedMeanwhile(); ///< a reason
    void enter(const QString& relativePath, const SyncFileEntry& local,
               const SyncFileEntry& device);

    SyncRunSetup& setup_;
    SyncRunEvents& events_;
    const QString root_;
    SyncProgress& progress_;
    const std::stop_token stop_;
    SyncReport report_;
    SyncFiles files_; ///< in sync so far
    std::map<QString, Transferred> toConfirm_;
    QSet<QString> localEmptied_;  ///< an entry of each folder that something was removed from
    QSet<QString> deviceEmptied_; ///< such folders of the device, relative
    qint64 fileBytes_ = 0;        ///< bytes of transfers of the current action that are complete
};

} // namespace tessary
