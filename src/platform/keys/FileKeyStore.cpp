#include "platform/keys/FileKeyStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

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
    QTemporaryFile file(path + QStringLiteral(".XXXXXX")); // this user's alone
    if (!file.open() || file.write(secret) != secret.size() || !file.flush() ||
        ::fsync(file.handle()) != 0)
        fail(QStringLiteral("Cannot write"), path, errno);
    // Unlike a rename, this leaves the key of a program that was quicker.
    if (::link(QFile::encodeName(file.fileName()).constData(),
               QFile::encodeName(path).constData()) != 0 &&
        errno != EEXIST)
        fail(QStringLiteral("Cannot write"), path, errno);
    const auto stored = find(tag);
    if (!stored)
        throw KeyStoreError(QStringLiteral("%1 is gone again").arg(path));
    return *stored;
}

} // namespace tessary
