#include "files/BrowserHistory.h"
#include "files/BrowserSelection.h"
#include "files/FileRows.h"
#include "files/MainLoop.h"
#include "files/Typeahead.h"

#include <QRandomGenerator>

#include <gmock/gmock.h>

namespace tessary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

FileItem file(const QString& name, qint64 size = 1, int day = 1) {
    return {name, QStringLiteral("/") + name, false, size,
            QDateTime(QDate(2024, 1, day), QTime(12, 0), Qt::UTC)};
}

FileItem folder(const QString& name) {
    return {name, QStringLiteral("/") + name, true, 0, std::nullopt};
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
            ++removals;
            check();
        });
        QObject::connect(&rows, &FileRows::inserted, [this](int first, int last) {
            for (int row = first; row <= last; ++row)
                ids_.insert(ids_.begin() + row, rows_.id(row));
            ++insertions;
            check();
        });
        QObject::connect(&rows, &FileRows::reordered, [this](const QList<int>& newRows) {
            std::vector<QString> moved(ids_.size());
            for (std::size_t old = 0; old < ids_.size(); ++old)
                moved.at(static_cast<std::size_t>(newRows.at(static_cast<int>(old)))) = ids_[old];
            ids_ = moved;
            ++reorders;
            check();
        });
        QObject::connect(&rows, &FileRows::changed,
                         [this](int first, int last) { changedRows += last - first + 1; });
    }
    void check() const {
        EXPECT_EQ(ids_, current());
    }

    int resets = 0;
    int removals = 0;
    int insertions = 0;
    int reorders = 0;
    int changedRows = 0;

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

TEST_F(FileBrowserRowsTest, foldersComeFirstAndNumbersCountAsNumbers) {
    show({file(QStringLiteral("img10.jpg")), file(QStringLiteral("IMG2.jpg")),
          file(QStringLiteral("img1.jpg")), folder(QStringLiteral("zoo")),
          file(QStringLiteral("Äpfel")), file(QStringLiteral("Birne")),
          folder(QStringLiteral("Alpha"))});
    EXPECT_THAT(namesOf(rows_),
                ElementsAre(QStringLiteral("Alpha"), QStringLiteral("zoo"), QStringLiteral("Äpfel"),
                            QStringLiteral("Birne"), QStringLiteral("img1.jpg"),
                            QStringLiteral("IMG2.jpg"), QStringLiteral("img10.jpg")));
    rows_.setSortOrder({{FileField::name, true}});
    EXPECT_EQ(namesOf(rows_).first(), QStringLiteral("zoo")) << "folders stay in front";
    EXPECT_EQ(namesOf(rows_).last(), QStringLiteral("Äpfel"));
}

TEST_F(FileBrowserRowsTest, everyFieldSortsBothWaysAndTiesGoByName) {
    show({file(QStringLiteral("b.txt"), 5, 3), file(QStringLiteral("a.mp3"), 5, 2),
          file(QStringLiteral("c.jpg"), 9, 1)});
    struct Row {
        const char* name;
        FileSortOrder order;
        const char* names;
    };
    const Row table[] = {
        {"size", {{FileField::size, false}}, "a.mp3 b.txt c.jpg"},
        {"size down", {{FileField::size, true}}, "c.jpg a.mp3 b.txt"},
        {"date", {{FileField::modified, false}}, "c.jpg a.mp3 b.txt"},
        {"date down", {{FileField::modified, true}}, "b.txt a.mp3 c.jpg"},
        {"kind", {{FileField::kind, false}}, "c.jpg a.mp3 b.txt"},
        {"kind down", {{FileField::kind, true}}, "b.txt a.mp3 c.jpg"},
        {"size, then date down",
         {{FileField::size, false}, {FileField::modified, true}},
         "b.txt a.mp3 c.jpg"},
        {"nothing", {}, "a.mp3 b.txt c.jpg"},
    };
    for (const Row& row : table) {
        rows_.setSortOrder(row.order);
        EXPECT_EQ(namesOf(rows_).join(QLatin1Char(' ')), QString::fromLatin1(row.names))
            << row.name;
    }
}

TEST_F(FileBrowserRowsTest, filterIgnoresCaseAsTheLanguageDoes) {
    struct Row {
        const char* locale;
        const char* name;
        const char* filter;
        bool isShown;
    };
    const Row table[] = {
        {"en", "Holiday.JPG", "  day.j\n", true},
        {"en", "Holiday.JPG", "dayj", false},
        {"tr", "DIŞ", "dış", true},
        {"tr", "DIS", "dis", false},
        {"en", "DIS", "dis", true},
        {"el", "ΟΔΟΣ", "οδοσ", true},
        {"en", "Cafe\u0301", "CAFÉ", true}, // decomposed on the phone
        {"ar", "صورة 2024", "صورة", true},
        {"en", "a*b", "*", true},
        {"en", "ab", ".", false},
    };
    for (const Row& row : table) {
        const auto listing = listingOf({file(QString::fromUtf8(row.name))},
                                       QLocale(QString::fromLatin1(row.locale)));
        EXPECT_EQ(listing->rows(QString::fromUtf8(row.filter), {}).size(), row.isShown ? 1U : 0U)
            << row.name << " by " << row.filter;
    }
}

