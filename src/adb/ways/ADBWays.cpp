#include "adb/ways/ADBWays.h"

#include "adb/ways/ADBKeyHelper.h"

#include "adb/direct/ADBDirectConnection.h"
#include "adb/direct/ADBTCPTransport.h"
#include "adb/direct/ADBUSBTransport.h"
#include "adb/protocol/ADBError.h"
#include "adb/server/ADBServerConnection.h"
#include "adb/services/ADBShellClient.h"
#include "adb/tool/ADBTool.h"
#include "base/threads/CancellationError.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;

constexpr auto startPatience = 15s;
/// A person may have to allow it on the phone.
constexpr auto networkPatience = 20s;
/// A phone that is there takes a connection at once, or wakes up for it.
constexpr std::chrono::milliseconds reachPatience = 10s;

constexpr QLatin1StringView alreadyConnected("already connected to");

/// "host:port", or "[host]:port"; no value for anything else.
std::optional<std::pair<QString, std::uint16_t>> hostAndPort(const QString& address) {
    const qsizetype colon = address.lastIndexOf(QLatin1Char(':'));
    bool isNumber = false;
    const std::uint16_t port = address.mid(colon + 1).toUShort(&isNumber);
    if (colon <= 0 || !isNumber || port == 0)
        return std::nullopt;
    return std::pair(address.left(colon), port);
}

/// Whether a server keeps a phone that it does not reach.
bool isOffline(const std::vector<ADBDevice>& devices, const QString& address) {
    return std::any_of(devices.begin(), devices.end(), [&](const ADBDevice& one) {
        return one.serial == address && one.state == QLatin1StringView("offline");
    });
}

} // namespace

/// Asks for the way at each link, since a server may have come or gone meanwhile.
class ADBChosenConnection final : public ADBConnection {
    /// A phone that cannot be reached may be one that the server still shows.
    template <typename Work>
    auto asking(Work work) {
        try {
            return work();
        } catch (const Error&) {
            ways_.tracker_.wake();
            throw;
        }
    }

public:
    ADBChosenConnection(ADBWays& ways, PhoneIdentity phone)
        : ways_(ways), phone_(std::move(phone)) {}

    std::unique_ptr<ADBStream> open(const QByteArray& service, const Wait& wait) override {
        return asking([&] { return way(wait.stop)->open(service, wait); });
    }
    QByteArrayList features(const Wait& wait) override {
        return asking([&] { return way(wait.stop)->features(wait); });
    }
    QStringList programsHolding() override {
        const auto way = lastWay();
        return way ? way->programsHolding() : QStringList();
    }
    void release() override {
        if (const auto way = lastWay())
            way->release();
    }

private:
    std::shared_ptr<ADBConnection> lastWay() {
        const std::scoped_lock lock(mutex_);
        return way_;
    }
    std::shared_ptr<ADBConnection> way(const std::stop_token& stop) {
        const bool hasServer = !ways_.isStraight(phone_.serialNumber) && ways_.ensureServer(stop);
        const std::scoped_lock lock(mutex_);
        if (!way_ || std::exchange(isByServer_, hasServer) != hasServer)
            way_ = hasServer ? ways_.byServer(phone_) : ways_.straightTo(phone_);
        return way_;
    }

    ADBWays& ways_;
    const PhoneIdentity phone_;
    std::mutex mutex_;
    std::shared_ptr<ADBConnection> way_; ///< guarded by mutex_
    bool isByServer_ = false;            ///< guarded by mutex_
};

ADBWays::ADBWays(Setup setup)
    : setup_(std::move(setup)),
      server_(std::make_shared<const ADBServerClient>(setup_.server)),
      keys_(setup_.keys ? setup_.keys : std::make_shared<ADBKeyHelper>(setup_.processes)),
      tracker_(server_, setup_.changed) {}

ADBWays::~ADBWays() = default;

bool ADBWays::isAddress(const QString& text) {
    return hostAndPort(text).has_value();
}

