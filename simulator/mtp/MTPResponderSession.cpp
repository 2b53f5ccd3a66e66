#include "simulator/mtp/MTPRefusal.h"
#include "simulator/mtp/MTPResponderOperation.h"

#include <algorithm>

namespace tessary {

namespace {

constexpr std::size_t largestDataset = std::size_t{64} << 10;

} // namespace

void MTPResponder::serve(MTPResponderLink& link, const MTPCommand& command) {
    hooks_->commandArrived(command);
    const Operation* const known = operation(command.operation);
    state_.beginTransaction(command.transactionID, known && known->data != Operation::Data::none);
    Transaction transaction{command, link, behaviour_.get(), {}};
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
        state_.beBusy(transaction.behaviour.busyAfterCancel);
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
        if (const auto status = hooks_->refusal(code))
            throw MTPRefusal(*status);
    } catch (const MTPRefusal& thrown) {
        refusal = thrown;
    }
    transaction.link.pause(hooks_->delay(code));
    const bool hangs = hooks_->hangs(code);
    if (!refusal && !hangs) {
        (this->*operation->run)(transaction);
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
        dropPending(transaction.behaviour.keepsPartialObjects);
    if (hangs)
        throw MTPNoAnswer();
    throw *refusal;
}

void MTPResponder::checkOrder(const Operation* operation, const Transaction& transaction) {
    const MTPCommand& command = transaction.command;
    if (!sessionOpen_ && (!operation || operation->needsSession))
        throw MTPRefusal(MTPResponseCode::sessionNotOpen);
    checkTransactionID(operation, command.transactionID);
    if (!operation || transaction.behaviour.unsupportedOperations.contains(command.operation))
        throw MTPRefusal(MTPResponseCode::operationNotSupported);
    if (command.parameters.size() < operation->leastParameters)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
}

void MTPResponder::checkTransactionID(const Operation* operation, std::uint32_t id) {
    if (operation && operation->code == MTPOperationCode::openSession) {
        lastTransactionID_ = id;
        return;
    }
    if (!sessionOpen_)
        return;
    constexpr std::uint32_t reserved = 0xFFFFFFFF;
    if (id <= lastTransactionID_ || id == reserved)
        throw MTPRefusal(MTPResponseCode::invalidTransactionID);
    lastTransactionID_ = id;
}

Bytes MTPResponder::receiveDataset(Transaction& transaction) {
    Bytes dataset;
    transaction.link.receiveData(transaction.command, [&](ByteView bytes) {
        if (dataset.size() + bytes.size() > largestDataset)
            throw MTPRefusal(MTPResponseCode::invalidParameter);
        dataset.insert(dataset.end(), bytes.begin(), bytes.end());
    });
    return dataset;
}

void MTPResponder::getDeviceInfo(Transaction& transaction) {
    MTPDeviceDescription description = description_;
    for (const Operation& row : operations()) {
        const auto code = static_cast<std::uint16_t>(row.code);
        if (!transaction.behaviour.unsupportedOperations.contains(code))
            description.operations.push_back(code);
    }
    transaction.link.sendDataset(transaction.command,
                                 MTPResponderDatasets::deviceInfo(description));
}

void MTPResponder::openSession(Transaction& transaction) {
    if (transaction.command.parameter(0) == 0)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
    if (sessionOpen_)
        throw MTPRefusal(MTPResponseCode::sessionAlreadyOpen);
    sessionOpen_ = true;
    hidden_.clear();
}

void MTPResponder::closeSession(Transaction&) {
    endSession();
}

void MTPResponder::getStorageIDs(Transaction& transaction) {
    const std::vector<std::uint32_t> ids = store_.storageIDs();
    if (ids.empty() && transaction.behaviour.omitsEmptyStorageList)
        return;
    transaction.link.sendDataset(transaction.command, MTPResponderDatasets::array(std::span(ids)));
}

void MTPResponder::getStorageInfo(Transaction& transaction) {
    const VirtualStorage storage = store_.storage(transaction.command.parameter(0));
    transaction.link.sendDataset(transaction.command, MTPResponderDatasets::storageInfo(storage));
}

void MTPResponder::getDevicePropDesc(Transaction& transaction) {
    if (transaction.command.parameter(0) != mtpBatteryLevelProperty)
        throw MTPRefusal(MTPResponseCode::devicePropNotSupported);
    transaction.link.sendDataset(transaction.command,
                                 MTPResponderDatasets::batteryDescription(battery_));
}

void MTPResponder::getDevicePropValue(Transaction& transaction) {
    if (transaction.command.parameter(0) != mtpBatteryLevelProperty)
        throw MTPRefusal(MTPResponseCode::devicePropNotSupported);
    transaction.link.sendDataset(transaction.command,
                                 Bytes{static_cast<std::byte>(battery_.load())});
}

} // namespace tessary
