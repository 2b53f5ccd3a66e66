#include "transfer/import/ImportLedger.h"

#include "base/local/LocalError.h"
#include "base/text/PathNames.h"
#include "transfer/local/LocalFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTimeZone>

#include <algorithm>
#include <cstdlib>

#include <unistd.h>

namespace tessary {

namespace {

namespace key {
constexpr QLatin1StringView path("path");
constexpr QLatin1StringView size("size");
constexpr QLatin1StringView modified("modified"); ///< milliseconds since 1970
constexpr QLatin1StringView copy("copy");
constexpr QLatin1StringView sha256("sha256"); ///< hexadecimal
} // namespace key

/// A udid is the phone's word: it becomes no part of a path.
QString fileNameFor(const QString& udid) {
    const QByteArray hash = QCryptographicHash::hash(udid.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.first(16).toHex()) + QStringLiteral(".jsonl");
}

QByteArray lineOf(const ImportRecord& record) {
    QJsonObject object{
        {key::path, record.path}, {key::size, record.size}, {key::copy, record.copy}};
    if (record.modified)
        object[key::modified] = record.modified->toMSecsSinceEpoch();
    if (!record.sha256.isEmpty())
        object[key::sha256] = QString::fromLatin1(record.sha256.toHex());
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<ImportRecord> recordFrom(const QByteArray& line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    ImportRecord record;
    record.path = object[key::path].toString();
    record.size = object[key::size].toInteger(-1);
    if (record.path.isEmpty() || record.size < 0)
        return std::nullopt;
    if (const auto date = object[key::modified]; date.isDouble())
        record.modified = QDateTime::fromMSecsSinceEpoch(date.toInteger(), QTimeZone::utc());
    record.copy = object[key::copy].toString();
    record.sha256 = QByteArray::fromHex(object[key::sha256].toString().toLatin1());
    return record;
}

/// Ways to a phone cut dates to the second, and memory cards to two.
constexpr qint64 dateSlack = 2000;

bool isSameDate(const ImportRecord& record, const FileItem& file) {
    if (!record.modified || !file.modifiedDate)
        return !record.modified && !file.modifiedDate;
    return std::abs(record.modified->msecsTo(*file.modifiedDate)) <= dateSlack;
}

/// A phone that lists its files in local time lists other dates after a journey.
bool isSameDateElsewhere(const ImportRecord& record, const FileItem& file) {
    if (!record.modified || !file.modifiedDate)
        return true;
    constexpr qint64 quarter = qint64{15} * 60 * 1000; // time zones differ by these
    constexpr qint64 most = qint64{26} * 3600 * 1000;
    const qint64 shift = std::abs(record.modified->msecsTo(*file.modifiedDate));
    const qint64 rest = shift % quarter;
    return shift <= most && std::min(rest, quarter - rest) <= dateSlack;
}

Error writeError(const QFile& file) {
    return Error(LocalError::cannotWrite, {file.fileName(), file.errorString()});
}

} // namespace

QString ImportLedger::usersFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/tessary/imports");
}

ImportLedger::ImportLedger(const QString& folder, const QString& udid)
    : file_(QDir(folder).absoluteFilePath(fileNameFor(udid))) {
    QFile file(file_);
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly))
        throw Error(LocalError::cannotRead, {file_, file.errorString()});
    while (!file.atEnd())
        if (auto record = recordFrom(file.readLine()))
            remember(*std::move(record));
    if (file.error() != QFileDevice::NoError)
        throw Error(LocalError::cannotRead, {file_, file.errorString()});
}

void ImportLedger::remember(ImportRecord record) {
    records_[lastComponent(record.path)].push_back(std::move(record));
}

std::optional<ImportRecord> ImportLedger::find(const FileItem& file) const {
    const std::scoped_lock lock(mutex_);
    const auto named = records_.constFind(lastComponent(file.path));
    if (named == records_.constEnd())
        return std::nullopt;
    // The newest knows best where the copy is.
    const auto newest = [&](const auto& fits) {
        const auto found = std::find_if(named->crbegin(), named->crend(), fits);
        return found == named->crend() ? std::nullopt : std::optional(*found);
    };
    auto own = newest([&](const ImportRecord& record) {
        return record.size == file.size && record.path == file.path &&
               (isSameDate(record, file) || isSameDateElsewhere(record, file));
    });
    if (own || !file.modifiedDate)
        return own;
    return newest([&](const ImportRecord& record) {
        return record.size == file.size && isSameDate(record, file);
    });
}

void ImportLedger::add(const std::vector<ImportRecord>& records) {
    if (records.empty())
        return;
    const QString folder = QFileInfo(file_).path();
    makeFolders(folder);
    QByteArray lines;
    for (const ImportRecord& record : records)
        lines += lineOf(record);
    const std::scoped_lock lock(mutex_);
    QFile file(file_);
    // What several programs write at a time comes one after the other: each in one piece, at the
    // end. A line that was cut before is ended first.
    if (!file.open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::Unbuffered))
        throw writeError(file);
    if (const qint64 size = file.size(); size > 0) {
        char last = '\n';
        if (file.seek(size - 1) && file.read(&last, 1) == 1 && last != '\n')
            lines.prepend('\n');
    }
    if (file.write(lines) != lines.size() || ::fdatasync(file.handle()) != 0)
        throw writeError(file);
    for (const ImportRecord& record : records)
        remember(record);
}

} // namespace tessary
