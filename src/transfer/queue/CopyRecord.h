#pragma once

#include "transfer/copy/TreeCopy.h"
#include "transfer/queue/CopyJob.h"

#include <QDateTime>
#include <QJsonObject>

namespace tessary {

/// A copy as it is remembered: what it did, what is missing and why, and what to go on with. A
/// value.
struct CopyRecord {
    CopyJob job; ///< without its progress' speed; what was left out is cut to mostLeftOut
    QDateTime ended;
    /// What is missing of one that is not done, by the names that it has given.
    std::vector<CopyItem> rest{};
    bool removesSource = false; ///< as TreeCopyRequest says
    bool verifies = false;
    bool wasOffered = false; ///< the user was asked whether it is to go on

    /// So many of a copy's errors are remembered one by one.
    static constexpr std::size_t mostLeftOut = 1000;

    /// It did not end as anybody wanted: its phone was lost, or the program ended under it.
    [[nodiscard]] bool hasBrokenOff() const;
    /// What going on with it copies, from and to its file systems, opened anew.
    [[nodiscard]] TreeCopyRequest requestForRest(std::shared_ptr<PhoneFileSystem> from,
                                                 std::shared_ptr<PhoneFileSystem> to) const;
    /// Whether all words of a search are in its names, whatever their case.
    [[nodiscard]] bool matches(const QString& search) const;
};

[[nodiscard]] QJsonObject toJson(const CopyRecord& record);
/// No value for what is none. One that was under way broke off with the program that wrote it: it
/// is CopyJob::Status::failed, without an error.
[[nodiscard]] std::optional<CopyRecord> copyRecordFromJson(const QJsonObject& json);

} // namespace tessary
