#include "simulator/mtp/MTPResponderContents.h"

#include "mtp/protocol/MTPPacketCodec.h"
#include "simulator/storage/MTPRefusal.h"
#include "simulator/wire/Garbling.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

namespace tessary {

namespace {

constexpr std::uint32_t anySize = 0xFFFFFFFF;

std::size_t readSome(int file, std::span<std::byte> buffer, std::uint64_t offset) {
    for (;;) {
        const ssize_t count =
            ::pread(file, buffer.data(), buffer.size(), static_cast<off_t>(offset));
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR)
            return 0;
    }
}

void writeAll(int file, ByteView bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw MTPRefusal(errno == ENOSPC ? MTPResponseCode::storeFull
                                             : MTPResponseCode::generalError);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

} // namespace

void MTPResponderContents::getObject(Transaction& transaction) {
    const VirtualObject object = state_.store.object(transaction.command.parameter(0));
    if (object.isFolder)
        throw MTPRefusal(MTPResponseCode::invalidObjectHandle);
    const FileHandle file = state_.store.openFile(object.handle);
    std::uint64_t offset = 0;
    const bool complete = transaction.link.sendStream(
        transaction.command, object.size, [&](std::span<std::byte> buffer) {
            const std::size_t count = readSome(file.get(), buffer, offset);
            offset += count;
            return count;
        });
    if (!complete)
        throw MTPRefusal(MTPResponseCode::incompleteTransfer);
}

void MTPResponderContents::getThumb(Transaction& transaction) {
    constexpr std::size_t headSize = std::size_t{64} << 10;
    const VirtualObject object = state_.store.object(transaction.command.parameter(0));
    if (object.isFolder)
        throw MTPRefusal(MTPResponseCode::noThumbnailPresent);
    const FileHandle file = state_.store.openFile(object.handle);
    Bytes head(headSize);
    head.resize(readSome(file.get(), head, 0));
    constexpr std::array start{std::byte{0xFF}, std::byte{0xD8}, std::byte{0xFF}};
    constexpr std::array end{std::byte{0xFF}, std::byte{0xD9}};
    const bool isPicture =
        head.size() > start.size() && std::equal(start.begin(), start.end(), head.begin());
    const auto from = isPicture
                          ? std::search(head.begin() + 1, head.end(), start.begin(), start.end())
                          : head.end();
    const auto to = std::search(from, head.end(), end.begin(), end.end());
    if (to == head.end())
        throw MTPRefusal(MTPResponseCode::noThumbnailPresent);
    transaction.link.sendDataset(transaction.command, Bytes(from, to + 2));
}

void MTPResponderContents::getPartialObject(Transaction& transaction) {
    const MTPCommand& command = transaction.command;
    sendRange(transaction, command.parameter(1), command.parameter(2));
}

void MTPResponderContents::getPartialObject64(Transaction& transaction) {
    const MTPCommand& command = transaction.command;
    sendRange(transaction, std::uint64_t{command.parameter(2)} << 32 | command.parameter(1),
              command.parameter(3));
}

void MTPResponderContents::sendRange(Transaction& transaction, std::uint64_t offset,
                                     std::uint32_t most) {
    const VirtualObject object = state_.store.object(transaction.command.parameter(0));
    if (object.isFolder)
        throw MTPRefusal(MTPResponseCode::invalidObjectHandle);
    if (offset > object.size)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
    const FileHandle file = state_.store.openFile(object.handle);
    const std::uint64_t size = std::min<std::uint64_t>(most, object.size - offset);
    const bool complete =
        transaction.link.sendStream(transaction.command, size, [&](std::span<std::byte> buffer) {
            const std::size_t count = readSome(file.get(), buffer, offset);
            offset += count;
            return count;
        });
    if (!complete)
        throw MTPRefusal(MTPResponseCode::incompleteTransfer);
    transaction.answer.push_back(static_cast<std::uint32_t>(size));
}

void MTPResponderContents::sendObjectInfo(Transaction& transaction) {
    const Bytes dataset = transaction.receiveDataset();
    const auto info = MTPPacketCodec::decodeObjectInfo(dataset, 0);
    if (!info)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
    std::uint32_t storageID = transaction.command.parameter(0);
    if (const auto all = state_.store.storageIDs(); storageID == 0 && !all.empty())
        storageID = all.front();
    const VirtualStorage storage = state_.store.storage(storageID);
    state_.store.checkWritable(storageID);
    const std::uint32_t given = transaction.command.parameter(1);
    const std::uint32_t parent = given == mtpRootHandle ? 0 : given;
    if (parent != 0)
        (void)state_.store.children(storageID, parent);

    dropPending(true);
    Pending pending;
    pending.storageID = storageID;
    pending.handle = state_.store.reserve(storageID, parent, info->filename);
    pending.announcedSize = info->compressedSize;
    if (info->dateModified)
        pending.modified = info->dateModified->toSecsSinceEpoch();
    pending.isOnDisk = state_.store.exists(pending.handle);
    if (pending.isOnDisk)
        throw MTPRefusal(MTPResponseCode::generalError);
    if (info->isDirectory()) {
        state_.store.createFolder(pending.handle);
    } else {
        const bool sizeKnown = pending.announcedSize != anySize;
        if (sizeKnown && pending.announcedSize > storage.free)
            throw MTPRefusal(MTPResponseCode::storeFull);
        if (transaction.behaviour.createsObjectEarly) {
            (void)state_.store.createFile(pending.handle, false);
            pending.isOnDisk = true;
        }
        pending_ = pending;
    }
    transaction.answer = {storageID, given == 0 ? mtpRootHandle : given, pending.handle};
}

/// The file that SendObject fills. What has arrived is removed again unless it is complete.
class MTPResponderContents::Arrival {
public:
    Arrival(VirtualObjectStore& store, const Pending& pending, std::optional<std::uint64_t> limit,
            bool keepsPartial)
        : store_(store), pending_(pending), keepsPartial_(keepsPartial) {
        if (pending.isOnDisk)
            store.addUsed(pending.storageID,
                          -static_cast<std::int64_t>(store.object(pending.handle).size));
        fullAt_ = std::min(store.storage(pending.storageID).free, limit.value_or(unlimited));
        file_ = store.createFile(pending.handle, pending.isOnDisk);
    }

