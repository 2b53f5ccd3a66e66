#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessary {

/// One entry of a phone's folder.
struct ADBDEntry {
    std::string name;
    struct stat status = {};
    std::string target; ///< of a link
};

/// An entry's line of `ls -la` as current phones print it, with its line break, in local time.
/// `sizeLie` is added to the size.
[[nodiscard]] std::string adbdListingLine(const ADBDEntry& entry, std::int64_t sizeLie);

/// A folder of a virtual adbd whose entries are read one by one, in the disk's order.
class ADBDFolder {
public:
    ADBDFolder() = default;
    /// A folder of this machine; errno says why it is not open.
    explicit ADBDFolder(const std::filesystem::path& local);
    /// Made up folders, with the facts of `like`.
    ADBDFolder(std::vector<std::string> names, const std::filesystem::path& like);

    [[nodiscard]] bool isOpen() const {
        return folder_ != nullptr || !names_.empty();
    }
    /// The next entry, "." and ".." among them; no value after the last one.
    [[nodiscard]] std::optional<ADBDEntry> next();

private:
    struct Close {
        void operator()(DIR* folder) const {
            ::closedir(folder);
        }
    };
    std::filesystem::path local_;
    std::unique_ptr<DIR, Close> folder_;
    std::vector<std::string> names_; ///< that are left, the next one last
};

} // namespace tessary
