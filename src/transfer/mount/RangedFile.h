#pragma once

#include "phone/PhoneFileSystem.h"
#include "transfer/mount/MountedFile.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <thread>

namespace tessary {

/// A file of a phone of which only what is read comes across: in pieces that grow as long as they
/// are read one after the other, some of them ahead. What was read stays for a while, up to a
/// bound.
class RangedFile final : public MountedFile {
public:
    /// Bytes of a file that are kept at most.
    static constexpr qint64 mostKept = qint64{20} * 1024 * 1024;

    RangedFile(std::shared_ptr<PhoneFileSystem> files, FileItem item, Failed failed);
    /// Ends what is being fetched.
    ~RangedFile() override;

    std::size_t read(qint64 offset, std::span<std::byte> into,
                     const std::function<bool()>& isGivenUp) override;
    [[nodiscard]] bool isLost() const override;
    void stop() override;

private:
    struct Block {
        Bytes bytes;
        std::uint64_t lastUse = 0;
    };
    /// Blocks that are fetched in one request.
    struct Run {
        qint64 first = 0;
        qint64 count = 0;

        [[nodiscard]] bool has(qint64 block) const {
            return block >= first && block < first + count;
        }
    };

    [[nodiscard]] bool isDueAhead() const;
    void work(const std::stop_token& stop);
    [[nodiscard]] std::optional<Run> nextRun();
    void fetch(const Run& run, const std::stop_token& stop);
    void keep(qint64 block, Bytes bytes);
    [[nodiscard]] qint64 blockCount() const;

    const std::shared_ptr<PhoneFileSystem> files_;
    const FileItem item_;
    const Failed failed_;

    mutable std::mutex mutex_;          ///< guards all below
    std::condition_variable arrived_;   ///< for readers: a block came, or none will
    std::condition_variable_any asked_; ///< for the thread: there may be something to fetch
    std::map<qint64, Block> blocks_;
    std::deque<qint64> wanted_; ///< blocks, in the order of asking
    std::optional<Run> running_;
    Run last_{};             ///< the run that was fetched last
    qint64 lastRead_ = -1;   ///< the block that was read last
    bool isWaiting_ = false; ///< somebody waited for a block since the last run began
    std::uint64_t uses_ = 0;
    std::uint64_t failures_ = 0;
    bool isStopped_ = false;
    std::jthread thread_; ///< from the first read on
};

} // namespace tessary
