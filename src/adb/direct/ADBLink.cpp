#include "adb/direct/ADBLink.h"

#include "adb/protocol/ADBError.h"
#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"

#include <algorithm>

namespace tessary {

namespace {

/// So much of a stream may lie unread before the phone has to wait.
constexpr std::size_t mostUnread = std::size_t{2} << 20;
/// More messages than this wait only for a phone that asks and never listens.
constexpr std::size_t longestOutbox = 4096;

Bytes bytesOf(std::string_view text) {
    const ByteView bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

/// "device::name=value;…;features=a,b".
QByteArrayList featuresIn(const QByteArray& banner) {
    const QByteArray sign = "features=";
    for (const QByteArray& word : banner.mid(banner.indexOf("::") + 2).split(';'))
        if (word.startsWith(sign))
            return word.mid(sign.size()).split(',');
    return {};
}

} // namespace

/// A stream as its user sees it.
class ADBLink::Stream final : public ADBStream {
public:
    explicit Stream(std::shared_ptr<ADBLink> link) : link_(std::move(link)) {}
    ~Stream() override {
        link_->close(channel_);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    std::size_t read(std::span<std::byte> to, const Wait& wait) override {
        return link_->read(channel_, to, wait);
    }
    void writeOn(ByteView& left, const Wait& wait) override {
        link_->write(channel_, left, wait);
    }
    [[nodiscard]] bool hasInput() const override {
        return link_->hasInput(channel_);
    }
    [[nodiscard]] Channel& channel() {
        return channel_;
    }

private:
    const std::shared_ptr<ADBLink> link_;
    Channel channel_;
};

ADBLink::ADBLink(std::unique_ptr<ADBTransport> transport, std::shared_ptr<ADBHostKey> keys)
    : transport_(std::move(transport)), keys_(std::move(keys)) {
    send(ADBCommand::cnxn, ADBConstants::versionV2, ADBConstants::maxPayloadV2,
         bytesOf(ADBConstants::defaultHostFeatures));
    writer_ = std::jthread([this] { writeAll(); });
    reader_ = std::jthread([this] { readAll(); });
}

ADBLink::~ADBLink() {
    lose(Error(ADBError::brokenOff));
}

void ADBLink::lose(const Error& error) {
    {
        const std::scoped_lock lock(mutex_);
        if (state_ != State::lost)
            lostBy_ = error;
        state_ = State::lost;
        outbox_.clear();
    }
    end_.request_stop();
    transport_->close();
    changed_.notify_all();
}

void ADBLink::throwLost() const {
    throw Error(lostBy_->code(), lostBy_->arguments(), *lostBy_);
}

/// Waits until the link is lost, which is an error, or `ready()`.
template <typename Ready>
void ADBLink::await(std::unique_lock<std::mutex>& lock, const Wait& wait, Ready ready) {
    const bool isOver = changed_.wait_for(lock, wait.stop, wait.silence,
                                          [&] { return state_ == State::lost || ready(); });
    throwIfStopped(wait.stop);
    if (!isOver)
        throw Error(ADBError::timedOut);
    if (!ready())
        throwLost();
}

void ADBLink::awaitReady(const Wait& wait, std::chrono::milliseconds trustPatience) {
    std::unique_lock lock(mutex_);
    for (;;) {
        await(lock, wait, [this] { return state_ != State::greeting || asksForKey_; });
        if (state_ == State::lost)
            throwLost();
        if (!asksForKey_)
            break;
        // A person who unlocks the key store first is no silence of the phone.
        changed_.wait(lock, wait.stop, [this] { return !asksForKey_ || state_ == State::lost; });
        throwIfStopped(wait.stop);
    }
    const auto isReady = [this] { return state_ == State::ready || state_ == State::lost; };
    const bool isOver = changed_.wait_for(lock, wait.stop, trustPatience, isReady);
    throwIfStopped(wait.stop);
    if (!isOver)
        throw Error(ADBError::unauthorized);
    if (state_ == State::lost)
        throwLost();
}

bool ADBLink::isLost() const {
    const std::scoped_lock lock(mutex_);
    return state_ == State::lost;
}

bool ADBLink::isIdle() const {
    const std::scoped_lock lock(mutex_);
    return channels_.empty() && state_ != State::asking;
}

QByteArrayList ADBLink::features() const {
    const std::scoped_lock lock(mutex_);
    return features_;
}

void ADBLink::readAll() {
    nameCurrentThread("adb-read");
    try {
        for (;;)
            handle(transport_->read());
    } catch (const CancellationError&) {
        // It is lost already.
    } catch (const Error& error) {
        lose(error);
    }
}

void ADBLink::writeAll() {
    nameCurrentThread("adb-write");
    try {
        for (;;) {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return state_ == State::lost || !outbox_.empty(); });
            if (state_ == State::lost)
                return;
            const ADBMessage message = std::move(outbox_.front());
            outbox_.pop_front();
            lock.unlock();
            transport_->write(message);
        }
    } catch (const Error& error) {
        lose(error);
    }
}

/// Called with the mutex held, or before the threads run.
void ADBLink::send(ADBCommand command, std::uint32_t arg0, std::uint32_t arg1, Bytes payload) {
    if (state_ == State::lost)
        return;
    if (outbox_.size() >= longestOutbox)
        throw Error(ADBError::nonsense, {QStringLiteral("a phone that does not listen")});
    outbox_.emplace_back(command, arg0, arg1, std::move(payload), !hasChecksums_);
    changed_.notify_all();
}

void ADBLink::handle(ADBMessage&& message) {
    const auto command = adbCommandFromRawValue(message.command);
    if (command == ADBCommand::auth)
        return authenticate(message); // takes its time
    const std::scoped_lock lock(mutex_);
    if (!command)
        throw Error(ADBError::nonsense, {QStringLiteral("an unknown command")});
    if (hasChecksums_ && state_ == State::ready && !message.isIntact())
        throw Error(ADBError::nonsense, {QStringLiteral("a message's checksum")});
    if (state_ == State::ready)
        handleStream(std::move(message), *command);
    else
        handleGreeting(message, *command);
}

/// Until the phone has let us in, what it says may still belong to an earlier connection.
void ADBLink::handleGreeting(const ADBMessage& message, ADBCommand command) {
    if (command == ADBCommand::cnxn)
        beReady(message);
    else if (command == ADBCommand::stls)
        throw Error(ADBError::refused, {QStringLiteral("host::")},
                    Error(ADBError::nonsense, {QStringLiteral("TLS is wanted")}));
}

void ADBLink::beReady(const ADBMessage& message) {
    const QByteArray banner = QByteArrayView(message.payload).toByteArray();
    if (!banner.startsWith("device"))
        throw Error(ADBError::offline, {QString::fromUtf8(banner.left(banner.indexOf(':')))});
    hasChecksums_ = message.arg0 < ADBConstants::versionV2;
    largestPayload_ = std::clamp<std::size_t>(message.arg1, ADBConstants::maxPayloadV1,
                                              ADBConstants::maxPayloadV2);
    features_ = featuresIn(banner.split('\0').first());
    state_ = State::ready;
    changed_.notify_all();
}

/// The first token is signed; one more means that the phone does not know the key.
void ADBLink::authenticate(const ADBMessage& message) {
    if (message.arg0 != ADBConstants::authTypeToken)
        return;
    bool signs = false;
    {
        const std::scoped_lock lock(mutex_);
        if (state_ != State::greeting)
            return; // each question is a program's run
        signs = !std::exchange(hasSigned_, true);
        asksForKey_ = true;
        changed_.notify_all();
    }
    Bytes answer = signs ? keys_->sign(message.payload, end_.get_token())
                         : keys_->getPhonePublicKeyPayload(end_.get_token());
    const std::scoped_lock lock(mutex_);
    asksForKey_ = false;
    changed_.notify_all();
    if (state_ != State::greeting)
        return;
    if (!signs)
        state_ = State::asking;
    send(ADBCommand::auth,
         signs ? ADBConstants::authTypeSignature : ADBConstants::authTypeRSAPublicKey, 0,
         std::move(answer));
}

void ADBLink::handleStream(ADBMessage&& message, ADBCommand command) {
    if (command == ADBCommand::cnxn || command == ADBCommand::stls)
        throw Error(ADBError::brokenOff, {QStringLiteral("the phone has begun anew")});
    if (command == ADBCommand::open)
        return send(ADBCommand::clse, 0, message.arg0); // nothing here is served
    const auto found = channels_.find(message.arg1);
    if (found == channels_.end()) {
        // Of a stream that we have just closed; one that was given up goes on until it is told.
        if (givenUp_.erase(message.arg1) > 0 && command == ADBCommand::okay)
            send(ADBCommand::clse, message.arg1, message.arg0);
        return;
    }
    Channel& channel = *found->second;
    const bool isNew = channel.remoteID == 0;
    if (command != ADBCommand::clse && (isNew ? message.arg0 == 0 || command != ADBCommand::okay
                                              : message.arg0 != channel.remoteID))
        throw Error(ADBError::nonsense, {QStringLiteral("a stream's id")});
    switch (command) {
    case ADBCommand::okay:
        channel.remoteID = message.arg0;
        channel.mayWrite = true;
        break;
    case ADBCommand::wrte:
        if (channel.owesOkay)
            throw Error(ADBError::nonsense, {QStringLiteral("a phone that does not wait")});
        channel.bytes += message.payload.size();
        if (!message.payload.empty())
            channel.pieces.push_back(std::move(message.payload));
        channel.owesOkay = channel.bytes > mostUnread;
        if (!channel.owesOkay)
            send(ADBCommand::okay, channel.localID, channel.remoteID);
        break;
    default:
        channel.hasEnded = true;
    }
    changed_.notify_all();
}

std::unique_ptr<ADBStream> ADBLink::open(const QByteArray& service, const Wait& wait) {
    auto stream = std::make_unique<Stream>(shared_from_this()); // goes after the lock
    Channel& channel = stream->channel();
    std::unique_lock lock(mutex_);
    if (state_ == State::lost)
        throwLost();
    if (static_cast<std::size_t>(service.size()) >= largestPayload_)
        throw Error(ADBError::pathTooLong);
    channel.localID = ++lastID_;
    channels_.emplace(channel.localID, &channel);
    send(ADBCommand::open, channel.localID, 0,
         bytesOf({service.constData(), static_cast<std::size_t>(service.size()) + 1}));
    await(lock, wait, [&] { return channel.remoteID != 0 || channel.hasEnded; });
    if (channel.remoteID == 0)
        throw Error(ADBError::refused, {QString::fromUtf8(service)});
    return stream;
}

std::size_t ADBLink::read(Channel& channel, std::span<std::byte> to, const Wait& wait) {
    std::unique_lock lock(mutex_);
    await(lock, wait, [&] { return !channel.pieces.empty() || channel.hasEnded; });
    std::size_t filled = 0;
    while (filled < to.size() && !channel.pieces.empty()) {
        const Bytes& piece = channel.pieces.front();
        const std::size_t count = std::min(to.size() - filled, piece.size() - channel.at);
        std::copy_n(piece.begin() + static_cast<std::ptrdiff_t>(channel.at), count,
                    to.begin() + static_cast<std::ptrdiff_t>(filled));
        filled += count;
        channel.at += count;
        if (channel.at == piece.size()) {
            channel.pieces.pop_front();
            channel.at = 0;
        }
    }
    channel.bytes -= filled;
    if (channel.owesOkay && channel.bytes <= mostUnread) {
        channel.owesOkay = false;
        send(ADBCommand::okay, channel.localID, channel.remoteID);
    }
    return filled;
}

void ADBLink::write(Channel& channel, ByteView& left, const Wait& wait) {
    std::unique_lock lock(mutex_);
    while (!left.empty()) {
        await(lock, wait, [&] { return channel.mayWrite || channel.hasEnded; });
        if (channel.hasEnded)
            throw Error(ADBError::brokenOff);
        const ByteView piece = left.first(std::min(left.size(), largestPayload_));
        channel.mayWrite = false;
        send(ADBCommand::wrte, channel.localID, channel.remoteID, {piece.begin(), piece.end()});
        left = left.subspan(piece.size());
    }
}

bool ADBLink::hasInput(const Channel& channel) const {
    const std::scoped_lock lock(mutex_);
    return !channel.pieces.empty() || channel.hasEnded || state_ == State::lost;
}

void ADBLink::close(Channel& channel) {
    const std::scoped_lock lock(mutex_);
    channels_.erase(channel.localID);
    constexpr std::size_t mostGivenUp = 1000; // of a phone that opens none
    const bool isAsked = channel.localID != 0 && channel.remoteID == 0;
    if (isAsked && !channel.hasEnded && givenUp_.size() < mostGivenUp)
        givenUp_.insert(channel.localID);
    if (!channel.hasEnded && channel.remoteID != 0 && outbox_.size() < longestOutbox)
        send(ADBCommand::clse, channel.localID, channel.remoteID);
}

} // namespace tessary
