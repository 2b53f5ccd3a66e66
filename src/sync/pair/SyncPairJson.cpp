#include "sync/pair/SyncPairJson.h"

#include <QJsonObject>
#include <QTimeZone>

#include <array>
#include <cmath>
#include <limits>

namespace tessary {

namespace {

using View = QLatin1StringView;
using Kind = SyncStatus::Kind;

constexpr std::array statusNames{View("idle"), View("syncing"), View("completed"), View("error")};

/// 2001-01-01 00:00:00 UTC in milliseconds since 1970.
constexpr qint64 referenceDate = 978'307'200'000;
constexpr double millisecondsPerSecond = 1000;

struct TextField {
    View key;
    QString SyncPair::*member;
};

constexpr std::array textFields{
    TextField{View("deviceUDID"), &SyncPair::deviceUDID},
    TextField{View("deviceName"), &SyncPair::deviceName},
    TextField{View("appBundleID"), &SyncPair::appBundleID},
    TextField{View("appName"), &SyncPair::appName},
    TextField{View("remoteFolderPath"), &SyncPair::remoteFolderPath},
    TextField{View("localFolderPath"), &SyncPair::localFolderPath},
};

struct Counter {
    View key;
    qint64 SyncProgress::*member;
};

constexpr std::array counters{
    Counter{View("totalFiles"), &SyncProgress::totalFiles},
    Counter{View("completedFiles"), &SyncProgress::completedFiles},
    Counter{View("totalBytes"), &SyncProgress::totalBytes},
    Counter{View("completedBytes"), &SyncProgress::completedBytes},
    Counter{View("currentFileBytes"), &SyncProgress::currentFileBytes},
};

struct BadValue {};

QString requireText(const QJsonObject& object, View key) {
    const QJsonValue value = object.value(key);
    if (!value.isString())
        throw BadValue{};
    return value.toString();
}

/// A value that may be left out (or null) but not be of another kind.
std::optional<QJsonValue> optionalOf(const QJsonObject& object, View key, QJsonValue::Type type) {
    const QJsonValue value = object.value(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    if (value.type() != type)
        throw BadValue{};
    return value;
}

QJsonObject statusJson(const SyncStatus& status) {
    QJsonObject payload;
    if (status.kind == Kind::syncing)
        payload.insert(View("progressMessage"), rawValue(status.stage));
    if (status.kind == Kind::error)
        payload.insert(View("_0"), status.message);
    return {{statusNames[static_cast<std::size_t>(status.kind)], payload}};
}

SyncStatus statusOf(const QJsonObject& object) {
    if (object.size() != 1)
        throw BadValue{};
    for (std::size_t n = 0; n < statusNames.size(); ++n) {
        if (object.begin().key() != statusNames[n])
            continue;
        const QJsonObject payload = object.begin().value().toObject();
        const auto kind = static_cast<Kind>(n);
        if (kind == Kind::syncing)
            return SyncStatus::syncing(
                syncStageFromRawValue(requireText(payload, View("progressMessage"))));
        if (kind == Kind::error)
            return SyncStatus::error(requireText(payload, View("_0")));
        return {kind, SyncStage::none, {}};
    }
    throw BadValue{};
}

QJsonObject progressJson(const SyncProgress& progress) {
    QJsonObject object{{View("currentFileName"), progress.currentFileName},
                       {View("stage"), rawValue(progress.stage)}};
    for (const Counter& counter : counters)
        object.insert(counter.key, progress.*counter.member);
    return object;
}

SyncProgress progressOf(const QJsonObject& object) {
    SyncProgress progress;
    for (const Counter& counter : counters) {
        const QJsonValue value = object.value(counter.key);
        if (!value.isDouble())
            throw BadValue{};
        progress.*counter.member = value.toInteger();
    }
    progress.currentFileName = requireText(object, View("currentFileName"));
    progress.stage = syncStageFromRawValue(requireText(object, View("stage")));
    return progress;
}

QJsonObject pairJson(const SyncPair& pair) {
    QJsonObject object{
        {View("id"), pair.id.toString(QUuid::WithoutBraces).toUpper()},
        {View("syncMode"), rawValue(pair.syncMode)},
        {View("deleteSyncEnabled"), pair.deleteSyncEnabled},
        {View("moveFilesEnabled"), pair.moveFilesEnabled},
        {View("runsWhenPluggedIn"), pair.runsWhenPluggedIn},
        {View("patterns"), QJsonArray::fromStringList(pair.patterns)},
        {View("status"), statusJson(pair.status)},
        {View("progress"), progressJson(pair.progress)},
    };
    for (const TextField& field : textFields)
        object.insert(field.key, pair.*field.member);
    if (pair.lastSyncedAt)
        object.insert(View("lastSyncedAt"),
                      static_cast<double>(pair.lastSyncedAt->toMSecsSinceEpoch() - referenceDate) /
                          millisecondsPerSecond);
    return object;
}

SyncPair pairOf(const QJsonObject& object) {
    SyncPair pair;
    pair.id = QUuid::fromString(requireText(object, View("id")));
    const auto mode = syncModeFromRawValue(requireText(object, View("syncMode")));
    if (pair.id.isNull() || !mode)
        throw BadValue{};
    pair.syncMode = *mode;
    for (const TextField& field : textFields)
        pair.*field.member = requireText(object, field.key);
    if (const auto value = optionalOf(object, View("deleteSyncEnabled"), QJsonValue::Bool))
        pair.deleteSyncEnabled = value->toBool();
    if (const auto value = optionalOf(object, View("moveFilesEnabled"), QJsonValue::Bool))
        pair.moveFilesEnabled = value->toBool();
    if (const auto value = optionalOf(object, View("runsWhenPluggedIn"), QJsonValue::Bool))
        pair.runsWhenPluggedIn = value->toBool();
    if (const auto value = optionalOf(object, View("patterns"), QJsonValue::Array)) {
        pair.patterns.clear();
        for (const QJsonValue& line : value->toArray())
            pair.patterns.append(line.toString());
    }
    if (const auto value = optionalOf(object, View("lastSyncedAt"), QJsonValue::Double)) {
        constexpr double farthest = 1e12; // seconds; beyond any calendar
        const double seconds = value->toDouble();
        if (!(std::abs(seconds) < farthest))
            throw BadValue{};
        pair.lastSyncedAt = QDateTime::fromMSecsSinceEpoch(
            referenceDate + std::llround(seconds * millisecondsPerSecond), QTimeZone::utc());
    }
    if (const auto value = optionalOf(object, View("status"), QJsonValue::Object))
        pair.status = statusOf(value->toObject());
    if (const auto value = optionalOf(object, View("progress"), QJsonValue::Object))
        pair.progress = progressOf(value->toObject());
    return pair;
}

} // namespace

QJsonArray encodeSyncPairs(const std::vector<SyncPair>& pairs) {
    QJsonArray array;
    for (const SyncPair& pair : pairs)
        array.append(pairJson(pair));
    return array;
}

std::optional<std::vector<SyncPair>> decodeSyncPairs(const QJsonValue& json) {
    if (!json.isArray())
        return std::nullopt;
    std::vector<SyncPair> pairs;
    try {
        for (const QJsonValue& value : json.toArray())
            pairs.push_back(pairOf(value.toObject()));
    } catch (const BadValue&) {
        return std::nullopt;
    }
    return pairs;
}

} // namespace tessary
