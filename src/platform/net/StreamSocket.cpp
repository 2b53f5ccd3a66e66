#include "platform/net/StreamSocket.h"

#include "base/threads/CancellationError.h"
#include "base/values/FreeWith.h"
#include "platform/net/NetworkError.h"

#include <QFile>

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <memory>

namespace tessary {

namespace {

QString reason(int code) {
    return qt_error_string(code);
}

} // namespace

StreamSocket StreamSocket::connectTCP(const QString& host, std::uint16_t port, const Wait& wait) {
    QString figures = host == QLatin1StringView("localhost") ? QStringLiteral("127.0.0.1") : host;
    if (figures.startsWith(QLatin1Char('[')) && figures.endsWith(QLatin1Char(']')))
        figures = figures.mid(1, figures.size() - 2);
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const QString name = QStringLiteral("%1:%2").arg(host).arg(port);
    if (::getaddrinfo(figures.toUtf8().constData(), QByteArray::number(port).constData(), &hints,
                      &found) != 0 ||
        found == nullptr)
        throw Error(NetworkError::badAddress, {name});
    const std::unique_ptr<addrinfo, FreeWith<::freeaddrinfo>> owner(found);
    return connectTo(found->ai_addr, found->ai_addrlen, name, wait);
}

StreamSocket StreamSocket::connectLocal(const QString& path, const Wait& wait) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray bytes = QFile::encodeName(path);
    if (bytes.isEmpty() || bytes.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        throw Error(NetworkError::badAddress, {path});
    std::copy(bytes.begin(), bytes.end(), address.sun_path);
    return connectTo(&address, sizeof address, path, wait);
}

StreamSocket StreamSocket::connectTo(const void* address, std::size_t size, const QString& name,
                                     const Wait& wait) {
    throwIfStopped(wait.stop);
    const auto* generic = static_cast<const sockaddr*>(address);
    StreamSocket socket(
        FileHandle(::socket(generic->sa_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)));
    int failure = 0;
    if (::connect(socket.socket_.get(), generic, static_cast<socklen_t>(size)) != 0) {
        failure = errno;
        if (failure == EINPROGRESS) {
            socket.await(POLLOUT, wait);
            socklen_t length = sizeof failure;
            ::getsockopt(socket.socket_.get(), SOL_SOCKET, SO_ERROR, &failure, &length);
        }
    }
    if (failure == ECONNREFUSED || failure == ENOENT)
        throw Error(NetworkError::refused, {name, reason(failure)});
    if (failure != 0)
        throw Error(NetworkError::unreachable, {name, reason(failure)});
    const int on = 1;
    ::setsockopt(socket.socket_.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return socket;
}

void StreamSocket::await(short events, const Wait& wait) const {
    throwIfStopped(wait.stop);
    // The descriptor wakes this very wait only: several threads may wait on one socket.
    const FileHandle wake(wait.stop.stop_possible() ? ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)
                                                    : -1);
    const std::stop_callback onStop(wait.stop, [&wake] { eventfd_write(wake.get(), 1); });
    const auto end = std::chrono::steady_clock::now() + wait.silence;
    std::array<pollfd, 2> waiting{pollfd{socket_.get(), events, 0}, pollfd{wake.get(), POLLIN, 0}};
    for (;;) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        const int ready = ::poll(waiting.data(), waiting.size(),
                                 static_cast<int>(std::clamp<std::int64_t>(
                                     left.count(), 0, std::numeric_limits<int>::max())));
        throwIfStopped(wait.stop);
        if (ready > 0)
            return;
        if (ready == 0)
            throw Error(NetworkError::timedOut);
        if (errno != EINTR)
            throw Error(NetworkError::brokenOff, {reason(errno)});
    }
}

std::size_t StreamSocket::read(std::span<std::byte> to, const Wait& wait) {
    throwIfStopped(wait.stop);
    for (;;) {
        const ssize_t got = ::recv(socket_.get(), to.data(), to.size(), 0);
        if (got >= 0)
            return static_cast<std::size_t>(got);
        if (errno == EAGAIN) {
            // Who has sent one piece may hold the next one back until this one is acknowledged,
            // which the system would do only after 40 ms. It forgets the wish at times.
            const int on = 1;
            ::setsockopt(socket_.get(), IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
            await(POLLIN, wait);
        } else if (errno != EINTR) {
            throw Error(NetworkError::brokenOff, {reason(errno)});
        }
    }
}

void StreamSocket::writeOn(ByteView& left, const Wait& wait) {
    throwIfStopped(wait.stop);
    while (!left.empty()) {
        const ssize_t sent = ::send(socket_.get(), left.data(), left.size(), MSG_NOSIGNAL);
        if (sent >= 0)
            left = left.subspan(static_cast<std::size_t>(sent));
        else if (errno == EAGAIN)
            await(POLLOUT, wait);
        else if (errno != EINTR)
            throw Error(NetworkError::brokenOff, {reason(errno)});
    }
}

bool StreamSocket::hasInput() const {
    pollfd waiting{socket_.get(), POLLIN, 0};
    return ::poll(&waiting, 1, 0) > 0;
}

void StreamSocket::shutDown() {
    ::shutdown(socket_.get(), SHUT_RDWR);
}

} // namespace tessary
