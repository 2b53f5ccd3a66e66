#include "Program.h"

#include "Story.h"
#include "base/threads/Background.h"

#include <QCoreApplication>
#include <QDirIterator>

#include <thread>

namespace tessary {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A job counts as cancelled at once; its thread may take longer.
bool isCopyThreadRunning() {
    QDirIterator threads(u"/proc/self/task"_s, QDir::Dirs | QDir::NoDotAndDotDot);
    while (threads.hasNext()) {
        QFile name(threads.next() + u"/comm"_s);
        if (name.open(QIODevice::ReadOnly) && name.readAll().trimmed() == "tessary-copy")
            return true;
    }
    return false;
}

} // namespace

Program::Program(VirtualUSBBus& bus, const QProcessEnvironment& environment, const QString& folder,
                 bool withADB)
    : processes_(environment),
      services({bus, processes_, ADBServerAddress::of(environment)}),
      devices({bus, &multiplexer, withADB}, services),
      browser(copies,
              {.openAndroid =
                   [this](const DeviceInfo& device) { return services.files().open(device); },
               .staged = staged,
               .openApp =
                   [this](const DeviceInfo& device, const AppInfo& app) {
                       return services.files().openApp(device, app);
                   }}),
      sync(defaults, {.phones = services.files(), .reportFolder = folder + u"/reports"_s}) {
    QObject::connect(&devices, &DeviceManager::devicesChanged, [this] { deviceListChanged(); });
    devices.startListening();
}

void Program::await(const char* what, const std::function<bool()>& holds,
                    std::chrono::seconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end)
            throw Broken(QString::fromUtf8(what) + u" took more than %1 s"_s.arg(limit.count()));
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        std::this_thread::sleep_for(1ms);
    }
}

void Program::turnFor(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    await(
        "a pause", [&] { return std::chrono::steady_clock::now() >= end; }, 60s);
}

std::optional<DeviceInfo> Program::device(const SoakPhone& phone) const {
    for (const DeviceInfo& device : devices.devices())
        if (device.udid == phone.udid())
            return device;
    return std::nullopt;
}

bool Program::show(const SoakPhone& phone, const QString& path) {
    const auto listed = device(phone);
    if (!listed)
        return false;
    const auto& active = browser.activeDevice();
    if (active && active->udid == phone.udid() && browser.state() != BrowserState::deviceLost)
        browser.navigateTo(path);
    else if (phone.app().isEmpty())
        browser.connectAndroid(*listed, path);
    else
        browser.connect(phone.udid(), phone.app(), u"Notes"_s, *listed, path);
    return true;
}

void Program::deviceListChanged() {
    browser.folders().keepOnly(devices.devices());
    const auto active = browser.activeDevice();
    if (!active)
        return;
    const auto& list = devices.devices();
    const auto now = std::find_if(list.begin(), list.end(), [&](const DeviceInfo& device) {
        return device.udid == active->udid;
    });
    const bool isLost = browser.state() == BrowserState::deviceLost;
    if (now == list.end()) {
        if (!isLost)
            browser.loseDevice();
        return;
    }
    const QString path = browser.currentPath();
    browser.updateDevice(*now);
    if (isLost && now->platform == DevicePlatform::iOS)
        browser.connect(now->udid, u"com.example.notes"_s, u"Notes"_s, *now, path);
    else if (isLost)
        browser.connectAndroid(*now, path);
    else if (!active->isDataAccessible() && now->isDataAccessible())
        browser.reload();
}

QString Program::whatRuns() const {
    QStringList what;
    if (!copies.summary().isIdle())
        what << u"a copy"_s;
    if (isCopyThreadRunning())
        what << u"the thread of a copy"_s;
    if (browser.isEditing())
        what << u"an edit"_s;
    if (browser.isLoading())
        what << u"the listing of "_s + browser.currentPath();
    if (sync.isRunning())
        what << u"a sync"_s;
    return what.join(u", "_s);
}

void Program::awaitIdleness(std::chrono::seconds limit) const {
    try {
        await(
            "the end of all work", [this] { return isIdle(); }, limit);
    } catch (const Broken& broken) {
        throw Broken(QString::fromUtf8(broken.what()) + u": "_s + whatRuns());
    }
}

void Program::end() {
    constexpr auto limit = 60s;
    devices.stopListening();
    copies.cancelAll();
    sync.cancelAll();
    if (!copies.stop(limit) || !Background::shutDown(limit))
        throw Broken(u"something still works at the end"_s);
    QCoreApplication::processEvents();
}

} // namespace tessary
