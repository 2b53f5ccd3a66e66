#pragma once

#include "base/local/FileHandle.h"
#include "simulator/adbd/ADBDHooks.h"
#include "simulator/adbd/ADBDKeys.h"
#include "simulator/adbd/ADBDSettings.h"
#include "simulator/wire/Guarded.h"

#include <QByteArray>

#include <atomic>
#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace tessary {

class ADBDConnection;

/// What the parts of a virtual adbd share. Thread-safe.
struct ADBDState {
    ADBDConfig config;
    std::unique_ptr<ADBDHooks> hooks;
    Guarded<ADBDKeys> keys;
    std::atomic<int> battery = 80;
    std::atomic<bool> allowsUnknownKeys = true;
};

/// The debugging daemon of a virtual Android phone, on a TCP port of this machine that the real
/// `adb connect` accepts. Serves one folder as /sdcard and /storage/emulated/0 through the shell
/// and sync services, and runs no program of this machine. Thread-safe.
class VirtualADBD {
public:
    explicit VirtualADBD(ADBDConfig config);
    /// stop().
    virtual ~VirtualADBD();
    VirtualADBD(const VirtualADBD&) = delete;
    VirtualADBD& operator=(const VirtualADBD&) = delete;

    /// Listens on the loopback address; at the port that it had before when it was stopped, else
    /// at a free one. Throws std::runtime_error when there is none.
    void start();
    /// Cuts every connection and waits for its thread.
    void stop();
    /// Cuts every connection, as a cable does that is pulled and put in again.
    void cut();

    /// Serves a host at the other end of a connected socket, besides those that connect.
    void serve(FileHandle socket);

    /// 0 before the first start().
    [[nodiscard]] std::uint16_t port() const {
        return port_;
    }
    /// What `adb connect` takes, and how adb calls the phone then.
    [[nodiscard]] QString address() const;

    void setBattery(int percent) {
        state_->battery = percent;
    }
    /// Whether the person with the phone allows computers that it does not know; those that wait
    /// for an answer are let in at once.
    void setAllowsUnknownKeys(bool allows) {
        state_->allowsUnknownKeys = allows;
    }

protected:
    /// A daemon in whose work something may step in.
    VirtualADBD(ADBDConfig config, std::unique_ptr<ADBDHooks> hooks);
    [[nodiscard]] ADBDHooks& hooks() {
        return *state_->hooks;
    }

private:
    struct Served {
        std::shared_ptr<ADBDConnection> connection;
        std::jthread thread;
    };

    void accept(const std::stop_token& stop);

    const std::shared_ptr<ADBDState> state_;
    std::atomic<std::uint16_t> port_ = 0;
    std::mutex mutex_; ///< guards all below
    FileHandle listener_;
    std::list<Served> served_;
    std::jthread thread_;
};

} // namespace tessary
