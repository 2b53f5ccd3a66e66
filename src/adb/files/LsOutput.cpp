#include "adb/files/LsOutput.h"

#include "phone/DevicePath.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>

namespace tessary {

namespace {

using View = QByteArrayView;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// A piece of a line between blanks.
struct Piece {
    qsizetype begin = 0;
    qsizetype end = 0;
};

/// The pieces of a line that can belong to the columns before a name. Links, owner, group, two
/// numbers of a device, date of three pieces and zone make at most eleven.
struct Pieces {
    static constexpr std::size_t most = 12;

    explicit Pieces(View text) : line(text) {
        qsizetype at = 0;
        while (count < most) {
            while (at < line.size() && isBlank(line[at]))
                ++at;
            if (at == line.size())
                break;
            Piece& piece = pieces[count++];
            piece.begin = at;
            while (at < line.size() && !isBlank(line[at]))
                ++at;
            piece.end = at;
        }
    }
    [[nodiscard]] View operator[](std::size_t n) const {
        return n < count ? line.sliced(pieces[n].begin, pieces[n].end - pieces[n].begin) : View();
    }

    View line;
    std::array<Piece, most> pieces{};
    std::size_t count = 0;
};

/// The number that all of a text stands for; -1 for anything else.
qint64 number(View text) {
    constexpr qsizetype mostDigits = 18;
    if (text.isEmpty() || text.size() > mostDigits)
        return -1;
    qint64 value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

int small(View text) {
    constexpr qint64 limit = 99'999;
    const qint64 value = number(text);
    return value < 0 || value > limit ? -1 : static_cast<int>(value);
}

/// "yyyy-MM-dd"
std::optional<QDate> isoDate(View text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const QDate date(small(text.first(4)), small(text.sliced(5, 2)), small(text.sliced(8, 2)));
    return date.isValid() ? std::optional(date) : std::nullopt;
}

/// "HH:mm" or "HH:mm:ss", with a fraction or without.
std::optional<QTime> clockTime(View text) {
    const qsizetype dot = text.indexOf('.');
    const View whole = dot < 0 ? text : text.first(dot);
    const bool hasSeconds = whole.size() == 8;
    if ((whole.size() != 5 && !hasSeconds) || whole[2] != ':' || (hasSeconds && whole[5] != ':'))
        return std::nullopt;
    const QTime time(small(whole.first(2)), small(whole.sliced(3, 2)),
                     hasSeconds ? small(whole.sliced(6, 2)) : 0);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

int monthNumber(View text) {
    constexpr std::array<const char*, 12> names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (std::size_t n = 0; n < names.size(); ++n)
        if (text == View(names[n]))
            return static_cast<int>(n) + 1;
    return 0;
}

bool isZone(View text) {
    return text.size() == 5 && (text[0] == '+' || text[0] == '-') && number(text.sliced(1)) >= 0;
}

/// The columns of a date: where they begin and end among the pieces.
struct DateColumns {
    std::size_t first = 0;
    std::size_t last = 0;
    std::optional<QDateTime> date;
};

/// A listing with month and day leaves the year out for what is not long ago.
QDateTime withYear(int month, int day, const QTime& time) {
    const QDateTime now = QDateTime::currentDateTime();
    QDateTime date(QDate(now.date().year(), month, day), time);
    if (!date.isValid() || date > now.addDays(1))
        date = QDateTime(QDate(now.date().year() - 1, month, day), time);
    return date;
}

std::optional<DateColumns> dateAt(const Pieces& pieces, std::size_t n) {
    if (const auto date = isoDate(pieces[n])) {
        const auto time = clockTime(pieces[n + 1]);
        if (!time)
            return std::nullopt;
        const bool hasZone = pieces[n + 1].contains('.') && isZone(pieces[n + 2]);
        return DateColumns{n, hasZone ? n + 2 : n + 1, QDateTime(*date, *time)};
    }
    const int month = monthNumber(pieces[n]);
    const int day = small(pieces[n + 1]);
    if (month == 0 || day < 1 || day > 31)
        return std::nullopt;
    if (const auto time = clockTime(pieces[n + 2]))
        return DateColumns{n, n + 2, withYear(month, day, *time)};
    const int year = pieces[n + 2].size() == 4 ? small(pieces[n + 2]) : -1;
    const QDate date(year, month, day);
    if (year < 0 || !date.isValid())
        return std::nullopt;
    return DateColumns{n, n + 2, date.startOfDay()};
}

/// Finds the date, or else the first piece with a colon, which stands for the time.
std::optional<DateColumns> findDate(const Pieces& pieces) {
    for (std::size_t n = 2; n + 1 < pieces.count; ++n)
        if (auto found = dateAt(pieces, n))
            return found;
    for (std::size_t n = 2; n < pieces.count; ++n) {
        if (!pieces[n].contains(':'))
            continue;
        const auto date = isoDate(pieces[n - 1]);
        return DateColumns{n - 1, n, date ? std::optional(date->startOfDay()) : std::nullopt};
    }
    return std::nullopt;
}

bool isPermissions(View text) {
    constexpr View types("-dlcbps");
    constexpr View letters("rwxsStT-?");
    constexpr qsizetype shortest = 10;
    // A dot or a plus sign behind them tells of more rules.
    return text.size() >= shortest && text.size() <= shortest + 1 && types.contains(text[0]) &&
           std::all_of(text.begin() + 1, text.begin() + shortest,
                       [&](char c) { return letters.contains(c); });
}

/// `-????????? ? ? ? ?            ? name`: nothing but the name is known.
std::optional<LsEntry> unreadableEntry(const Pieces& pieces) {
    constexpr std::size_t columns = 6;
    if (pieces.count <= columns || !pieces[0].contains('?'))
        return std::nullopt;
    for (std::size_t n = 1; n < columns; ++n)
        if (pieces[n] != View("?"))
            return std::nullopt;
    const View name = pieces.line.sliced(pieces.pieces[columns - 1].end + 1);
    return LsEntry{QString::fromUtf8(name), pieces[0][0], 0, std::nullopt, false};
}

/// A link's own size is the length of its target, which tells the arrow from one in the name.
View withoutTarget(View name, qint64 size) {
    constexpr View arrow(" -> ");
    const qsizetype bySize = name.size() - size - arrow.size();
    if (size > 0 && bySize > 0 && name.sliced(bySize).startsWith(arrow))
        return name.first(bySize);
    const qsizetype first = name.indexOf(arrow);
    return first > 0 ? name.first(first) : name;
}

FileItem itemOf(LsEntry&& entry, const QString& parentPath) {
    const bool isFolder = entry.type == 'd' || entry.type == 'l';
    QString path = joinPath(parentPath, entry.name);
    return {std::move(entry.name), std::move(path), isFolder, isFolder ? 0 : entry.size,
            std::move(entry.modified)};
}

bool isDots(const QString& name) {
    return name == QLatin1StringView(".") || name == QLatin1StringView("..");
}

std::optional<LsEntry> lsEntry(View line) {
    const Pieces pieces(line);
    if (pieces.count < 2 || pieces.pieces[0].begin != 0 || !isPermissions(pieces[0]))
        return std::nullopt;
    if (auto unreadable = unreadableEntry(pieces))
        return unreadable;
    const auto date = findDate(pieces);
    if (!date)
        return std::nullopt;
    const qsizetype nameStart = pieces.pieces[date->last].end + 1;
    if (nameStart >= line.size())
        return std::nullopt;
    LsEntry entry;
    entry.type = pieces[0][0];
    entry.modified = date->date;
    const bool isDevice = entry.type == 'c' || entry.type == 'b'; // "major, minor" for a size
    const qint64 size = isDevice ? 0 : number(pieces[date->first - 1]);
    View name = line.sliced(nameStart);
    if (entry.type == 'l')
        name = withoutTarget(name, size);
    entry.name = QString::fromUtf8(name);
    entry.size = entry.type == 'd' ? 0 : std::max<qint64>(size, 0);
    return entry;
}

/// Calls `visit` for each line that is not empty. Carriage returns count as line ends only when
/// every line has one: a name may end with one.
void forEachLine(const QByteArray& output, const std::function<bool(View)>& visit) {
    bool hasReturns = !output.isEmpty();
    const auto scan = [&output](const std::function<bool(View)>& take) {
        for (qsizetype at = 0; at < output.size();) {
            qsizetype end = output.indexOf('\n', at);
            if (end < 0)
                end = output.size();
            if (end > at && !take(View(output).sliced(at, end - at)))
                return;
            at = end + 1;
        }
    };
    scan([&](View line) { return hasReturns = line.endsWith('\r'); });
    scan([&](View line) {
        const View text = hasReturns ? line.chopped(1) : line;
        return text.isEmpty() || visit(text);
    });
}

} // namespace

std::optional<LsEntry> parseLsLine(QByteArrayView line) {
    auto entry = lsEntry(line);
    // No file system has such a name: a path made of it would lead out of the folder.
    const bool isName = entry && !entry->name.isEmpty() && !entry->name.contains(u'/') &&
                        !entry->name.contains(QChar(u'\0'));
    return isName ? std::move(entry) : std::nullopt;
}

std::vector<FileItem> parseLsOutput(const QByteArray& output, const QString& parentPath) {
    std::vector<FileItem> items;
    forEachLine(output, [&](View line) {
        auto entry = line.startsWith("total") ? std::nullopt : parseLsLine(line);
        if (entry && !isDots(entry->name))
            items.push_back(itemOf(*std::move(entry), parentPath));
        return true;
    });
    return items;
}

std::optional<CheckedListing> parseCheckedLsOutput(const QByteArray& output,
                                                   const QString& parentPath,
                                                   QByteArrayView endMarker) {
    CheckedListing listing;
    bool isWhole = true;
    bool hasEnd = false;
    forEachLine(output, [&](View line) {
        if (hasEnd)
            return isWhole = false; // nothing may follow
        if (line == endMarker) {
            hasEnd = true;
            return true;
        }
        if (line.startsWith("total "))
            return true;
        auto entry = parseLsLine(line);
        if (!entry || !entry->isReadable || !entry->modified)
            return isWhole = false;
        if (isDots(entry->name))
            return true;
        const QString path = joinPath(parentPath, entry->name);
        if (entry->type == 'l')
            listing.skipped.push_back({path, QStringLiteral("a link")});
        else if (entry->type != '-' && entry->type != 'd')
            listing.skipped.push_back({path, QStringLiteral("not a regular file")});
        else
            listing.items.push_back(itemOf(*std::move(entry), parentPath));
        return true;
    });
    if (!isWhole || !hasEnd)
        return std::nullopt;
    return listing;
}

} // namespace tessary
