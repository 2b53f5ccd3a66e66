#include "browser/listing/FileListing.h"

#include "base/text/NameOrder.h"

#include <QStringMatcher>

#include <algorithm>
#include <atomic>
#include <functional>
#include <future>
#include <iterator>
#include <numeric>
#include <optional>
#include <ranges>
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

/// Does `work` on each part of `count` things, from the first to before the last, with threads of
/// their own where there are enough to be worth one. Returns where the parts begin, and `count`.
std::vector<std::size_t>
inParts(std::size_t count, const std::function<void(std::size_t begin, std::size_t end)>& work) {
    constexpr std::size_t worthAThread = 5'000;
    const std::size_t parts = std::clamp<std::size_t>(
        count / worthAThread, 1, std::max(std::thread::hardware_concurrency(), 1U));
    std::vector<std::size_t> bounds;
    for (std::size_t part = 0; part <= parts; ++part)
        bounds.push_back(count * part / parts);
    std::vector<std::future<void>> others;
    for (std::size_t part = 1; part < parts; ++part)
        others.push_back(std::async(std::launch::async, work, bounds[part], bounds[part + 1]));
    work(bounds[0], bounds[1]);
    for (auto& other : others)
        other.get();
    return bounds;
}

/// Puts rows in the order of a value that each has at its index, and leaves those of the same value
/// as they are. The values go along: to look each up where it lies costs more than all comparing.
void orderBy(const std::vector<qint64>& values, bool descending, std::vector<int>& rows) {
    struct Row {
        qint64 value;
        int index;
    };
    std::vector<Row> sorted(rows.size());
    const auto isBefore = [descending](const Row& left, const Row& right) {
        return descending ? left.value > right.value : left.value < right.value;
    };
    std::ranges::transform(rows, sorted.begin(), [&](int index) {
        return Row{values[static_cast<std::size_t>(index)], index};
    });
    std::ranges::stable_sort(sorted, isBefore);
    std::ranges::transform(sorted, rows.begin(), &Row::index);
}

/// Tells the day here of moments, as QDate counts days. The system is asked twice for each day and
/// not for each moment, which would take longer than all the rest.
class DaysHere {
public:
    [[nodiscard]] qint64 of(const QDateTime& moment) {
        if (moment.timeSpec() == Qt::LocalTime)
            return moment.date().toJulianDay();
        constexpr qint64 dayLength = 24 * 3600 * 1000; // ms
        const qint64 at = moment.toMSecsSinceEpoch();
        const qint64 begin = at - (at % dayLength + dayLength) % dayLength;
        auto known = known_.constFind(begin);
        if (known == known_.constEnd()) {
            const QDate day = QDateTime::fromMSecsSinceEpoch(begin).date();
            known = known_.insert(
                begin, {day.toJulianDay(), day.addDays(1).startOfDay().toMSecsSinceEpoch()});
        }
        return known->day + (at < known->nextBegins ? 0 : 1);
    }

private:
    struct Day {
        qint64 day;
        qint64 nextBegins; ///< ms since the epoch
    };
    QHash<qint64, Day> known_; ///< the day here at the beginning of one of UTC
};

} // namespace

std::shared_ptr<const FileListing> FileListing::make(std::vector<FileItem> items,
                                                     const QLocale& locale) {
    return std::shared_ptr<const FileListing>(new FileListing(std::move(items), locale));
}

FileListing::FileListing(std::vector<FileItem> items, const QLocale& locale)
    : items_(std::move(items)), locale_(locale) {
    giveIds();
    orderNames();
    findDays();
    for (int index = 0; index < size(); ++index)
        hiddenCount_ += isHidden(index) ? 1 : 0;
}

void FileListing::giveIds() {
    keys_.reserve(items_.size());
    isFolder_.reserve(items_.size());
    indexes_.reserve(static_cast<qsizetype>(items_.size()));
    QHash<QString, int> twins; // how many more share an id
    for (std::size_t from = 0; from < items_.size(); ++from) {
        FileItem& item = items_[from];
        QString id = item.id();
        int* index = &indexes_[id];
        if (static_cast<std::size_t>(indexes_.size()) == keys_.size()) { // it was there already
            if (items_[static_cast<std::size_t>(*index)] == item)
                continue;
            // A phone can hold two objects of one name in a folder.
            const QString shared = id;
            while (indexes_.contains(id))
                id = shared + QChar::Null + QString::number(++twins[shared]);
            item = FileItem(item.name, item.path, item.isDirectory, item.size, item.modifiedDate,
                            item.handle, id);
            index = &indexes_[id];
        }
        *index = static_cast<int>(keys_.size());
        isFolder_.push_back(item.isDirectory);
        if (from != keys_.size())
            items_[keys_.size()] = std::move(item);
        keys_.push_back({std::move(id), {}});
    }
    items_.resize(keys_.size());
}

