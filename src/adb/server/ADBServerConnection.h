#pragma once

#include "adb/server/ADBServerClient.h"
#include "adb/services/ADBStream.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

namespace tessary {

/// Which phone a connection is for, in what is known of it.
struct ADBPhoneSought {
    QString serial;      ///< its own, or what adb calls it; empty when it has none
    QString usbLocation; ///< "1-4.2"; empty when it is not on this machine's USB bus
};

/// A phone by way of the adb server.
class ADBServerConnection final : public ADBConnection {
public:
    /// `startServer` is called when no server answers, at most once a call; it may throw. Empty:
    /// that is an error then.
    ADBServerConnection(std::shared_ptr<const ADBServerClient> server, ADBPhoneSought phone,
                        std::function<void(const std::stop_token&)> startServer = {});

    [[nodiscard]] std::unique_ptr<ADBStream> open(const QByteArray& service,
                                                  const Wait& wait) override;
    [[nodiscard]] QByteArrayList features(const Wait& wait) override;

    /// The one among `devices` that is sought: by its place on the bus, else by what adb calls it,
    /// else by the phone's own serial number where that is known. Null when there is none; throws
    /// ADBError::severalPhones when that cannot be told. Pure.
    [[nodiscard]] static const ADBDevice* choose(const std::vector<ADBDevice>& devices,
                                                 const ADBPhoneSought& phone);

    /// The own serial number of a phone on the network, which adb calls `name`. No value when the
    /// phone does not tell it within 3 s, all in all. Throws CancellationError alone.
    [[nodiscard]] static std::optional<QString>
    ownSerialOf(const QString& name, const std::shared_ptr<const ADBServerClient>& server,
                const std::stop_token& stop);

private:
    [[nodiscard]] QByteArray knownTarget();
    [[nodiscard]] ADBDevice find(const Wait& wait) const;
    template <typename Work>
    auto withPhone(const Wait& wait, Work work);

    const std::shared_ptr<const ADBServerClient> server_;
    const ADBPhoneSought phone_;
    const std::function<void(const std::stop_token&)> startServer_;
    std::mutex mutex_;
    QByteArray target_; ///< what adb calls the phone; empty until it was found; guarded by mutex_
};

} // namespace tessary
