#include "platform/usb/UdevMonitor.h"

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <set>

namespace tessary {

using namespace std::chrono_literals;

namespace {

const char* eventSource() {
    return ::access("/run/udev/control", F_OK) == 0 ? "udev" : "kernel";
}

} // namespace

std::unique_ptr<UdevMonitor> UdevMonitor::start(Callback callback) {
    std::unique_ptr<UdevMonitor> watch(new UdevMonitor);
    watch->callback_ = std::move(callback);
    watch->stopEvent_ = FileHandle(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!watch->stopEvent_.isOpen() || !watch->listen())
        return nullptr;
    // After listening began: what comes from now on is either in this list or told of.
    for (USBRegistryEntry& one : USBRegistry::scan())
        watch->known_.emplace(one.sysPath, one.entry);
    watch->thread_ = std::thread([self = watch.get()] { self->run(); });
    pthread_setname_np(watch->thread_.native_handle(), "tessary-usb");
    return watch;
}

bool UdevMonitor::listen() {
    const std::scoped_lock lock(udevMutex());
    context_.reset(udev_new());
    if (!context_)
        return false;
    monitor_.reset(udev_monitor_new_from_netlink(context_.get(), eventSource()));
    return monitor_ &&
           udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), "usb", "usb_device") >=
               0 &&
           udev_monitor_enable_receiving(monitor_.get()) >= 0;
}

UdevMonitor::~UdevMonitor() {
    if (thread_.joinable()) {
        eventfd_write(stopEvent_.get(), 1);
        thread_.join();
    }
}

void UdevMonitor::run() {
    std::array<pollfd, 2> sources{
        {{udev_monitor_get_fd(monitor_.get()), POLLIN, 0}, {stopEvent_.get(), POLLIN, 0}}};
    while (true) {
        if (::poll(sources.data(), sources.size(), -1) < 0 && errno != EINTR)
            return;
        if (sources[1].revents)
            return;
        if (!sources[0].revents)
            continue;
        if (const auto message = receive())
            handle(*message);
        else if (errno == ENOBUFS)
            rescan();
    }
}

std::optional<UdevMonitor::Message> UdevMonitor::receive() {
    const std::scoped_lock lock(udevMutex());
    errno = 0;
    const UdevDevicePointer device(udev_monitor_receive_device(monitor_.get()));
    if (!device)
        return std::nullopt;
    return Message{udev_device_get_action(device.get()), udev_device_get_syspath(device.get())};
}

void UdevMonitor::handle(const Message& message) {
    if (message.action == "remove") {
        awaitRemoval(message.sysPath);
        detach(message.sysPath);
    } else if (message.action == "add" && !USBRegistry::isHub(message.sysPath)) {
        if (const auto found = USBRegistry::read(message.sysPath))
            attach(message.sysPath, found->entry);
    }
}

/// The kernel tells of a removal just before it carries it out. Who is told lists the devices anew
/// and must not find the old one any more.
void UdevMonitor::awaitRemoval(const QByteArray& sysPath) const {
    const auto known = known_.find(sysPath);
    for (int tries = 0; tries < 100 && known != known_.end(); ++tries) {
        if (!USBRegistry::isAttached({known->second, sysPath, {}}))
            return;
        std::this_thread::sleep_for(2ms);
    }
}

/// The kernel dropped messages: what is known is compared with what is there.
void UdevMonitor::rescan() {
    const std::vector<USBRegistryEntry> attached = USBRegistry::scan();
    std::set<QByteArray> gone;
    for (const auto& [sysPath, entry] : known_)
        gone.insert(sysPath);
    for (const USBRegistryEntry& one : attached)
        gone.erase(one.sysPath);
    for (const QByteArray& sysPath : gone)
        detach(sysPath);
    for (const USBRegistryEntry& one : attached)
        attach(one.sysPath, one.entry);
}

void UdevMonitor::attach(const QByteArray& sysPath, const USBDeviceEntry& entry) {
    if (const auto known = known_.find(sysPath); known != known_.end()) {
        if (known->second.id == entry.id)
            return;
        // Taken out and put in again before this thread looked.
        detach(sysPath);
    }
    known_.insert_or_assign(sysPath, entry);
    callback_({USBEvent::Kind::attached, entry});
}

void UdevMonitor::detach(const QByteArray& sysPath) {
    const auto known = known_.find(sysPath);
    if (known == known_.end())
        return;
    const USBDeviceEntry entry = known->second;
    known_.erase(known);
    callback_({USBEvent::Kind::detached, entry});
}

} // namespace tessary
