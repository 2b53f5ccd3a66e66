#pragma once

#include "sync/plan/SyncReport.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <chrono>
#include <optional>
#include <vector>

namespace tessary {

/// The reports of runs, kept for a month as files of this user. Thread-safe; blocking. What cannot
/// be stored is logged.
class SyncReportStore {
public:
    static constexpr std::chrono::days keptFor{31};

    /// `folder` is made when there is something to store.
    explicit SyncReportStore(QString folder) : folder_(std::move(folder)) {}

    /// Where the program keeps them.
    [[nodiscard]] static QString defaultFolder();

    /// Stores a report and removes those that are too old at `now`.
    void add(const QUuid& pair, const SyncReport& report, const QDateTime& now) const;
    /// The reports of a pair, the newest first, at most `most`.
    [[nodiscard]] std::vector<SyncReport> of(const QUuid& pair, std::size_t most) const;
    /// Removes all of a pair.
    void forget(const QUuid& pair) const;

private:
    [[nodiscard]] QString folderOf(const QUuid& pair) const;

    const QString folder_;
};

} // namespace tessary
