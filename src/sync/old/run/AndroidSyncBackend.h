#pragma once

#include "devices/files/DeviceFileService.h"
#include "phone/records/DeviceInfo.h"
#include "sync/old/run/PhoneSyncBackend.h"

#include <stop_token>

namespace tessary {

/// A folder of an Android phone's storage as the device side of a run, over whichever protocol the
/// phone is in. A replacing upload over MTP sends the new file under a temporary name, deletes the
/// old one and renames; a phone that cannot rename refuses, and keeps the old one.
class AndroidSyncBackend : public PhoneSyncBackend {
public:
    /// `service` must outlive the backend.
    AndroidSyncBackend(DeviceFileService& service, DeviceInfo device, std::stop_token stop);

    std::optional<SyncFileEntry> uploadFile(const QString& localFile, const QString& remotePath,
                                            bool mayReplace,
                                            const FileProgressCallback& progress) override;
    [[nodiscard]] SyncNameRules nameRules() const override;
    [[nodiscard]] std::shared_ptr<void> holdConnection() override;

protected:
    [[nodiscard]] std::optional<FileItem> entryAt(const QString& remotePath) override;
    [[nodiscard]] std::vector<FileItem> list(const QString& remotePath,
                                             std::vector<SkippedItem>& skipped) override;
    [[nodiscard]] bool isAlwaysThere(const QString& remotePath) const override;
    void makeFolder(const QString& remotePath) override;
    void remove(const FileItem& item, const QString& remotePath) override;
    void fetch(const FileItem& item, const QString& remotePath, const QString& localFile,
               const FileProgressCallback& progress) override;
    [[nodiscard]] std::optional<QByteArray> sample(const QString& remotePath) override;

private:
    DeviceFileService& service_;
    const DeviceInfo device_;
    const std::stop_token stop_;
    MTPUploadMemory uploads_;
};

} // namespace tessary
