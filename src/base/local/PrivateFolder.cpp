#include "base/local/PrivateFolder.h"

#include "base/local/LocalError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <ctime>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>

namespace tessary {

namespace {

constexpr mode_t forUsAlone = S_IRWXU;

/// By errno.
Error cannotMake(const QString& path) {
    return {LocalError::cannotMakeFolder, {path, qt_error_string(errno)}};
}

/// Whether only this user, or root, can change what is in an open folder.
bool isSafeParent(int folder) {
    struct stat facts {};
    if (fstat(folder, &facts) != 0 || !S_ISDIR(facts.st_mode))
        return false;
    return (facts.st_uid == geteuid() || facts.st_uid == 0) &&
           (facts.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

/// A folder in `parent` for this user alone, made when it is missing.
FileHandle openPrivate(int parent, const QString& name, const QString& path) {
    const QByteArray diskName = QFile::encodeName(name);
    if (name.isEmpty() || name.contains(QLatin1Char('/')) || name.startsWith(QLatin1Char('.')))
        throw Error(LocalError::nameNotUsable, {name});
    if (mkdirat(parent, diskName.constData(), forUsAlone) != 0 && errno != EEXIST)
        throw cannotMake(path);
    FileHandle folder(
        openat(parent, diskName.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!folder.isOpen() || fstat(folder.get(), &facts) != 0)
        throw cannotMake(path);
    if (facts.st_uid != geteuid())
        throw Error(LocalError::notPrivate, {path});
    if ((facts.st_mode & (S_IRWXG | S_IRWXO)) != 0 && fchmod(folder.get(), forUsAlone) != 0)
        throw cannotMake(path);
    return folder;
}

/// The home that the system knows for this user, whatever the environment says.
QString ownHome() {
    constexpr std::size_t longest = 16384;
    std::vector<char> texts(longest);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found) != 0 || found == nullptr)
        return {};
    return QFile::decodeName(found->pw_dir);
}

QStringList candidates(PrivateFolder::Place place) {
    QStringList paths;
    if (place == PrivateFolder::Place::runtime)
        paths.append(qEnvironmentVariable("XDG_RUNTIME_DIR"));
    paths.append(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation));
    if (const QString home = ownHome(); !home.isEmpty())
        paths.append(home + QStringLiteral("/.cache"));
    paths.removeAll(QString());
    return paths;
}

/// Makes a folder that is missing, with those above it, in one of root's or this user's; nothing
/// is put into what belongs to somebody else.
void makeWhereOurs(const QString& path) {
    QString nearest = path; // that is there
    while (!QFileInfo::exists(nearest))
        nearest = QFileInfo(nearest).path();
    struct stat facts {};
    if (stat(QFile::encodeName(nearest).constData(), &facts) == 0 &&
        (facts.st_uid == geteuid() || facts.st_uid == 0))
        QDir().mkpath(path);
}

/// The first place that nobody else can tamper with; made when it is missing.
std::pair<FileHandle, QString> safePlace(PrivateFolder::Place place) {
    Error refused(LocalError::cannotMakeFolder);
    for (const QString& candidate : candidates(place)) {
        const QString path = QDir::cleanPath(candidate);
        if (!QFileInfo(path).isAbsolute())
            continue;
        makeWhereOurs(path);
        FileHandle opened(
            ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!opened.isOpen())
            refused = cannotMake(path);
        else if (isSafeParent(opened.get()))
            return {std::move(opened), path};
        else
            refused = Error(LocalError::notPrivate, {path});
    }
    throw refused;
}

} // namespace

bool isLeftAlone(const struct stat& facts) {
    constexpr std::time_t longEnough = 10 * 60; // s
    const std::time_t now = std::time(nullptr);
    return facts.st_mtime < now - longEnough || facts.st_mtime > now + longEnough;
}

PrivateFolder::PrivateFolder(Place place, const QString& name) {
    const QString own = QStringLiteral("tessary");
    const auto [parent, parentPath] = safePlace(place);
    const QString path = parentPath + QLatin1Char('/') + own;
    const FileHandle ours = openPrivate(parent.get(), own, path);
    path_ = path + QLatin1Char('/') + name;
    folder_ = openPrivate(ours.get(), name, path_);
}

PrivateFolder::PrivateFolder(const QString& parent, const QString& name)
    : path_(QDir::cleanPath(QDir(parent).absoluteFilePath(name))) {
    const FileHandle opened(
        ::open(QFile::encodeName(parent).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.isOpen())
        throw cannotMake(path_);
    if (!isSafeParent(opened.get()))
        throw Error(LocalError::notPrivate, {parent});
    folder_ = openPrivate(opened.get(), name, path_);
}

} // namespace tessary
