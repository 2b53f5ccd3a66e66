#include "mtp/client/MTPTransport.h"

#include "mtp/client/MTPRecovery.h"

namespace tessary {

void MTPTransport::open() {
    if (link_)
        return;
    link_ = std::make_unique<Link>(openMTPInterface(bus_, address_), waits_);
    const MTPInterfaceConnection& connection = link_->connection;
    if (eventReceiver_ && connection.eventPipe != 0)
        link_->events = std::make_unique<MTPEventReader>(*connection.interface,
                                                         connection.eventPipe, eventReceiver_);
}

void MTPTransport::close() {
    link_.reset();
}

MTPTransport::Link& MTPTransport::link() {
    if (!link_)
        throw MTPFailure(MTPError::notThere);
    return *link_;
}

void MTPTransport::setEventReceiver(std::function<void(const MTPEvent&)> receiver) {
    eventReceiver_ = std::move(receiver);
}

void MTPTransport::setWaits(MTPWaits waits) {
    waits_ = std::move(waits);
}

void MTPTransport::send(ByteView data) {
    link().writer.send(data);
}

void MTPTransport::readAhead() {
    link().reader.readAhead();
}

MTPPacket MTPTransport::receivePacket(std::chrono::milliseconds patience) {
    return link().reader.receivePacket(patience);
}

void MTPTransport::sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                                 const MTPDataSource& source, const MTPStreamOptions& options) {
    link().writer.sendContainer(header, payloadSize, source, options);
}

MTPPacket MTPTransport::receiveContainer(const MTPDataSink& sink, const MTPStreamOptions& options) {
    return link().reader.receiveContainer(sink, options);
}

MTPPipeState MTPTransport::recover(std::uint32_t transactionID, MTPDataPhase phase,
                                   const MTPWaits& bounds) noexcept {
    if (!link_)
        return MTPPipeState::quiet;
    auto& [connection, reader, writer, events] = *link_;
    const MTPWaits waits = std::exchange(waits_, bounds);
    reader.callBackReads();
    // Phones acknowledge a cancel request in the middle of their data phase, and read on.
    const bool hasData = phase == MTPDataPhase::toDevice && writer.hasSentData();
    if (hasData)
        writer.endDataPhase();
    const bool isHeard = hasData && reader.hearsAnything();
    const bool isCancelled = !isHeard && cancelMTPTransaction(connection, transactionID, bounds);
    // A device that knows no cancelling gets the end of its data, or is read to the end of it.
    if (!isHeard && !isCancelled && !hasData && phase == MTPDataPhase::toDevice)
        writer.endDataPhase();
    const bool isHeld = isHeard || reader.holdsAnything();
    MTPPipeState state = drainMTPPipe(connection, bounds);
    if (state == MTPPipeState::quiet && isHeld)
        state = MTPPipeState::drained;
    // It has the data, and is still at work with them; unless it halted the pipe at their end.
    if (state == MTPPipeState::quiet && hasData && !writer.hasFailed() && !reader.isGone())
        state = MTPPipeState::busy;
    if (state != MTPPipeState::busy || !bounds.stop.stop_requested())
        writer.forget(); // else the next try goes on with it
    reader.abandon(transactionID);
    waits_ = waits;
    return state;
}

} // namespace tessary
