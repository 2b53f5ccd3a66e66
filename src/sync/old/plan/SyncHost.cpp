#include "sync/old/plan/SyncHost.h"

#include <QUuid>

namespace tessary {

QString syncHostID(UserDefaults& defaults) {
    const QString key = QStringLiteral("Tessary_MacHostID");
    QString id = defaults.value(key).toString();
    if (QUuid::fromString(id).isNull()) {
        id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
        defaults.setValue(key, id);
    }
    return id;
}

} // namespace tessary
