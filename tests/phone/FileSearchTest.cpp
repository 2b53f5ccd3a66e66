#include "phone/FileSearch.h"
#include "phone/PartNames.h"
#include "support/MemoryFileSystem.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

struct Found {
    QStringList paths;
    QStringList unreadable;

    [[nodiscard]] ListingReceiver receiver() {
        return {[this](std::vector<FileItem>&& items) {
                    for (const FileItem& item : items)
                        paths << item.path;
                },
                [this](UnreadableEntry&& entry) { unreadable << entry.path; }};
    }
};

} // namespace

TEST(NamePatternTest, partsAndPatternsMatchNamesWhateverTheirCase) {
    const struct {
        const char* pattern;
        const char* name;
        bool matches;
    } rows[] = {
        {"img", "IMG_0001.JPG", true},   {"*.jpg", "IMG_0001.JPG", true},
        {"*.jpg", "a.jpg.txt", false},   {"img_000?.jpg", "IMG_0001.JPG", true},
        {"img_000?", "IMG_0001", true},  {"[ab].txt", "b.txt", true},
        {"[", "odd[name", true},         {"a.c", "abc", false},
        {"(1)", "Report (1).pdf", true}, {"ÄRGER", "ärger.txt", true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NamePattern(QString::fromUtf8(row.pattern)).matches(QString::fromUtf8(row.name)),
                  row.matches)
            << row.pattern << " in " << row.name;
}

TEST(FileSearchTest, everythingBelowIsFoundAndWhatCannotBeReadIsNamed) {
    MemoryFileSystem files;
    files.addFile(u"/a/trip.jpg"_s, "x");
    files.addFile(u"/a/b/Trip 2/other.txt"_s, "x");
    files.addFile(u"/a/b/Trip 2/trip.txt"_s, "x");
    files.addFile(u"/elsewhere/trip.png"_s, "x");
    files.addFile(u"/a/closed/trip.gif"_s, "x");
    files.addFile(u"/a/"_s + newPartName({}) + u"/trip.jpg"_s, "not whole");
    files.addUnreadable(u"/a/odd"_s, Error(PhoneError::unreadable, {u"/a/odd"_s}));
    files.fail(MemoryRequests::Operation::list, u"/a/closed"_s,
               Error(PhoneError::accessDenied, {u"/a/closed"_s}));
    Found found;
    searchFiles(files, u"/a"_s, NamePattern(u"trip"_s), found.receiver(), {});
    found.paths.sort();
    found.unreadable.sort();
    EXPECT_EQ(found.paths,
              (QStringList{u"/a/b/Trip 2"_s, u"/a/b/Trip 2/trip.txt"_s, u"/a/trip.jpg"_s}));
    EXPECT_EQ(found.unreadable, (QStringList{u"/a/closed"_s, u"/a/odd"_s}));
}
