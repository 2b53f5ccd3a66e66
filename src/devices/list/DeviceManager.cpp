#include "devices/list/DeviceManager.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"
#include "base/threads/EndInBackground.h"
#include "devices/files/DeviceServices.h"
#include "devices/list/ADBPhones.h"
#include "devices/list/DeviceProbe.h"
#include "devices/list/IPhoneDevices.h"

#include <QJsonObject>
#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessary {

namespace {

/// Devices whose details are kept while they are away. A device that shows up under ever new names
/// must not fill the memory.
constexpr qsizetype rememberedDevices = 256;

} // namespace

DeviceManager::DeviceManager(DeviceSources sources, DeviceServices& services,
                             std::vector<USBIds> alsoAccept, QObject* parent)
    : DeviceManager(sources, std::make_shared<PhoneProbe>(services), std::move(alsoAccept),
                    parent) {}

DeviceManager::DeviceManager(DeviceSources sources, std::shared_ptr<DeviceProbe> inquiry,
                             std::vector<USBIds> alsoAccept, QObject* parent)
    : QObject(parent),
      bus_(sources.usb),
      inquiry_(std::move(inquiry)),
      alsoAccept_(std::move(alsoAccept)),
      asksADB_(sources.asksADB),
      iphones_(sources.multiplexer) {
    MainThread::assertCurrent();
    timer_.setInterval(listInterval);
    connect(&timer_, &QTimer::timeout, this, [this] { poll(); });
    storageTimer_.setInterval(storageInterval);
    connect(&iphones_, &MultiplexerMonitor::wasRead, this, [this] { rebuild(false); });
    connect(&iphones_, &MultiplexerMonitor::eventCame, this, [this] {
        // Trust may have been granted: whoever refused is asked again at once.
        for (const DeviceInfo& device : devices_)
            if (device.platform == DevicePlatform::iOS && trouble(device.id()))
                refreshDetailsForDevices({device});
    });
    connect(&storageTimer_, &QTimer::timeout, this, [this] {
        checkConflict(); // not at each poll of the list
        // An iPhone is asked by a process and a handshake of its own each time, and whoever clicks
        // meanwhile waits for that: once its figures are known they may be a minute old.
        const bool isMinute = ++storageRounds_ % roundsOfIPhones == 0;
        std::vector<DeviceInfo> due;
        std::copy_if(
            devices_.begin(), devices_.end(), std::back_inserter(due), [&](const DeviceInfo& one) {
                return isMinute || one.platform != DevicePlatform::iOS || lacksDetails(one);
            });
        refreshDetailsForDevices(due);
    });
}

DeviceManager::~DeviceManager() {
    stopListening();
}

void DeviceManager::startListening() {
    startAndroidListening();
    if (asksADB_)
        inquiry_->onADBChange([guard = QPointer<DeviceManager>(this), period = period_] {
            MainThread::post([guard, period] {
                if (guard && guard->period_ == period)
                    guard->askADB();
            });
        });
    iphones_.start();
    timer_.start();
    storageTimer_.start();
    refreshDeviceList(true);
}

void DeviceManager::stopListening() {
    timer_.stop();
    storageTimer_.stop();
    endInBackground(std::move(watch_));
    iphones_.stop();
    if (asksADB_)
        inquiry_->onADBChange({});
    ++period_;
}

/// What the bus tells by itself is read only now and then, should an event have been lost. The
/// multiplexer's program may begin to run at any time, which nobody tells.
void DeviceManager::poll() {
    constexpr unsigned readEvery = 40;
    if (!watch_ || ++polls_ % readEvery == 0)
        return refreshList(false);
    iphones_.refresh();
    rebuild(false);
}

void DeviceManager::startAndroidListening() {
    DiagnosticsLogger::shared().usb.info("Watching the USB bus for Android phones");
    const auto changed = [guard = QPointer<DeviceManager>(this),
                          period = period_](const USBEvent& event) {
        MainThread::post([guard, period, event] {
            if (guard && guard->period_ == period)
                guard->usbChanged(event);
        });
    };
    // A watch begins with a look at every device, which takes as long as one that hangs.
    runInBackground(
        this, [&bus = bus_, changed] { return bus.watch(changed); },
        [this, period = period_](BackgroundResult<std::unique_ptr<USBWatch>> result) {
            if (!result.succeeded())
                return;
            std::unique_ptr<USBWatch> watch = result.take();
            if (period == period_)
                std::swap(watch, watch_);
            // It waits for its thread, which may be looking at a device.
            endInBackground(std::move(watch));
        });
}

