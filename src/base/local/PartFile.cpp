#include "base/local/PartFile.h"

#include "base/local/LocalError.h"

#include <QFileInfo>
#include <QUuid>

#include <filesystem>
#include <system_error>

#include <fcntl.h>

namespace tessary {

namespace {

QString freshPathBeside(const QString& target) {
    return QFileInfo(target).absolutePath() + QLatin1Char('/') + PartFile::newName();
}

} // namespace

QString PartFile::newName() {
    constexpr qsizetype digits = 12;
    return namePrefix + QUuid::createUuid().toString(QUuid::Id128).left(digits);
}

PartFile::PartFile(const QString& target) : target_(target), file_(freshPathBeside(target)) {
    if (QFileInfo(target).isDir())
        throw Error(LocalError::folderInTheWay, {target});
    if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw Error(LocalError::cannotWrite,
                    {QFileInfo(target).absolutePath(), file_.errorString()});
    unfinished_ = Unfinished(AT_FDCWD, file_.filesystemFileName().native().c_str());
}

PartFile::~PartFile() {
    if (!isCommitted_)
        file_.remove();
}

void PartFile::write(ByteView bytes) {
    const auto* data = reinterpret_cast<const char*>(bytes.data());
    const auto count = static_cast<qint64>(bytes.size());
    for (qint64 written = 0; written < count;) {
        const qint64 step = file_.write(data + written, count - written);
        if (step <= 0)
            throw Error(LocalError::cannotWrite, {target_, file_.errorString()});
        written += step;
    }
    size_ += count;
}

void PartFile::commit(const std::optional<QDateTime>& modified) {
    // A date that the file system cannot hold is no reason to lose the copy.
    if (modified)
        (void)file_.setFileTime(*modified, QFileDevice::FileModificationTime);
    file_.close();
    if (file_.error() != QFileDevice::NoError)
        throw Error(LocalError::cannotWrite, {target_, file_.errorString()});
    std::error_code failure;
    std::filesystem::rename(file_.filesystemFileName(), QFile(target_).filesystemFileName(),
                            failure);
    if (failure)
        throw Error(LocalError::cannotRename,
                    {target_, QString::fromLocal8Bit(failure.message().c_str())});
    isCommitted_ = true;
    unfinished_ = {};
}

} // namespace tessary
