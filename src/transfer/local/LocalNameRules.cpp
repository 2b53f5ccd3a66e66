#include "transfer/local/LocalNameRules.h"

#include "base/local/FileHandle.h"
#include "phone/PartNames.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr NameRules distinctNames{};
constexpr NameRules fatNames{
    .ignoresCase = true, .forbidsFATCharacters = true, .longestUTF16 = 255, .longestUTF8 = 0};
constexpr qint64 largestOnFAT = 0xFFFFFFFF;

constexpr DiskTraits own{.names = distinctNames, .writesSizeLast = true};

struct KnownDisk {
    quint64 type; ///< as statfs() gives it
    DiskTraits traits;
};

const std::array knownDisks{
    KnownDisk{0xEF53, own},                                       // ext2 to ext4
    KnownDisk{0x58465342, own},                                   // XFS
    KnownDisk{0x9123683E, own},                                   // Btrfs
    KnownDisk{0xF2F52010, own},                                   // F2FS
    KnownDisk{0x01021994, own},                                   // tmpfs
    KnownDisk{0x794C7630, own},                                   // overlayfs
    KnownDisk{0x2FC12FC1, own},                                   // ZFS
    KnownDisk{0x4D44, {fatNames, largestOnFAT, 2s}},              // FAT
    KnownDisk{0x2011BAB0, {.names = fatNames, .dateStep = 10ms}}, // exFAT
};

/// A file of ours in a folder, for as long as this lives.
class TrialFile {
public:
    TrialFile(int folder, QByteArray name)
        : folder_(folder),
          name_(std::move(name)),
          file_(::openat(folder, name_.constData(),
                         O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
    }
    ~TrialFile() {
        if (wasMade())
            ::unlinkat(folder_, name_.constData(), 0);
    }
    TrialFile(const TrialFile&) = delete;
    TrialFile& operator=(const TrialFile&) = delete;

    [[nodiscard]] bool wasMade() const {
        return file_.isOpen();
    }

private:
    const int folder_;
    const QByteArray name_;
    const FileHandle file_;
};

bool isThere(int folder, const QString& name) {
    struct stat facts {};
    return ::fstatat(folder, name.toUtf8().constData(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
}

DiskTraits tryOut(int folder, qint64 longestName, const QString& partOwner) {
    DiskTraits traits{.names = {}, .dateStep = 1s};
    const QString composed = newPartName(partOwner) + QStringLiteral("\u00e9");
    const TrialFile plain(folder, composed.toUtf8());
    if (!plain.wasMade())
        return traits;
    traits.names.ignoresCase = isThere(folder, composed.toUpper());
    traits.names.ignoresUnicodeForm =
        isThere(folder, composed.normalized(QString::NormalizationForm_D));
    const TrialFile special(folder, (newPartName(partOwner) + QStringLiteral(":?*|<>\"")).toUtf8());
    traits.names.forbidsFATCharacters = !special.wasMade();
    constexpr qint64 longestUsual = 255;
    if (longestName > longestUsual) { // counts its own units, several bytes each
        traits.names.longestUTF16 = static_cast<int>(longestUsual);
        traits.names.longestUTF8 = 0;
    }
    return traits;
}

std::optional<DiskTraits> knownTraits(int file) {
    struct statfs facts {};
    if (::fstatfs(file, &facts) != 0)
        return std::nullopt;
    return diskTraitsOf(static_cast<quint32>(facts.f_type));
}

} // namespace

std::optional<DiskTraits> diskTraitsOf(quint64 type) {
    const auto found = std::find_if(knownDisks.begin(), knownDisks.end(),
                                    [type](const KnownDisk& disk) { return disk.type == type; });
    return found == knownDisks.end() ? std::nullopt : std::optional(found->traits);
}

bool isOnOwnDisk(int file) {
    return knownTraits(file).has_value();
}

bool writesSizeLast(int file) {
    const auto known = knownTraits(file);
    return known && known->writesSizeLast;
}

DiskTraits traitsOfDisk(int folder, const QString& partOwner) {
    struct statfs facts {};
    if (::fstatfs(folder, &facts) != 0)
        return {};
    const auto known = diskTraitsOf(static_cast<quint32>(facts.f_type));
    return known ? *known : tryOut(folder, facts.f_namelen, partOwner);
}

DiskTraits traitsOfFolder(DiskTraits disk, int folder) {
    const FileHandle readable(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    int flags = 0;
    if (readable.isOpen() && ::ioctl(readable.get(), FS_IOC_GETFLAGS, &flags) == 0 &&
        (flags & FS_CASEFOLD_FL) != 0) {
        disk.names.ignoresCase = true;
        disk.names.ignoresUnicodeForm = true;
    }
    return disk;
}

} // namespace tessary
