#include "base/threads/Background.h"
#include "files/FakeFileAccess.h"
#include "views/browser/BrowserView.h"
#include "views/common/AppStyle.h"
#include "views/common/Icons.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <benchmark/benchmark.h>

// What a person waits for in a folder of many entries: the whole browser in a window, from the
// moment the data is there to the painted rows. Run it with QT_QPA_PLATFORM=offscreen, or under
// xvfb-run, where there is no display.

namespace tessary {
namespace {

std::vector<FileItem> entries(int count) {
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, Qt::UTC);
    std::vector<FileItem> items;
    items.reserve(static_cast<std::size_t>(count));
    for (int n = 0; n < count; ++n) {
        // Neither in order of name nor of size.
        const int mixed = static_cast<int>((static_cast<qint64>(n) * 7919) % count);
        const QString name = QStringLiteral("IMG_%1.jpg").arg(mixed, 6, 10, QLatin1Char('0'));
        items.push_back({name,
                         QStringLiteral("/root/") + name,
                         false,
                         (n * 104'729LL) % 9'000'000,
                         date.addSecs(mixed * 61LL),
                         {},
                         {}});
    }
    return items;
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

/// A scripted device that tells when its answer was there.
class TimedDevice : public FakeFileAccess {
public:
    std::vector<FileItem> listDirectory(const QString& at, const std::stop_token& stop) override {
        std::vector<FileItem> items = FakeFileAccess::listDirectory(at, stop);
        sinceAnswer.start();
        return items;
    }

    QElapsedTimer sinceAnswer; ///< written in the background while a folder is loaded
};

/// A browser in a window, on the start page of a scripted device that has one large folder.
struct Bench {
    explicit Bench(int count) {
        files->setItems(QStringLiteral("/root"), entries(count));
        files->setItems(QStringLiteral("/root/empty"), {});
        view.resize(1100, 700);
        view.show();
        open(QStringLiteral("/root/empty"));
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

    std::shared_ptr<TimedDevice> files = std::make_shared<TimedDevice>();
    TransferEngine engine;
    TransferViewModel transfers{engine};
    FileBrowserViewModel browser{transfers};
    BrowserView view{browser, BrowserView::systemDialogs()};
};

void showGrid(Bench& bench, bool grid) {
    bench.browser.setViewMode(grid ? ViewMode::grid : ViewMode::list);
    bench.paint();
}

/// From the device's answer to painted rows.
void openFolder(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    showGrid(bench, state.range(1) != 0);
    for (auto _ : state) {
        bench.open(QStringLiteral("/root"));
        state.SetIterationTime(static_cast<double>(bench.files->sinceAnswer.nsecsElapsed()) / 1e9);
        bench.open(QStringLiteral("/root/empty"));
    }
    bench.open(QStringLiteral("/root"));
    state.counters["resident"] = benchmark::Counter(residentBytes(), benchmark::Counter::kDefaults,
                                                    benchmark::Counter::OneK::kIs1000);
}

/// One keystroke in the filter: each next letter and, at the end, none again.
void filterKeystroke(benchmark::State& state) {
    Bench bench(static_cast<int>(state.range(0)));
    showGrid(bench, state.range(1) != 0);
    bench.open(QStringLiteral("/root"));
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
    bench.open(QStringLiteral("/root"));
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

BENCHMARK(openFolder)->Apply(sizes)->UseManualTime();
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
