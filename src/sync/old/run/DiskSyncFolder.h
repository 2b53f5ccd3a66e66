#pragma once

#include "sync/old/run/SyncLocalFolder.h"

namespace tessary {

/// A folder of this computer's disk as the local side of a run.
class DiskSyncFolder final : public SyncLocalFolder {
public:
    explicit DiskSyncFolder(QString root);

    [[nodiscard]] bool exists() override;
    void create() override;
    [[nodiscard]] SyncScan scan(const std::stop_token& stop) override;
    [[nodiscard]] std::optional<SyncFileEntry> stat(const QString& relativePath) override;
    [[nodiscard]] QString pathOf(const QString& relativePath) const override;
    [[nodiscard]] QString temporaryPathFor(const QString& relativePath) override;
    [[nodiscard]] qint64 temporarySize(const QString& temporaryPath) override;
    [[nodiscard]] bool hasSameContent(const QString& relativePath, const QString& temporaryPath,
                                      const std::stop_token& stop) override;
    void putInPlace(const QString& temporaryPath, const QString& relativePath,
                    const QDateTime& date) override;
    void flush(const QString& relativePath) override;
    void discard(const QString& temporaryPath) noexcept override;
    void copyTo(const QString& relativePath, const QString& newRelativePath,
                const std::stop_token& stop) override;
    void remove(const QString& relativePath) override;
    void removeEmptyFoldersAbove(const QString& relativePath) noexcept override;
    void removeLeftover(const QString& relativePath) noexcept override;
    [[nodiscard]] std::optional<SyncManifest> loadManifest() override;
    void saveManifest(const SyncManifest& manifest) override;
    [[nodiscard]] SyncNameRules nameRules() const override;

private:
    void scanFolder(SyncScan& scan, const QString& relativeFolder, const std::stop_token& stop);
    [[nodiscard]] bool isBelowRealFolders(const QString& relativePath) const;
    void requireRealFolders(const QString& relativePath) const;

    const QString root_; ///< without "/" at the end
};

} // namespace tessary
