#include "adb/server/ADBDevices.h"

#include <QRegularExpression>

namespace tessary {

namespace {

/// The words for states, the longer of two that begin alike first.
constexpr QLatin1StringView states(
    "(device|offline|unauthorized|authorizing|connecting|recovery|sideload|rescue|bootloader|host|"
    "unknown|no permissions)");

ADBDevice deviceOf(const QString& serial, const QString& state, const QString& details) {
    ADBDevice device;
    device.serial = serial;
    device.state = state;
    for (const QString& word : details.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString value = word.mid(word.indexOf(QLatin1Char(':')) + 1);
        if (word.startsWith(QLatin1StringView("usb:")))
            device.path = word;
        else if (word.startsWith(QLatin1StringView("model:")))
            device.model = QString(value).replace(QLatin1Char('_'), QLatin1Char(' '));
        else if (word.startsWith(QLatin1StringView("transport_id:")))
            device.transportId = value;
    }
    return device;
}

} // namespace

bool ADBDevice::isNetwork() const {
    static const QRegularExpression form(
        QStringLiteral("^(.+:\\d{1,5}|emulator-\\d+|.*\\._adb-tls-connect\\._tcp\\.?)$"));
    return path.isEmpty() && form.match(serial).hasMatch();
}

std::vector<ADBDevice> parseADBDevices(const QByteArray& output) {
    // "serial\tstate", or the serial in a column of 22 and a blank, the state and details. A serial
    // may hold blanks, and even words for states.
    static const QRegularExpression tabbed(QStringLiteral("^([^\\t]+)\\t%1(.*)$").arg(states));
    static const QRegularExpression columns(QStringLiteral("^(.{22}) %1( .*)?$").arg(states));
    static const QRegularExpression longSerial(QStringLiteral("^(.{22,}?) +%1( .*)?$").arg(states));
    std::vector<ADBDevice> devices;
    const QStringList lines = QString::fromUtf8(output).split(QLatin1Char('\n'));
    for (QString line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (line.startsWith(QLatin1Char('*')) ||
            line.startsWith(QLatin1StringView("List of devices")))
            continue;
        for (const auto* form : {&tabbed, &columns, &longSerial}) {
            const QRegularExpressionMatch match = form->match(line);
            if (!match.hasMatch())
                continue;
            QString serial = match.captured(1);
            while (serial.endsWith(QLatin1Char(' ')))
                serial.chop(1);
            if (!serial.isEmpty())
                devices.push_back(deviceOf(serial, match.captured(2), match.captured(3)));
            break;
        }
    }
    return devices;
}

} // namespace tessary
