#include "sync/plan/SyncPlanner.h"

#include <QTimeZone>
#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace tessary {
namespace {

struct Trees {
    SyncTree local;
    SyncTree device;
    SyncRecord record;

    /// A phone of many years: a hundred files a folder, some of each kind of change.
    explicit Trees(int count) {
        const QDateTime date(QDate(2024, 1, 1), QTime(10, 0), QTimeZone::utc());
        record.isShared = true;
        record.startedAt = date.addYears(1);
        for (int n = 0; n < count; ++n) {
            const QString folder = QStringLiteral("DCIM/%1").arg(n / 100, 6, 10, QLatin1Char('0'));
            const QString path =
                folder + QStringLiteral("/IMG_%1.jpg").arg(n, 8, 10, QLatin1Char('0'));
            const SyncFile file{n, syncDate(date.addSecs(n))};
            const SyncFileEntry entry{n, file.date, {}, {}, true};
            // Each side has texts of its own, as listings give them.
            const auto add = [](auto& files, const QString& text, const auto& value) {
                files.insert_or_assign(files.end(), QString(text.constData(), text.size()), value);
            };
            if (n % 50 != 1)
                add(local.files, path, file);
            if (n % 50 != 2)
                add(device.files, path, file);
            if (n % 50 != 3)
                add(record.files, path, entry);
            if (n % 50 == 4)
                local.files[path].size += 1;
            if (n % 100 == 0) {
                local.folders.insert(folder);
                device.folders.insert(folder);
            }
        }
    }
};

void planPaths(benchmark::State& state) {
    const Trees trees(static_cast<int>(state.range(0)));
    NameRules android;
    android.ignoresCase = true;
    android.ignoresUnicodeForm = true;
    for (auto _ : state) {
        SyncPlanner planner({.local = trees.local,
                             .device = trees.device,
                             .record = &trees.record,
                             .mode = SyncMode::biDirectional,
                             .localNames = {},
                             .deviceNames = android,
                             .now = QDateTime::fromSecsSinceEpoch(0, QTimeZone::utc())});
        benchmark::DoNotOptimize(planner.deletionCandidates());
        benchmark::DoNotOptimize(planner.pathsToCompare());
        benchmark::DoNotOptimize(planner.plan({}, {}));
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peakMB"] = static_cast<double>(usage.ru_maxrss) / 1000;
}

BENCHMARK(planPaths)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tessary
