#pragma once

#include "adb/tool/ADBTool.h"

#include <QDateTime>

#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// What a phone's `stat` tells of one path.
struct ADBFileFacts {
    std::uint32_t mode = 0; ///< POSIX mode bits; a link is not followed
    qint64 size = 0;        ///< bytes
    QDateTime modified;
    QString identity; ///< of device and inode: two paths of one object have the same

    [[nodiscard]] bool isFolder() const {
        return (mode & 0xF000) == 0x4000;
    }
    [[nodiscard]] bool isLink() const {
        return (mode & 0xF000) == 0xA000;
    }
};

/// Commands on one phone's shell. Used within one operation, on one thread. Failures are
/// TessaryError::fileIOError in words for a person, and CancellationError.
///
/// A shell's exit status cannot be relied on: it is 0 also when the link dies, and always on older
/// phones. What matters is looked up afterwards.
class ADBShell {
public:
    ADBShell(const ADBTool& tool, const DeviceInfo& device, std::stop_token stop)
        : tool_(tool), device_(device), stop_(std::move(stop)) {}

    /// Runs one command line. Throws when adb or the phone fails, but for a command's own failure.
    ProcessResult run(const QString& line,
                      std::optional<std::chrono::milliseconds> limit = ADBTool::shortLimit) const;

    /// Runs commands in as few lines as they fit into; one result for each line. None of them may
    /// depend on another.
    std::vector<ProcessResult> runEach(const QStringList& commands) const;

    /// The facts of each path, no value for one that is not there. A path that ends in "/" is
    /// looked at through a link.
    [[nodiscard]] std::vector<std::optional<ADBFileFacts>> stat(const QStringList& paths) const;
    [[nodiscard]] std::optional<ADBFileFacts> stat(const QString& path) const;
    /// Throws when there is no folder at the path.
    void requireFolder(const QString& path) const;
    /// The same where the facts of the path, and of it with a "/" behind, were read before.
    static void requireFolder(const QString& path, const std::optional<ADBFileFacts>& itself,
                              const std::optional<ADBFileFacts>& target);

    [[nodiscard]] const ADBTool& tool() const {
        return tool_;
    }
    [[nodiscard]] const DeviceInfo& device() const {
        return device_;
    }
    [[nodiscard]] const std::stop_token& stopToken() const {
        return stop_;
    }

private:
    const ADBTool& tool_;
    const DeviceInfo& device_;
    const std::stop_token stop_;
};

} // namespace tessary
