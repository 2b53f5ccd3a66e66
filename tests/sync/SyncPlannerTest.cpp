#include "sync/plan/SyncPlanner.h"
#include "support/QtPrinters.h"
#include "sync/plan/SyncError.h"

#include "phone/PhoneError.h"

#include <QTimeZone>
#include <gmock/gmock.h>

#include <array>
#include <optional>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = SyncPlannedAction::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

const QString path = u"f.txt"_s;

QDateTime at(int seconds) {
    return QDateTime::fromSecsSinceEpoch(1'700'000'000 + seconds, QTimeZone::utc());
}

/// A file of this size and date.
SyncFile file(qint64 size, int seconds) {
    return {size, at(seconds)};
}

/// A recorded one whose content is known.
SyncFileEntry known(qint64 size, int seconds) {
    return {size, at(seconds), {}, {}, true};
}

QString nameOf(const SyncPlannedAction& action) {
    static constexpr std::array names{
        "upload",  "download", "delete source", "delete remote source",
        "in sync", "conflict", "delete local",  "delete remote",
        "leave",   "skip"};
    QString name = QString::fromLatin1(names[static_cast<std::size_t>(action.kind)]);
    return action.deletesSource ? name + u" moving"_s : name;
}

/// Two trees, a record and what to do with them.
struct Setting {
    SyncTree local;
    SyncTree device;
    std::optional<SyncRecord> record;
    SyncMode mode = SyncMode::biDirectional;
    bool deletes = true;
    bool moves = false;
    NameRules deviceNames;
    qint64 filesOnceSynced = 0;
    QDateTime now = at(0);

    /// A record that both sides hold, of a run that began long after its files were made.
    void remember(SyncFiles files) {
        record = SyncRecord{std::move(files), true, 1, at(100'000)};
    }
    [[nodiscard]] SyncPlanner planner() const {
        return SyncPlanner({local, device, record ? &*record : nullptr, mode, deletes, moves,
                            NameRules(), deviceNames, now, filesOnceSynced});
    }
    /// What becomes of the one path.
    [[nodiscard]] QString outcome(bool confirmed, SyncComparison comparison) const {
        SyncPlanner made = planner();
        SyncDecisions decisions;
        if (confirmed)
            decisions.deletions.insert(path);
        const SyncPlan plan = made.plan(decisions, {{path, comparison}});
        return plan.actions.empty() ? u"nothing"_s : nameOf(plan.actions.at(0));
    }
};

enum class Asks { nothing, content, deletion };

/// One path: what either side and the record of the last run have of it, what the user or the
/// content is asked for, and what becomes of it in the modes both ways, to the phone and to the
/// computer; "a/b": a when the contents are equal or the deletion is confirmed, else b.
struct TableRow {
    const char* name;
    std::optional<SyncFile> local;
    std::optional<SyncFile> device;
    std::optional<SyncFileEntry> record;
    Asks asks; ///< for a deletion in two-way mode alone
    const char* outcomes;
};

TEST(SyncPlannerTest, decisionTable) {
    const auto none = std::nullopt;
    using enum Asks;
    const SyncFileEntry r{5, at(100), at(900), {}, true};
    const SyncFileEntry seen{5, at(100), at(900), {}, false}; // its content never was
    const SyncFileEntry differed{5, at(100), at(900), at(200), true};
    const SyncFile same = file(5, 100);  // as recorded, on this computer
    const SyncFile there = file(5, 900); // on the device
    const SyncFile undated{5, at(900), false};
    const char* const inSync = "in sync, in sync, in sync";
    const char* const conflict = "conflict, conflict, conflict";
    const char* const compared = "in sync/conflict, in sync/conflict, in sync/conflict";
    const char* const toPhone = "upload, upload, nothing";
    const char* const toHere = "download, nothing, download";
    const char* const goneThere = "delete local/upload, upload, nothing";
    const char* const goneHere = "delete remote/download, nothing, download";
    const TableRow rows[] = {
        {"unchanged", same, there, r, nothing, inSync},
        {"local of other size", file(6, 100), there, r, nothing, "upload, upload, leave"},
        {"local touched or edited", file(5, 103), there, r, content,
         "in sync/upload, in sync/upload, in sync/leave"},
        {"edited within the moment", file(5, 101), there, r, content,
         "in sync/upload, in sync/upload, in sync/leave"},
        {"there within the moment", same, file(5, 899), r, content,
         "in sync/download, in sync/leave, in sync/download"},
        {"device of other size", same, file(6, 900), r, nothing, "download, leave, download"},
        {"device touched or edited", same, file(5, 903), r, content,
         "in sync/download, in sync/leave, in sync/download"},
        {"local edited, and that was seen", file(5, 200), there, differed, nothing,
         "upload, upload, leave"},
        {"local of other size, undated there", file(6, 100), undated, r, content, compared},
        {"both changed to one size and date", file(7, 200), file(7, 201), r, content, compared},
        {"both changed to one size", file(5, 200), file(5, 300), r, content, compared},
        {"both changed", file(7, 200), file(8, 200), r, nothing, conflict},
        {"no record, one date", file(5, 1), file(5, 1), none, content, compared},
        {"no record, dates of two seconds", file(5, 1), file(5, 3), none, content, compared},
        {"no record, other sizes", file(5, 1), file(6, 1), none, nothing, conflict},
        {"emptied here", file(0, 300), there, r, nothing, "conflict, conflict, leave"},
        {"emptied there", same, file(0, 999), r, nothing, "conflict, leave, conflict"},
        {"new here", file(5, 1), none, none, nothing, toPhone},
        {"new on the device", none, file(5, 1), none, nothing, toHere},
        {"gone from the device", same, none, r, deletion, goneThere},
        {"gone there, of unseen content", same, none, seen, nothing, toPhone},
        {"gone there, a moment off here", file(5, 102), none, r, deletion, goneThere},
        {"gone there, touched here", file(5, 999), none, r, nothing, toPhone},
        {"gone there, changed here", file(6, 100), none, r, nothing, toPhone},
        {"gone here", none, there, r, deletion, goneHere},
        {"gone here, of unseen content", none, there, seen, nothing, toHere},
        {"gone here, touched there", none, file(5, 990), r, nothing, toHere},
        {"gone here, undated there", none, undated, r, nothing, toHere},
        {"gone here, changed there", none, file(6, 900), r, nothing, toHere},
        {"gone from both", none, none, r, nothing, "nothing, nothing, nothing"},
    };
    for (const TableRow& row : rows) {
        for (const SyncMode mode :
             {SyncMode::biDirectional, SyncMode::toPhone, SyncMode::toComputer}) {
            SCOPED_TRACE(std::string(row.name) + ", " + rawValue(mode).toStdString());
            Setting setting;
            setting.mode = mode;
            if (row.local)
                setting.local.files[path] = *row.local;
            if (row.device)
                setting.device.files[path] = *row.device;
            if (row.record)
                setting.remember({{path, *row.record}});
            const bool isTwoWay = mode == SyncMode::biDirectional;
            EXPECT_EQ(setting.planner().pathsToCompare().size(), row.asks == content ? 1 : 0);
            EXPECT_EQ(setting.planner().deletionCandidates().size(),
                      row.asks == deletion && isTwoWay ? 1U : 0U);
            const QStringList expected = QString::fromLatin1(row.outcomes)
                                             .split(u", "_s)
                                             .at(static_cast<int>(mode))
                                             .split(u'/');
            EXPECT_EQ(setting.outcome(true, SyncComparison::equal), expected.first());
            EXPECT_EQ(setting.outcome(false, SyncComparison::differing), expected.last());
            if (row.asks == content) {
                EXPECT_EQ(setting.outcome(true, SyncComparison::unreadable), u"skip"_s);
            }
            setting.deletes = false;
            EXPECT_EQ(setting.outcome(true, SyncComparison::differing), expected.last());
            EXPECT_THAT(setting.planner().deletionCandidates(), IsEmpty());
            // A record that one side alone holds tells of no deletion.
            setting.deletes = true;
            if (setting.record)
                setting.record->isShared = false;
            EXPECT_EQ(setting.outcome(true, SyncComparison::differing), expected.last());
        }
    }
}

TEST(SyncPlannerTest, userDecidesAConflict) {
    // What each choice comes to in the three modes.
    const std::pair<ConflictChoice, const char*> rows[] = {
        {ConflictChoice::keepBoth, "conflict, conflict, conflict"},
        {ConflictChoice::keepLocal, "upload, upload, skip"},
        {ConflictChoice::keepDevice, "download, skip, download"},
        {ConflictChoice::leave, "skip, skip, skip"},
    };
    for (const auto& [choice, outcomes] : rows)
        for (const SyncMode mode :
             {SyncMode::biDirectional, SyncMode::toPhone, SyncMode::toComputer}) {
            Setting setting;
            setting.mode = mode;
            setting.local.files[path] = file(5, 100);
            setting.device.files[path] = file(6, 100);
            SyncDecisions decisions;
            decisions.conflicts[path] = choice;
            EXPECT_EQ(nameOf(setting.planner().plan(decisions, {}).actions.at(0)),
                      QString::fromLatin1(outcomes).split(u", "_s).at(static_cast<int>(mode)));
        }
}

TEST(SyncPlannerTest, onlyACertainRecordStandsForAComparison) {
    struct Row {
        const char* name;
        SyncFile local;
        SyncFileEntry record;
        bool isShared;
        int startedAt; ///< of the run that wrote the record
        bool compares;
        bool isFresh = false; ///< a mere copy is content with another date
    };
    const Row rows[] = {
        {"known", file(5, 0), known(5, 0), true, 1000, false},
        {"unseen content", file(5, 0), {5, at(0), {}, {}, false}, true, 1000, true},
        {"record of one side", file(5, 0), known(5, 0), false, 1000, true},
        {"made while the run began", file(5, 1004), known(5, 1004), true, 1005, true, true},
        {"made after the run began", file(5, 1005), known(5, 1005), true, 1000, true, true},
        {"dated by the phone", file(5, 0), {5, at(0), at(1005), {}, true}, true, 1000, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Setting setting;
        setting.mode = SyncMode::toPhone;
        setting.moves = true;
        setting.local.files[path] = row.local;
        setting.device.files[path] = {row.record.size, row.record.deviceDate()};
        setting.record = SyncRecord{{{path, row.record}}, row.isShared, 1, at(row.startedAt)};
        EXPECT_EQ(setting.planner().pathsToCompare().size(), row.compares ? 1 : 0);
        EXPECT_EQ(setting.outcome(false, SyncComparison::equal), u"delete source"_s);
        EXPECT_EQ(setting.outcome(false, SyncComparison::differing),
                  row.compares ? u"conflict moving"_s : u"delete source"_s);
        setting.moves = false;
        for (const int now : {1006, 2000}) { // within the second, and long after it
            setting.now = at(now);
            const bool looks = row.isFresh && now == 2000;
            EXPECT_EQ(setting.planner().pathsToCompare().size(), looks ? 1 : 0) << now;
            EXPECT_EQ(setting.planner().plan({}, {}).settlesDates, looks) << now;
        }
    }
}

TEST(SyncPlannerTest, manyFilesThatLookTheSameAreNotReadAtAFirstRun) {
    Setting setting;
    const qint64 half = SyncPlanner::bytesComparedAtFirst / 2;
    for (const QString& name : {u"a"_s, u"b"_s}) {
        setting.local.files[name] = file(half, 7);
        setting.device.files[name] = file(half, 7);
    }
    EXPECT_EQ(setting.planner().pathsToCompare().size(), 2);
    setting.local.files[u"c"_s] = setting.device.files[u"c"_s] = file(1, 7);
    setting.local.files[u"d"_s] = file(1, 7);
    setting.device.files[u"d"_s] = file(1, 8);
    EXPECT_THAT(setting.planner().pathsToCompare(), ElementsAre(u"d"_s));
    for (const SyncPlannedAction& action : setting.planner().plan({}, {}).actions)
        EXPECT_FALSE(action.isContentKnown) << qPrintable(action.relativePath);
    setting.mode = SyncMode::toComputer;
    setting.moves = true;
    EXPECT_EQ(setting.planner().pathsToCompare().size(), 4) << "a move reads what it deletes";
}

TEST(SyncPlannerTest, datesThatProveNothingAndDatesOfAnotherZone) {
    // Dates of files there, in seconds after the recorded one; whether they are compared.
    struct Row {
        const char* name;
        std::vector<int> moved;
        std::chrono::milliseconds step;
        int compared;
    };
    const Row rows[] = {
        {"as they were", {0, 0, 0, 0}, 1s, 0},
        {"cut to the minute", {0, 0, 0, 0}, 1min, 4},
        {"an hour later", {3600, 3600, 3601, 3600}, 1s, 1},
        {"five hours and a half", {19'800, 19'800, 19'800, 19'800}, 1s, 4},
        {"hours back", {-7200, -7200, -7200, -7200}, 1s, 0},
        {"not all", {3600, 3600, 3600, 0}, 1s, 3},
        {"not by the same", {3600, 7200, 3600, 7200}, 1s, 4},
        {"two are no proof", {3600, 3600}, 1s, 2},
        {"one was edited too", {3600, 3600, 3600, 3600, 3600, 3600, 3600, 3600, 3600, 99}, 1s, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Setting setting;
        setting.device.dateStep = row.step;
        SyncFiles files;
        for (std::size_t n = 0; n < row.moved.size(); ++n) {
            const QString name = QString::number(n);
            const int date = 10'000 * static_cast<int>(n);
            files[name] = known(5, date);
            setting.local.files[name] = file(5, date);
            setting.device.files[name] = file(5, date + row.moved[n]);
        }
        setting.remember(std::move(files));
        EXPECT_EQ(setting.planner().pathsToCompare().size(), row.compared);
    }
}

TEST(SyncPlannerTest, whatCannotBeSyncedIsSkippedWithAReason) {
    // Names of files here, there, and what becomes of them; after "!" what could not be read, after
    // "@" what is recorded.
    const std::pair<const char*, const char*> rows[] = {
        {"file against folder", "x y/a | x/deep/b y | x: skip, x/deep/b: skip, y: skip, y/a: skip"},
        {"unreadable in front of files", "a !l | l/x l | a: upload, l: skip, l/x: skip"},
        {"unreadable is not gone", "!d @d/x | d/x | d/x: skip"},
        {"unreadable of an uncertain name", "!? @gone b | gone b new | b: conflict, gone: skip, "
                                            "new: download"},
        {"uncertain name in a folder", "d/a !d/? @d/e/x @y | d/e/x y d/a | d/a: conflict, "
                                       "d/e/x: skip, y: delete remote"},
        {"new in a folder of an uncertain name", "d/new @d/old | !? | d/new: skip, d/old: skip"},
        {"unreadable name is certain", "!x @x @gone | x gone | gone: delete remote, x: skip"},
        {"case", "A.txt b | a.txt | A.txt: skip, a.txt: skip, b: upload"},
        {"case of a folder", "Dir/a | dir/b | Dir/a: skip, dir/b: skip"},
        {"case, and the device keeps both", "A a | A a | A: conflict, a: conflict"},
        {"two of one name for the device", "N/a N/A |  | N/A: skip, N/a: skip"},
        {"unicode form", "\xC3\xA9 | e\xCC\x81 | e\xCC\x81: skip, \xC3\xA9: skip"},
        {"refused name", "bad:/x good |  | bad:/x: skip, good: upload"},
    };
    for (const auto& [name, trees] : rows) {
        SCOPED_TRACE(name);
        const QStringList parts = QString::fromUtf8(trees).split(u" | "_s);
        Setting setting;
        setting.deviceNames.ignoresCase = true;
        setting.deviceNames.ignoresUnicodeForm = true;
        setting.deviceNames.forbidsFATCharacters = true;
        SyncFiles recorded;
        const auto fill = [&recorded](SyncTree& tree, const QString& names) {
            for (const QString& entry : names.split(u' ', Qt::SkipEmptyParts)) {
                if (entry.startsWith(u'!')) {
                    tree.unknown.emplace(entry.mid(1), Error(PhoneError::unreadable, {entry}));
                    continue;
                }
                if (entry.startsWith(u'@')) {
                    recorded[entry.mid(1)] = known(1, 0);
                    continue;
                }
                tree.files[entry] = file(1, 0);
                for (qsizetype n = entry.indexOf(u'/'); n > 0; n = entry.indexOf(u'/', n + 1))
                    tree.folders.insert(entry.left(n));
            }
        };
        fill(setting.local, parts[0]);
        fill(setting.device, parts[1]);
        if (!recorded.empty())
            setting.remember(recorded);
        SyncPlanner made = setting.planner();
        SyncDecisions decisions;
        for (const DeletionCandidate& candidate : made.deletionCandidates())
            decisions.deletions.insert(candidate.relativePath);
        SyncComparisons comparisons;
        for (const QString& each : made.pathsToCompare())
            comparisons[each] = SyncComparison::differing;
        QStringList lines;
        for (const SyncPlannedAction& action : made.plan(decisions, comparisons).actions) {
            lines.append(action.relativePath + u": "_s + nameOf(action));
            EXPECT_EQ(action.reason == nullptr, action.kind != Kind::skip);
        }
        EXPECT_EQ(lines.join(u", "_s), parts[2]);
    }
}

TEST(SyncPlannerTest, conflictCopiesHaveFreeNames) {
    Setting setting;
    const auto conflicting = [&](const QString& name) {
        setting.local.files[name] = file(1, 10);
        setting.device.files[name] = file(2, 20);
    };
    const QString longName = QString(230, u'n') + u".jpeg"_s;
    conflicting(u"d/photo.tar.gz"_s);
    conflicting(u".hidden"_s);
    conflicting(longName);
    setting.local.files[u"d/photo.tar (conflict 2023-11-14 221320).gz"_s] = file(1, 0);
    std::map<QString, QString> names;
    for (const SyncPlannedAction& action : setting.planner().plan({}, {}).actions)
        if (action.kind == Kind::conflict)
            names[action.relativePath] = action.conflictName;
    EXPECT_EQ(names[u"d/photo.tar.gz"_s], u"d/photo.tar (conflict 2023-11-14 221320 2).gz"_s);
    EXPECT_EQ(names[u".hidden"_s], u".hidden (conflict 2023-11-14 221320)"_s);
    EXPECT_LE(names[longName].size(), 240);
    EXPECT_TRUE(names[longName].endsWith(u"(conflict 2023-11-14 221320).jpeg"_s));
}

TEST(SyncPlannerTest, whatLooksLikeAMistakeIsGuarded) {
    using Guard = SyncGuard::Kind;
    // Files recorded, of them gone here and gone there.
    const std::tuple<const char*, int, int, int, Guard> rows[] = {
        {"few", 30, 19, 0, Guard::nothing},
        {"half", 40, 20, 0, Guard::nothing},
        {"more than half", 39, 20, 0, Guard::manyDeletions},
        {"everything here", 1, 1, 0, Guard::localEmpty},
        {"everything there", 7, 0, 7, Guard::deviceEmpty},
    };
    for (const auto& [name, recorded, goneHere, goneThere, kind] : rows) {
        SCOPED_TRACE(name);
        Setting setting;
        SyncFiles files;
        for (int n = 0; n < recorded; ++n) {
            const QString entry = QString::number(n);
            files.insert({entry, known(1, 0)});
            if (n >= goneHere)
                setting.local.files[entry] = file(1, 0);
            if (n >= goneThere)
                setting.device.files[entry] = file(1, 0);
        }
        setting.remember(files);
        EXPECT_EQ(setting.planner().guard(), (SyncGuard{kind, recorded, goneHere + goneThere}));
        // Without a record that may be believed an empty side is just as strange.
        setting.record.reset();
        setting.filesOnceSynced = recorded;
        EXPECT_EQ(setting.planner().guard().kind,
                  kind == Guard::manyDeletions ? Guard::nothing : kind);
    }
}

} // namespace
} // namespace tessary
