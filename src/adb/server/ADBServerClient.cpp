#include "adb/server/ADBServerClient.h"

#include "adb/protocol/ADBError.h"
#include "platform/net/NetworkError.h"

#include <array>

namespace tessary {

namespace {

constexpr std::size_t wordSize = 4;

/// The server's words for what is the matter with a phone. It has no codes for them.
struct Reason {
    QLatin1StringView sign;
    ADBError error;
};
constexpr std::array reasons{
    Reason{QLatin1StringView("unauthorized"), ADBError::unauthorized},
    Reason{QLatin1StringView("still authorizing"), ADBError::unauthorized},
    Reason{QLatin1StringView("still connecting"), ADBError::offline},
    Reason{QLatin1StringView("device offline"), ADBError::offline},
    Reason{QLatin1StringView("no permissions"), ADBError::notPermitted},
    Reason{QLatin1StringView("insufficient permissions"), ADBError::notPermitted},
    Reason{QLatin1StringView("more than one"), ADBError::severalPhones},
    Reason{QLatin1StringView("no devices"), ADBError::notFound},
    Reason{QLatin1StringView("not found"), ADBError::notFound},
};

Error errorOf(const Error& cause) {
    if (cause.is(NetworkError::timedOut))
        return {ADBError::timedOut, {}, cause};
    return {ADBError::brokenOff, {}, cause};
}

/// A stream through the server.
class ServerStream final : public ADBStream {
public:
    explicit ServerStream(StreamSocket socket) : socket_(std::move(socket)) {}

    std::size_t read(std::span<std::byte> to, const Wait& wait) override {
        try {
            return socket_.read(to, wait);
        } catch (const Error& error) {
            throw errorOf(error);
        }
    }
    void writeOn(ByteView& left, const Wait& wait) override {
        try {
            socket_.writeOn(left, wait);
        } catch (const Error& error) {
            throw errorOf(error);
        }
    }
    [[nodiscard]] bool hasInput() const override {
        return socket_.hasInput();
    }

private:
    StreamSocket socket_;
};

/// Exactly so many bytes and no more: what follows belongs to the service.
QByteArray takeExactly(ADBStream& stream, std::size_t count, const Wait& wait) {
    QByteArray bytes(static_cast<qsizetype>(count), '\0');
    std::span<std::byte> rest(reinterpret_cast<std::byte*>(bytes.data()), count);
    while (!rest.empty()) {
        const std::size_t got = stream.read(rest, wait);
        if (got == 0)
            throw Error(ADBError::brokenOff);
        rest = rest.subspan(got);
    }
    return bytes;
}

[[noreturn]] void throwRefusal(const QByteArray& request, const QString& reason) {
    for (const Reason& row : reasons)
        if (reason.contains(row.sign))
            throw Error(row.error, {QString::fromUtf8(request)},
                        Error(ADBError::refused, {QString::fromUtf8(request), reason}));
    throw Error(ADBError::refused, {QString::fromUtf8(request), reason});
}

void sendRequest(ADBStream& stream, const QByteArray& request, const Wait& wait) {
    constexpr qsizetype longest = 0xFFFF;
    if (request.size() > longest)
        throw Error(ADBError::pathTooLong);
    const QByteArray bytes =
        QByteArray::number(request.size(), 16).rightJustified(4, '0') + request;
    stream.write(std::as_bytes(std::span(bytes)), wait);
    const QByteArray answer = takeExactly(stream, wordSize, wait);
    if (answer == "FAIL")
        throwRefusal(request, QString::fromUtf8(takeADBText(stream, wait)));
    if (answer != "OKAY")
        throw Error(ADBError::nonsense, {QStringLiteral("what answers is no adb server")});
}

} // namespace

QByteArray takeADBText(ADBStream& stream, const Wait& wait) {
    bool isNumber = false;
    const uint length = takeExactly(stream, wordSize, wait).toUInt(&isNumber, 16);
    if (!isNumber)
        throw Error(ADBError::nonsense, {QStringLiteral("the length of an adb server's text")});
    return takeExactly(stream, length, wait);
}

std::unique_ptr<ADBStream> ADBServerClient::open(const QByteArrayList& requests,
                                                 const Wait& wait) const {
    std::unique_ptr<ADBStream> stream;
    try {
        stream = std::make_unique<ServerStream>(address_.connect(wait));
    } catch (const Error& error) {
        throw Error(ADBError::noServer, {address_.text()}, error);
    }
    for (const QByteArray& request : requests)
        sendRequest(*stream, request, wait);
    return stream;
}

QByteArray ADBServerClient::ask(const QByteArray& request, const Wait& wait) const {
    return takeADBText(*open({request}, wait), wait);
}

bool ADBServerClient::isThere(const Wait& wait) const {
    try {
        (void)ask("host:version", wait);
        return true;
    } catch (const Error& error) {
        if (error.is(ADBError::noServer))
            return false;
        throw;
    }
}

std::vector<ADBDevice> ADBServerClient::devices(const Wait& wait) const {
    return parseADBDevices(ask("host:devices-l", wait));
}

} // namespace tessary
