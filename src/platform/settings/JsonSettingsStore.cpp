#include "platform/settings/JsonSettingsStore.h"

#include "base/local/FileLock.h"
#include "base/local/LocalError.h"
#include "base/local/WholeFile.h"
#include "base/log/DiagnosticsLogger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <future>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace tessary {

namespace {

constexpr qint64 largestFile = 16 * 1024 * 1024;
constexpr std::chrono::seconds lockTimeout(10); // a change takes milliseconds
constexpr std::chrono::seconds patienceAtEnd(3);

/// By key, in the order in which they were made.
using Changes = QHash<QString, std::vector<SettingsStore::Change>>;

void makeChanges(const Changes& changes, QJsonObject& values) {
    for (auto it = changes.constBegin(); it != changes.constEnd(); ++it)
        for (const SettingsStore::Change& change : it.value())
            values.insert(it.key(), change(values.value(it.key())));
}

/// What the file holds: values (none when it is missing), nonsense, or nothing that can be told.
struct Content {
    enum class Kind { values, damaged, unreadable };
    Kind kind = Kind::values;
    QJsonObject values;
    QString reason; ///< of what is unreadable
};

QString reasonOf(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

Content read(const QString& path) {
    const FileHandle opened(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    // Only what is said to be missing is: whatever else keeps it from being read is no reason to
    // write a new one in its place.
    if (!opened.isOpen() && errno == ENOENT && !QFileInfo(path).isSymLink())
        return {};
    struct stat facts {};
    QFile file;
    if (!opened.isOpen() || ::fstat(opened.get(), &facts) != 0)
        return {Content::Kind::unreadable, {}, reasonOf(errno)};
    if (!S_ISREG(facts.st_mode))
        return {Content::Kind::unreadable, {}, reasonOf(S_ISDIR(facts.st_mode) ? EISDIR : EINVAL)};
    if (!file.open(opened.get(), QIODevice::ReadOnly))
        return {Content::Kind::unreadable, {}, file.errorString()};
    if (facts.st_size > largestFile)
        return {Content::Kind::damaged, {}, {}};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return {Content::Kind::unreadable, {}, file.errorString()};
    if (bytes.trimmed().isEmpty())
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return {Content::Kind::damaged, {}, {}};
    return {Content::Kind::values, document.object(), {}};
}

/// Puts a damaged file beside those of earlier times, none of which is touched. Its new name;
/// empty when that cannot be done, by `reason`.
QString putAside(const QString& path, QString& reason) {
    constexpr int mostNumbers = 1000;
    for (int number = 1; number < mostNumbers; ++number) {
        QString aside = path + QStringLiteral(".damaged");
        if (number > 1)
            aside += QLatin1Char('-') + QString::number(number);
        QFile file(path);
        if (!QFileInfo(aside).isSymLink() && file.rename(aside)) // onto nothing that is there
            return aside;
        reason = file.errorString();
        if (!QFileInfo::exists(aside) && !QFileInfo(aside).isSymLink())
            break;
    }
    return {};
}

} // namespace

struct JsonSettingsStore::Store {
    explicit Store(QString path) : file(std::move(path)) {
        const Content content = read(file);
        values = content.values;
        if (content.kind == Content::Kind::damaged) {
            damaged = SettingsTrouble{SettingsTrouble::Kind::damaged, file, {}, {}};
            DiagnosticsLogger::shared().ui.error("Settings in %s are damaged", {file});
        }
        if (content.kind == Content::Kind::unreadable)
            notStored = troubleOf(content.reason);
    }

    const QString file;
    mutable std::mutex mutex;
    // All guarded by mutex:
    QJsonObject values;
    Changes unwritten;      ///< those that are not in the file
    bool isWriting = false; ///< somebody is about to take them
    std::optional<SettingsTrouble> damaged;
    std::optional<SettingsTrouble> notStored;
    std::function<void()> told;

    [[nodiscard]] std::optional<SettingsTrouble> trouble() const {
        const std::scoped_lock lock(mutex);
        return notStored ? notStored : damaged;
    }
    void write();

private:
    [[nodiscard]] SettingsTrouble troubleOf(const QString& reason) const {
        return {SettingsTrouble::Kind::notStored, file, reason, {}};
    }
    QString store(const Changes& changes);
};

/// Makes the changes to what the file holds now. On the writer's thread.
void JsonSettingsStore::Store::write() {
    const auto before = trouble();
    Changes changes;
    {
        const std::scoped_lock lock(mutex);
        isWriting = false;
        changes.swap(unwritten);
    }
    const QString reason = changes.isEmpty() ? QString() : store(changes);
    std::function<void()> tell;
    {
        const std::scoped_lock lock(mutex);
        if (reason.isEmpty() && !changes.isEmpty())
            notStored.reset();
        if (!reason.isEmpty()) {
            notStored = troubleOf(reason);
            // For the next time, before those that came meanwhile.
            for (auto it = changes.begin(); it != changes.end(); ++it) {
                std::vector<Change>& later = unwritten[it.key()];
                later.insert(later.begin(), it.value().begin(), it.value().end());
            }
        }
        tell = told;
    }
    if (!reason.isEmpty())
        DiagnosticsLogger::shared().ui.error("Cannot store settings in %s: %s", {file, reason});
    if (tell && trouble() != before)
        tell();
}

/// What went wrong; empty for success.
QString JsonSettingsStore::Store::store(const Changes& changes) {
    QDir().mkpath(QFileInfo(file).absolutePath());
    std::optional<FileLock> fileLock;
    try {
        if (!fileLock.emplace(file + QStringLiteral(".lock")).tryLock(lockTimeout))
            return reasonOf(EWOULDBLOCK); // another program holds it
    } catch (const Error& error) {
        return error.arguments().value(1).toString();
    }
    Content current = read(file);
    if (current.kind == Content::Kind::unreadable)
        return current.reason; // what is in it must not be lost
    if (current.kind == Content::Kind::damaged) {
        QString reason;
        const QString aside = putAside(file, reason);
        if (aside.isEmpty())
            return reason;
        const std::scoped_lock lock(mutex);
        damaged = SettingsTrouble{SettingsTrouble::Kind::damaged, file, {}, aside};
        current.values = values; // what this program knows is all there is
    }
    makeChanges(changes, current.values);
    {
        const std::scoped_lock lock(mutex);
        values = current.values;
        makeChanges(unwritten, values);
    }
    try {
        writeWholeFile(file, QJsonDocument(current.values).toJson());
        return {};
    } catch (const Error& error) {
        return error.arguments().value(1).toString();
    }
}

JsonSettingsStore::JsonSettingsStore(QString file)
    : store_(std::make_shared<Store>(std::move(file))), writer_("tessary-settings") {}

JsonSettingsStore::~JsonSettingsStore() {
    writer_.post([store = store_] { store->write(); }); // what could not be written before
    (void)writer_.finish(patienceAtEnd);
}

QJsonValue JsonSettingsStore::value(const QString& key) const {
    const std::scoped_lock lock(store_->mutex);
    return store_->values.value(key);
}

void JsonSettingsStore::change(const QString& key, const Change& change) {
    {
        const std::scoped_lock lock(store_->mutex);
        store_->values.insert(key, change(store_->values.value(key)));
        store_->unwritten[key].push_back(change);
        if (std::exchange(store_->isWriting, true))
            return;
    }
    writer_.post([store = store_] { store->write(); });
}

std::optional<SettingsTrouble> JsonSettingsStore::trouble() const {
    return store_->trouble();
}

void JsonSettingsStore::whenTroubleChanges(std::function<void()> told) {
    const std::scoped_lock lock(store_->mutex);
    store_->told = std::move(told);
}

bool JsonSettingsStore::store(std::chrono::milliseconds limit) {
    const auto done = std::make_shared<std::promise<void>>();
    writer_.post([store = store_, done] {
        store->write();
        done->set_value();
    });
    if (done->get_future().wait_for(limit) != std::future_status::ready)
        return false;
    const std::scoped_lock lock(store_->mutex);
    return store_->unwritten.isEmpty();
}

std::unique_ptr<SettingsStore> makeSystemSettingsStore() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<JsonSettingsStore>(folder + QStringLiteral("/tessary/settings.json"));
}

} // namespace tessary
