#pragma once

#include "transfer/queue/CopyJob.h"

#include <QDateTime>
#include <QJsonObject>

namespace tessary {

/// A copy that has ended, as it is remembered: what it did, what is missing and why, and what to go
/// on with. A value.
struct CopyRecord {
    CopyJob job; ///< without its progress' speed; what was left out is cut to mostLeftOut
    QDateTime ended;
    /// What is missing of one that can go on, by the names that it has given.
    std::vector<CopyItem> rest{};

    /// So many of a copy's errors are remembered one by one.
    static constexpr std::size_t mostLeftOut = 1000;

    /// Whether all words of a search are in its names, whatever their case.
    [[nodiscard]] bool matches(const QString& search) const;
};

[[nodiscard]] QJsonObject toJson(const CopyRecord& record);
/// No value for what is none.
[[nodiscard]] std::optional<CopyRecord> copyRecordFromJson(const QJsonObject& json);

} // namespace tessary
