#include "devices/files/DeviceFileService.h"
#include "support/FakeProcessRunner.h"
#include "support/PluggedPhone.h"

#include <benchmark/benchmark.h>

namespace tessary {
namespace {

const QByteArray fileContent(20'000, 'x');

void fill(const TemporaryFolder& folder, const QString& name, int files) {
    for (int n = 0; n < files; ++n)
        folder.write(QStringLiteral("%1/IMG_%2.jpg").arg(name).arg(n, 5, 10, QLatin1Char('0')),
                     fileContent);
}

/// The file service with one virtual phone, whose first storage has a folder "D" of some files.
struct Bench {
    explicit Bench(int files) {
        fill(phone.disk, QStringLiteral("0/D"), files);
        phone.android.clearRequestLog();
    }
    void report(benchmark::State& state) const {
        state.counters["requests"] = static_cast<double>(phone.android.requestCount()) /
                                     static_cast<double>(state.iterations());
    }

    VirtualUSBBus bus;
    FakeProcessRunner processes;
    DeviceFileService service{bus, processes};
    PluggedPhone phone{bus};
};

void listFolder(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(
            bench.service.listDirectory(QStringLiteral("/D"), bench.phone.info));
    bench.report(state);
}

void downloadFolder(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    const FileItem folder = bench.service.itemAt(QStringLiteral("/D"), bench.phone.info);
    bench.phone.android.clearRequestLog();
    const TemporaryFolder target;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            bench.service.downloadDirectory(folder, target.path(), bench.phone.info));
    bench.report(state);
    state.SetBytesProcessed(state.iterations() * state.range(0) * fileContent.size());
}

void uploadFolder(benchmark::State& state) {
    Bench bench(0);
    const TemporaryFolder source;
    fill(source, QStringLiteral("U"), static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(bench.service.uploadDirectory(
            source.path(QStringLiteral("U")), QStringLiteral("/"), bench.phone.info));
        state.PauseTiming();
        QDir(bench.phone.disk.path(QStringLiteral("0/U"))).removeRecursively();
        state.ResumeTiming();
    }
    bench.report(state);
    state.SetBytesProcessed(state.iterations() * state.range(0) * fileContent.size());
}

BENCHMARK(listFolder)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(downloadFolder)->Arg(2'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(uploadFolder)->Arg(2'000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace tessary
