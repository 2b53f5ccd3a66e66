#include "sync/plan/SyncManifest.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <chrono>

namespace tessary {

namespace {

using View = QLatin1StringView;

/// 0001-01-01 and the end of 9999, in milliseconds since 1970.
constexpr qint64 earliest = -62'135'596'800'000;
constexpr qint64 latest = 253'402'300'799'999;
constexpr qint64 millisecondsPerDay = 86'400'000;

struct BadValue {};

/// "yyyy-MM-ddTHH:mm:ssZ". Written by hand: QDateTime takes a microsecond for each.
void appendDate(QByteArray& out, const QDateTime& date) {
    using namespace std::chrono;
    const sys_time<milliseconds> time(
        milliseconds(std::clamp(date.toMSecsSinceEpoch(), earliest, latest)));
    const auto midnight = floor<days>(time);
    const year_month_day day(midnight);
    const hh_mm_ss clock(floor<seconds>(time - midnight));
    const auto append = [&out](auto number, int digits, const char* behind) {
        std::array<char, 4> text{};
        for (int n = digits; n-- > 0; number /= 10)
            text[static_cast<std::size_t>(n)] = static_cast<char>('0' + number % 10);
        out.append(text.data(), digits).append(behind);
    };
    out.append('"');
    append(static_cast<int>(day.year()), 4, "-");
    append(static_cast<unsigned>(day.month()), 2, "-");
    append(static_cast<unsigned>(day.day()), 2, "T");
    append(clock.hours().count(), 2, ":");
    append(clock.minutes().count(), 2, ":");
    append(clock.seconds().count(), 2, "Z\"");
}

/// A JSON string. Lone surrogates, which UTF-8 cannot hold, are written as escapes.
void appendText(QByteArray& out, const QString& text) {
    static constexpr char hexDigits[] = "0123456789abcdef";
    const auto escape = [&out](char16_t unit) {
        out.append("\\u");
        for (int shift = 12; shift >= 0; shift -= 4)
            out.append(hexDigits[(unit >> shift) & 0xF]);
    };
    out.append('"');
    qsizetype plainFrom = 0;
    const auto flush = [&](qsizetype to) {
        if (to > plainFrom)
            out.append(QStringView(text).mid(plainFrom, to - plainFrom).toUtf8());
        plainFrom = to + 1;
    };
    for (qsizetype n = 0; n < text.size(); ++n) {
        const QChar unit = text[n];
        if (unit == u'"' || unit == u'\\') {
            flush(n);
            out.append('\\').append(unit.toLatin1());
        } else if (unit.unicode() < u' ') {
            flush(n);
            escape(unit.unicode());
        } else if (unit.isHighSurrogate() && n + 1 < text.size() && text[n + 1].isLowSurrogate()) {
            ++n;
        } else if (unit.isSurrogate()) {
            flush(n);
            escape(unit.unicode());
        }
    }
    flush(text.size());
    out.append('"');
}

void appendField(QByteArray& out, const char* indent, const char* key, const QString& value) {
    out.append(indent).append('"').append(key).append("\" : ");
    appendText(out, value);
    out.append(",\n");
}

void appendField(QByteArray& out, const char* indent, const char* key, const QDateTime& value) {
    out.append(indent).append('"').append(key).append("\" : ");
    appendDate(out, value);
    out.append(",\n");
}

void appendFile(QByteArray& out, const QString& path, const SyncFileEntry& entry) {
    constexpr const char* indent = "          ";
    out.append("        ");
    appendText(out, path);
    out.append(" : {\n");
    if (entry.isContentKnown)
        out.append(indent).append("\"contentKnown\" : true,\n");
    if (entry.deviceModifiedDate)
        appendField(out, indent, "deviceModifiedDate", *entry.deviceModifiedDate);
    if (entry.differingDate)
        appendField(out, indent, "differingDate", *entry.differingDate);
    appendField(out, indent, "modifiedDate", entry.modifiedDate);
    if (!entry.sha256.isEmpty())
        out.append(indent).append("\"sha256\" : \"").append(entry.sha256.toHex()).append("\",\n");
    out.append(indent).append("\"size\" : ").append(QByteArray::number(entry.size));
    out.append("\n        }");
}

void appendHost(QByteArray& out, const QString& id, const SyncHostEntry& host) {
    constexpr const char* indent = "      ";
    out.append("    ");
    appendText(out, id);
    out.append(" : {\n");
    appendField(out, indent, "appBundleID", host.appBundleID);
    appendField(out, indent, "deviceUDID", host.deviceUDID);
    out.append(indent).append("\"files\" : {");
    bool isFirst = true;
    for (const auto& [path, entry] : host.files) {
        out.append(isFirst ? "\n" : ",\n");
        isFirst = false;
        appendFile(out, path, entry);
    }
    out.append(isFirst ? "},\n" : "\n      },\n");
    appendField(out, indent, "lastSynced", host.lastSynced);
    appendField(out, indent, "localFolderPath", host.localFolderPath);
    appendField(out, indent, "macName", host.macName);
    appendField(out, indent, "remoteFolderPath", host.remoteFolderPath);
    appendField(out, indent, "runID", host.runID);
    out.append(indent).append("\"runNumber\" : ").append(QByteArray::number(host.runNumber));
    out.append(",\n").append(indent).append("\"startedAt\" : ");
    appendDate(out, host.startedAt);
    out.append("\n    }");
}

/// The number of `count` digits at `at`; -1 when there are others.
int number(const QString& text, qsizetype at, int count) {
    int value = 0;
    for (qsizetype n = at; n < at + count; ++n) {
        const char16_t unit = text[n].unicode();
        if (unit < u'0' || unit > u'9')
            return -1;
        value = value * 10 + (unit - u'0');
    }
    return value;
}

QDateTime dateOf(const QJsonValue& value) {
    const QString text = value.toString();
    constexpr qsizetype plainLength = 20;
    if (text.size() == plainLength && text.endsWith(u'Z') && text[10] == u'T') {
        const QDate day(number(text, 0, 4), number(text, 5, 2), number(text, 8, 2));
        const int hour = number(text, 11, 2);
        const int minute = number(text, 14, 2);
        const int second = number(text, 17, 2);
        if (day.isValid() && day.year() > 0 && QTime::isValid(hour, minute, second))
            return QDateTime::fromMSecsSinceEpoch(
                QDate(1970, 1, 1).daysTo(day) * millisecondsPerDay +
                    QTime(hour, minute, second).msecsSinceStartOfDay(),
                Qt::UTC);
    }
    const QDateTime date = QDateTime::fromString(text, Qt::ISODate);
    if (!date.isValid())
        throw BadValue{};
    return syncDate(date);
}

QString textOf(const QJsonValue& value) {
    if (!value.isString())
        throw BadValue{};
    return value.toString();
}

SyncFileEntry fileOf(const QJsonValue& value) {
    const QJsonObject object = value.toObject();
    const QJsonValue size = object.value(View("size"));
    if (!size.isDouble())
        throw BadValue{};
    constexpr qint64 notWhole = -1;
    SyncFileEntry entry;
    entry.size = size.toInteger(notWhole);
    entry.modifiedDate = dateOf(object.value(View("modifiedDate")));
    if (const QJsonValue date = object.value(View("deviceModifiedDate")); date.isString())
        entry.deviceModifiedDate = dateOf(date);
    if (const QJsonValue date = object.value(View("differingDate")); date.isString())
        entry.differingDate = dateOf(date);
    entry.isContentKnown = object.value(View("contentKnown")).toBool();
    entry.sha256 = QByteArray::fromHex(object.value(View("sha256")).toString().toLatin1());
    return entry;
}

SyncHostEntry hostOf(const QJsonValue& value) {
    const QJsonObject object = value.toObject();
    SyncHostEntry host;
    host.macName = textOf(object.value(View("macName")));
    host.deviceUDID = textOf(object.value(View("deviceUDID")));
    host.remoteFolderPath = textOf(object.value(View("remoteFolderPath")));
    host.localFolderPath = textOf(object.value(View("localFolderPath")));
    host.lastSynced = dateOf(object.value(View("lastSynced")));
    host.appBundleID = object.value(View("appBundleID")).toString();
    host.runID = object.value(View("runID")).toString();
    host.runNumber = std::max<qint64>(0, object.value(View("runNumber")).toInteger());
    host.startedAt = host.runID.isEmpty() ? syncDate({}) : dateOf(object.value(View("startedAt")));
    const QJsonValue files = object.value(View("files"));
    if (!files.isObject())
        throw BadValue{};
    const QJsonObject entries = files.toObject();
    for (auto it = entries.constBegin(); it != entries.constEnd(); ++it) {
        SyncFileEntry entry = fileOf(it.value());
        QString path = it.key();
        if (entry.size >= 0 && isSyncPath(path))
            host.files.insert_or_assign(host.files.end(), std::move(path), std::move(entry));
    }
    return host;
}

} // namespace

QDateTime syncDate(const std::optional<QDateTime>& date) {
    const qint64 msecs = date && date->isValid() ? date->toMSecsSinceEpoch() : 0;
    return QDateTime::fromMSecsSinceEpoch(std::clamp(msecs, earliest, latest), Qt::UTC);
}

QDateTime wholeSeconds(const QDateTime& date) {
    constexpr qint64 second = 1000;
    const qint64 msecs = date.toMSecsSinceEpoch();
    const qint64 below = (msecs % second + second) % second;
    return QDateTime::fromMSecsSinceEpoch(msecs - below, Qt::UTC);
}

bool isSyncPath(const QString& path) {
    const QList<QStringView> names = QStringView(path).split(u'/');
    return !path.contains(QChar::Null) &&
           std::none_of(names.begin(), names.end(), [](QStringView name) {
               return name.isEmpty() || name == View(".") || name == View("..") ||
                      name == SyncManifest::fileName;
           });
}

QByteArray SyncManifest::encode() const {
    QByteArray out("{\n  \"hosts\" : {");
    bool isFirst = true;
    for (const auto& [id, host] : hosts) {
        out.append(isFirst ? "\n" : ",\n");
        isFirst = false;
        appendHost(out, id, host);
    }
    out.append(isFirst ? "},\n" : "\n  },\n");
    out.append("  \"version\" : ").append(QByteArray::number(version)).append("\n}");
    return out;
}

std::optional<SyncManifest> SyncManifest::decode(const QByteArray& json) {
    if (json.size() > maxBytes)
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const QJsonValue version = object.value(View("version"));
    const QJsonValue hosts = object.value(View("hosts"));
    if (!version.isDouble() || !hosts.isObject())
        return std::nullopt;
    SyncManifest manifest;
    manifest.version = std::max<qint64>(1, version.toInteger(1));
    try {
        const QJsonObject entries = hosts.toObject();
        for (auto it = entries.constBegin(); it != entries.constEnd(); ++it)
            manifest.hosts.insert_or_assign(it.key(), hostOf(it.value()));
    } catch (const BadValue&) {
        return std::nullopt;
    }
    return manifest;
}

SyncManifest SyncManifest::merged(std::optional<SyncManifest> local,
                                  std::optional<SyncManifest> device) {
    SyncManifest result = std::move(local).value_or(SyncManifest());
    result.version = std::max<qint64>(1, result.version);
    if (device) {
        result.version = std::max(result.version, device->version);
        // Each record goes by the way of its own pair: what lies on the other phone of two that
        // share a folder here is an old copy.
        for (auto& [id, host] : device->hosts) {
            const auto own = result.hosts.find(id);
            if (own == result.hosts.end() || host.runNumber >= own->second.runNumber)
                result.hosts.insert_or_assign(id, std::move(host));
        }
    }
    return result;
}

} // namespace tessary
