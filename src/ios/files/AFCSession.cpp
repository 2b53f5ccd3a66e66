#include "ios/files/AFCSession.h"

#include "base/log/DiagnosticsLogger.h"
#include "ios/Multiplexer.h"
#include "ios/PairingQuestions.h"

#include <thread>

namespace tessary {

AFCSession::AFCSession(const QString& udid, const QString& bundleId, SerialQueue::Patience patience,
                       IPhoneHelper::Limits limits)
    : queue_("com.tessary.afc", patience),
      slot_(std::make_shared<Slot>(udid, bundleId, std::move(limits))) {}

AFCSession::~AFCSession() {
    close();
}

void AFCSession::abandon(const Unfinished& unfinished) {
    queue_.post([slot = slot_, unfinished] {
        Opened& opened = slot->opened;
        opened.file.reset();
        if (!unfinished || unfinished->isEmpty() || !slot->isUsable())
            return;
        try {
            opened.link->removePath(*unfinished);
        } catch (const Error&) {
            // A later visit removes it.
        }
    });
}

std::shared_ptr<const std::atomic<bool>> AFCSession::openSoon(const std::stop_token& stop) {
    endWhatWasLeft(stop);
    auto isOpen = std::make_shared<std::atomic<bool>>(false);
    queue_.post([slot = slot_, isOpen, stop] {
        try {
            if (!slot->isUsable())
                slot->open(stop);
            *isOpen = true;
        } catch (const std::exception& error) {
            DiagnosticsLogger::shared().afc.error("No second connection: %s",
                                                  {QString::fromUtf8(error.what())});
        }
    });
    return isOpen;
}

void AFCSession::close() {
    queue_.post([slot = slot_] { slot->close(); });
}

void AFCSession::endWhatWasLeft(const std::stop_token& stop) {
    constexpr auto moment = std::chrono::seconds(2);
    constexpr auto step = std::chrono::milliseconds(10);
    if (!leftAt_)
        return;
    while (!queue_.isIdle()) {
        if (std::chrono::steady_clock::now() - *leftAt_ >= moment) {
            slot_->giveUp();
            break;
        }
        throwIfStopped(stop);
        std::this_thread::sleep_for(step);
    }
    leftAt_.reset();
}

IPhoneFacts AFCSession::facts(const std::stop_token& stop) {
    endWhatWasLeft(stop);
    return waitFor(queue_.start([slot = slot_, stop] {
        return slot->isUsable() ? slot->opened.link->facts()
                                : askIPhoneFacts(slot->udid, stop, slot->limits);
    }),
                   stop);
}

bool AFCSession::Slot::isUsable() const {
    return opened.link && !opened.link->isLost();
}

void AFCSession::Slot::giveUp() {
    const std::scoped_lock lock(mutex);
    if (const auto link = current.lock())
        link->end();
}

void AFCSession::Slot::open(const std::stop_token& stop) {
    close();                 // the old one ends before the new one begins
    if (!attachmentOf(udid)) // to find that out a helper takes a hundred times as long
        throw Error(PhoneError::notConnected);
    askingForTrust(udid,
                   [&] { opened.link = std::make_shared<AFCLink>(udid, bundleId, limits, stop); });
    const std::scoped_lock lock(mutex);
    current = opened.link;
}

bool AFCSession::Slot::mayTryAgain(bool wasOpen) const {
    return wasOpen && opened.link->isLost() && !opened.link->hasTouched() &&
           attachmentOf(udid).has_value();
}

void AFCSession::Slot::close() {
    opened.file.reset();
    opened.link.reset();
    opened.finished.reset();
    opened.finishedBefore.reset();
}

} // namespace tessary
