#include "sync/manager/SyncHost.h"

#include <QDir>
#include <QSysInfo>
#include <QUuid>

namespace tessary {

namespace {

/// Any one; every version of the program has it.
constexpr QUuid hostNames(0x6c1fd2a1, 0x2f60, 0x4d4e, 0x9b, 0x4a, 0x30, 0x7c, 0x6f, 0x2e, 0x91,
                          0x58);

constexpr QLatin1StringView key("Tessary_MacHostID");

QUuid newHostID() {
    const QByteArray machine = QSysInfo::machineUniqueId();
    return machine.isEmpty()
               ? QUuid::createUuid()
               : QUuid::createUuidV5(hostNames, machine + '\n' + QDir::homePath().toUtf8());
}

} // namespace

QString foreseenHostID(const SettingsStore& defaults) {
    const QString id = defaults.value(key).toString();
    return QUuid::fromString(id).isNull() ? newHostID().toString(QUuid::WithoutBraces).toUpper()
                                          : id;
}

QString syncHostID(SettingsStore& defaults) {
    QString id = foreseenHostID(defaults);
    if (defaults.value(key) != id)
        defaults.setValue(key, id);
    return id;
}

} // namespace tessary
