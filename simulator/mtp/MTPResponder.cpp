#include "simulator/mtp/MTPResponder.h"

#include "base/threads/ThreadName.h"
#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"
#include "simulator/storage/MTPRefusal.h"

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

/// One row of the table of operations that the phone knows.
struct MTPResponder::Operation {
    enum class Data { none, toHost, fromHost };

    MTPOperationCode code;
    void (*run)(MTPResponder&, Transaction&);
    std::size_t leastParameters = 0;
    Data data = Data::none;
    bool needsSession = true;
};

template <auto group, auto method>
void MTPResponder::run(MTPResponder& responder, Transaction& transaction) {
    ((responder.*group).*method)(transaction);
}

std::span<const MTPResponder::Operation> MTPResponder::operations() {
    using Code = MTPOperationCode;
    using R = MTPResponder;
    using enum Operation::Data;
    static constexpr std::array table{
        Operation{Code::getDeviceInfo, run<&R::session_, &MTPResponderSession::getDeviceInfo>, 0,
                  toHost, false},
        Operation{Code::openSession, run<&R::session_, &MTPResponderSession::openSession>, 1, none,
                  false},
        Operation{Code::closeSession, [](R& responder, Transaction&) { responder.closeSession(); }},
        Operation{Code::getStorageIDs, run<&R::session_, &MTPResponderSession::getStorageIDs>, 0,
                  toHost},
        Operation{Code::getStorageInfo, run<&R::session_, &MTPResponderSession::getStorageInfo>, 1,
                  toHost},
        Operation{Code::getNumObjects, run<&R::objects_, &MTPResponderObjects::getNumObjects>, 1},
        Operation{Code::getObjectHandles, run<&R::objects_, &MTPResponderObjects::getObjectHandles>,
                  1, toHost},
        Operation{Code::getObjectInfo, run<&R::objects_, &MTPResponderObjects::getObjectInfo>, 1,
                  toHost},
        Operation{Code::getObject, run<&R::contents_, &MTPResponderContents::getObject>, 1, toHost},
        Operation{Code::getThumb, run<&R::contents_, &MTPResponderContents::getThumb>, 1, toHost},
        Operation{Code::deleteObject, run<&R::objects_, &MTPResponderObjects::deleteObject>, 1},
        Operation{Code::sendObjectInfo, run<&R::contents_, &MTPResponderContents::sendObjectInfo>,
                  0, fromHost},
        Operation{Code::sendObject, run<&R::contents_, &MTPResponderContents::sendObject>, 0,
                  fromHost},
        Operation{Code::getDevicePropDesc,
                  run<&R::session_, &MTPResponderSession::getDevicePropDesc>, 1, toHost},
        Operation{Code::getDevicePropValue,
                  run<&R::session_, &MTPResponderSession::getDevicePropValue>, 1, toHost},
        Operation{Code::moveObject, run<&R::objects_, &MTPResponderObjects::moveObject>, 3},
        Operation{Code::getPartialObject,
                  run<&R::contents_, &MTPResponderContents::getPartialObject>, 3, toHost},
        Operation{Code::getObjectPropsSupported,
                  run<&R::objects_, &MTPResponderObjects::getObjectPropsSupported>, 1, toHost},
        Operation{Code::getObjectPropValue,
                  run<&R::objects_, &MTPResponderObjects::getObjectPropValue>, 2, toHost},
        Operation{Code::setObjectPropValue,
                  run<&R::objects_, &MTPResponderObjects::setObjectPropValue>, 2, fromHost},
        Operation{Code::getObjectPropList,
                  run<&R::objects_, &MTPResponderObjects::getObjectPropList>, 5, toHost},
        Operation{Code::androidGetPartialObject64,
                  run<&R::contents_, &MTPResponderContents::getPartialObject64>, 4, toHost},
        Operation{Code::androidSendPartialObject,
                  run<&R::edits_, &MTPResponderEdits::sendPartialObject>, 4, fromHost},
        Operation{Code::androidTruncateObject, run<&R::edits_, &MTPResponderEdits::truncateObject>,
                  3},
        Operation{Code::androidBeginEditObject,
                  run<&R::edits_, &MTPResponderEdits::beginEditObject>, 1},
        Operation{Code::androidEndEditObject, run<&R::edits_, &MTPResponderEdits::endEditObject>,
                  1},
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
    : state_{std::move(description), VirtualObjectStore(std::move(storages), locked),
             std::move(hooks), Guarded(std::move(behaviour)), battery} {
    for (const Operation& row : operations())
        state_.description.operations.push_back(static_cast<std::uint16_t>(row.code));
}

MTPResponder::~MTPResponder() {
    join();
}

void MTPResponder::start(std::shared_ptr<VirtualUSBPort> port) {
    join();
    transactions_.reset();
    state_.store.renewHandles();
    const std::lock_guard lock(threadMutex_);
    port_ = port;
    thread_ = std::jthread([this, port = std::move(port)] { serveAttachment(port); });
}

void MTPResponder::join() {
    const std::lock_guard lock(threadMutex_);
    if (thread_.joinable())
        thread_.join();
}

std::size_t MTPResponder::unreadEvents() const {
    const std::lock_guard lock(threadMutex_);
    const auto port = port_.lock();
    return port ? port->events().unread() : 0;
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
    transactions_.unplug();
}

void MTPResponder::haltCleared(bool needed) {
    if (!needed)
        state_.hooks->clearedNeedlessly();
}

USBCode MTPResponder::control(VirtualUSBPort& port, const USBControlRequest& request,
                              std::span<std::byte> data, std::size_t& transferred) {
    const VirtualBehaviour behaviour = state_.behaviour.get();
    if (request.requestType == cancelRequestType && request.request == cancelRequest) {
        state_.hooks->cancelRequested();
        const bool wellFormed =
            data.size() == 6 && readLittleEndian<std::uint16_t>(data, 0) ==
                                    static_cast<std::uint16_t>(MTPEventCode::cancelTransaction);
        if (behaviour.refusesCancelRequest || !wellFormed)
            return usb::pipeStalled;
        transferred = data.size();
        // A pipe here takes more than a real one: let the phone come to what the host has written.
        (void)port.out().deviceWaitEmpty(catchUpTime);
        transactions_.cancel(readLittleEndian<std::uint32_t>(data, 2), [&] {
            port.in().interrupt(false);
            port.out().interrupt(true);
        });
        return usb::success;
    }
    if (request.requestType == statusRequestType && request.request == statusRequest &&
        !behaviour.refusesStatusRequest) {
        const auto code =
            transactions_.isBusy() ? MTPResponseCode::deviceBusy : MTPResponseCode::ok;
        Bytes status;
        appendLittleEndian<std::uint16_t>(status, 4);
        appendLittleEndian(status, static_cast<std::uint16_t>(code));
        transferred = std::min(status.size(), data.size());
        std::copy_n(status.begin(), transferred, data.begin());
        return usb::success;
    }
    return usb::pipeStalled;
}

void MTPResponder::serveAttachment(const std::shared_ptr<VirtualUSBPort>& port) {
    nameCurrentThread("virtual-android");
    endSession();
    MTPResponderLink link(port, transactions_, *state_.hooks);
    for (;;) {
        try {
            const MTPCommand command = link.receiveCommand();
            while (state_.behaviour.get().waitsForEventReader && port->events().unread() >= 2 &&
                   port->isPlugged())
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            serve(link, command);
        } catch (const MTPLinkBroken& broken) {
            if (broken.why == MTPLinkBroken::Why::unplugged)
                return;
        }
    }
}

void MTPResponder::serve(MTPResponderLink& link, const MTPCommand& command) {
    state_.hooks->commandArrived(command);
    const Operation* const known = operation(command.operation);
    transactions_.beginTransaction(command.transactionID,
                                   known && known->data != Operation::Data::none);
    Transaction transaction{command, link, state_.behaviour.get(), {}};
    auto code = static_cast<std::uint16_t>(MTPResponseCode::ok);
    bool answers = true;
    bool cancelled = false;
    try {
        perform(known, transaction);
    } catch (const MTPRefusal& refusal) {
        code = refusal.code;
        transaction.answer.clear();
    } catch (const MTPNoAnswer&) {
        answers = false;
    } catch (const MTPLinkBroken& broken) {
        cancelled = broken.why == MTPLinkBroken::Why::cancelled;
        if (!cancelled) {
            link.closeTransaction();
            throw;
        }
    }
    cancelled = link.closeTransaction() || cancelled;
    if (cancelled) {
        transactions_.beBusy(transaction.behaviour.busyAfterCancel);
        answers = transaction.behaviour.answersCancelled;
        code = static_cast<std::uint16_t>(MTPResponseCode::transactionCancelled);
        transaction.answer.clear();
    }
    if (answers)
        link.sendResponse(command, code, transaction.answer);
}

void MTPResponder::perform(const Operation* operation, Transaction& transaction) {
    const std::uint16_t code = transaction.command.operation;
    std::optional<MTPRefusal> refusal;
    try {
        checkOrder(operation, transaction);
        if (const auto status = state_.hooks->refusal(code))
            throw MTPRefusal(*status);
    } catch (const MTPRefusal& thrown) {
        refusal = thrown;
    }
    transaction.link.pause(state_.hooks->delay(code));
    const bool hangs = state_.hooks->hangs(code);
    if (!refusal && !hangs) {
        operation->run(*this, transaction);
        return;
    }
    if (operation && operation->data == Operation::Data::fromHost) {
        try {
            transaction.link.receiveData(transaction.command, [](ByteView) {});
        } catch (const MTPRefusal&) {
            // The status that the host gets is the first one.
        }
    }
    if (code == static_cast<std::uint16_t>(MTPOperationCode::sendObject))
        contents_.dropPending(transaction.behaviour.keepsPartialObjects);
    if (hangs)
        throw MTPNoAnswer();
    throw *refusal;
}

void MTPResponder::checkOrder(const Operation* operation, const Transaction& transaction) {
    const MTPCommand& command = transaction.command;
    if (!session_.isOpen() && (!operation || operation->needsSession))
        throw MTPRefusal(MTPResponseCode::sessionNotOpen);
    session_.checkTransactionID(command);
    if (!operation || transaction.behaviour.unsupportedOperations.contains(command.operation))
        throw MTPRefusal(MTPResponseCode::operationNotSupported);
    if (command.parameters.size() < operation->leastParameters)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
}

/// An edit outlives the session, as it does on phones.
void MTPResponder::closeSession() {
    session_.end();
    contents_.dropPending(true);
}

void MTPResponder::endSession() {
    closeSession();
    edits_.endAll();
}

} // namespace tessary
