#include "browser/model/WirelessViewModel.h"

#include "base/threads/Background.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

/// "host:port", or "[host]:port" for an IPv6 address.
QString textOf(const ServiceAddress& address) {
    const bool isIPv6 = address.host.contains(QLatin1Char(':'));
    return (isIPv6 ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2"))
        .arg(address.host)
        .arg(address.port);
}

/// What is shown of one record: a row for each of its announcements.
std::vector<DiscoveredWirelessDevice> rowsOf(const DiscoveredWirelessDevice& device) {
    std::vector<DiscoveredWirelessDevice> rows{device};
    if (device.otherEndpoint) {
        rows.push_back(device);
        rows.back().isPairing = !device.isPairing;
        rows.back().endpoint = *device.otherEndpoint;
    }
    for (DiscoveredWirelessDevice& row : rows)
        if (row.isPairing)
            row.id += QStringLiteral("/pairing");
    return rows;
}

} // namespace

WirelessViewModel::WirelessViewModel(std::shared_ptr<ServiceNetwork> network, ADBWays& ways,
                                     QObject* parent)
    : QObject(parent), network_(std::move(network)), ways_(ways), discovery_(network_) {
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
    for (const DiscoveredWirelessDevice& record : found)
        for (DiscoveredWirelessDevice& device : rowsOf(record)) {
            const Phone* known = phone(device.id);
            phones.push_back(known ? *known : Phone{});
            phones.back().device = std::move(device);
        }
    std::sort(phones.begin(), phones.end(), [](const Phone& left, const Phone& right) {
        return std::pair(left.device.name, left.device.isPairing) <
               std::pair(right.device.name, right.device.isPairing);
    });
    phones_ = std::move(phones);
    Q_EMIT changed();
}

void WirelessViewModel::connectTo(const QString& id) {
    ask(id, [&ways = ways_](const QString& address, const std::stop_token& stop) {
        ways.connect(address, stop);
    });
}

void WirelessViewModel::pair(const QString& id, const QString& code) {
    ask(id, [&ways = ways_, code](const QString& address, const std::stop_token& stop) {
        ways.pair(address, code, stop);
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
                work(textOf(*address), stop);
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
