#include "platform/qt/JsonUserDefaults.h"

#include "core/DiagnosticsLogger.h"
#include "platform/SystemUserDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <optional>

namespace tessary {

namespace {

constexpr qint64 largestFile = 16 * 1024 * 1024;
constexpr int lockTimeout = 1000; // ms; a change takes a few

/// What the file holds: nothing when it is missing, no value when it is damaged.
std::optional<QJsonObject> read(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists())
        return QJsonObject();
    QFile file(path);
    if (!info.isFile() || info.size() > largestFile || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.read(largestFile);
    if (bytes.trimmed().isEmpty())
        return QJsonObject();
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

} // namespace

JsonUserDefaults::JsonUserDefaults(QString file)
    : file_(std::move(file)), values_(read(file_).value_or(QJsonObject())) {}

QJsonValue JsonUserDefaults::value(const QString& key) const {
    const std::scoped_lock lock(mutex_);
    return values_.value(key);
}

void JsonUserDefaults::setValue(const QString& key, const QJsonValue& value) {
    const std::scoped_lock lock(mutex_);
    values_.insert(key, value);
    unwritten_.insert(key, value);
    QDir().mkpath(QFileInfo(file_).absolutePath());
    QLockFile fileLock(file_ + QStringLiteral(".lock"));
    const bool isLocked = fileLock.tryLock(lockTimeout);
    if (isLocked) {
        if (const auto current = read(file_)) {
            values_ = *current;
            for (auto it = unwritten_.constBegin(); it != unwritten_.constEnd(); ++it)
                values_.insert(it.key(), it.value());
        } else {
            const QString aside = file_ + QStringLiteral(".damaged");
            QFile::remove(aside); // of an earlier time; nothing is renamed onto it
            QFile::rename(file_, aside);
        }
    }
    const QString failure = isLocked ? write() : QStringLiteral("another program holds its lock");
    if (failure.isEmpty())
        unwritten_.clear();
    else
        DiagnosticsLogger::shared().ui.error("Cannot store settings in %s: %s", {file_, failure});
}

QString JsonUserDefaults::write() {
    QSaveFile out(file_);
    const QByteArray bytes = QJsonDocument(values_).toJson();
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit())
        return out.errorString();
    return {};
}

std::unique_ptr<UserDefaults> makeSystemUserDefaults() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<JsonUserDefaults>(folder + QStringLiteral("/tessary/settings.json"));
}

} // namespace tessary
