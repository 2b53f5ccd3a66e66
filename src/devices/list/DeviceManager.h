#pragma once

#include "adb/server/ADBDevices.h"
#include "devices/list/AndroidDevices.h"
#include "devices/list/DeviceSources.h"
#include "devices/list/DeviceTrouble.h"
#include "devices/list/MultiplexerMonitor.h"
#include "phone/records/DeviceInfo.h"
#include "platform/settings/SettingsStore.h"
#include "platform/usb/USBBus.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tessary {

class DeviceServices;
class DeviceProbe;
struct DeviceAnswer;

/// The list of attached devices, kept current. Lives on the main thread and never makes it wait:
/// bus and multiplexer are read, phones are asked and child processes run in the background, and
/// the last answer counts until a new one is there.
///
/// An attach or detach shows at once, details (battery, storages, lock state) as soon as the phone
/// has told them. A phone that something else uses keeps its last figures; one that does not
/// answer delays no other, and is never asked twice at the same time.
class DeviceManager : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds listInterval{1500};
    static constexpr std::chrono::milliseconds storageInterval{5000};
    static constexpr unsigned roundsOfIPhones = 12; ///< of storageInterval

    /// `sources` and `services` must outlive the manager and the work that it has started in the
    /// background. Devices with an id in `alsoAccept` count as phones although no rule knows them.
    DeviceManager(DeviceSources sources, DeviceServices& services,
                  std::vector<USBIds> alsoAccept = {}, QObject* parent = nullptr);
    /// The same with another way of asking devices.
    DeviceManager(DeviceSources sources, std::shared_ptr<DeviceProbe> inquiry,
                  std::vector<USBIds> alsoAccept = {}, QObject* parent = nullptr);
    /// Ends what startListening() began. Answers that are still to come are dropped.
    ~DeviceManager() override;

    /// Watches bus, adb and multiplexer, starts both timers and refreshes the list with storage.
    /// Calling it again starts the timers anew.
    void startListening();
    /// Ends the watch and the timers. The list stays as it is; answers that are still to come are
    /// dropped.
    void stopListening();

    /// Reads bus and multiplexer anew, and asks devices for details: those that are new or lack
    /// some, or all with `forceStorageRefresh`. Returns at once; changes are told by signals.
    void refreshDeviceList(bool forceStorageRefresh);

    /// Sorted by udid.
    [[nodiscard]] const std::vector<DeviceInfo>& devices() const {
        return devices_;
    }
    /// Whether a program runs that competes for Android devices. Asked at each refresh that is not
    /// a timer's, and every `storageInterval`.
    [[nodiscard]] bool hasUSBConflict() const {
        return hasUSBConflict_;
    }
    /// What keeps this attached device (by `DeviceInfo::id()`) from being read; no value when the
    /// last attempt went well.
    [[nodiscard]] std::optional<DeviceTrouble> trouble(const QString& id) const;

    /// The user's choice of protocol for a device. It holds also while the device is away, and from
    /// start to start once there is a store for it.
    void chooseProtocolMode(const QString& udid, ProtocolMode mode);

    /// Takes the choices that were made before from this store, and keeps new ones there.
    void rememberModesIn(std::shared_ptr<SettingsStore> defaults);
    /// Of the store: an object of modes, as their raw values, by udid.
    static inline const QString protocolModesKey = QStringLiteral("Tessary_ProtocolModes");
    /// Of the store: whether phones on the bus are used in Turbo mode only where the user has
    /// chosen it for them. What is set counts from the next refresh on.
    static inline const QString turboByChoiceKey = QStringLiteral("Tessary_TurboByChoice");

Q_SIGNALS:
    /// The list differs from what it was, in any field of any device.
    void devicesChanged();
    void hasUSBConflictChanged(bool hasConflict);
    /// trouble() has another answer for this device.
    void troubleChanged(const QString& id);
    /// No question to a device in the list is under way any more: each has answered, failed or is
    /// busy. Emitted after every round of questions, also when the list is empty.
    void detailsSettled();

private:
    /// One plugging: whether the number is the multiplexer's handle, else USBDeviceEntry::id.
    using Attachment = std::pair<bool, std::uint64_t>;

    void startAndroidListening();
    void poll();
    void askADB();
    [[nodiscard]] Attachment adbAttachment(const QString& serial) const;
    void usbChanged(const USBEvent& event);
    void refreshList(bool forceStorageRefresh);
    void scan(bool forceStorageRefresh);
    void rebuild(bool forceStorageRefresh);
    [[nodiscard]] std::vector<DeviceInfo> attachedDevices(QHash<QString, Attachment>& attachments);
    void carryOverDetails(DeviceInfo& fresh) const;
    void publish(std::vector<DeviceInfo> devices);
    void setTrouble(const QString& id, const std::optional<DeviceTrouble>& trouble);
    [[nodiscard]] bool hasAndroid() const;
    void checkConflict();
    /// Asks these for battery and storage, whatever is known already.
    void refreshDetailsForDevices(const std::vector<DeviceInfo>& devices);
    void ask(const DeviceInfo& device);
    [[nodiscard]] bool lacksDetails(const DeviceInfo& device) const;
    void answered(const QString& id, const DeviceAnswer& answer);
    [[nodiscard]] bool isAsking(const DeviceInfo& device) const;
    void tellWhenSettled();

    USBBus& bus_;
    const std::shared_ptr<DeviceProbe> inquiry_; ///< also held by questions under way
    const std::vector<USBIds> alsoAccept_;
    const bool asksADB_;
    std::vector<ADBDevice> adb_; ///< adb's last answer
    bool isAskingADB_ = false;
    bool adbIsOutdated_ = false;              ///< it has told of a change meanwhile
    bool wasPlugged_ = true;                  ///< something, since adb was last asked
    std::shared_ptr<SettingsStore> defaults_; ///< may be null

    QTimer timer_;
    QTimer storageTimer_;
    unsigned storageRounds_ = 0;
    unsigned polls_ = 0; ///< of the list, by the timer
    std::unique_ptr<USBWatch> watch_;
    /// Counts calls of stopListening(): an answer to a question of an earlier period is dropped.
    unsigned period_ = 0;

    // The bus as it was last read, and kept up with events since.
    std::vector<USBDeviceEntry> entries_;
    bool isScanning_ = false;
    bool scanIsOutdated_ = false; ///< an event came while one was under way
    MultiplexerMonitor iphones_;

    std::vector<DeviceInfo> devices_;
    QHash<QString, Attachment> attachments_; ///< of devices_, by id
    AttachedUdids udids_;                    ///< of the attached Android devices
    QHash<QString, DeviceInfo> details_; ///< what is known of each device, by id; also of gone ones
    QHash<QString, DeviceTrouble> troubles_;   ///< of devices_, by id
    QHash<QString, ProtocolMode> chosenModes_; ///< by udid
    QSet<Attachment> asking_;                  ///< questions under way
    QSet<QString> heard_; ///< phones that have answered since they were plugged in, by id

    bool hasUSBConflict_ = false;
    bool isCheckingConflict_ = false;
};

} // namespace tessary
