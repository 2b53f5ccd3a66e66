#pragma once

#include "transfer/copy/CopyCheck.h"
#include "transfer/local/LocalFileSystem.h"
#include "transfer/queue/CopyQueue.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace tessary {

class FileBrowserViewModel;

/// A copy that was looked into and waits for answers.
struct PreparedCopy {
    /// What lies in one folder of the source, and what it will meet.
    struct Part {
        TreeCopyRequest request;
        CopyCheck check;
    };
    std::vector<Part> parts;
    QString targetName; ///< of the folder, or of the phone

    /// Bytes that the copy takes for itself, and those that are free.
    [[nodiscard]] qint64 neededBytes(const CopyAnswers& answers) const;
    [[nodiscard]] std::optional<qint64> freeBytes() const;
    /// Not everything could be counted.
    [[nodiscard]] bool isPartial() const;
};

/// The copies that a browser starts, and what is found out before. Lives on the main thread.
class BrowserCopies {
public:
    using Prepared = std::function<void(const PreparedCopy&)>;
    /// What becomes of what was copied: removeSource makes it a move.
    enum class Afterwards { keepSource, removeSource };

    /// Of the settings: whether the user wants each copy compared with its original.
    static inline const QString comparesKey = QStringLiteral("Tessary_CompareCopies");
    /// Whether that is so now; called when a copy starts.
    using Compares = std::function<bool()>;

    /// All outlive it.
    BrowserCopies(FileBrowserViewModel& browser, CopyQueue& queue, Compares compares)
        : browser_(browser), queue_(queue), compares_(std::move(compares)) {}

    /// Finds out in the background what a copy of entries into a local folder will meet.
    /// `whenReady` is called on the main thread, unless the browser is gone by then.
    void prepareDownload(const QStringList& ids, const QString& localFolder, Prepared whenReady);
    /// The same for local files and folders, into a folder of the phone; the one shown when
    /// `folder` is empty.
    void prepareUpload(const QStringList& localPaths, const QString& folder, Prepared whenReady,
                       Afterwards afterwards = Afterwards::keepSource);
    /// The same for entries of any phone, this one included. A copy beside what it was made of gets
    /// another name, unasked.
    void prepareTransfer(const std::shared_ptr<PhoneFileSystem>& from,
                         const std::vector<FileItem>& items, const QString& folder,
                         Prepared whenReady, Afterwards afterwards = Afterwards::keepSource);
    /// Queues what was prepared. Without an answer both are kept; in folders that are merged files
    /// are replaced, unless `onlyNew` leaves those that are there already.
    void start(const PreparedCopy& copy, const CopyAnswers& answers, bool onlyNew = false);
    /// Queues a move within one phone that it cannot make by itself. A name that is taken gets a
    /// number.
    void moveByCopy(const std::shared_ptr<PhoneFileSystem>& files,
                    const std::vector<FileItem>& items, const QString& folder);
    /// A copy is looked into that is not queued yet.
    [[nodiscard]] bool isPreparing() const {
        return preparing_ > 0;
    }
    /// Whether a copy that has not ended still reads one of these, or something in it.
    [[nodiscard]] bool areBeingRead(const PhoneFileSystem& files,
                                    const std::vector<FileItem>& items) const;
    /// Whether a copy puts something into the folder that is shown.
    [[nodiscard]] bool fillsShownFolder(const CopyJob& job) const;
    /// False for a copy that has ended: it stays as it is.
    bool cancel(const QUuid& id);

private:
    [[nodiscard]] QString targetOf(const QString& folder) const;
    void noteForUndo(const QUuid& id, const PreparedCopy::Part& part, const CopyAnswers& answers,
                     bool makesAll);
    void prepare(std::function<PreparedCopy()> open, std::optional<qint64> mostBytes,
                 Prepared whenReady);

    FileBrowserViewModel& browser_;
    CopyQueue& queue_;
    const Compares compares_;
    int preparing_ = 0;
};

} // namespace tessary
