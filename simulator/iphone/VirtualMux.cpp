#include "simulator/iphone/VirtualMux.h"

#include "base/threads/ThreadName.h"
#include "simulator/iphone/MuxSession.h"
#include "simulator/wire/PhoneIdentity.h"
#include "simulator/wire/PhoneSockets.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>

namespace tessary {

using namespace Qt::StringLiterals;

namespace {

/// A cable's serial number has no dash; libraries put it back.
QString serialNumber(const VirtualIPhone& phone) {
    return QString(phone.config().udid).remove(u'-');
}

QVariantMap attachedEvent(std::uint32_t id, const VirtualIPhone& phone, VirtualLink link) {
    QVariantMap properties{{u"DeviceID"_s, id}, {u"SerialNumber"_s, serialNumber(phone)}};
    if (link == VirtualLink::cable) {
        properties.insert(u"ConnectionType"_s, u"USB"_s);
        properties.insert(u"ConnectionSpeed"_s, 480'000'000U);
        properties.insert(u"LocationID"_s, id << 20);
        properties.insert(u"ProductID"_s, 0x12A8U);
    } else {
        properties.insert(u"ConnectionType"_s, u"Network"_s);
        properties.insert(u"EscapedFullServiceName"_s,
                          u"02:00:00:00:00:01@fe80::1._apple-mobdev2._tcp.local."_s);
        properties.insert(u"InterfaceIndex"_s, 1U);
        properties.insert(u"NetworkAddress"_s,
                          PhoneSockets::bsdAddress(phone.config().wifiAddress));
    }
    return {{u"MessageType"_s, u"Attached"_s}, {u"DeviceID"_s, id}, {u"Properties"_s, properties}};
}

/// Signals are for the program's own threads; SIGPIPE for none.
void blockSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

VirtualMux::VirtualMux(const QString& socketPath, WhenAsked whenAsked)
    : path_(socketPath), whenAsked_(std::move(whenAsked)) {
    doors_.push_back({PhoneSockets::listenAt(path_), nullptr, 0});
    PhoneSockets::makePipe(wakeOut_, wakeIn_);
    acceptor_ = std::jthread([this](const std::stop_token& stop) {
        nameCurrentThread("phone-mux");
        blockSignals();
        acceptConnections(stop);
    });
}

VirtualMux::~VirtualMux() {
    acceptor_.request_stop();
    wake();
    acceptor_.join();
    std::list<Connection> ending;
    {
        const std::lock_guard lock(mutex_);
        for (const Connection& connection : connections_)
            ::shutdown(connection.socket.get(), SHUT_RDWR);
        for (const Attachment& attachment : attachments_)
            attachment.phone->muxGone();
        attachments_.clear();
        ending.swap(connections_);
    }
    ending.clear(); // waits for their threads
    ::unlink(path_.toLocal8Bit().constData());
}

QByteArray VirtualMux::address() const {
    return "UNIX:" + path_.toLocal8Bit();
}

void VirtualMux::useInThisProcess() const {
    ::setenv("USBMUXD_SOCKET_ADDRESS", address().constData(), 1);
}

std::uint32_t VirtualMux::attach(VirtualIPhone& phone, VirtualLink link) {
    const std::lock_guard lock(mutex_);
    {
        const std::lock_guard phoneLock(phone.mutex_);
        if (phone.mux_ != nullptr && phone.mux_ != this)
            return 0;
        phone.mux_ = this;
    }
    for (const Attachment& each : attachments_) {
        if (each.phone == &phone && each.link == link)
            return 0;
    }
    if (link == VirtualLink::wifi) {
        FileHandle door =
            PhoneSockets::listenAt(phone.config().wifiAddress, VirtualIPhone::lockdownPort);
        if (!door.isOpen())
            return 0;
        doors_.push_back({std::move(door), &phone, VirtualIPhone::lockdownPort});
        wake();
    }
    attachments_.push_back({++lastID_, &phone, link});
    tellAll(attachedEvent(lastID_, phone, link));
    return lastID_;
}

bool VirtualMux::uses(const Connection& connection, const VirtualIPhone& phone,
                      VirtualLink link) const {
    return connection.phone == &phone && connection.link == link && !connection.isDone;
}

void VirtualMux::detach(VirtualIPhone& phone, VirtualLink link) {
    std::unique_lock lock(mutex_);
    const auto found =
        std::find_if(attachments_.begin(), attachments_.end(), [&](const Attachment& each) {
            return each.phone == &phone && each.link == link;
        });
    if (found != attachments_.end()) {
        const std::uint32_t id = found->id;
        attachments_.erase(found);
        if (link == VirtualLink::wifi)
            std::erase_if(doors_, [&](const Door& door) { return door.phone == &phone; });
        for (const Connection& connection : connections_) {
            if (uses(connection, phone, link))
                ::shutdown(connection.socket.get(), SHUT_RDWR);
        }
        tellAll({{u"MessageType"_s, u"Detached"_s}, {u"DeviceID"_s, id}});
        wake();
    }
    // One of the phone's own threads cannot wait for itself. Who comes later waits for it.
    const auto own = std::this_thread::get_id();
    if (std::any_of(connections_.begin(), connections_.end(),
                    [own](const Connection& each) { return each.thread.get_id() == own; }))
        return;
    connectionEnded_.wait(lock, [&] {
        return std::none_of(connections_.begin(), connections_.end(),
                            [&](const Connection& each) { return uses(each, phone, link); });
    });
    const bool isGone =
        std::none_of(attachments_.begin(), attachments_.end(),
                     [&](const Attachment& each) { return each.phone == &phone; }) &&
        std::none_of(connections_.begin(), connections_.end(),
                     [&](const Connection& each) { return each.phone == &phone; });
    if (isGone)
        phone.muxGone();
}

bool VirtualMux::isAttached(const VirtualIPhone& phone, VirtualLink link) const {
    const std::lock_guard lock(mutex_);
    return std::any_of(attachments_.begin(), attachments_.end(), [&](const Attachment& each) {
        return each.phone == &phone && each.link == link;
    });
}

void VirtualMux::openWifiDoor(VirtualIPhone& phone, std::uint16_t port) {
    constexpr std::ptrdiff_t mostDoors = 64;
    const std::lock_guard lock(mutex_);
    const auto isService = [&phone](const Door& door) {
        return door.phone == &phone && door.port != VirtualIPhone::lockdownPort;
    };
    if (std::none_of(doors_.begin(), doors_.end(),
                     [&phone](const Door& door) { return door.phone == &phone; }))
        return; // not on Wi-Fi
    if (std::count_if(doors_.begin(), doors_.end(), isService) >= mostDoors)
        doors_.erase(std::find_if(doors_.begin(), doors_.end(), isService));
    FileHandle door = PhoneSockets::listenAt(phone.config().wifiAddress, port);
    if (door.isOpen())
        doors_.push_back({std::move(door), &phone, port});
    wake();
}

QVariantList VirtualMux::deviceList() const {
    const std::lock_guard lock(mutex_);
    QVariantList list;
    for (const Attachment& each : attachments_)
        list.append(attachedEvent(each.id, *each.phone, each.link));
    return list;
}

void VirtualMux::listen(Connection& connection, std::uint32_t tag) {
    const std::lock_guard lock(mutex_);
    connection.listens = true;
    connection.listenTag = tag;
    tell(connection,
         {{u"MessageType"_s, u"Result"_s}, {u"Number"_s, static_cast<uint>(Result::ok)}});
    connection.listenTag = 0; // events answer nothing
    for (const Attachment& each : attachments_)
        tell(connection, attachedEvent(each.id, *each.phone, each.link));
}

void VirtualMux::tell(Connection& connection, const QVariantMap& event) {
    // A listener that does not read would hold everybody up: it is dropped.
    const Bytes packet = encodeMuxPacket(event, connection.listenTag);
    if (!PhoneSockets::sendAtOnce(connection.socket.get(), packet))
        ::shutdown(connection.socket.get(), SHUT_RDWR);
}

void VirtualMux::tellAll(const QVariantMap& event) {
    for (Connection& connection : connections_) {
        if (connection.listens && !connection.isDone)
            tell(connection, event);
    }
}

VirtualIPhone* VirtualMux::connectTo(Connection& connection, std::uint32_t deviceID,
                                     std::uint16_t port, Result& result) {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(attachments_.begin(), attachments_.end(),
                                    [&](const Attachment& each) { return each.id == deviceID; });
    if (found == attachments_.end()) {
        result = Result::badDevice;
        return nullptr;
    }
    if (!found->phone->listensOn(port)) {
        result = Result::connectionRefused;
        return nullptr;
    }
    connection.link = found->link;
    return connection.phone = found->phone;
}

QByteArray VirtualMux::pairRecord(const QString& udid) {
    PhoneIdentity::prepareKeys(); // not while everybody waits for the mutex
    const std::lock_guard lock(mutex_);
    if (const auto saved = records_.find(udid); saved != records_.end())
        return saved->second;
    for (const Attachment& each : attachments_) {
        if (each.phone->config().udid != udid)
            continue;
        const QVariantMap record = each.phone->hostRecord();
        if (record.isEmpty())
            return {};
        const Bytes bytes = PlistCodec::encode(record, PlistForm::xml);
        return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
    }
    return {};
}

void VirtualMux::savePairRecord(const QString& udid, const QByteArray& record) {
    constexpr std::size_t mostRecords = 256;
    const std::lock_guard lock(mutex_);
    if (records_.size() >= mostRecords && !records_.contains(udid))
        return;
    records_[udid] = record;
    tellPairedLocked(udid);
}

void VirtualMux::tellPaired(const QString& udid) {
    const std::lock_guard lock(mutex_);
    records_.erase(udid);
    tellPairedLocked(udid);
}

void VirtualMux::tellPairedLocked(const QString& udid) {
    for (const Attachment& each : attachments_) {
        if (each.phone->config().udid == udid)
            tellAll({{u"MessageType"_s, u"Paired"_s}, {u"DeviceID"_s, each.id}});
    }
}

bool VirtualMux::deletePairRecord(const QString& udid) {
    if (pairRecord(udid).isEmpty())
        return false;
    savePairRecord(udid, {});
    return true;
}

void VirtualMux::acceptConnections(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
        std::vector<pollfd> waiting{{wakeOut_.get(), POLLIN, 0}};
        {
            const std::lock_guard lock(mutex_);
            for (const Door& door : doors_)
                waiting.push_back({door.socket.get(), POLLIN, 0});
        }
        if (::poll(waiting.data(), static_cast<nfds_t>(waiting.size()), -1) < 0)
            continue;
        std::array<char, 64> drained{};
        while (::read(wakeOut_.get(), drained.data(), drained.size()) > 0)
            continue;
        for (auto each = waiting.begin() + 1; each != waiting.end(); ++each) {
            if (each->revents != 0)
                accept(each->fd);
        }
    }
}

void VirtualMux::accept(int door) {
    const std::lock_guard lock(mutex_);
    std::erase_if(connections_, [](const Connection& each) { return each.isDone; });
    const auto found = std::find_if(doors_.begin(), doors_.end(),
                                    [door](const Door& each) { return each.socket.get() == door; });
    if (found == doors_.end())
        return;
    FileHandle socket = PhoneSockets::accept(door);
    if (!socket.isOpen()) {
        // Out of descriptors, perhaps: whoever waits is still there at the next look.
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return;
    }
    VirtualIPhone* phone = found->phone;
    const std::uint16_t port = found->port;
    if (phone != nullptr && port != VirtualIPhone::lockdownPort)
        doors_.erase(found); // a service that was started takes one connection
    start(std::move(socket), phone, port);
}

void VirtualMux::start(FileHandle socket, VirtualIPhone* phone, std::uint16_t port) {
    Connection& connection = connections_.emplace_back();
    connection.socket = std::move(socket);
    connection.phone = phone;
    connection.link = VirtualLink::wifi;
    connection.thread = std::jthread([this, &connection, phone, port] {
        nameCurrentThread("phone-link");
        blockSignals();
        {
            PhoneStream stream(connection.socket.get());
            if (phone != nullptr)
                phone->serve(port, stream);
            else
                MuxSession(*this, connection, stream).run();
            stream.shutDown();
        }
        const std::lock_guard lock(mutex_);
        connection.phone = nullptr;
        connection.isDone = true;
        // A host that waits until it can write is woken by this alone: what was not read goes too.
        connection.socket = FileHandle();
        connectionEnded_.notify_all();
    });
}

void VirtualMux::wake() {
    (void)!::write(wakeIn_.get(), "", 1);
}

} // namespace tessary
