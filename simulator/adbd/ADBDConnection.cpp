#include "simulator/adbd/ADBDConnection.h"

#include "simulator/adbd/ADBDShell.h"
#include "simulator/adbd/ADBDSync.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace tessary {

namespace {

constexpr int pollInterval = 50; // ms

Bytes bytesOf(const std::string& text) {
    const auto* data = reinterpret_cast<const std::byte*>(text.data());
    return {data, data + text.size()};
}

std::uint32_t byteSum(ByteView bytes) {
    std::uint32_t sum = 0;
    for (const std::byte one : bytes)
        sum += std::to_integer<std::uint32_t>(one);
    return sum;
}

std::string textOf(ByteView bytes) {
    std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    return text.substr(0, text.find('\0'));
}

} // namespace

ADBDConnection::ADBDConnection(std::shared_ptr<ADBDState> state, FileHandle socket)
    : state_(std::move(state)), socket_(std::move(socket)) {}

ADBDConnection::~ADBDConnection() = default;

void ADBDConnection::cut() {
    ::shutdown(socket_.get(), SHUT_RDWR);
}

void ADBDConnection::run() {
    while (serveOne()) {
    }
    streams_.clear();
    cut();
}

/// Waits for bytes; meanwhile lets a waiting host in when the person allows it.
bool ADBDConnection::readExactly(std::byte* to, std::size_t count) {
    while (count > 0) {
        pollfd readable{socket_.get(), POLLIN, 0};
        while (!waitingKey_.empty() && ::poll(&readable, 1, pollInterval) == 0) {
            if (!state_->allowsUnknownKeys)
                continue;
            const bool isKey = state_->keys.update(
                [&](ADBDKeys& keys) { return keys.trust(std::exchange(waitingKey_, {})); });
            if (!isKey || !greet())
                return false;
        }
        const ssize_t got = ::recv(socket_.get(), to, count, 0);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        to += got;
        count -= static_cast<std::size_t>(got);
    }
    return true;
}

/// As long as the host says nothing, and there is something to do.
void ADBDConnection::workAhead() {
    pollfd readable{socket_.get(), POLLIN, 0};
    for (auto& [id, stream] : streams_)
        while (stream.awaitsOkay && ::poll(&readable, 1, 0) == 0 && stream.service->workAhead()) {
        }
}

bool ADBDConnection::serveOne() {
    workAhead();
    std::array<std::byte, ADBConstants::headerSize> header{};
    if (!readExactly(header.data(), header.size()))
        return false;
    auto message = ADBMessage::decodeHeader(header);
    if (!message || message->dataLength > largestOwnPayload())
        return false;
    message->payload.resize(message->dataLength);
    if (!readExactly(message->payload.data(), message->payload.size()))
        return false;
    if (state_->config.isFirstVersion && !message->isIntact())
        return false;
    return handle(*std::move(message));
}

/// What this phone takes in one message. The greeting of a host may be longer than it will be told.
std::size_t ADBDConnection::largestOwnPayload() const {
    return isGreeted_ && state_->config.isFirstVersion ? ADBConstants::maxPayloadV1
                                                       : ADBConstants::maxPayloadV2;
}

bool ADBDConnection::handle(ADBMessage&& message) {
    const auto command = adbCommandFromRawValue(message.command);
    if (!command)
        return false;
    if (*command == ADBCommand::cnxn) {
        isGreeted_ = false;
        streams_.clear();
        largestPayload_ = std::clamp(message.arg1, ADBConstants::maxPayloadV1,
                                     static_cast<std::uint32_t>(state_->config.isFirstVersion
                                                                    ? ADBConstants::maxPayloadV1
                                                                    : ADBConstants::maxPayloadV2));
        return state_->config.asksForKeys ? askForSignature() : greet();
    }
    if (*command == ADBCommand::auth)
        return authenticate(message);
    if (!isGreeted_)
        return true; // as adbd does: nothing is answered before the host is let in
    const auto stream = streams_.find(message.arg1);
    switch (*command) {
    case ADBCommand::open:
        return open(message);
    case ADBCommand::okay:
        if (stream == streams_.end())
            return true;
        stream->second.awaitsOkay = false;
        return pump(stream);
    case ADBCommand::wrte:
        return stream == streams_.end() ? send(ADBCommand::clse, 0, message.arg0) : write(message);
    case ADBCommand::clse:
        if (stream != streams_.end())
            streams_.erase(stream);
        return true;
    default:
        return false;
    }
}

