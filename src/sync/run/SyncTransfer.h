#pragma once

#include "sync/run/SyncComputer.h"
#include "sync/run/SyncSide.h"

namespace tessary {

/// Both folders of a pair, and single files on their way between them. Whatever a file takes the
/// place of is looked at again right before, and so is what it was copied from: what is not as the
/// scan saw it stays, and the call throws PhoneError::changed or LocalError::changed.
class SyncTransfer {
public:
    SyncTransfer(SyncSide& local, SyncSide& device, const SyncComputer& computer, Call call);

    [[nodiscard]] SyncSide& side(bool onDevice) const {
        return onDevice ? device_ : local_;
    }
    [[nodiscard]] const Call& call() const {
        return call_;
    }

    struct Copy {
        bool toDevice = false;
        QString path; ///< relative, of the source
        SyncFile seen;
        QString newPath;                    ///< relative, on the other side
        const SyncFile* replaced = nullptr; ///< what is there, as it was seen
    };
    /// Returns the copy as the other side shows it.
    FileItem copy(const Copy& copy, const ByteProgress& progress);
    /// Gives a file another name on its side. By a copy where the side cannot rename: then the file
    /// keeps its own, too.
    FileItem setAside(bool onDevice, const QString& path, const SyncFile& seen,
                      const QString& newPath, const ByteProgress& progress);
    /// A copy of a file beside it.
    FileItem copyBeside(bool onDevice, const QString& path, const SyncFile& seen,
                        const QString& newPath, const ByteProgress& progress);
    /// Removes a file that is as it was seen; `intoTrash` where there is one. False when there is
    /// none any more.
    bool remove(bool onDevice, const QString& path, const SyncFile& seen, bool intoTrash);

private:
    SyncSide& local_;
    SyncSide& device_;
    const SyncComputer& computer_;
    const Call call_;
};

/// What a failure means for one file of a run: what is not any more as it was seen is
/// SyncError::changedMeanwhile, with its cause.
[[nodiscard]] Error whySkipped(const Error& error, const QString& path);

} // namespace tessary
