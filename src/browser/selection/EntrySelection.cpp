#include "browser/selection/EntrySelection.h"

#include <algorithm>
#include <utility>

namespace tessary {

std::vector<FileItem> EntrySelection::entries() const {
    std::vector<FileItem> selected;
    for (int row = 0; row < rows_.count(); ++row)
        if (ids_.contains(rows_.id(row)))
            selected.push_back(rows_.item(row));
    return selected;
}

void EntrySelection::set(QSet<QString> ids, const QString& currentId) {
    const auto isGone = [this](const QString& id) { return rows_.rowOf(id) < 0; };
    ids.removeIf(isGone);
    const auto current = isGone(currentId) ? std::nullopt : std::optional(currentId);
    if (ids == ids_ && current == currentId_)
        return;
    ids_ = std::move(ids);
    currentId_ = current;
    Q_EMIT changed();
}

void EntrySelection::select(const QString& id) {
    if (rows_.rowOf(id) >= 0)
        set({id}, id);
}

/// -1 for none.
int EntrySelection::currentRow() const {
    return currentId_ ? rows_.rowOf(*currentId_) : -1;
}

/// The row that move() selects; -1 for none.
int EntrySelection::rowAfter(int step) const {
    const int count = rows_.count();
    if (count == 0 || step == 0)
        return -1;
    const int from = currentRow();
    if (from < 0)
        return step > 0 ? 0 : count - 1;
    return std::clamp(from + std::clamp(step, -count, count), 0, count - 1);
}

void EntrySelection::move(int step) {
    if (const int row = rowAfter(step); row >= 0)
        select(rows_.id(row));
}

bool EntrySelection::canMove(int step) const {
    const int row = rowAfter(step);
    return row >= 0 && rows_.id(row) != currentId_;
}

void EntrySelection::selectAll() {
    QSet<QString> all;
    for (int row = 0; row < rows_.count(); ++row)
        all.insert(rows_.id(row));
    if (!all.isEmpty())
        set(std::move(all), currentId_.value_or(rows_.id(0)));
}

void EntrySelection::invert() {
    QSet<QString> others;
    for (int row = 0; row < rows_.count(); ++row)
        if (!ids_.contains(rows_.id(row)))
            others.insert(rows_.id(row));
    set(std::move(others), currentId_.value_or(QString()));
}

void EntrySelection::clear() {
    set({}, {});
}

void EntrySelection::type(const QString& letter) {
    const int row = typeahead_.type(letter, rows_, currentRow());
    if (row >= 0)
        select(rows_.id(row));
}

void EntrySelection::prune() {
    set(ids_, currentId_.value_or(QString()));
}

void EntrySelection::restart() {
    clear();
    typeahead_.reset();
}

} // namespace tessary
