#pragma once

#include "adb/ways/ADBWays.h"
#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"
#include "phone/records/AppInfo.h"
#include "phone/records/DeviceInfo.h"
#include "platform/usb/USBBus.h"

#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

namespace tessary {

/// The file systems of the phones of this machine, each made once: whoever opens a phone by the
/// same way again gets the same one, with its connection. Thread-safe; asks no phone.
class PhoneFileSystems {
public:
    /// Both outlive it.
    PhoneFileSystems(USBBus& bus, ADBWays& adb) : bus_(bus), adb_(adb) {}

    /// An Android phone in the mode that it is to be used in: by adb in Turbo mode where this
    /// machine has it, else over MTP.
    [[nodiscard]] std::shared_ptr<PhoneFileSystem> open(const DeviceInfo& device);
    /// The documents of an iPhone's app; what isMediaFolder() is its photos and videos.
    [[nodiscard]] std::shared_ptr<PhoneFileSystem> openApp(const DeviceInfo& device,
                                                           const AppInfo& app);
    /// An iPhone's photos and videos.
    [[nodiscard]] std::shared_ptr<PhoneFileSystem> openMedia(const DeviceInfo& device);

    /// What orders everything that speaks to a phone.
    [[nodiscard]] std::shared_ptr<PhoneQueue> queueOf(const DeviceInfo& device) {
        return queues_.of(identityOf(device));
    }
    /// Whether open() would use adb.
    [[nodiscard]] bool usesADB(const DeviceInfo& device) {
        return openADB(device) != nullptr;
    }

private:
    using Make =
        std::function<std::shared_ptr<PhoneFileSystem>(const std::shared_ptr<PhoneQueue>&)>;

    std::shared_ptr<PhoneFileSystem> once(const QString& way, const PhoneIdentity& phone,
                                          const Make& make);
    std::shared_ptr<PhoneFileSystem> openADB(const DeviceInfo& device);
    std::shared_ptr<PhoneFileSystem> openAFC(const DeviceInfo& device,
                                             const std::optional<AppInfo>& app);
    void limit();

    struct Opened {
        PhoneIdentity phone;
        std::shared_ptr<PhoneFileSystem> files;
    };

    USBBus& bus_;
    ADBWays& adb_;
    PhoneQueues queues_;
    std::mutex mutex_;
    QHash<QString, Opened> opened_; ///< by way and phone; guarded by mutex_
};

} // namespace tessary
