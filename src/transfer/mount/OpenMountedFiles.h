#pragma once

#include "platform/mount/FileMount.h"
#include "transfer/mount/MountedFile.h"

#include <atomic>
#include <memory>

namespace tessary {

/// Files of a mount that programs have open: as the mount wants them, and their number.
class OpenMountedFiles {
public:
    [[nodiscard]] std::unique_ptr<MountedFiles::Reader> add(std::shared_ptr<MountedFile> file) {
        return std::make_unique<Reader>(std::move(file), count_);
    }
    [[nodiscard]] bool areAny() const {
        return *count_ > 0;
    }

private:
    using Count = std::shared_ptr<std::atomic<int>>;

    class Reader final : public MountedFiles::Reader {
    public:
        Reader(std::shared_ptr<MountedFile> file, Count count)
            : file_(std::move(file)), count_(std::move(count)) {
            ++*count_;
        }
        ~Reader() override {
            --*count_;
        }
        Reader(const Reader&) = delete;
        Reader& operator=(const Reader&) = delete;

        std::size_t read(qint64 offset, std::span<std::byte> into,
                         const std::function<bool()>& isGivenUp) override {
            return file_->read(offset, into, isGivenUp);
        }

    private:
        const std::shared_ptr<MountedFile> file_;
        const Count count_;
    };

    const Count count_ = std::make_shared<std::atomic<int>>(0);
};

} // namespace tessary
