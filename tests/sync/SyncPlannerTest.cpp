#include "sync/SyncPlanner.h"
#include "support/QtPrinters.h"

#include <QTimeZone>
#include <gmock/gmock.h>

#include <array>
#include <optional>

namespace tessary {
namespace {

using Kind = SyncPlannedAction::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

const QString path = QStringLiteral("f.txt");

QDateTime at(int seconds) {
    return QDateTime::fromSecsSinceEpoch(1'700'000'000 + seconds, QTimeZone::utc());
}

/// A file of this size and date.
SyncFileEntry file(qint64 size, int seconds) {
    return {size, at(seconds), {}, {}};
}

const QString& nothing() {
    static const QString text = QStringLiteral("nothing");
    return text;
}

QString nameOf(const SyncPlannedAction& action) {
    static constexpr std::array names{
        "upload",  "download", "delete source", "delete remote source",
        "in sync", "conflict", "delete local",  "delete remote",
        "leave",   "skip"};
    QString name = QString::fromLatin1(names[static_cast<std::size_t>(action.kind)]);
    return action.deletesSource ? name + QStringLiteral(" moving") : name;
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
        return SyncPlanner({local,
                            device,
                            record ? &*record : nullptr,
                            mode,
                            deletes,
                            moves,
                            true,
                            {},
                            deviceNames,
                            at(0)});
    }
    /// What becomes of each path, as "path: action".
    [[nodiscard]] QStringList plan(bool confirmed = false, const QSet<QString>& equal = {}) const {
        SyncPlanner made = planner();
        QStringList lines;
        for (const SyncPlannedAction& action : made.plan(confirmed, equal).actions)
            lines.append(action.relativePath + QStringLiteral(": ") + nameOf(action));
        return lines;
    }
    /// What becomes of the one path.
    [[nodiscard]] QString outcome(bool confirmed, bool equal) const {
        SyncPlanner made = planner();
        const SyncPlan plan = made.plan(confirmed, equal ? QSet<QString>{path} : QSet<QString>());
        return plan.actions.empty() ? nothing() : nameOf(plan.actions.at(0));
    }
};

struct Row {
    const char* name;
    std::optional<SyncFileEntry> local;
    std::optional<SyncFileEntry> device;
    std::optional<SyncFileEntry> record;
    bool asksForSample;
    bool asksForDeletion; ///< in two-way mode
    /// Of each mode; "a/b": a when samples are equal or deletion is confirmed, else b.
    std::array<const char*, 3> outcomes;
};

SyncFileEntry recorded(qint64 size, int local, int device) {
    return {size, at(local), at(device), {}};
}

TEST(SyncPlannerTest, decisionTable) {
    const auto none = std::nullopt;
    const SyncFileEntry r = recorded(5, 100, 900);
    const SyncFileEntry localSame = file(5, 102);
    const SyncFileEntry deviceSame = file(5, 898);
    const Row rows[] = {
        {"both unchanged",
         localSame,
         deviceSame,
         r,
         false,
         false,
         {"in sync", "in sync", "in sync"}},
        {"local of other size",
         file(6, 100),
         deviceSame,
         r,
         false,
         false,
         {"upload", "upload", "leave"}},
        {"local touched",
         file(5, 103),
         deviceSame,
         r,
         true,
         false,
         {"in sync/upload", "in sync/upload", "in sync/leave"}},
        {"device of other size",
         localSame,
         file(6, 900),
         r,
         false,
         false,
         {"download", "leave", "download"}},
        {"device touched",
         localSame,
         file(5, 903),
         r,
         true,
         false,
         {"in sync/download", "in sync/leave", "in sync/download"}},
        {"both changed to one date",
         file(7, 200),
         file(7, 201),
         r,
         false,
         false,
         {"in sync", "in sync", "in sync"}},
        {"both touched",
         file(5, 200),
         file(5, 300),
         r,
         true,
         false,
         {"in sync/conflict", "in sync/upload", "in sync/download"}},
        {"both changed",
         file(7, 200),
         file(8, 200),
         r,
         false,
         false,
         {"conflict", "upload", "download"}},
        {"no record, one date",
         file(5, 1),
         file(5, 3),
         none,
         false,
         false,
         {"in sync", "in sync", "in sync"}},
        {"no record, other dates",
         file(5, 1),
         file(5, 4),
         none,
         true,
         false,
         {"in sync/conflict", "in sync/upload", "in sync/download"}},
        {"no record, other sizes",
         file(5, 1),
         file(6, 1),
         none,
         false,
         false,
         {"conflict", "upload", "download"}},
        {"new here", file(5, 1), none, none, false, false, {"upload", "upload", "nothing"}},
        {"new on the device",
         none,
         file(5, 1),
         none,
         false,
         false,
         {"download", "nothing", "download"}},
        {"gone from the device",
         localSame,
         none,
         r,
         false,
         true,
         {"delete local/upload", "upload", "nothing"}},
        {"gone from the device, touched here",
         file(5, 999),
         none,
         r,
         false,
         true,
         {"delete local/upload", "upload", "nothing"}},
        {"gone here",
         none,
         deviceSame,
         r,
         false,
         true,
         {"delete remote/download", "nothing", "download"}},
        {"gone from the device, changed here",
         file(6, 100),
         none,
         r,
         false,
         false,
         {"upload", "upload", "nothing"}},
        {"gone here, changed on the device",
         none,
         file(6, 900),
         r,
         false,
         false,
         {"download", "nothing", "download"}},
        {"gone from both", none, none, r, false, false, {"nothing", "nothing", "nothing"}},
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
            EXPECT_EQ(setting.planner().pathsToCompare().size(), row.asksForSample ? 1 : 0);
            EXPECT_EQ(setting.planner().deletionCandidates().size(),
                      row.asksForDeletion && isTwoWay ? 1U : 0U);
            const QStringList expected =
                QString::fromLatin1(row.outcomes[static_cast<std::size_t>(mode)])
                    .split(QLatin1Char('/'));
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
    setting.local.files = {{QStringLiteral("changed"), file(6, 0)},
                           {QStringLiteral("new"), file(1, 0)},
                           {QStringLiteral("same"), file(5, 0)}};
    setting.device.files = {{QStringLiteral("changed"), file(5, 0)},
                            {QStringLiteral("other"), file(1, 0)},
                            {QStringLiteral("same"), file(5, 0)}};
    setting.record = SyncFiles{{QStringLiteral("changed"), file(5, 0)}};
    setting.mode = SyncMode::toiPhone;
    EXPECT_THAT(setting.plan(), ElementsAre(QStringLiteral("changed: upload moving"),
                                            QStringLiteral("new: upload moving"),
                                            QStringLiteral("same: delete source")));
    setting.mode = SyncMode::toMac;
    EXPECT_THAT(setting.plan(), ElementsAre(QStringLiteral("changed: leave"),
                                            QStringLiteral("other: download moving"),
                                            QStringLiteral("same: delete remote source")));
    setting.mode = SyncMode::biDirectional;
    EXPECT_THAT(setting.plan(),
                ElementsAre(QStringLiteral("changed: upload"), QStringLiteral("new: upload"),
                            QStringLiteral("other: download"), QStringLiteral("same: in sync")));
    // Only a record of both sides stands for a comparison of the contents.
    setting.mode = SyncMode::toiPhone;
    EXPECT_FALSE(setting.planner().plan(false, {}).actions.back().isVouched);
    setting.record->insert({QStringLiteral("same"), file(5, 0)});
    EXPECT_TRUE(setting.planner().plan(false, {}).actions.back().isVouched);
}

TEST(SyncPlannerTest, contentKnownToDifferIsNotSampledAgain) {
    Setting setting;
    setting.mode = SyncMode::toMac;
    setting.local.files[path] = file(5, 500);
    setting.device.files[path] = file(5, 0);
    setting.record = SyncFiles{{path, file(5, 0)}};
    EXPECT_EQ(setting.planner().pathsToCompare(), QStringList(path));
    EXPECT_TRUE(setting.planner().plan(false, {}).actions.at(0).knownToDiffer);
    setting.record->at(path).differingDate = at(500);
    EXPECT_EQ(setting.planner().pathsToCompare(), QStringList());
    EXPECT_EQ(setting.plan(), QStringList(QStringLiteral("f.txt: leave")));
    setting.local.files[path] = file(5, 600);
    EXPECT_EQ(setting.planner().pathsToCompare(), QStringList(path));
}

TEST(SyncPlannerTest, whatCannotBeSyncedIsSkippedWithAReason) {
    struct Case {
        const char* name;
        std::vector<const char*> local;
        std::vector<const char*> device;
        const char* unusable; ///< on the local side
        QStringList plan;
    };
    const auto lines = [](std::initializer_list<const char*> texts) {
        QStringList list;
        for (const char* text : texts)
            list.append(QString::fromUtf8(text));
        return list;
    };
    const Case cases[] = {
        {"file against folder",
         {"x", "y/a"},
         {"x/deep/b", "y"},
         nullptr,
         lines({"x: skip", "x/deep/b: skip", "y: skip", "y/a: skip"})},
        {"link in front of files",
         {"a"},
         {"l/x", "l"},
         "l",
         lines({"a: upload", "l: skip", "l/x: skip"})},
        {"case",
         {"A.txt", "b"},
         {"a.txt"},
         nullptr,
         lines({"A.txt: skip", "a.txt: skip", "b: upload"})},
        {"case of a folder", {"Dir/a"}, {"dir/b"}, nullptr, lines({"Dir/a: skip", "dir/b: skip"})},
        {"case, and the device keeps both",
         {"A", "a"},
         {"A", "a"},
         nullptr,
         lines({"A: in sync", "a: in sync"})},
        {"two of one name for the device",
         {"N/a", "N/A"},
         {},
         nullptr,
         lines({"N/A: skip", "N/a: skip"})},
        {"unicode form",
         {"\xC3\xA9"},
         {"e\xCC\x81"},
         nullptr,
         lines({"e\xCC\x81: skip", "\xC3\xA9: skip"})},
        {"refused name", {"bad?/x", "good"}, {}, nullptr, lines({"bad?/x: skip", "good: upload"})},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        Setting setting;
        setting.deviceNames.ignoresCase = true;
        setting.deviceNames.ignoresUnicodeForm = true;
        setting.deviceNames.refusal = [](QStringView name) {
            return name.contains(u'?') ? QStringLiteral("no question marks") : QString();
        };
        const auto fill = [](SyncScan& scan, const std::vector<const char*>& names) {
            for (const char* name : names) {
                const QString full = QString::fromUtf8(name);
                scan.files[full] = file(1, 0);
                for (qsizetype n = full.indexOf(u'/'); n > 0; n = full.indexOf(u'/', n + 1))
                    scan.folders.insert(full.left(n));
            }
        };
        fill(setting.local, row.local);
        fill(setting.device, row.device);
        if (row.unusable != nullptr)
            setting.local.unusable[QString::fromUtf8(row.unusable)] = QStringLiteral("a link");
        EXPECT_EQ(setting.plan(), row.plan);
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
    const QString longName = QString(230, QLatin1Char('n')) + QStringLiteral(".jpeg");
    conflicting(QStringLiteral("d/photo.tar.gz"));
    conflicting(QStringLiteral(".hidden"));
    conflicting(longName);
    setting.local.files[QStringLiteral("d/photo.tar (conflict 2023-11-14 221320).gz")] = file(1, 0);
    std::map<QString, QString> names;
    for (const SyncPlannedAction& action : setting.planner().plan(false, {}).actions)
        if (action.kind == Kind::conflict) {
            names[action.relativePath] = action.detail;
            EXPECT_TRUE(action.deviceWins);
        }
    EXPECT_EQ(names[QStringLiteral("d/photo.tar.gz")],
              QStringLiteral("d/photo.tar (conflict 2023-11-14 221320 2).gz"));
    EXPECT_EQ(names[QStringLiteral(".hidden")],
              QStringLiteral(".hidden (conflict 2023-11-14 221320)"));
    EXPECT_LE(names[longName].size(), 240);
    EXPECT_TRUE(names[longName].endsWith(QStringLiteral("(conflict 2023-11-14 221320).jpeg")));
}

TEST(SyncPlannerTest, massDeletionIsCalledOneByItsName) {
    struct Case {
        const char* name;
        int recorded;
        int goneHere;
        bool warns;
    };
    for (const Case& row : {Case{"few", 30, 19, false}, Case{"half", 40, 20, false},
                            Case{"more than half", 39, 20, true}, Case{"one of one", 1, 1, true},
                            Case{"none", 50, 0, false}}) {
        SCOPED_TRACE(row.name);
        Setting setting;
        setting.record.emplace();
        for (int n = 0; n < row.recorded; ++n) {
            const QString name = QString::number(n);
            setting.record->insert({name, file(1, 0)});
            setting.device.files[name] = file(1, 0);
            if (n >= row.goneHere)
                setting.local.files[name] = file(1, 0);
        }
        EXPECT_EQ(!setting.planner().massDeletionWarning().isEmpty(), row.warns);
    }
}

} // namespace
} // namespace tessary
