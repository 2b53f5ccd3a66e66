#pragma once

#include "platform/mount/FileMount.h"
#include "transfer/mount/MountedFile.h"

#include <QHash>
#include <QStringList>

#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <set>

namespace tessary {

/// An entry of a phone and all below it, as a mounted folder shows it: by names that can lie here,
/// each once. Listings are asked for when somebody looks and kept for a while. Thread-safe;
/// failures are std::system_error.
class PhoneFolder {
public:
    enum class Listings {
        keptForSeconds, ///< longer where the phone takes long to list; entries that cannot be read
                        ///< or named here are left out, and told as failed
        keptAndWhole,   ///< for as long as this lives; a folder with such an entry is an error, so
                        ///< that nobody takes a part of it for the whole
    };

    /// `top` is a file or a folder.
    PhoneFolder(std::shared_ptr<PhoneFileSystem> files, FileItem top, Listings listings,
                MountedFile::Failed failed);

    [[nodiscard]] const FileItem& top() const {
        return top_;
    }
    /// What lies below the top by these names; ENOENT, ENOTDIR, EIO.
    [[nodiscard]] MountedFiles::Entry entry(const QStringList& names);
    [[nodiscard]] std::vector<MountedFiles::Entry> list(const QStringList& names);
    /// The same object for everybody who has the file open. EISDIR for a folder.
    [[nodiscard]] std::shared_ptr<MountedFile> open(const QStringList& names);
    /// Ends what is asked for; every call fails afterwards.
    void stop();

private:
    using Listing = QHash<QString, FileItem>; ///< by the name here
    struct KnownListing {
        std::mutex mutex; ///< held while the phone is asked, once for all who wait
        std::shared_ptr<const Listing> listing;
        std::chrono::steady_clock::time_point goodUntil;
        std::chrono::steady_clock::time_point asked;
        std::uint64_t edits = 0;
    };
    struct Found {
        QString name;
        FileItem item;
    };

    [[nodiscard]] Found find(const QStringList& names);
    [[nodiscard]] std::shared_ptr<const Listing> content(const FileItem& folder);
    [[nodiscard]] std::shared_ptr<const Listing> ask(const FileItem& folder);
    void tellLeftOut(const QString& path, const Error& error);
    [[nodiscard]] bool isGood(const KnownListing& known) const;
    [[nodiscard]] std::uint64_t edits() const;
    [[nodiscard]] bool readsRanges();

    const std::shared_ptr<PhoneFileSystem> files_;
    const FileItem top_;
    const Listings listings_;
    const MountedFile::Failed failed_;
    std::stop_source stop_;

    std::mutex mutex_;                                       ///< guards all below
    std::map<QString, std::shared_ptr<KnownListing>> known_; ///< by the folder's path on the phone
    std::map<QString, std::weak_ptr<MountedFile>> open_;     ///< by path, size and date
    std::set<QString> leftOut_;                              ///< paths that were told
    std::optional<bool> readsRanges_;                        ///< what the phone said
    std::shared_ptr<MountedFile> lastOpen_; ///< who looks into a file often opens it again
};

} // namespace tessary
