#include "transfer/mount/ArrivingFile.h"

#include "base/local/LocalError.h"
#include "base/local/PrivateFolder.h"
#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
    const QString folderName = QStringLiteral("mounted");
    const auto cannot = [&](int reason) {
        return reason == ENOSPC
                   ? Error(LocalError::full, {folderName})
                   : Error(LocalError::cannotWrite, {folderName, qt_error_string(reason)});
    };
    const PrivateFolder folder(PrivateFolder::Place::cache, folderName);
    FileHandle file(
        ::openat(folder.descriptor(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file.isOpen())
        throw cannot(errno);
    const int descriptor = file.get();
    {
        const std::scoped_lock lock(mutex_);
        file_ = std::move(file);
    }
    qint64 done = 0;
    files_->read(
        item_, {},
        [&](ByteView bytes) {
            if (done + static_cast<qint64>(bytes.size()) > item_.size)
                throw Error(PhoneError::changed, {item_.path});
            while (!bytes.empty()) {
                const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
                if (count < 0 && errno != EINTR)
                    throw cannot(errno);
                bytes = bytes.subspan(count < 0 ? 0 : static_cast<std::size_t>(count));
                done += std::max<ssize_t>(count, 0);
            }
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
    const int file = file_.get();
    lock.unlock();
    const ssize_t count = ::pread(file, into.data(), into.size(), offset);
    if (count < 0)
        throw std::system_error(EIO, std::generic_category());
    return static_cast<std::size_t>(count);
}

} // namespace tessary
