#pragma once

#include "mtp/client/MTPInterfaceConnection.h"
#include "mtp/objects/MTPTree.h"
#include "phone/PhoneError.h"
#include "phone/PhoneQueue.h"
#include "phone/records/PhoneIdentity.h"
#include "platform/usb/USBBus.h"

#include <atomic>
#include <memory>
#include <optional>
#include <type_traits>

namespace tessary {

/// How a phone hands out parts of an object.
enum class MTPPartialReads {
    none,
    narrow, ///< GetPartialObject, below 4 GiB
    wide,   ///< GetPartialObject64
};

/// The one session with a phone, which stays open between turns and is closed when the phone has
/// not been used for a while; a lost link drops it, and the next call opens another. What is known
/// of the phone outlives its sessions.
///
/// Everything but inTurn(), programsHolding() and close() is for whoever has the turn.
class MTPConnection {
public:
    /// `bus` outlives it. Asks neither the bus nor the phone.
    MTPConnection(USBBus& bus, const PhoneIdentity& phone, std::shared_ptr<PhoneQueue> queue,
                  MTPPatience patience);
    ~MTPConnection();
    MTPConnection(const MTPConnection&) = delete;
    MTPConnection& operator=(const MTPConnection&) = delete;

    [[nodiscard]] const std::shared_ptr<PhoneQueue>& queue() const {
        return queue_;
    }

    /// Runs `work(MTPTree&)` in the session that is open, or in a new one. Failures of the
    /// connection become an Error about `path`; those that end the session, end it.
    template <typename Work>
    std::invoke_result_t<Work, MTPTree&> inSession(const std::stop_token& stop, const QString& path,
                                                   Work work);
    /// The same once nobody else uses the phone.
    template <typename Work>
    std::invoke_result_t<Work, MTPTree&> inTurn(const Call& call, const QString& path, Work work) {
        const PhoneQueue::Turn turn = takeTurn(call);
        return inSession(call.stop, path, std::move(work));
    }
    /// Ends the session once nobody else uses the phone.
    void close(const Call& call);

    /// Something on the phone was changed by this session, or by others as it has told.
    void noteEdit();

    // In a session: what the phone is

    [[nodiscard]] const MTPDeviceInfo& deviceInfo();
    /// As announced; the caller sets it to `none` for a phone that does not do it.
    [[nodiscard]] MTPPartialReads& partialReads();
    [[nodiscard]] MTPPhoneMemory& memory() {
        return memory_;
    }
    /// Another one for each plugging.
    [[nodiscard]] std::uint64_t attachment() const {
        return attachment_;
    }

    [[nodiscard]] QStringList programsHolding();

private:
    /// How it was when a call began.
    struct Start {
        bool isReused = false;
        std::uint64_t proceeded = 0;
    };

    [[nodiscard]] PhoneQueue::Turn takeTurn(const Call& call);
    [[nodiscard]] MTPTree& ready(const std::stop_token& stop, Start& start);
    void failed(const MTPFailure& failure, const QString& path, const Start& start);
    void failed(const Error& error);
    void openSession(const std::stop_token& stop);
    void closeSession() {
        tree_.reset();
    }
    [[nodiscard]] Error translated(const MTPFailure& failure, const QString& path);

    USBBus& bus_;
    const MTPDeviceAddress address_;
    const std::shared_ptr<PhoneQueue> queue_;
    const MTPPatience patience_;

    MTPPhoneMemory memory_;
    std::unique_ptr<MTPTree> tree_;
    std::uint64_t attachment_ = 0;            ///< USBDeviceEntry::id of the last session's device
    std::optional<MTPDeviceInfo> deviceInfo_; ///< of this attachment
    std::optional<MTPPartialReads> partialReads_;
    std::uint64_t edits_ = 0; ///< PhoneQueue::edits() that the tree knows of
    int brokenInRow_ = 0;     ///< calls whose data broke off

    std::atomic<std::uint64_t> detached_ = 0; ///< the attachment that ended last
    std::unique_ptr<USBWatch> watch_; ///< from the first session on; its callback sets detached_
};

template <typename Work>
std::invoke_result_t<Work, MTPTree&> MTPConnection::inSession(const std::stop_token& stop,
                                                              const QString& path, Work work) {
    for (;;) {
        Start start;
        try {
            MTPTree& tree = ready(stop, start);
            if constexpr (std::is_void_v<std::invoke_result_t<Work, MTPTree&>>) {
                work(tree);
                brokenInRow_ = 0;
                return;
            } else {
                auto result = work(tree);
                brokenInRow_ = 0;
                return result;
            }
        } catch (const MTPFailure& failure) {
            failed(failure, path, start); // throws, unless it is worth another try
        } catch (const Error& error) {
            failed(error);
            throw;
        }
    }
}

} // namespace tessary
