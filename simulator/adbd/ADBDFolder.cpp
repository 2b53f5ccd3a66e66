#include "simulator/adbd/ADBDFolder.h"

#include <fcntl.h>

#include <algorithm>
#include <system_error>

namespace tessary {

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
