#include "ios/Multiplexer.h"

#include "base/log/DiagnosticsLogger.h"
#include "ios/Handles.h"

#include <usbmuxd.h>

#include <cstring>
#include <mutex>
#include <utility>

namespace tessary {

namespace {

/// The process's one subscription, and who listens to it. The library's thread does not survive
/// that subscriptions end and begin at the same time: this one is made once and stays.
class Events {
public:
    /// Never released: the library's thread uses it until the process ends.
    static Events& shared() {
        static Events& events = *new Events;
        return events;
    }

    /// The library's status; 0 when there is a subscription.
    [[nodiscard]] int subscribe() {
        const std::scoped_lock lock(subscribing_);
        if (!isSubscribed_) {
            const int status = usbmuxd_events_subscribe(
                &context_,
                [](const usbmuxd_event_t*, void* self) { static_cast<Events*>(self)->tell(); },
                this);
            if (status != 0)
                return status;
            isSubscribed_ = true;
        }
        return 0;
    }
    void add(const std::function<void()>* listener) {
        const std::scoped_lock lock(mutex_);
        listeners_.push_back(listener);
    }
    /// The listener is not called any more when this returns.
    void remove(const std::function<void()>* listener) {
        const std::scoped_lock lock(mutex_);
        std::erase(listeners_, listener);
    }

private:
    void tell() {
        const std::scoped_lock lock(mutex_);
        for (const std::function<void()>* listener : listeners_)
            (*listener)();
    }

    std::mutex subscribing_;
    usbmuxd_subscription_context_t context_ = nullptr; ///< guarded by subscribing_
    bool isSubscribed_ = false;                        ///< guarded by subscribing_
    std::mutex mutex_;
    std::vector<const std::function<void()>*> listeners_; ///< guarded by mutex_
};

std::optional<usbmuxd_device_info_t> lookUp(const QString& udid) {
    constexpr auto options =
        static_cast<usbmux_lookup_options>(DEVICE_LOOKUP_USBMUX | DEVICE_LOOKUP_NETWORK);
    usbmuxd_device_info_t info{};
    return usbmuxd_get_device(udid.toUtf8().constData(), &info, options) > 0 ? std::optional(info)
                                                                             : std::nullopt;
}

} // namespace

MultiplexerWatch::MultiplexerWatch(std::function<void()> changed) : changed_(std::move(changed)) {
    Events::shared().add(&changed_);
}

MultiplexerWatch::~MultiplexerWatch() {
    Events::shared().remove(&changed_);
}

std::optional<std::uint32_t> attachmentOf(const QString& udid) {
    const auto info = lookUp(udid);
    return info ? std::optional<std::uint32_t>(info->handle) : std::nullopt;
}

bool isPaired(const QString& udid) {
    char* record = nullptr;
    std::uint32_t size = 0;
    const int status = usbmuxd_read_pair_record(udid.toUtf8().constData(), &record, &size);
    const LibraryText owner(record);
    return status == 0 && size > 0;
}

bool isOnNetwork(const QString& udid) {
    const auto info = lookUp(udid);
    return info && info->conn_type == CONNECTION_TYPE_NETWORK;
}

std::vector<MultiplexerEntry> Multiplexer::devices() {
    usbmuxd_device_info_t* list = nullptr;
    const int count = usbmuxd_get_device_list(&list);
    std::vector<MultiplexerEntry> entries;
    for (int i = 0; i < count; ++i) {
        const usbmuxd_device_info_t& info = list[i];
        const std::size_t length = strnlen(info.udid, sizeof info.udid);
        entries.push_back({QString::fromLatin1(info.udid, static_cast<qsizetype>(length)),
                           info.handle, info.product_id,
                           info.conn_type == CONNECTION_TYPE_NETWORK ? ConnectionType::network
                                                                     : ConnectionType::usb});
    }
    if (count >= 0)
        usbmuxd_device_list_free(&list);
    return entries;
}

std::unique_ptr<MultiplexerWatch> Multiplexer::watch(std::function<void()> changed) {
    const int status = Events::shared().subscribe();
    if (status == 0)
        return std::make_unique<MultiplexerWatch>(std::move(changed));
    DiagnosticsLogger::shared().usb.error("Failed to subscribe to usbmuxd events: %d",
                                          {QString::number(status)});
    return nullptr;
}

} // namespace tessary
