#include "transfer/queue/CopyRecord.h"

#include "base/local/LocalError.h"
#include "phone/PhoneError.h"

#include <QJsonArray>

#include <algorithm>

namespace tessary {

namespace {

using namespace Qt::StringLiterals;

QJsonObject toJson(const Error& error) {
    QJsonArray arguments;
    for (const QVariant& argument : error.arguments())
        arguments.append(argument.toString());
    return {{u"layer"_s, static_cast<int>(error.code().layer())},
            {u"code"_s, error.code().value()},
            {u"arguments"_s, arguments}};
}

/// An error of a protocol or of a later version is remembered as a refusal.
Error errorFromJson(const QJsonObject& json) {
    QVariantList arguments;
    for (const QJsonValue& argument : json[u"arguments"_s].toArray())
        arguments.append(argument.toString());
    const auto layer = static_cast<ErrorLayer>(json[u"layer"_s].toInt(-1));
    const int code = json[u"code"_s].toInt(-1);
    if (layer == ErrorLayer::phone && code >= 0 && code <= static_cast<int>(PhoneError::full))
        return {static_cast<PhoneError>(code), arguments};
    if (layer == ErrorLayer::local && code >= 0 && code <= static_cast<int>(LocalError::notPrivate))
        return {static_cast<LocalError>(code), arguments};
    return {PhoneError::refused, arguments};
}

QJsonObject toJson(const CopyItem& item) {
    QJsonObject json{{u"name"_s, item.name},
                     {u"folder"_s, item.folder},
                     {u"source"_s, item.item.path},
                     {u"sourceName"_s, item.item.name},
                     {u"isFolder"_s, item.item.isDirectory},
                     {u"size"_s, item.item.size},
                     {u"isContinued"_s, item.isContinued}};
    if (item.item.modifiedDate)
        json[u"modified"_s] = item.item.modifiedDate->toMSecsSinceEpoch();
    return json;
}

/// Without its handle, which another session does not know.
CopyItem itemFromJson(const QJsonObject& json) {
    std::optional<QDateTime> modified;
    if (json.contains(u"modified"_s))
        modified = QDateTime::fromMSecsSinceEpoch(json[u"modified"_s].toInteger());
    return {FileItem(json[u"sourceName"_s].toString(), json[u"source"_s].toString(),
                     json[u"isFolder"_s].toBool(), json[u"size"_s].toInteger(), modified),
            json[u"name"_s].toString(), json[u"folder"_s].toString(),
            json[u"isContinued"_s].toBool()};
}

/// Calls `visit` with each field that stands in the JSON as it is, and its key.
template <typename Record, typename Visit>
void visitPlainFields(Record& record, const Visit& visit) {
    auto& job = record.job;
    visit(u"name"_s, job.name);
    visit(u"things"_s, job.things);
    visit(u"isFolder"_s, job.isFolder);
    visit(u"sourcePath"_s, job.sourcePath);
    visit(u"targetFolder"_s, job.targetFolder);
    visit(u"phone"_s, job.phone);
    visit(u"sourcePhone"_s, job.sourcePhone);
    visit(u"source"_s, job.source);
    visit(u"target"_s, job.target);
    visit(u"sourceApp"_s, job.sourceApp);
    visit(u"targetApp"_s, job.targetApp);
    visit(u"files"_s, job.progress.completedFiles);
    visit(u"bytes"_s, job.progress.completedBytes);
    visit(u"totalFiles"_s, job.progress.totalFiles);
    visit(u"totalBytes"_s, job.progress.totalBytes);
    visit(u"alreadyThere"_s, job.alreadyThere);
    visit(u"removesSource"_s, record.removesSource);
    visit(u"verifies"_s, record.verifies);
    visit(u"wasOffered"_s, record.wasOffered);
}

void read(const QJsonValue& json, QString& field) {
    field = json.toString();
}

void read(const QJsonValue& json, bool& field) {
    field = json.toBool();
}

void read(const QJsonValue& json, int& field) {
    field = json.toInt(field);
}

void read(const QJsonValue& json, qint64& field) {
    field = json.toInteger(field);
}

} // namespace

bool CopyRecord::hasBrokenOff() const {
    return !rest.empty() &&
           (job.hasLostPhone() || (job.status == CopyJob::Status::failed && !job.error));
}

TreeCopyRequest CopyRecord::requestForRest(std::shared_ptr<PhoneFileSystem> from,
                                           std::shared_ptr<PhoneFileSystem> to) const {
    TreeCopyRequest request{.from = std::move(from),
                            .to = std::move(to),
                            .items = rest,
                            .folder = job.targetFolder,
                            .policy = [](const Clash&) { return ClashAnswer::merge; },
                            .skipsSame = true,
                            .verifies = verifies,
                            .removesSource = removesSource};
    return request;
}

bool CopyRecord::matches(const QString& search) const {
    QStringList names{job.name, job.phone, job.sourcePhone, job.sourcePath, job.targetFolder};
    names += job.made;
    for (const LeftOut& one : job.leftOut)
        names << one.item.item.path;
    const QStringList words = search.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(), [&names](const QString& word) {
        return std::any_of(names.begin(), names.end(), [&word](const QString& name) {
            return name.contains(word, Qt::CaseInsensitive);
        });
    });
}