/// Shows an attach or detach at once, and reads the bus anew for what the event does not tell.
void DeviceManager::usbChanged(const USBEvent& event) {
    std::erase_if(entries_, [&](const USBDeviceEntry& entry) {
        return entry.id == event.entry.id || entry.location == event.entry.location;
    });
    if (event.kind == USBEvent::Kind::attached)
        entries_.insert(std::upper_bound(entries_.begin(), entries_.end(), event.entry,
                                         [](const USBDeviceEntry& a, const USBDeviceEntry& b) {
                                             return a.location < b.location;
                                         }),
                        event.entry);
    wasPlugged_ = true;
    scanIsOutdated_ = isScanning_;
    if (!isScanning_)
        rebuild(false);
    refreshDeviceList(false);
}

void DeviceManager::refreshDeviceList(bool forceStorageRefresh) {
    checkConflict();
    refreshList(forceStorageRefresh);
}

void DeviceManager::refreshList(bool forceStorageRefresh) {
    iphones_.refresh();
    askADB();
    if (isScanning_)
        rebuild(forceStorageRefresh); // the last answer serves until the next one is there
    else
        scan(forceStorageRefresh);
}

/// Names and serial numbers come from the kernel, which makes their reader wait while a device is
/// being set up or does not react: the bus is read in the background.
void DeviceManager::scan(bool forceStorageRefresh) {
    isScanning_ = true;
    scanIsOutdated_ = false;
    runInBackground(
        this, [&bus = bus_] { return bus.devices(); },
        [this, forceStorageRefresh,
         period = period_](BackgroundResult<std::vector<USBDeviceEntry>> result) {
            isScanning_ = false;
            if (period != period_) {
                if (timer_.isActive())
                    scan(true);
            } else if (scanIsOutdated_) {
                scan(forceStorageRefresh);
            } else {
                if (result.succeeded())
                    entries_ = result.take();
                rebuild(forceStorageRefresh);
            }
        });
}

/// Its last answer counts until the next one is there: adb may have to start its server first.
void DeviceManager::askADB() {
    if (!asksADB_)
        return;
    adbIsOutdated_ = isAskingADB_;
    if (isAskingADB_)
        return;
    isAskingADB_ = true;
    runInBackground(
        this,
        [inquiry = inquiry_, lookAgain = std::exchange(wasPlugged_, false)](
            const std::stop_token& stop) { return inquiry->adbDevices(lookAgain, stop); },
        [this, period = period_](BackgroundResult<std::vector<ADBDevice>> result) {
            isAskingADB_ = false;
            if (adbIsOutdated_)
                askADB();
            if (period != period_)
                return;
            std::vector<ADBDevice> found;
            if (result.succeeded())
                found = result.take();
            if (std::exchange(adb_, found) != adb_)
                rebuild(false);
            else
                tellWhenSettled();
        });
}

/// A number for a phone that is on no bus. It says whether adb still reaches the same one.
DeviceManager::Attachment DeviceManager::adbAttachment(const QString& serial) const {
    constexpr std::uint64_t apart = std::uint64_t{1} << 63; // from what the bus gives out
    const auto found = std::find_if(adb_.begin(), adb_.end(),
                                    [&](const ADBDevice& one) { return one.serial == serial; });
    const QString key = serial + (found == adb_.end() ? QString() : found->transportId);
    return {false, apart | qHash(key)};
}

/// What bus, adb and multiplexer have, sorted, and the attachment of each.
std::vector<DeviceInfo> DeviceManager::attachedDevices(QHash<QString, Attachment>& attachments) {
    std::vector<DeviceInfo> devices = androidDevices(entries_, alsoAccept_, udids_);
    udids_.clear();
    for (const DeviceInfo& device : devices) {
        const auto entry =
            std::find_if(entries_.begin(), entries_.end(), [&](const USBDeviceEntry& one) {
                return one.location == device.usbLocation;
            });
        udids_.insert(entry->id, device.udid);
        attachments.insert(device.id(), {false, entry->id});
    }
    for (DeviceInfo& phone : iosDevices(iphones_.entries())) {
        attachments.insert(phone.id(), {true, phone.handle});
        devices.push_back(std::move(phone));
    }
    const std::size_t attached = devices.size();
    addADBPhones(devices, adb_);
    for (std::size_t n = attached; n < devices.size(); ++n)
        attachments.insert(devices[n].id(), adbAttachment(devices[n].udid));
    std::stable_sort(devices.begin(), devices.end(),
                     [](const DeviceInfo& a, const DeviceInfo& b) { return a.udid < b.udid; });
    return devices;
}

