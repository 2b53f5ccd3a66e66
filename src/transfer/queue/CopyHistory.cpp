#include "transfer/queue/CopyHistory.h"

#include "base/local/WholeFile.h"
#include "base/log/DiagnosticsLogger.h"
#include "transfer/copy/Leftovers.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <algorithm>

namespace tessary {

namespace {

const QLatin1StringView fileName{"copies.json"};
constexpr qint64 longestFile = qint64{64} * 1024 * 1024;

} // namespace

CopyHistory::CopyHistory(QString folder) : folder_(std::move(folder)) {}

QString CopyHistory::usersFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/tessary/copies");
}

void CopyHistory::load() {
    if (std::exchange(isLoaded_, true))
        return;
    QFile file(QDir(folder_).filePath(fileName));
    if (!file.open(QIODevice::ReadOnly) || file.size() > longestFile)
        return;
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &problem);
    if (problem.error != QJsonParseError::NoError)
        DiagnosticsLogger::shared().transfer.error("the copies' history is unreadable: %s",
                                                   {problem.errorString()});
    for (const QJsonValue& one : document.array())
        if (auto record = copyRecordFromJson(one.toObject()))
            records_.push_back(*std::move(record));
}

void CopyHistory::save() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime oldest = now.addDays(-keptDays);
    // What a clock that was wrong has dated ahead ages from now on.
    for (CopyRecord& one : records_)
        one.ended = std::min(one.ended, now);
    std::erase_if(records_, [&oldest](const CopyRecord& one) { return one.ended < oldest; });
    if (records_.size() > mostRecords)
        records_.resize(mostRecords);
    QJsonArray all;
    for (const CopyRecord& record : records_)
        all.append(toJson(record));
    QDir().mkpath(folder_);
    writeWholeFile(QDir(folder_).filePath(fileName),
                   QJsonDocument(all).toJson(QJsonDocument::Compact));
}

void CopyHistory::add(std::vector<CopyRecord> records) {
    const std::scoped_lock lock(mutex_);
    load();
    for (CopyRecord& record : records) {
        std::erase_if(records_,
                      [&record](const CopyRecord& one) { return one.job.id == record.job.id; });
        std::vector<LeftOut>& leftOut = record.job.leftOut;
        if (leftOut.size() > CopyRecord::mostLeftOut)
            leftOut.erase(leftOut.begin() + CopyRecord::mostLeftOut, leftOut.end());
        records_.insert(records_.begin(), std::move(record));
    }
    save();
}

std::vector<CopyRecord> CopyHistory::find(const QString& search) {
    const std::scoped_lock lock(mutex_);
    load();
    std::vector<CopyRecord> found;
    std::copy_if(records_.begin(), records_.end(), std::back_inserter(found),
                 [&search](const CopyRecord& one) { return one.matches(search); });
    return found;
}

std::vector<CopyRecord> CopyHistory::unfinished() {
    const std::scoped_lock lock(mutex_);
    load();
    const QDateTime oldest =
        QDateTime::currentDateTime().addMSecs(-std::chrono::milliseconds(oldestBrokenOff).count());
    std::vector<CopyRecord> found;
    std::copy_if(records_.begin(), records_.end(), std::back_inserter(found),
                 [&oldest](const CopyRecord& one) {
                     return one.hasBrokenOff() && !one.wasOffered && one.ended > oldest;
                 });
    return found;
}

void CopyHistory::noteOffered(const std::vector<QUuid>& ids) {
    const std::scoped_lock lock(mutex_);
    load();
    for (CopyRecord& one : records_)
        one.wasOffered =
            one.wasOffered || std::find(ids.begin(), ids.end(), one.job.id) != ids.end();
    save();
}

void CopyHistory::clear() {
    const std::scoped_lock lock(mutex_);
    isLoaded_ = true;
    records_.clear();
    save();
}

} // namespace tessary
