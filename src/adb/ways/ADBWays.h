#pragma once

#include "adb/protocol/ADBHostKey.h"
#include "adb/server/ADBDeviceTracker.h"
#include "adb/server/ADBServerClient.h"
#include "adb/services/ADBStream.h"
#include "base/threads/StoppableMutex.h"
#include "phone/records/PhoneIdentity.h"
#include "platform/process/ProcessRunner.h"
#include "platform/usb/USBBus.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tessary {

/// All ways of this machine to the adbd of phones: by the adb server where one runs or can be
/// started, else straight to the phone, over the network or the cable, with our own key. A server
/// is started only when a phone with an adb interface is plugged in or one is to be used by adb,
/// and never in place of one that runs. Thread-safe and blocking. Failures are Error(ADBError);
/// CancellationError.
class ADBWays {
public:
    struct Setup {
        USBBus& bus;                                      ///< outlives it
        ProcessRunner& processes;                         ///< outlives it
        ADBServerAddress server = ADBServerAddress::of(); ///< that is used
        std::optional<QStringList> adbPaths{};            ///< instead of the usual places
        std::shared_ptr<ADBHostKey> keys{};               ///< null: this computer's
        std::function<void()> changed{};                  ///< devices() has another answer
    };

    explicit ADBWays(Setup setup);
    ~ADBWays();
    ADBWays(const ADBWays&) = delete;
    ADBWays& operator=(const ADBWays&) = delete;

    /// The phones that the server knows, and those that connect() has reached without one, until a
    /// link to them fails. Answers from memory but for the first call.
    [[nodiscard]] std::vector<ADBDevice> devices();
    /// Something was plugged in, or the user asks: looks whether a server should run.
    void lookAgain(const std::stop_token& stop);

    /// The way to a phone, chosen anew whenever a link is made.
    [[nodiscard]] std::shared_ptr<ADBConnection> connectionTo(const PhoneIdentity& phone);
    /// Whether a phone can be reached at all: with an adb tool or server here, or straight. Reads
    /// the bus at the first call, unless lookAgain() has.
    [[nodiscard]] bool canReach(const PhoneIdentity& phone);

    /// Whether connect() could take this.
    [[nodiscard]] static bool isAddress(const QString& text);
    /// Reaches a phone on the network, at "host:port" with the host in figures.
    void connect(const QString& address, const std::stop_token& stop);
    /// Makes a phone and the adb server known to each other, by the code that the phone shows.
    /// ADBError::cannotPair when this machine's adb is too old for it, ::noADB without one.
    void pair(const QString& address, const QString& code, const std::stop_token& stop);

private:
    friend class ADBChosenConnection;

    [[nodiscard]] QStringList findPlaces();
    [[nodiscard]] bool ensureServer(const std::stop_token& stop);
    bool startServer(const std::stop_token& stop);
    [[nodiscard]] std::shared_ptr<ADBConnection> byServer(const PhoneIdentity& phone);
    [[nodiscard]] std::shared_ptr<ADBConnection> straightTo(const PhoneIdentity& phone);
    [[nodiscard]] std::optional<QString> addressOf(const PhoneIdentity& phone) const;
    [[nodiscard]] bool isStraight(const QString& address) const;
    void forget(const QString& address);

    const Setup setup_;
    const std::shared_ptr<const ADBServerClient> server_;
    const std::shared_ptr<ADBHostKey> keys_;
    ADBDeviceTracker tracker_;
    StoppableMutex startMutex_; ///< one start of a server at a time
    mutable std::mutex mutex_;
    std::vector<ADBDevice> straight_;   ///< reached without a server; guarded by mutex_
    std::optional<QStringList> places_; ///< with adb, as of the last look; guarded by mutex_
};

} // namespace tessary
