#include "browser/listing/DayGroups.h"
#include "browser/listing/FileRows.h"
#include "browser/selection/Typeahead.h"
#include "support/MainLoop.h"

#include <QRandomGenerator>

#include <gmock/gmock.h>

#include <ctime>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

FileItem file(const QString& name, qint64 size = 1, int day = 1) {
    return {name, u"/"_s + name, false, size,
            QDateTime(QDate(2024, 1, day), QTime(12, 0), Qt::UTC)};
}

FileItem folder(const QString& name) {
    return {name, u"/"_s + name, true, 0, std::nullopt};
}

std::shared_ptr<const FileListing> listingOf(std::vector<FileItem> items,
                                             const QLocale& locale = QLocale::c()) {
    return FileListing::make(std::move(items), locale);
}

QStringList namesOf(const FileRows& rows) {
    QStringList names;
    for (int row = 0; row < rows.count(); ++row)
        names << rows.item(row).name;
    return names;
}

/// Follows the announcements the way a model does: what it ends up with must be what is shown.
class Follower {
public:
    explicit Follower(FileRows& rows) : rows_(rows), ids_(current()) {
        QObject::connect(&rows, &FileRows::wasReset, [this] {
            ids_ = current();
            ++resets;
        });
        QObject::connect(&rows, &FileRows::removed, [this](int first, int last) {
            ids_.erase(ids_.begin() + first, ids_.begin() + last + 1);
            check();
        });
        QObject::connect(&rows, &FileRows::inserted, [this](int first, int last) {
            for (int row = first; row <= last; ++row)
                ids_.insert(ids_.begin() + row, rows_.id(row));
            check();
        });
        QObject::connect(&rows, &FileRows::reordered, [this](const QList<int>& newRows) {
            std::vector<QString> moved(ids_.size());
            for (std::size_t old = 0; old < ids_.size(); ++old)
                moved.at(static_cast<std::size_t>(newRows.at(static_cast<int>(old)))) = ids_[old];
            ids_ = moved;
            check();
        });
    }
    void check() {
        ++checks;
        EXPECT_EQ(ids_, current());
    }

    int resets = 0;
    int checks = 0;

private:
    [[nodiscard]] std::vector<QString> current() const {
        std::vector<QString> ids;
        for (int row = 0; row < rows_.count(); ++row) {
            EXPECT_EQ(rows_.rowOf(rows_.id(row)), row);
            ids.push_back(rows_.id(row));
        }
        return ids;
    }

    FileRows& rows_;
    std::vector<QString> ids_;
};

class FileBrowserRowsTest : public MainLoop {
protected:
    void show(std::vector<FileItem> items) {
        rows_.reset(listingOf(std::move(items)));
    }
    FileRows rows_;
};

TEST_F(FileBrowserRowsTest, everyFieldSortsBothWaysAfterFoldersAndTiesGoByName) {
    show({file(u"b.txt"_s, 5, 3), file(u"a.mp3"_s, 5, 2), file(u"C.jpg"_s, 9, 1), folder(u"zoo"_s),
          file(u"c10"_s, 1, 4), file(u"c9"_s, 1, 4)});
    const std::tuple<const char*, FileSortOrder, const char*> table[] = {
        // name, order, names
        {"nothing", {}, "zoo a.mp3 b.txt C.jpg c9 c10"},
        {"name down", {{FileField::name, true}}, "zoo c10 c9 C.jpg b.txt a.mp3"},
        {"size", {{FileField::size, false}}, "zoo c9 c10 a.mp3 b.txt C.jpg"},
        {"date down", {{FileField::modified, true}}, "zoo c9 c10 b.txt a.mp3 C.jpg"},
        {"size, then date down",
         {{FileField::size, false}, {FileField::modified, true}},
         "zoo c9 c10 b.txt a.mp3 C.jpg"},
    };
    for (const auto& [name, order, names] : table) {
        rows_.setSortOrder(order);
        EXPECT_EQ(namesOf(rows_).join(u' '), QString::fromLatin1(names)) << name;
    }
}

