#include "ios/Multiplexer.h"

#include "core/DiagnosticsLogger.h"

#include <pthread.h>
#include <usbmuxd.h>

#include <cstring>
#include <utility>

namespace tessary {

namespace {

/// The library ends its thread by cancelling it, which no C++ frame survives.
class CancellationOff {
public:
    CancellationOff() {
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_);
    }
    ~CancellationOff() {
        pthread_setcancelstate(before_, nullptr);
    }
    CancellationOff(const CancellationOff&) = delete;
    CancellationOff& operator=(const CancellationOff&) = delete;

private:
    int before_ = PTHREAD_CANCEL_ENABLE;
};

class Subscription : public MultiplexerWatch {
public:
    explicit Subscription(std::function<void()> changed) : changed_(std::move(changed)) {
        status_ = usbmuxd_events_subscribe(
            &context_,
            [](const usbmuxd_event_t*, void* self) {
                const CancellationOff guard;
                static_cast<Subscription*>(self)->changed_();
            },
            this);
    }
    ~Subscription() override {
        if (status_ == 0)
            usbmuxd_events_unsubscribe(context_);
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

    [[nodiscard]] int status() const {
        return status_;
    }

private:
    const std::function<void()> changed_;
    usbmuxd_subscription_context_t context_ = nullptr;
    int status_ = 0;
};

} // namespace

std::vector<MultiplexerEntry> SystemMultiplexer::devices() {
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

std::unique_ptr<MultiplexerWatch> SystemMultiplexer::watch(std::function<void()> changed) {
    auto subscription = std::make_unique<Subscription>(std::move(changed));
    if (subscription->status() == 0)
        return subscription;
    DiagnosticsLogger::shared().usb.error("Failed to subscribe to usbmuxd events: %d",
                                          {QString::number(subscription->status())});
    return nullptr;
}

} // namespace tessary
