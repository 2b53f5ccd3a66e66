#include "browser/model/WirelessViewModel.h"

#include "adb/tool/ADBWireless.h"
#include "base/threads/Background.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <utility>

namespace tessary {

WirelessViewModel::WirelessViewModel(std::shared_ptr<ServiceNetwork> network, const ADBTool& adb,
                                     QObject* parent)
    : QObject(parent), network_(std::move(network)), adb_(adb), discovery_(network_) {
    discovery_.onDevicesUpdated = [this](const auto& found) { update(found); };
    discovery_.onAvailabilityChanged = [this](bool isAvailable) {
        state_ = isAvailable ? State::looking : State::unavailable;
        Q_EMIT changed();
    };
}

WirelessViewModel::~WirelessViewModel() {
    stop_.request_stop();
}

void WirelessViewModel::start() {
    discovery_.startBrowsing();
}

void WirelessViewModel::stop() {
    discovery_.stopBrowsing();
    stop_.request_stop();
    ++number_;
    workingOn_.reset();
    phones_.clear();
    state_ = State::starting;
    Q_EMIT changed();
}

const WirelessViewModel::Phone* WirelessViewModel::phone(const QString& id) const {
    const auto found = std::find_if(phones_.begin(), phones_.end(),
                                    [&](const Phone& one) { return one.device.id == id; });
    return found == phones_.end() ? nullptr : &*found;
}

void WirelessViewModel::update(const std::vector<DiscoveredWirelessDevice>& found) {
    std::vector<Phone> phones;
    phones.reserve(found.size());
    for (const DiscoveredWirelessDevice& device : found) {
        const Phone* known = phone(device.id);
        // What was asked of a phone that waited to be paired says nothing of one to connect to.
        const bool isSame = known && known->device.isPairing == device.isPairing;
        phones.push_back(isSame ? *known : Phone{});
        phones.back().device = device;
    }
    std::sort(phones.begin(), phones.end(), [](const Phone& left, const Phone& right) {
        return left.device.name < right.device.name;
    });
    phones_ = std::move(phones);
    Q_EMIT changed();
}

void WirelessViewModel::connectTo(const QString& id) {
    ask(id, [&adb = adb_](const QString& address, const std::stop_token& stop) {
        connectOverNetwork(adb, address, stop);
    });
}

void WirelessViewModel::pair(const QString& id, const QString& code) {
    ask(id, [&adb = adb_, code](const QString& address, const std::stop_token& stop) {
        pairOverNetwork(adb, address, code, stop);
    });
}

void WirelessViewModel::ask(const QString& id, Work work) {
    const Phone* asked = phone(id);
    if (!asked || isWorking())
        return;
    workingOn_ = id;
    const std::uint64_t number = ++number_;
    stop_ = runInBackground(
        this,
        [network = network_, endpoint = asked->device.endpoint,
         work = std::move(work)](const std::stop_token& stop) {
            using Failure = std::optional<Error>;
            try {
                const auto address = network->resolve(endpoint, stop);
                if (!address)
                    return Failure(PhoneError::notReachable);
                work(QStringLiteral("%1:%2").arg(address->host).arg(address->port), stop);
                return Failure();
            } catch (const Error& error) {
                return Failure(error);
            }
        },
        [this, id, number](BackgroundResult<std::optional<Error>> result) {
            if (number != number_ || !result.succeeded())
                return;
            workingOn_.reset();
            const auto failure = result.take();
            setStep(id, failure ? Step::failed : Step::done, failure);
        });
    setStep(id, Step::working);
}

void WirelessViewModel::setStep(const QString& id, Step step, const std::optional<Error>& failure) {
    for (Phone& one : phones_)
        if (one.device.id == id) {
            one.step = step;
            one.failure = failure;
        }
    Q_EMIT changed();
}

} // namespace tessary
