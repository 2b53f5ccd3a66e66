#pragma once

#include "transfer/queue/CopyRecord.h"

#include <mutex>
#include <vector>

namespace tessary {

/// The copies of the last month, the latest first, in one file that is written whole or not at all.
/// Thread-safe; every call may read or write the file: off the main thread.
class CopyHistory {
public:
    static constexpr int keptDays = 31;
    static constexpr std::size_t mostRecords = 2000;

    /// `folder` is this user's; it is made when it is missing. A file that cannot be read is taken
    /// for an empty one and written anew.
    explicit CopyHistory(QString folder);
    /// Where the user's lies.
    [[nodiscard]] static QString usersFolder();

    /// Puts copies at the top, the last one first, in the place of earlier records of the same
    /// ones. What is too old goes. LocalError when they cannot be written: they are remembered
    /// until the program ends.
    void add(std::vector<CopyRecord> records);
    /// Those that match a search; all for an empty one.
    [[nodiscard]] std::vector<CopyRecord> find(const QString& search);
    /// Those that broke off within oldestBrokenOff and that nobody was asked about yet.
    [[nodiscard]] std::vector<CopyRecord> unfinished();
    /// Nobody is asked about these again.
    void noteOffered(const std::vector<QUuid>& ids);
    void clear();

private:
    void load();
    void save();

    const QString folder_;
    std::mutex mutex_; ///< guards all below, and the file
    bool isLoaded_ = false;
    std::vector<CopyRecord> records_;
};

} // namespace tessary
