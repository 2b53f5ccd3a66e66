#include "transfer/OnDemandFile.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"
#include "base/values/TessaryError.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace tessary {

using namespace std::chrono_literals;

OnDemandFile::OnDemandFile(std::shared_ptr<FileAccess> files, FileItem item,
                           std::unique_ptr<QTemporaryDir> folder, Failed failed)
    : files_(std::move(files)),
      item_(std::move(item)),
      folder_(std::move(folder)),
      failed_(std::move(failed)),
      thread_([this](const std::stop_token& stop) { run(stop); }) {}

OnDemandFile::~OnDemandFile() {
    stop();
    thread_.join();
}

void OnDemandFile::run(const std::stop_token& stop) {
    nameCurrentThread("tessary-promise");
    try {
        const QString target = folder_->filePath(QStringLiteral("copy"));
        files_->downloadFile(
            item_, target, [this](qint64, qint64) { changed_.notify_all(); }, stop);
        if (QFileInfo(target).size() != item_.size)
            throw TessaryError::fileIOError(
                QStringLiteral("%1 changed while it was being copied. Copy it again.")
                    .arg(item_.path));
        setState(State::whole);
    } catch (const CancellationError&) {
        setState(State::failed);
    } catch (const std::exception& error) {
        setState(State::failed);
        failed_(item_, error);
    }
}

void OnDemandFile::setState(State state) {
    const std::scoped_lock lock(mutex_);
    state_ = state;
    changed_.notify_all();
}

void OnDemandFile::stop() {
    thread_.request_stop();
}

bool OnDemandFile::isWhole() const {
    const std::scoped_lock lock(mutex_);
    return state_ == State::whole;
}

/// The file that arrives, under whatever name; -1 while there is none.
int OnDemandFile::descriptor() {
    if (!file_.isOpen()) {
        const QStringList names = QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden);
        if (!names.isEmpty())
            file_ = FileHandle(
                ::open(QFile::encodeName(folder_->filePath(names.front())), O_RDONLY | O_CLOEXEC));
    }
    return file_.get();
}

std::size_t OnDemandFile::read(qint64 offset, std::span<std::byte> into,
                               const std::function<bool()>& isGivenUp) {
    constexpr auto glance = 100ms; // progress may be told of before or after the bytes are there
    std::unique_lock lock(mutex_);
    const auto hasArrived = [&] {
        if (state_ == State::whole)
            return true;
        const qint64 end = offset + static_cast<qint64>(into.size());
        struct stat facts {};
        return end < item_.size && descriptor() >= 0 && fstat(file_.get(), &facts) == 0 &&
               facts.st_size >= end;
    };
    while (state_ != State::failed && !hasArrived()) {
        if (isGivenUp())
            throw std::system_error(EINTR, std::generic_category());
        changed_.wait_for(lock, glance);
    }
    const int file = state_ == State::failed ? -1 : descriptor();
    lock.unlock();
    const ssize_t count = file < 0 ? -1 : ::pread(file, into.data(), into.size(), offset);
    if (count < 0)
        throw std::system_error(EIO, std::generic_category());
    return static_cast<std::size_t>(count);
}

} // namespace tessary
