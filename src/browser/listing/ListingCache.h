#pragma once

#include "phone/records/DeviceInfo.h"
#include "phone/records/FileItem.h"

#include <QCache>
#include <QHash>
#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace tessary {

/// The folders that a browser has shown, so that it can show them again at once while it reads them
/// anew; very large ones aside. Forgets what may have changed. On the main thread.
class ListingCache {
public:
    /// A moment: see remember().
    using Moment = std::uint64_t;

    /// The connection now browsed (PhoneFileSystem::identity()), and the attachment of the device
    /// (DeviceInfo::id()) behind it.
    void open(const QString& identity, const QString& deviceId);

    [[nodiscard]] std::optional<std::vector<FileItem>> recall(const QString& identity,
                                                              const QString& folder);
    /// When a listing begins.
    [[nodiscard]] Moment now() const {
        return changes_;
    }
    /// Keeps a listing, unless anything was forgotten since it began: it may be older than that
    /// change. What it shows to be gone or changed is forgotten.
    void remember(const QString& identity, const QString& folder,
                  const std::vector<FileItem>& items, Moment begun);

    /// An entry was made, changed, moved or removed: forgets it with all below it, its folder, and
    /// the folder above that, which shows the date.
    void entryChanged(const QString& identity, const QString& path);
    void forgetFolder(const QString& identity, const QString& folder);
    void forget(const QString& identity);
    /// Forgets the connections of devices that are not attached as they were any more.
    void keepOnly(const std::vector<DeviceInfo>& attached);
    void forgetAll();

private:
    struct Glimpse {
        std::vector<FileItem> items;
        std::chrono::steady_clock::time_point since;
    };
    void removeBelow(const QString& prefix);

    static constexpr int mostFolders = 200; ///< the one that was not used for longest goes

    QCache<QString, Glimpse> cache_{mostFolders};
    QHash<QString, QString> deviceOf_; ///< DeviceInfo::id() by PhoneFileSystem::identity()
    Moment changes_ = 0;
};

} // namespace tessary
