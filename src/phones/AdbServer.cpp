#include "phones/AdbServer.h"

#include "phones/FileHandle.h"
#include "phones/ThreadName.h"
#include "platform/qt/QtProcessRunner.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>
#include <stdexcept>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto startPatience = 15s;
constexpr auto commandPatience = 10s;

sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// A port that was free a moment ago.
std::uint16_t findPort() {
    const FileHandle socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    if (::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), size) != 0 ||
        ::getsockname(socket.get(), reinterpret_cast<sockaddr*>(&address), &size) != 0)
        throw std::runtime_error("no port for an adb server");
    return ntohs(address.sin_port);
}

bool answers(std::uint16_t port) {
    const FileHandle socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopback(port);
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
           0;
}

} // namespace

AdbServer::AdbServer(QString adb, QString keyFolder)
    : adb_(std::move(adb)), keyFolder_(std::move(keyFolder)), port_(findPort()) {
    thread_ = std::jthread([this](const std::stop_token& stop) {
        setThreadName("adb-server");
        ProcessRequest request;
        request.program = adb_;
        request.arguments = {QStringLiteral("nodaemon"), QStringLiteral("server")};
        request.stop = stop;
        (void)QtProcessRunner(environment()).follow(request);
    });
    const auto end = std::chrono::steady_clock::now() + startPatience;
    while (!answers(port_)) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("adb's server does not start");
        std::this_thread::sleep_for(10ms);
    }
}

AdbServer::~AdbServer() = default;

QProcessEnvironment AdbServer::environment() const {
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("ANDROID_ADB_SERVER_PORT"), QString::number(port_));
    environment.insert(QStringLiteral("HOME"), keyFolder_);
    environment.insert(QStringLiteral("ANDROID_USER_HOME"), keyFolder_);
    return environment;
}

void AdbServer::connect(const QString& address) const {
    command({QStringLiteral("connect"), address});
}

void AdbServer::disconnect(const QString& address) const {
    command({QStringLiteral("disconnect"), address});
}

void AdbServer::command(const QStringList& arguments) const {
    (void)QtProcessRunner(environment()).run(adb_, arguments, commandPatience);
}

} // namespace tessary
