#pragma once

#include <QString>
#include <QStringList>
#include <QUuid>

#include <optional>
#include <vector>

namespace tessary {

/// A change to a phone's files that can be taken back.
struct UndoStep {
    enum class Kind {
        rename,
        move,
        create, ///< of a folder, which goes again as long as it is empty
        copy,   ///< to the phone; what came is deleted, which is to be asked about
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

    bool operator==(const UndoStep&) const = default;
};

/// The changes of the last while, newest last. A step whose entries were changed again by a later
/// one is only reached after that one was taken back. A value.
class UndoHistory {
public:
    static constexpr std::size_t mostSteps = 100;

    /// One without changes is left out, unless it is a copy.
    void record(UndoStep step);
    /// What a copy has made by its end. No effect once its step is gone.
    void endCopy(const QUuid& copy, const QStringList& made);
    /// Something was done on a connection that cannot be taken back: nor can what was before it.
    void forget(const QString& identity);
    /// The newest step of a connection; no value when there is none.
    [[nodiscard]] std::optional<UndoStep> newestOf(const QString& identity) const;
    /// Takes that step out.
    std::optional<UndoStep> take(const QString& identity);

private:
    std::vector<UndoStep> steps_;
};

} // namespace tessary
