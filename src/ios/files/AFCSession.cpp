#include "ios/files/AFCSession.h"

namespace tessary {

AFCSession::AFCSession(const QString& udid, const QString& bundleId, SerialQueue::Patience patience)
    : queue_("com.tessary.afc", patience),
      slot_(std::make_shared<Slot>(udid, bundleId, queue_.pulse())) {}

AFCSession::~AFCSession() {
    close();
}

void AFCSession::abandon() {
    queue_.post([slot = slot_] {
        Opened& opened = slot->opened;
        opened.file.reset();
        const QString made = std::exchange(opened.made, QString());
        if (made.isEmpty() || !slot->isUsable())
            return;
        try {
            opened.connection->removePath(made);
        } catch (const Error&) {
            // A later visit removes it.
        }
    });
}

void AFCSession::close() {
    queue_.post([slot = slot_] { slot->close(); });
}

bool AFCSession::Slot::isUsable() {
    if (isStuck.exchange(false) && opened.connection)
        opened.connection->markLost();
    return opened.connection && !opened.connection->isLost();
}

void AFCSession::Slot::open(const std::stop_token& stop) {
    close(); // the old one ends before the new one begins
    opened.connection =
        std::make_shared<AFCConnection>(std::make_unique<Lockdown>(udid, stop), bundleId, beat);
}

bool AFCSession::Slot::mayTryAgain(bool wasOpen) const {
    return wasOpen && opened.connection->isLost() && !opened.connection->hasTouched() &&
           opened.connection->lockdown().isAttached();
}

void AFCSession::Slot::close() {
    opened.file.reset();
    opened.connection.reset();
    opened.made.clear();
}

} // namespace tessary
