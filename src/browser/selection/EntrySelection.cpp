#include "browser/selection/EntrySelection.h"

#include <utility>

namespace tessary {

EntrySelection::EntrySelection(const FileRows& rows, Typeahead::Clock clock)
    : rows_(rows), typeahead_(std::move(clock)) {}

std::vector<FileItem> EntrySelection::entries() const {
    std::vector<FileItem> selected;
    for (int row = 0; row < rows_.count(); ++row)
        if (ids().contains(rows_.id(row)))
            selected.push_back(rows_.item(row));
    return selected;
}

void EntrySelection::take(const BrowserSelection& selection) {
    if (selection == selection_)
        return;
    selection_ = selection;
    Q_EMIT changed();
}

void EntrySelection::select(const QString& id, SelectionChange how) {
    const int row = rows_.rowOf(id);
    if (row < 0)
        return;
    BrowserSelection selection = selection_;
    selection.select(rows_, row, how);
    take(selection);
}

void EntrySelection::move(int step, bool extend) {
    BrowserSelection selection = selection_;
    selection.move(rows_, step, extend);
    take(selection);
}

bool EntrySelection::canMove(int step) const {
    BrowserSelection moved = selection_;
    moved.move(rows_, step, false);
    return moved.current() != currentId();
}

void EntrySelection::selectAll() {
    BrowserSelection selection = selection_;
    selection.selectAll(rows_);
    take(selection);
}

void EntrySelection::invert() {
    QSet<QString> others;
    for (int row = 0; row < rows_.count(); ++row)
        if (!ids().contains(rows_.id(row)))
            others.insert(rows_.id(row));
    set(others, currentId().value_or(QString()));
}

void EntrySelection::clear() {
    take({});
}

void EntrySelection::set(const QSet<QString>& ids, const QString& currentId) {
    BrowserSelection selection = selection_;
    selection.set(rows_, ids, currentId);
    take(selection);
}

void EntrySelection::type(const QString& letter) {
    const int current = currentId() ? rows_.rowOf(*currentId()) : -1;
    const int row = typeahead_.type(letter, rows_, current);
    if (row >= 0)
        select(rows_.id(row));
}

void EntrySelection::prune() {
    BrowserSelection selection = selection_;
    selection.prune(rows_);
    take(selection);
}

void EntrySelection::restart() {
    clear();
    typeahead_.reset();
}

} // namespace tessary
