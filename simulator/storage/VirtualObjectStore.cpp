#include "simulator/storage/VirtualObjectStore.h"

#include "simulator/storage/MTPRefusal.h"

#include <QStringEncoder>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tessary {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestName = 255; // bytes, as file systems have it

std::uint32_t storageIDAt(std::size_t index) {
    return static_cast<std::uint32_t>((index + 1) << 16 | 1);
}

/// The bytes of a name that a host gave. What could leave the folder is refused.
std::string diskName(const QString& name) {
    QStringEncoder toUtf8(QStringConverter::Utf8);
    const QByteArray bytes = toUtf8(name);
    const bool usable = !toUtf8.hasError() && !bytes.isEmpty() && bytes != "." && bytes != ".." &&
                        !bytes.contains('/') && !bytes.contains('\0') &&
                        static_cast<std::size_t>(bytes.size()) <= longestName;
    if (!usable)
        throw MTPRefusal(MTPResponseCode::invalidParameter);
    return bytes.toStdString();
}

std::optional<struct stat> statOf(const fs::path& path) {
    struct stat facts {};
    const bool found =
        ::lstat(path.c_str(), &facts) == 0 && (S_ISREG(facts.st_mode) || S_ISDIR(facts.st_mode));
    return found ? std::optional(facts) : std::nullopt;
}

bool isFolder(const fs::path& path) {
    const auto facts = statOf(path);
    return facts && S_ISDIR(facts->st_mode);
}

MTPRefusal refusalFor(int error) {
    return MTPRefusal(error == ENOSPC ? MTPResponseCode::storeFull : MTPResponseCode::generalError);
}

} // namespace

VirtualObjectStore::VirtualObjectStore(std::vector<VirtualStorage> storages, bool locked)
    : storages_(std::move(storages)), locked_(locked) {
    for (const VirtualStorage& storage : storages_) {
        std::error_code ignored;
        fs::create_directories(storage.folder.toStdString(), ignored);
    }
}

void VirtualObjectStore::renewHandles() {
    constexpr std::uint32_t generations = 200;
    generation_ = generation_ % generations + 1;
    lastHandle_ = generation_ << 24;
    nodes_.clear();
    folders_.clear();
}

std::vector<VirtualStorage> VirtualObjectStore::storages() const {
    const std::lock_guard lock(mutex_);
    return storages_;
}

void VirtualObjectStore::setLocked(bool locked) {
    const std::lock_guard lock(mutex_);
    locked_ = locked;
}

std::vector<std::uint32_t> VirtualObjectStore::storageIDs() const {
    const std::lock_guard lock(mutex_);
    std::vector<std::uint32_t> ids;
    for (std::size_t i = 0; i < storages_.size() && !locked_; ++i)
        ids.push_back(storageIDAt(i));
    return ids;
}

std::size_t VirtualObjectStore::indexOf(std::uint32_t storageID) const {
    const std::lock_guard lock(mutex_);
    for (std::size_t i = 0; i < storages_.size() && !locked_; ++i) {
        if (storageIDAt(i) == storageID)
            return i;
    }
    throw MTPRefusal(MTPResponseCode::invalidStorageID);
}

VirtualStorage VirtualObjectStore::storage(std::uint32_t id) const {
    const std::size_t index = indexOf(id);
    const std::lock_guard lock(mutex_);
    return storages_[index];
}

const VirtualObjectStore::Node& VirtualObjectStore::node(std::uint32_t handle) const {
    const auto found = nodes_.find(handle);
    const std::lock_guard lock(mutex_);
    if (found == nodes_.end() || locked_)
        throw MTPRefusal(MTPResponseCode::invalidObjectHandle);
    return found->second;
}

fs::path VirtualObjectStore::folderPath(std::size_t storage, std::uint32_t folder) const {
    if (folder != 0)
        return pathOf(folder);
    const std::lock_guard lock(mutex_);
    return storages_[storage].folder.toStdString();
}

fs::path VirtualObjectStore::pathOf(std::uint32_t handle) const {
    const Node& object = node(handle);
    return folderPath(object.storage, object.parent) / object.name;
}

