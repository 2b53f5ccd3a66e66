#include "simulator/mtp/MTPResponderLink.h"

#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"
#include "simulator/mtp/MTPResponderPhase.h"
#include "simulator/storage/MTPRefusal.h"

#include <algorithm>
#include <cstring>
#include <exception>

namespace tessary {

namespace {

constexpr std::size_t mostParameters = 5;
constexpr std::uint32_t junk = 0x5A5A5A5A;

/// No value for anything but a well-formed command container that is a transfer of its own.
std::optional<MTPCommand> parseCommand(const VirtualUSBChunk& chunk) {
    const auto header = MTPPacketCodec::decodeHeader(chunk.bytes());
    const bool wellFormed = header && chunk.endsTransfer && header->length == chunk.size() &&
                            header->type == MTPContainerType::command && header->length % 4 == 0 &&
                            header->length <= MTPContainerHeader::size + 4 * mostParameters;
    if (!wellFormed)
        return std::nullopt;
    MTPCommand command;
    command.operation = header->code;
    command.transactionID = header->transactionID;
    for (std::size_t at = MTPContainerHeader::size; at < chunk.size(); at += 4)
        command.parameters.push_back(readLittleEndian<std::uint32_t>(chunk.bytes(), at));
    return command;
}

Bytes headerOf(MTPContainerType type, std::uint16_t code, std::uint32_t transactionID,
               std::uint64_t payload) {
    MTPContainerHeader header;
    header.length = static_cast<std::uint32_t>(std::min<std::uint64_t>(
        MTPContainerHeader::size + payload, MTPContainerHeader::unknownLength));
    header.type = type;
    header.code = code;
    header.transactionID = transactionID;
    return MTPPacketCodec::encodeHeader(header);
}

} // namespace

MTPResponderLink::MTPResponderLink(std::shared_ptr<VirtualUSBPort> port, MTPTransactionState& state,
                                   MTPResponderHooks& hooks)
    : port_(std::move(port)), state_(state), hooks_(hooks) {}

void MTPResponderLink::breakOff(MTPLinkBroken::Why why) {
    // The state is asked first: a cancel request that is just being handled is then through, and
    // does not interrupt the pipes of the next transaction.
    const bool cancelled = state_.endData();
    if (cancelled && why != MTPLinkBroken::Why::cancelled)
        state_.beBusy({}); // it came too late; the phone is not busy with it
    port_->in().resume();
    port_->out().resume();
    joined_ = {};
    throw MTPLinkBroken{why};
}

bool MTPResponderLink::closeTransaction() {
    const bool cancelled = state_.endTransaction();
    if (cancelled) {
        port_->in().resume();
        port_->out().resume();
        joined_ = {};
    }
    return cancelled;
}

void MTPResponderLink::check(USBCode code) {
    if (code == usb::aborted)
        breakOff(MTPLinkBroken::Why::cancelled);
    if (code != usb::success)
        throw MTPLinkBroken{MTPLinkBroken::Why::unplugged};
}

void MTPResponderLink::halt(bool hostIsWriting) {
    if (hostIsWriting)
        port_->out().stallNow();
    else
        port_->in().stallBehindData();
    breakOff(MTPLinkBroken::Why::halted);
}

void MTPResponderLink::pause(std::chrono::nanoseconds duration) {
    switch (state_.pause(duration)) {
    case MTPTransactionState::Pause::over:
        return;
    case MTPTransactionState::Pause::cancelled:
        breakOff(MTPLinkBroken::Why::cancelled);
    case MTPTransactionState::Pause::unplugged:
        throw MTPLinkBroken{MTPLinkBroken::Why::unplugged};
    }
}

VirtualUSBChunk MTPResponderLink::take(Phase* phase) {
    VirtualUSBChunk chunk;
    check(port_->out().deviceTake(chunk));
    if (phase) {
        const std::size_t size = chunk.size();
        const std::size_t allowed = phase->allowed(size);
        chunk.end = chunk.begin + allowed;
        chunk.endsTransfer = chunk.endsTransfer && allowed == size;
        phase->passed(allowed);
    }
    return chunk;
}

MTPCommand MTPResponderLink::receiveCommand() {
    for (;;) {
        port_->out().refuseEmptyWrites(hooks_.packing().refusesZeroPacket);
        VirtualUSBChunk chunk = take(nullptr);
        const bool zeroPacket = chunk.size() == 0;
        if (zeroPacket)
            continue; // a late one
        if (auto command = parseCommand(chunk))
            return std::move(*command);
        halt(!chunk.endsTransfer);
    }
}

void MTPResponderLink::receiveData(const MTPCommand& command, const Sink& sink) {
    Phase phase(*this, USBDirection::out);
    VirtualUSBChunk chunk;
    do {
        chunk = take(&phase);
    } while (chunk.size() == 0 && chunk.endsTransfer);
    const auto header = MTPPacketCodec::decodeHeader(chunk.bytes());
    if (!header)
        phase.fireIfDue();
    if (parseCommand(chunk))
        throw MTPRefusal(MTPResponseCode::generalError); // where data was due
    if (!header || header->type != MTPContainerType::data ||
        header->length < MTPContainerHeader::size)
        halt(!chunk.endsTransfer);

    std::exception_ptr failure;
    if (header->code != command.operation)
        failure = std::make_exception_ptr(MTPRefusal(MTPResponseCode::generalError));
    else if (header->transactionID != command.transactionID)
        failure = std::make_exception_ptr(MTPRefusal(MTPResponseCode::invalidTransactionID));

    const bool lengthKnown = header->length != MTPContainerHeader::unknownLength;
    std::uint64_t remaining = header->length - MTPContainerHeader::size;
    chunk.begin += MTPContainerHeader::size;
    bool headerAlone = lengthKnown && chunk.size() == 0 && chunk.endsTransfer;
    for (;;) {
        const bool tooLong = lengthKnown && chunk.size() > remaining;
        if (tooLong) {
            if (!chunk.endsTransfer)
                halt(true);
            failure = std::make_exception_ptr(MTPRefusal(MTPResponseCode::generalError));
            break;
        }
        if (chunk.size() > 0 && !failure) {
            try {
                sink(chunk.bytes());
            } catch (const MTPRefusal&) {
                failure = std::current_exception();
            }
        }
        if (lengthKnown)
            remaining -= chunk.size();
        phase.fireIfDue();
        // A device reads on until the transfer ends: by a short packet, or by an empty one.
        const bool isWhole = lengthKnown && remaining == 0;
        if (isWhole && (chunk.endsTransfer || hooks_.packing().refusesZeroPacket))
            break;
        if (chunk.endsTransfer && !headerAlone) {
            if (lengthKnown && !failure)
                failure = std::make_exception_ptr(MTPRefusal(MTPResponseCode::incompleteTransfer));
            break;
        }
        headerAlone = false;
        port_->out().recycle(std::move(chunk));
        chunk = take(&phase);
    }
    phase.complete();
    if (failure)
        std::rethrow_exception(failure);
}

Bytes MTPResponderLink::rewritten(const MTPCommand& command, MTPContainerType type,
                                  Bytes container) {
    VirtualAnswer answer{command.operation, type, std::move(container)};
    auto replacement = hooks_.rewrite(answer);
    return replacement ? std::move(*replacement) : std::move(answer.container);
}

void MTPResponderLink::sendDataset(const MTPCommand& command, const Bytes& dataset) {
    Bytes container =
        headerOf(MTPContainerType::data, command.operation, command.transactionID, dataset.size());
    container.insert(container.end(), dataset.begin(), dataset.end());
    (void)sendData(rewritten(command, MTPContainerType::data, std::move(container)), 0, {});
}

bool MTPResponderLink::sendStream(const MTPCommand& command, std::uint64_t size,
                                  const Source& source) {
    const Bytes header =
        headerOf(MTPContainerType::data, command.operation, command.transactionID, size);
    return sendData(rewritten(command, MTPContainerType::data, header), size, source);
}

bool MTPResponderLink::sendData(const Bytes& head, std::uint64_t size, const Source& source) {
    const MTPPacking packing = hooks_.packing();
    Phase phase(*this, USBDirection::in);
    Writer writer(*this, &phase);
    const std::size_t split =
        packing.headerInOwnTransfer ? std::min(head.size(), MTPContainerHeader::size) : 0;
    if (split > 0) {
        writer.append(ByteView(head).first(split));
        writer.cut();
    }
    writer.append(ByteView(head).subspan(split));
    const bool complete = writer.fill(size, source);
    constexpr std::byte extra{0};
    if (packing.extraByte)
        writer.append({&extra, 1});
    const bool headerWasAll = split > 0 && head.size() == split && size == 0 && !packing.extraByte;
    if (packing.dataAndResponseJoined)
        joined_ = writer.release();
    else if (!headerWasAll)
        writer.finish();
    phase.complete();
    return complete;
}

void MTPResponderLink::sendResponse(const MTPCommand& command, std::uint16_t code,
                                    std::span<const std::uint32_t> parameters) {
    const bool hasJunk = hooks_.packing().junkTransactionID;
    Bytes container = headerOf(MTPContainerType::response, code,
                               hasJunk ? command.transactionID ^ junk : command.transactionID,
                               parameters.size_bytes());
    for (const std::uint32_t parameter : parameters)
        appendLittleEndian(container, parameter);
    container = rewritten(command, MTPContainerType::response, std::move(container));
    Writer writer(*this, nullptr, std::exchange(joined_, {}));
    writer.append(container);
    if (!container.empty())
        writer.finish();
}

} // namespace tessary
