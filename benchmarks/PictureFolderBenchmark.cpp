// A folder of 10,000 photos in the window, on a virtual phone that takes 2 ms for each request:
// when the first rows stand there, when all do, when the first screen of pictures does, and how
// many requests each took: by property lists or, with a second argument, object by object.
//
// QT_QPA_PLATFORM=offscreen, or on a display: PictureFolderBenchmark [photos [any word]]

#include "app/TessaryApp.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/faults/FaultyAndroid.h"
#include "support/PluggedPhone.h"
#include "views/common/AppStyle.h"
#include "views/common/Icons.h"
#include "views/listing/ThumbnailStore.h"
#include "views/window/MainWindow.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>

using namespace tessary;

namespace {

bool waitFor(const std::function<bool()>& holds) {
    constexpr qint64 mostMilliseconds = 120'000;
    QElapsedTimer timer;
    timer.start();
    while (!holds() && timer.elapsed() < mostMilliseconds) {
        QEventLoop loop;
        QTimer::singleShot(1, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return holds();
}

/// A photo with a small picture of its own in its head.
QByteArray photo(int number) {
    QImage image(160, 120, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(number % 360, 200, 200));
    QPainter(&image).drawText(20, 60, QString::number(number));
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, "JPG");
    return "\xFF\xD8" + bytes.data() + QByteArray(20'000, 'x');
}

bool measure(int photos, bool byPropertyLists) {
    const QTemporaryDir cache;
    qputenv("XDG_CACHE_HOME", cache.path().toUtf8());
    VirtualUSBBus bus;
    PluggedPhone phone(bus, phoneConfig("A"));
    for (int n = 0; n < photos; ++n)
        phone.write(QStringLiteral("DCIM/IMG_%1.jpg").arg(n, 5, 10, QLatin1Char('0')), photo(n));
    phone.fault([](VirtualFaults& faults) { faults.delayEach = std::chrono::milliseconds(2); });
    if (!byPropertyLists)
        phone.behave([](VirtualBehaviour& behaviour) {
            behaviour.unsupportedOperations.insert(
                static_cast<std::uint16_t>(MTPOperationCode::getObjectPropList));
        });
    QtProcessRunner processes;
    DeviceServices services({bus, processes});
    TessaryApp app({bus}, services, {});
    MainWindow window(app);
    window.show();
    FileBrowserViewModel& browser = window.browser();
    if (!waitFor([&] { return browser.files() && !browser.isLoading(); }))
        return false;
    browser.setViewMode(ViewMode::grid);
    int pictures = 0;
    const auto stores = window.findChildren<ThumbnailStore*>(); // other pages have some, too
    for (const ThumbnailStore* store : stores)
        QObject::connect(store, &ThumbnailStore::thumbnailReady, [&pictures] { ++pictures; });
    const auto isDone = [&] {
        return pictures > 0 && std::ranges::all_of(stores, &ThumbnailStore::isIdle);
    };

    std::printf("%s:\n", byPropertyLists ? "by property lists" : "object by object");
    phone.android.clearRequestLog();
    QElapsedTimer timer;
    timer.start();
    const auto tell = [&](const char* what) {
        std::printf("  %-16s %6lld ms  %6zu requests\n", what,
                    static_cast<long long>(timer.elapsed()), phone.android.requestCount());
    };
    browser.navigateTo(QStringLiteral("/sdcard/DCIM"));
    if (!waitFor([&] { return !browser.items().empty(); }))
        return false;
    tell("first rows");
    if (!waitFor([&] {
            return !browser.isLoading() &&
                   browser.items().size() == static_cast<std::size_t>(photos);
        }))
        return false;
    tell("all rows");
    if (!waitFor(isDone))
        return false;
    tell("first pictures");
    std::printf("  (%d pictures)\n", pictures);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    setUpStyle();
    setUpIconTheme();
    const int photos = argc > 1 ? std::max(1, std::atoi(argv[1])) : 10'000;
    const bool hasPropertyLists = argc <= 2;
    return measure(photos, hasPropertyLists) ? 0 : 1;
}
