#include "files/FileListing.h"

#include "core/NameOrder.h"

#include <algorithm>
#include <numeric>

namespace tessary {

namespace {

template <typename T>
int order(const T& left, const T& right) {
    return left < right ? -1 : (right < left ? 1 : 0);
}

} // namespace

std::shared_ptr<const FileListing> FileListing::make(std::vector<FileItem> items,
                                                     const QLocale& locale) {
    return std::shared_ptr<const FileListing>(new FileListing(std::move(items), locale));
}

FileListing::FileListing(std::vector<FileItem> items, const QLocale& locale) : locale_(locale) {
    items_.reserve(items.size());
    keys_.reserve(items.size());
    indexes_.reserve(static_cast<qsizetype>(items.size()));
    for (FileItem& item : items) {
        QString id = item.id();
        if (const auto known = indexes_.constFind(id); known != indexes_.constEnd()) {
            if (items_[static_cast<std::size_t>(*known)] == item)
                continue;
            // A phone can hold two objects of one name in a folder.
            const QString shared = id;
            for (int n = 2; indexes_.contains(id); ++n)
                id = shared + QChar::Null + QString::number(n);
            item = FileItem(item.name, item.path, item.isDirectory, item.size, item.modifiedDate,
                            item.handle, id);
        }
        indexes_.insert(id, static_cast<int>(items_.size()));
        keys_.push_back({id, folded(item.name), 0, item.modifiedDateOrEpoch().toMSecsSinceEpoch(),
                         item.category()});
        items_.push_back(std::move(item));
    }
    rankNames();
}

/// Orders the names once, so that every later sort compares numbers.
void FileListing::rankNames() {
    QCollator collator = nameCollator(locale_);
    collator.setNumericMode(true);
    std::vector<QCollatorSortKey> sortKeys;
    sortKeys.reserve(items_.size());
    for (const FileItem& item : items_)
        sortKeys.push_back(collator.sortKey(item.name));

    const auto compareNames = [&](int left, int right) {
        const auto l = static_cast<std::size_t>(left);
        const auto r = static_cast<std::size_t>(right);
        const int byRules = sortKeys[l].compare(sortKeys[r]);
        return byRules != 0 ? byRules : items_[l].name.compare(items_[r].name);
    };
    std::vector<int> byName(items_.size());
    std::iota(byName.begin(), byName.end(), 0);
    std::stable_sort(byName.begin(), byName.end(),
                     [&](int left, int right) { return compareNames(left, right) < 0; });
    int rank = 0;
    for (std::size_t i = 0; i < byName.size(); ++i) {
        if (i > 0 && compareNames(byName[i - 1], byName[i]) != 0)
            ++rank;
        keys_[static_cast<std::size_t>(byName[i])].nameRank = rank;
    }
}

QString FileListing::folded(const QString& text) const {
    // The locale knows its own letters (Turkish i), the folding final forms (Greek sigma). Names
    // may come in decomposed form, and typed text does not.
    return locale_.toLower(text.normalized(QString::NormalizationForm_C)).toCaseFolded();
}

int FileListing::compare(int left, int right, FileField field) const {
    const Key& l = keys_[static_cast<std::size_t>(left)];
    const Key& r = keys_[static_cast<std::size_t>(right)];
    switch (field) {
    case FileField::size:
        return order(item(left).size, item(right).size);
    case FileField::modified:
        return order(l.modified, r.modified);
    case FileField::kind:
        return order(l.category, r.category);
    case FileField::name:
        break;
    }
    return order(l.nameRank, r.nameRank);
}

std::vector<int> FileListing::rows(const QString& filter, const FileSortOrder& sortOrder) const {
    const QString wanted = folded(filter.trimmed());
    std::vector<int> rows;
    rows.reserve(items_.size());
    for (int i = 0; i < size(); ++i)
        if (wanted.isEmpty() || foldedName(i).contains(wanted))
            rows.push_back(i);
    std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
        if (item(left).isDirectory != item(right).isDirectory)
            return item(left).isDirectory;
        for (const FileComparator& comparator : sortOrder)
            if (const int result = compare(left, right, comparator.field))
                return comparator.descending ? result > 0 : result < 0;
        return compare(left, right, FileField::name) < 0;
    });
    return rows;
}

} // namespace tessary
