#pragma once

#include "mtp/client/MTPTransport.h"

#include <atomic>
#include <initializer_list>
#include <memory>

namespace tessary {

/// How long a silent device is waited for.
struct MTPPatience {
    std::chrono::milliseconds opening{MTPTransport::pipeTimeout}; ///< of a session
    /// In a session, for each answer and in the middle of data: phones pause to flush and to index.
    std::chrono::milliseconds answer{MTPTransport::pipeTimeout};
};

using MTPParameters = std::initializer_list<std::uint32_t>;

/// A session with one device: its transactions in their phases, and what brings the device to rest
/// when one was broken off. What an operation means is its caller's business. Used by one thread at
/// a time, except asked() and answered(). Failures are MTPTransportError.
class MTPSession {
public:
    /// How long a device may work on after the last byte of an upload, or on a deletion.
    static constexpr std::chrono::seconds workPatience{60};

    MTPSession(std::unique_ptr<MTPTransport> transport, MTPPatience patience);
    /// Closes the transport without a word to the device; see close().
    ~MTPSession();
    MTPSession(const MTPSession&) = delete;
    MTPSession& operator=(const MTPSession&) = delete;

    // As MTPClient has them

    void setEventReceiver(std::function<void(const MTPEvent&)> receiver);
    void setStop(std::stop_token stop);
    void open(std::uint32_t sessionID);
    void close();
    [[nodiscard]] bool settleSoon() noexcept;
    [[nodiscard]] std::uint64_t asked() const {
        return asked_;
    }
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
    /// The first container of a transaction with a data phase, which a refusal takes the place of.
    [[nodiscard]] MTPPacket receiveFirst();
    /// The payload of the data container that a command asks for. Whatever comes in its place but a
    /// refusal is an error with this text.
    [[nodiscard]] Bytes receiveDataset(const QString& failure);
    /// The last container of a transaction.
    [[nodiscard]] MTPPacket receiveResponse(std::chrono::milliseconds patience = {});
    void expectOk(std::chrono::milliseconds patience = {});
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
    void start(std::uint32_t sessionID);
    [[nodiscard]] MTPPacket answerToOpening();
    [[nodiscard]] std::optional<MTPPacket> receiveAnswerOrStaleData();
    void closeTransport();

    const std::unique_ptr<MTPTransport> transport_;
    const MTPPatience patience_;
    std::atomic<std::uint64_t> asked_ = 0;
    std::atomic<std::uint64_t> answered_ = 0;
    std::stop_token stop_;
    std::uint32_t sessionID_ = 0;
    std::uint32_t transactionIDCounter_ = 1;
    bool isOpen_ = false;
    bool isSettled_ = true;                     ///< the last transaction ran to its response
    bool isBusy_ = false;                       ///< it did not, and could not be ended either
    MTPDataPhase phase_ = MTPDataPhase::toHost; ///< of the last transaction
};

} // namespace tessary
