#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace tessary {

/// A web server on a loopback port of its own that answers with whatever bytes a test likes, one
/// connection at a time. After the bytes the connection is closed; after none it is held open until
/// the client gives up.
class ScriptedHttpServer {
public:
    /// Called on the server's thread with the request's head.
    using Answer = std::function<QByteArray(const QByteArray& head)>;

    explicit ScriptedHttpServer(Answer answer) : answer_(std::move(answer)) {
        std::promise<quint16> listening;
        auto port = listening.get_future();
        thread_ = std::jthread(
            [this, &listening](const std::stop_token& stop) { serve(stop, listening); });
        port_ = port.get();
    }
    explicit ScriptedHttpServer(const QByteArray& answer)
        : ScriptedHttpServer([answer](const QByteArray&) { return answer; }) {}

    [[nodiscard]] QUrl url(const QString& path = QString()) const {
        return QUrl(QStringLiteral("http://127.0.0.1:%1%2").arg(port_).arg(path));
    }
    /// The heads of the requests so far.
    [[nodiscard]] std::vector<QByteArray> requests() const {
        const std::scoped_lock lock(mutex_);
        return requests_;
    }

    [[nodiscard]] static QByteArray ok(const QByteArray& body) {
        return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) +
               "\r\nConnection: close\r\n\r\n" + body;
    }
    [[nodiscard]] static QByteArray redirect(const QByteArray& target) {
        return "HTTP/1.1 302 Found\r\nLocation: " + target +
               "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
    }

private:
    void serve(const std::stop_token& stop, std::promise<quint16>& listening) {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        listening.set_value(server.serverPort());
        while (!stop.stop_requested())
            if (server.waitForNewConnection(20))
                talk(stop, *server.nextPendingConnection());
    }
    void talk(const std::stop_token& stop, QTcpSocket& client) {
        QByteArray head;
        while (!stop.stop_requested() && isOpen(client) && !head.contains("\r\n\r\n")) {
            client.waitForReadyRead(20);
            head += client.readAll();
        }
        {
            const std::scoped_lock lock(mutex_);
            requests_.push_back(head);
        }
        const QByteArray bytes = answer_(head);
        client.write(bytes);
        while (client.bytesToWrite() > 0 && client.waitForBytesWritten(2000)) {
        }
        while (bytes.isEmpty() && !stop.stop_requested() && isOpen(client))
            client.waitForReadyRead(20);
        client.disconnectFromHost();
        if (isOpen(client))
            client.waitForDisconnected(2000);
    }
    static bool isOpen(const QTcpSocket& client) {
        return client.state() == QAbstractSocket::ConnectedState;
    }

    Answer answer_;
    quint16 port_ = 0;
    mutable std::mutex mutex_;
    std::vector<QByteArray> requests_;
    std::jthread thread_; // last: it uses the others
};

} // namespace tessary