/// Whether the next poll has something to ask. An iPhone that waits for its user is asked each
/// time: what to do is on its own screen, and PairingQuestions spare it those that would be
/// repeated.
bool DeviceManager::lacksDetails(const DeviceInfo& device) const {
    if (device.platform == DevicePlatform::iOS)
        return !device.deviceName || trouble(device.id()) || !heard_.contains(device.id());
    return device.volumes.empty() || !device.batteryLevel;
}

void DeviceManager::rebuild(bool forceStorageRefresh) {
    QHash<QString, Attachment> attachments;
    std::vector<DeviceInfo> fresh = attachedDevices(attachments);
    std::vector<DeviceInfo> toAsk;
    for (DeviceInfo& device : fresh) {
        carryOverDetails(device);
        const auto before = attachments_.constFind(device.id());
        const bool isNew =
            before == attachments_.cend() || *before != attachments.value(device.id());
        if (isNew || forceStorageRefresh || lacksDetails(device))
            toAsk.push_back(device);
    }
    std::swap(attachments_, attachments);
    publish(std::move(fresh));
    for (auto before = attachments.cbegin(); before != attachments.cend(); ++before)
        if (attachments_.value(before.key()) != before.value()) {
            heard_.remove(before.key());
            setTrouble(before.key(), std::nullopt);
        }
    refreshDetailsForDevices(toAsk);
    tellWhenSettled();
}

/// Gives a device that was just found what is known of it, so that no detail blinks.
void DeviceManager::carryOverDetails(DeviceInfo& fresh) const {
    const auto current = std::find_if(devices_.begin(), devices_.end(), [&](const DeviceInfo& one) {
        return one.udid == fresh.udid;
    });
    const auto remembered = details_.constFind(fresh.id());
    const DeviceInfo* known = current != devices_.end()       ? &*current
                              : remembered != details_.cend() ? &*remembered
                                                              : nullptr;
    if (known != nullptr) {
        if (!fresh.deviceName)
            fresh.deviceName = known->deviceName;
        if (!fresh.manufacturer)
            fresh.manufacturer = known->manufacturer;
        if (!fresh.serialNumber)
            fresh.serialNumber = known->serialNumber;
        fresh.batteryLevel = known->batteryLevel;
        fresh.isLocked = known->isLocked;
        fresh.freeStorageBytes = known->freeStorageBytes;
        fresh.totalStorageBytes = known->totalStorageBytes;
        fresh.volumes = known->volumes;
    }
    const bool isOnBus =
        fresh.platform == DevicePlatform::android && fresh.connectionType == ConnectionType::usb;
    if (isOnBus && defaults_ && defaults_->value(turboByChoiceKey).toBool())
        fresh.protocolMode = ProtocolMode::mtp;
    fresh.protocolMode = chosenModes_.value(fresh.udid, fresh.protocolMode);
}

void DeviceManager::publish(std::vector<DeviceInfo> devices) {
    if (devices == devices_)
        return;
    const bool couldBeHeld = hasAndroid();
    devices_ = std::move(devices);
    if (!couldBeHeld && hasAndroid())
        checkConflict();
    if (details_.size() >= rememberedDevices)
        details_.clear();
    for (const DeviceInfo& device : devices_)
        details_.insert(device.id(), device);
    Q_EMIT devicesChanged();
}

void DeviceManager::setTrouble(const QString& id, const std::optional<DeviceTrouble>& trouble) {
    if (this->trouble(id) == trouble)
        return;
    if (trouble)
        troubles_.insert(id, *trouble);
    else
        troubles_.remove(id);
    Q_EMIT troubleChanged(id);
}

bool DeviceManager::hasAndroid() const {
    return std::any_of(devices_.begin(), devices_.end(), [](const DeviceInfo& one) {
        return one.platform == DevicePlatform::android;
    });
}

