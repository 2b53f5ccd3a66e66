#pragma once

#include <QHash>
#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>

namespace tessary {

/// When phones that do not know this computer may be asked to trust it. Each question puts a dialog
/// on the phone and costs a pair of keys: a phone is asked once an attachment, and, for
/// multiplexers that do not tell when the dialog was answered, again after pauses that grow.
/// Thread-safe.
class PairingQuestions {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds firstPause{10};
    static constexpr std::chrono::seconds longestPause{60};
    static constexpr std::chrono::seconds lockedPause{2}; ///< nobody tells that it was unlocked

    /// The one of this process.
    [[nodiscard]] static PairingQuestions& shared();

    /// Whether a phone may be asked now; who is told so asks, and says what came of it. Otherwise
    /// the status that the phone refused with before.
    [[nodiscard]] std::optional<std::int32_t> refusalOf(const QString& udid,
                                                        std::uint32_t attachment,
                                                        Clock::time_point now = Clock::now()) const;
    void refused(const QString& udid, std::uint32_t attachment, std::int32_t status,
                 Clock::time_point now = Clock::now());
    /// The phone has been paired, or needs no question.
    void forget(const QString& udid);

private:
    struct Question {
        std::uint32_t attachment = 0;
        std::int32_t status = 0;
        std::chrono::seconds pause{0};
        Clock::time_point next; ///< not to be asked before
    };

    mutable std::mutex mutex_;
    QHash<QString, Question> questions_; ///< by udid; guarded by mutex_
};

/// Runs `work`, which performs a handshake with a phone elsewhere, unless that would ask a phone
/// that may not be asked now: then what it refused with before is thrown again. Takes note of what
/// comes of a question. Errors as Lockdown's.
void askingForTrust(const QString& udid, const std::function<void()>& work);

} // namespace tessary
