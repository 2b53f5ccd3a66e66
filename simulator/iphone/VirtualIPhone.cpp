#include "simulator/iphone/VirtualIPhone.h"

#include "simulator/iphone/AFCResponder.h"
#include "simulator/iphone/HouseArrestResponder.h"
#include "simulator/iphone/InstallationProxyResponder.h"
#include "simulator/iphone/LockdownResponder.h"
#include "simulator/iphone/NotificationProxyResponder.h"
#include "simulator/iphone/VirtualMux.h"
#include "simulator/wire/PhoneIdentity.h"

#include <QDir>

#include <algorithm>
#include <limits>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

/// How long a request that is not answered holds on to its connection.
constexpr std::chrono::hours forgotten(1);
/// Services that nobody connected to; the oldest is given up.
constexpr std::size_t mostOffers = 64;

} // namespace

VirtualIPhone::VirtualIPhone(VirtualIPhoneConfig config)
    : VirtualIPhone(config, std::make_unique<VirtualIPhoneHooks>(config.megabytesPerSecond)) {}

VirtualIPhone::VirtualIPhone(VirtualIPhoneConfig config, std::unique_ptr<VirtualIPhoneHooks> hooks)
    : config_(std::move(config)), hooks_(std::move(hooks)), free_(config_.free) {
    isPaired_ = config_.isPaired;
    state_ = {config_.name, config_.trust, config_.isLocked, config_.battery};
    for (const VirtualIPhoneApp& app : config_.apps)
        InstallationProxyResponder::createContainer(app);
    if (!config_.mediaFolder.isEmpty())
        QDir().mkpath(config_.mediaFolder);
}

VirtualIPhone::~VirtualIPhone() {
    unplug();
    leaveWifi();
}

std::uint32_t VirtualIPhone::plugInto(VirtualMux& mux) {
    return mux.attach(*this, VirtualLink::cable);
}

void VirtualIPhone::unplug() {
    detach(VirtualLink::cable);
}

std::uint32_t VirtualIPhone::joinWifi(VirtualMux& mux) {
    return mux.attach(*this, VirtualLink::wifi);
}

void VirtualIPhone::leaveWifi() {
    detach(VirtualLink::wifi);
}

void VirtualIPhone::detach(VirtualLink link) {
    if (VirtualMux* mux = currentMux())
        mux->detach(*this, link);
}

bool VirtualIPhone::isPlugged() const {
    const VirtualMux* mux = currentMux();
    return mux != nullptr && mux->isAttached(*this, VirtualLink::cable);
}

VirtualMux* VirtualIPhone::currentMux() const {
    const std::lock_guard lock(mutex_);
    return mux_;
}

void VirtualIPhone::muxGone() {
    const std::lock_guard lock(mutex_);
    mux_ = nullptr;
}

void VirtualIPhone::setTrust(VirtualTrust trust) {
    VirtualMux* mux = nullptr;
    {
        const std::lock_guard lock(mutex_);
        state_.trust = trust;
        if (trust != VirtualTrust::trusted || isPaired_ || !config_.multiplexerPairs)
            return;
        mux = mux_;
        isPaired_ = mux != nullptr;
    }
    if (mux != nullptr)
        mux->tellPaired(config_.udid);
}

void VirtualIPhone::setLocked(bool locked) {
    const std::lock_guard lock(mutex_);
    state_.locked = locked;
}

void VirtualIPhone::setBattery(int percent) {
    const std::lock_guard lock(mutex_);
    state_.battery = std::clamp(percent, 0, 100);
}

void VirtualIPhone::setName(const QString& name) {
    const std::lock_guard lock(mutex_);
    state_.name = name;
}

VirtualIPhone::State VirtualIPhone::state() const {
    const std::lock_guard lock(mutex_);
    return state_;
}

bool VirtualIPhone::addUsed(std::int64_t bytes) {
    const auto size = static_cast<std::uint64_t>(bytes < 0 ? -bytes : bytes);
    std::uint64_t before = free_;
    for (;;) {
        if (bytes > 0 && size > before)
            return false;
        const std::uint64_t room = config_.capacity > before ? config_.capacity - before : 0;
        if (free_.compare_exchange_weak(before,
                                        bytes > 0 ? before - size : before + std::min(size, room)))
            return true;
    }
}

