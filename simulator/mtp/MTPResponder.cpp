#include "simulator/mtp/MTPResponder.h"

#include "base/threads/ThreadName.h"
#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"
#include "simulator/mtp/MTPRefusal.h"
#include "simulator/mtp/MTPResponderOperation.h"

#include <algorithm>
#include <array>

namespace tessary {

namespace {

constexpr std::uint8_t cancelRequestType = 0x21;
constexpr std::uint8_t cancelRequest = 0x64;
constexpr std::uint8_t statusRequestType = 0xA1;
constexpr std::uint8_t statusRequest = 0x67;
constexpr std::chrono::milliseconds catchUpTime{200};

} // namespace

std::span<const MTPResponder::Operation> MTPResponder::operations() {
    using Code = MTPOperationCode;
    using R = MTPResponder;
    using enum Operation::Data;
    static constexpr std::array table{
        Operation{Code::getDeviceInfo, &R::getDeviceInfo, 0, toHost, false},
        Operation{Code::openSession, &R::openSession, 1, none, false},
        Operation{Code::closeSession, &R::closeSession},
        Operation{Code::getStorageIDs, &R::getStorageIDs, 0, toHost},
        Operation{Code::getStorageInfo, &R::getStorageInfo, 1, toHost},
        Operation{Code::getNumObjects, &R::getNumObjects, 1},
        Operation{Code::getObjectHandles, &R::getObjectHandles, 1, toHost},
        Operation{Code::getObjectInfo, &R::getObjectInfo, 1, toHost},
        Operation{Code::getObject, &R::getObject, 1, toHost},
        Operation{Code::getThumb, &R::getThumb, 1, toHost},
        Operation{Code::deleteObject, &R::deleteObject, 1},
        Operation{Code::sendObjectInfo, &R::sendObjectInfo, 0, fromHost},
        Operation{Code::sendObject, &R::sendObject, 0, fromHost},
        Operation{Code::getDevicePropDesc, &R::getDevicePropDesc, 1, toHost},
        Operation{Code::getDevicePropValue, &R::getDevicePropValue, 1, toHost},
        Operation{Code::moveObject, &R::moveObject, 3},
        Operation{Code::getPartialObject, &R::getPartialObject, 3, toHost},
        Operation{Code::getObjectPropsSupported, &R::getObjectPropsSupported, 1, toHost},
        Operation{Code::getObjectPropValue, &R::getObjectPropValue, 2, toHost},
        Operation{Code::setObjectPropValue, &R::setObjectPropValue, 2, fromHost},
        Operation{Code::getObjectPropList, &R::getObjectPropList, 5, toHost},
        Operation{Code::androidGetPartialObject64, &R::getPartialObject64, 4, toHost},
        Operation{Code::androidSendPartialObject, &R::sendPartialObject, 4, fromHost},
        Operation{Code::androidTruncateObject, &R::truncateObject, 3},
        Operation{Code::androidBeginEditObject, &R::beginEditObject, 1},
        Operation{Code::androidEndEditObject, &R::endEditObject, 1},
    };
    return table;
}

const MTPResponder::Operation* MTPResponder::operation(std::uint16_t code) {
    const auto table = operations();
    const auto found = std::ranges::find_if(table, [code](const Operation& row) {
        return static_cast<std::uint16_t>(row.code) == code;
    });
    return found == table.end() ? nullptr : &*found;
}

MTPResponder::MTPResponder(MTPDeviceDescription description, std::vector<VirtualStorage> storages,
                           bool locked, int battery, VirtualBehaviour behaviour,
                           std::unique_ptr<MTPResponderHooks> hooks)
    : description_(std::move(description)),
      store_(std::move(storages), locked),
      hooks_(std::move(hooks)),
      behaviour_(std::move(behaviour)),
      battery_(battery) {}

MTPResponder::~MTPResponder() {
    join();
}

void MTPResponder::start(std::shared_ptr<VirtualUSBPort> port) {
    join();
    state_.reset();
    store_.renewHandles();
    const std::lock_guard lock(threadMutex_);
    port_ = port;
    thread_ = std::jthread([this, port = std::move(port)] { run(port); });
}

void MTPResponder::join() {
    const std::lock_guard lock(threadMutex_);
    if (thread_.joinable())
        thread_.join();
}

void MTPResponder::sendEvent(std::uint16_t code, std::uint32_t parameter) {
    MTPContainerHeader header;
    header.length = MTPContainerHeader::size + sizeof parameter;
    header.type = MTPContainerType::event;
    header.code = code;
    Bytes event = MTPPacketCodec::encodeHeader(header);
    appendLittleEndian(event, parameter);
    const std::lock_guard lock(threadMutex_);
    if (const auto port = port_.lock()) {
        VirtualUSBChunk chunk = port->events().deviceChunk();
        std::copy(event.begin(), event.end(), chunk.space().begin());
        chunk.end = event.size();
        chunk.endsTransfer = true;
        (void)port->events().devicePut(std::move(chunk));
    }
}

void MTPResponder::unplugged() {
    state_.unplug();
}

void MTPResponder::haltCleared(bool needed) {
    if (!needed)
        hooks_->clearedNeedlessly();
}

USBCode MTPResponder::control(VirtualUSBPort& port, const USBControlRequest& request,
                              std::span<std::byte> data, std::size_t& transferred) {
    const VirtualBehaviour behaviour = behaviour_.get();
    if (request.requestType == cancelRequestType && request.request == cancelRequest) {
        hooks_->cancelRequested();
        const bool wellFormed =
            data.size() == 6 && readLittleEndian<std::uint16_t>(data, 0) ==
                                    static_cast<std::uint16_t>(MTPEventCode::cancelTransaction);
        if (behaviour.refusesCancelRequest || !wellFormed)
            return usb::pipeStalled;
        transferred = data.size();
        // A pipe here takes more than a real one: let the phone come to what the host has written.
        (void)port.out().deviceWaitEmpty(catchUpTime);
        state_.cancel(readLittleEndian<std::uint32_t>(data, 2), [&] {
            port.in().interrupt(false);
            port.out().interrupt(true);
        });
        return usb::success;
    }
    if (request.requestType == statusRequestType && request.request == statusRequest &&
        !behaviour.refusesStatusRequest) {
        const auto code = state_.isBusy() ? MTPResponseCode::deviceBusy : MTPResponseCode::ok;
        Bytes status;
        appendLittleEndian<std::uint16_t>(status, 4);
        appendLittleEndian(status, static_cast<std::uint16_t>(code));
        transferred = std::min(status.size(), data.size());
        std::copy_n(status.begin(), transferred, data.begin());
        return usb::success;
    }
    return usb::pipeStalled;
}

void MTPResponder::run(const std::shared_ptr<VirtualUSBPort>& port) {
    nameCurrentThread("virtual-android");
    endSession();
    MTPResponderLink link(port, state_, *hooks_);
    for (;;) {
        try {
            const MTPCommand command = link.receiveCommand();
            while (behaviour_.get().waitsForEventReader && port->events().unread() >= 2 &&
                   port->isPlugged())
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            serve(link, command);
        } catch (const MTPLinkBroken& broken) {
            if (broken.why == MTPLinkBroken::Why::unplugged)
                return;
        }
    }
}

void MTPResponder::endSession() {
    sessionOpen_ = false;
    pending_.reset();
    edits_.clear();
}

} // namespace tessary
