#include "transfer/mount/ArrivingFile.h"

#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"

#include <cerrno>
#include <system_error>

namespace tessary {

using namespace std::chrono_literals;

ArrivingFile::ArrivingFile(std::shared_ptr<PhoneFileSystem> files, FileItem item, Failed failed)
    : files_(std::move(files)),
      item_(std::move(item)),
      failed_(std::move(failed)),
      thread_([this](const std::stop_token& stop) { run(stop); }) {}

ArrivingFile::~ArrivingFile() {
    thread_.request_stop();
}

void ArrivingFile::stop() {
    thread_.request_stop();
}

bool ArrivingFile::isLost() const {
    const std::scoped_lock lock(mutex_);
    return hasFailed_;
}

void ArrivingFile::run(const std::stop_token& stop) {
    nameCurrentThread("tessary-mounted");
    try {
        fetch(stop);
        setEnd(true);
    } catch (const CancellationError&) {
        setEnd(false);
    } catch (const Error& error) {
        setEnd(false);
        failed_(item_, error);
    }
}

void ArrivingFile::fetch(const std::stop_token& stop) {
    const auto file = std::make_shared<UnnamedFile>(QStringLiteral("mounted"));
    {
        const std::scoped_lock lock(mutex_);
        file_ = file;
    }
    qint64 done = 0;
    files_->read(
        item_, {},
        [&](ByteView bytes) {
            if (done + static_cast<qint64>(bytes.size()) > item_.size)
                throw Error(PhoneError::changed, {item_.path});
            file->append(bytes);
            done += static_cast<qint64>(bytes.size());
            const std::scoped_lock lock(mutex_);
            arrived_ = done;
            changed_.notify_all();
        },
        stop);
    if (done != item_.size)
        throw Error(PhoneError::changed, {item_.path});
}

void ArrivingFile::setEnd(bool isWhole) {
    const std::scoped_lock lock(mutex_);
    isWhole_ = isWhole;
    hasFailed_ = !isWhole;
    changed_.notify_all();
}

std::size_t ArrivingFile::read(qint64 offset, std::span<std::byte> into,
                               const std::function<bool()>& isGivenUp) {
    constexpr auto glance = 100ms; // a reader that was killed is let go this soon
    std::unique_lock lock(mutex_);
    const qint64 end = offset + static_cast<qint64>(into.size());
    while (!isWhole_ && (end >= item_.size || arrived_ < end)) {
        if (hasFailed_)
            throw std::system_error(EIO, std::generic_category());
        if (isGivenUp())
            throw std::system_error(EINTR, std::generic_category());
        changed_.wait_for(lock, glance);
    }
    const std::shared_ptr<const UnnamedFile> file = file_;
    lock.unlock();
    try {
        return file->readAt(offset, into);
    } catch (const Error&) {
        throw std::system_error(EIO, std::generic_category());
    }
}

} // namespace tessary
