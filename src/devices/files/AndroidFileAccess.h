#pragma once

#include "devices/files/DeviceFileService.h"
#include "phone/records/DeviceInfo.h"
#include "phone/FileAccess.h"

namespace tessary {

/// The files of one Android phone. Paths are shown below "/sdcard" for the first storage ("Internal
/// Storage") and below "/storage/<id>" for every other one (by its volume's name).
class AndroidFileAccess : public FileAccess {
public:
    /// `service` must outlive this.
    AndroidFileAccess(DeviceFileService& service, DeviceInfo device);

    [[nodiscard]] QString identity() const override;
    [[nodiscard]] QString deviceName() const override;
    [[nodiscard]] BrowserRoot rootOf(const QString& path) const override;
    [[nodiscard]] QString canonicalPath(const QString& path) const override;

    [[nodiscard]] std::vector<FileItem> listDirectory(const QString& at,
                                                      const std::stop_token& stop) override;
    [[nodiscard]] FileItem itemAt(const QString& path, const std::stop_token& stop) override;
    void downloadFile(const FileItem& item, const QString& to, const FileProgressCallback& progress,
                      const std::stop_token& stop) override;
    [[nodiscard]] TransferOutcome
    downloadDirectoryContents(const FileItem& item, const QString& localFolder,
                              const TransferProgressCallback& progress,
                              const std::stop_token& stop) override;
    void uploadFile(const LocalSource& source, const QString& remoteParentPath,
                    const FileProgressCallback& progress, const std::stop_token& stop) override;
    [[nodiscard]] TransferOutcome uploadDirectory(const LocalSource& source,
                                                  const QString& remoteParentPath,
                                                  const TransferProgressCallback& progress,
                                                  const std::stop_token& stop) override;
    [[nodiscard]] std::shared_ptr<void> hold() override;
    void createFolder(const QString& name, const QString& parentPath,
                      const std::stop_token& stop) override;
    void deleteItem(const FileItem& item, const std::stop_token& stop) override;
    void renameItem(const FileItem& item, const QString& newName,
                    const std::stop_token& stop) override;
    void moveItem(const FileItem& item, const QString& newParentPath,
                  const std::stop_token& stop) override;
    [[nodiscard]] QString stageItemForDrag(const FileItem& item,
                                           const std::stop_token& stop) override;
    [[nodiscard]] QStringList programsHolding() override;

private:
    DeviceFileService& service_;
    const DeviceInfo device_;
};

} // namespace tessary
