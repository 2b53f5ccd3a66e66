#pragma once

#include "sync/old/plan/SyncScan.h"

#include <QSet>
#include <QString>

#include <vector>

namespace tessary {

/// Tells which paths cannot be synced because of what stands beside or above them. Asked for each
/// path in ascending order.
class SyncObstacles {
public:
    SyncObstacles(const SyncScan& local, const SyncScan& device);

    /// Why nothing can be done with a path; empty when nothing is in its way.
    [[nodiscard]] QString reasonFor(const QString& path, bool isLocalFile, bool isDeviceFile);

private:
    /// Walks a sorted container beside ascending questions.
    template <typename Container>
    class Follower {
    public:
        explicit Follower(const Container& container)
            : at_(container.begin()), end_(container.end()) {}
        typename Container::const_iterator find(const QString& path);
        [[nodiscard]] bool isEnd(typename Container::const_iterator it) const {
            return it == end_;
        }

    private:
        typename Container::const_iterator at_;
        const typename Container::const_iterator end_;
    };

    [[nodiscard]] QString reasonAbove(QStringView folder) const;

    const SyncScan& local_;
    const SyncScan& device_;
    Follower<std::set<QString>> localFolders_;
    Follower<std::set<QString>> deviceFolders_;
    Follower<std::map<QString, QString>> localUnusable_;
    Follower<std::map<QString, QString>> deviceUnusable_;
    QString folder_;       ///< that was asked about last
    QString folderReason_; ///< for everything in it
};

/// The files and folders of both sides whose names a side takes for one though they differ, because
/// it ignores case or Unicode form. Names that such a side holds next to each other do not clash.
[[nodiscard]] QSet<QString> clashingPaths(const SyncScan& local, const SyncScan& device,
                                          const SyncNameRules& localNames,
                                          const SyncNameRules& deviceNames);

/// Whether a path, or a folder above it, is in the set.
[[nodiscard]] bool isUnderAny(const QString& path, const QSet<QString>& set);

} // namespace tessary
