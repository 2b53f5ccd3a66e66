#pragma once

#include "browser/listing/FileListing.h"
#include "browser/listing/FileSortOrder.h"

#include <QList>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tessary {

/// The rows that the browser shows: a listing, filtered and sorted. Every change is announced row
/// by row, before and after it, so that a list model over it keeps selection and scroll position;
/// only a change of most rows is a reset. On the main thread.
class FileRows : public QObject {
    Q_OBJECT

public:
    explicit FileRows(QObject* parent = nullptr);

    [[nodiscard]] int count() const {
        return static_cast<int>(shown_.size());
    }
    [[nodiscard]] const FileItem& item(int row) const {
        return listing_->item(shown_[static_cast<std::size_t>(row)]);
    }
    /// As item() tells, but quicker for a question about every row.
    [[nodiscard]] bool isFolder(int row) const {
        return listing_->isFolder(shown_[static_cast<std::size_t>(row)]);
    }
    [[nodiscard]] const QString& id(int row) const {
        return listing_->id(shown_[static_cast<std::size_t>(row)]);
    }
    /// -1 for an id that is not shown.
    [[nodiscard]] int rowOf(const QString& id) const;
    [[nodiscard]] const QString& foldedName(int row) const {
        return listing_->foldedName(shown_[static_cast<std::size_t>(row)]);
    }
    [[nodiscard]] const FileListing& listing() const {
        return *listing_;
    }
    /// FileListing::day() of the row.
    [[nodiscard]] qint64 day(int row) const {
        return listing_->day(shown_[static_cast<std::size_t>(row)]);
    }
    [[nodiscard]] const QString& filter() const {
        return filter_.text;
    }
    [[nodiscard]] const FileSortOrder& sortOrder() const {
        return order_.columns;
    }
    /// The files of one day stand together.
    [[nodiscard]] bool groupsByDay() const {
        return order_.byDay;
    }
    /// Another number after each change of which entry is in which row.
    [[nodiscard]] std::uint64_t revision() const {
        return revision_;
    }

    [[nodiscard]] bool showsHidden() const {
        return filter_.withHidden;
    }
    /// The rows that there would be without a filter.
    [[nodiscard]] int unfilteredCount() const {
        return listing_->size() - (showsHidden() ? 0 : listing_->hiddenCount());
    }

    /// Another folder: a reset.
    void reset(std::shared_ptr<const FileListing> listing);
    /// The same folder, read again.
    void update(std::shared_ptr<const FileListing> listing);
    void setFilter(const QString& filter);
    /// Entries whose name begins with a dot; off at first.
    void setShowsHidden(bool shows);
    void setSortOrder(const FileSortOrder& order);
    /// What decides for each listing whether its files are grouped by day; never at first.
    void setDayRule(std::function<bool(const FileListing&)> isGrouped);
    /// The rule decides otherwise now.
    void dayRuleChanged();

Q_SIGNALS:
    void aboutToBeReset();
    void wasReset();
    void aboutToBeInserted(int first, int last);
    void inserted(int first, int last);
    void aboutToBeRemoved(int first, int last);
    void removed(int first, int last);
    /// All rows stay, in another order: `newRows[old row]` is the new row.
    void aboutToBeReordered();
    void reordered(const QList<int>& newRows);
    /// The entries of these rows differ from before.
    void changed(int first, int last);

private:
    [[nodiscard]] std::vector<int> wantedOf(const std::shared_ptr<const FileListing>& listing);
    void show(std::shared_ptr<const FileListing> listing);
    void resetTo(std::shared_ptr<const FileListing> listing, std::vector<int> wanted);
    void indexRows();

    std::shared_ptr<const FileListing> listing_;
    std::vector<int> shown_; ///< indexes into listing_
    std::vector<int> rowAt_; ///< the row of each index of listing_; -1 when it is not shown
    RowOrder order_;
    RowFilter filter_;
    /// A listing's entries in an order, whatever the filter: a keystroke in it sorts nothing.
    struct {
        std::shared_ptr<const FileListing> of;
        RowOrder by;
        std::vector<int> indexes;
    } ordered_;
    std::function<bool(const FileListing&)> isGroupedByDay_;
    std::uint64_t revision_ = 0;
};

} // namespace tessary
