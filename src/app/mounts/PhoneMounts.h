#pragma once

#include "devices/files/PhoneFileSystems.h"
#include "devices/list/DeviceManager.h"
#include "transfer/mount/PhoneMount.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace tessary {

/// The phones that are open in the desktop's file manager: each, or an app's documents, or the
/// photos, is a folder for reading until it is closed, its phone goes or the program ends. Lives on
/// the main thread; mounts come and go in the background.
class PhoneMounts : public QObject {
    Q_OBJECT

public:
    /// Shows a local folder in the desktop's file manager.
    using ShowFolder = std::function<void(const QString& path)>;

    /// All outlive it.
    PhoneMounts(DeviceManager& devices, PhoneFileSystems& phones, ShowFolder showFolder);

    /// Shows a folder of a phone; the whole of it for an empty path. `app` is for iPhones: whose
    /// documents; its photos and videos without one. failed() when this system mounts nothing.
    void open(const DeviceInfo& device, const std::optional<AppInfo>& app, const QString& path);
    /// Whether something of this phone is open.
    [[nodiscard]] bool isOpen(const QString& udid) const;
    /// Whether some program is reading a file of what is open.
    [[nodiscard]] bool isBeingRead() const;
    /// Takes all of a phone out of the file manager.
    void close(const QString& udid);
    /// Takes all away, for good; blocks until no reader is left. For the end of the program.
    void closeAll();

Q_SIGNALS:
    /// isOpen() has another answer for some phone.
    void changed();
    /// `name` of the phone could not be shown.
    void failed(const QString& name);

private:
    struct Mounted {
        DeviceInfo device; ///< as it was attached
        std::shared_ptr<PhoneFileSystem> files;
        std::shared_ptr<PhoneMount> mount; ///< null while it is being made
        QString wanted;                    ///< what is shown once it is there
    };

    void take(const QString& identity, std::shared_ptr<PhoneMount> mount);
    void show(const Mounted& mounted) const;
    void follow();
    void closeIf(const std::function<bool(const Mounted&)>& isToGo);

    DeviceManager& devices_;
    PhoneFileSystems& phones_;
    const ShowFolder showFolder_;
    std::map<QString, Mounted> mounted_; ///< by PhoneFileSystem::identity()
};

} // namespace tessary
