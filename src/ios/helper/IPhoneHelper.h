#pragma once

#include "ios/helper/HelperMessages.h"
#include "platform/process/ChildChannel.h"
#include "platform/process/SharedMemory.h"

#include <QIODevice>
#include <QString>

#include <atomic>
#include <chrono>
#include <memory>
#include <stop_token>

namespace tessary {

struct IPhoneHelperLimits {
    QString program = installedHelper(QStringLiteral("tessary-iphone"));
    /// Above the library's own patience with a phone.
    std::chrono::milliseconds patience{40'000};
    qint64 longestAnswer = qint64{32} << 20; ///< bytes
};

/// The program that speaks to one iPhone, in a sandbox of its own: whatever the phone sends is
/// parsed there, and never here. One caller at a time, but for end().
class IPhoneHelper {
public:
    using Limits = IPhoneHelperLimits;

    /// Starts it; it does nothing yet. PhoneError::notReachable when it cannot be started.
    explicit IPhoneHelper(const QString& udid, Limits limits = {});

    /// Asks for something and returns the result. Throws the error that comes back instead, and
    /// PhoneError::nonsense for what is no such result. CancellationError at once when `stop` asks:
    /// the helper is ended then. It is also ended when it is silent (PhoneError::noAnswer), when it
    /// has died, says too much or makes no sense (PhoneError::nonsense over IPhoneError::helper).
    template <typename Result>
    [[nodiscard]] Result askFor(HelperOperation operation, const QByteArray& arguments = {},
                                const std::stop_token& stop = {}) {
        QDataStream answer(ask(operation, arguments, stop));
        Result result{};
        answer >> result;
        requireSense(answer.status() == QDataStream::Ok);
        return result;
    }
    /// Ends it and throws PhoneError::nonsense unless `makesSense`.
    void requireSense(bool makesSense);

    /// Ends it; who waits for an answer is let go. Thread-safe.
    void end() {
        isLost_ = true;
        channel_->kill();
    }
    /// Whether it cannot be asked anything more about the connection that it has open. Thread-safe.
    [[nodiscard]] bool isLost() const {
        return isLost_;
    }
    /// Where content is read to and written from, contentMemory bytes; it stays as long as somebody
    /// has this. The helper may write to it at any time.
    [[nodiscard]] const std::shared_ptr<std::byte>& content() const {
        return memory_.bytes();
    }
    [[nodiscard]] pid_t processId() const {
        return channel_->processId();
    }

private:
    [[nodiscard]] QByteArray ask(HelperOperation operation, const QByteArray& arguments,
                                 const std::stop_token& stop);
    [[noreturn]] void fail(ChildChannel::Outcome outcome);

    const Limits limits_;
    SharedMemory memory_;
    std::unique_ptr<ChildChannel> channel_;
    std::atomic<bool> isLost_ = false;
};

/// Arguments of a request.
template <typename... Values>
[[nodiscard]] QByteArray helperArguments(const Values&... values) {
    QByteArray bytes;
    [[maybe_unused]] QDataStream stream(&bytes, QIODevice::WriteOnly);
    ((stream << values), ...);
    return bytes;
}

/// What an iPhone tells of itself, by a helper of its own. Errors as lockdown's.
[[nodiscard]] IPhoneFacts askIPhoneFacts(const QString& udid, const std::stop_token& stop,
                                         const IPhoneHelper::Limits& limits = {});
/// The user's apps that share files, by display name, in the same way.
[[nodiscard]] std::vector<AppInfo> askIPhoneApps(const QString& udid, const std::stop_token& stop,
                                                 const IPhoneHelper::Limits& limits = {});

} // namespace tessary
