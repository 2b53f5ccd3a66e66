#include "platform/HostInfo.h"

#include <QSettings>
#include <QSysInfo>

namespace tessary {

QString computerName() {
    const QSettings info(QStringLiteral("/etc/machine-info"), QSettings::IniFormat);
    const QString pretty = info.value(QStringLiteral("PRETTY_HOSTNAME")).toString().trimmed();
    return pretty.isEmpty() ? QSysInfo::machineHostName() : pretty;
}

} // namespace tessary
