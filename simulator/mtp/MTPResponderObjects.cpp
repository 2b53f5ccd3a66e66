#include "simulator/mtp/MTPResponderObjects.h"

#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"
#include "simulator/storage/MTPRefusal.h"

#include <algorithm>

namespace tessary {

namespace {

constexpr std::uint32_t allStorages = 0xFFFFFFFF;
constexpr std::uint16_t objectPropNotSupported = 0xA80A;

} // namespace

std::vector<std::uint32_t> MTPResponderObjects::listedHandles(Transaction& transaction) {
    using RootListing = VirtualBehaviour::RootListing;
    const MTPCommand& command = transaction.command;
    const RootListing rule = transaction.behaviour.rootListing;
    const std::uint32_t storageID = command.parameter(0);
    const std::uint32_t parent = command.parameter(2);
    if (command.parameter(1) != 0)
        throw MTPRefusal(MTPResponseCode::specificationByFormatUnsupported);

    if (parent != 0 && parent != mtpRootHandle) {
        const VirtualObject folder = state_.store.object(parent);
        return state_.store.children(storageID == allStorages ? folder.storageID : storageID,
                                     parent);
    }
    if (parent == mtpRootHandle && rule == RootListing::zero)
        throw MTPRefusal(MTPResponseCode::invalidParentObject);
    const bool everything = parent == 0 && rule == RootListing::allOnes;
    std::vector<std::uint32_t> storages{storageID};
    if (storageID == allStorages)
        storages = state_.store.storageIDs();
    std::vector<std::uint32_t> handles;
    for (const std::uint32_t each : storages) {
        const auto found =
            everything ? state_.store.everything(each) : state_.store.children(each, 0);
        handles.insert(handles.end(), found.begin(), found.end());
    }
    return handles;
}

void MTPResponderObjects::getNumObjects(Transaction& transaction) {
    transaction.answer.push_back(static_cast<std::uint32_t>(listedHandles(transaction).size()));
}

void MTPResponderObjects::getObjectHandles(Transaction& transaction) {
    std::vector<std::uint32_t> handles = listedHandles(transaction);
    std::erase_if(handles, [this](std::uint32_t handle) { return state_.hidden.contains(handle); });
    state_.hooks->listing(transaction.command.parameter(2), handles);
    transaction.link.sendDataset(
        transaction.command, MTPResponderDatasets::array(std::span<const std::uint32_t>(handles)));
}

void MTPResponderObjects::getObjectInfo(Transaction& transaction) {
    VirtualObject object = state_.store.object(transaction.command.parameter(0));
    if (state_.hidden.contains(object.handle))
        throw MTPRefusal(MTPResponseCode::invalidObjectHandle);
    if (transaction.behaviour.parentsAreZero)
        object.parent = 0;
    transaction.link.sendDataset(transaction.command, MTPResponderDatasets::objectInfo(
                                                          object, state_.shownName(object),
                                                          transaction.behaviour.cutsSizesTo32Bits));
}

void MTPResponderObjects::deleteObject(Transaction& transaction) {
    const VirtualObject object = state_.store.object(transaction.command.parameter(0));
    if (transaction.command.parameter(1) != 0)
        throw MTPRefusal(MTPResponseCode::specificationByFormatUnsupported);
    state_.store.checkWritable(object.storageID);
    if (transaction.behaviour.refusesFullFolders && object.isFolder &&
        !state_.store.isEmptyFolder(object.handle))
        throw MTPRefusal(MTPResponseCode::partialDeletion);
    state_.store.remove(object.handle);
}

void MTPResponderObjects::moveObject(Transaction& transaction) {
    const MTPCommand& command = transaction.command;
    const VirtualObject object = state_.store.object(command.parameter(0));
    const std::uint32_t parent = command.parameter(2);
    state_.store.checkWritable(command.parameter(1));
    if (command.parameter(1) != object.storageID)
        throw MTPRefusal(MTPResponseCode::destinationUnsupported);
    state_.store.move(object.handle, parent == mtpRootHandle ? 0 : parent);
}

void MTPResponderObjects::getObjectPropsSupported(Transaction& transaction) {
    transaction.link.sendDataset(
        transaction.command, MTPResponderDatasets::array(MTPResponderDatasets::objectProperties()));
}

void MTPResponderObjects::getObjectPropValue(Transaction& transaction) {
    const VirtualObject object = state_.store.object(transaction.command.parameter(0));
    const auto property = static_cast<std::uint16_t>(transaction.command.parameter(1));
    transaction.link.sendDataset(
        transaction.command,
        MTPResponderDatasets::objectProperty(property, object, state_.shownName(object)));
}

void MTPResponderObjects::getObjectPropList(Transaction& transaction) {
    constexpr std::uint32_t all = 0xFFFFFFFF;
    constexpr std::uint16_t groupUnsupported = 0xA807;
    constexpr std::uint16_t depthUnsupported = 0xA808;
    const MTPCommand& command = transaction.command;
    const std::uint32_t handle = command.parameter(0);
    if (command.parameter(1) != 0)
        throw MTPRefusal(MTPResponseCode::specificationByFormatUnsupported);
    if (command.parameter(2) != all || command.parameter(3) != 0)
        throw MTPRefusal(groupUnsupported);
    if (command.parameter(4) > 1)
        throw MTPRefusal(depthUnsupported);
    std::vector<std::uint32_t> handles;
    if (handle == 0) {
        for (const std::uint32_t storageID : state_.store.storageIDs())
            for (const std::uint32_t child : state_.store.children(storageID, 0))
                handles.push_back(child);
    } else {
        const VirtualObject object = state_.store.object(handle);
        handles.push_back(handle);
        if (object.isFolder && command.parameter(4) == 1 && !transaction.behaviour.listsFolderOnly)
            for (const std::uint32_t child : state_.store.children(object.storageID, handle))
                handles.push_back(child);
    }
    std::uint32_t count = 0;
    Bytes dataset(sizeof(count)); // known at the end
    for (const std::uint32_t each : handles) {
        VirtualObject object = state_.store.object(each);
        if (transaction.behaviour.parentsAreZero)
            object.parent = 0;
        count += MTPResponderDatasets::appendProperties(dataset, object, state_.shownName(object));
    }
    Bytes number;
    appendLittleEndian(number, count);
    std::ranges::copy(number, dataset.begin());
    transaction.link.sendDataset(command, dataset);
}

void MTPResponderObjects::setObjectPropValue(Transaction& transaction) {
    const Bytes value = transaction.receiveDataset();
    const VirtualObject object = state_.store.object(transaction.command.parameter(0));
    const auto property = static_cast<MTPObjectProperty>(transaction.command.parameter(1));
    const bool isDate =
        property == MTPObjectProperty::dateModified && transaction.behaviour.setsDates;
    if (property != MTPObjectProperty::objectFileName && !isDate)
        throw MTPRefusal(objectPropNotSupported);
    state_.store.checkWritable(object.storageID);
    const auto text = MTPPacketCodec::decodeString(value, 0);
    if (!text || text->second != value.size())
        throw MTPRefusal(MTPResponseCode::invalidParameter);
    if (!isDate) {
        state_.store.rename(object.handle, text->first);
        return;
    }
    const auto date = MTPPacketCodec::parseMTPDate(text->first);
    if (!date)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
    state_.store.setModified(object.handle, date->toSecsSinceEpoch());
}

} // namespace tessary
