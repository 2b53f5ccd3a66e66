#pragma once

#include "phone/PhoneFileSystem.h"

#include <functional>
#include <span>

namespace tessary {

/// A file of a phone that programs read as one of this computer. Thread-safe.
class MountedFile {
public:
    /// Called on a thread of the file's own when it cannot be fetched.
    using Failed = std::function<void(const FileItem&, const Error&)>;

    virtual ~MountedFile() = default;

    /// Fills `into` with what lies at `offset`, once it is there; less only at the end of the file.
    /// Throws std::system_error (EIO) when it cannot be had, EINTR soon after `isGivenUp` says so.
    virtual std::size_t read(qint64 offset, std::span<std::byte> into,
                             const std::function<bool()>& isGivenUp) = 0;
    /// No read succeeds any more: whoever opens the file from now on wants another one.
    [[nodiscard]] virtual bool isLost() const = 0;
    /// Lets every reader go with an error, for good.
    virtual void stop() = 0;
};

} // namespace tessary
