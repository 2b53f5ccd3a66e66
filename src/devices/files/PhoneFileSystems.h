#pragma once

#include "phone/PhoneFileSystem.h"
#include "phone/PhoneQueue.h"
#include "phone/records/AppInfo.h"
#include "phone/records/DeviceInfo.h"

#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <mutex>

namespace tessary {

/// The file systems of the phones of this machine, each made once: whoever opens a phone by the
/// same way again gets the same one, with its connection. Thread-safe; asks no phone.
class PhoneFileSystems {
public:
    using Make = std::function<std::shared_ptr<PhoneFileSystem>(
        const PhoneIdentity&, const std::shared_ptr<PhoneQueue>&)>;
    using MakeApp = std::function<std::shared_ptr<PhoneFileSystem>(
        const PhoneIdentity&, const AppInfo&, const std::shared_ptr<PhoneQueue>&)>;

    /// How the file systems of each way are made, soon and without asking a phone. A null result of
    /// `adb` means that this machine has no such way.
    struct Ways {
        Make mtp;
        Make adb;
        MakeApp app;
        Make media;
    };

    explicit PhoneFileSystems(Ways ways);

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
    [[nodiscard]] bool usesADB(const DeviceInfo& device);

private:
    std::shared_ptr<PhoneFileSystem>
    once(const QString& way, const PhoneIdentity& phone,
         const std::function<std::shared_ptr<PhoneFileSystem>(const std::shared_ptr<PhoneQueue>&)>&
             make);
    void limit();

    struct Opened {
        PhoneIdentity phone;
        std::shared_ptr<PhoneFileSystem> files;
    };

    const Ways ways_;
    PhoneQueues queues_;
    std::mutex mutex_;
    QHash<QString, Opened> opened_; ///< by way and phone; guarded by mutex_
};

} // namespace tessary
