#pragma once

#include "mtp/protocol/MTPTypes.h"

#include <QHash>
#include <QMultiHash>
#include <QSet>
#include <QString>

#include <optional>

namespace tessary {

/// What a folder of a device holds, by handle and by name. A value, used by one thread at a time.
class MTPFolderContents {
public:
    explicit MTPFolderContents(std::uint32_t folder = 0) : folder_(folder) {}

    /// The folder's own handle.
    [[nodiscard]] std::uint32_t folder() const {
        return folder_;
    }
    void insert(const MTPObjectInfo& info);
    /// Something that is there, whatever it is.
    void insertUnreadable(std::uint32_t handle);
    void remove(std::uint32_t handle);
    /// Drops what has none of these handles.
    void keepOnly(const QSet<std::uint32_t>& handles);

    [[nodiscard]] bool contains(std::uint32_t handle) const;
    /// The same, with its facts.
    [[nodiscard]] bool knows(std::uint32_t handle) const {
        return objects_.contains(handle);
    }
    /// The facts of an object; no value when they are not known.
    [[nodiscard]] std::optional<MTPObjectInfo> info(std::uint32_t handle) const;
    /// The object of this very name; null when there is none.
    [[nodiscard]] const MTPObjectInfo* find(const QString& name) const;
    /// The name, other than that of `except`, that phones take for this one.
    [[nodiscard]] std::optional<QString> sameName(const QString& name,
                                                  std::uint32_t except = 0) const;

private:
    std::uint32_t folder_ = 0;
    QHash<std::uint32_t, MTPObjectInfo> objects_;
    QMultiHash<QString, std::uint32_t> handlesByName_; ///< by phoneNames.key()
    QSet<std::uint32_t> unreadable_;
};

} // namespace tessary
