#pragma once

#include "base/local/PartFile.h"
#include "phone/PhoneFileSystem.h"

#include <chrono>
#include <optional>

namespace tessary {

// Names of files that are not whole yet, or that wait for a name that is still taken.

// One rule for what a run that broke off has left behind, on either side: the next visit to its
// folder removes it once it is older than ten minutes and of no running program. Only what can be
// gone on with is kept longer; its name is the record of that, and says of which file, size and
// date it is a part (resumableName()). It is kept for as long as going on with its copy is offered.

inline constexpr std::chrono::minutes oldestPart{10};
inline constexpr std::chrono::hours oldestBrokenOff{7 * 24};

/// Whether a file is one of ours on its way, or a folder holds such: no listing, copy or sync takes
/// it for the user's.
[[nodiscard]] bool isPartName(const QString& name);

/// What a whole file is called while the old one of its name is removed: the only one of the two
/// may be this, so it is never removed while nothing has the name. Holds the name itself as far as
/// the target's rules let it.
[[nodiscard]] QString waitingName(const NameRules& rules, const QString& name);
/// The name that a file so called waits for: its own, or the one of `awaited` that it stands for.
[[nodiscard]] std::optional<QString> nameWaitedFor(const QString& waitingName,
                                                   const QStringList& awaited);

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
/// are older than oldestPart (oldestBrokenOff) and not in use. What fails there is left for the
/// next time, unless it endsEverything() or is a cancellation.
[[nodiscard]] std::vector<FileItem> tidied(PhoneFileSystem& files, std::vector<FileItem> entries,
                                           const NameRules& rules, const QStringList& awaited,
                                           const Call& call);

} // namespace tessary
