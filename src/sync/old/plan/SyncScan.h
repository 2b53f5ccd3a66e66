#pragma once

#include "sync/old/plan/SyncManifest.h"

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <functional>
#include <map>
#include <set>

namespace tessary {

/// What a checked listing of one side found. Paths are relative, see SyncFiles.
struct SyncScan {
    SyncFiles files;
    std::set<QString> folders; ///< the root itself aside
    /// What is there and cannot be synced (links, sockets, unreadable files, names that no path
    /// can hold), with the reason. Neither a file nor the lack of one.
    std::map<QString, QString> unusable;
    /// Temporary files that an earlier run left, with the dates that a device lists for them.
    std::map<QString, QDateTime> leftovers;
    bool hasManifest = false; ///< ".tessary.sync" is in the root
};

/// Which names a side can hold, and which it takes for one.
struct SyncNameRules {
    bool ignoresCase = false;
    bool ignoresUnicodeForm = false; ///< composed and decomposed letters are the same
    /// Why a name cannot be used there; empty when it can.
    std::function<QString(QStringView name)> refusal;
};

} // namespace tessary
