#pragma once

#include "base/local/UnnamedFile.h"
#include "transfer/mount/MountedFile.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tessary {

/// A file that is fetched whole, into a file without a name, and can be read while it arrives. The
/// last bytes can be read only once all are known to be good, so that nobody takes a broken copy
/// for a whole one.
class ArrivingFile final : public MountedFile {
public:
    /// Begins to fetch.
    ArrivingFile(std::shared_ptr<PhoneFileSystem> files, FileItem item, Failed failed);
    ~ArrivingFile() override;

    std::size_t read(qint64 offset, std::span<std::byte> into,
                     const std::function<bool()>& isGivenUp) override;
    [[nodiscard]] bool isLost() const override;
    void stop() override;

private:
    void run(const std::stop_token& stop);
    void fetch(const std::stop_token& stop);
    void setEnd(bool isWhole);

    const std::shared_ptr<PhoneFileSystem> files_;
    const FileItem item_;
    const Failed failed_;

    mutable std::mutex mutex_; ///< guards all below but the thread
    std::condition_variable changed_;
    std::shared_ptr<const UnnamedFile> file_; ///< null until it is there
    qint64 arrived_ = 0;
    bool isWhole_ = false;
    bool hasFailed_ = false;
    std::jthread thread_;
};

} // namespace tessary