QJsonObject toJson(const CopyRecord& record) {
    const CopyJob& job = record.job;
    QJsonArray leftOut;
    for (const LeftOut& one : job.leftOut)
        leftOut.append(QJsonObject{{u"item"_s, toJson(one.item)}, {u"error"_s, toJson(one.error)}});
    QJsonArray rest;
    for (const CopyItem& item : record.rest)
        rest.append(toJson(item));
    QJsonObject json{{u"id"_s, job.id.toString()},
                     {u"ended"_s, record.ended.toMSecsSinceEpoch()},
                     {u"direction"_s, static_cast<int>(job.direction)},
                     {u"status"_s, static_cast<int>(job.status)},
                     {u"made"_s, QJsonArray::fromStringList(job.made)},
                     {u"leftOut"_s, leftOut},
                     {u"rest"_s, rest}};
    visitPlainFields(record, [&json](const QString& key, const auto& field) { json[key] = field; });
    if (job.error)
        json[u"error"_s] = toJson(*job.error);
    return json;
}

std::optional<CopyRecord> copyRecordFromJson(const QJsonObject& json) {
    CopyRecord record;
    CopyJob& job = record.job;
    job.id = QUuid(json[u"id"_s].toString());
    record.ended = QDateTime::fromMSecsSinceEpoch(json[u"ended"_s].toInteger(-1));
    const int direction = json[u"direction"_s].toInt(-1);
    const int status = json[u"status"_s].toInt(-1);
    if (job.id.isNull() || direction < 0 ||
        direction > static_cast<int>(CopyJob::Direction::onComputer) || status < 0 ||
        status > static_cast<int>(CopyJob::Status::cancelled))
        return std::nullopt;
    job.direction = static_cast<CopyJob::Direction>(direction);
    job.status = static_cast<CopyJob::Status>(status);
    if (!job.isFinished())
        job.status = CopyJob::Status::failed;
    visitPlainFields(record, [&json](const QString& key, auto& field) { read(json[key], field); });
    for (const QJsonValue& path : json[u"made"_s].toArray())
        job.made << path.toString();
    for (const QJsonValue& one : json[u"leftOut"_s].toArray())
        job.leftOut.push_back(
            {itemFromJson(one[u"item"_s].toObject()), errorFromJson(one[u"error"_s].toObject())});
    if (json.contains(u"error"_s))
        job.error = errorFromJson(json[u"error"_s].toObject());
    for (const QJsonValue& item : json[u"rest"_s].toArray())
        record.rest.push_back(itemFromJson(item.toObject()));
    return record;
}

} // namespace tessary
