#include "adb/server/ADBServerConnection.h"

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBShellClient.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "base/threads/Deadline.h"

#include <algorithm>

namespace tessary {

namespace {

/// What stands for a serial number where a phone has none.
constexpr QLatin1StringView noSerialPrefix("USB-");

/// Another phone may be in the port by now. Names that say nothing fit any.
bool mayBe(const QString& serial, const QString& sought) {
    const auto tells = [](const QString& name) {
        return !name.isEmpty() && std::ranges::all_of(name, [](QChar letter) {
            return letter.unicode() < 0x80 && (letter.isLetterOrNumber() || letter == u'-' ||
                                               letter == u'_' || letter == u'.' || letter == u':');
        });
    };
    return serial == sought || sought.startsWith(noSerialPrefix) || !tells(serial) ||
           !tells(sought);
}

/// The server's name for exactly this phone.
QByteArray targetOf(const ADBDevice& device) {
    return (device.path.isEmpty() ? device.serial : device.path).toUtf8();
}

} // namespace

ADBServerConnection::ADBServerConnection(std::shared_ptr<const ADBServerClient> server,
                                         ADBPhoneSought phone,
                                         std::function<void(const std::stop_token&)> startServer)
    : server_(std::move(server)), phone_(std::move(phone)), startServer_(std::move(startServer)) {}

const ADBDevice* ADBServerConnection::choose(const std::vector<ADBDevice>& devices,
                                             const ADBPhoneSought& phone) {
    const QString place = QStringLiteral("usb:") + phone.usbLocation;
    if (!phone.usbLocation.isEmpty())
        for (const ADBDevice& device : devices)
            if (device.path == place && mayBe(device.serial, phone.serial))
                return &device;
    if (phone.serial.isEmpty() || phone.serial.startsWith(noSerialPrefix))
        return nullptr;
    // With a place of its own, another place with the same serial number is a twin.
    const auto fits = [&](const ADBDevice& device, const QString& serial) {
        return serial == phone.serial && (phone.usbLocation.isEmpty() || device.path.isEmpty());
    };
    const ADBDevice* found = nullptr;
    for (const ADBDevice& device : devices) {
        if (!fits(device, device.serial))
            continue;
        if (found != nullptr)
            throw Error(ADBError::severalPhones, {phone.serial});
        found = &device;
    }
    for (const ADBDevice& device : devices)
        if (found == nullptr && fits(device, device.phoneSerial))
            found = &device;
    return found;
}

std::optional<QString>
ADBServerConnection::ownSerialOf(const QString& name,
                                 const std::shared_ptr<const ADBServerClient>& server,
                                 const std::stop_token& stop) {
    constexpr std::chrono::seconds patience(3);
    constexpr qsizetype longest = 128;
    const Deadline deadline(patience);
    const CombinedStopToken either(stop, deadline.token());
    const Wait wait{either.token(), patience};
    try {
        ADBServerConnection phone(server, {name, {}});
        ADBShellClient shell(phone, phone.features(wait));
        return shell.property("ro.serialno", wait).left(longest);
    } catch (const Error&) {
        return std::nullopt;
    } catch (const CancellationError&) {
        throwIfStopped(stop);
        return std::nullopt;
    }
}

/// A phone on the network has another name with adb than its own: it is asked for that. One that
/// does not tell is another one, or as good as.
ADBDevice ADBServerConnection::find(const Wait& wait) const {
    std::vector<ADBDevice> devices = server_->devices(wait);
    if (const ADBDevice* found = choose(devices, phone_))
        return *found;
    for (ADBDevice& device : devices)
        if (device.isReady() && device.isNetwork())
            device.phoneSerial = ownSerialOf(device.serial, server_, wait.stop).value_or(QString());
    if (const ADBDevice* found = choose(devices, phone_))
        return *found;
    throw Error(ADBError::notFound, {phone_.serial});
}

QByteArray ADBServerConnection::knownTarget() {
    const std::scoped_lock lock(mutex_);
    return target_;
}

/// Runs `work(target)`; once more with the phone looked up anew when it has got another name, and
/// with a server when there was none.
template <typename Work>
auto ADBServerConnection::withPhone(const Wait& wait, Work work) {
    bool isFound = false; // what was not found a moment ago is not looked up anew
    const auto attempt = [&](bool isAnew) {
        QByteArray target = isAnew ? QByteArray() : knownTarget();
        if (target.isEmpty() || target.startsWith("usb:")) {
            target = targetOf(find(wait));
            const std::scoped_lock lock(mutex_);
            target_ = target;
        }
        isFound = true;
        return target;
    };
    try {
        return work(attempt(false));
    } catch (const Error& error) {
        if (error.is(ADBError::noServer) && startServer_)
            startServer_(wait.stop);
        else if (!error.is(ADBError::notFound) || !isFound)
            throw;
    }
    return work(attempt(true));
}

std::unique_ptr<ADBStream> ADBServerConnection::open(const QByteArray& service, const Wait& wait) {
    return withPhone(wait, [&](const QByteArray& target) {
        return server_->open({"host:transport:" + target, service}, wait);
    });
}

QByteArrayList ADBServerConnection::features(const Wait& wait) {
    return withPhone(wait, [&](const QByteArray& target) {
        return server_->ask("host-serial:" + target + ":features", wait).split(',');
    });
}

} // namespace tessary
