#include "simulator/usb/VirtualUSBBus.h"

#include "base/threads/ThreadName.h"
#include "simulator/usb/VirtualUSBDevice.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <map>
#include <thread>

namespace tessary {

/// The table of what is plugged in, and the thread that tells the watches.
class VirtualUSBBus::State : public std::enable_shared_from_this<State> {
public:
    using Callback = std::function<void(const USBEvent&)>;

    void start() {
        thread_ = std::jthread([this](std::stop_token stop) { run(stop); });
    }

    /// Detaches everything and ends the thread.
    void shutDown() {
        for (const auto& port : ports())
            port->unplug();
        thread_ = {};
    }

    std::uint64_t attach(VirtualUSBFunction& function, const QString& location);
    [[nodiscard]] std::shared_ptr<VirtualUSBPort> portAt(const QString& location) const;
    [[nodiscard]] std::shared_ptr<VirtualUSBPort> portOf(std::uint64_t id) const;
    [[nodiscard]] std::vector<std::shared_ptr<VirtualUSBPort>> ports() const;

    void setOpenFaults(const QString& location, const VirtualOpenFaults& faults);
    void setPrograms(const QString& location, const QStringList& programs);
    [[nodiscard]] QStringList programs(std::uint64_t id) const;

    [[nodiscard]] std::uint64_t addWatch(Callback callback);
    void removeWatch(std::uint64_t watch);

private:
    struct Posted {
        USBEvent event;
        std::uint64_t newestWatch = 0; ///< watches made later do not hear of it
    };
    struct Settings {
        VirtualOpenFaults faults;
        QStringList programs;
    };

    void gone(std::uint64_t id);
    void post(USBEvent::Kind kind, const USBDeviceEntry& entry);
    void run(const std::stop_token& stop);
    void tell(std::unique_lock<std::mutex>& lock, const Posted& posted);

    mutable std::mutex mutex_; ///< guards all below but the thread
    std::condition_variable_any wake_;
    std::condition_variable told_;
    std::map<QString, std::shared_ptr<VirtualUSBPort>> ports_;
    std::map<QString, Settings> settings_;
    std::map<std::uint64_t, Callback> watches_;
    std::deque<Posted> posted_;
    std::uint64_t lastID_ = 0;
    std::uint64_t lastWatch_ = 0;
    std::uint64_t telling_ = 0; ///< the watch whose callback runs

