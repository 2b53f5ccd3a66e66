#include "sync/manager/SyncReportStore.h"

#include "base/local/WholeFile.h"
#include "base/log/DiagnosticsLogger.h"
#include "sync/plan/SyncReportJson.h"
#include "transfer/local/LocalFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>

namespace tessary {

namespace {

/// A report of more bytes is none of ours.
constexpr qint64 largestReport = 64LL * 1024 * 1024;

constexpr QLatin1StringView pattern("*.json");

/// Sorts by date.
QString fileName(const QDateTime& date) {
    return date.toUTC().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz")) + QStringLiteral(".json");
}

} // namespace

QString SyncReportStore::defaultFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/tessary/sync-reports");
}

QString SyncReportStore::folderOf(const QUuid& pair) const {
    return folder_ + QLatin1Char('/') + pair.toString(QUuid::WithoutBraces);
}

void SyncReportStore::add(const QUuid& pair, const SyncReport& report, const QDateTime& now) const {
    const QString folder = folderOf(pair);
    const QByteArray json = QJsonDocument(encodeReport(report)).toJson(QJsonDocument::Compact);
    try {
        makeFolders(folder);
        writeWholeFile(folder + QLatin1Char('/') + fileName(report.endedAt), json);
    } catch (const std::exception& error) {
        DiagnosticsLogger::shared().ui.error("sync report not stored: %s",
                                             {QString::fromUtf8(error.what())});
    }
    const QString oldest = fileName(now.addDays(-keptFor.count()));
    // What a clock that was wrong has dated ahead would be the latest report for as long.
    const QString latest = fileName(now.addDays(1));
    for (const QString& each : QDir(folder_).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir reports(folder_ + QLatin1Char('/') + each);
        // Whatever it ends in: what is not finished has the date in its name, too.
        for (const QString& name : reports.entryList(QDir::Files))
            if (name < oldest || name > latest)
                QFile::remove(reports.filePath(name));
    }
}

std::vector<SyncReport> SyncReportStore::of(const QUuid& pair, std::size_t most) const {
    std::vector<SyncReport> reports;
    const QDir folder(folderOf(pair));
    for (const QString& name :
         folder.entryList({pattern}, QDir::Files, QDir::Name | QDir::Reversed)) {
        QFile file(folder.filePath(name));
        if (reports.size() == most || file.size() > largestReport ||
            !file.open(QIODevice::ReadOnly))
            continue;
        if (auto report = decodeReport(QJsonDocument::fromJson(file.readAll()).object()))
            reports.push_back(*std::move(report));
    }
    return reports;
}

void SyncReportStore::forget(const QUuid& pair) const {
    QDir folder(folderOf(pair));
    for (const QString& name : folder.entryList({pattern}, QDir::Files))
        QFile::remove(folder.filePath(name));
    (void)QDir(folder_).rmdir(pair.toString(QUuid::WithoutBraces));
}

} // namespace tessary