VirtualObjectStore::Names& VirtualObjectStore::namesIn(std::size_t storage, std::uint32_t folder) {
    return folders_[std::uint64_t{storage} << 32 | folder];
}

std::uint32_t VirtualObjectStore::handleFor(std::size_t storage, std::uint32_t folder,
                                            const std::string& name) {
    const auto [row, isNew] = namesIn(storage, folder).try_emplace(name, 0);
    if (isNew) {
        row->second = ++lastHandle_;
        nodes_[lastHandle_] = {storage, folder, name};
    }
    return row->second;
}

VirtualObject VirtualObjectStore::object(std::uint32_t handle) {
    const Node& found = node(handle);
    const auto facts = statOf(pathOf(handle));
    if (!facts)
        throw MTPRefusal(MTPResponseCode::invalidObjectHandle);
    VirtualObject object;
    object.handle = handle;
    object.storageID = storageIDAt(found.storage);
    object.parent = found.parent;
    object.name = found.name;
    object.isFolder = S_ISDIR(facts->st_mode);
    object.size = object.isFolder ? 0 : static_cast<std::uint64_t>(facts->st_size);
    object.modified = facts->st_mtime;
    return object;
}

bool VirtualObjectStore::exists(std::uint32_t handle) {
    return statOf(pathOf(handle)).has_value();
}

void VirtualObjectStore::checkFolder(std::uint32_t storageID, std::uint32_t folder) {
    const std::size_t storage = indexOf(storageID);
    if (folder == 0)
        return;
    const auto found = nodes_.find(folder);
    const bool usable =
        found != nodes_.end() && found->second.storage == storage && isFolder(pathOf(folder));
    if (!usable)
        throw MTPRefusal(MTPResponseCode::invalidParentObject);
}

std::vector<std::uint32_t> VirtualObjectStore::children(std::uint32_t storageID,
                                                        std::uint32_t parent) {
    checkFolder(storageID, parent);
    const std::size_t storage = indexOf(storageID);
    std::vector<std::string> onDisk;
    std::error_code error;
    fs::directory_iterator entry(folderPath(storage, parent), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code unreadable;
        const fs::file_type type = entry->symlink_status(unreadable).type();
        if (type == fs::file_type::regular || type == fs::file_type::directory)
            onDisk.push_back(entry->path().filename().string());
    }
    std::ranges::sort(onDisk);
    std::vector<std::uint32_t> handles;
    handles.reserve(onDisk.size());
    for (const std::string& name : onDisk)
        handles.push_back(handleFor(storage, parent, name));
    return handles;
}

std::vector<std::uint32_t> VirtualObjectStore::everything(std::uint32_t storageID) {
    std::vector<std::uint32_t> handles;
    appendTree(storageID, 0, handles);
    return handles;
}

void VirtualObjectStore::appendTree(std::uint32_t storageID, std::uint32_t folder,
                                    std::vector<std::uint32_t>& handles) {
    for (const std::uint32_t child : children(storageID, folder)) {
        handles.push_back(child);
        if (isFolder(pathOf(child)))
            appendTree(storageID, child, handles);
    }
}

std::uint32_t VirtualObjectStore::reserve(std::uint32_t storageID, std::uint32_t parent,
                                          const QString& name) {
    checkFolder(storageID, parent);
    return handleFor(indexOf(storageID), parent, diskName(name));
}

void VirtualObjectStore::createFolder(std::uint32_t handle) {
    if (::mkdir(pathOf(handle).c_str(), 0777) != 0)
        throw refusalFor(errno);
}

FileHandle VirtualObjectStore::createFile(std::uint32_t handle, bool replaces) {
    const int mode = O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC | (replaces ? O_TRUNC : O_EXCL);
    FileHandle file(::open(pathOf(handle).c_str(), mode, 0666));
    if (!file.isOpen())
        throw refusalFor(errno);
    return file;
}

