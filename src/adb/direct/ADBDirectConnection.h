#pragma once

#include "adb/direct/ADBLink.h"
#include "adb/direct/ADBTransport.h"
#include "adb/protocol/ADBHostKey.h"
#include "adb/services/ADBStream.h"
#include "base/threads/StoppableMutex.h"

#include <functional>
#include <memory>

namespace tessary {

/// A phone without an adb server in between, by whatever transport leads to it. The link is made at
/// the first use, made anew once it is lost, and ended by release().
class ADBDirectConnection final : public ADBConnection {
public:
    using Connect = std::function<std::unique_ptr<ADBTransport>(const Wait& wait)>;

    /// How long a call waits while a person is asked on the phone.
    static constexpr std::chrono::milliseconds defaultTrustPatience{15'000};

    /// `programsHolding` names the programs that keep the phone from us; may be empty.
    ADBDirectConnection(Connect connect, std::shared_ptr<ADBHostKey> keys,
                        std::function<QStringList()> programsHolding = {},
                        std::chrono::milliseconds trustPatience = defaultTrustPatience);

    [[nodiscard]] std::unique_ptr<ADBStream> open(const QByteArray& service,
                                                  const Wait& wait) override;
    [[nodiscard]] QByteArrayList features(const Wait& wait) override;
    [[nodiscard]] QStringList programsHolding() override;
    void release() override;

private:
    [[nodiscard]] std::shared_ptr<ADBLink> link(const Wait& wait, bool& isNew);

    const Connect connect_;
    const std::shared_ptr<ADBHostKey> keys_;
    const std::function<QStringList()> programsHolding_;
    const std::chrono::milliseconds trustPatience_;
    StoppableMutex mutex_;          ///< held while a link is made
    std::shared_ptr<ADBLink> link_; ///< null until it was needed; guarded by mutex_
};

} // namespace tessary