    std::jthread thread_;
};

std::uint64_t VirtualUSBBus::State::attach(VirtualUSBFunction& function, const QString& location) {
    const VirtualUSBDescription description = function.description();
    USBDeviceEntry entry;
    entry.vendorID = description.vendorID;
    entry.productID = description.productID;
    entry.vendorName = description.vendorName;
    entry.productName = description.productName;
    entry.registryName = description.productName;
    entry.serialNumber = description.serialNumber;
    entry.location = location;
    for (const VirtualUSBInterfaceDescription& one : description.interfaces)
        entry.interfaces.push_back({static_cast<std::uint8_t>(entry.interfaces.size()),
                                    one.interfaceClass, one.interfaceSubclass, one.protocol,
                                    one.name});
    std::shared_ptr<VirtualUSBPort> port;
    {
        const std::lock_guard lock(mutex_);
        if (ports_.contains(location))
            return 0;
        entry.id = ++lastID_;
        port = std::make_shared<VirtualUSBPort>(function, entry,
                                                [weak = weak_from_this(), id = entry.id] {
                                                    if (const auto state = weak.lock())
                                                        state->gone(id);
                                                });
        port->openFaults().set(settings_[location].faults);
        ports_[location] = port;
        post(USBEvent::Kind::attached, entry);
    }
    port->plug(port);
    return entry.id;
}

void VirtualUSBBus::State::gone(std::uint64_t id) {
    const std::lock_guard lock(mutex_);
    const auto found =
        std::ranges::find_if(ports_, [&](const auto& row) { return row.second->entry().id == id; });
    if (found == ports_.end())
        return;
    post(USBEvent::Kind::detached, found->second->entry());
    ports_.erase(found);
}

void VirtualUSBBus::State::post(USBEvent::Kind kind, const USBDeviceEntry& entry) {
    posted_.push_back({{kind, entry}, lastWatch_});
    wake_.notify_all();
}

void VirtualUSBBus::State::run(const std::stop_token& stop) {
    nameCurrentThread("virtual-usb");
    std::unique_lock lock(mutex_);
    while (wake_.wait(lock, stop, [&] { return !posted_.empty(); })) {
        const Posted posted = std::move(posted_.front());
        posted_.pop_front();
        tell(lock, posted);
    }
}

void VirtualUSBBus::State::tell(std::unique_lock<std::mutex>& lock, const Posted& posted) {
    for (auto next = watches_.begin();
         next != watches_.end() && next->first <= posted.newestWatch;) {
        telling_ = next->first;
        const Callback callback = next->second;
        lock.unlock();
        callback(posted.event);
        lock.lock();
        next = watches_.upper_bound(telling_);
        telling_ = 0;
        told_.notify_all();
    }
}

std::uint64_t VirtualUSBBus::State::addWatch(Callback callback) {
    const std::lock_guard lock(mutex_);
    watches_[++lastWatch_] = std::move(callback);
    return lastWatch_;
}

void VirtualUSBBus::State::removeWatch(std::uint64_t watch) {
    std::unique_lock lock(mutex_);
    watches_.erase(watch);
    // A watch that its own callback destroys cannot wait for that callback.
    if (std::this_thread::get_id() != thread_.get_id())
        told_.wait(lock, [&] { return telling_ != watch; });
}

std::shared_ptr<VirtualUSBPort> VirtualUSBBus::State::portAt(const QString& location) const {
    const std::lock_guard lock(mutex_);
    const auto found = ports_.find(location);
    return found == ports_.end() ? nullptr : found->second;
}

std::shared_ptr<VirtualUSBPort> VirtualUSBBus::State::portOf(std::uint64_t id) const {
    const std::lock_guard lock(mutex_);
    for (const auto& [location, port] : ports_) {
        if (port->entry().id == id)
            return port;
    }
    return nullptr;
}

std::vector<std::shared_ptr<VirtualUSBPort>> VirtualUSBBus::State::ports() const {
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<VirtualUSBPort>> all;
    for (const auto& [location, port] : ports_)
        all.push_back(port);
    return all;
}

void VirtualUSBBus::State::setOpenFaults(const QString& location, const VirtualOpenFaults& faults) {
    const std::lock_guard lock(mutex_);
    settings_[location].faults = faults;
    if (const auto found = ports_.find(location); found != ports_.end())
        found->second->openFaults().set(faults);
}

void VirtualUSBBus::State::setPrograms(const QString& location, const QStringList& programs) {
    const std::lock_guard lock(mutex_);
    settings_[location].programs = programs;
}

QStringList VirtualUSBBus::State::programs(std::uint64_t id) const {
    const auto port = portOf(id);
    if (!port)
        return {};
    const std::lock_guard lock(mutex_);
    const auto found = settings_.find(port->entry().location);
    return found == settings_.end() ? QStringList() : found->second.programs;
}

VirtualUSBBus::VirtualUSBBus() : state_(std::make_shared<State>()) {
    state_->start();
}

VirtualUSBBus::~VirtualUSBBus() {
    state_->shutDown();
}

std::uint64_t VirtualUSBBus::attach(VirtualUSBFunction& function, const QString& location) {
    return state_->attach(function, location);
}

bool VirtualUSBBus::detach(const QString& location) {
    const auto port = state_->portAt(location);
    if (!port)
        return false;
    port->unplug();
    return true;
}

void VirtualUSBBus::setOpenFaults(const QString& location, const VirtualOpenFaults& faults) {
    state_->setOpenFaults(location, faults);
}

void VirtualUSBBus::setProgramsHolding(const QString& location, const QStringList& programs) {
    state_->setPrograms(location, programs);
}

std::vector<USBDeviceEntry> VirtualUSBBus::devices() {
    std::vector<USBDeviceEntry> entries;
    for (const auto& port : state_->ports())
        entries.push_back(port->entry());
    return entries;
}

std::unique_ptr<USBDevice> VirtualUSBBus::device(std::uint64_t id) {
    auto port = state_->portOf(id);
    return port ? std::make_unique<VirtualUSBDevice>(std::move(port)) : nullptr;
}

std::unique_ptr<USBWatch> VirtualUSBBus::watch(std::function<void(const USBEvent&)> callback) {
    class Watch : public USBWatch {
    public:
        Watch(std::shared_ptr<State> state, std::uint64_t id) : state_(std::move(state)), id_(id) {}
        ~Watch() override {
            state_->removeWatch(id_);
        }

    private:
        std::shared_ptr<State> state_;
        std::uint64_t id_;
    };
    const std::uint64_t id = state_->addWatch(std::move(callback));
    return std::make_unique<Watch>(state_, id);
}

QStringList VirtualUSBBus::programsHolding(std::uint64_t id) {
    return state_->programs(id);
}

} // namespace tessary
