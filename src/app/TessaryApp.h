#pragma once

#include "devices/DeviceManager.h"
#include "files/DeviceFileService.h"
#include "files/TransferEngine.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tessary {

/// What the program brings along for its windows.
struct TessaryAppSetup {
    std::vector<UsbIds>
        alsoAccept;      ///< USB devices that count as phones although no rule knows them
    bool isDemo = false; ///< the phones are virtual ones
    /// Starts the program again with virtual phones and ends this one.
    std::function<void()> startDemo;
};

/// The application: owns the managers for its whole life and hands them to the windows. Lives on
/// the main thread.
class TessaryApp : public QObject {
    Q_OBJECT

public:
    /// `sources` and `files` must outlive the application.
    TessaryApp(DeviceSources sources, DeviceFileService& files, TessaryAppSetup setup);
    /// Ends what runs in the background, each with a bound.
    ~TessaryApp() override;

    [[nodiscard]] DeviceManager& deviceManager() {
        return deviceManager_;
    }
    [[nodiscard]] DeviceFileService& files() {
        return files_;
    }
    [[nodiscard]] TransferEngine& transferEngine() {
        return engine_;
    }
    [[nodiscard]] bool isDemo() const {
        return setup_.isDemo;
    }
    void startDemo() const {
        setup_.startDemo();
    }

private:
    DeviceFileService& files_;
    TessaryAppSetup setup_;
    TransferEngine engine_;
    DeviceManager deviceManager_;
};

} // namespace tessary
