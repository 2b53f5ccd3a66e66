#include "platform/keys/DesktopKeyStore.h"

#include "base/log/DiagnosticsLogger.h"
#include "platform/keys/FileKeyStore.h"

#include <QDir>
#include <QLockFile>
#include <QObject>
#include <QStandardPaths>
#include <QThread>

#include <qt6keychain/keychain.h>

#include <future>
#include <utility>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// A person may have to type a password first.
constexpr auto patience = 60s;

/// The library keeps its queue on the thread that used it first, so that all its work is done on
/// one that stays.
class KeychainThread {
public:
    static KeychainThread& shared() {
        static KeychainThread thread;
        return thread;
    }
    template <typename Work>
    void post(Work work) {
        QMetaObject::invokeMethod(&onThread_, std::move(work), Qt::QueuedConnection);
    }

private:
    KeychainThread() {
        thread_.setObjectName(QStringLiteral("tessary-keys"));
        onThread_.moveToThread(&thread_);
        thread_.start();
    }
    ~KeychainThread() {
        thread_.quit();
        if (!thread_.wait(QDeadlineTimer(1s)))
            thread_.terminate();
    }

    QThread thread_;
    QObject onThread_;
};

struct Answer {
    QKeychain::Error error = QKeychain::NoError;
    QString reason;
    QByteArray secret;
};

/// Whether the service itself has answered; else another store stands in for it.
bool isAnswered(const Answer& answer) {
    switch (answer.error) {
    case QKeychain::NoError:
    case QKeychain::EntryNotFound:
        return true;
    case QKeychain::AccessDenied:
    case QKeychain::AccessDeniedByUser:
        throw KeyStoreError(answer.reason);
    default:
        DiagnosticsLogger::shared().adb.info("No secret service answers: %s", {answer.reason});
        return false;
    }
}

QByteArray secretOf(const QKeychain::Job& job) {
    const auto* read = qobject_cast<const QKeychain::ReadPasswordJob*>(&job);
    return read ? read->binaryData() : QByteArray();
}

/// Runs a job that `make` makes on the library's thread. The job deletes itself.
template <typename Make>
Answer ask(const QString& tag, Make make) {
    const auto promise = std::make_shared<std::promise<Answer>>();
    auto answer = promise->get_future();
    KeychainThread::shared().post([=] {
        QKeychain::Job* job = make();
        job->setKey(tag);
        QObject::connect(job, &QKeychain::Job::finished, job, [promise](QKeychain::Job* ended) {
            promise->set_value({ended->error(), ended->errorString(), secretOf(*ended)});
        });
        job->start();
    });
    if (answer.wait_for(patience) != std::future_status::ready)
        throw KeyStoreError(QStringLiteral("The desktop's key store does not answer."));
    return answer.get();
}

Answer read(const QString& service, const QString& tag) {
    return ask(tag, [=] { return new QKeychain::ReadPasswordJob(service); });
}

Answer write(const QString& service, const QString& tag, const QByteArray& secret) {
    return ask(tag, [=] {
        auto* job = new QKeychain::WritePasswordJob(service);
        job->setBinaryData(secret);
        return job;
    });
}

std::optional<QByteArray> found(const Answer& answer) {
    return answer.error == QKeychain::NoError ? std::optional(answer.secret) : std::nullopt;
}

} // namespace

DesktopKeyStore::DesktopKeyStore(QString service, std::unique_ptr<KeyStore> fallback,
                                 QString lockFolder)
    : service_(std::move(service)),
      fallback_(std::move(fallback)),
      lockFolder_(std::move(lockFolder)) {}

std::optional<QByteArray> DesktopKeyStore::find(const QString& tag) {
    if (const auto known = fallback_->find(tag))
        return known;
    const Answer answer = read(service_, tag);
    return isAnswered(answer) ? found(answer) : std::nullopt;
}

QByteArray DesktopKeyStore::addIfMissing(const QString& tag, const QByteArray& secret) {
    QDir().mkpath(lockFolder_);
    QLockFile lock(lockFolder_ + QLatin1Char('/') + tag + QStringLiteral(".lock"));
    lock.setStaleLockTime(0); // while its program lives
    if (!lock.tryLock(static_cast<int>(std::chrono::milliseconds(patience).count())))
        throw KeyStoreError(
            QStringLiteral("Another program holds %1/%2.lock").arg(lockFolder_, tag));
    if (const auto known = fallback_->find(tag))
        return *known;
    Answer answer = read(service_, tag);
    if (isAnswered(answer) && !found(answer)) {
        answer = write(service_, tag, secret);
        if (isAnswered(answer))
            answer = read(service_, tag);
    }
    if (!isAnswered(answer))
        return fallback_->addIfMissing(tag, secret);
    if (!found(answer))
        throw KeyStoreError(QStringLiteral("The desktop's key store has kept nothing."));
    return answer.secret;
}

std::unique_ptr<KeyStore> makeSystemKeyStore() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                           QStringLiteral("/tessary");
    return std::make_unique<DesktopKeyStore>(
        QStringLiteral("tessary"), std::make_unique<FileKeyStore>(folder + QStringLiteral("/keys")),
        folder);
}

} // namespace tessary
