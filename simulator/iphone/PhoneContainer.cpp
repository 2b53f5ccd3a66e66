#include "simulator/iphone/PhoneContainer.h"

#include "base/values/FreeWith.h"
#include "simulator/wire/AFCCodec.h"
#include "simulator/wire/AFCRefusal.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

namespace tessary {

namespace {

constexpr std::size_t deepest = 256;
constexpr mode_t folderMode = 0755;
constexpr mode_t fileMode = 0644;
constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

[[noreturn]] void refuse(std::uint64_t status) {
    throw AFCRefusal{status};
}

std::uint64_t statusFor(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return afc::objectNotFound;
    case EISDIR:
        return afc::objectIsDir;
    case EACCES:
    case EPERM:
    case EBADF: // a file that is open in the other direction
    case ELOOP: // a link
        return afc::permDenied;
    case EEXIST:
        return afc::objectExists;
    case ENOSPC:
    case EDQUOT:
        return afc::noSpaceLeft;
    case ENOTEMPTY:
        return afc::dirNotEmpty;
    case EINVAL:
    case ENAMETOOLONG:
        return afc::invalidArg;
    default:
        return afc::ioError;
    }
}

void check(bool worked) {
    if (!worked)
        refuse(statusFor(errno));
}

struct stat factsOf(const FileHandle& folder, const std::string& name) {
    struct stat facts {};
    check(::fstatat(folder.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0);
    return facts;
}

std::int64_t sizeOf(const struct stat& facts) {
    return S_ISREG(facts.st_mode) ? static_cast<std::int64_t>(facts.st_size) : 0;
}

const char* kindOf(mode_t mode) {
    if (S_ISDIR(mode))
        return "S_IFDIR";
    if (S_ISREG(mode))
        return "S_IFREG";
    return S_ISLNK(mode) ? "S_IFLNK" : "S_IFIFO";
}

QString nanoseconds(const timespec& time) {
    return QString::number(static_cast<qint64>(time.tv_sec) * 1'000'000'000 + time.tv_nsec);
}

FileHandle openFolder(const FileHandle& folder, const std::string& name) {
    FileHandle opened(::openat(folder.get(), name.c_str(), folderFlags));
    if (!opened.isOpen()) {
        const int error = errno;
        struct stat facts {};
        const bool isLink =
            ::fstatat(folder.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISLNK(facts.st_mode);
        refuse(isLink ? afc::permDenied : statusFor(error));
    }
    return opened;
}

std::vector<std::string> namesIn(FileHandle folder) {
    // The stream owns a descriptor of its own.
    const std::unique_ptr<DIR, FreeWith<::closedir>> stream(::fdopendir(::dup(folder.get())));
    check(stream != nullptr);
    std::vector<std::string> names;
    while (const dirent* entry = ::readdir(stream.get())) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..")
            names.push_back(name);
    }
    return names;
}

/// The name as the folder has it: to an iPhone composed and decomposed letters are the same.
std::string asStored(const FileHandle& folder, std::string name) {
    const auto isASCII = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    struct stat facts {};
    if (std::all_of(name.begin(), name.end(), isASCII) ||
        ::fstatat(folder.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0)
        return name;
    const auto form = [](const std::string& text) {
        return QString::fromStdString(text).normalized(QString::NormalizationForm_C);
    };
    for (std::string& there : namesIn(openFolder(folder, ".")))
        if (form(there) == form(name))
            return std::move(there);
    return name;
}

} // namespace

PhoneContainer::PhoneContainer(VirtualIPhone& phone, const QString& folder, Access access)
    : phone_(phone),
      root_(::open(folder.toLocal8Bit().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      access_(std::move(access)) {}

std::vector<std::string> PhoneContainer::parts(const std::string& path) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string part = path.substr(at, end - at);
        if (part == "..")
            refuse(afc::permDenied);
        if (!part.empty() && part != ".")
            parts.push_back(part);
        at = end + 1;
    }
    if (parts.size() > deepest)
        refuse(afc::invalidArg);
    return parts;
}

void PhoneContainer::checkAccess(const std::vector<std::string>& parts) const {
    if (!root_.isOpen())
        refuse(afc::ioError);
    if (access_.documentsOnly && (parts.empty() || parts.front() != "Documents"))
        refuse(afc::permDenied);
}

void PhoneContainer::checkWritable(const std::string& path) const {
    if (!access_.writable)
        return;
    const std::vector<std::string> way = parts(path);
    if (way.empty() || !access_.writable->contains(QString::fromStdString(way.front())))
        refuse(afc::permDenied);
}

PhoneContainer::Place PhoneContainer::place(const std::string& path, bool makesFolders) const {
    std::vector<std::string> way = parts(path);
    checkAccess(way);
    Place place{openFolder(root_, "."), "."};
    if (way.empty())
        return place;
    place.name = std::move(way.back());
    way.pop_back();
    for (const std::string& wanted : way) {
        const std::string part = asStored(place.folder, wanted);
        if (makesFolders && ::mkdirat(place.folder.get(), part.c_str(), folderMode) != 0)
            check(errno == EEXIST);
        place.folder = openFolder(place.folder, part);
    }
    place.name = asStored(place.folder, std::move(place.name));
    return place;
}

std::vector<std::string> PhoneContainer::names(const std::string& path) const {
    const Place folder = place(path);
    std::vector<std::string> found = namesIn(openFolder(folder.folder, folder.name));
    std::sort(found.begin(), found.end());
    found.insert(found.begin(), {".", ".."});
    return found;
}

QStringList PhoneContainer::info(const std::string& path) const {
    const Place object = place(path);
    const struct stat facts = factsOf(object.folder, object.name);
#ifdef __APPLE__
    const timespec modified = facts.st_mtimespec;
#else
    const timespec modified = facts.st_mtim;
#endif
    QStringList pairs{QStringLiteral("st_size"),      QString::number(facts.st_size),
                      QStringLiteral("st_blocks"),    QString::number(facts.st_blocks),
                      QStringLiteral("st_nlink"),     QString::number(facts.st_nlink),
                      QStringLiteral("st_ifmt"),      QString::fromLatin1(kindOf(facts.st_mode)),
                      QStringLiteral("st_mtime"),     nanoseconds(modified),
                      QStringLiteral("st_birthtime"), nanoseconds(modified)};
    if (S_ISLNK(facts.st_mode)) {
        std::array<char, 1024> target{};
        const ssize_t length =
            ::readlinkat(object.folder.get(), object.name.c_str(), target.data(), target.size());
        pairs << QStringLiteral("LinkTarget")
              << QString::fromUtf8(target.data(),
                                   static_cast<qsizetype>(std::max<ssize_t>(length, 0)));
    }
    return pairs;
}

FileHandle PhoneContainer::open(const std::string& path, std::uint64_t mode) {
    constexpr std::array modes{O_RDONLY,
                               O_RDWR | O_CREAT,
                               O_WRONLY | O_CREAT,
                               O_RDWR | O_CREAT,
                               O_WRONLY | O_CREAT | O_APPEND,
                               O_RDWR | O_CREAT | O_APPEND};
    if (mode == 0 || mode > modes.size())
        refuse(afc::invalidArg);
    if (mode != 1)
        checkWritable(path);
    const Place object = place(path);
    // A pipe that somebody put there must not hold the phone up.
    const int flags = modes[mode - 1] | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    FileHandle file(::openat(object.folder.get(), object.name.c_str(), flags, fileMode));
    check(file.isOpen());
    struct stat facts {};
    check(::fstat(file.get(), &facts) == 0);
    if (!S_ISREG(facts.st_mode))
        refuse(S_ISDIR(facts.st_mode) ? afc::objectIsDir : afc::permDenied);
    if (mode == 3 || mode == 4)
        setSize(file, 0);
    return file;
}

void PhoneContainer::makeFolder(const std::string& path) {
    checkWritable(path);
    const Place made = place(path, true);
    if (::mkdirat(made.folder.get(), made.name.c_str(), folderMode) == 0)
        return;
    const int error = errno;
    if (error != EEXIST || !S_ISDIR(factsOf(made.folder, made.name).st_mode))
        refuse(statusFor(error));
}

void PhoneContainer::remove(const std::string& path) {
    const Place object = place(path);
    if (object.name == ".")
        refuse(afc::permDenied);
    const struct stat facts = factsOf(object.folder, object.name);
    const bool isFolder = S_ISDIR(facts.st_mode);
    if (::unlinkat(object.folder.get(), object.name.c_str(), isFolder ? AT_REMOVEDIR : 0) != 0)
        refuse(errno == ENOTEMPTY || errno == EEXIST ? phone_.config().fullFolderStatus
                                                     : statusFor(errno));
    (void)phone_.addUsed(-sizeOf(facts));
}

void PhoneContainer::removeAll(const std::string& path) {
    const Place object = place(path);
    if (object.name == ".")
        refuse(afc::permDenied);
    removeTree(object, 0);
}

void PhoneContainer::removeTree(const Place& place, int depth) {
    const struct stat facts = factsOf(place.folder, place.name);
    const bool isFolder = S_ISDIR(facts.st_mode);
    if (isFolder) {
        if (depth > static_cast<int>(deepest))
            refuse(afc::invalidArg);
        Place child{openFolder(place.folder, place.name), {}};
        for (std::string& name : namesIn(openFolder(child.folder, "."))) {
            child.name = std::move(name);
            removeTree(child, depth + 1);
        }
    }
    check(::unlinkat(place.folder.get(), place.name.c_str(), isFolder ? AT_REMOVEDIR : 0) == 0);
    (void)phone_.addUsed(-sizeOf(facts));
}

void PhoneContainer::rename(const std::string& from, const std::string& to) {
    checkWritable(from);
    checkWritable(to);
    const Place source = place(from);
    Place target = place(to);
    if (source.name == "." || target.name == ".")
        refuse(afc::permDenied);
    const struct stat moved = factsOf(source.folder, source.name);
    struct stat replaced {};
    const bool isTaken =
        ::fstatat(target.folder.get(), target.name.c_str(), &replaced, AT_SYMLINK_NOFOLLOW) == 0;
    const bool replaces = isTaken && replaced.st_ino != moved.st_ino;
    if (isTaken && !replaces)
        target.name = parts(to).back(); // its own name in another form
    check(::renameat(source.folder.get(), source.name.c_str(), target.folder.get(),
                     target.name.c_str()) == 0);
    if (replaces)
        (void)phone_.addUsed(-sizeOf(replaced));
}

void PhoneContainer::setSize(const std::string& path, std::uint64_t size) {
    checkWritable(path);
    const Place object = place(path);
    const FileHandle file(::openat(object.folder.get(), object.name.c_str(),
                                   O_WRONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    check(file.isOpen());
    setSize(file, size);
}

void PhoneContainer::setSize(const FileHandle& file, std::uint64_t size) {
    struct stat facts {};
    check(::fstat(file.get(), &facts) == 0);
    const auto wanted = static_cast<std::int64_t>(size);
    if (!S_ISREG(facts.st_mode) || wanted < 0)
        refuse(afc::invalidArg);
    if (!phone_.addUsed(wanted - facts.st_size))
        refuse(afc::noSpaceLeft);
    if (::ftruncate(file.get(), wanted) != 0) {
        const int error = errno;
        (void)phone_.addUsed(facts.st_size - wanted);
        refuse(statusFor(error));
    }
}

void PhoneContainer::setModified(const std::string& path, std::uint64_t time) {
    checkWritable(path);
    constexpr std::uint64_t second = 1'000'000'000;
    const Place object = place(path);
    timespec when{};
    when.tv_sec = static_cast<time_t>(time / second);
    when.tv_nsec = static_cast<long>(time % second);
    const std::array<timespec, 2> times{when, when};
    check(::utimensat(object.folder.get(), object.name.c_str(), times.data(),
                      AT_SYMLINK_NOFOLLOW) == 0);
}

void PhoneContainer::write(const FileHandle& file, std::span<const std::byte> bytes) {
    const auto limit = phone_.hooks().storeFullAfter();
    struct stat facts {};
    check(::fstat(file.get(), &facts) == 0);
    const bool appends = (::fcntl(file.get(), F_GETFL) & O_APPEND) != 0;
    const off_t at = appends ? facts.st_size : ::lseek(file.get(), 0, SEEK_CUR);
    check(at >= 0);
    std::uint64_t room = bytes.size();
    if (limit)
        room = std::min(room,
                        *limit - std::min<std::uint64_t>(*limit, static_cast<std::uint64_t>(at)));
    // What lies inside the file takes no new space; a gap that is jumped over does.
    const auto inside = static_cast<std::uint64_t>(std::max<off_t>(facts.st_size - at, 0));
    const auto gap = static_cast<std::uint64_t>(std::max<off_t>(at - facts.st_size, 0));
    const std::uint64_t free = phone_.freeBytes();
    if (room > inside)
        room = inside + std::min(room - inside, free - std::min(gap, free));
    for (std::size_t done = 0; done < room;) {
        const ssize_t written = ::write(file.get(), bytes.data() + done, room - done);
        if (written < 0 && errno == EINTR)
            continue;
        check(written > 0);
        done += static_cast<std::size_t>(written);
    }
    if (room > inside)
        (void)phone_.addUsed(static_cast<std::int64_t>(room - inside + gap));
    if (room < bytes.size())
        refuse(afc::noSpaceLeft);
}

} // namespace tessary
