#include "adb/direct/ADBDirectConnection.h"

#include "adb/protocol/ADBError.h"

namespace tessary {

ADBDirectConnection::ADBDirectConnection(Connect connect, std::shared_ptr<ADBHostKey> keys,
                                         std::function<QStringList()> programsHolding,
                                         std::chrono::milliseconds trustPatience)
    : connect_(std::move(connect)),
      keys_(std::move(keys)),
      programsHolding_(std::move(programsHolding)),
      trustPatience_(trustPatience) {}

std::shared_ptr<ADBLink> ADBDirectConnection::link(const Wait& wait, bool& isNew) {
    std::shared_ptr<ADBLink> link;
    {
        const auto lock = mutex_.hold(wait.stop);
        isNew = !link_ || link_->isLost();
        if (isNew) {
            link_.reset(); // lets go of the phone first
            link_ = std::make_shared<ADBLink>(connect_(wait), keys_);
        }
        link = link_;
    }
    link->awaitReady(wait, trustPatience_);
    return link;
}

std::unique_ptr<ADBStream> ADBDirectConnection::open(const QByteArray& service, const Wait& wait) {
    bool isNew = false;
    try {
        return link(wait, isNew)->open(service, wait);
    } catch (const Error& error) {
        // A link from before may have died unnoticed.
        if (isNew || !error.is(ADBError::brokenOff))
            throw;
    }
    return link(wait, isNew)->open(service, wait);
}

QByteArrayList ADBDirectConnection::features(const Wait& wait) {
    bool isNew = false;
    return link(wait, isNew)->features();
}

QStringList ADBDirectConnection::programsHolding() {
    return programsHolding_ ? programsHolding_() : QStringList();
}

void ADBDirectConnection::release() {
    std::shared_ptr<ADBLink> ended; // outside of the lock
    // Who makes a link right now needs it.
    const auto lock = mutex_.tryToHold();
    if (lock && link_ && link_->isIdle())
        ended = std::move(link_);
}

} // namespace tessary
