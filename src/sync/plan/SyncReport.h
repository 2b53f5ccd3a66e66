#pragma once

#include "base/values/Error.h"
#include "sync/plan/SyncPlan.h"
#include "sync/plan/SyncPlanner.h"
#include "sync/plan/SyncRenames.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

namespace tessary {

/// What a run does, or has done, to one file.
enum class SyncDeed {
    upload,
    replaceOnDevice,
    download,
    replaceHere,
    moveToDevice,
    moveHere,
    keepBoth, ///< a conflict
    deleteOnDevice,
    deleteHere,
    renameOnDevice,
    renameHere,
};

/// Its name in JSON: "replaceHere".
[[nodiscard]] const char* deedName(SyncDeed deed);

struct SyncReportItem {
    SyncDeed deed = SyncDeed::upload;
    QString path;  ///< relative
    QString other; ///< of `keepBoth` the name of the loser's copy, of a rename the old name
    qint64 size = 0;

    bool operator==(const SyncReportItem&) const = default;
};

/// A file or folder that was left as it is.
struct SyncSkippedItem {
    QString path;
    Error reason;
};

/// Whether a file stays left out until somebody renames it, or decides otherwise: a name that the
/// other side cannot hold, a link, and what the pair's own rules leave alone.
[[nodiscard]] bool isForGood(const Error& reason);

/// What a run did.
struct SyncReport {
    enum class Outcome {
        done,       ///< all that can be synced
        incomplete, ///< but for files that were skipped, and that a later run may bring
        cancelled,  ///< by the user, in mid-run or at a question
        failed,     ///< it broke off, see `failure`
    };

    Outcome outcome = Outcome::done;
    QDateTime startedAt;
    QDateTime endedAt;
    std::vector<SyncReportItem> items;
    std::vector<SyncSkippedItem> skipped;
    std::optional<Error> failure;
    qint64 transferredBytes = 0;
    qint64 inSync = 0; ///< files that were the same already

    [[nodiscard]] bool hasChanges() const {
        return !items.empty();
    }
    /// How often each deed was done.
    [[nodiscard]] std::map<SyncDeed, qint64> counts() const;
    /// The paths of one deed, or of the several.
    [[nodiscard]] QStringList paths(std::initializer_list<SyncDeed> deeds) const;
};

/// One line of what a run would do: a deed, or a file that is left alone.
struct SyncPreviewItem {
    std::optional<SyncDeed> deed; ///< none: it is left, see `reason`
    QString path;
    QString other; ///< as in SyncReportItem
    qint64 size = 0;
    SyncReason reason;
    bool deviceWins = false; ///< of a conflict
};

/// What a run would do, deletions as if they were confirmed.
struct SyncPreview {
    std::vector<SyncPreviewItem> items; ///< what is in sync aside
    qint64 inSync = 0;                  ///< files
    qint64 totalBytes = 0;              ///< to transfer, at least
    SyncGuard guard;

    [[nodiscard]] std::map<SyncDeed, qint64> counts() const;
};

[[nodiscard]] SyncPreview previewOf(const SyncPlan& plan, const std::vector<SyncRename>& renames,
                                    const SyncGuard& guard);

/// What an action that is work comes to.
[[nodiscard]] SyncDeed deedOf(const SyncPlannedAction& action);

/// What a run has to ask before it goes on.
struct SyncQuestion {
    enum class Kind {
        deletions,          ///< which of `candidates` may go?
        emptySide,          ///< see `guard`: does everything go back there?
        missingLocalFolder, ///< is `path` to be made anew?
    };

    Kind kind = Kind::deletions;
    std::vector<DeletionCandidate> candidates;
    SyncGuard guard;
    QString path;
};

/// The user's word on a question. What is not said is "stop, and change nothing".
struct SyncAnswer {
    bool goesOn = false;
    QSet<QString> deletions; ///< of the candidates; the others are copied back

    [[nodiscard]] static SyncAnswer stop() {
        return {};
    }
    [[nodiscard]] static SyncAnswer keepAll() {
        return {true, {}};
    }
    [[nodiscard]] static SyncAnswer deleteAll(const SyncQuestion& question);
};

} // namespace tessary
