#pragma once

#include <QProcessEnvironment>
#include <QString>

#include <cstdint>
#include <thread>

namespace tessary {

/// An adb server of this program's own: on a free port of the loopback address, with a key folder
/// of its own, and ended with this object or the program, whichever goes first.
class AdbServer {
public:
    /// Starts it and waits until it answers; std::runtime_error when it does not. `adb` is the
    /// executable, `keyFolder` takes the place of the home folder for it.
    AdbServer(QString adb, QString keyFolder);
    ~AdbServer();
    AdbServer(const AdbServer&) = delete;
    AdbServer& operator=(const AdbServer&) = delete;

    /// What makes an adb command talk to this server.
    [[nodiscard]] QProcessEnvironment environment() const;
    [[nodiscard]] std::uint16_t port() const {
        return port_;
    }

    /// Runs `adb connect`, for a few seconds at most. Whether the phone is there afterwards is for
    /// `adb devices` to tell.
    void connect(const QString& address) const;
    void disconnect(const QString& address) const;

private:
    void command(const QStringList& arguments) const;

    const QString adb_;
    const QString keyFolder_;
    const std::uint16_t port_;
    std::jthread thread_;
};

} // namespace tessary
