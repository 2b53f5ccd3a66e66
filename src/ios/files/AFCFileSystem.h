#pragma once

#include "ios/files/AFCFileWriter.h"
#include "ios/files/AFCSession.h"
#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"
#include "phone/records/AppInfo.h"
#include "phone/records/PhoneIdentity.h"

#include <atomic>
#include <memory>
#include <optional>

namespace tessary {

/// The documents of one app of an iPhone, or its media folder. Paths begin at "/". The connection
/// is opened with the first call, kept between calls, closed when the phone is idle, and opened
/// anew once it has failed: a call that has changed nothing yet is then tried a second time.
///
/// A phone is asked about each entry of a folder: of long ones by two connections side by side.
///
/// What is neither file nor folder (links among it) is listed as unreadable. When this goes it
/// waits for a silent phone for a second at most: let it go on another thread than the main one.
class AFCFileSystem : public PhoneFileSystem {
public:
    /// No `app` means the media folder.
    AFCFileSystem(PhoneIdentity phone, std::optional<AppInfo> app,
                  std::shared_ptr<PhoneQueue> queue, SerialQueue::Patience patience = {});
    ~AFCFileSystem() override;

    [[nodiscard]] QString identity() const override;
    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] QString appName() const override;
    [[nodiscard]] FileTreeRoot rootOf(const QString& path) const override;
    [[nodiscard]] QString canonicalPath(const QString& path) const override;
    [[nodiscard]] std::shared_ptr<PhoneQueue> queue() const override {
        return queue_;
    }

    [[nodiscard]] FileSystemCapabilities capabilities(const Call& call) override;
    [[nodiscard]] NameRules nameRules(const QString& folder, const Call& call) override;
    void list(const QString& folder, const ListingReceiver& receiver, const Call& call) override;
    [[nodiscard]] std::optional<FileItem> find(const QString& path, const Call& call) override;
    qint64 read(const FileItem& file, ByteRange range, const ByteSink& sink,
                const Call& call) override;
    FileItem write(const NewFile& file, const ByteSource& content, const ByteProgress& progress,
                   const Call& call) override;
    FileItem append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                    const ByteSource& content, const ByteProgress& progress,
                    const Call& call) override;
    FileItem makeFolder(const QString& parent, const QString& name, const Call& call) override;
    void remove(const FileItem& item, const Call& call) override;
    /// One request a file; a folder is listed only where it holds something.
    void removeTree(const FileItem& item, const Call& call) override;
    FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                    const Call& call) override;
    FileItem move(const FileItem& item, const QString& newFolder, const Call& call) override;
    void setModified(const FileItem& file, const QDateTime& date, const Call& call) override;
    [[nodiscard]] std::optional<std::uint64_t> freeBytes(const QString& folder,
                                                         const Call& call) override;
    [[nodiscard]] std::optional<LiveDeviceInfo> liveInfo(const std::stop_token& stop) override;

private:
    [[nodiscard]] PhoneQueue::Turn takeTurn(const Call& call);
    void closeWhenIdle();
    FileItem send(AFCFileWriter writer, const Call& call);
    void removeBelow(const QString& path, int depth, const Call& call);
    FileItem renameTo(const FileItem& item, const QString& target, TakenName taken,
                      const Call& call);

    const PhoneIdentity phone_;
    const std::optional<AppInfo> app_;
    const std::shared_ptr<PhoneQueue> queue_;
    const SerialQueue::Patience patience_;
    std::atomic<bool> renamesOntoTaken_ = true; ///< until the phone shows that it does not
    bool closesWhenIdle_ = false;               ///< touched by who has the turn
    AFCSession session_;
    /// For every other piece of a long listing; null until there was one.
    std::unique_ptr<AFCSession> second_;
};

} // namespace tessary
