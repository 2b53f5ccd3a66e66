#include "platform/settings/JsonUserDefaults.h"

#include "base/log/DiagnosticsLogger.h"
#include "platform/settings/SystemUserDefaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>

#include <chrono>
#include <mutex>
#include <optional>
#include <utility>

namespace tessary {

namespace {

constexpr qint64 largestFile = 16 * 1024 * 1024;
constexpr int lockTimeout = 10'000; // ms; a change takes a few
constexpr std::chrono::seconds patienceAtEnd(3);

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

/// What went wrong; empty for success.
QString write(const QString& path, const QJsonObject& values) {
    QSaveFile out(path);
    const QByteArray bytes = QJsonDocument(values).toJson();
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit())
        return out.errorString();
    return {};
}

} // namespace

struct JsonUserDefaults::Store {
    explicit Store(QString path)
        : file(std::move(path)), values(read(file).value_or(QJsonObject())) {}

    const QString file;
    std::mutex mutex;
    // All guarded by mutex:
    QJsonObject values;
    QHash<QString, QJsonValue> unwritten; ///< changes that are not in the file
    bool isWriting = false;               ///< somebody is about to take them

    void write();
    void fail(const QString& reason, const QHash<QString, QJsonValue>& changes);
};

/// Makes the changes to what the file holds now. On the writer's thread.
void JsonUserDefaults::Store::write() {
    QDir().mkpath(QFileInfo(file).absolutePath());
    QLockFile fileLock(file + QStringLiteral(".lock"));
    const bool isLocked = fileLock.tryLock(lockTimeout);
    const auto current = isLocked ? read(file) : std::nullopt;
    QHash<QString, QJsonValue> changes;
    QJsonObject wanted;
    {
        const std::scoped_lock lock(mutex);
        isWriting = false;
        changes.swap(unwritten);
        if (current) {
            values = *current;
            for (auto it = changes.constBegin(); it != changes.constEnd(); ++it)
                values.insert(it.key(), it.value());
        }
        wanted = values;
    }
    if (!isLocked) {
        fail(fileLock.error() == QLockFile::LockFailedError
                 ? QStringLiteral("another program holds its lock")
                 : QStringLiteral("its folder cannot be written to"),
             changes);
        return;
    }
    if (!current) {
        const QString aside = file + QStringLiteral(".damaged");
        QFile::remove(aside); // of an earlier time; nothing is renamed onto it
        QFile::rename(file, aside);
    }
    if (const QString failure = tessary::write(file, wanted); !failure.isEmpty())
        fail(failure, changes);
}

/// Keeps the changes for the next time, unless they were overtaken.
void JsonUserDefaults::Store::fail(const QString& reason,
                                   const QHash<QString, QJsonValue>& changes) {
    DiagnosticsLogger::shared().ui.error("Cannot store settings in %s: %s", {file, reason});
    const std::scoped_lock lock(mutex);
    for (auto it = changes.constBegin(); it != changes.constEnd(); ++it)
        if (!unwritten.contains(it.key()))
            unwritten.insert(it.key(), it.value());
}

JsonUserDefaults::JsonUserDefaults(QString file)
    : store_(std::make_shared<Store>(std::move(file))), writer_("tessary-settings") {}

JsonUserDefaults::~JsonUserDefaults() {
    (void)writer_.finish(patienceAtEnd);
}

QJsonValue JsonUserDefaults::value(const QString& key) const {
    const std::scoped_lock lock(store_->mutex);
    return store_->values.value(key);
}

void JsonUserDefaults::setValue(const QString& key, const QJsonValue& value) {
    {
        const std::scoped_lock lock(store_->mutex);
        store_->values.insert(key, value);
        store_->unwritten.insert(key, value);
        if (std::exchange(store_->isWriting, true))
            return;
    }
    writer_.post([store = store_] { store->write(); });
}

std::unique_ptr<UserDefaults> makeSystemUserDefaults() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<JsonUserDefaults>(folder + QStringLiteral("/tessary/settings.json"));
}

} // namespace tessary
