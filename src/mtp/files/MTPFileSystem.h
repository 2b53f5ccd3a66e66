#pragma once

#include "mtp/files/MTPConnection.h"
#include "mtp/files/MTPStatus.h"
#include "phone/PhoneFileSystem.h"

namespace tessary {

class MTPPieceWriter;

/// The files of an Android phone over MTP, in one session. What a listing or an edit has learnt of
/// a folder serves the next edit in it.
///
/// Paths lie on the first storage; those of the others begin with "/storage/<id>". "/sdcard" and
/// "/storage/emulated/0" are other words for the first storage's root.
class MTPFileSystem final : public PhoneFileSystem {
public:
    /// `bus` outlives it. One of these a phone: two would be in each other's way.
    MTPFileSystem(USBBus& bus, PhoneIdentity phone, std::shared_ptr<PhoneQueue> queue,
                  MTPPatience patience = MTPTree::defaultPatience);

    [[nodiscard]] QString identity() const override;
    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] FileTreeRoot rootOf(const QString& path) const override;
    [[nodiscard]] QString canonicalPath(const QString& path) const override;
    [[nodiscard]] std::shared_ptr<PhoneQueue> queue() const override;

    [[nodiscard]] FileSystemCapabilities capabilities(const Call& call) override;
    [[nodiscard]] NameRules nameRules(const QString& folder, const Call& call) override;

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
    [[nodiscard]] std::optional<LiveDeviceInfo> liveInfo(const std::stop_token& stop) override;
    [[nodiscard]] QStringList programsHolding() override;

private:
    template <typename Make>
    FileItem making(const QString& folder, const QString& name, std::optional<qint64> size,
                    const Call& call, Make make);
    [[nodiscard]] FileItem writeInPieces(MTPPieceWriter writer, const QString& path,
                                         const Call& call);
    [[nodiscard]] FileItem findInNewSession(const QString& folder, const QString& name,
                                            std::optional<qint64> size, const Error& failure,
                                            const Call& call);

    const PhoneIdentity phone_;
    MTPStatus status_;
    MTPConnection link_;
};

} // namespace tessary
