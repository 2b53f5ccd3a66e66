#pragma once

#include "simulator/adbd/ADBDFolder.h"
#include "simulator/adbd/ADBDSettings.h"

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessary {

/// The file tree of a virtual adbd: /sdcard, which is a link, and /storage/emulated/0, over one
/// folder of this machine, and each card as /storage/<id> over its own. Errors are errno values;
/// paths are absolute, of the phone.
class ADBDFiles {
public:
    explicit ADBDFiles(const ADBDConfig& config)
        : root_(config.folder.toStdString()), ignoresCase_(config.ignoresCase) {
        for (const ADBDCard& card : config.cards)
            cards_.emplace_back("/storage/" + card.id.toStdString(), card.folder.toStdString());
    }

    /// Where a path lies on this machine; no value for what is outside the phone's storage.
    [[nodiscard]] std::optional<std::filesystem::path> resolve(const std::string& path) const;

    /// 0, or why there is no status. `follow` looks through a link at the end of the path, as a
    /// trailing "/" does.
    [[nodiscard]] int status(const std::string& path, bool follow, struct stat& status) const;
    /// 0, or why the folder cannot be read.
    [[nodiscard]] int openFolder(const std::string& path, ADBDFolder& folder) const;
    /// The entries of a folder with "." and "..", sorted by name.
    [[nodiscard]] int list(const std::string& path, std::vector<ADBDEntry>& entries) const;

    [[nodiscard]] int removeAll(const std::string& path) const;
    /// As `rm -f`: no folder.
    [[nodiscard]] int removeFile(const std::string& path) const;
    /// As `rmdir`.
    [[nodiscard]] int removeFolder(const std::string& path) const;
    /// As `mv`: into `to` when that is a folder, else in its place; with `mayReplace` false as
    /// `mv -n`, which does nothing when a file is there.
    [[nodiscard]] int move(const std::string& from, const std::string& to,
                           bool mayReplace = true) const;
    /// As `mkdir`: one folder in one that is there.
    [[nodiscard]] int makeFolder(const std::string& path) const;

private:
    const std::filesystem::path root_;
    const bool ignoresCase_;
    std::vector<std::pair<std::string, std::filesystem::path>> cards_;
};

} // namespace tessary
