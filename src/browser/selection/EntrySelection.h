#pragma once

#include "browser/listing/FileRows.h"
#include "browser/selection/Typeahead.h"

#include <QObject>
#include <QSet>

#include <optional>
#include <vector>

namespace tessary {

/// The selected entries among a browser's rows, and the entry that the keyboard is on. Lives on the
/// main thread. Ids are those of FileItem::id(); what is not shown is never selected.
class EntrySelection : public QObject {
    Q_OBJECT

public:
    /// `rows` outlive it.
    explicit EntrySelection(const FileRows& rows) : rows_(rows) {}

    [[nodiscard]] const QSet<QString>& ids() const {
        return ids_;
    }
    /// The entry that the keyboard is on.
    [[nodiscard]] const std::optional<QString>& currentId() const {
        return currentId_;
    }
    /// The selected entries in the order of the rows.
    [[nodiscard]] std::vector<FileItem> entries() const;

    /// This entry alone.
    void select(const QString& id);
    /// Selects the entry that is `step` rows away, or the last one on the way: in a grid as many as
    /// there are columns go down, negative ones up. Without a current entry the first row is
    /// selected, or the last when going back.
    void move(int step);
    /// Whether move() would bring the keyboard to another entry.
    [[nodiscard]] bool canMove(int step) const;
    void selectAll();
    void invert();
    void clear();
    /// Takes a selection over; ids that are not shown are left out.
    void set(QSet<QString> ids, const QString& currentId);
    /// One typed letter of type-to-select.
    void type(const QString& letter);
    /// What cannot be seen must not be deleted with the rest.
    void prune();
    /// Another folder is shown: nothing is selected, and the next letter begins a name.
    void restart();

Q_SIGNALS:
    void changed(); ///< ids, currentId

private:
    [[nodiscard]] int currentRow() const;
    [[nodiscard]] int rowAfter(int step) const;

    const FileRows& rows_;
    QSet<QString> ids_;
    std::optional<QString> currentId_;
    Typeahead typeahead_;
};

} // namespace tessary
