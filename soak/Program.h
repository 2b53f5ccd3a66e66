#pragma once

#include "SoakPhones.h"

#include "browser/model/FileBrowserViewModel.h"
#include "devices/files/DeviceServices.h"
#include "devices/list/DeviceManager.h"
#include "ios/Multiplexer.h"
#include "platform/process/QtProcessRunner.h"
#include "platform/settings/MemorySettingsStore.h"
#include "sync/manager/SyncManager.h"
#include "transfer/queue/CopyQueue.h"
#include "transfer/staging/StagedFiles.h"

#include <chrono>
#include <functional>

namespace tessary {

/// The layers of the program below its window, put together and wired as the window does it. On
/// the main thread.
class Program {
public:
    /// `folder` is for what it keeps on the disk; `environment` leads to adb's server.
    Program(VirtualUSBBus& bus, const QProcessEnvironment& environment, const QString& folder,
            bool withADB);

    /// Turns the event loop until `holds`; throws Broken that says `what` when it does not in time.
    static void await(const char* what, const std::function<bool()>& holds,
                      std::chrono::seconds limit);
    static void turnFor(std::chrono::milliseconds time);

    [[nodiscard]] std::optional<DeviceInfo> device(const SoakPhone& phone) const;
    /// Opens a folder of a phone in the browser, connecting to it when another one is shown. False
    /// when the phone is not in the list.
    bool show(const SoakPhone& phone, const QString& path);
    /// Nothing is under way, the threads of cancelled copies included.
    [[nodiscard]] bool isIdle() const {
        return whatRuns().isEmpty();
    }
    [[nodiscard]] QString whatRuns() const;
    /// Turns the event loop until isIdle(); throws Broken that says what still runs.
    void awaitIdleness(std::chrono::seconds limit) const;
    /// Ends what runs; throws Broken when something does not end.
    void end();

private:
    QtProcessRunner processes_;

public:
    DeviceServices services;
    CopyQueue copies;
    Multiplexer multiplexer;
    DeviceManager devices;
    StagedFiles staged{QStringLiteral("soak"), 20'000'000};
    FileBrowserViewModel browser;
    MemorySettingsStore defaults;
    SyncManager sync;

private:
    void deviceListChanged();
};

} // namespace tessary