/// Orders the names once, so that every later sort compares numbers. That is most of what a folder
/// costs.
void FileListing::orderNames() {
    std::vector<std::optional<QCollatorSortKey>> sortKeys(items_.size());
    const auto isBefore = [&](int left, int right) {
        const auto l = static_cast<std::size_t>(left);
        const auto r = static_cast<std::size_t>(right);
        const int byRules = sortKeys[l]->compare(*sortKeys[r]);
        return byRules != 0 ? byRules < 0 : items_[l].name < items_[r].name;
    };
    byName_.resize(items_.size());
    std::iota(byName_.begin(), byName_.end(), 0);
    const auto nameAt = [&](std::size_t n) {
        return byName_.begin() + static_cast<std::ptrdiff_t>(n);
    };
    const std::vector<std::size_t> bounds =
        inParts(items_.size(), [&](std::size_t begin, std::size_t end) {
            const QCollator collator = nameCollator(locale_); // is for one thread
            for (std::size_t i = begin; i < end; ++i)
                sortKeys[i] = collator.sortKey(items_[i].name);
            std::stable_sort(nameAt(begin), nameAt(end), isBefore);
            for (std::size_t i = begin; i < end; ++i)
                keys_[i].foldedName = folded(items_[i].name);
        });
    for (std::size_t part = 2; part < bounds.size(); ++part)
        std::inplace_merge(nameAt(0), nameAt(bounds[part - 1]), nameAt(bounds[part]), isBefore);
}

void FileListing::findDays() {
    days_.assign(items_.size(), noDay);
    std::atomic<int> files = 0;
    std::atomic<int> pictures = 0;
    inParts(items_.size(), [&](std::size_t begin, std::size_t end) {
        DaysHere days;
        int filesHere = 0;
        int picturesHere = 0;
        for (std::size_t i = begin; i < end; ++i) {
            if (isFolder_[i])
                continue;
            const FileItem& item = items_[i];
            if (item.modifiedDate && item.modifiedDate->isValid())
                days_[i] = days.of(*item.modifiedDate);
            const FileCategory category = item.category();
            ++filesHere;
            if (category == FileCategory::image || category == FileCategory::video)
                ++picturesHere;
        }
        files += filesHere;
        pictures += picturesHere;
    });
    std::vector<qint64> days = days_;
    std::erase(days, noDay);
    std::ranges::sort(days);
    const auto differing = std::ranges::unique(days).begin() - days.begin();
    constexpr int leastOfADay = 2; // on average
    isAlbum_ = 2 * pictures > files && pictures >= leastOfADay * differing;
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

std::vector<qint64> FileListing::valuesOf(FileField field) const {
    std::vector<qint64> values(items_.size());
    switch (field) {
    case FileField::size:
        std::ranges::transform(items_, values.begin(), &FileItem::size);
        break;
    case FileField::modified:
        std::ranges::transform(items_, values.begin(), [](const FileItem& item) {
            return item.modifiedDateOrEpoch().toMSecsSinceEpoch();
        });
        break;
    case FileField::kind:
        std::ranges::transform(items_, values.begin(), [](const FileItem& item) {
            return static_cast<qint64>(item.category());
        });
        break;
    case FileField::name:
        qint64 rank = 0;
        for (std::size_t i = 0; i < byName_.size(); ++i) {
            if (i > 0 && item(byName_[i - 1]).name != item(byName_[i]).name)
                ++rank;
            values[static_cast<std::size_t>(byName_[i])] = rank;
        }
    }
    return values;
}

std::vector<int> FileListing::ordered(const RowOrder& order) const {
    std::vector<int> rows = byName_;
    FileSortOrder comparators = order.columns;
    if (!comparators.empty() && comparators.back() == FileComparator{FileField::name, false})
        comparators.pop_back(); // they are in that order already
    for (const auto& [field, descending] : comparators | std::views::reverse)
        orderBy(valuesOf(field), descending, rows);
    if (order.byDay)
        orderBy(days_, order.columns != FileSortOrder{{FileField::modified, false}}, rows);
    std::ranges::stable_partition(rows, [this](int index) { return isFolder(index); });
    return rows;
}

std::vector<int> FileListing::chosen(const std::vector<int>& from, const RowFilter& filter) const {
    const QStringMatcher wanted(folded(filter.text.trimmed()));
    const bool withAllHidden = filter.withHidden || hiddenCount_ == 0;
    if (withAllHidden && wanted.pattern().isEmpty())
        return from;
    std::vector<int> rows;
    rows.reserve(from.size());
    std::ranges::copy_if(from, std::back_inserter(rows), [&](int index) {
        return (withAllHidden || !isHidden(index)) && wanted.indexIn(foldedName(index)) >= 0;
    });
    return rows;
}

} // namespace tessary