TEST_F(FileBrowserRowsTest, filesOfADayStandTogetherTheLastDayFirst) {
    const auto on = [](const QString& name, int day, int hour) {
        return FileItem(name, u"/"_s + name, false, 10 - hour,
                        QDateTime(QDate(2025, 3, day), QTime(hour, 0)).toUTC());
    };
    FileItem undated(u"x.jpg"_s, u"/x.jpg"_s, false, 1, std::nullopt);
    show({on(u"b.jpg"_s, 1, 0), on(u"c.jpg"_s, 1, 9), on(u"a.jpg"_s, 12, 9), on(u"d.jpg"_s, 1, 5),
          undated, folder(u"zoo"_s)});
    EXPECT_TRUE(rows_.listing().isAlbum());
    rows_.setDayRule([](const FileListing& listing) { return listing.isAlbum(); });
    const std::tuple<const char*, FileSortOrder, const char*> table[] = {
        {"name", {{FileField::name, false}}, "zoo a.jpg b.jpg c.jpg d.jpg x.jpg"},
        {"size", {{FileField::size, false}}, "zoo a.jpg c.jpg d.jpg b.jpg x.jpg"},
        {"date down", {{FileField::modified, true}}, "zoo a.jpg c.jpg d.jpg b.jpg x.jpg"},
        {"date up", {{FileField::modified, false}}, "zoo x.jpg b.jpg d.jpg c.jpg a.jpg"},
    };
    for (const auto& [name, order, names] : table) {
        rows_.setSortOrder(order);
        EXPECT_EQ(namesOf(rows_).join(u' '), QString::fromLatin1(names)) << name;
    }
    rows_.setSortOrder({{FileField::name, false}});
    EXPECT_EQ(dayGroupsOf(rows_),
              (std::vector<DayGroup>{{0, DayGroup::Kind::folders},
                                     {1, DayGroup::Kind::day, QDate(2025, 3, 12)},
                                     {2, DayGroup::Kind::day, QDate(2025, 3, 1)},
                                     {5, DayGroup::Kind::undated}}));
    show({on(u"b.txt"_s, 1, 0), on(u"c.jpg"_s, 1, 9)});
    EXPECT_FALSE(rows_.groupsByDay());
}

TEST_F(FileBrowserRowsTest, daysAreThoseOfThisComputersClock) {
    qputenv("TZ", "Europe/Berlin");
    ::tzset();
    std::vector<FileItem> items;
    const QDateTime start(QDate(2024, 3, 29), QTime(0, 0),
                          Qt::UTC); // two days before the clocks go
    for (int n = 0; n < 400; ++n)
        items.emplace_back(u"%1"_s.arg(n), u"/%1"_s.arg(n), false, 1,
                           start.addSecs((n % 2 == 0 ? n : -n) * 1799LL));
    const auto listing = listingOf(items);
    for (std::size_t n = 0; n < items.size(); ++n)
        EXPECT_EQ(listing->day(static_cast<int>(n)),
                  items[n].modifiedDate->toLocalTime().date().toJulianDay())
            << items[n].modifiedDate->toString(Qt::ISODate).toStdString();
    qunsetenv("TZ");
    ::tzset();
}

