#include "mtp/files/MTPFileWriter.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "base/threads/Deadline.h"
#include "mtp/objects/MTPFailures.h"

#include <thread>

namespace tessary {

void requireMTPName(const QString& name) {
    constexpr qsizetype mostUnits = 254;
    if (!isSafeName(name) || !name.isValidUtf16() || name.size() > mostUnits)
        throw Error(PhoneError::nameNotAllowed, {name});
}

void requireFreeMTPName(const MTPFolderContents& contents, const QString& name,
                        std::uint32_t except) {
    const auto taken = contents.sameName(name, except);
    if (!taken)
        return;
    if (*taken != name)
        throw Error(PhoneError::sameName, {*taken, name});
    throw Error(PhoneError::taken, {name});
}

void MTPFileWriter::requireFreeName(const QString& name) {
    requireMTPName(name);
    requireFreeMTPName(tree_.contents(folder_, stop_), name);
}

MTPObjectInfo MTPFileWriter::writeFile(const NewFile& file, const ByteSource& content,
                                       const ByteProgress& progress) {
    requireFreeName(file.name);
    MTPObjectInfo made = send(file, content, progress);
    tree_.added(folder_, made);
    return made;
}

MTPObjectInfo MTPFileWriter::makeFolder(const QString& name) {
    requireFreeName(name);
    const std::uint32_t announced =
        tree_.client().createFolder(name, folder_.object.handle, folder_.location.storageID);
    MTPObjectInfo made = madeOrRemoved(name, announced, 0);
    tree_.added(folder_, made);
    return made;
}

MTPObjectInfo MTPFileWriter::send(const NewFile& file, const ByteSource& content,
                                  const ByteProgress& progress) {
    const auto size = static_cast<std::uint64_t>(file.size);
    const QString path = folder_.location.child(file.name).shownPath();
    MTPObjectInfo object;
    object.storageID = folder_.location.storageID;
    object.parentObject = folder_.object.handle;
    object.filename = file.name;
    object.dateModified = file.modified;

    qint64 read = 0;
    const MTPDataSource source = [&](std::span<std::byte> buffer) {
        const std::size_t count = content(buffer);
        if (count == 0)
            throw Error(PhoneError::wrongSize, {path, read, file.size});
        read += static_cast<qint64>(count);
        return count;
    };
    qint64 sent = 0;
    std::optional<std::uint32_t> announced; // none: the phone has not said that it made anything
    const std::uint64_t asked = tree_.client().asked();
    MTPStreamOptions options;
    options.stop = stop_;
    options.accepted = [&announced](std::uint32_t handle) { announced = handle; };
    options.progress = [&](qint64 done) {
        sent = done;
        if (progress)
            progress(done);
    };
    try {
        announced = tree_.client().sendObject(object, source, size, options);
    } catch (const MTPFailure& error) {
        const bool isStalled = error.is(MTPError::stalled);
        // Some devices stall instead of answering once they have every byte. The object tells.
        if (announced && isStalled && sent == file.size)
            if (auto made = findNew(file.name, *announced); made && made->effectiveSize() == size)
                return *std::move(made);
        // A device that is gone or mute is not asked for more.
        if (announced && (!endsSession(error) || isStalled))
            removeLeftover(file.name, *announced, size);
        throw;
    } catch (const CancellationError&) {
        // Some devices make the object before they say so.
        if (tree_.client().asked() != asked)
            removeLeftover(file.name, announced.value_or(0), size);
        throw;
    } catch (...) {
        if (announced)
            removeLeftover(file.name, *announced, size);
        throw;
    }
    return madeOrRemoved(file.name, *announced, size);
}

/// requireNew(); who stops it does not want it.
MTPObjectInfo MTPFileWriter::madeOrRemoved(const QString& name, std::uint32_t announced,
                                           std::uint64_t size) {
    try {
        return requireNew(name, announced);
    } catch (const CancellationError&) {
        removeLeftover(name, announced, size);
        throw;
    }
}

/// The object of this name that was not in the folder before.
std::optional<MTPObjectInfo> MTPFileWriter::findNew(const QString& name, std::uint32_t announced) {
    const std::uint32_t storageID = folder_.location.storageID;
    const std::uint32_t parent = folder_.object.handle;
    const auto isIt = [&](std::uint32_t handle) -> std::optional<MTPObjectInfo> {
        if (handle == 0 || tree_.knows(folder_, handle))
            return std::nullopt;
        return tree_.confirm(handle, name, storageID, parent);
    };
    // Devices disagree on the worth of the handle that they announce.
    if (auto info = isIt(announced))
        return info;
    for (const std::uint32_t handle : tree_.childHandles(storageID, parent))
        if (handle != announced)
            if (auto info = isIt(handle))
                return info;
    return std::nullopt;
}

MTPObjectInfo MTPFileWriter::requireNew(const QString& name, std::uint32_t announced) {
    using namespace std::chrono_literals;
    // Some devices come to know of a file only after they have said that it is there.
    for (const auto pause : {0ms, 50ms, 150ms, 400ms}) {
        std::this_thread::sleep_for(pause);
        throwIfStopped(stop_);
        if (auto made = findNew(name, announced))
            return *std::move(made);
    }
    throw Error(PhoneError::notDone, {folder_.location.child(name).shownPath()});
}

/// What is larger than the upload is somebody else's, and what refuses to go stays.
void MTPFileWriter::removeLeftover(const QString& name, std::uint32_t announced,
                                   std::uint64_t size) noexcept {
    // Whoever stopped the call does not wait for a phone that is still busy with it.
    if (!tree_.client().settleSoon())
        return;
    try {
        const Deadline deadline(mtpCleanUpLimit);
        tree_.client().setStop(deadline.token());
        const auto leftover = findNew(name, announced);
        if (leftover && leftover->effectiveSize() <= size)
            tree_.client().deleteObject(leftover->id);
    } catch (...) {
        // The failure that led here is the one to report.
    }
}

} // namespace tessary
