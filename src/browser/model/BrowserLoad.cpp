#include "browser/model/BrowserLoad.h"

#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "mtp/protocol/MTPTransportError.h"
#include "phone/DevicePath.h"

#include <algorithm>

namespace tessary {

namespace {

/// A failure of the path, not of the connection.
bool mayBeMissing(const std::exception& error) {
    const auto* own = dynamic_cast<const TessaryError*>(&error);
    return own && (own->kind() == TessaryError::Case::fileIOError ||
                   own->afc() == AFCError::objectNotFound);
}

bool listsFolder(const std::vector<FileItem>& items, const QString& name) {
    return std::any_of(items.begin(), items.end(),
                       [&](const FileItem& item) { return item.isDirectory && item.name == name; });
}

/// The nearest folder above `path` that is there, when `path` is not; throws what the device
/// answers otherwise.
std::optional<QString> livingFolderAbove(FileAccess& files, const QString& path,
                                         const std::stop_token& stop) {
    const QString root = files.rootOf(path).path;
    for (QString missing = path; missing != root;) {
        const QString folder = parentPath(missing);
        try {
            if (listsFolder(files.listDirectory(folder, stop), lastComponent(missing)))
                return std::nullopt;
            return folder;
        } catch (const TessaryError& error) {
            if (!mayBeMissing(error) || folder == missing)
                throw;
        }
        missing = folder;
    }
    return std::nullopt;
}

BrowserLoad failed(FileAccess& files, const std::exception& error) {
    BrowserLoad load;
    load.error = adviceFor(error, files);
    load.isDeviceLost = isDeviceLost(error);
    return load;
}

} // namespace

bool isDeviceLost(const std::exception& error) {
    if (const auto* transport = dynamic_cast<const MTPTransportError*>(&error))
        return transport->isDeviceGone() ||
               transport->kind() == MTPTransportError::Case::connectionClosed;
    const auto* own = dynamic_cast<const TessaryError*>(&error);
    return own && own->kind() == TessaryError::Case::deviceNotFound;
}

BrowserLoad loadFolder(FileAccess& files, const QString& path, const QLocale& locale,
                       const std::stop_token& stop) {
    throwIfStopped(stop);
    try {
        BrowserLoad load;
        load.listing = FileListing::make(files.listDirectory(path, stop), locale);
        return load;
    } catch (const CancellationError&) {
        throw;
    } catch (const std::exception& error) {
        BrowserLoad load = failed(files, error);
        if (load.isDeviceLost || !mayBeMissing(error))
            return load;
        try {
            load.livingFolder = livingFolderAbove(files, path, stop);
        } catch (const CancellationError&) {
            throw;
        } catch (const std::exception& other) {
            return failed(files, other);
        }
        if (load.livingFolder)
            load.error = {QStringLiteral("The folder \"%1\" is not on the phone any more.")
                              .arg(lastComponent(path)),
                          QStringLiteral("Go up to the folder that held it.")};
        return load;
    }
}

} // namespace tessary
