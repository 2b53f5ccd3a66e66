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

    /// Puts a copy at the top, in the place of an earlier record of the same one. What is too old
    /// goes. LocalError when it cannot be written: it is remembered until the program ends.
    void add(CopyRecord record);
    /// Those that match a search; all for an empty one.
    [[nodiscard]] std::vector<CopyRecord> find(const QString& search);
    /// Those that can go on and begin or end at a phone (PhoneFileSystem::identity()): to be
    /// offered when it comes back.
    [[nodiscard]] std::vector<CopyRecord> brokenOffWith(const QString& identity);
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
