#include "platform/usb/LibusbTransfer.h"

#include "platform/usb/LibusbCodes.h"
#include "platform/usb/LibusbHandle.h"

#include <algorithm>
#include <atomic>
#include <new>

namespace tessary {

using namespace std::chrono;

struct LibusbTransfer::State {
    const LibusbHandle* handle = nullptr;
    libusb_transfer* transfer = nullptr;
    std::size_t capacity = 0;
    unsigned char* memory = nullptr;
    bool mapped = false;
    int completed = 1; ///< 0 while in flight; any thread that handles events sets it
    bool abandoned = false;

    ~State() {
        if (mapped)
            libusb_dev_mem_free(handle->get(), memory, capacity);
        else
            delete[] memory;
        libusb_free_transfer(transfer);
    }
};

std::unique_ptr<LibusbTransfer> LibusbTransfer::make(const LibusbHandle& handle,
                                                     std::size_t capacity, Memory memory) {
    auto state = std::make_unique<State>();
    state->handle = &handle;
    state->capacity = capacity;
    state->transfer = libusb_alloc_transfer(0);
    if (memory == Memory::mapped)
        state->memory = libusb_dev_mem_alloc(handle.get(), capacity);
    state->mapped = state->memory != nullptr;
    if (!state->mapped)
        state->memory = new (std::nothrow) unsigned char[capacity];
    if (!state->transfer || !state->memory)
        return nullptr;
    return std::unique_ptr<LibusbTransfer>(new LibusbTransfer(std::move(state)));
}

LibusbTransfer::LibusbTransfer(std::unique_ptr<State> state) : state_(std::move(state)) {
    libusb_transfer& transfer = *state_->transfer;
    transfer.dev_handle = state_->handle->get();
    transfer.buffer = state_->memory;
    transfer.user_data = &state_->completed;
    transfer.callback = [](libusb_transfer* finished) {
        std::atomic_ref(*static_cast<int*>(finished->user_data)).store(1);
    };
    // Every wait here has its own end, after which the transfer is cancelled. libusb's timer would
    // start at submission, which is too early for reads that queue up behind each other.
    transfer.timeout = 0;
}

LibusbTransfer::~LibusbTransfer() {
    cancel();
    if (!settle(steady_clock::now() + cancelBound))
        // The system still owns the buffer: better lost than written to after its release.
        static_cast<void>(state_.release());
}

bool LibusbTransfer::completed() const {
    return std::atomic_ref(state_->completed).load() != 0;
}

std::span<std::byte> LibusbTransfer::buffer() const {
    return std::as_writable_bytes(std::span(state_->memory, state_->capacity));
}

USBCode LibusbTransfer::submit(std::uint8_t endpoint, libusb_transfer_type type,
                               std::size_t length) {
    if (length > state_->capacity)
        return usb::badArgument;
    state_->transfer->endpoint = endpoint;
    state_->transfer->type = static_cast<unsigned char>(type);
    state_->transfer->length = static_cast<int>(length);
    return start();
}

USBCode LibusbTransfer::submitControl() {
    state_->transfer->endpoint = 0;
    state_->transfer->type = LIBUSB_TRANSFER_TYPE_CONTROL;
    state_->transfer->length = static_cast<int>(state_->capacity);
    return start();
}

USBCode LibusbTransfer::start() {
    std::atomic_ref(state_->completed).store(0);
    const USBCode code = usbCodeOfError(libusb_submit_transfer(state_->transfer));
    if (code != usb::success)
        std::atomic_ref(state_->completed).store(1);
    return code;
}

bool LibusbTransfer::waitUntil(steady_clock::time_point until, const std::stop_token* stop) const {
    // How long a stop may go unheard, and how long an interrupt.
    constexpr microseconds slice = 20ms;
    const bool isAside = stop && state_->transfer->type == LIBUSB_TRANSFER_TYPE_INTERRUPT;
    if (!isAside)
        state_->handle->beginWait(); // also when there is nothing left to wait for
    while (!completed() && !(stop && stop->stop_requested())) {
        const auto left = duration_cast<microseconds>(until - steady_clock::now());
        if (left <= 0us)
            break;
        if (isAside)
            state_->handle->handleEventsAside(&state_->completed, std::min(left, slice), *stop);
        else
            state_->handle->handleEvents(&state_->completed,
                                         std::min(left, stop ? slice : microseconds(1s)));
    }
    return completed();
}

void LibusbTransfer::cancel() {
    if (!completed())
        libusb_cancel_transfer(state_->transfer);
}

bool LibusbTransfer::settle(steady_clock::time_point until) {
    if (!state_->abandoned)
        state_->abandoned = !waitUntil(until);
    return !state_->abandoned;
}

USBCode LibusbTransfer::finish(steady_clock::time_point until, const std::stop_token* stop) {
    if (waitUntil(until, stop))
        return result();
    const bool isStopped = stop && stop->stop_requested();
    cancel();
    if (!settle(steady_clock::now() + cancelBound))
        return usb::noDevice;
    return timeoutResult(isStopped ? usb::aborted : usb::timeout);
}

USBCode LibusbTransfer::timeoutResult(USBCode reason) const {
    const USBCode code = result();
    return code == usb::aborted || code == usb::generalError ? reason : code;
}

std::size_t LibusbTransfer::transferred() const {
    return static_cast<std::size_t>(state_->transfer->actual_length);
}

USBCode LibusbTransfer::result() const {
    return usbCodeOfStatus(state_->transfer->status);
}

} // namespace tessary
