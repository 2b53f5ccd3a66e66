#include "simulator/mtp/MTPResponderEdits.h"

#include "simulator/storage/MTPRefusal.h"

#include <cerrno>
#include <unistd.h>

namespace tessary {

namespace {

std::uint64_t wide(std::uint32_t low, std::uint32_t high) {
    return std::uint64_t{high} << 32 | low;
}

} // namespace

const FileHandle& MTPResponderEdits::editOf(std::uint32_t handle) const {
    const auto edit = edits_.find(handle);
    if (edit == edits_.end())
        throw MTPRefusal(MTPResponseCode::generalError);
    return edit->second;
}

void MTPResponderEdits::beginEditObject(Transaction& transaction) {
    const VirtualObject object = state_.store.object(transaction.command.parameter(0));
    if (object.isFolder)
        throw MTPRefusal(MTPResponseCode::invalidObjectHandle);
    if (edits_.contains(object.handle))
        throw MTPRefusal(MTPResponseCode::generalError);
    state_.store.checkWritable(object.storageID);
    edits_.emplace(object.handle, state_.store.editFile(object.handle));
}

void MTPResponderEdits::sendPartialObject(Transaction& transaction) {
    const MTPCommand& command = transaction.command;
    std::uint64_t offset = wide(command.parameter(1), command.parameter(2));
    std::uint64_t rest = command.parameter(3);
    const FileHandle* file = nullptr;
    std::optional<MTPRefusal> refusal;
    VirtualObject object;
    std::uint64_t fullAt = 0;
    try {
        object = state_.store.object(command.parameter(0));
        file = &editOf(object.handle);
        if (offset > object.size)
            throw MTPRefusal(MTPResponseCode::generalError);
        fullAt = object.size + state_.store.storage(object.storageID).free;
        if (const auto limit = state_.hooks->storeFullAfter())
            fullAt = std::min(fullAt, *limit);
    } catch (const MTPRefusal& thrown) {
        refusal = thrown;
    }
    const auto keepBooks = [&] {
        if (offset > object.size)
            state_.store.addUsed(object.storageID, static_cast<std::int64_t>(offset - object.size));
    };
    const auto write = [&](ByteView bytes) {
        if (refusal)
            throw *refusal;
        if (bytes.size() > rest)
            throw MTPRefusal(MTPResponseCode::generalError);
        if (offset + bytes.size() > fullAt)
            throw MTPRefusal(MTPResponseCode::storeFull);
        const ssize_t count =
            ::pwrite(file->get(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count != static_cast<ssize_t>(bytes.size()))
            throw MTPRefusal(MTPResponseCode::generalError);
        offset += bytes.size();
        rest -= bytes.size();
    };
    try {
        transaction.link.receiveData(command, write);
    } catch (...) {
        if (!refusal)
            keepBooks();
        throw;
    }
    if (refusal)
        throw *refusal;
    keepBooks();
    if (rest > 0)
        throw MTPRefusal(MTPResponseCode::generalError);
    transaction.answer = {command.parameter(3)};
}

void MTPResponderEdits::truncateObject(Transaction& transaction) {
    const MTPCommand& command = transaction.command;
    const VirtualObject object = state_.store.object(command.parameter(0));
    const std::uint64_t size = wide(command.parameter(1), command.parameter(2));
    if (::ftruncate(editOf(object.handle).get(), static_cast<off_t>(size)) != 0)
        throw MTPRefusal(MTPResponseCode::generalError);
    state_.store.addUsed(object.storageID,
                         static_cast<std::int64_t>(size) - static_cast<std::int64_t>(object.size));
}

void MTPResponderEdits::endEditObject(Transaction& transaction) {
    if (edits_.erase(transaction.command.parameter(0)) == 0)
        throw MTPRefusal(MTPResponseCode::generalError);
}

} // namespace tessary