std::vector<ADBDevice> ADBWays::devices() {
    std::vector<ADBDevice> all = tracker_.devices();
    const std::scoped_lock lock(mutex_);
    for (const ADBDevice& listed : all)
        if (listed.isReady()) // from now on it is the server's
            std::erase_if(straight_,
                          [&](const ADBDevice& one) { return one.serial == listed.serial; });
    for (const ADBDevice& one : straight_) {
        std::erase_if(all, [&](const ADBDevice& listed) { return listed.serial == one.serial; });
        all.push_back(one);
    }
    return all;
}

/// Looks for the places on the bus where a device speaks adb.
QStringList ADBWays::findPlaces() {
    const auto speaksADB = [](const USBDeviceEntry& entry) {
        return std::any_of(entry.interfaces.begin(), entry.interfaces.end(), [](const auto& one) {
            return one.interfaceClass == ADBUSBInterfaceKind::interfaceClass &&
                   one.subclass == ADBUSBInterfaceKind::subclass &&
                   one.protocol == ADBUSBInterfaceKind::protocol;
        });
    };
    QStringList places;
    for (const USBDeviceEntry& entry : setup_.bus.devices())
        if (speaksADB(entry))
            places.append(entry.location);
    const std::scoped_lock lock(mutex_);
    places_ = places;
    return places;
}

void ADBWays::lookAgain(const std::stop_token& stop) {
    if (!findPlaces().isEmpty())
        (void)ensureServer(stop);
    tracker_.wake();
}

/// Whether a server answers now. One of another version than the tool's is left alone: the tool
/// would end it under other programs' copies.
bool ADBWays::ensureServer(const std::stop_token& stop) {
    return tracker_.hasServer() || startServer(stop);
}

/// The same without trust in what was so a moment ago.
bool ADBWays::startServer(const std::stop_token& stop) {
    const Wait wait{stop, ADBServerClient::patience};
    if (server_->isThere(wait))
        return true;
    const auto executable = findADBTool(setup_.adbPaths);
    const auto place = setup_.server.textForStart();
    if (!executable || !place)
        return false;
    const auto lock = startMutex_.hold(stop);
    if (server_->isThere(wait))
        return true;
    ProcessRequest request;
    request.program = *executable;
    request.arguments = {QStringLiteral("-L"), *place, QStringLiteral("start-server")};
    request.limit = startPatience;
    request.stop = stop;
    (void)setup_.processes.follow(request);
    throwIfStopped(stop);
    tracker_.wake();
    return server_->isThere(wait);
}

std::shared_ptr<ADBConnection> ADBWays::connectionTo(const PhoneIdentity& phone) {
    return std::make_shared<ADBChosenConnection>(*this, phone);
}

bool ADBWays::canReach(const PhoneIdentity& phone) {
    if (findADBTool(setup_.adbPaths) || tracker_.hasServer())
        return true;
    if (addressOf(phone))
        return true;
    if (phone.usbLocation.isEmpty())
        return false;
    {
        const std::scoped_lock lock(mutex_);
        if (places_)
            return places_->contains(phone.usbLocation);
    }
    return findPlaces().contains(phone.usbLocation);
}

std::shared_ptr<ADBConnection> ADBWays::byServer(const PhoneIdentity& phone) {
    return std::make_shared<ADBServerConnection>(
        server_, ADBPhoneSought{phone.serialNumber, phone.usbLocation},
        [this](const std::stop_token& stop) { (void)startServer(stop); });
}

std::shared_ptr<ADBConnection> ADBWays::straightTo(const PhoneIdentity& phone) {
    USBBus& bus = setup_.bus;
    const QString address = addressOf(phone).value_or(QString());
    if (const auto parts = hostAndPort(address))
        return std::make_shared<ADBDirectConnection>(
            [this, address, parts](const Wait& wait) {
                const Wait soon{wait.stop, std::min(wait.silence, reachPatience)};
                try {
                    return std::make_unique<ADBTCPTransport>(parts->first, parts->second, soon);
                } catch (const Error&) {
                    forget(address);
                    throw;
                }
            },
            keys_);
    return std::make_shared<ADBDirectConnection>(
        [&bus, phone](const Wait&) {
            return std::make_unique<ADBUSBTransport>(bus, phone.usbLocation, phone.serialNumber);
        },
        keys_,
        [&bus, phone] {
            const auto entry = ADBUSBTransport::find(bus, phone.usbLocation, phone.serialNumber);
            return entry ? bus.programsHolding(entry->id) : QStringList();
        });
}

