#include "sync/old/plan/SyncReport.h"

namespace tessary {

QString SyncReport::summary() const {
    QStringList parts;
    const auto add = [&parts](qsizetype count, const char* what) {
        if (count > 0)
            parts.append(QString::number(count) + QLatin1Char(' ') + QString::fromLatin1(what));
    };
    add(uploaded.size(), "uploaded");
    add(downloaded.size(), "downloaded");
    add(moved.size(), "moved");
    add(deleted.size(), "deleted");
    add(conflicts.size(), "kept twice");
    if (parts.isEmpty())
        parts.append(QStringLiteral("Up to date"));
    add(static_cast<qsizetype>(skipped.size()), "skipped");
    return parts.join(QStringLiteral(", "));
}

} // namespace tessary
