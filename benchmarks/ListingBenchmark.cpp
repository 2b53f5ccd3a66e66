#include "base/text/PathNames.h"
#include "mtp/files/MTPFileSystem.h"
#include "support/PluggedPhone.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <benchmark/benchmark.h>

namespace tessary {
namespace {

const QByteArray fileContent(20'000, 'x');

void fill(const TemporaryFolder& folder, const QString& name, int files) {
    for (int n = 0; n < files; ++n)
        folder.write(QStringLiteral("%1/IMG_%2.jpg").arg(name).arg(n, 5, 10, QLatin1Char('0')),
                     fileContent);
}

/// The files of a virtual phone, whose first storage has a folder "D" of some files.
struct Bench {
    explicit Bench(int count) {
        fill(phone.disk, QStringLiteral("0/D"), count);
        phone.android.clearRequestLog();
    }
    void report(benchmark::State& state) const {
        state.counters["requests"] = static_cast<double>(phone.android.requestCount()) /
                                     static_cast<double>(state.iterations());
    }
    static void copy(const std::shared_ptr<PhoneFileSystem>& from, const QString& path,
                     const std::shared_ptr<PhoneFileSystem>& to, const QString& folder) {
        TreeCopy copy({.from = from,
                       .to = to,
                       .items = {{.item = require(*from, path, {}), .name = lastComponent(path)}},
                       .folder = folder});
        benchmark::DoNotOptimize(copy.run({}, {}));
    }

    VirtualUSBBus bus;
    PluggedPhone phone{bus};
    std::shared_ptr<MTPFileSystem> files = std::make_shared<MTPFileSystem>(
        bus, identityOf(phone.info), std::make_shared<PhoneQueue>());
};

void listFolder(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(listAll(*bench.files, QStringLiteral("/D"), {}));
    bench.report(state);
}

void downloadFolder(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    const TemporaryFolder target;
    const auto here = std::make_shared<LocalFileSystem>(target.path());
    for (auto _ : state) {
        bench.copy(bench.files, QStringLiteral("/D"), here, target.path());
        state.PauseTiming();
        QDir(target.path(QStringLiteral("D"))).removeRecursively();
        state.ResumeTiming();
    }
    bench.report(state);
    state.SetBytesProcessed(state.iterations() * state.range(0) * fileContent.size());
}

void uploadFolder(benchmark::State& state) {
    const TemporaryFolder source;
    fill(source, QStringLiteral("U"), static_cast<int>(state.range(0)));
    const auto here = std::make_shared<LocalFileSystem>(source.path());
    double requests = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto bench = std::make_unique<Bench>(0); // a phone without the folder
        state.ResumeTiming();
        bench->copy(here, source.path(QStringLiteral("U")), bench->files, QStringLiteral("/"));
        state.PauseTiming();
        requests += static_cast<double>(bench->phone.android.requestCount());
        bench.reset();
        state.ResumeTiming();
    }
    state.counters["requests"] = requests / static_cast<double>(state.iterations());
    state.SetBytesProcessed(state.iterations() * state.range(0) * fileContent.size());
}

BENCHMARK(listFolder)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(downloadFolder)->Arg(2'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(uploadFolder)->Arg(2'000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace tessary
