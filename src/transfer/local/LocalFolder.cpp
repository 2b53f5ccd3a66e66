#include "transfer/local/LocalFolder.h"

#include "base/text/PathNames.h"
#include "phone/PhoneError.h"

#include <QDir>
#include <QFileInfo>
#include <QStringConverter>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

namespace tessary {

namespace {

constexpr int folderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

/// Where an open descriptor leads, links resolved; empty when the system does not say.
QByteArray placeOf(const FileHandle& file) {
    std::array<char, PATH_MAX> place{};
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(file.get());
    const ssize_t length = ::readlink(link.constData(), place.data(), place.size());
    return length > 0 ? QByteArray(place.data(), length) : QByteArray();
}

} // namespace

Error localFailure(LocalError otherwise, const QString& path, int reason) {
    switch (reason) {
    case ENOENT:
        return {LocalError::notFound, {path}};
    case EEXIST:
        return {LocalError::taken, {path}};
    case ENOTEMPTY:
        return {LocalError::folderNotEmpty, {path}};
    case ELOOP:
        return {LocalError::link, {path}};
    case ENOTDIR:
        return {LocalError::notAFolder, {path}};
    case EISDIR:
        return {LocalError::folderInTheWay, {path}};
    case ENAMETOOLONG:
        return {LocalError::nameTooLong, {lastComponent(path)}};
    case EILSEQ:
        return {LocalError::nameNotUsable, {lastComponent(path)}};
    case ENOSPC:
    case EDQUOT:
        return {LocalError::full, {path}};
    case EXDEV:
        return {PhoneError::otherStorage, {path}};
    case EFBIG:
        return {PhoneError::tooLarge, {path}};
    default:
        return {otherwise, {path, qt_error_string(reason)}};
    }
}

void makeFolders(const QString& path) {
    if (QDir().mkpath(path))
        return;
    const int reason = errno;
    QString there = path;
    while (!QFileInfo::exists(there) && there != parentPath(there))
        there = parentPath(there);
    if (!QFileInfo(there).isDir())
        throw Error(LocalError::notAFolder, {there});
    throw localFailure(LocalError::cannotMakeFolder, path, reason);
}

QByteArray localName(const QString& name) {
    if (!isSafeName(name) || !name.isValidUtf16())
        throw Error(LocalError::nameNotUsable, {name});
    return name.toUtf8();
}

std::optional<QString> nameFromDisk(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    QString name = decoder.decode(bytes);
    if (decoder.hasError() || name.toUtf8() != bytes)
        return std::nullopt;
    return name;
}

LocalFolder::LocalFolder(const QString& path) : path_(QDir::cleanPath(path)) {
    Q_ASSERT(QDir::isAbsolutePath(path));
}

FileHandle LocalFolder::open(const QString& folder) const {
    const QString wanted = QDir::cleanPath(folder);
    const QString below = joinPath(path_, {});
    if (wanted != path_ && !wanted.startsWith(below))
        throw Error(LocalError::leavesFolder, {folder});
    FileHandle opened(::open(path_.toUtf8().constData(), folderFlags));
    if (!opened.isOpen())
        throw localFailure(LocalError::cannotRead, path_, errno);
    QString reached = path_;
    for (const QString& name :
         wanted.mid(below.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        reached = joinPath(reached, name);
        FileHandle next(
            ::openat(opened.get(), localName(name).constData(), folderFlags | O_NOFOLLOW));
        if (!next.isOpen()) {
            // A link is "not a folder" to the system; who asks is to know.
            struct stat facts {};
            const int reason = errno;
            if (reason == ENOTDIR &&
                ::fstatat(opened.get(), localName(name).constData(), &facts, AT_SYMLINK_NOFOLLOW) ==
                    0 &&
                S_ISLNK(facts.st_mode))
                throw Error(LocalError::link, {reached});
            throw localFailure(LocalError::cannotRead, reached, reason);
        }
        opened = std::move(next);
    }
    return opened;
}

bool LocalFolder::contains(const FileHandle& file) const {
    const QByteArray own = placeOf(open(path_));
    const QByteArray place = placeOf(file);
    return !own.isEmpty() && (place == own || own == "/" || place.startsWith(own + '/'));
}

} // namespace tessary
