#include "platform/desktop/SingleInstance.h"

#include "base/local/LocalError.h"
#include "base/local/PrivateFolder.h"
#include "base/log/DiagnosticsLogger.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>
#include <QTimer>

namespace tessary {

namespace {

constexpr int patience = 3000;      // ms, for another instance to answer
constexpr int attempt = 500;        // ms, for one step of that
constexpr int pause = 50;           // ms, between two attempts
constexpr qint64 longestLine = 512; // a token with its line break
constexpr int silentClient = 5000;  // ms, until one that sends nothing is dropped

} // namespace

SingleInstance::SingleInstance(const QString& name, const QString& folder)
    : socketPath_(folder + QLatin1Char('/') + name + QStringLiteral(".socket")),
      lock_(folder + QLatin1Char('/') + name + QStringLiteral(".lock")) {
    lock_.setStaleLockTime(0); // only a dead owner makes it stale, not its age
}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::runtimeFolder() {
    try {
        return PrivateFolder(PrivateFolder::Place::runtime, QStringLiteral("window")).path();
    } catch (const Error& error) {
        DiagnosticsLogger::shared().ui.error("Cannot tell later starts: %s", {error.logText()});
        return {}; // which takes no files
    }
}

SingleInstance::Outcome SingleInstance::claim(Raise raise, const QByteArray& activationToken) {
    raise_ = std::move(raise);
    QDeadlineTimer deadline(patience);
    do {
        if (lock_.tryLock(0)) {
            listen();
            return Outcome::first;
        }
        if (lock_.error() != QLockFile::LockFailedError)
            return Outcome::noAnswer; // the folder takes no files: nobody can be asked
        if (askOther(activationToken))
            return Outcome::raisedOther;
        QThread::msleep(pause);
    } while (!deadline.hasExpired());
    return Outcome::noAnswer;
}

void SingleInstance::listen() {
    QLocalServer::removeServer(socketPath_); // of one that crashed
    server_ = std::make_unique<QLocalServer>();
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(), [this] {
        while (QLocalSocket* client = server_->nextPendingConnection()) {
            QObject::connect(client, &QLocalSocket::readyRead, client,
                             [this, client] { answer(*client); });
            QObject::connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
            QTimer::singleShot(silentClient, client, [client] { client->abort(); });
        }
    });
    if (!server_->listen(socketPath_))
        DiagnosticsLogger::shared().ui.error("Cannot listen for later starts: %s",
                                             {server_->errorString()});
}

void SingleInstance::answer(QLocalSocket& client) {
    if (!client.canReadLine()) {
        if (client.bytesAvailable() >= longestLine)
            client.abort();
        return;
    }
    const QByteArray token = client.readLine(longestLine).trimmed();
    client.write("ok\n");
    client.disconnectFromServer();
    raise_(token);
}

bool SingleInstance::askOther(const QByteArray& activationToken) const {
    QLocalSocket socket;
    socket.connectToServer(socketPath_);
    if (!socket.waitForConnected(attempt))
        return false;
    const bool isSound =
        activationToken.size() < longestLine - 1 && !activationToken.contains('\n');
    socket.write((isSound ? activationToken : QByteArray()) + '\n');
    return socket.waitForBytesWritten(attempt) && socket.waitForReadyRead(patience) &&
           socket.readLine(longestLine) == "ok\n";
}

} // namespace tessary
