#pragma once

#include "adb/protocol/WirelessADBDiscovery.h"
#include "adb/ways/ADBWays.h"
#include "base/values/Error.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// The phones with wireless debugging on the local network, and connecting to them. Lives on the
/// main thread; the network and adb are asked in the background.
class WirelessViewModel : public QObject {
    Q_OBJECT

public:
    enum class State {
        starting,    ///< it is not known yet whether this computer can look for phones
        looking,     ///< it does, as long as this is started
        unavailable, ///< it cannot: no DNS-SD service runs; that is tried again by itself
    };
    /// What was asked of a phone last.
    enum class Step { none, working, done, failed };

    /// A phone that announces both, to be connected to and to be paired, is in the list twice.
    struct Phone {
        DiscoveredWirelessDevice device;
        Step step = Step::none;
        std::optional<Error> failure{}; ///< of a step that failed
    };

    /// `ways` must outlive this and what it has started.
    WirelessViewModel(std::shared_ptr<ServiceNetwork> network, ADBWays& ways,
                      QObject* parent = nullptr);
    ~WirelessViewModel() override;

    void start();
    /// Also gives up what is under way, and forgets the phones.
    void stop();

    [[nodiscard]] State state() const {
        return state_;
    }
    /// By name.
    [[nodiscard]] const std::vector<Phone>& phones() const {
        return phones_;
    }
    /// Null for an id that is not in the list.
    [[nodiscard]] const Phone* phone(const QString& id) const;
    /// Something is being asked of a phone: nothing else can be.
    [[nodiscard]] bool isWorking() const {
        return workingOn_.has_value();
    }
    /// Has adb connect to a phone, which then is among the devices.
    void connectTo(const QString& id);
    /// Pairs a phone with the code that it shows.
    void pair(const QString& id, const QString& code);

Q_SIGNALS:
    /// Anything that is shown differs.
    void changed();

private:
    /// Throws Error.
    using Work = std::function<void(const QString& address, const std::stop_token&)>;

    void update(const std::vector<DiscoveredWirelessDevice>& found);
    void ask(const QString& id, Work work);
    void setStep(const QString& id, Step step, const std::optional<Error>& failure = {});

    const std::shared_ptr<ServiceNetwork> network_;
    ADBWays& ways_;
    WirelessADBDiscovery discovery_;
    State state_ = State::starting;
    std::vector<Phone> phones_;
    std::optional<QString> workingOn_; ///< an id
    std::uint64_t number_ = 0;         ///< answers to older questions are dropped
    std::stop_source stop_{std::nostopstate};
};

} // namespace tessary
