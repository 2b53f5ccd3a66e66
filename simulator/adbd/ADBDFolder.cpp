#include "simulator/adbd/ADBDFolder.h"

#include <fcntl.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <system_error>

namespace tessary {

namespace {

char typeLetter(mode_t mode) {
    if (S_ISDIR(mode))
        return 'd';
    if (S_ISLNK(mode))
        return 'l';
    if (S_ISCHR(mode))
        return 'c';
    if (S_ISBLK(mode))
        return 'b';
    if (S_ISFIFO(mode))
        return 'p';
    return S_ISSOCK(mode) ? 's' : '-';
}

std::string permissions(mode_t mode) {
    constexpr std::string_view letters = "rwxrwxrwx";
    std::string text(1, typeLetter(mode));
    for (unsigned bit = 0; bit < letters.size(); ++bit)
        text += (mode & (0400U >> bit)) != 0 ? letters[bit] : '-';
    return text;
}

std::string dateText(std::time_t time) {
    std::tm local = {};
    localtime_r(&time, &local);
    std::array<char, 64> text{};
    (void)std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
    return text.data();
}

} // namespace

std::string adbdListingLine(const ADBDEntry& entry, std::int64_t sizeLie) {
    const struct stat& status = entry.status;
    std::string size = std::to_string(status.st_size + sizeLie);
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        size = std::to_string(major(status.st_rdev)) + ", " + std::to_string(minor(status.st_rdev));
    std::array<char, 128> front{};
    (void)std::snprintf(front.data(), front.size(), " %2lu %s %s %8s ",
                        static_cast<unsigned long>(status.st_nlink), "u0_a167", "media_rw",
                        size.c_str());
    std::string line = permissions(status.st_mode) + front.data() +
                       dateText(status.st_mtim.tv_sec) + ' ' + entry.name;
    if (!entry.target.empty())
        line += " -> " + entry.target;
    return line + '\n';
}

ADBDFolder::ADBDFolder(const std::filesystem::path& local)
    : local_(local), folder_(::opendir(local.c_str())) {}

ADBDFolder::ADBDFolder(std::vector<std::string> names, const std::filesystem::path& like)
    : local_(like), names_(std::move(names)) {
    std::reverse(names_.begin(), names_.end());
}

std::optional<ADBDEntry> ADBDFolder::next() {
    if (!names_.empty()) {
        ADBDEntry entry{std::move(names_.back()), {}, {}};
        names_.pop_back();
        (void)::stat(local_.c_str(), &entry.status);
        return entry;
    }
    if (!folder_)
        return std::nullopt;
    const int descriptor = ::dirfd(folder_.get());
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody else has this folder
    while (const dirent* const next = ::readdir(folder_.get())) {
        ADBDEntry entry{next->d_name, {}, {}};
        if (::fstatat(descriptor, next->d_name, &entry.status, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        std::error_code failure;
        if (S_ISLNK(entry.status.st_mode))
            entry.target = std::filesystem::read_symlink(local_ / entry.name, failure).string();
        // Nothing above the storage can be seen.
        if (entry.name == "..")
            (void)::fstat(descriptor, &entry.status);
        return entry;
    }
    return std::nullopt;
}

} // namespace tessary
