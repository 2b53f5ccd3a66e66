#include "adb/files/LsOutput.h"

#include <benchmark/benchmark.h>

namespace tessary {

namespace {

void parseListing(benchmark::State& state) {
    QByteArray text = "total 8\n";
    for (int n = 0; n < state.range(0); ++n)
        text += "-rw-rw---- 1 u0_a167 media_rw  4831233 2024-03-05 17:08 IMG 2024 " +
                QByteArray::number(n) + ".jpg\n";
    const QString folder = QStringLiteral("/sdcard/DCIM");
    for (auto step : state) {
        static_cast<void>(step);
        benchmark::DoNotOptimize(parseLsOutput(text, folder));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(parseListing)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tessary
