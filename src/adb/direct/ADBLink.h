#pragma once

#include "adb/direct/ADBTransport.h"
#include "adb/protocol/ADBHostKey.h"
#include "adb/services/ADBStream.h"
#include "base/values/Error.h"

#include <QByteArrayList>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <thread>

namespace tessary {

/// One connection to a phone's adbd: the greeting, the key, and many streams side by side. Each
/// side of a stream sends one piece and waits until the other one has taken it; a phone that does
/// not wait is lost. Thread-safe. Failures are Error(ADBError); CancellationError.
class ADBLink : public std::enable_shared_from_this<ADBLink> {
public:
    /// Greets the phone on a thread of its own. `keys` may be asked on that thread.
    ADBLink(std::unique_ptr<ADBTransport> transport, std::shared_ptr<ADBHostKey> keys);
    /// No stream may be left.
    ~ADBLink();
    ADBLink(const ADBLink&) = delete;
    ADBLink& operator=(const ADBLink&) = delete;

    /// Waits until the phone has let this computer in. ADBError::unauthorized when a person has to
    /// allow it first and has not after `trustPatience`; the question stays on the phone as long as
    /// this link.
    void awaitReady(const Wait& wait, std::chrono::milliseconds trustPatience);
    [[nodiscard]] bool isLost() const;
    /// Whether no stream is open and the phone asks no person: the question goes with the link.
    [[nodiscard]] bool isIdle() const;
    /// What the phone can do; empty before it is ready.
    [[nodiscard]] QByteArrayList features() const;
    [[nodiscard]] std::unique_ptr<ADBStream> open(const QByteArray& service, const Wait& wait);

private:
    enum class State { greeting, asking, ready, lost };

    /// This side of one stream; all guarded by mutex_.
    struct Channel {
        std::uint32_t localID = 0;
        std::uint32_t remoteID = 0; ///< 0 until the phone has opened it
        bool hasEnded = false;      ///< on the phone's side
        bool mayWrite = false;      ///< the phone has taken the last piece
        bool owesOkay = false;      ///< the phone waits until its last piece was taken
        std::deque<Bytes> pieces;   ///< that nobody has read
        std::size_t at = 0;         ///< read of the first one
        std::size_t bytes = 0;      ///< in all pieces
    };
    class Stream;

    void readAll();
    void writeAll();
    void handle(ADBMessage&& message);
    void handleGreeting(const ADBMessage& message, ADBCommand command);
    void handleStream(ADBMessage&& message, ADBCommand command);
    void beReady(const ADBMessage& message);
    void authenticate(const ADBMessage& message);
    void send(ADBCommand command, std::uint32_t arg0, std::uint32_t arg1, Bytes payload = {});
    void lose(const Error& error);
    [[noreturn]] void throwLost() const;
    template <typename Ready>
    void await(std::unique_lock<std::mutex>& lock, const Wait& wait, Ready ready);

    [[nodiscard]] std::size_t read(Channel& channel, std::span<std::byte> to, const Wait& wait);
    void write(Channel& channel, ByteView& left, const Wait& wait);
    [[nodiscard]] bool hasInput(const Channel& channel) const;
    void close(Channel& channel);

    const std::unique_ptr<ADBTransport> transport_;
    const std::shared_ptr<ADBHostKey> keys_;
    std::stop_source end_;     ///< of the question for the key, once this link is lost
    mutable std::mutex mutex_; ///< guards all below but the threads
    std::condition_variable_any changed_;
    State state_ = State::greeting;
    std::optional<Error> lostBy_;
    bool hasSigned_ = false;
    bool asksForKey_ = false;  ///< until there is an answer for the phone, or for good once lost
    bool hasChecksums_ = true; ///< until the phone has said that it does without
    std::size_t largestPayload_ = ADBConstants::maxPayloadV1;
    QByteArrayList features_;
    std::map<std::uint32_t, Channel*> channels_; ///< by local id
    std::uint32_t lastID_ = 0;
    std::set<std::uint32_t> givenUp_; ///< ids of streams that went before the phone had opened them
    std::deque<ADBMessage> outbox_;
    std::jthread writer_;
    std::jthread reader_;
};

} // namespace tessary
