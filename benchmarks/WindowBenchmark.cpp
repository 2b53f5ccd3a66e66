// The window as a user meets it, in a process of its own: from the program's start to the first
// painted window, the longest stall of the main thread while folders are opened, sorted, filtered
// and shown as a grid, and what the program takes while it idles with two phones attached. The
// phones are virtual ones in this very process: their share counts as the program's.
//
// QT_QPA_PLATFORM=offscreen, or on a display: WindowBenchmark [idle seconds]

#include "app/TessaryApp.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/faults/FaultyAndroid.h"
#include "support/PluggedPhone.h"
#include "support/StallWatch.h"
#include "views/common/AppStyle.h"
#include "views/common/Icons.h"
#include "views/window/MainWindow.h"

#include <QApplication>
#include <QFile>
#include <QTimer>

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <optional>

using namespace tessary;

namespace {

/// Milliseconds since the kernel started this process.
double sinceStart() {
    QFile stat(QStringLiteral("/proc/self/stat"));
    (void)stat.open(QIODevice::ReadOnly);
    const QByteArray line = stat.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    constexpr int startTime = 19; // of the fields behind the name
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return (static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9 -
            fields.at(startTime).toDouble() / static_cast<double>(sysconf(_SC_CLK_TCK))) *
           1000;
}

double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double residentMegabytes() {
    QFile statm(QStringLiteral("/proc/self/statm"));
    (void)statm.open(QIODevice::ReadOnly);
    return statm.readAll().split(' ').at(1).toDouble() *
           static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

class PaintWatch : public QObject {
public:
    double first = 0; ///< milliseconds since the start

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && first == 0)
            QTimer::singleShot(0, this, [this] { // once it is on its way to the screen
                if (first == 0)
                    first = sinceStart();
            });
        return QObject::eventFilter(watched, event);
    }
};

void turn(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

bool waitFor(const std::function<bool()>& holds) {
    for (int i = 0; i < 2000 && !holds(); ++i)
        turn(std::chrono::milliseconds(5));
    return holds();
}

} // namespace

int main(int argc, char** argv) {
    using namespace std::chrono_literals;
    QApplication application(argc, argv);
    setUpStyle();
    setUpIconTheme();
    VirtualUSBBus bus;
    const double phonesBegin = sinceStart();
    const PluggedPhone first(bus, phoneConfig("A")); // the window opens it, by its name
    const PluggedPhone second(bus, phoneConfig("B", "1-2"));
    for (int i = 0; i < 3000; ++i)
        first.write(QStringLiteral("Many/file %1.txt").arg(i), "x");
    const double phonesTook = sinceStart() - phonesBegin;
    QtProcessRunner processes;
    DeviceServices services({bus, processes});
    TessaryApp app({bus}, services, {});
    MainWindow window(app);
    PaintWatch paint;
    window.installEventFilter(&paint);
    window.show();
    if (!waitFor([&] { return paint.first > 0; }))
        return 1;
    std::printf("start to first painted window: %.0f ms (and %.0f ms for the virtual phones)\n",
                paint.first - phonesTook, phonesTook);

    FileBrowserViewModel& browser = window.browser();
    const auto isLoaded = [&] { return browser.files() && !browser.isLoading(); };
    std::optional<StallWatch> watch(std::in_place);
    if (!waitFor(isLoaded))
        return 1;
    browser.navigateTo(QStringLiteral("/sdcard/Many"));
    if (!waitFor([&] { return isLoaded() && browser.items().size() == 3000; }))
        return 1;
    browser.setSearchText(QStringLiteral("12"));
    turn(100ms);
    browser.setSearchText({});
    browser.setViewMode(ViewMode::grid);
    turn(500ms);
    browser.setViewMode(ViewMode::list);
    turn(200ms);
    std::printf("longest stall of the main thread on the way: %lld ms\n",
                static_cast<long long>(watch->longest()));
    watch.reset(); // it never lets the loop rest

    const int seconds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20;
    browser.navigateTo(QStringLiteral("/sdcard"));
    turn(2s);
    const double before = cpuSeconds();
    {
        QEventLoop idle;
        QTimer::singleShot(std::chrono::seconds(seconds), &idle, &QEventLoop::quit);
        idle.exec();
    }
    std::printf("idle with two phones: %.2f %% of a core, %.0f MB resident\n",
                (cpuSeconds() - before) / seconds * 100, residentMegabytes());
    return 0;
}
