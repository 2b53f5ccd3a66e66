#include "browser/listing/FileRows.h"

#include "base/threads/MainThread.h"

#include <utility>

namespace tessary {

namespace {

/// Above this number of separate changes a view is quicker, and no worse off, with a reset.
constexpr std::size_t maxRanges = 100;

/// The first and last row of neighbouring rows.
using Range = std::pair<int, int>;

template <typename Test>
std::vector<Range> rangesWhere(int count, Test test) {
    std::vector<Range> ranges;
    for (int row = 0; row < count; ++row) {
        if (!test(row))
            continue;
        if (!ranges.empty() && ranges.back().second == row - 1)
            ranges.back().second = row;
        else
            ranges.emplace_back(row, row);
    }
    return ranges;
}

int& at(std::vector<int>& values, int index) {
    return values[static_cast<std::size_t>(index)];
}

} // namespace

FileRows::FileRows(QObject* parent)
    : QObject(parent), listing_(FileListing::make({}, QLocale::c())) {}

int FileRows::rowOf(const QString& id) const {
    const int index = listing_->indexOf(id);
    return index < 0 ? -1 : rowAt_[static_cast<std::size_t>(index)];
}

std::vector<int> FileRows::wantedOf(const std::shared_ptr<const FileListing>& listing) {
    order_.byDay = isGroupedByDay_ && isGroupedByDay_(*listing);
    if (ordered_.of != listing || ordered_.by != order_)
        ordered_ = {listing, order_, listing->ordered(order_)};
    return listing->chosen(ordered_.indexes, filter_);
}

void FileRows::reset(std::shared_ptr<const FileListing> listing) {
    MainThread::assertCurrent();
    std::vector<int> wanted = wantedOf(listing);
    resetTo(std::move(listing), std::move(wanted));
}

void FileRows::update(std::shared_ptr<const FileListing> listing) {
    show(std::move(listing));
}

void FileRows::setFilter(const QString& filter) {
    filter_.text = filter;
    show(listing_);
}

void FileRows::setShowsHidden(bool shows) {
    filter_.withHidden = shows;
    show(listing_);
}

void FileRows::setSortOrder(const FileSortOrder& order) {
    order_.columns = order;
    show(listing_);
}

void FileRows::setDayRule(std::function<bool(const FileListing&)> isGrouped) {
    isGroupedByDay_ = std::move(isGrouped);
    dayRuleChanged();
}

void FileRows::dayRuleChanged() {
    if (order_.byDay != (isGroupedByDay_ && isGroupedByDay_(*listing_)))
        show(listing_);
}

void FileRows::resetTo(std::shared_ptr<const FileListing> listing, std::vector<int> wanted) {
    Q_EMIT aboutToBeReset();
    listing_ = std::move(listing);
    shown_ = std::move(wanted);
    indexRows();
    Q_EMIT wasReset();
}

void FileRows::indexRows() {
    ++revision_;
    rowAt_.assign(static_cast<std::size_t>(listing_->size()), -1);
    for (int row = 0; row < count(); ++row)
        at(rowAt_, at(shown_, row)) = row;
}

/// Goes from what is shown to what is wanted of `listing` in steps that a model can follow: rows
/// go, what is left is put in order, rows come.
void FileRows::show(std::shared_ptr<const FileListing> listing) {
    MainThread::assertCurrent();
    std::vector<int> wanted = wantedOf(listing);
    std::vector<int> wantedRow(static_cast<std::size_t>(listing->size()), -1);
    for (std::size_t row = 0; row < wanted.size(); ++row)
        at(wantedRow, wanted[row]) = static_cast<int>(row);

    std::vector<int> newIndex(shown_.size(), -1); // of each row; -1 for one that goes
    std::vector<bool> isKept(wanted.size(), false);
    for (int row = 0; row < count(); ++row) {
        const int index = listing == listing_ ? at(shown_, row) : listing->indexOf(id(row));
        if (index < 0 || at(wantedRow, index) < 0)
            continue;
        at(newIndex, row) = index;
        isKept[static_cast<std::size_t>(at(wantedRow, index))] = true;
    }
    const std::vector<Range> going =
        rangesWhere(count(), [&](int row) { return at(newIndex, row) < 0; });
    const std::vector<Range> coming = rangesWhere(static_cast<int>(wanted.size()), [&](int row) {
        return !isKept[static_cast<std::size_t>(row)];
    });
    if (going.size() + coming.size() > maxRanges) {
        resetTo(std::move(listing), std::move(wanted));
        return;
    }

    for (auto range = going.rbegin(); range != going.rend(); ++range) {
        Q_EMIT aboutToBeRemoved(range->first, range->second);
        shown_.erase(shown_.begin() + range->first, shown_.begin() + range->second + 1);
        newIndex.erase(newIndex.begin() + range->first, newIndex.begin() + range->second + 1);
        indexRows();
        Q_EMIT removed(range->first, range->second);
    }

    std::vector<int> inOrder;
    inOrder.reserve(newIndex.size());
    for (std::size_t row = 0; row < wanted.size(); ++row)
        if (isKept[row])
            inOrder.push_back(wanted[row]);
    std::vector<bool> differs(static_cast<std::size_t>(listing->size()), false);
    for (int row = 0; row < count(); ++row)
        differs[static_cast<std::size_t>(at(newIndex, row))] =
            listing != listing_ && item(row) != listing->item(at(newIndex, row));
    const bool isReordered = inOrder != newIndex;
    if (isReordered)
        Q_EMIT aboutToBeReordered();
    listing_ = std::move(listing);
    shown_ = std::move(inOrder);
    indexRows();
    if (isReordered) {
        QList<int> newRows;
        newRows.reserve(static_cast<qsizetype>(newIndex.size()));
        for (const int index : newIndex)
            newRows.append(at(rowAt_, index));
        Q_EMIT reordered(newRows);
    }
    for (const auto& [first, last] : rangesWhere(
             count(), [&](int row) { return differs[static_cast<std::size_t>(at(shown_, row))]; }))
        Q_EMIT changed(first, last);

    for (const auto& [first, last] : coming) {
        Q_EMIT aboutToBeInserted(first, last);
        shown_.insert(shown_.begin() + first, wanted.begin() + first, wanted.begin() + last + 1);
        indexRows();
        Q_EMIT inserted(first, last);
    }
    Q_ASSERT(shown_ == wanted);
}

} // namespace tessary
