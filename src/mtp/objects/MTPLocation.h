#pragma once

#include "mtp/protocol/MTPTypes.h"

#include <QString>

#include <optional>

namespace tessary {

/// A place on one storage of a device.
struct MTPLocation {
    std::uint32_t storageID = 0;
    QString path;   ///< storage-relative, begins with "/", no "/" at the end but for the root
    QString prefix; ///< what stands in front of `path` for the user: "" for the first storage,
                    ///< "/storage/<id>" for every other one

    [[nodiscard]] bool isRoot() const {
        return path.size() == 1;
    }
    /// The path as the user addresses it.
    [[nodiscard]] QString shownPath() const;
    [[nodiscard]] MTPLocation child(const QString& name) const;
    /// The folder that it lies in; the root's is the root.
    [[nodiscard]] MTPLocation folder() const;
};

/// What a location stands for on the device.
struct MTPResolvedObject {
    std::uint32_t handle = mtpRootHandle;
    std::optional<MTPObjectInfo> info; ///< none for the root of a storage

    [[nodiscard]] bool isDirectory() const {
        return !info || info->isDirectory();
    }
};

/// An object and where it lies.
struct MTPFound {
    MTPLocation location;
    MTPResolvedObject object;
    std::uint32_t parent = mtpRootHandle; ///< the folder that it was found in
};

} // namespace tessary
