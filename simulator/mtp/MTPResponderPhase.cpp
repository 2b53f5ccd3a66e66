#include "simulator/mtp/MTPResponderPhase.h"

#include "simulator/wire/Garbling.h"

#include <algorithm>
#include <cstring>

namespace tessary {

namespace {

/// How long unplugging waits for the host to read what was sent before it.
constexpr std::chrono::seconds drainTime{2};
constexpr double bytesPerMegabyte = 1e6;

} // namespace

MTPResponderLink::Phase::Phase(MTPResponderLink& link, USBDirection direction)
    : link_(link),
      direction_(direction),
      limits_(link.hooks_.beginPhase(direction)),
      paceTime_(VirtualUSBPipe::Clock::now()) {
    if (!link_.state_.beginData())
        link_.breakOff(MTPLinkBroken::Why::cancelled);
}

MTPResponderLink::Phase::~Phase() {
    link_.state_.endData();
}

std::size_t MTPResponderLink::Phase::pieceLimit() const {
    const double pace = link_.hooks_.megabytesPerSecond();
    if (pace <= 0)
        return VirtualUSBPipe::largestChunk;
    constexpr double piecesPerSecond = 50;
    return static_cast<std::size_t>(
        std::clamp(pace * bytesPerMegabyte / piecesPerSecond, 1024.0, 1024.0 * 1024.0));
}

std::size_t MTPResponderLink::Phase::allowed(std::size_t size) {
    std::uint64_t limit = size;
    for (const auto& at : {limits_.unplugAt, limits_.stallAt}) {
        if (at && bytes_ + size >= *at) {
            limit = std::min(limit, *at - std::min(bytes_, *at));
            due_ = true;
        }
    }
    return static_cast<std::size_t>(limit);
}

void MTPResponderLink::Phase::passed(std::size_t size) {
    bytes_ += size;
    const double pace = link_.hooks_.megabytesPerSecond();
    if (pace <= 0)
        return;
    const auto now = VirtualUSBPipe::Clock::now();
    const std::chrono::duration<double> cost{static_cast<double>(size) / (pace * bytesPerMegabyte)};
    paceTime_ = std::max(paceTime_, now) +
                std::chrono::duration_cast<VirtualUSBPipe::Clock::duration>(cost);
    link_.pause(paceTime_ - now);
}

void MTPResponderLink::Phase::fireIfDue() {
    if (!due_)
        return;
    const auto& [unplugAt, stallAt] = limits_;
    if (unplugAt && unplugAt.value() <= stallAt.value_or(*unplugAt)) {
        // Pulling the cable takes what the host has not read with it: let it read first.
        if (direction_ == USBDirection::in)
            (void)link_.port_->in().deviceWaitEmpty(drainTime);
        link_.port_->unplug();
        throw MTPLinkBroken{MTPLinkBroken::Why::unplugged};
    }
    link_.halt(direction_ == USBDirection::out);
}

void MTPResponderLink::Phase::complete() {
    if (link_.state_.endData())
        link_.breakOff(MTPLinkBroken::Why::cancelled);
}

MTPResponderLink::Writer::Writer(MTPResponderLink& link, Phase* phase, VirtualUSBChunk begun)
    : link_(link), phase_(phase), chunk_(std::move(begun)) {}

std::span<std::byte> MTPResponderLink::Writer::space() {
    VirtualUSBPipe& pipe = link_.port_->in();
    if (chunk_.storage && chunk_.space().empty())
        put(false);
    if (!chunk_.storage)
        chunk_ =
            phase_ ? pipe.deviceChunk(phase_->pieceLimit()) : pipe.deviceChunk(pipe.packetSize());
    return chunk_.space();
}

void MTPResponderLink::Writer::append(ByteView bytes) {
    while (!bytes.empty()) {
        const auto room = space();
        const std::size_t part = std::min(room.size(), bytes.size());
        std::memcpy(room.data(), bytes.data(), part);
        chunk_.end += part;
        bytes = bytes.subspan(part);
    }
}

bool MTPResponderLink::Writer::fill(std::uint64_t size, const Source& source) {
    while (size > 0) {
        const auto room = space();
        const auto part = static_cast<std::size_t>(std::min<std::uint64_t>(room.size(), size));
        const std::size_t filled = source(room.first(part));
        if (filled == 0)
            return false;
        if (link_.hooks_.garbles())
            garble(room);
        chunk_.end += filled;
        size -= filled;
    }
    return true;
}

void MTPResponderLink::Writer::put(bool endsTransfer) {
    VirtualUSBPipe& pipe = link_.port_->in();
    const std::size_t size = chunk_.size();
    const std::size_t allowed = phase_ ? phase_->allowed(size) : size;
    chunk_.endsTransfer = endsTransfer && allowed == size;
    if (allowed < size)
        chunk_.end = chunk_.begin + allowed / pipe.packetSize() * pipe.packetSize();
    if (chunk_.size() > 0 || chunk_.endsTransfer)
        link_.check(pipe.devicePut(std::move(chunk_)));
    chunk_ = {};
    if (phase_) {
        phase_->passed(size);
        phase_->fireIfDue();
    }
}

void MTPResponderLink::Writer::cut() {
    put(true);
}

void MTPResponderLink::Writer::finish() {
    const MTPPacking packing = link_.hooks_.packing();
    const bool wholePackets = chunk_.size() % link_.port_->in().packetSize() == 0;
    if (!wholePackets || !phase_ || !packing.omitsZeroPacket)
        put(true);
    else if (chunk_.size() > 0)
        put(false);
    if (phase_ && !wholePackets && packing.extraZeroPacket)
        put(true);
}

VirtualUSBChunk MTPResponderLink::Writer::release() {
    return std::exchange(chunk_, {});
}

} // namespace tessary
