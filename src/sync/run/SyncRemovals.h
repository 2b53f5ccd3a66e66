#pragma once

#include "sync/plan/SyncReport.h"
#include "sync/run/SyncTransfer.h"

#include <functional>
#include <set>
#include <vector>

namespace tessary {

/// What a run takes away after it has copied: the sources of moved files, and folders that became
/// empty by that. Nothing goes before its copy is there for good and no record speaks of it.
class SyncRemovals {
public:
    /// Takes files out of the record that both sides hold, before their sources go: a moved file
    /// that an older record still names would look like one that the user deleted. False when it
    /// cannot be stored.
    using ForgetFiles = std::function<bool(const QStringList& paths)>;

    /// A file that is on its new side and goes from its old one.
    struct Moved {
        bool toDevice = false;
        QString path;
        SyncFile source;
        bool isRecorded = false; ///< an earlier run recorded a file of this name
    };

    SyncRemovals(SyncTransfer& transfer, const SyncComputer& computer, SyncReport& report,
                 ForgetFiles forget);

    /// Its source goes now or later, together with others. Throws as deletions of files do that
    /// end a run.
    void add(Moved moved);
    /// Something was removed from a folder.
    void noteEmptied(bool onDevice, const QString& folder);
    /// Removes what still waits, and then the folders that are empty.
    void finish();

private:
    void removeSources();
    void prepare(std::vector<Moved>& moved);
    void requireTwoFolders();

    SyncTransfer& transfer_;
    const SyncComputer& computer_;
    SyncReport& report_;
    const ForgetFiles forget_;
    std::vector<Moved> moved_; ///< whose sources are still there
    qint64 movedBytes_ = 0;
    bool areTwoFolders_ = false; ///< as far as it was asked
    std::set<QString> localEmptied_;
    std::set<QString> deviceEmptied_;
};

} // namespace tessary