FileHandle VirtualObjectStore::openFile(std::uint32_t handle) {
    FileHandle file(::open(pathOf(handle).c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (!file.isOpen())
        throw MTPRefusal(MTPResponseCode::accessDenied);
    return file;
}

FileHandle VirtualObjectStore::editFile(std::uint32_t handle) {
    FileHandle file(::open(pathOf(handle).c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC));
    if (!file.isOpen())
        throw refusalFor(errno);
    return file;
}

bool VirtualObjectStore::isEmptyFolder(std::uint32_t handle) {
    std::error_code error;
    return fs::is_empty(pathOf(handle), error) && !error;
}

void VirtualObjectStore::remove(std::uint32_t handle) {
    const VirtualObject top = object(handle);
    std::vector<std::uint32_t> tree{handle};
    if (top.isFolder)
        appendTree(top.storageID, handle, tree);
    // From the end: what is in a folder comes before the folder.
    bool complete = true;
    std::for_each(tree.rbegin(), tree.rend(), [&](std::uint32_t each) {
        const auto facts = statOf(pathOf(each));
        std::error_code error;
        if (fs::remove(pathOf(each), error)) {
            if (facts && S_ISREG(facts->st_mode))
                addUsed(top.storageID, -static_cast<std::int64_t>(facts->st_size));
            forget(each);
        } else {
            complete = false;
        }
    });
    if (!complete)
        throw MTPRefusal(MTPResponseCode::partialDeletion);
}

void VirtualObjectStore::setModified(std::uint32_t handle, std::int64_t secondsSinceEpoch) {
    const std::array times{timespec{0, UTIME_OMIT},
                           timespec{static_cast<time_t>(secondsSinceEpoch), 0}};
    if (::utimensat(AT_FDCWD, pathOf(handle).c_str(), times.data(), AT_SYMLINK_NOFOLLOW) != 0)
        throw refusalFor(errno);
}

void VirtualObjectStore::rename(std::uint32_t handle, const QString& name) {
    const Node& object = node(handle);
    relocate(handle, object.parent, diskName(name));
}

void VirtualObjectStore::move(std::uint32_t handle, std::uint32_t parent) {
    const Node& object = node(handle);
    checkFolder(storageIDAt(object.storage), parent);
    for (std::uint32_t above = parent; above != 0; above = node(above).parent) {
        if (above == handle)
            throw MTPRefusal(MTPResponseCode::invalidParentObject);
    }
    relocate(handle, parent, object.name);
}

void VirtualObjectStore::relocate(std::uint32_t handle, std::uint32_t parent,
                                  const std::string& name) {
    Node& object = nodes_.at(handle);
    if (object.parent == parent && object.name == name)
        return;
    const fs::path target = folderPath(object.storage, parent) / name;
    std::error_code error;
    if (fs::symlink_status(target, error).type() != fs::file_type::not_found)
        throw MTPRefusal(MTPResponseCode::generalError);
    fs::rename(pathOf(handle), target, error);
    if (error)
        throw MTPRefusal(MTPResponseCode::generalError);
    namesIn(object.storage, object.parent).erase(object.name);
    object.parent = parent;
    object.name = name;
    // What had this name before is no longer on disk.
    const std::uint32_t former = std::exchange(namesIn(object.storage, parent)[name], handle);
    nodes_.erase(former);
}

void VirtualObjectStore::forget(std::uint32_t handle) {
    const auto found = nodes_.find(handle);
    if (found == nodes_.end())
        return;
    namesIn(found->second.storage, found->second.parent).erase(found->second.name);
    nodes_.erase(found);
}

void VirtualObjectStore::discard(std::uint32_t handle) {
    ::unlink(pathOf(handle).c_str());
    forget(handle);
}

void VirtualObjectStore::addUsed(std::uint32_t storageID, std::int64_t bytes) {
    const std::size_t index = indexOf(storageID);
    const std::lock_guard lock(mutex_);
    std::uint64_t& free = storages_[index].free;
    if (bytes < 0)
        free += static_cast<std::uint64_t>(-bytes);
    else
        free -= std::min(free, static_cast<std::uint64_t>(bytes));
}

void VirtualObjectStore::checkWritable(std::uint32_t storageID) const {
    if (storage(storageID).readOnly)
        throw MTPRefusal(MTPResponseCode::storeReadOnly);
}

} // namespace tessary
