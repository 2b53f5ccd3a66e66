#include "Program.h"

#include "Story.h"
#include "base/threads/Background.h"
#include "devices/files/AndroidFileAccess.h"

#include <QCoreApplication>

#include <thread>

namespace tessary {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Program::Program(VirtualUSBBus& bus, const QProcessEnvironment& environment, const QString& folder,
                 bool withADB)
    : processes_(environment),
      files(bus, processes_),
      devices({bus, &multiplexer, withADB}, files),
      previews(folder + u"/previews"_s, 20'000'000),
      browser(transfers, {.openAndroid =
                              [this](const DeviceInfo& device) {
                                  return std::make_shared<AndroidFileAccess>(files, device);
                              },
                          .previews = &previews,
                          .clock = {}}) {
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

bool Program::isIdle() {
    if (!transfers.summary().isIdle() || browser.isEditing() || browser.isLoading() ||
        sync.isRunning())
        return false;
    if (!isEngineFree_) {
        // A job counts as cancelled at once; the engine takes up the next when it has ended.
        isEngineFree_ = std::make_shared<std::atomic<bool>>(false);
        engine.enqueue(QUuid::createUuid(), [](const auto&, const auto&) {},
                       {.onStart = {},
                        .onProgress = {},
                        .onComplete = [free = isEngineFree_](const auto&) { *free = true; }});
    }
    if (!*isEngineFree_)
        return false;
    isEngineFree_.reset();
    return true;
}

void Program::end() {
    constexpr auto limit = 60s;
    devices.stopListening();
    transfers.cancelAll();
    sync.cancelAll();
    if (!engine.stop(limit) || !Background::shutDown(limit))
        throw Broken(u"something still works at the end"_s);
    QCoreApplication::processEvents();
}

} // namespace tessary
