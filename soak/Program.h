#pragma once

#include "SoakPhones.h"

#include "browser/model/FileBrowserViewModel.h"
#include "devices/files/DeviceFileService.h"
#include "devices/list/DeviceManager.h"
#include "ios/Multiplexer.h"
#include "platform/process/QtProcessRunner.h"
#include "platform/settings/MemoryUserDefaults.h"
#include "sync/manager/SyncManager.h"
#include "transfer/TransferEngine.h"
#include "transfer/TransferViewModel.h"

#include <atomic>
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
    /// Nothing is under way, the engine's thread included.
    [[nodiscard]] bool isIdle();
    /// Ends what runs; throws Broken when something does not end.
    void end();

private:
    QtProcessRunner processes_;
    std::shared_ptr<std::atomic<bool>> isEngineFree_; ///< of a question to the engine

public:
    DeviceFileService files;
    TransferEngine engine;
    SystemMultiplexer multiplexer;
    DeviceManager devices;
    TransferViewModel transfers{engine};
    PreviewCache previews;
    FileBrowserViewModel browser;
    MemoryUserDefaults defaults;
    SyncManager sync{defaults, deviceConnector(files)};

private:
    void deviceListChanged();
};

} // namespace tessary
