#pragma once

#include "browser/actions/BrowserEdit.h"
#include "browser/actions/UndoHistory.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

class FileBrowserViewModel;

/// What a browser changes on a phone: makes folders, renames, moves, deletes, and takes that back
/// again. Each change runs in the background and reloads the folder at its end. Lives on the main
/// thread.
class EntryChanges : public QObject {
    Q_OBJECT

public:
    /// `browser` outlives it.
    explicit EntryChanges(FileBrowserViewModel& browser);
    /// Stops what is under way.
    ~EntryChanges() override;

    [[nodiscard]] bool isRunning() const {
        return !running_.empty();
    }
    [[nodiscard]] const EditProgress& progress() const {
        return progress_;
    }
    /// What is done stays done.
    void cancel();

    /// In the folder shown.
    void createFolder(const QString& name);
    /// One after the other; one report for all that failed. Those of this computer go to its trash.
    void remove(std::vector<FileItem> items);
    void rename(const FileItem& item, const QString& newName);
    /// Entries of this connection, of whatever folder, to another of its folders. What the phone
    /// cannot move there, to another storage, is copied and removed instead, by the queue.
    void move(std::vector<FileItem> items, const QString& folder);

    /// The change that undo() would take back; no value when there is none on this connection.
    [[nodiscard]] std::optional<UndoStep> undoable() const;
    /// Of a copy it deletes what came, but for what has changed since, which is reported: that is
    /// to be asked about before. No effect on one that is under way.
    void undo();
    /// A copy was queued, by CopyJob::id, which undo() leads to once it has ended. `computer` is
    /// where it goes, when that is not to `identity` itself.
    void noteCopy(const QUuid& copy, const QString& identity,
                  std::shared_ptr<PhoneFileSystem> computer);
    /// One that cannot be taken back, nor what was done before it.
    void noteLastingChange(const QString& identity);

Q_SIGNALS:
    void runningChanged();                  ///< isRunning, progress
    void undoableChanged();                 ///< also when another phone is shown
    void removed(const QStringList& paths); ///< of the phone that is shown
    void renamed(const QString& oldPath, const QString& newPath);

private:
    using Done = std::function<void(const BrowserEditReport&)>;

    void run(const std::shared_ptr<PhoneFileSystem>& files, std::vector<FileItem> items,
             BrowserProblem::What what, EditAction action, Done whenDone,
             const QStringList& newPaths = {});
    void start(const std::shared_ptr<PhoneFileSystem>& files, std::vector<FileItem> items,
               BrowserProblem::What what, EditAction action, Done whenDone);
    void record(UndoStep step);
    [[nodiscard]] bool isShown(const QString& identity) const;
    void tellRemoved(const QString& identity, const QStringList& paths);
    void takenBack(const UndoStep& step, const BrowserEditReport& report);

    FileBrowserViewModel& browser_;
    std::vector<std::stop_source> running_; ///< one for each that is under way
    EditProgress progress_;
    UndoHistory history_;
};

} // namespace tessary
