#include "sync/plan/SyncReportJson.h"

#include "base/local/LocalError.h"
#include "phone/PhoneError.h"
#include "sync/plan/SyncError.h"

#include <QJsonArray>

#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;
using Outcome = SyncReport::Outcome;

constexpr std::array outcomeNames{View("done"), View("incomplete"), View("cancelled"),
                                  View("failed")};

/// Errors nest no deeper than this in a report.
constexpr int deepestCause = 4;

QJsonObject errorJson(const Error& error, int depth = 0) {
    QJsonObject object{{View("layer"), static_cast<int>(error.code().layer())},
                       {View("code"), error.code().value()},
                       {View("name"), QString::fromLatin1(error.code().name())},
                       {View("arguments"), QJsonArray::fromVariantList(error.arguments())}};
    if (error.cause() != nullptr && depth < deepestCause)
        object.insert(View("cause"), errorJson(*error.cause(), depth + 1));
    return object;
}

/// The case of an enum, when the number is one and still has the name.
template <typename Enum>
std::optional<ErrorCode> codeOf(int value, const QString& name, Enum last) {
    if (value < 0 || value > static_cast<int>(last))
        return std::nullopt;
    const ErrorCode code(static_cast<Enum>(value));
    return name == QLatin1StringView(code.name()) ? std::optional(code) : std::nullopt;
}

Error errorOf(const QJsonObject& json, int depth = 0) {
    const int value = json.value(View("code")).toInt(-1);
    const QString name = json.value(View("name")).toString();
    std::optional<ErrorCode> code;
    switch (static_cast<ErrorLayer>(json.value(View("layer")).toInt(-1))) {
    case ErrorLayer::phone:
        code = codeOf(value, name, PhoneError::full);
        break;
    case ErrorLayer::local:
        code = codeOf(value, name, LocalError::notPrivate);
        break;
    case ErrorLayer::sync:
        code = codeOf(value, name, SyncError::recordNotStored);
        break;
    default:
        break;
    }
    std::shared_ptr<const Error> cause;
    if (const QJsonValue below = json.value(View("cause"));
        below.isObject() && depth < deepestCause)
        cause = std::make_shared<const Error>(errorOf(below.toObject(), depth + 1));
    return {code.value_or(PhoneError::refused),
            json.value(View("arguments")).toArray().toVariantList(), std::move(cause)};
}

QString dateText(const QDateTime& date) {
    return date.toUTC().toString(Qt::ISODate);
}

QDateTime dateOf(const QJsonValue& value) {
    return QDateTime::fromString(value.toString(), Qt::ISODate);
}

std::optional<SyncReportItem> itemOf(const QJsonObject& json) {
    const QString action = json.value(View("action")).toString();
    for (int n = 0; n <= static_cast<int>(SyncDeed::renameHere); ++n)
        if (const auto deed = static_cast<SyncDeed>(n); action == QLatin1StringView(deedName(deed)))
            return SyncReportItem{deed, json.value(View("path")).toString(),
                                  json.value(View("other")).toString(),
                                  json.value(View("size")).toInteger()};
    return std::nullopt;
}

} // namespace

QJsonObject encodeReport(const SyncReport& report) {
    QJsonArray items;
    for (const SyncReportItem& item : report.items) {
        QJsonObject object{{View("action"), QString::fromLatin1(deedName(item.deed))},
                           {View("path"), item.path},
                           {View("size"), item.size}};
        if (!item.other.isEmpty())
            object.insert(View("other"), item.other);
        items.append(object);
    }
    QJsonArray skipped;
    for (const SyncSkippedItem& item : report.skipped)
        skipped.append(
            QJsonObject{{View("path"), item.path}, {View("error"), errorJson(item.reason)}});
    QJsonObject object{{View("outcome"), outcomeNames[static_cast<std::size_t>(report.outcome)]},
                       {View("startedAt"), dateText(report.startedAt)},
                       {View("endedAt"), dateText(report.endedAt)},
                       {View("transferredBytes"), report.transferredBytes},
                       {View("inSync"), report.inSync},
                       {View("items"), items},
                       {View("skipped"), skipped}};
    if (report.failure)
        object.insert(View("failure"), errorJson(*report.failure));
    return object;
}

std::optional<SyncReport> decodeReport(const QJsonObject& json) {
    SyncReport report;
    const QString outcome = json.value(View("outcome")).toString();
    const auto* const name = std::find(outcomeNames.begin(), outcomeNames.end(), outcome);
    report.startedAt = dateOf(json.value(View("startedAt")));
    report.endedAt = dateOf(json.value(View("endedAt")));
    if (name == outcomeNames.end() || !report.startedAt.isValid() || !report.endedAt.isValid())
        return std::nullopt;
    report.outcome = static_cast<Outcome>(name - outcomeNames.begin());
    report.transferredBytes = json.value(View("transferredBytes")).toInteger();
    report.inSync = json.value(View("inSync")).toInteger();
    for (const QJsonValue& item : json.value(View("items")).toArray())
        if (auto known = itemOf(item.toObject()))
            report.items.push_back(*std::move(known));
    for (const QJsonValue& item : json.value(View("skipped")).toArray())
        report.skipped.push_back({item.toObject().value(View("path")).toString(),
                                  errorOf(item.toObject().value(View("error")).toObject())});
    if (const QJsonValue failure = json.value(View("failure")); failure.isObject())
        report.failure = errorOf(failure.toObject());
    return report;
}

} // namespace tessary
