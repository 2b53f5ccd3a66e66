#pragma once

#include "base/threads/CancellationError.h"
#include "base/threads/SerialQueue.h"
#include "ios/helper/AFCLink.h"
#include "phone/PhoneError.h"
#include "phone/records/FileItem.h"

#include <QString>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>

namespace tessary {

/// The one connection that a file system of an iPhone works with: opened when it is first needed,
/// and anew after it has failed. It is spoken to on a thread of its own ("com.tessary.afc"), where
/// all its requests are made: work that is given must own all that it uses, since a caller who is
/// told to stop is let go within a second while the library goes on. Used by one caller at a time.
class AFCSession {
public:
    /// What work finds on the session's thread.
    struct Opened {
        std::shared_ptr<AFCLink> link;     ///< not null within work
        std::unique_ptr<AFCLinkFile> file; ///< that is being read or written
        /// The file that was finished by this action, and by the one before it: nobody needs to
        /// look at it again.
        std::optional<FileItem> finished;
        std::optional<FileItem> finishedBefore;
    };

    /// Opens nothing yet. An empty `bundleId` means the media folder.
    AFCSession(const QString& udid, const QString& bundleId, SerialQueue::Patience patience,
               IPhoneHelper::Limits limits = {});
    /// Closes the connection; waits for it for a second at most.
    ~AFCSession();
    AFCSession(const AFCSession&) = delete;
    AFCSession& operator=(const AFCSession&) = delete;

    /// Runs `work(Opened&)`, which is the beginning of an action, and returns or throws what it
    /// does. When a connection from an earlier action turns out to be dead before anything was
    /// changed on the phone, once more on a new one. CancellationError when `stop` asks;
    /// PhoneError::noAnswer when the phone is silent.
    template <typename Work>
    auto begin(Work work, const std::stop_token& stop) {
        throwIfStopped(stop);
        endWhatWasLeft(stop);
        return waitFor(queue_.start([slot = slot_, work = std::move(work), stop]() mutable {
            return slot->begin(work, stop);
        }),
                       stop);
    }

    /// The same for a later step of an action, on the connection that it was begun on.
    template <typename Work>
    auto step(Work work, const std::stop_token& stop) {
        throwIfStopped(stop);
        return waitFor(start(std::move(work)), stop);
    }

    /// A step that is waited for later, with waitFor().
    template <typename Work>
    auto start(Work work) {
        return queue_.start(
            [slot = slot_, work = std::move(work)]() mutable { return slot->goOn(work); });
    }
    template <typename T>
    T waitFor(SerialQueue::Started<T> started, const std::stop_token& stop) {
        try {
            return started.get(stop);
        } catch (const QueueStalled&) {
            slot_->giveUp();
            throw Error(PhoneError::noAnswer);
        } catch (const LeftBehind&) {
            leftAt_ = std::chrono::steady_clock::now();
            throw;
        }
    }

    /// What an action has made and not finished: the device's path of it, empty when there is
    /// nothing. Touched by work only.
    using Unfinished = std::shared_ptr<QString>;
    /// Ends the action that is under way: closes its file, and removes what is unfinished, while
    /// the link lasts. Comes after all steps; nobody waits for it.
    void abandon(const Unfinished& unfinished = {});
    /// Opens a connection where there is none, in its turn; nobody waits for it. Becomes true once
    /// there is one, and never when it fails.
    [[nodiscard]] std::shared_ptr<const std::atomic<bool>> openSoon(const std::stop_token& stop);
    /// Closes the connection, in its turn; nobody waits for it.
    void close();

    /// What the phone tells of itself, over the connection that is open or one of its own.
    [[nodiscard]] IPhoneFacts facts(const std::stop_token& stop);

private:
    /// Touched on the session's thread only, but for `current`.
    struct Slot {
        Slot(QString phone, QString app, IPhoneHelper::Limits given)
            : udid(std::move(phone)), bundleId(std::move(app)), limits(std::move(given)) {}

        const QString udid;
        const QString bundleId;
        const IPhoneHelper::Limits limits;
        Opened opened;
        std::mutex mutex;
        std::weak_ptr<AFCLink> current; ///< what is open; guarded by mutex

        [[nodiscard]] bool isUsable() const;
        /// Ends what is open, from another thread than the session's, which may be stuck in it.
        void giveUp();
        void open(const std::stop_token& stop);
        /// After a failure: whether the action may be tried once more.
        [[nodiscard]] bool mayTryAgain(bool wasOpen) const;
        void close();

        template <typename Work>
        auto begin(Work& work, const std::stop_token& stop) {
            const bool wasOpen = isUsable();
            if (!wasOpen)
                open(stop);
            opened.finishedBefore = std::exchange(opened.finished, std::nullopt);
            opened.link->beginAction();
            try {
                return work(opened);
            } catch (const Error&) {
                if (!mayTryAgain(wasOpen))
                    throw;
            }
            open(stop);
            return work(opened);
        }
        template <typename Work>
        auto goOn(Work& work) {
            if (!isUsable())
                throw Error(PhoneError::brokenOff);
            return work(opened);
        }
    };

    /// Who stopped waiting for a phone has left a request behind: it gets a moment more, for its
    /// file to be closed and removed. Then it is ended, with the connection: who comes next does
    /// not wait for a mute phone.
    void endWhatWasLeft(const std::stop_token& stop);

    SerialQueue queue_;
    std::optional<std::chrono::steady_clock::time_point> leftAt_;
    std::shared_ptr<Slot> slot_; ///< shared with work that outlives its caller
};

} // namespace tessary
