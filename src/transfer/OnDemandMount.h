#pragma once

#include "platform/mount/FileMount.h"
#include "transfer/OnDemandFile.h"

#include <QMap>
#include <QTemporaryDir>

#include <deque>
#include <map>

namespace tessary {

/// Entries of phones as files and folders of this computer that are copied when somebody reads
/// them. This is how a drag hands entries of any size to another program: it copies them as it
/// copies everything, with its own progress and its own questions, and a copy that fails is an
/// error of its own. Thread-safe.
class OnDemandMount final : public MountedFiles {
public:
    OnDemandMount() = default;
    /// stop()
    ~OnDemandMount() override;

    /// Local paths of the entries, in their order; they stay good for the next 32 calls. Empty
    /// where this system cannot do it. Blocks for some milliseconds.
    [[nodiscard]] QStringList promise(const std::shared_ptr<FileAccess>& files,
                                      const std::vector<FileItem>& items);
    /// Whom to tell of a copy that failed, on any thread; the last one told is the one asked.
    void reportFailuresTo(OnDemandFile::Failed report);
    /// Some program has a promised file open.
    [[nodiscard]] bool isBeingRead() const;
    /// Breaks every promise, and takes the folder away; for good. Blocks until the copies under
    /// way have ended.
    void stop();

    Entry entry(const QString& path) override;
    std::vector<Entry> list(const QString& path) override;
    std::unique_ptr<Reader> open(const QString& path) override;

private:
    class OpenFile;
    /// What is in a folder, by name; cheap to copy.
    using Listing = QMap<QString, FileItem>;
    /// One dragged entry, with what is known of the folders below it.
    struct Promise {
        std::shared_ptr<FileAccess> files;
        FileItem item;
        std::mutex mutex;
        std::map<QString, Listing> listings; ///< by the folder's path on the phone
    };
    struct Found {
        std::shared_ptr<Promise> promise;
        FileItem item;
    };

    bool isMounted();
    [[nodiscard]] Found find(const QString& path) const;
    [[nodiscard]] Listing content(const Found& folder) const;
    void report(const FileItem& item, const std::exception& error) const;
    void closed(const std::shared_ptr<OnDemandFile>& copy);

    mutable std::mutex mutex_;
    std::stop_source stop_;
    std::map<quint64, std::vector<std::shared_ptr<Promise>>> drags_; ///< by number
    quint64 lastNumber_ = 0;
    std::map<QString, std::weak_ptr<OnDemandFile>> copies_; ///< by path in the mounted folder
    std::shared_ptr<OnDemandFile> lastWhole_; ///< who looks into a file often opens it again
    int openFiles_ = 0;
    OnDemandFile::Failed report_;
    std::mutex mountMutex_; ///< held while mounting, when the mount may already ask
    std::unique_ptr<QTemporaryDir> copyFolder_;
    std::unique_ptr<QTemporaryDir> mountPoint_;
    std::unique_ptr<FileMount> mount_;
    bool wasTried_ = false;
};

} // namespace tessary