    ~Arrival() {
        file_.close();
        try {
            if (complete_ || keepsPartial_)
                store_.addUsed(pending_.storageID, static_cast<std::int64_t>(bytes_));
            else
                store_.discard(pending_.handle);
        } catch (const MTPRefusal&) {
            // Locked meanwhile: its storage is out of reach.
        }
    }
    Arrival(const Arrival&) = delete;
    Arrival& operator=(const Arrival&) = delete;

    void add(ByteView bytes) {
        if (bytes_ + bytes.size() > fullAt_)
            throw MTPRefusal(MTPResponseCode::storeFull);
        writeAll(file_.get(), bytes);
        bytes_ += bytes.size();
    }

    void complete() {
        if (pending_.announcedSize != anySize && pending_.announcedSize != bytes_)
            throw MTPRefusal(MTPResponseCode::incompleteTransfer);
        complete_ = true;
    }

private:
    static constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

    VirtualObjectStore& store_;
    const Pending pending_;
    const bool keepsPartial_;
    std::uint64_t fullAt_ = unlimited;
    FileHandle file_;
    std::uint64_t bytes_ = 0;
    bool complete_ = false;
};

void MTPResponderContents::sendObject(Transaction& transaction) {
    const std::optional<Pending> pending = std::exchange(pending_, std::nullopt);
    std::optional<Arrival> arrival;
    std::optional<MTPRefusal> refusal;
    try {
        if (!pending)
            throw MTPRefusal(MTPResponseCode::noValidObjectInfo);
        arrival.emplace(state_.store, *pending, state_.hooks->storeFullAfter(),
                        transaction.behaviour.keepsPartialObjects);
    } catch (const MTPRefusal& thrown) {
        refusal = thrown;
    }
    transaction.link.receiveData(transaction.command, [&](ByteView bytes) {
        if (refusal)
            throw *refusal;
        Bytes garbled;
        arrival->add(state_.hooks->garbles() ? garbledCopy(bytes, garbled) : bytes);
    });
    if (refusal)
        throw *refusal;
    arrival->complete();
    arrival.reset();
    if (pending->modified && !transaction.behaviour.datesFilesItself)
        state_.store.setModified(pending->handle, *pending->modified);
    if (transaction.behaviour.forgetsSentHandle)
        state_.store.forget(pending->handle);
    if (transaction.behaviour.hidesSentFiles)
        state_.hidden.insert(pending->handle);
    transaction.link.pause(state_.hooks->sendObjectPause());
}

void MTPResponderContents::dropPending(bool keepsObject) {
    const std::optional<Pending> pending = std::exchange(pending_, std::nullopt);
    if (pending && !keepsObject && pending->isOnDisk)
        state_.store.discard(pending->handle);
}

} // namespace tessary
