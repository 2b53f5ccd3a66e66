#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/queue/CopyJob.h"

#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// A change to a phone's files, or a copy of them to this computer, that can be taken back.
struct UndoStep {
    enum class Kind {
        rename,
        move,
        create, ///< of a folder, which goes again as long as it is empty
        copy,   ///< what came is deleted, which is to be asked about
    };
    /// One entry.
    struct Change {
        QString before; ///< its path; empty for what was created or copied
        QString now;    ///< the same

        bool operator==(const Change&) const = default;
    };

    Kind kind = Kind::rename;
    QString identity;            ///< PhoneFileSystem::identity()
    std::vector<Change> changes; ///< none while a copy has not ended
    QUuid copy{};                ///< CopyJob::id
    EntryMarks made{};           ///< by the copy: only this is deleted
    /// Where a copy to this computer went; null for all else.
    std::shared_ptr<PhoneFileSystem> computer{};

    bool operator==(const UndoStep&) const = default;
};

/// The changes of the last while, newest last. A step whose entries were changed again by a later
/// one is only reached after that one was taken back. A value.
class UndoHistory {
public:
    static constexpr std::size_t mostSteps = 100;

    /// One without changes is left out, unless it is a copy.
    void record(UndoStep step);
    /// Notes what a copy has made by its end. No effect once its step is gone.
    void endCopy(const CopyJob& job);
    /// Something was done on a connection that cannot be taken back: nor can what was before it.
    void forget(const QString& identity);
    /// The newest step of a connection; no value when there is none.
    [[nodiscard]] std::optional<UndoStep> newestOf(const QString& identity) const;
    void dropNewestOf(const QString& identity);

private:
    std::vector<UndoStep> steps_;
};

} // namespace tessary
