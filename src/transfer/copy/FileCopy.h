#pragma once

#include "phone/PhoneFileSystem.h"

#include <functional>
#include <optional>

namespace tessary {

/// A file that is to be written to a folder, whole or not at all.
struct FilePut {
    QString folder; ///< is there
    QString name;   ///< the target can hold it
    qint64 size = 0;
    std::optional<QDateTime> modified;
    /// What has the name, as it was seen, and is to be replaced; no value: the name is free.
    std::optional<FileItem> replaces;
    /// Takes what is replaced, by its path, to where the user finds it again; false where there is
    /// no such place, and it just goes. May be empty.
    std::function<bool(const QString& path)> trash{};
    /// What the file is called until it is whole; no value: a name of its own.
    std::optional<QString> partName{};
    /// An earlier part of that name, whose first bytes are kept and not in `content`.
    std::optional<FileItem> begun{};
    qint64 keptBytes = 0;
    /// What has arrived stays under `partName` when the phone is lost or the copy is cancelled.
    bool staysWhenBroken = false;
};

/// Writes a file under a part name and then gives it its own. What has the name then is looked at
/// again: when it is not what `replaces` says (size, date, kind), it stays and PhoneError::changed
/// (LocalError::changed here) is thrown; a name that was free and is taken now is a taken one.
/// Whatever fails, the old file is there, or the new one waits under a name that tidied() finishes.
/// `beforeNaming` is called when all bytes are across; what it throws takes the new file away,
/// unless it was cancelled, or the phone lost, and the file can be gone on with.
///
/// Where nothing can be renamed, the file goes straight to its name, and replacing is
/// PhoneError::notSupported.
FileItem putFile(PhoneFileSystem& to, const FilePut& put, const ByteSource& content,
                 const std::function<void(const FileItem& part)>& beforeNaming,
                 const ByteProgress& progress, const Call& call);

/// A file that is to be copied from one file system to another.
struct FileCopy {
    PhoneFileSystem& from;
    FileItem file;
    PhoneFileSystem& to;
    QString folder{};
    QString name{};
    std::optional<FileItem> replaces{};
    std::function<bool(const QString& path)> trash{}; ///< as in FilePut
    /// The source is looked at again before the copy gets its name: PhoneError::changed (or
    /// LocalError::changed) when it is not what was seen.
    bool checksSource = true;
    /// The copy is compared by hash before it gets its name: PhoneError::differs. A phone that
    /// works no hashes out sends its file, or what it was sent, once more for that.
    bool verifies = false;
    /// Called with the content's SHA-256 once it was compared.
    std::function<void(const QByteArray& sha256)> verified{};
};

/// From this size on a copy that breaks off is gone on with in its middle, where the source reads
/// ranges and the target appends.
inline constexpr qint64 resumableFrom = qint64{4} * 1024 * 1024;

/// Copies one file as putFile() does, with its date. Bytes that came and were not announced are
/// PhoneError::wrongSize; of a file that is larger than the target takes nothing is read. Returns
/// the copy as the target shows it.
FileItem copyFile(const FileCopy& copy, const ByteProgress& progress, const Call& call);

/// The SHA-256 of a file's content, by its own side where that works it out.
[[nodiscard]] QByteArray hashOf(PhoneFileSystem& files, const FileItem& item, const Call& call,
                                const ByteProgress& progress = {});

/// Compares two files whole, by hash where a side works that out.
[[nodiscard]] bool haveSameContent(PhoneFileSystem& files, const FileItem& file,
                                   PhoneFileSystem& others, const FileItem& other,
                                   const Call& call);

/// Whether two file systems show one folder, as where another program has a phone's folder among
/// those of this computer: what is made in `folder` for a moment is in `otherFolder` then.
[[nodiscard]] bool isOneFolder(PhoneFileSystem& files, const QString& folder,
                               PhoneFileSystem& others, const QString& otherFolder,
                               const Call& call);

/// Whether what was seen once is what is there now, as far as either can tell.
[[nodiscard]] bool isAsSeen(const FileItem& seen, const FileItem& now);

} // namespace tessary
