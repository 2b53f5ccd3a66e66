#include "base/threads/Background.h"
#include "support/MemoryFileSystem.h"
#include "views/browser/BrowserView.h"
#include "views/common/AppStyle.h"
#include "views/common/Icons.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFile>

#include <benchmark/benchmark.h>

// What a person waits for in a folder of many entries: the whole browser in a window, from the
// click to the painted rows, on a phone that answers at once. Run it with
// QT_QPA_PLATFORM=offscreen, or under xvfb-run, where there is no display.

namespace tessary {
namespace {

/// A phone with one large folder and one empty one.
std::shared_ptr<MemoryFileSystem> phoneWith(int count) {
    MemoryFileSystem::Options options;
    options.rowsAtOnce = 1000;
    auto files = std::make_shared<MemoryFileSystem>(options);
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, Qt::UTC);
    const QByteArray longest(9000, 'x');
    files->addFolder(QStringLiteral("/empty"));
    for (int n = 0; n < count; ++n) {
        // Neither in order of name nor of size.
        const int mixed = static_cast<int>((static_cast<qint64>(n) * 7919) % count);
        files->addTwin(QStringLiteral("/many/IMG_%1.jpg").arg(mixed, 6, 10, QLatin1Char('0')),
                       QByteArray::fromRawData(longest.constData(), (n * 104'729LL) % 9000),
                       date.addSecs(mixed * 61LL));
    }
    return files;
}

/// Memory of this process now, in bytes.
double residentBytes() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096;
}

void waitFor(const std::function<bool()>& condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// A browser in a window, in the empty folder of a phone.
struct Bench {
    explicit Bench(int count) : files(phoneWith(count)) {
        view.resize(1100, 700);
        view.show();
        open(QStringLiteral("/empty"));
    }
    void open(const QString& path) {
        browser.open(files, std::nullopt, path);
        waitFor([this] { return !browser.isLoading(); });
        paint();
    }
    /// What is due is painted.
    void paint() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        view.currentListing().viewport()->repaint();
    }

    std::shared_ptr<MemoryFileSystem> files;
    CopyQueue queue;
    StagedFiles staged{QStringLiteral("benchmark")};
    FileBrowserViewModel browser{
        queue, {.openAndroid = [this](const DeviceInfo&) { return files; }, .staged = staged}};
    BrowserView view{browser, CopyDialogs{}, {}};
};

void showGrid(Bench& bench, bool grid) {
    bench.browser.setViewMode(grid ? ViewMode::grid : ViewMode::list);
    bench.paint();
}

/// From the click to painted rows; each time in a browser that has not read the folder before.
void openFolder(benchmark::State& state) {
    double resident = 0;
    for (auto _ : state) {
        state.PauseTiming();
        {
            Bench bench(static_cast<int>(state.range(0)));
            showGrid(bench, state.range(1) != 0);
            state.ResumeTiming();
            bench.open(QStringLiteral("/many"));
            state.PauseTiming();
            resident = residentBytes();
        }
        state.ResumeTiming();
    }
    state.counters["resident"] = benchmark::Counter(resident, benchmark::Counter::kDefaults,
                                                    benchmark::Counter::OneK::kIs1000);
}

/// One keystroke in the filter: each next letter and, at the end, none again.
void filterKeystroke(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    showGrid(bench, state.range(1) != 0);
    bench.open(QStringLiteral("/many"));
    const QString typed = QStringLiteral("_0999");
    qsizetype length = 0;
    for (auto _ : state) {
        length = (length + 1) % (typed.size() + 1);
        bench.browser.setSearchText(typed.left(length));
        bench.paint();
    }
}

void sortColumn(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    showGrid(bench, state.range(1) != 0);
    bench.open(QStringLiteral("/many"));
    bool descending = false;
    for (auto _ : state) {
        descending = !descending;
        bench.browser.setSortOrder({{FileField::size, descending}});
        bench.paint();
    }
}

void sizes(benchmark::internal::Benchmark* which) {
    which->ArgNames({"entries", "grid"})
        ->Args({10'000, 0})
        ->Args({100'000, 0})
        ->Args({100'000, 1})
        ->Unit(benchmark::kMillisecond);
}

BENCHMARK(openFolder)->Apply(sizes)->UseRealTime();
BENCHMARK(filterKeystroke)->Apply(sizes)->UseRealTime();
BENCHMARK(sortColumn)->Apply(sizes)->UseRealTime();

} // namespace
} // namespace tessary

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    tessary::setUpStyle();
    tessary::setUpIconTheme();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return tessary::Background::shutDown(std::chrono::seconds(10)) ? 0 : 1;
}
