#include "adb/server/ADBDeviceTracker.h"

#include "adb/protocol/ADBError.h"
#include "adb/server/ADBServerConnection.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/threads/ThreadName.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// Between two attempts to find a server that has just gone.
constexpr auto restartStep = 200ms;
/// A server that told its list and ended sooner is none to rely on.
constexpr auto shortLife = 1s;
/// Between two attempts to find one that nobody has spoken of.
constexpr std::chrono::milliseconds shortestPause = 5s;
constexpr std::chrono::milliseconds longestPause = 60s;
/// A server says nothing while nothing changes.
constexpr auto silence = 12h;

} // namespace

ADBDeviceTracker::ADBDeviceTracker(std::shared_ptr<const ADBServerClient> server,
                                   std::function<void()> changed)
    : server_(std::move(server)), changed_(std::move(changed)) {}

ADBDeviceTracker::~ADBDeviceTracker() = default;

std::vector<ADBDevice> ADBDeviceTracker::devices() {
    std::unique_lock lock(mutex_);
    if (!thread_.joinable())
        thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
    awake_.wait_for(lock, firstAnswerPatience, [this] { return hasAnswered_; });
    hasAnswered_ = true; // who has waited once does not wait again
    return devices_;
}

bool ADBDeviceTracker::hasServer() const {
    const std::scoped_lock lock(mutex_);
    return hasServer_;
}

void ADBDeviceTracker::wake() {
    const std::scoped_lock lock(mutex_);
    isWoken_ = true;
    wake_.request_stop();
    awake_.notify_all();
}

void ADBDeviceTracker::publish(std::vector<ADBDevice> devices, bool hasServer) {
    {
        const std::scoped_lock lock(mutex_);
        hasServer_ = hasServer;
        const bool isNew = std::exchange(devices_, devices) != devices;
        const bool isFirst = !std::exchange(hasAnswered_, true);
        awake_.notify_all();
        if (!isNew && !isFirst)
            return;
    }
    if (changed_)
        changed_();
}

void ADBDeviceTracker::pause(std::chrono::milliseconds time, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    awake_.wait_for(lock, stop, time, [this] { return isWoken_; });
    isWoken_ = false;
}

void ADBDeviceTracker::run(const std::stop_token& stop) {
    nameCurrentThread("adb-track");
    auto next = shortestPause;
    auto lost = std::chrono::steady_clock::time_point();
    while (!stop.stop_requested()) {
        const auto begun = std::chrono::steady_clock::now();
        if (follow(stop)) {
            lost = std::chrono::steady_clock::now();
            if (lost - begun >= shortLife) {
                next = shortestPause;
                continue; // to the whole list anew
            }
            pause(next, stop); // not again and again with a server that ends at once
            next = std::min(2 * next, longestPause);
            continue;
        }
        if (std::chrono::steady_clock::now() < lost + restartPatience) {
            pause(restartStep, stop);
            continue;
        }
        publish({}, false);
        pause(next, stop);
        next = std::min(2 * next, longestPause);
    }
}

/// Takes what the server tells until it goes, or until wake(). False when none was there.
bool ADBDeviceTracker::follow(const std::stop_token& stop) {
    const std::stop_token woken = [this] {
        const std::scoped_lock lock(mutex_);
        isWoken_ = false;
        wake_ = std::stop_source();
        return wake_.get_token();
    }();
    const CombinedStopToken either(stop, woken);
    const Wait wait{either.token(), silence};
    bool wasThere = false;
    try {
        std::unique_ptr<ADBStream> stream;
        const Wait soon{wait.stop, ADBServerClient::patience};
        try {
            stream = server_->open({"host:track-devices-l"}, soon);
        } catch (const Error& error) {
            if (!error.is(ADBError::refused))
                throw;
            stream = server_->open({"host:track-devices"}, soon);
        }
        for (;;) {
            std::vector<ADBDevice> found = parseADBDevices(takeADBText(*stream, wait));
            wasThere = true;
            for (ADBDevice& device : found)
                if (device.isReady() && device.isNetwork())
                    device.phoneSerial = phoneSerialOf(device, wait.stop);
            publish(std::move(found), true);
        }
    } catch (const Error&) {
        return wasThere; // it went, or speaks of nothing
    } catch (const CancellationError&) {
        return true;
    }
}

/// Empty for now when `stop` comes first: what is known is told even so.
QString ADBDeviceTracker::phoneSerialOf(const ADBDevice& device, const std::stop_token& stop) {
    constexpr qsizetype remembered = 256;
    const QString key = device.serial + QLatin1Char('\n') + device.transportId;
    if (const auto known = phoneSerials_.constFind(key); known != phoneSerials_.cend())
        return *known;
    try {
        const auto serial = ADBServerConnection::ownSerialOf(device.serial, server_, stop);
        if (!serial)
            return {}; // asked again next time
        if (phoneSerials_.size() >= remembered)
            phoneSerials_.clear();
        phoneSerials_.insert(key, *serial);
        return *serial;
    } catch (const CancellationError&) {
        return {};
    }
}

} // namespace tessary
