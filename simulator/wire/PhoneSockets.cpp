#include "simulator/wire/PhoneSockets.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cstring>
#include <stdexcept>

namespace tessary {

namespace {

constexpr int backlog = 128;

void keepFromChildren(int descriptor) {
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

void makeNonBlocking(int descriptor) {
    ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
}

FileHandle makeSocket(int family) {
    FileHandle made(::socket(family, SOCK_STREAM, 0));
    keepFromChildren(made.get());
    return made;
}

} // namespace

#ifdef MSG_NOSIGNAL
const int PhoneSockets::noSignal = MSG_NOSIGNAL;
#else
const int PhoneSockets::noSignal = 0;
#endif

sockaddr_in PhoneSockets::loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

std::uint16_t PhoneSockets::portOf(const FileHandle& socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    const bool isBound =
        ::getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size) == 0;
    return isBound ? ntohs(address.sin_port) : std::uint16_t(0);
}

FileHandle PhoneSockets::listenAt(const QString& path) {
    const QByteArray bytes = path.toLocal8Bit();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (bytes.isEmpty() || bytes.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        throw std::runtime_error("no path for a socket: " + bytes.toStdString());
    std::memcpy(address.sun_path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const auto* raw = reinterpret_cast<const sockaddr*>(&address);

    FileHandle listener = makeSocket(AF_UNIX);
    if (::connect(listener.get(), raw, sizeof address) == 0)
        throw std::runtime_error("somebody listens at " + bytes.toStdString());
    struct stat facts {};
    if (::lstat(bytes.constData(), &facts) == 0 && S_ISSOCK(facts.st_mode))
        ::unlink(bytes.constData());
    listener = makeSocket(AF_UNIX);
    if (::bind(listener.get(), raw, sizeof address) != 0 ||
        ::chmod(bytes.constData(), S_IRUSR | S_IWUSR) != 0 ||
        ::listen(listener.get(), backlog) != 0)
        throw std::runtime_error("cannot listen at " + bytes.toStdString() + ": " +
                                 std::strerror(errno));
    makeNonBlocking(listener.get());
    return listener;
}

FileHandle PhoneSockets::listenAt(const QString& address, std::uint16_t port) {
    sockaddr_in where{};
    where.sin_family = AF_INET;
    where.sin_port = htons(port);
    if (::inet_pton(AF_INET, address.toLatin1().constData(), &where.sin_addr) != 1)
        return {};
    FileHandle listener = makeSocket(AF_INET);
    const int on = 1;
    ::setsockopt(listener.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (::bind(listener.get(), reinterpret_cast<const sockaddr*>(&where), sizeof where) != 0 ||
        ::listen(listener.get(), backlog) != 0)
        return {};
    makeNonBlocking(listener.get());
    return listener;
}

FileHandle PhoneSockets::accept(int listener) {
    FileHandle socket(::accept(listener, nullptr, nullptr));
    if (!socket.isOpen())
        return socket;
    keepFromChildren(socket.get());
    // Some systems hand the listener's mode down.
    ::fcntl(socket.get(), F_SETFL, ::fcntl(socket.get(), F_GETFL) & ~O_NONBLOCK);
    const int buffer = 1 << 20;
    ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDBUF, &buffer, sizeof buffer);
    const int on = 1;
    ::setsockopt(socket.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on); // in vain on others
    return socket;
}

void PhoneSockets::makePipe(FileHandle& out, FileHandle& in) {
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    out = FileHandle(ends[0]);
    in = FileHandle(ends[1]);
    for (const int end : ends) {
        keepFromChildren(end);
        makeNonBlocking(end);
    }
}

bool PhoneSockets::sendAtOnce(int socket, ByteView bytes) {
    return ::send(socket, bytes.data(), bytes.size(), noSignal | MSG_DONTWAIT) ==
           static_cast<ssize_t>(bytes.size());
}

QByteArray PhoneSockets::bsdAddress(const QString& address) {
    in_addr parsed{};
    ::inet_pton(AF_INET, address.toLatin1().constData(), &parsed);
    QByteArray bytes(16, '\0');
    bytes[0] = 16;
    bytes[1] = 2;
    std::memcpy(bytes.data() + 4, &parsed, sizeof parsed);
    return bytes;
}

} // namespace tessary
