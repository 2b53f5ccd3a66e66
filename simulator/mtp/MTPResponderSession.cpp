#include "simulator/mtp/MTPResponderSession.h"

#include "simulator/storage/MTPRefusal.h"

namespace tessary {

void MTPResponderSession::checkTransactionID(const MTPCommand& command) {
    constexpr std::uint32_t reserved = 0xFFFFFFFF;
    const std::uint32_t id = command.transactionID;
    const bool startsAnew =
        command.operation == static_cast<std::uint16_t>(MTPOperationCode::openSession);
    if (!isOpen_ && !startsAnew)
        return;
    if (!startsAnew && (id <= lastTransactionID_ || id == reserved))
        throw MTPRefusal(MTPResponseCode::invalidTransactionID);
    lastTransactionID_ = id;
}

void MTPResponderSession::getDeviceInfo(Transaction& transaction) {
    MTPDeviceDescription description = state_.description;
    std::erase_if(description.operations, [&](std::uint16_t code) {
        return transaction.behaviour.unsupportedOperations.contains(code);
    });
    transaction.link.sendDataset(transaction.command,
                                 MTPResponderDatasets::deviceInfo(description));
}

void MTPResponderSession::openSession(Transaction& transaction) {
    if (transaction.command.parameter(0) == 0)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
    if (isOpen_)
        throw MTPRefusal(MTPResponseCode::sessionAlreadyOpen);
    isOpen_ = true;
    state_.hidden.clear();
}

void MTPResponderSession::getStorageIDs(Transaction& transaction) {
    const std::vector<std::uint32_t> ids = state_.store.storageIDs();
    if (ids.empty() && transaction.behaviour.omitsEmptyStorageList)
        return;
    transaction.link.sendDataset(transaction.command, MTPResponderDatasets::array(std::span(ids)));
}

void MTPResponderSession::getStorageInfo(Transaction& transaction) {
    const VirtualStorage storage = state_.store.storage(transaction.command.parameter(0));
    transaction.link.sendDataset(transaction.command, MTPResponderDatasets::storageInfo(storage));
}

void MTPResponderSession::getDevicePropDesc(Transaction& transaction) {
    if (transaction.command.parameter(0) != mtpBatteryLevelProperty)
        throw MTPRefusal(MTPResponseCode::devicePropNotSupported);
    transaction.link.sendDataset(transaction.command,
                                 MTPResponderDatasets::batteryDescription(state_.battery));
}

void MTPResponderSession::getDevicePropValue(Transaction& transaction) {
    if (transaction.command.parameter(0) != mtpBatteryLevelProperty)
        throw MTPRefusal(MTPResponseCode::devicePropNotSupported);
    transaction.link.sendDataset(transaction.command,
                                 Bytes{static_cast<std::byte>(state_.battery.load())});
}

} // namespace tessary
