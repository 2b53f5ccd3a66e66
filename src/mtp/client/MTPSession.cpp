#include "mtp/client/MTPSession.h"

#include "base/threads/CancellationError.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <algorithm>
#include <limits>

namespace tessary {

namespace {

constexpr std::uint16_t rawOk = static_cast<std::uint16_t>(MTPResponseCode::ok);
constexpr std::uint16_t rawAlreadyOpen =
    static_cast<std::uint16_t>(MTPResponseCode::sessionAlreadyOpen);
constexpr std::uint32_t full32Bits = std::numeric_limits<std::uint32_t>::max();

/// What is asked of one object after the other, and answered in a few hundred bytes.
bool isAskedInARow(MTPOperationCode operation) {
    return operation == MTPOperationCode::getObjectInfo ||
           operation == MTPOperationCode::getObjectPropValue;
}

bool isResponse(const MTPPacket& packet) {
    return packet.header.type == MTPContainerType::response;
}

} // namespace

void MTPSession::setStop(std::stop_token stop) {
    stop_ = std::move(stop);
    setPatience(patience_.answer);
}

void MTPSession::setPatience(std::chrono::milliseconds patience) {
    transport_.setWaits({patience, stop_});
}

std::uint32_t MTPSession::sendCommand(MTPOperationCode operation, MTPParameters parameters) {
    // What a failed transaction left in the pipe must not be taken for the answer to this one.
    if (!isSettled_ && recover() == MTPPipeState::busy) {
        throwIfStopped(stop_);
        throw MTPFailure(MTPError::brokenOff);
    }
    const std::uint32_t transactionID = transactionIDCounter_++;
    ++asked_;
    isSettled_ = isBusy_ = false;
    phase_ = MTPDataPhase::toHost;
    transport_.send(MTPPacketCodec::buildCommandPacket(operation, transactionID, parameters));
    if (isAskedInARow(operation))
        transport_.readAhead();
    return transactionID;
}

void MTPSession::sendData(MTPOperationCode operation, std::uint32_t transactionID,
                          ByteView payload) {
    phase_ = MTPDataPhase::toDevice;
    transport_.send(MTPPacketCodec::buildDataPacket(operation, transactionID, payload));
}

/// Ends the last transaction, which was broken off, on the device's side.
MTPPipeState MTPSession::recover() {
    const MTPPipeState state =
        transport_.recover(transactionIDCounter_ - 1, phase_, {MTPWaits::recoveryLimit, stop_});
    isSettled_ = state != MTPPipeState::busy;
    isBusy_ = !isSettled_ && !stop_.stop_requested();
    return state;
}

/// The same for a transaction that was stopped: whoever stopped it does not wait much longer. For a
/// device that is still at work then, the next transaction waits.
void MTPSession::recoverSoon() noexcept {
    constexpr std::chrono::milliseconds limit{700};
    const MTPPipeState state = transport_.recover(transactionIDCounter_ - 1, phase_, {limit, {}});
    isBusy_ = state == MTPPipeState::busy;
    isSettled_ = !isBusy_;
}

bool MTPSession::settleSoon() noexcept {
    if (!isSettled_ && !isBusy_)
        recoverSoon();
    return isSettled_;
}

MTPPacket MTPSession::receive(std::chrono::milliseconds patience) {
    MTPPacket packet = transport_.receivePacket(patience);
    isSettled_ = isResponse(packet);
    ++answered_;
    return packet;
}

void MTPSession::skipResponse() {
    try {
        (void)receive();
    } catch (const MTPFailure&) {
        // The failure that led here is the one to report.
    }
}

void MTPSession::requireOk(const MTPPacket& response) {
    if (response.header.code != rawOk)
        throw MTPFailure(MTPError::refused, {response.header.code});
}

void MTPSession::expectOk(std::chrono::milliseconds patience) {
    requireOk(receive(patience));
}

void MTPSession::openSession(std::uint32_t sessionID) {
    transport_.open();
    setPatience(patience_.opening);
    try {
        start(sessionID);
        setPatience(patience_.answer);
    } catch (...) {
        // The next try finds the device anew, without an answer to this one, and others find it
        // free.
        if (!isSettled_)
            recoverSoon();
        closeTransport();
        throw;
    }
    isOpen_ = true;
}

void MTPSession::start(std::uint32_t sessionID) {
    sessionID_ = sessionID;
    MTPPacket response = answerToOpening();
    if (response.header.code == rawAlreadyOpen) {
        sendCommand(MTPOperationCode::closeSession, {});
        (void)receive();
        sendCommand(MTPOperationCode::openSession, {sessionID_});
        response = receive();
        if (response.header.code == rawAlreadyOpen)
            return;
    }
    requireOk(response);
}

/// A response; no value when something else came, of which no more than the beginning is read.
std::optional<MTPPacket> MTPSession::receiveAnswerOrStaleData() {
    struct StaleData {};
    try {
        MTPPacket answer = transport_.receiveContainer([](ByteView) { throw StaleData(); }, {});
        isSettled_ = isResponse(answer);
        return isSettled_ ? std::optional(std::move(answer)) : std::nullopt;
    } catch (const StaleData&) {
        return std::nullopt;
    }
}

/// The device's answer to OpenSession. A client that died in mid-transfer leaves its data or its
/// response in the pipe, or a device that takes OpenSession for the rest of an upload: whatever
/// is no answer to this transaction makes room for one more try.
MTPPacket MTPSession::answerToOpening() {
    std::optional<MTPPacket> answer;
    try {
        const std::uint32_t transactionID =
            sendCommand(MTPOperationCode::openSession, {sessionID_});
        answer = receiveAnswerOrStaleData();
        if (answer && answer->header.transactionID == transactionID)
            return *std::move(answer);
    } catch (const MTPFailure& error) {
        if (error.isDeviceGone())
            throw;
    }
    const bool pipeWasEmpty = recover() == MTPPipeState::quiet;
    const bool sessionIsOpen =
        answer && (answer->header.code == rawOk || answer->header.code == rawAlreadyOpen);
    if (pipeWasEmpty && sessionIsOpen)
        return *std::move(answer); // a device whose responses carry any transaction ID
    try {
        sendCommand(MTPOperationCode::openSession, {sessionID_});
        return receive();
    } catch (const MTPFailure&) {
        if (!answer)
            throw;
        return *std::move(answer);
    }
}

void MTPSession::closeTransport() {
    transport_.close();
    isSettled_ = true;
    isOpen_ = false;
}

void MTPSession::closeSession() {
    if (!isOpen_)
        return;
    transport_.setWaits({patience_.opening, {}});
    try {
        // A device that has just failed is not asked for more: the next client finds the session
        // open and closes it.
        if (isSettled_) {
            sendCommand(MTPOperationCode::closeSession, {});
            (void)receive();
        } else {
            recoverSoon();
        }
    } catch (const MTPFailure&) {
        // The device may be gone; its session ends with it.
    }
    closeTransport();
}

Bytes MTPSession::datasetOf(MTPPacket first, const QString& failure) {
    if (first.header.type == MTPContainerType::data)
        return std::move(first.payload);
    if (isResponse(first))
        requireOk(first);
    throw MTPFailure(MTPError::malformed, {failure});
}

/// Carries out a data phase; the device is brought to rest when that fails.
template <typename Phase>
void MTPSession::recoveringOnFailure(const Phase& phase) {
    try {
        phase();
    } catch (const CancellationError&) {
        recoverSoon();
        throw;
    } catch (...) {
        recover();
        throw;
    }
}

std::uint64_t MTPSession::receiveContent(MTPOperationCode operation, MTPParameters parameters,
                                         const MTPDataSink& sink, const MTPStreamOptions& options) {
    throwIfStopped(options.stop);
    sendCommand(operation, parameters);
    std::uint64_t received = 0;
    const MTPDataSink countingSink = [&](ByteView bytes) {
        sink(bytes);
        received += bytes.size();
    };
    MTPPacket first;
    recoveringOnFailure([&] {
        first = transport_.receiveContainer(countingSink, options);
        isSettled_ = isResponse(first);
    });
    if (!isSettled_)
        expectOk();
    else
        requireOk(first);
    return received;
}

void MTPSession::sendContent(MTPOperationCode operation, MTPParameters parameters,
                             const MTPDataSource& source, std::uint64_t size,
                             const MTPStreamOptions& options) {
    const std::uint32_t transactionID = sendCommand(operation, parameters);
    MTPContainerHeader header;
    header.type = MTPContainerType::data;
    header.code = static_cast<std::uint16_t>(operation);
    header.transactionID = transactionID;
    header.length = static_cast<std::uint32_t>(
        std::min<std::uint64_t>(size, full32Bits - MTPContainerHeader::size) +
        MTPContainerHeader::size);
    MTPPacket response;
    phase_ = MTPDataPhase::toDevice;
    recoveringOnFailure([&] {
        transport_.sendContainer(header, size, source, options);
        response = receive(workPatience);
    });
    requireOk(response);
}

} // namespace tessary
