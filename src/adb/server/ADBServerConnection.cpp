#include "adb/server/ADBServerConnection.h"

#include "adb/protocol/ADBError.h"
#include "adb/services/ADBShellClient.h"

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

/// A phone on the network has another name with adb than its own: it is asked for that.
ADBDevice ADBServerConnection::find(const Wait& wait) const {
    constexpr std::chrono::seconds patience(3);
    std::vector<ADBDevice> devices = server_->devices(wait);
    if (const ADBDevice* found = choose(devices, phone_))
        return *found;
    for (ADBDevice& device : devices) {
        if (!device.isReady() || !device.isNetwork())
            continue;
        try {
            ADBServerConnection other(server_, {device.serial, {}});
            ADBShellClient shell(other, other.features(wait).contains("shell_v2"));
            device.phoneSerial = QString::fromUtf8(
                shell.run("getprop ro.serialno", {wait.stop, patience}).output.trimmed());
        } catch (const Error&) {
            continue; // it is another one, or as good as
        }
    }
    if (const ADBDevice* found = choose(devices, phone_))
        return *found;
    throw Error(ADBError::notFound, {phone_.serial});
}

/// Runs `work(target)`; once more with the phone looked up anew when it has got another name, and
/// with a server when there was none.
template <typename Work>
auto ADBServerConnection::withPhone(const Wait& wait, Work work) {
    const auto attempt = [&](bool isAnew) {
        const std::scoped_lock lock(mutex_);
        if (isAnew || target_.isEmpty() || target_.startsWith("usb:"))
            target_ = targetOf(find(wait));
        return target_;
    };
    try {
        return work(attempt(false));
    } catch (const Error& error) {
        if (error.is(ADBError::noServer) && startServer_)
            startServer_(wait.stop);
        else if (!error.is(ADBError::notFound))
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
