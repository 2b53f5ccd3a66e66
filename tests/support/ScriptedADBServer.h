#pragma once

#include "adb/server/ADBServerAddress.h"
#include "simulator/wire/PhoneSockets.h"

#include <QByteArrayList>

#include <poll.h>
#include <sys/socket.h>

#include <functional>
#include <mutex>
#include <thread>

namespace tessary {

/// Listens where an adb server would, and gives each connection one answer, in the test's words.
class ScriptedADBServer {
public:
    /// The text that a request is answered with; "FAIL" before it makes it a refusal, "HANG" stands
    /// for no answer, "DRIP" for one that comes byte by byte.
    using Answer = std::function<QByteArray(const QByteArray& request)>;

    explicit ScriptedADBServer(Answer answer, QByteArray version = "0029")
        : answer_(std::move(answer)),
          version_(std::move(version)),
          socket_(PhoneSockets::listenAt(QStringLiteral("127.0.0.1"), 0)),
          thread_([this](const std::stop_token& stop) {
              while (!stop.stop_requested()) {
                  for (const FileHandle& connection : dripping_)
                      send(connection, "x");
                  pollfd waiting{socket_.get(), POLLIN, 0};
                  if (::poll(&waiting, 1, 20) > 0)
                      serve(FileHandle(::accept(socket_.get(), nullptr, nullptr)));
              }
          }) {}

    [[nodiscard]] ADBServerAddress address() const {
        return {.port = PhoneSockets::portOf(socket_), .socketPath = {}};
    }
    /// But for those for its version and its list of phones.
    [[nodiscard]] QByteArrayList requests() const {
        const std::scoped_lock lock(mutex_);
        return requests_;
    }

private:
    static QByteArray counted(const QByteArray& text) {
        return QByteArray::number(text.size(), 16).rightJustified(4, '0') + text;
    }
    void serve(FileHandle connection) {
        QByteArray front(4, '0');
        (void)!::recv(connection.get(), front.data(), 4, MSG_WAITALL);
        QByteArray request(front.toInt(nullptr, 16), '0');
        (void)!::recv(connection.get(), request.data(), static_cast<std::size_t>(request.size()),
                      MSG_WAITALL);
        if (request == "host:version")
            return send(connection, "OKAY" + counted(version_));
        if (request.startsWith("host:track-devices")) {
            send(connection, "OKAY" + counted({}));
            kept_.push_back(std::move(connection));
            return;
        }
        {
            const std::scoped_lock lock(mutex_);
            requests_.append(request);
        }
        const QByteArray answer = answer_(request);
        if (answer == "HANG")
            kept_.push_back(std::move(connection));
        else if (answer == "DRIP")
            send(dripping_.emplace_back(std::move(connection)), "OKAYffff");
        else if (answer.startsWith("FAIL"))
            send(connection, "FAIL" + counted(answer.mid(4)));
        else
            send(connection, "OKAY" + counted(answer));
    }
    static void send(const FileHandle& connection, const QByteArray& bytes) {
        (void)!::send(connection.get(), bytes.constData(), static_cast<std::size_t>(bytes.size()),
                      MSG_NOSIGNAL);
    }

    const Answer answer_;
    const QByteArray version_;
    mutable std::mutex mutex_;
    QByteArrayList requests_; ///< guarded by mutex_
    const FileHandle socket_;
    std::vector<FileHandle> kept_; ///< connections that stay open
    std::vector<FileHandle> dripping_;
    std::jthread thread_;
};

} // namespace tessary
