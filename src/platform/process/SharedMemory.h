#pragma once

#include "base/local/FileHandle.h"

#include <cstddef>
#include <memory>

namespace tessary {

/// Memory that this process and a child of it have in common, zeros at first.
class SharedMemory {
public:
    /// std::system_error when there is none to be had.
    explicit SharedMemory(std::size_t size);

    /// What the child inherits to map it.
    [[nodiscard]] int descriptor() const {
        return descriptor_.get();
    }
    /// The memory itself, which stays as long as somebody has this.
    [[nodiscard]] const std::shared_ptr<std::byte>& bytes() const {
        return bytes_;
    }

    /// Maps what was inherited. std::system_error when it is not `size` bytes of memory.
    [[nodiscard]] static std::shared_ptr<std::byte> map(int descriptor, std::size_t size);

private:
    FileHandle descriptor_;
    std::shared_ptr<std::byte> bytes_;
};

} // namespace tessary
