#include "simulator/adbd/ADBDFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>

namespace tessary {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view cardLink = "/sdcard";
constexpr std::array<std::string_view, 3> roots{cardLink, "/storage/emulated/0",
                                                "/storage/self/primary"};

/// The folder of this machine cannot hold what names the phone's own link.
bool isCardLink(const std::string& path) {
    return path == cardLink;
}

/// A name as a storage that ignores case takes it, and with it the Unicode form.
QString folded(const std::string& name) {
    return QString::fromStdString(name)
        .normalized(QString::NormalizationForm_D)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_D);
}

/// A path with each name as the folder that holds it has it.
fs::path spelledAsStored(const fs::path& root, const fs::path& relative) {
    fs::path path = root;
    for (const fs::path& name : relative) {
        fs::path next = path / name;
        std::error_code failure;
        if (!fs::exists(fs::symlink_status(next, failure)))
            for (const fs::directory_entry& entry : fs::directory_iterator(path, failure))
                if (folded(entry.path().filename().string()) == folded(name.string()))
                    next = entry.path();
        path = next;
    }
    return path;
}

} // namespace

std::optional<fs::path> ADBDFiles::resolve(const std::string& path) const {
    std::vector<std::pair<std::string_view, const fs::path*>> places;
    for (const std::string_view root : roots)
        places.emplace_back(root, &root_);
    for (const auto& [root, folder] : cards_)
        places.emplace_back(root, &folder);
    for (const auto& [root, folder] : places) {
        if (!path.starts_with(root) || (path.size() > root.size() && path[root.size()] != '/'))
            continue;
        std::string inside = path.substr(root.size());
        inside.erase(0, inside.find_first_not_of('/'));
        const fs::path relative(inside);
        // Nothing above the storage can be reached.
        if (std::find(relative.begin(), relative.end(), "..") != relative.end() ||
            relative.is_absolute())
            return std::nullopt;
        if (inside.empty())
            return *folder;
        return ignoresCase_ ? spelledAsStored(*folder, relative) : *folder / relative;
    }
    return std::nullopt;
}

int ADBDFiles::status(const std::string& path, bool follow, struct stat& status) const {
    const auto local = resolve(path);
    if (!local)
        return ENOENT;
    const bool looksThrough = follow || path.ends_with('/');
    const int result =
        looksThrough ? ::stat(local->c_str(), &status) : ::lstat(local->c_str(), &status);
    if (result != 0)
        return errno;
    if (!looksThrough && isCardLink(path)) {
        status.st_mode = S_IFLNK | 0777;
        status.st_size = static_cast<off_t>(std::string_view("/storage/self/primary").size());
    }
    return 0;
}

int ADBDFiles::openFolder(const std::string& path, ADBDFolder& folder) const {
    if (path == "/storage" || path == "/storage/") {
        std::vector<std::string> names{".", "..", "emulated", "self"};
        for (const auto& [root, place] : cards_)
            names.push_back(fs::path(root).filename().string());
        folder = ADBDFolder(names, root_);
        return 0;
    }
    const auto local = resolve(path);
    if (!local)
        return ENOENT;
    folder = ADBDFolder(*local);
    return folder.isOpen() ? 0 : errno;
}

int ADBDFiles::list(const std::string& path, std::vector<ADBDEntry>& entries) const {
    ADBDFolder folder;
    if (const int code = openFolder(path, folder))
        return code;
    while (auto entry = folder.next())
        entries.push_back(*std::move(entry));
    std::sort(entries.begin(), entries.end(),
              [](const ADBDEntry& a, const ADBDEntry& b) { return a.name < b.name; });
    return 0;
}

int ADBDFiles::removeAll(const std::string& path) const {
    const auto local = resolve(path);
    if (!local)
        return 0;
    if (*local == root_)
        return EBUSY;
    std::error_code failure;
    fs::remove_all(*local, failure);
    return failure.value();
}

int ADBDFiles::removeFile(const std::string& path) const {
    const auto local = resolve(path);
    std::error_code failure;
    if (!local || !fs::exists(fs::symlink_status(*local, failure)))
        return 0;
    if (fs::is_directory(fs::symlink_status(*local, failure)))
        return EISDIR;
    fs::remove(*local, failure);
    return failure.value();
}

int ADBDFiles::removeFolder(const std::string& path) const {
    const auto local = resolve(path);
    if (!local)
        return ENOENT;
    if (*local == root_)
        return EBUSY;
    return ::rmdir(local->c_str()) == 0 ? 0 : errno;
}

int ADBDFiles::makeFolder(const std::string& path) const {
    const auto local = resolve(path);
    if (!local)
        return EROFS;
    return ::mkdir(local->c_str(), S_IRWXU | S_IRWXG) == 0 ? 0 : errno;
}

int ADBDFiles::move(const std::string& from, const std::string& to, bool mayReplace) const {
    const auto source = resolve(from);
    auto target = resolve(to);
    if (!source || !target)
        return ENOENT;
    std::error_code failure;
    if (!fs::exists(fs::symlink_status(*source, failure)))
        return ENOENT;
    if (*source == *target) {
        if (!mayReplace && !fs::is_directory(*source, failure))
            return 0;
        target->replace_filename(fs::path(to).filename()); // another spelling of its name
    } else {
        if (fs::is_directory(*target, failure))
            *target /= source->filename();
        if (!mayReplace && fs::exists(fs::symlink_status(*target, failure)))
            return 0;
    }
    fs::rename(*source, *target, failure);
    return failure.value();
}

} // namespace tessary