TEST_F(FileBrowserRowsTest, filterThatFitsNothingLeavesTheListing) {
    show({file(QStringLiteral("a")), file(QStringLiteral("b"))});
    Follower follower(rows_);
    rows_.setFilter(QStringLiteral("zzz"));
    EXPECT_EQ(rows_.count(), 0);
    EXPECT_EQ(rows_.listing().size(), 2);
    rows_.setFilter(QStringLiteral("  "));
    EXPECT_EQ(rows_.count(), 2);
    follower.check();
}

TEST_F(FileBrowserRowsTest, entriesThatShareAPathStayApart) {
    FileItem one = file(QStringLiteral("same"));
    FileItem other = one;
    one.handle = 1;
    other.handle = 2;
    show({one, one, other});
    ASSERT_EQ(rows_.count(), 2) << "the one that came twice is shown once";
    EXPECT_NE(rows_.id(0), rows_.id(1));
    EXPECT_EQ(rows_.item(1).id(), rows_.id(1));
    EXPECT_NE(rows_.item(0).handle, rows_.item(1).handle);
}

TEST_F(FileBrowserRowsTest, reloadThatChangesLittleAnnouncesLittle) {
    std::vector<FileItem> items;
    for (int i = 0; i < 1000; ++i)
        items.push_back(file(QStringLiteral("f%1").arg(i)));
    show(items);
    Follower follower(rows_);
    items.erase(items.begin() + 5, items.begin() + 8);
    items[20] = file(items[20].name, 77);
    items.push_back(file(QStringLiteral("f500b")));
    items.push_back(file(QStringLiteral("zz1")));
    items.push_back(file(QStringLiteral("zz2")));
    rows_.update(listingOf(items));
    EXPECT_EQ(follower.resets, 0);
    EXPECT_EQ(follower.removals, 1);
    EXPECT_EQ(follower.insertions, 2);
    EXPECT_EQ(follower.reorders, 0);
    EXPECT_EQ(follower.changedRows, 1);
    follower.check();

    rows_.update(listingOf(items));
    EXPECT_EQ(follower.removals + follower.insertions + follower.reorders + follower.changedRows, 4)
        << "nothing changed, nothing is announced";
}

