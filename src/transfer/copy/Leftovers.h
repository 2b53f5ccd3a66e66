#pragma once

#include "phone/PartNames.h"
#include "phone/PhoneFileSystem.h"

#include <chrono>

namespace tessary {

// One rule for what a run that broke off has left behind, on either side: the next visit to its
// folder removes it once it is older than ten minutes and of no running program; its owner, see
// PartName, at once; one that is dated a day ahead was made before a clock was set back. Only what
// can be gone on with is kept longer; its name is the record of that, and says of which file, size
// and date it is a part (resumableName()). It is kept for as long as going on with its copy is
// offered.

inline constexpr std::chrono::minutes oldestPart{10};
inline constexpr std::chrono::hours oldestBrokenOff{7 * 24};

/// What the copy of a file is called while it can be gone on with, should it break off: the same
/// for the same file as long as that does not change.
[[nodiscard]] QString resumableName(const PhoneFileSystem& from, const FileItem& file);

/// For as long as it lives, a part of this name is in use and not taken for a leftover.
class PartInUse {
public:
    explicit PartInUse(QString name);
    ~PartInUse();
    PartInUse(const PartInUse&) = delete;
    PartInUse& operator=(const PartInUse&) = delete;

    [[nodiscard]] static bool has(const QString& name);

private:
    const QString name_;
};

/// The entries of a folder without files of ours. Of those, one that waits for a name that is free
/// now is given it (`awaited` are names that may be waited for), and others are removed when they
/// are older than oldestPart (oldestBrokenOff), or `call` is of their owner, and not in use. An
/// item of the user's that was to be spelled in another way gets its name, with a number where that
/// is taken. What fails there is left for the next time, unless it endsEverything() or is a
/// cancellation.
[[nodiscard]] std::vector<FileItem> tidied(PhoneFileSystem& files, std::vector<FileItem> entries,
                                           const NameRules& rules, const QStringList& awaited,
                                           const Call& call);

} // namespace tessary
