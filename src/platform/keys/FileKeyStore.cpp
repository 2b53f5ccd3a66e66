#include "platform/keys/FileKeyStore.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace tessary {

namespace {

constexpr qint64 largestSecret = 64 * 1024; // bytes
constexpr mode_t ofOthers = S_IRWXG | S_IRWXO;

[[noreturn]] void fail(const QString& what, const QString& path, int error) {
    throw KeyStoreError(
        QStringLiteral("%1 %2: %3")
            .arg(what, path, QString::fromStdString(std::system_category().message(error))));
}

/// A file that is gone again at the end.
class TemporaryFile {
public:
    explicit TemporaryFile(const QString& path)
        : path_(QFile::encodeName(path)),
          descriptor_(::open(path_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                             S_IRUSR | S_IWUSR)) {
        if (descriptor_ < 0)
            fail(QStringLiteral("Cannot write"), path, errno);
    }
    ~TemporaryFile() {
        ::close(descriptor_);
        ::unlink(path_.constData());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// 0, or errno.
    [[nodiscard]] int write(const QByteArray& bytes) const {
        for (qsizetype written = 0; written < bytes.size();) {
            const ssize_t step = ::write(descriptor_, bytes.constData() + written,
                                         static_cast<std::size_t>(bytes.size() - written));
            if (step < 0 && errno != EINTR)
                return errno;
            written += step > 0 ? step : 0;
        }
        return ::fsync(descriptor_) == 0 ? 0 : errno;
    }
    /// Gives the file a second name, unless that is taken. 0, or errno.
    [[nodiscard]] int linkTo(const QString& path) const {
        return ::link(path_.constData(), QFile::encodeName(path).constData()) == 0 ? 0 : errno;
    }

private:
    const QByteArray path_;
    const int descriptor_;
};

} // namespace

QString FileKeyStore::pathOf(const QString& tag) const {
    return folder_ + QLatin1Char('/') + tag;
}

std::optional<QByteArray> FileKeyStore::find(const QString& tag) {
    const QString path = pathOf(tag);
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        if (errno == ENOENT)
            return std::nullopt;
        fail(QStringLiteral("Cannot read"), path, errno);
    }
    QFile file;
    struct stat facts {};
    const bool isOpen = file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    if (!isOpen || ::fstat(descriptor, &facts) != 0)
        fail(QStringLiteral("Cannot read"), path, errno);
    if (!S_ISREG(facts.st_mode) || facts.st_uid != ::geteuid() || (facts.st_mode & ofOthers) != 0)
        throw KeyStoreError(
            QStringLiteral("%1 is not a file that only its user can read").arg(path));
    return file.read(largestSecret);
}

QByteArray FileKeyStore::addIfMissing(const QString& tag, const QByteArray& secret) {
    if (const auto known = find(tag))
        return *known;
    QDir().mkpath(QFileInfo(folder_).absolutePath());
    if (::mkdir(QFile::encodeName(folder_).constData(), S_IRWXU) != 0 && errno != EEXIST)
        fail(QStringLiteral("Cannot make"), folder_, errno);
    const QString path = pathOf(tag);
    const TemporaryFile file(path + QLatin1Char('.') + QUuid::createUuid().toString(QUuid::Id128));
    if (const int error = file.write(secret))
        fail(QStringLiteral("Cannot write"), path, error);
    // Unlike a rename, this leaves the key of a program that was quicker.
    if (const int error = file.linkTo(path); error != 0 && error != EEXIST)
        fail(QStringLiteral("Cannot write"), path, error);
    const auto stored = find(tag);
    if (!stored)
        throw KeyStoreError(QStringLiteral("%1 is gone again").arg(path));
    return *stored;
}

} // namespace tessary
