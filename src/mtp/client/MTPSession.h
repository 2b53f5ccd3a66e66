#pragma once

#include "mtp/client/MTPTransport.h"

#include <initializer_list>

namespace tessary {

/// How long a silent device is waited for.
struct MTPPatience {
    std::chrono::milliseconds opening{MTPWaits::pipeTimeout}; ///< of a session
    /// In a session, for each answer and in the middle of data: phones pause to flush and to index.
    std::chrono::milliseconds answer{MTPWaits::pipeTimeout};
};

using MTPParameters = std::initializer_list<std::uint32_t>;

/// A session with one device: its transactions in their phases, and what brings the device to rest
/// when one was broken off. What an operation means is its caller's business. Used by one thread at
/// a time. Failures are MTPFailure. Its end closes the transport without a word to the
/// device; see closeSession().
class MTPSession {
public:
    /// How long a device may work on after the last byte of an upload, or on a deletion.
    static constexpr std::chrono::seconds workPatience{60};

    /// `bus` must outlive the session.
    MTPSession(USBBus& bus, MTPDeviceAddress address, MTPPatience patience = {})
        : transport_(bus, std::move(address)), patience_(patience) {}

    /// MTPTransport::setEventReceiver() of the transport; before openSession().
    void setEventReceiver(std::function<void(const MTPEvent&)> receiver) {
        transport_.setEventReceiver(std::move(receiver));
    }
    /// From now on `stop` ends any call early, with CancellationError, except closeSession(). May
    /// be called before openSession().
    void setStop(std::stop_token stop);
    /// Opens the transport and a session. A session that an earlier client left open is closed
    /// first; stale data in the pipe is drained once. After a failure the transport is closed.
    void openSession(std::uint32_t sessionID);
    /// Closes session and transport. Whatever the device answers, or does not, is ignored.
    void closeSession();
    /// Whether the device is at rest; a transaction that was broken off is ended first, which is
    /// tried for a few seconds and once only. If it is not, the next call waits for it.
    [[nodiscard]] bool settleSoon() noexcept;
    /// How many transactions were begun so far.
    [[nodiscard]] std::uint64_t asked() const {
        return asked_;
    }
    /// How often the device has answered so far.
    [[nodiscard]] std::uint64_t answered() const {
        return answered_;
    }

    /// Waits this long for each answer, until the next setStop().
    void setPatience(std::chrono::milliseconds patience);
    [[nodiscard]] const MTPPatience& patience() const {
        return patience_;
    }

    // The phases of a transaction, in their order

    /// Begins a transaction; one that was broken off before is ended first. Returns its id.
    std::uint32_t sendCommand(MTPOperationCode operation, MTPParameters parameters);
    void sendData(MTPOperationCode operation, std::uint32_t transactionID, ByteView payload);
    /// The next container: the response, or before it data, which a refusal takes the place of.
    [[nodiscard]] MTPPacket receive(std::chrono::milliseconds patience = {});
    /// The payload of the data container that a command asks for. Whatever came in its place but a
    /// refusal is an error with this text.
    [[nodiscard]] static Bytes datasetOf(MTPPacket first, const QString& failure);
    void expectOk(std::chrono::milliseconds patience = {});
    static void requireOk(const MTPPacket& response);
    /// Reads a response whose content no longer matters.
    void skipResponse();

    // Whole transactions

    /// One whose data phase brings an object's content, or a part of it. Returns the bytes.
    std::uint64_t receiveContent(MTPOperationCode operation, MTPParameters parameters,
                                 const MTPDataSink& sink, const MTPStreamOptions& options);
    /// One whose data phase is a file's content, or a part of it.
    void sendContent(MTPOperationCode operation, MTPParameters parameters,
                     const MTPDataSource& source, std::uint64_t size,
                     const MTPStreamOptions& options);

private:
    MTPPipeState recover();
    void recoverSoon() noexcept;
    template <typename Phase>
    void recoveringOnFailure(const Phase& phase);
    void start(std::uint32_t sessionID);
    [[nodiscard]] MTPPacket answerToOpening();
    [[nodiscard]] std::optional<MTPPacket> receiveAnswerOrStaleData();
    void closeTransport();

    MTPTransport transport_;
    const MTPPatience patience_;
    std::uint64_t asked_ = 0;
    std::uint64_t answered_ = 0;
    std::stop_token stop_;
    std::uint32_t sessionID_ = 0;
    std::uint32_t transactionIDCounter_ = 1;
    bool isOpen_ = false;
    bool isSettled_ = true;                     ///< the last transaction ran to its response
    bool isBusy_ = false;                       ///< it did not, and could not be ended either
    MTPDataPhase phase_ = MTPDataPhase::toHost; ///< of the last transaction
};

} // namespace tessary
