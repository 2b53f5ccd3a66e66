#pragma once

#include "base/local/ScratchFolder.h"
#include "platform/mount/FileMount.h"
#include "transfer/mount/OpenMountedFiles.h"
#include "transfer/mount/PhoneFolder.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tessary {

/// Entries of phones as files and folders of this computer that are fetched when somebody reads
/// them. This is how a drag hands entries of any size to another program: it copies them as it
/// copies everything, with its own progress and its own questions, and what cannot be had is an
/// error of its own. Thread-safe.
class DragMount final : private MountedFiles {
public:
    DragMount() = default;
    /// stop()
    ~DragMount() override;

    /// Local paths of the entries, in their order; they stay good for the next 32 calls. Empty
    /// where this system cannot do it. Blocks for some milliseconds.
    [[nodiscard]] QStringList promise(const std::shared_ptr<PhoneFileSystem>& files,
                                      const std::vector<FileItem>& items);
    /// Whom to tell of what could not be fetched, on any thread; the last one told is the one
    /// asked.
    void reportFailuresTo(MountedFile::Failed report);
    /// Some program has a promised file open.
    [[nodiscard]] bool isBeingRead() const {
        return open_.areAny();
    }
    /// Breaks every promise, and takes the folder away; for good. Blocks until what is under way
    /// has ended.
    void stop();

private:
    using Drag = std::vector<std::shared_ptr<PhoneFolder>>;
    struct Place {
        std::shared_ptr<PhoneFolder> entry;
        QStringList names; ///< below it
    };

    bool isMounted();
    [[nodiscard]] Place placeOf(const QString& path) const;
    void report(const FileItem& item, const Error& error) const;

    Entry entry(const QString& path) override;
    std::vector<Entry> list(const QString& path) override;
    std::unique_ptr<Reader> open(const QString& path) override;

    mutable std::mutex mutex_;      ///< guards the four below
    std::map<quint64, Drag> drags_; ///< by number
    quint64 lastNumber_ = 0;
    bool isStopped_ = false;
    MountedFile::Failed report_;

    OpenMountedFiles open_;
    std::mutex mountMutex_; ///< held while mounting, when the mount may already ask
    std::optional<ScratchFolder> mountPoint_;
    std::unique_ptr<FileMount> mount_;
    bool wasTried_ = false;
};

} // namespace tessary
