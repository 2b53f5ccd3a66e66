#pragma once

#include "browser/listing/FileRows.h"
#include "browser/selection/BrowserSelection.h"
#include "browser/selection/Typeahead.h"

#include <QObject>

#include <optional>
#include <vector>

namespace tessary {

/// The selected entries among a browser's rows, and the entry that the keyboard is on. Lives on the
/// main thread. Ids are those of FileItem::id(); what is not shown is never selected.
class EntrySelection : public QObject {
    Q_OBJECT

public:
    /// `rows` outlive it. Without a clock the steady one times what is typed.
    EntrySelection(const FileRows& rows, Typeahead::Clock clock);

    [[nodiscard]] const QSet<QString>& ids() const {
        return selection_.ids();
    }
    /// The entry that the keyboard is on.
    [[nodiscard]] const std::optional<QString>& currentId() const {
        return selection_.current();
    }
    /// The selected entries in the order of the rows.
    [[nodiscard]] std::vector<FileItem> entries() const;

    void select(const QString& id, SelectionChange how = SelectionChange::replace);
    /// Up and down in a grid: `step` is the number of columns, negative to go up.
    void move(int step, bool extend = false);
    /// Whether move() would bring the keyboard to another entry.
    [[nodiscard]] bool canMove(int step) const;
    void selectAll();
    void invert();
    void clear();
    /// Takes over a selection that a view has made by itself.
    void set(const QSet<QString>& ids, const QString& currentId);
    /// One typed letter of type-to-select.
    void type(const QString& letter);
    /// What cannot be seen must not be deleted with the rest.
    void prune();
    /// Another folder is shown: nothing is selected, and the next letter begins a name.
    void restart();

Q_SIGNALS:
    void changed(); ///< ids, currentId

private:
    void take(const BrowserSelection& selection);

    const FileRows& rows_;
    BrowserSelection selection_;
    Typeahead typeahead_;
};

} // namespace tessary
