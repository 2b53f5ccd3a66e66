#pragma once

#include "base/local/FileHandle.h"
#include "platform/usb/USBBus.h"
#include "platform/usb/USBRegistry.h"
#include "platform/usb/UdevPointers.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <thread>

namespace tessary {

/// Tells of USB devices but hubs that come and go, on a thread of its own named "tessary-usb", from
/// the moment it is made until it is destroyed. Not to be destroyed from within the callback.
///
/// Listens to udevd where it runs, since only after its rules is a device node usable, and to the
/// kernel where it does not.
class UdevMonitor : public USBWatch {
public:
    using Callback = std::function<void(const USBEvent&)>;

    /// Null where this process gets no such messages.
    [[nodiscard]] static std::unique_ptr<UdevMonitor> start(Callback callback);
    ~UdevMonitor() override;

private:
    struct Message {
        QByteArray action;
        QByteArray sysPath;
    };

    UdevMonitor() = default;
    [[nodiscard]] bool listen();
    void run();
    [[nodiscard]] std::optional<Message> receive();
    void handle(const Message& message);
    void awaitRemoval(const QByteArray& sysPath) const;
    void rescan();
    void attach(const QByteArray& sysPath, const USBDeviceEntry& entry);
    void detach(const QByteArray& sysPath);

    Callback callback_;
    UdevPointer context_;
    UdevMonitorPointer monitor_;
    FileHandle stopEvent_;
    std::map<QByteArray, USBDeviceEntry> known_; ///< by folder in sysfs; only the thread's
    std::thread thread_;
};

} // namespace tessary
