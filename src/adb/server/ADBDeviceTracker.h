#pragma once

#include "adb/server/ADBDevices.h"
#include "adb/server/ADBServerClient.h"

#include <QHash>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace tessary {

/// The phones that the adb server knows, as it tells of them: a thread waits on its socket, and
/// nothing is asked again and again. A server that is not there is looked for when wake() says so,
/// and seldom by itself. Starts no server. Thread-safe.
class ADBDeviceTracker {
public:
    /// How long a server that went may take to come back before its phones count as gone.
    static constexpr std::chrono::milliseconds restartPatience{3000};
    /// How long the first call of devices() waits for the first answer.
    static constexpr std::chrono::milliseconds firstAnswerPatience{1500};

    /// `changed` is called on the tracker's thread when devices() has another answer.
    explicit ADBDeviceTracker(std::shared_ptr<const ADBServerClient> server,
                              std::function<void()> changed = {});
    ~ADBDeviceTracker();
    ADBDeviceTracker(const ADBDeviceTracker&) = delete;
    ADBDeviceTracker& operator=(const ADBDeviceTracker&) = delete;

    /// The last answer; starts the thread at the first call.
    [[nodiscard]] std::vector<ADBDevice> devices();
    /// Whether a server answers.
    [[nodiscard]] bool hasServer() const;
    /// A server may be there now, or may have kept silent about a phone that is lost: an old one
    /// does for phones on the network.
    void wake();

private:
    void run(const std::stop_token& stop);
    [[nodiscard]] bool follow(const std::stop_token& stop);
    void publish(std::vector<ADBDevice> devices, bool hasServer);
    void pause(std::chrono::milliseconds time, const std::stop_token& stop);
    [[nodiscard]] QString phoneSerialOf(const ADBDevice& device, const std::stop_token& stop);

    const std::shared_ptr<const ADBServerClient> server_;
    const std::function<void()> changed_;
    QHash<QString, QString> phoneSerials_; ///< by serial and transport; of the thread
    mutable std::mutex mutex_;             ///< guards all below
    std::condition_variable_any awake_;
    std::vector<ADBDevice> devices_;
    bool hasAnswered_ = false;
    bool hasServer_ = false;
    bool isWoken_ = false;
    std::stop_source wake_; ///< of what the thread waits for
    std::jthread thread_;   ///< from the first devices() on
};

} // namespace tessary