TEST_F(FileBrowserRowsTest, longFolderIsOrderedAsAWhole) {
    const int count = 20'011; // a prime; ordered by several threads
    std::vector<FileItem> items;
    for (int n = 0; n < count; ++n) {
        items.push_back(file(u"Img %1"_s.arg(n * 7919LL % count)));
        if (n % 1'000 == 0)
            items.push_back(items.back()); // came twice
    }
    show(std::move(items));
    ASSERT_EQ(rows_.count(), count);
    for (int row = 0; row < count; ++row) {
        ASSERT_EQ(rows_.item(row).name, u"Img %1"_s.arg(row));
        ASSERT_EQ(rows_.rowOf(rows_.item(row).path), row);
    }
    rows_.setFilter(u"g 2001"_s);
    EXPECT_EQ(namesOf(rows_).join(u','), u"Img 2001,Img 20010"_s);
}

TEST_F(FileBrowserRowsTest, filterIgnoresCaseAsTheLanguageDoes) {
    const std::tuple<const char*, const char*, const char*, bool> table[] = {
        // locale, name, filter, isShown
        {"en", "Holiday.JPG", "  day.j\n", true},
        {"tr", "DIŞ", "dış", true},
        {"el", "ΟΔΟΣ", "οδοσ", true},
        {"en", "Cafe\u0301", "CAFÉ", true}, // decomposed on the phone
        {"en", "a*b", "*", true},
        {"en", "ab", ".", false},
    };
    for (const auto& [locale, name, filter, isShown] : table) {
        const auto listing =
            listingOf({file(QString::fromUtf8(name))}, QLocale(QString::fromLatin1(locale)));
        const RowFilter wanted{.text = QString::fromUtf8(filter)};
        EXPECT_EQ(listing->chosen(listing->ordered({}), wanted).size(), isShown ? 1U : 0U)
            << name << " by " << filter;
    }
}

TEST_F(FileBrowserRowsTest, entriesThatShareAPathStayApart) {
    FileItem one = file(u"same"_s);
    FileItem other = one;
    one.handle = 1;
    other.handle = 2;
    show({one, one, other});
    ASSERT_EQ(rows_.count(), 2) << "the one that came twice is shown once";
    EXPECT_NE(rows_.id(0), rows_.id(1));
    EXPECT_EQ(rows_.item(1).id(), rows_.id(1));
    EXPECT_NE(rows_.item(0).handle, rows_.item(1).handle);

    std::vector<FileItem> many(50'000, one); // in time that grows with their number
    for (std::size_t n = 0; n < many.size(); ++n)
        many[n].handle = static_cast<std::uint32_t>(n);
    show(std::move(many));
    EXPECT_EQ(rows_.count(), 50'000);
}

TEST_F(FileBrowserRowsTest, anyTwoListingsAreBridgedStepByStep) {
    QRandomGenerator random(7);
    Follower follower(rows_);
    for (int round = 0; round < 300; ++round) {
        std::vector<FileItem> items;
        for (int i = 0; i < 40; ++i)
            if (random.bounded(3) > 0)
                items.push_back(random.bounded(4) == 0 ? folder(u"n%1"_s.arg(i))
                                                       : file(u"n%1"_s.arg(i), random.bounded(5)));
        std::shuffle(items.begin(), items.end(), random);
        switch (random.bounded(4)) {
        case 0:
            rows_.setSortOrder(
                {{static_cast<FileField>(random.bounded(4)), random.bounded(2) == 0}});
            break;
        case 1:
            rows_.setFilter(random.bounded(2) == 0 ? QString()
                                                   : QString::number(random.bounded(4)));
            break;
        default:
            rows_.update(listingOf(items));
        }
        follower.check();
    }
    EXPECT_GT(follower.checks, 520) << "more than one a round";
    EXPECT_EQ(follower.resets, 0);
}

class TypeaheadTest : public FileBrowserRowsTest {
protected:
    TypeaheadTest() {
        show({file(u"Alpha"_s), file(u"bar"_s), file(u"Baz"_s), file(u"foo"_s), file(u"öl"_s),
              file(u"😀a"_s), file(u"😀b"_s)});
    }
    /// The name that a letter selects, typed `pause` after the one before.
    std::string type(const char* letter, std::chrono::milliseconds pause = 100ms) {
        now_ += pause;
        const int row = typeahead_.type(QString::fromUtf8(letter), rows_, current_);
        if (row >= 0)
            current_ = row;
        return row < 0 ? "none" : rows_.item(row).name.toStdString();
    }
    std::chrono::steady_clock::time_point now_{1h};
    int current_ = -1;
    Typeahead typeahead_{[this] { return now_; }};
};

TEST_F(TypeaheadTest, lettersMakeWordsGoRoundOrStartAnew) {
    const std::tuple<const char*, std::chrono::milliseconds, const char*> keys[] = {
        // letter, pause, selected
        // One word; exactly the pause still counts.
        {"b", 2s, "bar"},
        {"A", 100ms, "bar"},
        {"z", 800ms, "Baz"},
        {"f", 801ms, "foo"},
        // The same letter goes round, until a pause.
        {"b", 2s, "bar"},
        {"b", 100ms, "Baz"},
        {"b", 2s, "bar"},
        // What fits nothing starts anew.
        {"x", 100ms, "none"},
        {"Ö", 100ms, "öl"},
        // One letter outside of the basic plane.
        {"😀", 2s, "😀a"},
        {"😀", 100ms, "😀b"},
    };
    for (const auto& [letter, pause, selected] : keys)
        EXPECT_EQ(type(letter, pause), selected) << letter;
    show({});
    EXPECT_EQ(type("a"), "none");
}

} // namespace
} // namespace tessary
