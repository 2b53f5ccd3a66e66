#include "files/FileListing.h"

#include "core/NameOrder.h"

#include <algorithm>
#include <future>
#include <numeric>
#include <thread>

namespace tessary {

namespace {

/// Whether the letters of ASCII have the small forms in it that they have in English.
bool hasEnglishCase(const QLocale& locale) {
    return locale.language() != QLocale::Turkish && locale.language() != QLocale::Azerbaijani;
}

bool isAscii(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar letter) { return letter.unicode() < 0x80; });
}

/// The keys by which a language orders names, at the index of the name. What they cost is most of
/// what a folder costs, so that long ones are shared among threads.
std::vector<QCollatorSortKey> sortKeysOf(const std::vector<FileItem>& items,
                                         const QLocale& locale) {
    constexpr std::size_t worthAThread = 5'000;
    const auto makeKeys = [&](std::size_t begin, std::size_t end) {
        QCollator collator = nameCollator(locale); // is for one thread
        collator.setNumericMode(true);
        std::vector<QCollatorSortKey> keys;
        keys.reserve(end - begin);
        for (std::size_t i = begin; i < end; ++i)
            keys.push_back(collator.sortKey(items[i].name));
        return keys;
    };
    const std::size_t parts = std::clamp<std::size_t>(
        items.size() / worthAThread, 1, std::max(std::thread::hardware_concurrency(), 1U));
    std::vector<std::future<std::vector<QCollatorSortKey>>> others;
    for (std::size_t part = 1; part < parts; ++part)
        others.push_back(std::async(std::launch::async, makeKeys, items.size() * part / parts,
                                    items.size() * (part + 1) / parts));
    std::vector<QCollatorSortKey> keys = makeKeys(0, items.size() / parts);
    keys.reserve(items.size());
    for (auto& other : others)
        std::ranges::move(other.get(), std::back_inserter(keys));
    return keys;
}

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
                         item.isDirectory});
        items_.push_back(std::move(item));
    }
    rankNames();
}

/// Orders the names once, so that every later sort compares numbers.
void FileListing::rankNames() {
    const std::vector<QCollatorSortKey> sortKeys = sortKeysOf(items_, locale_);
    const auto compareNames = [&](int left, int right) {
        const auto l = static_cast<std::size_t>(left);
        const auto r = static_cast<std::size_t>(right);
        const int byRules = sortKeys[l].compare(sortKeys[r]);
        return byRules != 0 ? byRules : items_[l].name.compare(items_[r].name);
    };
    byName_.resize(items_.size());
    std::iota(byName_.begin(), byName_.end(), 0);
    std::stable_sort(byName_.begin(), byName_.end(),
                     [&](int left, int right) { return compareNames(left, right) < 0; });
    int rank = 0;
    for (std::size_t i = 0; i < byName_.size(); ++i) {
        if (i > 0 && compareNames(byName_[i - 1], byName_[i]) != 0)
            ++rank;
        keys_[static_cast<std::size_t>(byName_[i])].nameRank = rank;
    }
}

QString FileListing::folded(const QString& text) const {
    if (isAscii(text) && hasEnglishCase(locale_)) { // at a tenth of the cost
        QString lower = text;
        for (QChar& letter : lower)
            if (letter >= QLatin1Char('A') && letter <= QLatin1Char('Z'))
                letter = QChar(letter.unicode() + ('a' - 'A'));
        return lower;
    }
    // The locale knows its own letters (Turkish i), the folding final forms (Greek sigma). Names
    // may come in decomposed form, and typed text does not.
    return locale_.toLower(text.normalized(QString::NormalizationForm_C)).toCaseFolded();
}

int FileListing::compare(int left, int right, FileField field,
                         const std::vector<FileCategory>& categories) const {
    const Key& l = keys_[static_cast<std::size_t>(left)];
    const Key& r = keys_[static_cast<std::size_t>(right)];
    switch (field) {
    case FileField::size:
        return order(item(left).size, item(right).size);
    case FileField::modified:
        return order(l.modified, r.modified);
    case FileField::kind:
        return order(categories[static_cast<std::size_t>(left)],
                     categories[static_cast<std::size_t>(right)]);
    case FileField::name:
        break;
    }
    return order(l.nameRank, r.nameRank);
}

std::vector<int> FileListing::rows(const QString& filter, const FileSortOrder& sortOrder) const {
    const QString wanted = folded(filter.trimmed());
    std::vector<int> rows;
    rows.reserve(items_.size());
    const bool isByName = sortOrder == FileSortOrder{{FileField::name, false}};
    for (int n = 0; n < size(); ++n) {
        const int index = isByName ? byName_[static_cast<std::size_t>(n)] : n;
        if (wanted.isEmpty() || foldedName(index).contains(wanted))
            rows.push_back(index);
    }
    const auto isFolder = [this](int index) {
        return keys_[static_cast<std::size_t>(index)].isFolder;
    };
    if (isByName) {
        std::stable_partition(rows.begin(), rows.end(), isFolder);
        return rows;
    }
    std::vector<FileCategory> categories; // worked out for who asks: most never do
    if (std::ranges::any_of(sortOrder,
                            [](const FileComparator& by) { return by.field == FileField::kind; }))
        std::ranges::transform(items_, std::back_inserter(categories), &FileItem::category);
    std::stable_sort(rows.begin(), rows.end(), [&](int left, int right) {
        if (isFolder(left) != isFolder(right))
            return isFolder(left);
        for (const FileComparator& comparator : sortOrder)
            if (const int result = compare(left, right, comparator.field, categories))
                return comparator.descending ? result > 0 : result < 0;
        return compare(left, right, FileField::name, categories) < 0;
    });
    return rows;
}

} // namespace tessary
