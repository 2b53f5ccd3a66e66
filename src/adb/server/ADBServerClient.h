#pragma once

#include "adb/server/ADBDevices.h"
#include "adb/server/ADBServerAddress.h"
#include "adb/services/ADBStream.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace tessary {

/// Speaks to the adb server of this machine over its socket, one connection a request: four
/// hexadecimal digits of length and the request; "OKAY", or "FAIL" with such a length and a reason.
/// Starts no server. Thread-safe and blocking. Failures are Error(ADBError): ::noServer when none
/// answers; CancellationError.
class ADBServerClient {
public:
    /// A server of this machine answers at once, but for what a phone does.
    static constexpr std::chrono::seconds patience{10};

    explicit ADBServerClient(ADBServerAddress address = ADBServerAddress::of())
        : address_(std::move(address)) {}

    [[nodiscard]] const ADBServerAddress& address() const {
        return address_;
    }
    /// Whether a server answers, whatever its version.
    [[nodiscard]] bool isThere(const Wait& wait) const;
    /// The phones that the server knows right now.
    [[nodiscard]] std::vector<ADBDevice> devices(const Wait& wait) const;

    /// What the server answers to a request of its own ("host:features"): a text.
    [[nodiscard]] QByteArray ask(const QByteArray& request, const Wait& wait) const;
    /// A stream on which these requests were taken, one after another: "host:track-devices-l", or
    /// "host:transport:SERIAL" and a service.
    [[nodiscard]] std::unique_ptr<ADBStream> open(const QByteArrayList& requests,
                                                  const Wait& wait) const;

private:
    const ADBServerAddress address_;
};

/// The next text of a stream of them, each with its length in four hexadecimal digits before it.
[[nodiscard]] QByteArray takeADBText(ADBStream& stream, const Wait& wait);

} // namespace tessary
