#include "simulator/adbd/VirtualADBD.h"

#include "base/threads/ThreadName.h"
#include "simulator/adbd/ADBDConnection.h"
#include "simulator/wire/PhoneSockets.h"

#include <QDir>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <stdexcept>

namespace tessary {

namespace {

constexpr int pollInterval = 100; // ms

FileHandle listenAt(std::uint16_t port) {
    FileHandle socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const int on = 1;
    ::setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    const sockaddr_in address = PhoneSockets::loopback(port);
    constexpr int waiting = 16;
    if (!socket.isOpen() ||
        ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(socket.get(), waiting) != 0)
        throw std::runtime_error("no port for a virtual adbd");
    return socket;
}

std::shared_ptr<ADBDState> makeState(ADBDConfig config, std::unique_ptr<ADBDHooks> hooks) {
    QDir().mkpath(config.folder);
    auto state = std::make_shared<ADBDState>();
    state->config = std::move(config);
    state->hooks = std::move(hooks);
    return state;
}

} // namespace

VirtualADBD::VirtualADBD(ADBDConfig config)
    : VirtualADBD(config, std::make_unique<ADBDHooks>(config.megabytesPerSecond)) {}

VirtualADBD::VirtualADBD(ADBDConfig config, std::unique_ptr<ADBDHooks> hooks)
    : state_(makeState(std::move(config), std::move(hooks))) {}

VirtualADBD::~VirtualADBD() {
    stop();
}

QString VirtualADBD::address() const {
    return QStringLiteral("127.0.0.1:%1").arg(port_);
}

void VirtualADBD::start() {
    const std::scoped_lock lock(mutex_);
    if (listener_.isOpen())
        return;
    listener_ = listenAt(port_);
    port_ = PhoneSockets::portOf(listener_);
    thread_ = std::jthread([this](const std::stop_token& stop) { accept(stop); });
}

void VirtualADBD::stop() {
    std::jthread thread;
    {
        const std::scoped_lock lock(mutex_);
        thread = std::move(thread_);
    }
    if (thread.joinable()) {
        thread.request_stop();
        thread.join();
    }
    cut();
    const std::scoped_lock lock(mutex_);
    listener_.close();
}

void VirtualADBD::cut() {
    std::list<Served> served;
    {
        const std::scoped_lock lock(mutex_);
        served.swap(served_);
    }
    for (const Served& one : served)
        one.connection->cut();
    served.clear(); // waits for the threads
}

void VirtualADBD::accept(const std::stop_token& stop) {
    nameCurrentThread("adbd-accept");
    const int listener = [this] {
        const std::scoped_lock lock(mutex_);
        return listener_.get();
    }();
    while (!stop.stop_requested()) {
        pollfd waiting{listener, POLLIN, 0};
        if (::poll(&waiting, 1, pollInterval) <= 0)
            continue;
        FileHandle socket(::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC));
        if (!socket.isOpen())
            continue;
        const int on = 1;
        ::setsockopt(socket.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        serve(std::move(socket));
    }
}

void VirtualADBD::serve(FileHandle socket) {
    auto connection = std::make_shared<ADBDConnection>(state_, std::move(socket));
    const std::scoped_lock lock(mutex_);
    served_.push_back({connection, std::jthread([connection] {
                           nameCurrentThread("adbd");
                           connection->run();
                       })});
}

} // namespace tessary
