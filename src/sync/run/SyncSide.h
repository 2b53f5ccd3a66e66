#pragma once

#include "phone/PhoneFileSystem.h"
#include "sync/pair/SyncPatterns.h"
#include "sync/plan/SyncManifest.h"
#include "sync/plan/SyncTree.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace tessary {

/// One folder of a pair, on a phone or here, by relative paths. Nothing outside the folder is read
/// or written. Used by one thread at a time, not the main one; failures are those of the files.
class SyncSide {
public:
    /// `root` is in the namespace of `files`, which must outlive the side.
    SyncSide(PhoneFileSystem& files, const QString& root);

    [[nodiscard]] PhoneFileSystem& files() const {
        return files_;
    }
    [[nodiscard]] QString pathOf(const QString& relativePath) const;
    /// The item of a file as a scan saw it.
    [[nodiscard]] FileItem itemOf(const QString& relativePath, const SyncFile& seen) const;

    /// False when nothing is there, for certain: SyncError::notListed where that cannot be told and
    /// PhoneError::noStorage where its storage is missing. SyncError::sourceIsNoFolder for anything
    /// but a folder.
    [[nodiscard]] bool exists(const Call& call);
    /// What is there now; no value for nothing and for a folder.
    [[nodiscard]] std::optional<FileItem> findFile(const QString& relativePath, const Call& call);

    /// What a scan does with files that an earlier run left on their way.
    enum class Leftovers {
        finished, ///< given the name that they wait for, or removed when they are old
        shown,    ///< as a finished run would have it; nothing is changed
    };
    /// Everything below the folder but what the patterns leave out, one listing a folder. What is
    /// there and could not be read is in `unknown`. `known` are paths of the record. Throws where a
    /// listing breaks off and where the phone is lost.
    [[nodiscard]] SyncTree scan(const SyncPatterns& patterns, Leftovers leftovers,
                                const SyncFiles& known, const Call& call);
    /// The files of one folder by name, as far as it can be read.
    [[nodiscard]] std::map<QString, SyncFile> filesIn(const QString& relativeFolder,
                                                      const Call& call);

    /// Makes the folders above a path, where they are missing, and returns the one that it is in.
    QString makeFoldersAbove(const QString& relativePath, const Call& call);
    /// Removes the folders from a path upwards that are empty. Only a lost phone and a cancellation
    /// are reported.
    void removeEmptyFolders(QString relativeFolder, const Call& call);

private:
    /// Throws unless nothing being found at the root means that nothing is there.
    void requireAbsent(const Call& call);

    struct Folder {
        QString relativePath;
        int depth = 0;
    };

    void scanFolder(SyncTree& tree, const Folder& folder, std::vector<Folder>& waiting,
                    const SyncPatterns& patterns, Leftovers leftovers, const SyncFiles& known,
                    const Call& call);
    [[nodiscard]] std::vector<FileItem> withoutLeftovers(std::vector<FileItem> items,
                                                         Leftovers leftovers,
                                                         const QStringList& awaited,
                                                         const Call& call);

    PhoneFileSystem& files_;
    const QString root_;
    std::set<QString> made_; ///< folders that are known to be there
};

/// A file of a listing as the sync sees it.
[[nodiscard]] SyncFile syncFileOf(const FileItem& item);

} // namespace tessary
