#pragma once

#include "adb/files/ADBSession.h"
#include "adb/files/ADBStorages.h"
#include "adb/services/ADBStream.h"
#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"
#include "phone/records/PhoneIdentity.h"

#include <memory>

namespace tessary {

/// The files of an Android phone by way of its adbd. One stream for files stays open between the
/// calls; edits are commands of the phone's shell, and each is looked at afterwards, since a
/// shell's word is not to be relied on. Errors are PhoneError with an ADBError as their cause.
///
/// Paths begin with "/sdcard" for the internal storage and with "/storage/<id>" for cards and
/// sticks; other absolute paths of the phone work where its shell may read them.
class ADBFileSystem final : public PhoneFileSystem {
public:
    ADBFileSystem(PhoneIdentity phone, std::shared_ptr<PhoneQueue> queue,
                  std::shared_ptr<ADBConnection> connection);
    ~ADBFileSystem() override;
    ADBFileSystem(const ADBFileSystem&) = delete;
    ADBFileSystem& operator=(const ADBFileSystem&) = delete;

    [[nodiscard]] QString identity() const override;
    [[nodiscard]] QString displayName() const override;
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
    [[nodiscard]] std::vector<std::optional<QByteArray>>
    readTogether(const std::vector<FileItem>& files, const Call& call) override;
    std::vector<std::optional<FileItem>>
    writeTogether(const QString& folder, const std::vector<SmallFile>& files,
                  const std::function<bool(std::size_t)>& isWanted, const ByteProgress& progress,
                  const Call& call) override;
    FileItem makeFolder(const QString& parent, const QString& name, const Call& call) override;
    void remove(const FileItem& item, const Call& call) override;
    void removeTree(const FileItem& item, const Call& call) override;
    FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                    const Call& call) override;
    FileItem move(const FileItem& item, const QString& newFolder, const Call& call) override;
    void setModified(const FileItem& file, const QDateTime& date, const Call& call) override;
    [[nodiscard]] std::optional<std::uint64_t> freeBytes(const QString& folder,
                                                         const Call& call) override;
    [[nodiscard]] std::optional<LiveDeviceInfo> liveInfo(const std::stop_token& stop) override;
    [[nodiscard]] std::optional<QByteArray> hash(const FileItem& file, const Call& call) override;
    [[nodiscard]] QStringList programsHolding() override;

private:
    [[nodiscard]] QString enteredPath(const QString& path, const Call& call);
    [[nodiscard]] FileItem editable(const FileItem& item) const;
    [[nodiscard]] QByteArray runApart(ADBShellClient shell, const QByteArrayList& words,
                                      const QString& path, const Call& call) const;
    template <typename Work>
    auto inTurn(const QString& path, const Call& call, Work work);
    template <typename Work>
    auto editing(const QString& path, const Call& call, Work work);
    template <typename Work>
    auto inPassingTurn(const QString& path, const Call& call, Work work);
    template <typename Work>
    auto withSession(const QString& path, Work work);

    const PhoneIdentity phone_;
    const std::shared_ptr<PhoneQueue> queue_;
    const std::shared_ptr<ADBConnection> connection_;
    ADBStorages storages_;
    ADBSession session_; ///< for whoever has the turn
};

} // namespace tessary
