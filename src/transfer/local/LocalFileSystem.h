#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/local/LocalFolder.h"
#include "transfer/local/LocalNameRules.h"

#include <QHash>

#include <mutex>

namespace tessary {

/// What becomes of links below the folder that a LocalFileSystem begins at.
enum class LocalLinks {
    reported,      ///< each is an unreadable entry: LocalError::link
    filesFollowed, ///< one to a file that lies in that folder, too, reads as that file
};

/// A folder of this computer and what is below it, as one sees a phone. Paths are absolute, and
/// what is outside of the folder is LocalError::leavesFolder. Below the folder no link to a folder
/// is followed, neither for reading nor for writing. Entries whose names are not valid UTF-8, and
/// what is neither file nor folder, are listed as unreadable.
///
/// Failures have codes of LocalError, but for PhoneError::otherStorage (a move to another disk),
/// ::insideItself, ::wholeStorage and ::tooLarge. A file that is written may become longer or
/// shorter than announced. Nothing is on the disk for good before flush().
class LocalFileSystem final : public PhoneFileSystem {
public:
    /// `folder` is absolute and may be missing as long as nothing is asked of it; links in its own
    /// path are followed.
    explicit LocalFileSystem(const QString& folder, LocalLinks links = LocalLinks::reported);

    [[nodiscard]] const QString& folder() const {
        return base_.path();
    }

    [[nodiscard]] QString identity() const override;
    /// This computer's name.
    [[nodiscard]] QString displayName() const override;
    [[nodiscard]] FileTreeRoot rootOf(const QString& path) const override;
    [[nodiscard]] QString canonicalPath(const QString& path) const override;
    [[nodiscard]] FileSystemCapabilities capabilities(const Call& call) override;
    [[nodiscard]] NameRules nameRules(const QString& folder, const Call& call) override;

    void list(const QString& folder, const ListingReceiver& receiver, const Call& call) override;
    /// LocalError::link, ::notAFile or ::nameNotUsable for what is there and no entry.
    [[nodiscard]] std::optional<FileItem> find(const QString& path, const Call& call) override;
    qint64 read(const FileItem& file, ByteRange range, const ByteSink& sink,
                const Call& call) override;
    [[nodiscard]] ByteSource draw(const FileItem& file, qint64 offset, const Call& call) override;
    FileItem write(const NewFile& file, const ByteSource& content, const ByteProgress& progress,
                   const Call& call) override;
    FileItem append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                    const ByteSource& content, const ByteProgress& progress,
                    const Call& call) override;
    FileItem makeFolder(const QString& parent, const QString& name, const Call& call) override;
    void remove(const FileItem& item, const Call& call) override;
    /// Links in it go themselves, whatever they lead to.
    void removeTree(const FileItem& item, const Call& call) override;
    FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                    const Call& call) override;
    FileItem move(const FileItem& item, const QString& newFolder, const Call& call) override;
    void setModified(const FileItem& file, const QDateTime& date, const Call& call) override;
    [[nodiscard]] std::optional<std::uint64_t> freeBytes(const QString& folder,
                                                         const Call& call) override;
    [[nodiscard]] std::optional<QByteArray> hash(const FileItem& file, const Call& call) override;

    void flush() override;

private:
    /// An entry's folder, opened, and its name there.
    struct Place {
        FileHandle folder;
        QByteArray name;
    };
    [[nodiscard]] Place placeOf(const QString& path) const;
    [[nodiscard]] Place placeOfSame(const FileItem& item) const;
    [[nodiscard]] FileItem itemAt(int folder, const QByteArray& diskName, const QString& name,
                                  const QString& path) const;
    [[nodiscard]] FileHandle openToRead(const FileItem& file) const;
    static FileItem fill(const FileHandle& opened, qint64 done, const NewFile& file,
                         const ByteSource& content, const ByteProgress& progress, const Call& call);
    [[nodiscard]] DiskTraits traits(const FileHandle& folder, const Call& call);

    const LocalFolder base_;
    const LocalLinks links_;
    std::mutex mutex_;
    QHash<quint64, DiskTraits> traits_; ///< by device number; guarded
};

/// What a user pointed at on this computer, to be copied to a phone.
struct LocalItem {
    std::shared_ptr<LocalFileSystem> files;
    FileItem item; ///< a link is what it leads to, under its own name
};

/// Opens what the user pointed at; LocalError::notFound, ::notAFile.
[[nodiscard]] LocalItem openLocalItem(const QString& path);

} // namespace tessary
