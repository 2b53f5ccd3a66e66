#pragma once

#include <unistd.h>

#include <utility>

namespace tessary {

/// An owned POSIX file descriptor.
class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(int descriptor) : descriptor_(descriptor) {}
    ~FileHandle() {
        close();
    }
    FileHandle(FileHandle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }

    [[nodiscard]] bool isOpen() const {
        return descriptor_ >= 0;
    }
    [[nodiscard]] int get() const {
        return descriptor_;
    }
    void close() {
        if (const int descriptor = std::exchange(descriptor_, -1); descriptor >= 0)
            ::close(descriptor);
    }

private:
    int descriptor_ = -1;
};

} // namespace tessary
