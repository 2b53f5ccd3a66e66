#pragma once

#include "base/local/FileHandle.h"
#include "simulator/iphone/VirtualIPhone.h"

#include <string>

namespace tessary {

/// The files that one AFC connection sees: a folder on disk as its root. No path leaves it: ".." is
/// refused, and links are shown but never followed. Failures are thrown as AFCRefusal. For one
/// thread.
class PhoneContainer {
public:
    /// What of a container may be touched.
    struct Access {
        bool documentsOnly = false; ///< nothing outside "/Documents"
        /// Names at the top below which files may be made and changed; no value for everywhere.
        std::optional<QStringList> writable;
    };

    PhoneContainer(VirtualIPhone& phone, const QString& folder, Access access);

    /// The names in a folder, "." and ".." first.
    [[nodiscard]] std::vector<std::string> names(const std::string& path) const;
    /// Keys and values in turn: "st_size", "st_blocks", "st_nlink", "st_ifmt", "st_mtime" and
    /// "st_birthtime" (nanoseconds since 1970), of a link also "LinkTarget".
    [[nodiscard]] QStringList info(const std::string& path) const;
    /// A file, in one of AFC's modes 1 to 6.
    [[nodiscard]] FileHandle open(const std::string& path, std::uint64_t mode);
    void makeFolder(const std::string& path);
    void remove(const std::string& path);
    /// A file, or a folder with all that is in it.
    void removeAll(const std::string& path);
    void rename(const std::string& from, const std::string& to);
    void setSize(const std::string& path, std::uint64_t size);
    /// The same for a file that is open, and the space booked.
    void setSize(const FileHandle& file, std::uint64_t size);
    /// Nanoseconds since 1970.
    void setModified(const std::string& path, std::uint64_t time);
    /// Writes at the file's position. What does not fit is left out, and refused afterwards.
    void write(const FileHandle& file, std::span<const std::byte> bytes);

private:
    /// A name in a folder that is open; "." is the root itself.
    struct Place {
        FileHandle folder;
        std::string name;
    };

    [[nodiscard]] static std::vector<std::string> parts(const std::string& path);
    void checkAccess(const std::vector<std::string>& parts) const;
    void checkWritable(const std::string& path) const;
    [[nodiscard]] Place place(const std::string& path, bool makesFolders = false) const;
    void removeTree(const Place& place, int depth);

    VirtualIPhone& phone_;
    FileHandle root_;
    Access access_;
};

} // namespace tessary