TEST_F(FileBrowserRowsTest, anyTwoListingsAreBridgedStepByStep) {
    QRandomGenerator random(7);
    Follower follower(rows_);
    for (int round = 0; round < 300; ++round) {
        std::vector<FileItem> items;
        for (int i = 0; i < 40; ++i)
            if (random.bounded(3) > 0)
                items.push_back(random.bounded(4) == 0
                                    ? folder(QStringLiteral("n%1").arg(i))
                                    : file(QStringLiteral("n%1").arg(i), random.bounded(5)));
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
    EXPECT_GT(follower.insertions, 100);
    EXPECT_GT(follower.removals, 100);
    EXPECT_GT(follower.reorders, 20);
    EXPECT_EQ(follower.resets, 0);
}

TEST_F(FileBrowserRowsTest, changeOfMostRowsIsOneReset) {
    std::vector<FileItem> items;
    for (int i = 0; i < 5000; ++i)
        items.push_back(file(QStringLiteral("f%1").arg(i)));
    show(items);
    Follower follower(rows_);
    rows_.setFilter(QStringLiteral("7"));
    EXPECT_EQ(follower.resets, 1);
    EXPECT_EQ(follower.removals, 0);
    follower.check();
}

class SelectionTest : public FileBrowserRowsTest {
protected:
    SelectionTest() {
        show({file(QStringLiteral("a")), file(QStringLiteral("b")), file(QStringLiteral("c")),
              file(QStringLiteral("d")), file(QStringLiteral("e"))});
    }
    void click(int row, SelectionChange how = SelectionChange::replace) {
        selection_.select(rows_, row, how);
    }
    /// The selected rows as letters.
    [[nodiscard]] std::string selected() const {
        std::string letters;
        for (int row = 0; row < rows_.count(); ++row)
            if (selection_.ids().contains(rows_.id(row)))
                letters += rows_.item(row).name.toStdString();
        return letters;
    }
    BrowserSelection selection_;
};

TEST_F(SelectionTest, shiftClickSelectsFromTheAnchorAndShrinksAgain) {
    click(1);
    click(3, SelectionChange::extend);
    EXPECT_EQ(selected(), "bcd");
    click(2, SelectionChange::extend);
    EXPECT_EQ(selected(), "bc");
    click(0, SelectionChange::extend);
    EXPECT_EQ(selected(), "ab");
    EXPECT_EQ(selection_.anchor(), rows_.id(1));
    EXPECT_EQ(selection_.current(), rows_.id(0));
    click(4);
    EXPECT_EQ(selected(), "e");
}

TEST_F(SelectionTest, commandClickTogglesAndSetsTheAnchor) {
    click(0);
    click(2, SelectionChange::toggle);
    EXPECT_EQ(selected(), "ac");
    click(4, SelectionChange::extend);
    EXPECT_EQ(selected(), "acde") << "what was toggled before stays";
    click(3, SelectionChange::toggle);
    EXPECT_EQ(selected(), "ace");
    EXPECT_EQ(selection_.anchor(), rows_.id(3));
}

TEST_F(SelectionTest, extensionWithoutAnAnchorIsAPlainClick) {
    click(2, SelectionChange::extend);
    EXPECT_EQ(selected(), "c");
}

TEST_F(SelectionTest, keysMoveAndExtendWithinTheRows) {
    selection_.move(rows_, 1, false);
    EXPECT_EQ(selected(), "a") << "without a current entry the first";
    selection_.move(rows_, -1, false);
    EXPECT_EQ(selected(), "a");
    selection_.move(rows_, 1, true);
    selection_.move(rows_, 1, true);
    EXPECT_EQ(selected(), "abc");
    selection_.move(rows_, -1, true);
    EXPECT_EQ(selected(), "ab");
    selection_.move(rows_, 1000, false);
    EXPECT_EQ(selected(), "e");
    selection_.clear();
    selection_.move(rows_, -1, false);
    EXPECT_EQ(selected(), "e") << "going back starts at the end";
}

TEST_F(SelectionTest, whatIsFilteredOutIsNotSelected) {
    selection_.selectAll(rows_);
    EXPECT_EQ(selected(), "abcde");
    rows_.setFilter(QStringLiteral("b"));
    selection_.prune(rows_);
    EXPECT_EQ(selection_.ids().size(), 1);
    rows_.setFilter({});
    EXPECT_EQ(selected(), "b");
    selection_.set(rows_, {rows_.id(0), QStringLiteral("/nowhere")}, rows_.id(0));
    EXPECT_EQ(selected(), "a");
}

class TypeaheadTest : public FileBrowserRowsTest {
protected:
    TypeaheadTest() {
        show({file(QStringLiteral("Alpha")), file(QStringLiteral("bar")),
              file(QStringLiteral("Baz")), file(QStringLiteral("foo")), file(QStringLiteral("öl")),
              file(QStringLiteral("😀a")), file(QStringLiteral("😀b"))});
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

TEST_F(TypeaheadTest, lettersWithinThePauseMakeOneWord) {
    EXPECT_EQ(type("b"), "bar");
    EXPECT_EQ(type("A"), "bar");
    EXPECT_EQ(type("z", 800ms), "Baz") << "exactly the pause still counts";
    EXPECT_EQ(type("f", 801ms), "foo");
}

TEST_F(TypeaheadTest, sameLetterGoesRound) {
    EXPECT_EQ(type("b"), "bar");
    EXPECT_EQ(type("b"), "Baz");
    EXPECT_EQ(type("b"), "bar");
    EXPECT_EQ(type("b", 2s), "bar") << "a pause starts with the first again";
}

TEST_F(TypeaheadTest, lettersThatFitNothingStartAnew) {
    EXPECT_EQ(type("b"), "bar");
    EXPECT_EQ(type("f"), "foo");
    EXPECT_EQ(typeahead_.buffer(), QStringLiteral("f"));
    EXPECT_EQ(type("x"), "none");
    EXPECT_EQ(type("Ö"), "öl");
}

TEST_F(TypeaheadTest, letterOutsideTheBasicPlaneIsOneLetter) {
    EXPECT_EQ(type("😀"), "😀a");
    EXPECT_EQ(type("😀"), "😀b");
}

TEST_F(TypeaheadTest, emptyFolderSelectsNothing) {
    show({});
    EXPECT_EQ(type("a"), "none");
    EXPECT_EQ(type("a"), "none");
}

TEST(BrowserHistory, newFolderDropsWhatLayAhead) {
    BrowserHistory history;
    EXPECT_FALSE(history.canGoBack());
    EXPECT_FALSE(history.canGoForward());
    for (const char* path : {"/a", "/b", "/c"})
        history.record(QString::fromLatin1(path));
    EXPECT_EQ(history.back(), QStringLiteral("/b"));
    EXPECT_TRUE(history.canGoForward());
    EXPECT_EQ(history.forward(), QStringLiteral("/c"));
    EXPECT_EQ(history.back(), QStringLiteral("/b"));
    history.record(QStringLiteral("/d"));
    EXPECT_FALSE(history.canGoForward());
    EXPECT_EQ(history.index(), 2);
    EXPECT_THAT(history.paths(),
                ElementsAre(QStringLiteral("/a"), QStringLiteral("/b"), QStringLiteral("/d")));
}

} // namespace
} // namespace tessary
