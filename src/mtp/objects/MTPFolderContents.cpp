#include "mtp/objects/MTPFolderContents.h"

#include "phone/NameRules.h"

namespace tessary {

void MTPFolderContents::insert(const MTPObjectInfo& info) {
    remove(info.id);
    objects_.insert(info.id, info);
    handlesByName_.insert(phoneNames.key(info.filename), info.id);
}

void MTPFolderContents::insertUnreadable(std::uint32_t handle) {
    unreadable_.insert(handle);
}

void MTPFolderContents::remove(std::uint32_t handle) {
    unreadable_.remove(handle);
    const auto object = objects_.constFind(handle);
    if (object == objects_.constEnd())
        return;
    handlesByName_.remove(phoneNames.key(object->filename), handle);
    objects_.erase(object);
}

void MTPFolderContents::keepOnly(const QSet<std::uint32_t>& handles) {
    unreadable_.intersect(handles);
    for (const std::uint32_t handle : objects_.keys())
        if (!handles.contains(handle))
            remove(handle);
}

bool MTPFolderContents::contains(std::uint32_t handle) const {
    return knows(handle) || unreadable_.contains(handle);
}

std::optional<MTPObjectInfo> MTPFolderContents::info(std::uint32_t handle) const {
    const auto found = objects_.constFind(handle);
    return found == objects_.cend() ? std::nullopt : std::optional(*found);
}

const MTPObjectInfo* MTPFolderContents::find(const QString& name) const {
    const QString key = phoneNames.key(name);
    for (auto it = handlesByName_.constFind(key);
         it != handlesByName_.constEnd() && it.key() == key; ++it)
        if (const auto object = objects_.constFind(*it); object->filename == name)
            return &*object;
    return nullptr;
}

std::optional<QString> MTPFolderContents::sameName(const QString& name,
                                                   std::uint32_t except) const {
    const QString key = phoneNames.key(name);
    for (auto it = handlesByName_.constFind(key);
         it != handlesByName_.constEnd() && it.key() == key; ++it)
        if (*it != except)
            return objects_.constFind(*it)->filename;
    return std::nullopt;
}

} // namespace tessary
