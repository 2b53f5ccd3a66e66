#include "mtp/files/MTPConnection.h"

#include "base/threads/CancellationError.h"
#include "mtp/objects/MTPFailures.h"

#include <QStringList>

namespace tessary {

MTPConnection::MTPConnection(USBBus& bus, const PhoneIdentity& phone,
                             std::shared_ptr<PhoneQueue> queue, MTPPatience patience)
    : bus_(bus),
      address_{phone.vendorId, phone.productId, phone.serialNumber, phone.usbLocation},
      queue_(std::move(queue)),
      patience_(patience) {}

/// Waits for whoever has a turn, and closes the session.
MTPConnection::~MTPConnection() {
    queue_->forget(this);
}

PhoneQueue::Turn MTPConnection::takeTurn(const Call& call) {
    PhoneQueue::Turn turn = queue_->take(call);
    throwIfStopped(call.stop);
    return turn;
}

void MTPConnection::close(const Call& call) {
    const PhoneQueue::Turn turn = queue_->take(call);
    closeSession();
}

MTPTree& MTPConnection::ready(const std::stop_token& stop, Start& start) {
    if (tree_ && detached_ == attachment_)
        closeSession();
    start.isReused = tree_ != nullptr;
    if (!tree_)
        openSession(stop);
    start.proceeded = tree_->client().proceeded();
    tree_->client().setStop(stop);
    if (const std::uint64_t edits = queue_->edits(); edits != edits_) {
        tree_->doubt();
        edits_ = edits;
    }
    if (tree_->heedEvents())
        noteEdit();
    return *tree_;
}

void MTPConnection::failed(const MTPFailure& failure, const QString& path, const Start& start) {
    // The cable may have been out and in again since the last call: nothing is done yet then.
    const bool isStale =
        start.isReused && failure.isDeviceGone() && tree_->client().proceeded() == start.proceeded;
    Error error = translated(failure, path);
    // One object that cannot be had does not end a copy; two in a row are the phone's fault.
    const bool isOne = tree_ && isBrokenData(failure) && ++brokenInRow_ < 2;
    if (isOne)
        error = Error(PhoneError::refused, {path}, *error.cause());
    else if (endsSession(failure))
        closeSession();
    if (!isStale)
        throw error;
}

void MTPConnection::failed(const Error& error) {
    // Some phones show their storages to a new session only.
    if (error.is(PhoneError::noStorage))
        closeSession();
}

void MTPConnection::openSession(const std::stop_token& stop) {
    // Not before: the kernel may make whoever looks at the bus wait for a device.
    if (!watch_)
        watch_ = bus_.watch([this](const USBEvent& event) {
            if (event.kind == USBEvent::Kind::detached)
                detached_ = event.entry.id;
        });
    const auto entry = findMTPDevice(bus_, address_);
    if (const std::uint64_t id = entry ? entry->id : 0; id != attachment_) {
        attachment_ = id;
        deviceInfo_.reset();
        partialReads_.reset();
    }
    tree_ = std::make_unique<MTPTree>(bus_, address_, memory_, patience_, stop);
    queue_->closeWhenIdle(this, [this] { closeSession(); });
    if (!deviceInfo_)
        memory_.listsProperties = deviceInfo().announces(MTPOperationCode::getObjectPropList);
}

Error MTPConnection::translated(const MTPFailure& failure, const QString& path) {
    const Error error = phoneErrorOf(failure, path);
    if (error.is(PhoneError::held))
        return {PhoneError::held, {programsHolding().join(QStringLiteral(", "))}, *error.cause()};
    // After a pulled cable some calls fail with codes of no meaning.
    if (error.is(PhoneError::brokenOff)) {
        const auto entry = findMTPDevice(bus_, address_);
        if (!entry || entry->id != attachment_)
            return {PhoneError::unplugged, {path}, *error.cause()};
    }
    return error;
}

const MTPDeviceInfo& MTPConnection::deviceInfo() {
    if (!deviceInfo_)
        deviceInfo_ = tree_->client().getDeviceInfo();
    return *deviceInfo_;
}

MTPPartialReads& MTPConnection::partialReads() {
    if (!partialReads_) {
        const MTPDeviceInfo& device = deviceInfo();
        partialReads_ =
            device.announces(MTPOperationCode::androidGetPartialObject64) ? MTPPartialReads::wide
            : device.announces(MTPOperationCode::getPartialObject)        ? MTPPartialReads::narrow
                                                                          : MTPPartialReads::none;
    }
    return *partialReads_;
}

void MTPConnection::noteEdit() {
    queue_->noteEdit();
    edits_ = queue_->edits();
}

QStringList MTPConnection::programsHolding() {
    const auto entry = findMTPDevice(bus_, address_);
    return entry ? bus_.programsHolding(entry->id) : QStringList();
}

} // namespace tessary
