#include "transfer/copy/Spool.h"

#include "base/local/LocalError.h"
#include "base/local/PrivateFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace tessary {

namespace {

const QString folderName = QStringLiteral("spool");

[[noreturn]] void fail(int reason) {
    if (reason == ENOSPC || reason == EDQUOT)
        throw Error(LocalError::full, {folderName});
    throw Error(LocalError::cannotWrite, {folderName, qt_error_string(reason)});
}

} // namespace

void Spool::openFile() {
    const PrivateFolder folder(PrivateFolder::Place::cache, folderName);
    // It has no name: it goes with the program however that ends.
    file_ = FileHandle(
        ::openat(folder.descriptor(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file_.isOpen())
        fail(errno);
}

void Spool::writeOut(ByteView bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file_.get(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            fail(errno);
        bytes = bytes.subspan(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
}

void Spool::append(ByteView bytes) {
    size_ += static_cast<qint64>(bytes.size());
    if (!isOnDisk() && size_ > mostInMemory_) {
        openFile();
        writeOut(memory_);
        memory_ = {};
    }
    if (isOnDisk())
        writeOut(bytes);
    else
        memory_.insert(memory_.end(), bytes.begin(), bytes.end());
}

std::size_t Spool::read(std::span<std::byte> into) {
    if (isOnDisk()) {
        ssize_t count = 0;
        do
            count = ::pread(file_.get(), into.data(), into.size(), taken_);
        while (count < 0 && errno == EINTR);
        if (count < 0)
            fail(errno);
        taken_ += count;
        return static_cast<std::size_t>(count);
    }
    const auto count = std::min(into.size(), static_cast<std::size_t>(size_ - taken_));
    std::copy_n(memory_.begin() + taken_, count, into.begin());
    taken_ += static_cast<qint64>(count);
    return count;
}

} // namespace tessary