QVariantMap VirtualIPhone::hostRecord() {
    {
        const std::lock_guard lock(mutex_);
        if (!isPaired_ || state_.trust != VirtualTrust::trusted)
            return {};
        if (!hostRecord_.isEmpty())
            return hostRecord_;
    }
    QVariantMap made = PhoneIdentity::pairRecord(u"7A1E5A00-0000-4000-8000-000000000001"_s,
                                                 QString::fromLatin1(VirtualMux::systemBUID));
    const std::lock_guard lock(mutex_);
    if (hostRecord_.isEmpty()) {
        hostRecord_ = std::move(made);
        hosts_[hostRecord_[u"HostID"_s].toString()] = hostRecord_;
    }
    return hostRecord_;
}

QVariantMap VirtualIPhone::knownHost(const QString& hostID) {
    const std::lock_guard lock(mutex_);
    const auto found = hosts_.find(hostID);
    const bool isKnown = found != hosts_.end() && state_.trust == VirtualTrust::trusted;
    return isKnown ? found->second : QVariantMap();
}

void VirtualIPhone::addHost(const QVariantMap& record) {
    constexpr std::size_t mostHosts = 64;
    const std::lock_guard lock(mutex_);
    if (hosts_.size() < mostHosts)
        hosts_[record[u"HostID"_s].toString()] = record;
}

void VirtualIPhone::removeHost(const QString& hostID) {
    const std::lock_guard lock(mutex_);
    hosts_.erase(hostID);
}

std::uint16_t VirtualIPhone::offerService(const QString& service, const QString& hostID) {
    std::uint16_t port = 0;
    VirtualMux* mux = nullptr;
    {
        const std::lock_guard lock(mutex_);
        do
            lastPort_ = lastPort_ == std::numeric_limits<std::uint16_t>::max()
                            ? std::uint16_t{49152}
                            : static_cast<std::uint16_t>(lastPort_ + 1);
        while (lastPort_ == lockdownPort);
        port = lastPort_;
        offers_.push_back({port, service, hostID});
        if (offers_.size() > mostOffers)
            offers_.pop_front();
        mux = mux_;
    }
    if (mux != nullptr)
        mux->openWifiDoor(*this, port);
    return port;
}

bool VirtualIPhone::listensOn(std::uint16_t port) const {
    const std::lock_guard lock(mutex_);
    return port == lockdownPort || std::any_of(offers_.begin(), offers_.end(),
                                               [port](auto& each) { return each.port == port; });
}

void VirtualIPhone::serve(std::uint16_t port, PhoneStream& stream) {
    if (port == lockdownPort) {
        LockdownResponder(*this, stream).run();
        return;
    }
    Offer offer;
    {
        const std::lock_guard lock(mutex_);
        const auto found = std::find_if(offers_.begin(), offers_.end(),
                                        [port](auto& each) { return each.port == port; });
        if (found == offers_.end())
            return;
        offer = std::move(*found);
        offers_.erase(found); // a service that was started takes one connection
    }
    const QVariantMap host = config_.serviceTls ? knownHost(offer.hostID) : QVariantMap();
    if (config_.serviceTls && !stream.startTls(PhoneIdentity::tlsContext(host).get()))
        return;
    if (offer.service == HouseArrestResponder::service)
        HouseArrestResponder(*this, stream).run();
    else if (offer.service == InstallationProxyResponder::service)
        InstallationProxyResponder(*this, stream).run();
    else if (offer.service == AFCResponder::mediaService)
        AFCResponder(*this, stream,
                     PhoneContainer(*this, config_.mediaFolder, {false, config_.writableMedia}))
            .run();
    else
        NotificationProxyResponder(*this, stream).run();
}

bool VirtualIPhone::begin(PhoneStream& stream, const QString& request, const QString& detail,
                          std::uint64_t number) {
    hooks_->requested(request, detail, number);
    const auto delay = hooks_->delay(request);
    if (!stream.pause(delay.value_or(forgotten)) || !delay)
        return false;
    const auto what = hooks_->cutAt(request, false);
    return !what || cut(stream, *what);
}

bool VirtualIPhone::answering(PhoneStream& stream, const QString& request) {
    if (const auto raw = hooks_->rawAnswer(request)) {
        const auto* bytes = reinterpret_cast<const std::byte*>(raw->bytes.constData());
        const ByteView all(bytes, static_cast<std::size_t>(raw->bytes.size()));
        while (stream.write(all) && raw->isEndless) {
        }
        return false;
    }
    const auto what = hooks_->cutAt(request, true);
    return !what || cut(stream, *what);
}

bool VirtualIPhone::cut(PhoneStream& stream, VirtualCut cut) {
    switch (cut) {
    case VirtualCut::unplug:
        unplug();
        leaveWifi();
        break;
    case VirtualCut::stall:
        (void)stream.pause(forgotten);
        break;
    case VirtualCut::close:
        break;
    }
    stream.shutDown();
    return false;
}

} // namespace tessary
