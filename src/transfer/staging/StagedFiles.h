#pragma once

#include "base/local/PrivateFolder.h"
#include "phone/PhoneFileSystem.h"

#include <QString>

#include <memory>
#include <mutex>
#include <optional>

namespace tessary {

/// Local copies of files of phones, for previews and for other programs to open, read-only, in a
/// folder of this user's cache that nobody else can reach. Each lies in a folder of its own that
/// stands for phone, path, size and date: a file that changed is another file. Copies are reused;
/// together they stay below a number of bytes, the ones not used for longest go first. Thread-safe
/// and blocking.
class StagedFiles {
public:
    static constexpr qint64 defaultMaxBytes = qint64{2} * 1000 * 1000 * 1000;

    /// `name` is the folder's in the cache; everything in it belongs to the copies.
    explicit StagedFiles(QString name, qint64 maxBytes = defaultMaxBytes);

    /// The path of a file's copy, when there is one.
    [[nodiscard]] std::optional<QString> find(const PhoneFileSystem& files, const FileItem& item);
    /// The same, made first when there is none. PhoneError::notAFile for a folder,
    /// PhoneError::tooLarge for a file of more than half of the bytes, and what copyFile() throws.
    [[nodiscard]] QString fetch(PhoneFileSystem& files, const FileItem& item,
                                const ByteProgress& progress, const Call& call);

private:
    /// Where the copy lies once there is one.
    struct Place {
        QString folder; ///< below the cache's
        QString name;
    };
    [[nodiscard]] static Place placeOf(const PhoneFileSystem& files, const FileItem& item);
    [[nodiscard]] QString folder();
    void makeRoom(const QString& keep);

    const QString name_;
    const qint64 maxBytes_;
    std::mutex
        mutex_; ///< held while the folder is opened, and while copies are counted and removed
    std::unique_ptr<PrivateFolder> folder_; ///< null until it is needed; guarded
};

} // namespace tessary
