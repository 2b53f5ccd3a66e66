#pragma once

#include <QByteArray>

#include <chrono>
#include <vector>

namespace tessary {

/// What a process keeps when it goes into its sandbox.
struct SandboxRules {
    /// Whom it may reach by connections that it opens itself.
    enum class Reach {
        nobody,
        streams, ///< stream sockets: a daemon of this machine, or a phone on the network
    };

    /// Descriptors that stay open, with the rights that they were opened with. All others are
    /// closed, those of an event loop that runs already among them.
    std::vector<int> descriptors;
    qint64 memory = qint64{256} << 20;      ///< bytes of address space, more than 0
    std::chrono::seconds processorTime{10}; ///< more than 0
    std::chrono::seconds wallTime{30};      ///< more than 0
    Reach reach = Reach::nobody;
    /// Folders and files that may still be opened for reading, with all that is below; those that
    /// are missing are left out. Without a file wall in the kernel none of them can be.
    std::vector<QByteArray> readable;
};

/// From now on, and never to be undone, this process uses what `rules` leave it: memory,
/// arithmetic, threads, the clock and its descriptors. It opens, makes, changes and removes no
/// file, starts no program and no process, signals and traces none, maps no new code and, unless
/// `rules` say so, reaches no network and no other program; such a call fails with EPERM or EACCES.
/// At the limits of time the kernel ends it.
///
/// What it will need has to be loaded before (libraries, plugins), and it must have only one
/// thread. std::system_error when a wall cannot be built: the caller ends then, since bytes that
/// it was made for must not be parsed without.
void enterSandbox(const SandboxRules& rules);

/// Whether this kernel can let a process read chosen files only (Landlock). Where it cannot, a
/// sandbox opens none at all.
[[nodiscard]] bool hasFileWall();

} // namespace tessary
