#include "mtp/files/MTPItems.h"

#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"
#include "phone/PhoneNames.h"

#include <vector>

namespace tessary {

namespace {

void deleteObject(MTPSession& session, std::uint32_t storageID, const MTPObjectInfo& info,
                  int depth, const std::stop_token& stop) {
    constexpr int maxDepth = 128;
    throwIfStopped(stop);
    try {
        session.client().deleteObject(info.id);
        return;
    } catch (const MTPTransportError& error) {
        const bool mayHoldFiles =
            info.isDirectory() && error.isProtocolFailure() && depth < maxDepth;
        if (!mayHoldFiles)
            throw;
    }
    std::vector<MTPObjectInfo> children;
    session.forEachChild(
        storageID, info.id,
        [&](MTPObjectInfo&& child) {
            if (child.parentObject == info.id)
                children.push_back(std::move(child));
            return true;
        },
        stop);
    for (const MTPObjectInfo& child : children)
        deleteObject(session, storageID, child, depth + 1, stop);
    session.client().deleteObject(info.id);
}

} // namespace

const QString& noMTPStorageText() {
    static const QString text = QStringLiteral("No storage available");
    return text;
}

MTPLocation requireMTPLocation(MTPSession& session, const QString& path, const QString& noStorage) {
    if (const auto location = session.locate(path))
        return *location;
    throw TessaryError::fileIOError(noStorage);
}

MTPFound findMTPObject(MTPSession& session, const QString& path, const std::stop_token& stop,
                       const QString& noStorage) {
    for (const QString& candidate : {path, path.trimmed()}) {
        const MTPLocation location = requireMTPLocation(session, candidate, noStorage);
        if (auto object = session.resolve(location, stop))
            return {location, *std::move(object)};
        if (candidate == path.trimmed())
            break;
    }
    throwNotOnPhone(path);
}

MTPFound findMTPFolder(MTPSession& session, const QString& path, const std::stop_token& stop,
                       const QString& noStorage) {
    MTPFound found = findMTPObject(session, path, stop, noStorage);
    if (!found.object.isDirectory())
        throw TessaryError::fileIOError(QStringLiteral("%1 is not a folder.").arg(path));
    return found;
}

// A name may be empty or hold "/", so that the item's path alone does not tell the folder.
MTPFound findMTPItem(MTPSession& session, const FileItem& item, const std::stop_token& stop) {
    const QString ending = QLatin1Char('/') + item.name;
    const bool isEntry = item.path.endsWith(ending) && (item.handle || !item.name.isEmpty());
    if (!isEntry) {
        MTPFound found = findMTPObject(session, item.path, stop);
        const auto& info = found.object.info; // none: a storage, which has no name of its own
        if (info && (info->filename != item.name || info->isDirectory() != item.isDirectory))
            throwNotOnPhone(item.path);
        return found;
    }
    const MTPFound folder =
        findMTPFolder(session, item.path.chopped(ending.size()) + QLatin1Char('/'), stop);
    const MTPLocation location = folder.location.child(item.name);
    auto object =
        session.resolveChild(folder.location, folder.object.handle, item.name, item.handle, stop);
    if (!object || object->isDirectory() != item.isDirectory)
        throwNotOnPhone(item.path);
    return {location, *std::move(object)};
}

void deleteMTPObject(MTPSession& session, std::uint32_t storageID, const MTPObjectInfo& info,
                     const std::stop_token& stop) {
    deleteObject(session, storageID, info, 0, stop);
}

} // namespace tessary