/// By a child process, which costs more than all else here: not without a phone that another
/// program could hold.
void DeviceManager::checkConflict() {
    if (isCheckingConflict_ || (!hasAndroid() && !hasUSBConflict_))
        return;
    isCheckingConflict_ = true;
    runInBackground(
        this, [inquiry = inquiry_] { return inquiry->isConflictingAppRunning(); },
        [this, period = period_](BackgroundResult<bool> result) {
            isCheckingConflict_ = false;
            const bool hasConflict = result.succeeded() ? result.take() : hasUSBConflict_;
            if (period != period_ || hasConflict == hasUSBConflict_)
                return;
            hasUSBConflict_ = hasConflict;
            Q_EMIT hasUSBConflictChanged(hasConflict);
        });
}

void DeviceManager::refreshDetailsForDevices(const std::vector<DeviceInfo>& devices) {
    for (const DeviceInfo& device : devices)
        if (attachments_.contains(device.id()) && !isAsking(device))
            ask(device);
}

/// Each question is work of its own: a device that hangs delays no other.
void DeviceManager::ask(const DeviceInfo& device) {
    const QString id = device.id();
    const Attachment attachment = attachments_.value(id);
    asking_.insert(attachment);
    runInBackground(
        this,
        [inquiry = inquiry_, device](const std::stop_token& stop) {
            return inquiry->ask(device, stop);
        },
        [this, id, attachment, period = period_](BackgroundResult<DeviceAnswer> result) {
            asking_.remove(attachment);
            if (period != period_)
                return;
            if (result.succeeded() && attachments_.value(id) == attachment)
                answered(id, result.take());
            tellWhenSettled();
        });
}

void DeviceManager::answered(const QString& id, const DeviceAnswer& answer) {
    using Outcome = DeviceAnswer::Outcome;
    if (answer.outcome != Outcome::busy)
        heard_.insert(id);
    if (answer.outcome == Outcome::failed)
        setTrouble(id, answer.trouble);
    if (answer.outcome != Outcome::answered)
        return;
    std::vector<DeviceInfo> devices = devices_;
    for (DeviceInfo& device : devices) {
        if (device.id() != id)
            continue;
        if (answer.figures.battery)
            device.batteryLevel = answer.figures.battery;
        if (device.platform == DevicePlatform::iOS) {
            if (answer.deviceName)
                device.deviceName = answer.deviceName;
            if (answer.storage) {
                device.freeStorageBytes = answer.storage->freeBytes;
                device.totalStorageBytes = answer.storage->totalBytes;
            }
            continue;
        }
        device.volumes = answer.figures.volumes;
        device.isLocked = device.volumes.empty();
    }
    publish(std::move(devices));
    setTrouble(id, answer.trouble);
}

bool DeviceManager::isAsking(const DeviceInfo& device) const {
    return asking_.contains(attachments_.value(device.id()));
}

void DeviceManager::tellWhenSettled() {
    const bool isAnyAsked = std::any_of(devices_.begin(), devices_.end(),
                                        [this](const DeviceInfo& one) { return isAsking(one); });
    if (!isScanning_ && !isAskingADB_ && !iphones_.isReading() && !isAnyAsked)
        Q_EMIT detailsSettled();
}

std::optional<DeviceTrouble> DeviceManager::trouble(const QString& id) const {
    const auto found = troubles_.constFind(id);
    return found == troubles_.cend() ? std::nullopt : std::optional(*found);
}

void DeviceManager::chooseProtocolMode(const QString& udid, ProtocolMode mode) {
    chosenModes_.insert(udid, mode);
    if (defaults_) {
        QJsonObject modes = defaults_->value(protocolModesKey).toObject();
        modes.insert(udid, rawValue(mode));
        defaults_->setValue(protocolModesKey, modes);
    }
    std::vector<DeviceInfo> devices = devices_;
    for (DeviceInfo& device : devices)
        if (device.udid == udid)
            device.protocolMode = mode;
    publish(std::move(devices));
}

void DeviceManager::rememberModesIn(std::shared_ptr<SettingsStore> defaults) {
    defaults_ = std::move(defaults);
    const QJsonObject modes = defaults_->value(protocolModesKey).toObject();
    for (auto choice = modes.begin(); choice != modes.end(); ++choice)
        if (const auto mode = protocolModeFromRawValue(choice.value().toString()))
            chosenModes_.insert(choice.key(), *mode);
}

} // namespace tessary
