#pragma once

#include "mtp/objects/MTPTree.h"
#include "phone/PhoneFileSystem.h"

namespace tessary {

/// Makes one new file or folder on a phone. What a failed or cancelled call has made is removed
/// again while the link lasts. Errors are those of MTPTree, and PhoneError::taken or ::sameName for
/// a name that is there already.
class MTPFileWriter {
public:
    MTPFileWriter(MTPTree& tree, MTPFound folder, std::stop_token stop)
        : tree_(tree), folder_(std::move(folder)), stop_(std::move(stop)) {}

    /// Sends `file.size` bytes of `content`. Returns what the phone made of them.
    [[nodiscard]] MTPObjectInfo writeFile(const NewFile& file, const ByteSource& content,
                                          const ByteProgress& progress);
    [[nodiscard]] MTPObjectInfo makeFolder(const QString& name);

private:
    void requireFreeName(const QString& name);
    [[nodiscard]] MTPObjectInfo send(const NewFile& file, const ByteSource& content,
                                     const ByteProgress& progress);
    [[nodiscard]] std::optional<MTPObjectInfo> findNew(const QString& name,
                                                       std::uint32_t announced);
    [[nodiscard]] MTPObjectInfo requireNew(const QString& name, std::uint32_t announced);
    [[nodiscard]] MTPObjectInfo madeOrRemoved(const QString& name, std::uint32_t announced,
                                              std::uint64_t size);
    void removeLeftover(const QString& name, std::uint32_t announced, std::uint64_t size) noexcept;

    MTPTree& tree_;
    const MTPFound folder_;
    const std::stop_token stop_;
};

/// How long a phone is asked to take back what a failed or cancelled call has made of it.
inline constexpr std::chrono::seconds mtpCleanUpLimit{10};

/// Throws PhoneError::nameNotAllowed for what MTP cannot carry as a name, or no storage can hold.
void requireMTPName(const QString& name);
/// Throws PhoneError::taken or ::sameName when an entry other than `except` has the name.
void requireFreeMTPName(const MTPFolderContents& contents, const QString& name,
                        std::uint32_t except = 0);

} // namespace tessary
