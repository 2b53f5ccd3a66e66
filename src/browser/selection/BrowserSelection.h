#pragma once

#include <QSet>
#include <QString>

#include <optional>

namespace tessary {

class FileRows;

/// What a click or key does to the selection.
enum class SelectionChange {
    replace, ///< only this entry
    toggle,  ///< this entry in or out, the others stay (command-click)
    extend,  ///< from the anchor to this entry (shift-click)
};

/// The selected entries of a browser, by id, with the rules of a desktop: a plain or toggling
/// click sets the anchor, an extending one selects the rows from the anchor to the clicked row
/// instead of what the last extension selected. Only shown entries are ever selected. A value.
class BrowserSelection {
public:
    [[nodiscard]] const QSet<QString>& ids() const {
        return ids_;
    }
    [[nodiscard]] const std::optional<QString>& anchor() const {
        return anchor_;
    }
    /// The entry that the keyboard moves from.
    [[nodiscard]] const std::optional<QString>& current() const {
        return current_;
    }

    void select(const FileRows& rows, int row, SelectionChange how);
    void selectAll(const FileRows& rows);
    /// Moves the current entry by `step` rows, as far as there are rows; with `extend` the
    /// selection grows from the anchor. Without a current entry the first row is selected, or the
    /// last when going back.
    void move(const FileRows& rows, int step, bool extend);
    /// Takes a selection over as a view has it; ids that are not shown are left out.
    void set(const FileRows& rows, const QSet<QString>& ids, const QString& current);
    void clear();
    /// Drops what is not shown any more.
    void prune(const FileRows& rows);

    bool operator==(const BrowserSelection&) const = default;

private:
    QSet<QString> ids_;
    QSet<QString> kept_; ///< what an extension leaves selected besides its range
    std::optional<QString> anchor_;
    std::optional<QString> current_;
};

} // namespace tessary
