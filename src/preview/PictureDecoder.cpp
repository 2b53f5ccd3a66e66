#include "preview/PictureDecoder.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "platform/process/QtProcessRunner.h"
#include "platform/sandbox/Sandbox.h"

#include <QFile>

#include <mutex>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessary {

namespace {

constexpr qint64 longestOutput = qint64{4} * maxPictureSide * maxPictureSide + 1024;

/// Nobody's pipe or device: opening and reading those may wait for ever.
FileHandle openFile(const QString& path) {
    FileHandle file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat facts {};
    if (!file.isOpen() || fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode) ||
        facts.st_size > PictureDecoder::longestFile)
        throw PictureError("the file cannot be read");
    return file;
}

void sayWhatIsMissing() {
    static std::once_flag isSaid;
    std::call_once(isSaid, [] {
        if (!hasFileWall())
            DiagnosticsLogger::shared().ui.standard(
                "This kernel has no Landlock: documents are shown without this computer's fonts");
    });
}

} // namespace

PictureDecoder::PictureDecoder(QString program, std::chrono::milliseconds limit)
    : program_(std::move(program)), limit_(limit) {}

Picture PictureDecoder::decode(const PictureRequest& request, const std::stop_token& stop) const {
    const FileHandle file = openFile(request.file);
    return decode(file, request.maxSide, request.page, stop);
}

Picture PictureDecoder::decode(const QByteArray& bytes, int maxSide,
                               const std::stop_token& stop) const {
    const FileHandle file(::memfd_create("picture", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    const auto size = static_cast<std::size_t>(bytes.size());
    if (!file.isOpen() ||
        ::write(file.get(), bytes.constData(), size) != static_cast<ssize_t>(size) ||
        ::lseek(file.get(), 0, SEEK_SET) != 0)
        throw PictureError("there is no memory for the picture");
    return decode(file, maxSide, 0, stop);
}

Picture PictureDecoder::decode(const FileHandle& file, int maxSide, int page,
                               const std::stop_token& stop) const {
    throwIfStopped(stop);
    if (program_.isEmpty())
        throw PictureError("the program that decodes pictures is missing");
    sayWhatIsMissing();
    // What lies in memory a decoder could fill past its own limit. A file on a disk refuses this.
    (void)::fcntl(file.get(), F_ADD_SEALS, F_SEAL_GROW | F_SEAL_SHRINK | F_SEAL_WRITE);
    ProcessRequest child;
    child.program = program_;
    child.arguments = {QString::number(maxSide), QString::number(page)};
    child.standardInput = file.get();
    child.limit = limit_;
    child.stop = stop;
    child.outputLimit = longestOutput;
    QtProcessRunner runner;
    const ProcessResult result = runner.follow(child);
    throwIfStopped(stop);
    if (result.outcome == ProcessResult::Outcome::timedOut)
        throw PictureTimeoutError("the picture was not decoded in time");
    if (!result.succeeded())
        throw PictureError("the picture cannot be decoded");
    auto picture = decodePicture(result.standardOutput);
    if (!picture)
        throw PictureError("the decoded picture makes no sense");
    return *std::move(picture);
}

} // namespace tessary
