#include "platform/desktop/HostInfo.h"

#include <QSettings>
#include <QSysInfo>

#include <pwd.h>
#include <unistd.h>

#include <array>

namespace tessary {

QString computerName() {
    const QSettings info(QStringLiteral("/etc/machine-info"), QSettings::IniFormat);
    const QString pretty = info.value(QStringLiteral("PRETTY_HOSTNAME")).toString().trimmed();
    return pretty.isEmpty() ? QSysInfo::machineHostName() : pretty;
}

QString loginName() {
    std::array<char, 16 * 1024> texts{};
    passwd entry{};
    passwd* found = nullptr;
    ::getpwuid_r(::geteuid(), &entry, texts.data(), texts.size(), &found);
    return found ? QString::fromLocal8Bit(found->pw_name) : QString();
}

} // namespace tessary
