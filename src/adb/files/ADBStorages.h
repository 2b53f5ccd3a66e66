#pragma once

#include "phone/NameRules.h"
#include "phone/PhoneFileSystem.h"
#include "phone/records/DeviceInfo.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <mutex>
#include <stop_token>
#include <vector>

namespace tessary {

class ADBSession;

/// The storages of a phone as its shell sees them: the internal one as "/sdcard", cards and sticks
/// as "/storage/<id>". What needs the phone is called by whoever has its turn; all else answers at
/// once. Thread-safe.
class ADBStorages {
public:
    /// One form of a path: absolute, "/sdcard" in place of its other names, no "/" at the end, no
    /// empty component. A storage number of MTP is put into its storage's name here where that is
    /// known.
    [[nodiscard]] QString canonicalPath(const QString& path) const;
    [[nodiscard]] FileTreeRoot rootOf(const QString& path) const;
    /// The same for a path that is canonical.
    [[nodiscard]] static QString rootPathOf(const QString& canonical);

    /// Whether a canonical path has a storage by its number over MTP still, which learn() may tell
    /// the name of.
    [[nodiscard]] static bool isByNumber(const QString& canonical);
    /// Finds out what the cards and sticks are called. Errors of ADBSession.
    void learn(ADBSession& session, const std::stop_token& stop) {
        (void)removable(session, stop);
    }
    /// Battery and storages. Errors of ADBSession.
    [[nodiscard]] LiveDeviceInfo ask(ADBSession& session, const std::stop_token& stop);
    [[nodiscard]] NameRules nameRules(const QString& canonical, ADBSession& session,
                                      const std::stop_token& stop);
    [[nodiscard]] std::optional<std::uint64_t>
    freeBytes(const QString& canonical, ADBSession& session, const std::stop_token& stop);

private:
    [[nodiscard]] std::vector<StorageVolume> removable(ADBSession& session,
                                                       const std::stop_token& stop);

    mutable std::mutex mutex_;
    std::vector<StorageVolume> cards_; ///< without sizes; guarded by mutex_
    QHash<QString, NameRules> rules_;  ///< by root; guarded by mutex_
};

/// The percent in what `dumpsys battery` prints; no value for anything odd. Pure.
[[nodiscard]] std::optional<int> batteryLevelIn(const QByteArray& output);

/// Free and whole bytes of a file system.
struct ADBSpace {
    std::uint64_t free = 0;
    std::uint64_t total = 0;

    bool operator==(const ADBSpace&) const = default;
};
/// What `stat -f -c` prints by spaceFormat(), by its number; of a file system that tells nonsense
/// zeros, and of one that cannot be told of nothing. Pure.
[[nodiscard]] QHash<int, ADBSpace> spacesIn(const QByteArray& output);
[[nodiscard]] QByteArray spaceFormat(int number);

} // namespace tessary
