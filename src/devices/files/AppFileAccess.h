#pragma once

#include "base/threads/SerialQueue.h"
#include "ios/AFCClient.h"
#include "phone/records/AppInfo.h"
#include "phone/BusyPhones.h"
#include "phone/records/DeviceInfo.h"
#include "phone/FileAccess.h"
#include "transfer/PreviewCache.h"

#include <memory>
#include <mutex>

namespace tessary {

/// The documents of one app of an iPhone. Paths are shown below "/", called "Documents". The
/// connection is opened with the first call, stays open, and is opened anew once it has failed.
///
/// When this goes it waits for what is under way, for a second or two with a silent phone: let it
/// go on another thread than the main one.
class AppFileAccess : public FileAccess {
public:
    /// What it works with; each outlives it.
    struct Setup {
        BusyPhones* busy = nullptr;      ///< null: the shared one
        PreviewCache* staging = nullptr; ///< where drags find their copies; null: the shared one
    };

    AppFileAccess(DeviceInfo device, AppInfo app) : AppFileAccess(device, app, Setup{}) {}
    AppFileAccess(DeviceInfo device, AppInfo app, Setup setup);
    ~AppFileAccess() override;

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
    void createFolder(const QString& name, const QString& parentPath,
                      const std::stop_token& stop) override;
    void deleteItem(const FileItem& item, const std::stop_token& stop) override;
    void renameItem(const FileItem& item, const QString& newName,
                    const std::stop_token& stop) override;
    void moveItem(const FileItem& item, const QString& newParentPath,
                  const std::stop_token& stop) override;
    [[nodiscard]] QString stageItemForDrag(const FileItem& item,
                                           const std::stop_token& stop) override;
    [[nodiscard]] QStringList programsHolding() override {
        return {};
    }

private:
    struct Opened;

    [[nodiscard]] std::shared_ptr<AFCClient> client(const std::stop_token& stop);
    [[nodiscard]] FileItem existing(AFCClient& client, const QString& path,
                                    const std::stop_token& stop) const;
    void rename(const FileItem& item, const QString& newPath, const std::stop_token& stop);

    const DeviceInfo device_;
    const AppInfo app_;
    BusyPhones& busy_;
    PreviewCache& staged_;
    const std::shared_ptr<Opened> opened_; ///< shared with an opening that outlives its caller
    std::stop_source stopStaging_;
    SerialQueue opening_;
    SerialQueue staging_;
};

} // namespace tessary
