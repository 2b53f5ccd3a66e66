#pragma once

#include "ios/AFCClient.h"
#include "phone/BusyPhones.h"
#include "sync/old/run/PhoneSyncBackend.h"

#include <memory>
#include <stop_token>

namespace tessary {

/// A folder of an iPhone app's documents as the device side of a run. A new file is sent under a
/// temporary name and renamed over the old one: neither is ever missing.
class IPhoneSyncBackend : public PhoneSyncBackend {
public:
    /// The phone `udid` counts as busy for as long as the backend lives.
    IPhoneSyncBackend(std::unique_ptr<AFCClient> client, const QString& udid, std::stop_token stop);

    std::optional<SyncFileEntry> uploadFile(const QString& localFile, const QString& remotePath,
                                            bool mayReplace,
                                            const FileProgressCallback& progress) override;
    [[nodiscard]] SyncNameRules nameRules() const override;

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
    const BusyPhones::Mark busy_;
    const std::unique_ptr<AFCClient> client_;
    const std::stop_token stop_;
};

} // namespace tessary
