#pragma once

#include "simulator/iphone/VirtualIPhoneConfig.h"
#include "simulator/iphone/VirtualIPhoneHooks.h"
#include "simulator/wire/PhoneStream.h"

#include <atomic>
#include <deque>
#include <map>
#include <memory>
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
    virtual ~VirtualIPhone();
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

    // From here on for the mux and the phone's own services.

    struct State {
        QString name;
        VirtualTrust trust = VirtualTrust::trusted;
        bool locked = false;
        int battery = 0; ///< percent
    };
    [[nodiscard]] VirtualIPhoneHooks& hooks() {
        return *hooks_;
    }
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

    /// Begins a request: tells the hooks and does what they say. False when the connection is to
    /// end.
    [[nodiscard]] bool begin(PhoneStream& stream, const QString& request, const QString& detail,
                             std::uint64_t number = 0);
    /// Before a request's answer. False when the connection is to end.
    [[nodiscard]] bool answering(PhoneStream& stream, const QString& request);
    /// Does to this connection what a hook says. Always false.
    bool cut(PhoneStream& stream, VirtualCut cut);

protected:
    /// A phone in whose work something may step in.
    VirtualIPhone(VirtualIPhoneConfig config, std::unique_ptr<VirtualIPhoneHooks> hooks);

private:
    friend class VirtualMux;

    struct Offer {
        std::uint16_t port = 0;
        QString service;
        QString hostID;
    };

    void detach(VirtualLink link);
    void muxGone();
    /// To be called without the phone's mutex: the mux's comes first.
    [[nodiscard]] VirtualMux* currentMux() const;

    const VirtualIPhoneConfig config_;
    const std::unique_ptr<VirtualIPhoneHooks> hooks_;
    std::atomic<std::uint64_t> free_;

    mutable std::mutex mutex_; ///< guards all below
    State state_;
    bool isPaired_ = false; ///< the multiplexer has a record of its own
    QVariantMap hostRecord_;
    std::map<QString, QVariantMap> hosts_; ///< by HostID
    std::deque<Offer> offers_;             ///< oldest first
    std::uint16_t lastPort_ = 49152;
    VirtualMux* mux_ = nullptr;
};

} // namespace tessary
