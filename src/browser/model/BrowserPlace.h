#pragma once

#include "phone/PhoneFileSystem.h"
#include "phone/records/DeviceInfo.h"

#include <QString>

#include <optional>
#include <vector>

namespace tessary {

/// One step of the path bar.
struct PathComponent {
    QString name;
    QString path; ///< where a click goes
};

/// Where a browser is.
struct BrowserPlace {
    QString path = QStringLiteral("/");
    QString root = QStringLiteral("/"); ///< the path of the storage that it lies in
    std::vector<PathComponent> components;

    /// `path` is as the file system writes it. The device knows its storages' names better than a
    /// path does; it is empty when none stands behind the files.
    [[nodiscard]] static BrowserPlace
    of(const PhoneFileSystem& files, const std::optional<DeviceInfo>& device, const QString& path);
};

} // namespace tessary
