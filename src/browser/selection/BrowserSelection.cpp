#include "browser/selection/BrowserSelection.h"

#include "browser/listing/FileRows.h"

#include <algorithm>

namespace tessary {

void BrowserSelection::select(const FileRows& rows, int row, SelectionChange how) {
    const QString id = rows.id(row);
    if (how == SelectionChange::extend) {
        const int anchorRow = anchor_ ? rows.rowOf(*anchor_) : -1;
        if (anchorRow < 0)
            how = SelectionChange::replace;
        else {
            ids_ = kept_;
            for (int i = std::min(anchorRow, row); i <= std::max(anchorRow, row); ++i)
                ids_.insert(rows.id(i));
            current_ = id;
            return;
        }
    }
    if (how == SelectionChange::replace)
        ids_ = {id};
    else if (!ids_.remove(id))
        ids_.insert(id);
    // The next extension adds its range to what is selected now.
    kept_ = how == SelectionChange::toggle ? ids_ : QSet<QString>();
    kept_.remove(id);
    anchor_ = id;
    current_ = id;
}

void BrowserSelection::selectAll(const FileRows& rows) {
    ids_.clear();
    kept_.clear();
    for (int row = 0; row < rows.count(); ++row)
        ids_.insert(rows.id(row));
    if (!anchor_ && rows.count() > 0)
        anchor_ = current_ = rows.id(0);
}

void BrowserSelection::move(const FileRows& rows, int step, bool extend) {
    const int count = rows.count();
    if (count == 0 || step == 0)
        return;
    const int from = current_ ? rows.rowOf(*current_) : -1;
    if (from < 0) {
        select(rows, step > 0 ? 0 : count - 1, SelectionChange::replace);
        return;
    }
    const int to = std::clamp(from + std::clamp(step, -count, count), 0, count - 1);
    select(rows, to, extend ? SelectionChange::extend : SelectionChange::replace);
}

void BrowserSelection::set(const FileRows& rows, const QSet<QString>& ids, const QString& current) {
    ids_ = ids;
    kept_.clear();
    current_.reset();
    if (!current.isEmpty())
        current_ = current;
    if (!anchor_ || !ids_.contains(*anchor_))
        anchor_ = current_;
    prune(rows);
}

void BrowserSelection::clear() {
    *this = {};
}

void BrowserSelection::prune(const FileRows& rows) {
    const auto isGone = [&](const QString& id) { return rows.rowOf(id) < 0; };
    ids_.removeIf(isGone);
    kept_.removeIf(isGone);
    if (anchor_ && isGone(*anchor_))
        anchor_.reset();
    if (current_ && isGone(*current_))
        current_.reset();
}

} // namespace tessary
