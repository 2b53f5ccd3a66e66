#pragma once

#include "base/local/FileHandle.h"

#include <QString>

#include <sys/stat.h>

namespace tessary {

/// Whether nobody has written to a file or folder of ours for ten minutes. What is dated further
/// ahead than that counts, too: the clock was set back since.
[[nodiscard]] bool isLeftAlone(const struct stat& facts);

/// A folder of this program's own outside the folders that the user works in: made for this user
/// alone (0700), and used only when its open descriptor says that it is a folder and this user's.
/// Its parent must be such that nobody else can put something in its place. Failures are
/// Error(LocalError::cannotMakeFolder, ::notPrivate, ::nameNotUsable). Thread-safe: nothing changes
/// once it is open.
class PrivateFolder {
public:
    enum class Place {
        cache,   ///< $XDG_CACHE_HOME or ~/.cache: may be emptied at any time
        runtime, ///< $XDG_RUNTIME_DIR, in memory as a rule; the cache where there is none
    };

    /// "<place>/tessary/<name>". A place that the environment names and that is another user's (a
    /// program that root runs with a user's environment) is passed over for the one in this user's
    /// own home.
    explicit PrivateFolder(Place place, const QString& name);
    /// "<parent>/<name>", where `parent` is there and is this user's.
    explicit PrivateFolder(const QString& parent, const QString& name);

    /// Absolute. Good for programs and libraries that take no descriptors.
    [[nodiscard]] const QString& path() const {
        return path_;
    }
    [[nodiscard]] int descriptor() const {
        return folder_.get();
    }

private:
    FileHandle folder_;
    QString path_;
};

} // namespace tessary