/// Where a phone is on the network: itself, or one whose cable here gives no more than files.
std::optional<QString> ADBWays::addressOf(const PhoneIdentity& phone) const {
    if (phone.usbLocation.isEmpty())
        return isAddress(phone.serialNumber) ? std::optional(phone.serialNumber) : std::nullopt;
    const std::scoped_lock lock(mutex_);
    if (phone.serialNumber.isEmpty() || (places_ && places_->contains(phone.usbLocation)))
        return std::nullopt;
    for (const ADBDevice& one : straight_)
        if (one.phoneSerial == phone.serialNumber)
            return one.serial;
    return std::nullopt;
}

bool ADBWays::isStraight(const QString& address) const {
    const std::scoped_lock lock(mutex_);
    return std::any_of(straight_.begin(), straight_.end(),
                       [&](const ADBDevice& one) { return one.serial == address; });
}

/// A phone that does not answer any more. Nobody else would tell of it without a server.
void ADBWays::forget(const QString& address) {
    {
        const std::scoped_lock lock(mutex_);
        const auto is = [&](const ADBDevice& one) { return one.serial == address; };
        if (std::erase_if(straight_, is) == 0)
            return;
    }
    if (setup_.changed)
        setup_.changed();
}

void ADBWays::connect(const QString& address, const std::stop_token& stop) {
    const auto parts = hostAndPort(address);
    if (!parts)
        throw Error(ADBError::notFound, {address});
    if (startServer(stop)) {
        // The server has words only for how it went.
        const Wait wait{stop, networkPatience};
        const auto ask = [&](const QByteArray& what) {
            return QString::fromUtf8(server_->ask(what + address.toUtf8(), wait));
        };
        QString answer = ask("host:connect:");
        if (answer.startsWith(alreadyConnected) && isOffline(server_->devices(wait), address)) {
            (void)ask("host:disconnect:");
            answer = ask("host:connect:");
        }
        if (answer.startsWith(QLatin1StringView("connected to")) ||
            answer.startsWith(alreadyConnected))
            return;
        if (answer.contains(QLatin1StringView("authenticate")))
            throw Error(ADBError::unauthorized, {address});
        throw Error(ADBError::refused, {address, answer.trimmed()});
    }
    PhoneIdentity phone;
    phone.serialNumber = address;
    const auto way = straightTo(phone);
    const Wait wait{stop, networkPatience};
    ADBShellClient shell(*way, way->features(wait));
    ADBDevice device;
    device.serial = address;
    device.state = QStringLiteral("device");
    device.phoneSerial = shell.property("ro.serialno", wait);
    device.model = shell.property("ro.product.model", wait);
    {
        const std::scoped_lock lock(mutex_);
        std::erase_if(straight_, [&](const ADBDevice& one) { return one.serial == address; });
        straight_.push_back(device);
    }
    if (setup_.changed)
        setup_.changed();
}

void ADBWays::pair(const QString& address, const QString& code, const std::stop_token& stop) {
    if (!startServer(stop))
        throw findADBTool(setup_.adbPaths) ? Error(ADBError::noServer, {setup_.server.text()})
                                           : Error(ADBError::noADB);
    // Over the socket: a code among a process's arguments can be read by every user.
    QString answer;
    try {
        answer = QString::fromUtf8(server_->ask(
            "host:pair:" + code.toUtf8() + ':' + address.toUtf8(), {stop, networkPatience}));
    } catch (const Error& error) {
        if (error.is(ADBError::noServer) || error.is(ADBError::brokenOff) ||
            error.is(ADBError::timedOut) || error.is(ADBError::nonsense))
            throw;
        // A server from before pairing does not know the word. Its refusal is not passed on, since
        // it holds the request, and so the code.
        throw Error(ADBError::cannotPair);
    }
    if (!answer.startsWith(QLatin1StringView("Successfully paired")))
        throw Error(ADBError::refused, {address, answer.trimmed()});
}

} // namespace tessary
