#pragma once

#include <QByteArray>

#include <cstdint>
#include <utility>

namespace tessary {

/// One file or folder that must not outlive this process: a copy under way, a temporary folder.
/// Whoever made it removes it, as long as there is time. An end that cannot wait any longer, for a
/// phone that hangs, removes all of them at once. Thread-safe.
class Unfinished {
public:
    /// Nothing.
    Unfinished() = default;
    /// The entry `name` of an open folder, whose descriptor may be closed afterwards; `name` may
    /// also be an absolute path, and `folder` AT_FDCWD.
    Unfinished(int folder, const QByteArray& name);
    /// From now on it may stay, or it is gone.
    ~Unfinished();
    Unfinished(Unfinished&& other) noexcept : number_(std::exchange(other.number_, 0)) {}
    Unfinished& operator=(Unfinished&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    /// Removes all that there are in this process, right before it ends: whoever works on them
    /// still may fail or make them anew.
    static void removeAll();

private:
    std::uint64_t number_ = 0;
};

} // namespace tessary
