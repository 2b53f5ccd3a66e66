#pragma once

#include "base/local/FileHandle.h"
#include "mtp/protocol/MTPCodes.h"
#include "simulator/storage/VirtualStorage.h"

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tessary {

/// One object of a virtual phone, as it lies on disk.
struct VirtualObject {
    std::uint32_t handle = 0;
    std::uint32_t storageID = 0;
    std::uint32_t parent = 0; ///< 0 in the root
    std::string name;         ///< the bytes on disk, UTF-8 as a rule
    bool isFolder = false;
    std::uint64_t size = 0;    ///< bytes; 0 for a folder
    std::int64_t modified = 0; ///< seconds since 1970
};

/// The storages of a virtual phone and their objects: gives out handles for what lies in the
/// backing folders, at the moment when it is listed. A handle stays with its object until the phone
/// is unplugged. Thread-safe in its storage settings; everything that takes or gives handles is for
/// the phone's thread. Failures are thrown as MTPRefusal.
class VirtualObjectStore {
public:
    explicit VirtualObjectStore(std::vector<VirtualStorage> storages, bool locked);

    /// Forgets every handle; the next ones differ from all before.
    void renewHandles();

    [[nodiscard]] std::vector<VirtualStorage> storages() const;
    void setLocked(bool locked);

    /// None while the phone is locked.
    [[nodiscard]] std::vector<std::uint32_t> storageIDs() const;
    /// invalidStorageID for an unknown one and while the phone is locked.
    [[nodiscard]] VirtualStorage storage(std::uint32_t id) const;

    [[nodiscard]] VirtualObject object(std::uint32_t handle);
    /// The objects in a folder, or in the root of a storage when `parent` is 0, sorted by name.
    /// invalidParentObject when it is no folder of that storage.
    /// Sorting aside, the time is proportional to the number of entries.
    [[nodiscard]] std::vector<std::uint32_t> children(std::uint32_t storageID,
                                                      std::uint32_t parent);
    /// Every object of a storage, folders before what is in them.
    [[nodiscard]] std::vector<std::uint32_t> everything(std::uint32_t storageID);

    /// Gives a handle to a name that need not be on disk yet. invalidParameter for a name that
    /// cannot be a file here.
    [[nodiscard]] std::uint32_t reserve(std::uint32_t storageID, std::uint32_t parent,
                                        const QString& name);
    [[nodiscard]] bool exists(std::uint32_t handle);
    void createFolder(std::uint32_t handle);
    /// A new, empty file to write; `replaces` allows it to be there already.
    [[nodiscard]] FileHandle createFile(std::uint32_t handle, bool replaces);
    [[nodiscard]] FileHandle openFile(std::uint32_t handle);
    /// A file that is there, to write to.
    [[nodiscard]] FileHandle editFile(std::uint32_t handle);
    /// Deletes an object with all that is in it; partialDeletion when something stays.
    void remove(std::uint32_t handle);
    [[nodiscard]] bool isEmptyFolder(std::uint32_t handle);
    void setModified(std::uint32_t handle, std::int64_t secondsSinceEpoch);
    void rename(std::uint32_t handle, const QString& name);
    void move(std::uint32_t handle, std::uint32_t parent);
    /// The handle names nothing any more.
    void forget(std::uint32_t handle);
    /// Removes the file of an upload that failed; nothing happens when it is gone.
    void discard(std::uint32_t handle);

    /// Books what an object grew by (or shrank, when negative).
    void addUsed(std::uint32_t storageID, std::int64_t bytes);
    /// storeReadOnly when it is.
    void checkWritable(std::uint32_t storageID) const;

private:
    struct Node {
        std::size_t storage = 0;
        std::uint32_t parent = 0;
        std::string name;
    };
    using Names = std::unordered_map<std::string, std::uint32_t>;

    [[nodiscard]] std::size_t indexOf(std::uint32_t storageID) const;
    [[nodiscard]] const Node& node(std::uint32_t handle) const;
    [[nodiscard]] std::filesystem::path folderPath(std::size_t storage, std::uint32_t folder) const;
    [[nodiscard]] std::filesystem::path pathOf(std::uint32_t handle) const;
    [[nodiscard]] Names& namesIn(std::size_t storage, std::uint32_t folder);
    [[nodiscard]] std::uint32_t handleFor(std::size_t storage, std::uint32_t folder,
                                          const std::string& name);
    void checkFolder(std::uint32_t storageID, std::uint32_t folder);
    void relocate(std::uint32_t handle, std::uint32_t parent, const std::string& name);
    void appendTree(std::uint32_t storageID, std::uint32_t folder,
                    std::vector<std::uint32_t>& handles);

    std::uint32_t generation_ = 0;
    std::uint32_t lastHandle_ = 0;
    std::unordered_map<std::uint32_t, Node> nodes_;
    std::unordered_map<std::uint64_t, Names> folders_; ///< by storage index and folder handle

    mutable std::mutex mutex_; ///< guards the settings below
    std::vector<VirtualStorage> storages_;
    bool locked_;
};

} // namespace tessary
