#pragma once

#include <QProcessEnvironment>
#include <QString>

#include <cstdint>
#include <stop_token>
#include <thread>

namespace tessary {

/// An adb server of this program's own: on a free port of the loopback address, with a key folder
/// of its own, blind to the phones on this machine's USB, and ended with this object or the
/// program, whichever goes first. Thread-safe after start().
class ADBServer {
public:
    /// Chooses the port, and starts nothing; std::runtime_error when there is none. `keyFolder`
    /// takes the place of the home folder for adb.
    explicit ADBServer(QString keyFolder);
    ~ADBServer();
    ADBServer(const ADBServer&) = delete;
    ADBServer& operator=(const ADBServer&) = delete;

    /// Starts it with this executable and returns at once. To be called once.
    void start(QString adb);
    /// Waits until it answers; std::runtime_error when it does not within some seconds, or when it
    /// is asked to stop.
    void awaitStart(const std::stop_token& stop = {}) const;

    /// What makes an adb command talk to this server and to no other, whatever else the environment
    /// says; also before it is started. Such a command starts no server itself.
    [[nodiscard]] QProcessEnvironment environment() const;
    [[nodiscard]] std::uint16_t port() const {
        return port_;
    }

    /// Runs `adb connect`, for a few seconds at most. Whether the phone is there afterwards is for
    /// `adb devices` to tell.
    void connect(const QString& address, const std::stop_token& stop = {}) const;
    void disconnect(const QString& address) const;
    /// Waits, for a few seconds at most, until commands reach the phone; false when they do not.
    [[nodiscard]] bool awaitPhone(const QString& address, const std::stop_token& stop = {}) const;

private:
    bool command(const QStringList& arguments, const std::stop_token& stop) const;

    const QString keyFolder_;
    const std::uint16_t port_;
    QString adb_;
    std::jthread thread_;
};

} // namespace tessary
