#pragma once

#include "simulator/adbd/VirtualADBD.h"
#include "simulator/wire/Guarded.h"

#include <functional>
#include <optional>

namespace tessary {

/// What a virtual adbd does wrong: all off at first.
struct ADBDFaults {
    /// Cuts the connection once this many bytes of service data have passed in either direction
    /// since it was set. Happens once.
    std::optional<std::uint64_t> dropAfter;
    bool readOnly = false;
    /// There is no room for what would make a file longer than this.
    std::optional<std::uint64_t> storeFullAfter;
    /// Added to each size that the phone tells.
    std::int64_t sizeLie = 0;
    bool garblesNext = false;      ///< changes a byte of the next content that moves, either way
    double megabytesPerSecond = 0; ///< of 10^6 bytes, for contents of files; 0 for no limit
    /// Names that sync listings hold besides the true ones, and that can be pulled.
    std::vector<QByteArray> extraNames;
    /// May replace what a command prints, and its exit status by 0. Runs on the phone's thread.
    std::function<std::optional<QByteArray>(const QByteArray& command)> rewrite;
};

/// A virtual adbd that does wrong what it is told to, and remembers what was asked of it.
/// Thread-safe.
class FaultyADBD final : public VirtualADBD {
public:
    explicit FaultyADBD(ADBDConfig config);

    [[nodiscard]] Guarded<ADBDFaults>& faults();
    /// The services that were asked for ("shell:ls …", "sync:"), oldest first.
    [[nodiscard]] std::vector<QByteArray> log() const;
    void clearLog();
    /// What the sync service and shells were asked for, oldest first: paths and command lines.
    [[nodiscard]] std::vector<QByteArray> requests() const;
    /// Command lines that this phone's strict shell refused: wrongly quoted or unknown ones.
    [[nodiscard]] std::vector<QByteArray> violations() const;

private:
    class Hooks;
    FaultyADBD(ADBDConfig config, std::unique_ptr<Hooks> hooks);

    Hooks& hooks_; ///< the base's
};

} // namespace tessary
