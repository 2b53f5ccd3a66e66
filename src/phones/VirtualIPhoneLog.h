#pragma once

#include <QString>

#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <vector>

namespace tessary {

/// One request to a virtual iPhone or to the multiplexer.
struct VirtualIPhoneRequest {
    /// Service and request: "mux.Connect", "lockdown.StartSession", "houseArrest.VendDocuments",
    /// "installationProxy.Browse", "afc.readDir" (see `AFCCodec::requestName`).
    QString request;
    QString detail;           ///< a path, a key, a service: what the request is about
    std::uint64_t number = 0; ///< a length or a port, where it has one
    std::chrono::steady_clock::time_point time;
};

/// What was asked of a virtual iPhone. Thread-safe. Remembers the last 100,000 requests; the counts
/// are complete.
class VirtualIPhoneLog {
public:
    void add(VirtualIPhoneRequest request);
    void clear();

    /// Oldest first.
    [[nodiscard]] std::vector<VirtualIPhoneRequest> requests() const;
    [[nodiscard]] std::size_t count(const QString& request) const;

private:
    static constexpr std::size_t limit = 100'000;

    mutable std::mutex mutex_; ///< guards all below
    std::deque<VirtualIPhoneRequest> requests_;
    std::map<QString, std::size_t> counts_;
};

} // namespace tessary
