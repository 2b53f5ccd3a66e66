#pragma once

#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"
#include "transfer/copy/CopyScan.h"
#include "transfer/copy/CopyTypes.h"
#include "transfer/copy/ProgressPacer.h"
#include "transfer/copy/SmallFiles.h"
#include "transfer/copy/TargetFolder.h"

#include <memory>
#include <optional>
#include <set>

namespace tessary {

/// What is to be copied where.
struct TreeCopyRequest {
    std::shared_ptr<PhoneFileSystem> from;
    std::shared_ptr<PhoneFileSystem> to;
    std::vector<CopyItem> items{};
    QString folder; ///< at the target; is there

    ClashPolicy policy{}; ///< empty: both are kept
    /// Files that are there with the same size and date stay, before anything is asked: for "only
    /// what is new", and to go on with a copy that broke off.
    bool skipsSame = false;
    EntryMarks brought{};  ///< CopyOutcome::brought of earlier runs of this copy
    bool verifies = false; ///< each copy is compared by hash
    /// Each file goes from the source once its copy was compared, each folder once it is empty.
    bool removesSource = false;
    std::shared_ptr<CopyWitness> witness{}; ///< may be null
};

/// Copies files and folders from one file system to another, in either direction or between two
/// phones. Names, clashes and leftovers are dealt with by the target's rules; each file arrives
/// under a part name. What one item refuses is left out and named; a lost phone and a full target
/// end the copy. Blocking, called off the main thread.
class TreeCopy {
public:
    explicit TreeCopy(TreeCopyRequest request);

    /// Once. `progress` is called on this thread, about 15 times a second. Throws nothing that has
    /// to do with files or phones; what callbacks throw passes through.
    [[nodiscard]] CopyOutcome run(const CopyProgress& progress, const std::stop_token& stop);

private:
    /// Small files of one folder that have their names and wait for others.
    struct Together {
        SmallFiles files;
        std::vector<const ScannedItem*> scanned{}; ///< in the same order
    };

    /// A folder at the target that is being filled.
    struct Folder {
        TargetFolder names;
        QString below; ///< where it is, as CopyItem says it
    };

    void copyAll();
    void copyGroup(const std::vector<ScannedItem>& group, const QString& below);
    void copyInto(const std::vector<ScannedItem>& items, Folder& target);
    void copyFolder(const ScannedItem& scanned, Folder& target);
    void copyFileTo(const ScannedItem& scanned, Folder& target, Together& together);
    void copyTogether(Together& together, const Folder& target);
    void attempt(const ScannedItem& scanned, const Folder& target,
                 const std::function<void()>& work);
    void leaveOut(const ScannedItem& scanned, const QString& below, const Error& error);
    [[nodiscard]] bool checksSource() const;
    void noteCopied(const CopyItem& item, const FileItem& made, const QByteArray& sha256);
    /// Returns the facts of what was copied.
    FileItem transfer(const CopyItem& item, const QString& folder, const QString& name,
                      const std::optional<FileItem>& replaces);
    void finishMove(const ScannedItem& scanned, const Folder& target, const FileItem& brought);
    /// What a move is about to take from its source.
    struct Leaving {
        CopyItem item; ///< as LeftOut names it
        std::optional<std::size_t> asked;
    };
    void removeSource(const ScannedItem& scanned, const FileItem& copied, const Folder& target,
                      const QString& name);
    void requireTwoFolders();
    void removeSettled();
    void removeNow(const Leaving& leaving);
    [[nodiscard]] Folder openTarget(const QString& path, const QString& below,
                                    const QStringList& awaited);
    [[nodiscard]] TargetFolder::Decision place(const CopyItem& item, TargetFolder& target);
    void requireRoom(const QString& folder, const FileItem& file);
    [[nodiscard]] std::optional<std::uint64_t> freeBytes(const QString& folder);
    void forgetFiles(const ScannedItem& scanned);
    void noteMade(const ScannedItem& scanned, const QString& path, const QString& name);

    const TreeCopyRequest request_;
    const bool isOneFileSystem_;
    bool areTwoFolders_ = false; ///< as far as it was asked
    Call call_;
    ProgressPacer* pacer_ = nullptr; ///< while run() runs, as `call_`
    FileSystemCapabilities can_;
    bool sendsTogether_ = false;
    std::chrono::milliseconds dateStep_{};
    std::optional<std::uint64_t> room_; ///< bytes at the target, by our own count
    TransferProgress progress_;
    CopyOutcome outcome_;
    /// They go once what came of them lies on the target's disk, each folder after its content.
    std::vector<Leaving> leaving_;
    qint64 leavingBytes_ = 0;
    std::set<std::size_t> moved_; ///< of what was asked for: its source is gone
};

} // namespace tessary
