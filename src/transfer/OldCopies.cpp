#include "transfer/OldCopies.h"

#include <QDateTime>
#include <QDir>

namespace tessary {

void removeOldCopies(const QString& folder) {
    const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
    for (const QFileInfo& copy : QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (!copy.isSymLink() && copy.lastModified() < yesterday)
            QDir(copy.filePath()).removeRecursively();
}

} // namespace tessary
