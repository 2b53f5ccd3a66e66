#pragma once

#include "platform/desktop/Notifier.h"
#include "transfer/queue/CopyQueue.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

namespace tessary {

/// Tells the user over the desktop that the queue of transfers has come to its end, when it took
/// long and the window is not in front. What he cancelled himself is not told. Main thread.
class TransferNotice : public QObject {
    Q_OBJECT

public:
    using Clock = std::chrono::steady_clock;

    /// A queue that takes less is not worth a message.
    static constexpr std::chrono::seconds longQueue{10};

    struct Setup {
        std::shared_ptr<Notifier> notifier;
        std::function<bool()> isWindowActive;
        std::function<void()> showWindow; ///< for who clicks the message
        std::function<Clock::time_point()> now = [] { return Clock::now(); };
    };

    /// `queue` must outlive it.
    TransferNotice(CopyQueue& queue, Setup setup);

private:
    void follow();
    void count(const QUuid& jobId);
    void tell() const;

    CopyQueue& queue_;
    const Setup setup_;
    // Since the queue was last empty:
    bool isRunning_ = false;
    Clock::time_point began_;
    int copied_ = 0;
    int failed_ = 0;
    QString lastName_; ///< of what was copied, or was not, last
};

} // namespace tessary
