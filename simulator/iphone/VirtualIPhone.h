#pragma once

#include "simulator/iphone/VirtualIPhoneConfig.h"
#include "simulator/iphone/VirtualIPhoneFaults.h"
#include "simulator/iphone/VirtualIPhoneLog.h"
#include "simulator/wire/Guarded.h"
#include "simulator/wire/PhoneStream.h"

#include <atomic>
#include <mutex>

namespace tessary {

class VirtualMux;

/// How a phone is connected.
enum class VirtualLink { cable, wifi };

/// A virtual iPhone: one phone's configuration and state, which the connections that a VirtualMux
/// brings share. Thread-safe. It may outlive the mux, and the mux it.
class VirtualIPhone {
public:
    static constexpr std::uint16_t lockdownPort = 62078;

    explicit VirtualIPhone(VirtualIPhoneConfig config);
    /// Takes it off every link and waits for its connections' threads.
    ~VirtualIPhone();
    VirtualIPhone(const VirtualIPhone&) = delete;
    VirtualIPhone& operator=(const VirtualIPhone&) = delete;

    /// Plugs it in, when it is not. Each plugging has a device id of its own, which is returned; 0
    /// when it is plugged in already. A phone is at one mux at a time.
    std::uint32_t plugInto(VirtualMux& mux);
    /// Pulls the cable: its connections end, wherever they are, and their threads are waited for,
    /// except when one of them calls this from a hook.
    void unplug();
    /// The same over Wi-Fi, at the address of the configuration. 0 when it cannot listen there.
    std::uint32_t joinWifi(VirtualMux& mux);
    void leaveWifi();
    [[nodiscard]] bool isPlugged() const;

    [[nodiscard]] const VirtualIPhoneConfig& config() const {
        return config_;
    }
    void setTrust(VirtualTrust trust);
    void setLocked(bool locked);
    void setBattery(int percent);
    void setName(const QString& name);

    /// May be changed at any time; each request sees it afresh.
    [[nodiscard]] Guarded<VirtualIPhoneFaults>& faults() {
        return faults_;
    }
    [[nodiscard]] VirtualIPhoneLog& log() {
        return log_;
    }
    /// How often a request was made: "lockdown.StartSession", see VirtualIPhoneLog.
    [[nodiscard]] std::size_t requestCount(const QString& request) const {
        return log_.count(request);
    }

    // From here on for the mux and the phone's own services.

    struct State {
        QString name;
        VirtualTrust trust = VirtualTrust::trusted;
        bool locked = false;
        int battery = 0; ///< percent
    };
    [[nodiscard]] State state() const;
    [[nodiscard]] std::uint64_t freeBytes() const {
        return free_;
    }
    /// Books what a file grew by (or shrank, when negative). False when it does not fit.
    [[nodiscard]] bool addUsed(std::int64_t bytes);

    /// The pair record that the host's side begins with; empty when it is not paired.
    [[nodiscard]] QVariantMap hostRecord();
    /// The record of a host that may open sessions; empty when the phone does not know it.
    [[nodiscard]] QVariantMap knownHost(const QString& hostID);
    void addHost(const QVariantMap& record);
    void removeHost(const QString& hostID);

    /// Offers a service to one connection, for the host of this id. Returns its port.
    [[nodiscard]] std::uint16_t offerService(const QString& service, const QString& hostID);
    /// Whether something listens on the port.
    [[nodiscard]] bool listensOn(std::uint16_t port) const;
    /// Runs what listens on the port over a connection until one side ends it.
    void serve(std::uint16_t port, PhoneStream& stream);

    /// Begins a request: writes it into the log and does what the faults say. False when the
    /// connection is to end.
    [[nodiscard]] bool begin(PhoneStream& stream, const QString& request, const QString& detail,
                             std::uint64_t number = 0);
    /// Before a request's answer. False when the connection is to end.
    [[nodiscard]] bool answering(PhoneStream& stream, const QString& request);
    /// Does to this connection what a fault says. Always false.
    bool cut(PhoneStream& stream, VirtualCut cut);

private:
    friend class VirtualMux;

    struct Offer {
        std::uint16_t port = 0;
        QString service;
        QString hostID;
    };

    [[nodiscard]] bool strikes(const QString& request, bool afterwards, VirtualCut& cut);
    void detach(VirtualLink link);
    void muxGone();
    /// To be called without the phone's mutex: the mux's comes first.
    [[nodiscard]] VirtualMux* currentMux() const;

    const VirtualIPhoneConfig config_;
    Guarded<VirtualIPhoneFaults> faults_;
    VirtualIPhoneLog log_;
    std::atomic<std::uint64_t> free_;

    mutable std::mutex mutex_; ///< guards all below
    State state_;
    QVariantMap hostRecord_;
    std::map<QString, QVariantMap> hosts_; ///< by HostID
    std::deque<Offer> offers_;             ///< oldest first
    std::uint16_t lastPort_ = 49152;
    VirtualMux* mux_ = nullptr;
};

} // namespace tessary
