#pragma once

#include "mtp/files/MTPFileReader.h"
#include "mtp/files/MTPPieceWriter.h"
#include "mtp/objects/MTPTree.h"
#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"
#include "phone/records/PhoneIdentity.h"
#include "platform/usb/USBBus.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <type_traits>

namespace tessary {

/// The files of an Android phone over MTP. One session, which stays open between turns and is
/// closed when the phone has not been used for a while; a lost link drops it, and the next call
/// opens another. What a listing or an edit has learnt of a folder serves the next edit in it.
///
/// Paths lie on the first storage; those of the others begin with "/storage/<id>". "/sdcard" and
/// "/storage/emulated/0" are other words for the first storage's root.
class MTPFileSystem final : public PhoneFileSystem {
public:
    /// `bus` outlives it. One of these a phone: two would be in each other's way.
    MTPFileSystem(USBBus& bus, PhoneIdentity phone, std::shared_ptr<PhoneQueue> queue,
                  MTPPatience patience = MTPTree::defaultPatience);
    /// Waits for whoever has a turn, and closes the session.
    ~MTPFileSystem() override;

    [[nodiscard]] QString identity() const override;
    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] FileTreeRoot rootOf(const QString& path) const override;
    [[nodiscard]] QString canonicalPath(const QString& path) const override;
    [[nodiscard]] std::shared_ptr<PhoneQueue> queue() const override;

    [[nodiscard]] FileSystemCapabilities capabilities(const Call& call) override;
    [[nodiscard]] NameRules nameRules(const QString& folder) override;

    void list(const QString& folder, const ListingReceiver& receiver, const Call& call) override;
    [[nodiscard]] std::optional<FileItem> find(const QString& path, const Call& call) override;

    qint64 read(const FileItem& file, ByteRange range, const ByteSink& sink,
                const Call& call) override;
    /// A large file that may stay when it breaks off goes in pieces, where the phone takes them:
    /// its date is then kept only by those that let it be set.
    FileItem write(const NewFile& file, const ByteSource& content, const ByteProgress& progress,
                   const Call& call) override;
    FileItem append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                    const ByteSource& content, const ByteProgress& progress,
                    const Call& call) override;

    FileItem makeFolder(const QString& parent, const QString& name, const Call& call) override;
    void remove(const FileItem& item, const Call& call) override;
    /// In one step where the phone does that; else one by one.
    void removeTree(const FileItem& item, const Call& call) override;
    FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                    const Call& call) override;
    FileItem move(const FileItem& item, const QString& newFolder, const Call& call) override;

    [[nodiscard]] std::optional<QByteArray> thumbnail(const FileItem& file, qint64 maxBytes,
                                                      const Call& call) override;
    [[nodiscard]] std::optional<std::uint64_t> freeBytes(const QString& folder,
                                                         const Call& call) override;
    [[nodiscard]] std::optional<LiveDeviceInfo> liveInfo() override;
    [[nodiscard]] QStringList programsHolding() override;

private:
    template <typename Work>
    std::invoke_result_t<Work, MTPTree&> inTurn(const Call& call, const QString& path, Work work);
    template <typename Work>
    std::invoke_result_t<Work, MTPTree&> inSession(const std::stop_token& stop, const QString& path,
                                                   Work work);
    void openSession(const std::stop_token& stop);
    void closeSession();
    [[nodiscard]] const MTPDeviceInfo& deviceInfo();
    [[nodiscard]] MTPPartialReads& partialReads();
    void noteEdit();
    [[nodiscard]] FileItem writeInPieces(MTPPieceWriter writer, const QString& path,
                                         const Call& call);
    [[nodiscard]] FileItem findInNewSession(const QString& folder, const QString& name,
                                            std::optional<qint64> size, const Error& failure,
                                            const Call& call);
    [[nodiscard]] std::vector<StorageVolume> readVolumes();
    [[nodiscard]] std::optional<int> readBattery();
    [[nodiscard]] Error translated(const MTPTransportError& failure, const QString& path);

    USBBus& bus_;
    const PhoneIdentity phone_;
    const std::shared_ptr<PhoneQueue> queue_;
    const MTPPatience patience_;

    // Of whoever has the turn
    MTPPhoneMemory memory_;
    std::unique_ptr<MTPTree> tree_;
    std::uint64_t attachment_ = 0;            ///< USBDeviceEntry::id of the last session's device
    std::optional<MTPDeviceInfo> deviceInfo_; ///< of this attachment
    std::uint64_t edits_ = 0;                 ///< PhoneQueue::edits() that the tree knows of
    std::optional<MTPPartialReads> partialReads_;
    bool hasBattery_ = true;
    int brokenInRow_ = 0; ///< calls whose data broke off

    mutable std::mutex mutex_;
    QHash<QString, StorageVolume> volumes_; ///< by id, as last read; guarded by mutex_

    std::atomic<std::uint64_t> detached_ = 0; ///< the attachment that ended last
    std::unique_ptr<USBWatch> watch_;         ///< last: its callback sets detached_
};

} // namespace tessary
