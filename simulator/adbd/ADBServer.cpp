#include "simulator/adbd/ADBServer.h"

#include "base/local/FileHandle.h"
#include "base/threads/ThreadName.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/wire/PhoneSockets.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>
#include <stdexcept>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto startPatience = 15s;
constexpr auto commandPatience = 10s;

/// A port that was free a moment ago.
std::uint16_t findPort() {
    const FileHandle socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = PhoneSockets::loopback(0);
    std::uint16_t port = 0;
    if (::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        port = PhoneSockets::portOf(socket);
    if (port == 0)
        throw std::runtime_error("no port for an adb server");
    return port;
}

bool answers(std::uint16_t port) {
    const FileHandle socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = PhoneSockets::loopback(port);
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
           0;
}

/// Where adb keeps its keys.
QProcessEnvironment keyEnvironment(const QString& folder) {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("HOME"), folder);
    environment.insert(QStringLiteral("ANDROID_USER_HOME"), folder);
    return environment;
}

} // namespace

ADBServer::ADBServer(QString keyFolder) : keyFolder_(std::move(keyFolder)), port_(findPort()) {}

ADBServer::~ADBServer() = default;

void ADBServer::start(QString adb) {
    adb_ = std::move(adb);
    thread_ = std::jthread([this](const std::stop_token& stop) {
        nameCurrentThread("adb-server");
        // Only phones that it is told to connect to: those on this machine's USB and network, and
        // emulators, are the user's own.
        QProcessEnvironment environment = keyEnvironment(keyFolder_);
        for (const QString& source :
             {QStringLiteral("ADB_USB"), QStringLiteral("ADB_EMU"), QStringLiteral("ADB_MDNS")})
            environment.insert(source, QStringLiteral("0"));
        ProcessRequest request;
        request.program = adb_;
        request.arguments = {QStringLiteral("-L"), QStringLiteral("tcp:%1").arg(port_),
                             QStringLiteral("nodaemon"), QStringLiteral("server")};
        request.stop = stop;
        (void)QtProcessRunner(environment).follow(request);
    });
}

void ADBServer::awaitStart(const std::stop_token& stop) const {
    const auto end = std::chrono::steady_clock::now() + startPatience;
    while (!answers(port_)) {
        if (stop.stop_requested() || std::chrono::steady_clock::now() > end)
            throw std::runtime_error("adb's server does not start");
        std::this_thread::sleep_for(10ms);
    }
}

QProcessEnvironment ADBServer::environment() const {
    QProcessEnvironment environment = keyEnvironment(keyFolder_);
    // With a number for its host the server counts as another machine's: adb starts none of its
    // own there. This variable is also stronger than those for port and host alone.
    environment.insert(QStringLiteral("ADB_SERVER_SOCKET"),
                       QStringLiteral("tcp:127.0.0.1:%1").arg(port_));
    return environment;
}

void ADBServer::connect(const QString& address, const std::stop_token& stop) const {
    (void)command({QStringLiteral("connect"), address}, stop);
}

void ADBServer::disconnect(const QString& address) const {
    (void)command({QStringLiteral("disconnect"), address}, {});
}

bool ADBServer::awaitPhone(const QString& address, const std::stop_token& stop) const {
    return command({QStringLiteral("-s"), address, QStringLiteral("wait-for-device")}, stop);
}

bool ADBServer::command(const QStringList& arguments, const std::stop_token& stop) const {
    ProcessRequest request;
    request.program = adb_;
    request.arguments = arguments;
    request.limit = commandPatience;
    request.stop = stop;
    return QtProcessRunner(environment()).follow(request).succeeded();
}

} // namespace tessary
