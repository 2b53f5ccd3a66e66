#pragma once

#include "simulator/mtp/MTPResponderLink.h"

namespace tessary {

/// One data phase: counts its bytes, ends it where a limit is set, keeps the pace.
class MTPResponderLink::Phase {
public:
    Phase(MTPResponderLink& link, USBDirection direction);
    ~Phase();
    Phase(const Phase&) = delete;
    Phase& operator=(const Phase&) = delete;

    /// The most bytes to move in one piece, for the pace to be smooth.
    [[nodiscard]] std::size_t pieceLimit() const;
    /// How many of the next `size` bytes may still pass. With fewer than `size`, or when they are
    /// the last ones, a limit is reached afterwards.
    [[nodiscard]] std::size_t allowed(std::size_t size);
    void passed(std::size_t size);
    void fireIfDue();
    /// The end of the phase; throws when it was cancelled meanwhile.
    void complete();

private:
    MTPResponderLink& link_;
    const USBDirection direction_;
    const MTPPhaseLimits limits_;
    std::uint64_t bytes_ = 0;
    bool due_ = false;
    VirtualUSBPipe::Clock::time_point paceTime_;
};

/// Packs the bytes of a transfer into chunks of the IN pipe.
class MTPResponderLink::Writer {
public:
    /// Without a phase no limits apply.
    Writer(MTPResponderLink& link, Phase* phase, VirtualUSBChunk begun = {});

    void append(ByteView bytes);
    /// False when the source ended before `size` bytes.
    bool fill(std::uint64_t size, const Source& source);
    /// Ends the transfer here; another one follows.
    void cut();
    /// Ends the last transfer.
    void finish();
    /// Leaves the rest of the transfer to another writer.
    [[nodiscard]] VirtualUSBChunk release();

private:
    [[nodiscard]] std::span<std::byte> space();
    void put(bool endsTransfer);

    MTPResponderLink& link_;
    Phase* phase_;
    VirtualUSBChunk chunk_;
};

} // namespace tessary
