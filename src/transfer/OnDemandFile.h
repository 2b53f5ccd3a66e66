#pragma once

#include "base/local/FileHandle.h"
#include "phone/FileAccess.h"

#include <QTemporaryDir>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <span>
#include <thread>

namespace tessary {

/// A copy of one file that can be read while it still arrives. Thread-safe.
class OnDemandFile {
public:
    /// Called on a thread of the copy when it fails.
    using Failed = std::function<void(const FileItem&, const std::exception&)>;

    /// Begins the copy, into `folder`, which is empty and goes with the copy.
    OnDemandFile(std::shared_ptr<FileAccess> files, FileItem item,
                 std::unique_ptr<QTemporaryDir> folder, Failed failed);
    /// Ends the copy.
    ~OnDemandFile();
    OnDemandFile(const OnDemandFile&) = delete;
    OnDemandFile& operator=(const OnDemandFile&) = delete;

    /// Fills `into` with what lies at `offset`, once it has arrived; the last bytes only once the
    /// whole file is known to be good, so that nobody takes a broken copy for a whole one. Throws
    /// std::system_error (EIO) when the copy failed, EINTR soon after `isGivenUp` says so.
    std::size_t read(qint64 offset, std::span<std::byte> into,
                     const std::function<bool()>& isGivenUp);
    [[nodiscard]] bool isWhole() const;
    /// Lets every reader go with an error.
    void stop();

private:
    enum class State { arriving, whole, failed };

    void run(const std::stop_token& stop);
    void setState(State state);
    [[nodiscard]] int descriptor();

    const std::shared_ptr<FileAccess> files_;
    const FileItem item_;
    const std::unique_ptr<QTemporaryDir> folder_;
    const Failed failed_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    State state_ = State::arriving;
    FileHandle file_; ///< of what arrives; it keeps its content when it is renamed
    std::jthread thread_;
};

} // namespace tessary
