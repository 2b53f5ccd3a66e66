#include "sync/plan/SyncRenames.h"
#include "support/QtPrinters.h"

#include <QTimeZone>
#include <gmock/gmock.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A tree of files of one byte, from names with blanks between.
SyncTree tree(const char* names) {
    SyncTree made;
    for (const QString& name : QString::fromUtf8(names).split(u' ', Qt::SkipEmptyParts)) {
        made.files[name] = {1, QDateTime::fromSecsSinceEpoch(0, QTimeZone::utc())};
        for (qsizetype n = name.indexOf(u'/'); n > 0; n = name.indexOf(u'/', n + 1))
            made.folders.insert(name.left(n));
    }
    return made;
}

QString keys(const auto& map) {
    QStringList names;
    for (const auto& [name, file] : map)
        names.append(name);
    return names.join(u' ');
}

TEST(SyncRenamesTest, namesThatChangedInCaseFollow) {
    // Names here, there and in the record; the renames, "h:" here and "d:" on the device, of a two-
    // way run.
    struct Row {
        const char* name;
        const char* local;
        const char* device;
        const char* record;
        const char* renames;
    };
    const Row rows[] = {
        {"file here", "a b", "A b", "A b", "d:A>a"},
        {"file there", "A", "a", "A", "h:A>a"},
        {"folder with all in it", "dir/x dir/y", "Dir/x Dir/y", "Dir/x Dir/y", "d:Dir>dir"},
        {"folder and a file in it", "dir/X", "Dir/x", "Dir/x", "d:Dir>dir d:dir/x>dir/X"},
        {"deep", "d/e/f/x", "d/E/f/x", "d/E/f/x", "d:d/E>d/e"},
        {"unicode form", "\xC3\xA9", "e\xCC\x81", "e\xCC\x81", "d:e\xCC\x81>\xC3\xA9"},
        {"never synced", "a", "A", "", ""},
        {"both names are here", "a A", "A", "A", ""},
        {"both names are there", "a", "A a", "A", ""},
        {"renamed on both", "aB", "Ab", "ab", ""},
        {"moved to another folder", "d/a", "A", "A", ""},
        {"in step", "a", "a", "a", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        SyncTree local = tree(row.local);
        SyncTree device = tree(row.device);
        SyncFiles record;
        for (const auto& [path, file] : tree(row.record).files)
            record[path] = {1, file.date, {}, {}};
        const QString before = keys(record);
        const std::vector<SyncRename> renames =
            takeCaseRenames(local, device, record, SyncMode::biDirectional);
        QStringList lines;
        for (const SyncRename& one : renames)
            lines.append((one.onDevice ? u"d:"_s : u"h:"_s) + one.from + u'>' + one.to);
        EXPECT_EQ(lines.join(u' '), QString::fromUtf8(row.renames));
        if (lines.isEmpty())
            continue;
        EXPECT_EQ(keys(local.files), keys(device.files));
        EXPECT_EQ(keys(local.files), keys(record));
        EXPECT_EQ(local.folders, device.folders);
        for (auto one = renames.rbegin(); one != renames.rend(); ++one)
            takeBack(*one, record);
        EXPECT_EQ(keys(record), before) << "when all are refused";
    }
}

TEST(SyncRenamesTest, oneWayModeRenamesAtTheTargetOnly) {
    for (const SyncMode mode : {SyncMode::biDirectional, SyncMode::toPhone, SyncMode::toComputer}) {
        SyncTree local = tree("a B");
        SyncTree device = tree("A b");
        const QDateTime date = device.files.begin()->second.date;
        SyncFiles record{{u"A"_s, {1, date, {}, {}}}, {u"B"_s, {1, date, {}, {}}}};
        const auto renames = takeCaseRenames(local, device, record, mode);
        EXPECT_EQ(renames.size(), mode == SyncMode::biDirectional ? 2U : 1U);
        EXPECT_EQ(renames.front().onDevice, mode != SyncMode::toComputer);
    }
}

} // namespace
} // namespace tessary