bool ADBDConnection::greet() {
    isGreeted_ = true;
    const ADBDConfig& config = state_->config;
    std::string banner = "device::ro.product.name=" + config.product.toStdString() +
                         ";ro.product.model=" + config.model.toStdString() +
                         ";ro.product.device=" + config.device.toStdString() + ";";
    banner += "features=cmd,fixed_push_mkdir";
    for (const auto& [has, name] :
         {std::pair(config.hasShellV2, ",shell_v2"), std::pair(config.hasStatV2, ",stat_v2"),
          std::pair(config.hasLsV2, ",ls_v2")})
        banner += has ? name : "";
    if (config.isFirstVersion)
        return send(ADBCommand::cnxn, ADBConstants::versionV1, ADBConstants::maxPayloadV1,
                    bytesOf(banner));
    return send(ADBCommand::cnxn, ADBConstants::versionV2, ADBConstants::maxPayloadV2,
                bytesOf(banner));
}

bool ADBDConnection::askForSignature() {
    token_ = makeADBDToken();
    return send(ADBCommand::auth, ADBConstants::authTypeToken, 0, token_);
}

bool ADBDConnection::authenticate(const ADBMessage& message) {
    if (message.arg0 == ADBConstants::authTypeSignature)
        return state_->keys.get().hasSigned(token_, message.payload) ? greet() : askForSignature();
    if (message.arg0 == ADBConstants::authTypeRSAPublicKey)
        waitingKey_ = message.payload;
    return true;
}

bool ADBDConnection::open(const ADBMessage& message) {
    const std::string name = textOf(message.payload);
    state_->hooks->serviceAsked(QByteArray::fromStdString(name));
    auto service = message.arg0 == 0 ? nullptr : makeService(name);
    if (!service)
        return send(ADBCommand::clse, 0, message.arg0);
    const std::uint32_t id = ++lastID_;
    const auto stream = streams_.emplace(id, Stream{message.arg0, std::move(service), false}).first;
    return send(ADBCommand::okay, id, message.arg0) && pump(stream);
}

/// "sync:", "exec:<line>", "shell:<line>" or "shell,v2,…:<line>".
std::unique_ptr<ADBDService> ADBDConnection::makeService(const std::string& name) {
    const std::size_t colon = name.find(':');
    if (colon == std::string::npos)
        return nullptr;
    const std::string kind = name.substr(0, colon);
    const std::string line = name.substr(colon + 1);
    if (kind == "sync")
        return std::make_unique<ADBDSync>(*state_);
    const bool isVersion2 = kind.starts_with("shell,v2");
    if ((line.empty() && !isVersion2) || (isVersion2 && !state_->config.hasShellV2) ||
        (!isVersion2 && kind != "shell" && kind != "exec"))
        return nullptr;
    return std::make_unique<ADBDShell>(*state_, line, isVersion2);
}

bool ADBDConnection::write(const ADBMessage& message) {
    const auto stream = streams_.find(message.arg1);
    if (!state_->hooks->passes(message.payload.size()))
        return false;
    stream->second.service->receive(message.payload);
    return send(ADBCommand::okay, stream->first, stream->second.remoteID) && pump(stream);
}

/// Sends what the service has for the host, once the host has taken what was sent before.
bool ADBDConnection::pump(Streams::iterator stream) {
    Stream& state = stream->second;
    if (state.awaitsOkay)
        return true;
    Bytes bytes = state.service->produce(largestPayload_);
    if (!bytes.empty()) {
        state.awaitsOkay = true;
        return state_->hooks->passes(bytes.size()) &&
               send(ADBCommand::wrte, stream->first, state.remoteID, std::move(bytes));
    }
    if (!state.service->isOver())
        return true;
    const std::uint32_t id = stream->first;
    const std::uint32_t remoteID = state.remoteID;
    streams_.erase(stream);
    return send(ADBCommand::clse, id, remoteID);
}

bool ADBDConnection::send(ADBCommand command, std::uint32_t arg0, std::uint32_t arg1,
                          Bytes payload) {
    Bytes content = std::move(payload);
    ADBMessage message(command, arg0, arg1, {}, true);
    message.dataCheck = state_->config.isFirstVersion ? byteSum(content) : 0;
    message.dataLength = static_cast<std::uint32_t>(content.size());
    Bytes header = message.encode();
    std::array<iovec, 2> pieces{iovec{header.data(), header.size()},
                                iovec{content.data(), content.size()}};
    std::size_t left = header.size() + content.size();
    while (left > 0) {
        msghdr parts{};
        parts.msg_iov = pieces.data();
        parts.msg_iovlen = pieces.size();
        const ssize_t sent = ::sendmsg(socket_.get(), &parts, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent <= 0)
            return false;
        left -= static_cast<std::size_t>(sent);
        auto skip = static_cast<std::size_t>(sent);
        for (iovec& piece : pieces) {
            const std::size_t part = std::min(skip, piece.iov_len);
            piece.iov_base = static_cast<std::byte*>(piece.iov_base) + part;
            piece.iov_len -= part;
            skip -= part;
        }
    }
    return true;
}

} // namespace tessary
