#include "sync/old/plan/SyncPlanner.h"
#include "support/QtPrinters.h"

#include <QTimeZone>
#include <gmock/gmock.h>

#include <array>
#include <optional>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using Kind = SyncPlannedAction::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

const QString path = u"f.txt"_s;

QDateTime at(int seconds) {
    return QDateTime::fromSecsSinceEpoch(1'700'000'000 + seconds, QTimeZone::utc());
}

/// A file of this size and date.
SyncFileEntry file(qint64 size, int seconds) {
    return {size, at(seconds), {}, {}};
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
    SyncScan local;
    SyncScan device;
    std::optional<SyncFiles> record;
    SyncMode mode = SyncMode::biDirectional;
    bool deletes = true;
    bool moves = false;
    SyncNameRules deviceNames;

    [[nodiscard]] SyncPlanner planner() const {
        return SyncPlanner({local, device, record ? &*record : nullptr, mode, deletes, moves, true,
                            SyncNameRules(), deviceNames, at(0)});
    }
    /// What becomes of each path, as "path: action".
    [[nodiscard]] QStringList plan() const {
        SyncPlanner made = planner();
        QStringList lines;
        for (const SyncPlannedAction& action : made.plan(false, {}).actions)
            lines.append(action.relativePath + u": "_s + nameOf(action));
        return lines;
    }
    /// What becomes of the one path.
    [[nodiscard]] QString outcome(bool confirmed, bool equal) const {
        SyncPlanner made = planner();
        const SyncPlan plan = made.plan(confirmed, equal ? QSet<QString>{path} : QSet<QString>());
        return plan.actions.empty() ? u"nothing"_s : nameOf(plan.actions.at(0));
    }
};

enum class Asks { nothing, sample, deletion };

/// One path: what either side and the record of the last run have of it, what the user or the
/// content is asked for, and what becomes of it in the modes both ways, to the phone and to the
/// computer; "a/b": a when the samples are equal or the deletion is confirmed, else b.
struct Row {
    const char* name;
    std::optional<SyncFileEntry> local;
    std::optional<SyncFileEntry> device;
    std::optional<SyncFileEntry> record;
    Asks asks; ///< for a deletion in two-way mode alone
    const char* outcomes;
};

TEST(SyncPlannerTest, decisionTable) {
    const auto none = std::nullopt;
    using enum Asks;
    const SyncFileEntry r{5, at(100), at(900), {}};
    const SyncFileEntry same = file(5, 102);  // as recorded, on this computer
    const SyncFileEntry there = file(5, 898); // on the device
    const char* const inSync = "in sync, in sync, in sync";
    const char* const sampled = "in sync/conflict, in sync/upload, in sync/download";
    const char* const differing = "conflict, upload, download";
    const char* const toPhone = "upload, upload, nothing";
    const char* const toHere = "download, nothing, download";
    const char* const goneThere = "delete local/upload, upload, nothing";
    const char* const goneHere = "delete remote/download, nothing, download";
    const Row rows[] = {
        {"unchanged", same, there, r, nothing, inSync},
        {"local of other size", file(6, 100), there, r, nothing, "upload, upload, leave"},
        {"local touched", file(5, 103), there, r, sample,
         "in sync/upload, in sync/upload, in sync/leave"},
        {"device of other size", same, file(6, 900), r, nothing, "download, leave, download"},
        {"device touched", same, file(5, 903), r, sample,
         "in sync/download, in sync/leave, in sync/download"},
        {"both changed to one date", file(7, 200), file(7, 201), r, nothing, inSync},
        {"both touched", file(5, 200), file(5, 300), r, sample, sampled},
        {"both changed", file(7, 200), file(8, 200), r, nothing, differing},
        {"no record, one date", file(5, 1), file(5, 3), none, nothing, inSync},
        {"no record, other dates", file(5, 1), file(5, 4), none, sample, sampled},
        {"no record, other sizes", file(5, 1), file(6, 1), none, nothing, differing},
        {"new here", file(5, 1), none, none, nothing, toPhone},
        {"new on the device", none, file(5, 1), none, nothing, toHere},
        {"gone from the device", same, none, r, deletion, goneThere},
        {"gone there, touched here", file(5, 999), none, r, deletion, goneThere},
        {"gone there, changed here", file(6, 100), none, r, nothing, toPhone},
        {"gone here", none, there, r, deletion, goneHere},
        {"gone here, changed there", none, file(6, 900), r, nothing, toHere},
        {"gone from both", none, none, r, nothing, "nothing, nothing, nothing"},
    };
    for (const Row& row : rows) {
        for (const SyncMode mode : allSyncModes) {
            SCOPED_TRACE(std::string(row.name) + ", " + rawValue(mode).toStdString());
            Setting setting;
            setting.mode = mode;
            if (row.local)
                setting.local.files[path] = *row.local;
            if (row.device)
                setting.device.files[path] = *row.device;
            if (row.record)
                setting.record = SyncFiles{{path, *row.record}};
            const bool isTwoWay = mode == SyncMode::biDirectional;
            EXPECT_EQ(setting.planner().pathsToCompare().size(), row.asks == sample ? 1 : 0);
            EXPECT_EQ(setting.planner().deletionCandidates().size(),
                      row.asks == deletion && isTwoWay ? 1U : 0U);
            const QStringList expected = QString::fromLatin1(row.outcomes)
                                             .split(u", "_s)
                                             .at(static_cast<int>(mode))
                                             .split(u'/');
            EXPECT_EQ(setting.outcome(true, true), expected.first());
            EXPECT_EQ(setting.outcome(false, false), expected.last());
            setting.deletes = false;
            EXPECT_EQ(setting.outcome(true, false), expected.last());
            EXPECT_THAT(setting.planner().deletionCandidates(), IsEmpty());
        }
    }
}

TEST(SyncPlannerTest, movesDeleteTheSourceAndNothingElse) {
    Setting setting;
    setting.moves = true;
    setting.local.files = {
        {u"changed"_s, file(6, 0)}, {u"new"_s, file(1, 0)}, {u"same"_s, file(5, 0)}};
    setting.device.files = {
        {u"changed"_s, file(5, 0)}, {u"other"_s, file(1, 0)}, {u"same"_s, file(5, 0)}};
    setting.record = SyncFiles{{u"changed"_s, file(5, 0)}};
    setting.mode = SyncMode::toiPhone;
    EXPECT_THAT(setting.plan(), ElementsAre(u"changed: upload moving"_s, u"new: upload moving"_s,
                                            u"same: delete source"_s));
    setting.mode = SyncMode::toMac;
    EXPECT_THAT(setting.plan(), ElementsAre(u"changed: leave"_s, u"other: download moving"_s,
                                            u"same: delete remote source"_s));
    setting.mode = SyncMode::biDirectional;
    EXPECT_THAT(setting.plan(), ElementsAre(u"changed: upload"_s, u"new: upload"_s,
                                            u"other: download"_s, u"same: in sync"_s));
    // Only a record of both sides stands for a comparison of the contents.
    setting.mode = SyncMode::toiPhone;
    EXPECT_FALSE(setting.planner().plan(false, {}).actions.back().isVouched);
    setting.record->insert({u"same"_s, file(5, 0)});
    EXPECT_TRUE(setting.planner().plan(false, {}).actions.back().isVouched);
}

TEST(SyncPlannerTest, whatCannotBeSyncedIsSkippedWithAReason) {
    // Names of files here, there, and what becomes of them; after "!" what is no file.
    const std::pair<const char*, const char*> rows[] = {
        {"file against folder", "x y/a | x/deep/b y | x: skip, x/deep/b: skip, y: skip, y/a: skip"},
        {"link in front of files", "a !l | l/x l | a: upload, l: skip, l/x: skip"},
        {"case", "A.txt b | a.txt | A.txt: skip, a.txt: skip, b: upload"},
        {"case of a folder", "Dir/a | dir/b | Dir/a: skip, dir/b: skip"},
        {"case, and the device keeps both", "A a | A a | A: in sync, a: in sync"},
        {"two of one name for the device", "N/a N/A |  | N/A: skip, N/a: skip"},
        {"unicode form", "\xC3\xA9 | e\xCC\x81 | e\xCC\x81: skip, \xC3\xA9: skip"},
        {"refused name", "bad?/x good |  | bad?/x: skip, good: upload"},
    };
    for (const auto& [name, trees] : rows) {
        SCOPED_TRACE(name);
        const QStringList parts = QString::fromUtf8(trees).split(u" | "_s);
        Setting setting;
        setting.deviceNames.ignoresCase = true;
        setting.deviceNames.ignoresUnicodeForm = true;
        setting.deviceNames.refusal = [](QStringView entry) {
            return entry.contains(u'?') ? u"no question marks"_s : QString();
        };
        const auto fill = [](SyncScan& scan, const QString& names) {
            for (const QString& entry : names.split(u' ', Qt::SkipEmptyParts)) {
                if (entry.startsWith(u'!')) {
                    scan.unusable[entry.mid(1)] = u"a link"_s;
                    continue;
                }
                scan.files[entry] = file(1, 0);
                for (qsizetype n = entry.indexOf(u'/'); n > 0; n = entry.indexOf(u'/', n + 1))
                    scan.folders.insert(entry.left(n));
            }
        };
        fill(setting.local, parts[0]);
        fill(setting.device, parts[1]);
        EXPECT_EQ(setting.plan().join(u", "_s), parts[2]);
        for (const SyncPlannedAction& action : setting.planner().plan(true, {}).actions)
            EXPECT_EQ(action.detail.isEmpty(), action.kind != Kind::skip);
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
    for (const SyncPlannedAction& action : setting.planner().plan(false, {}).actions)
        if (action.kind == Kind::conflict) {
            names[action.relativePath] = action.detail;
            EXPECT_TRUE(action.deviceWins);
        }
    EXPECT_EQ(names[u"d/photo.tar.gz"_s], u"d/photo.tar (conflict 2023-11-14 221320 2).gz"_s);
    EXPECT_EQ(names[u".hidden"_s], u".hidden (conflict 2023-11-14 221320)"_s);
    EXPECT_LE(names[longName].size(), 240);
    EXPECT_TRUE(names[longName].endsWith(u"(conflict 2023-11-14 221320).jpeg"_s));
}

TEST(SyncPlannerTest, massDeletionIsCalledOneByItsName) {
    const std::tuple<const char*, int, int, bool> rows[] = {{"few", 30, 19, false},
                                                            {"half", 40, 20, false},
                                                            {"more than half", 39, 20, true},
                                                            {"one of one", 1, 1, true}};
    for (const auto& [name, recorded, goneHere, warns] : rows) {
        SCOPED_TRACE(name);
        Setting setting;
        setting.record.emplace();
        for (int n = 0; n < recorded; ++n) {
            const QString entry = QString::number(n);
            setting.record->insert({entry, file(1, 0)});
            setting.device.files[entry] = file(1, 0);
            if (n >= goneHere)
                setting.local.files[entry] = file(1, 0);
        }
        EXPECT_EQ(!setting.planner().massDeletionWarning().isEmpty(), warns);
    }
}

} // namespace
} // namespace tessary
