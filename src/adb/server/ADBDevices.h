#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace tessary {

/// One line of `adb devices -l`.
struct ADBDevice {
    QString serial; ///< as `adb -s` takes it
    QString state;  ///< "device" when its files can be reached, else "unauthorized", "offline", …
    QString path;   ///< "usb:1-4.2" where adb tells it
    QString model;  ///< with blanks for adb's underscores
    QString transportId;
    /// The phone's own serial number, where it is known to differ from `serial`.
    QString phoneSerial;

    [[nodiscard]] bool isReady() const {
        return state == QLatin1StringView("device");
    }
    /// Whether adb reaches it by way of the network, or in an emulator.
    [[nodiscard]] bool isNetwork() const;

    bool operator==(const ADBDevice&) const = default;
};

/// The devices in what `adb devices` or `adb devices -l` prints. Notes of a server that is being
/// started, and everything else that is no device, are left out. Pure.
[[nodiscard]] std::vector<ADBDevice> parseADBDevices(const QByteArray& output);

} // namespace tessary
