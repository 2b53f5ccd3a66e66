#include "platform/http/HttpClient.h"

#include "base/threads/CancellationError.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

#include <memory>

namespace tessary {

namespace {

constexpr int maxRedirects = 5;
constexpr int stopCheckedEvery = 50; // ms

struct DeleteLater {
    void operator()(QNetworkReply* reply) const {
        reply->abort();
        delete reply;
    }
};
using Reply = std::unique_ptr<QNetworkReply, DeleteLater>;

void append(QByteArray& body, QNetworkReply& reply, qint64 limit) {
    body += reply.read(limit + 1 - body.size());
    if (body.size() > limit)
        throw Error(HttpError::tooLong);
}

/// Waits for the end of an answer and gathers its body on the way.
QByteArray bodyOf(QNetworkReply& reply, qint64 limit, const QDeadlineTimer& deadline,
                  const std::stop_token& stop) {
    QByteArray body;
    QEventLoop loop;
    QTimer timer;
    timer.start(stopCheckedEvery);
    QObject::connect(&reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(&reply, &QNetworkReply::readyRead, &loop, &QEventLoop::quit);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    while (!reply.isFinished()) {
        loop.exec();
        if (stop.stop_requested())
            throw CancellationError();
        if (deadline.hasExpired())
            throw Error(HttpError::timedOut);
        append(body, reply, limit);
    }
    append(body, reply, limit);
    return body;
}

QNetworkRequest networkRequest(const QUrl& url, const HttpRequest& request) {
    QNetworkRequest made(url);
    made.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                      QNetworkRequest::ManualRedirectPolicy);
    made.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    made.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    // Whether a body is whole shows only as it travels, not once it is unpacked.
    made.setRawHeader("Accept-Encoding", "identity");
    for (const auto& [name, value] : request.headers)
        made.setRawHeader(name, value);
    return made;
}

/// The library takes a connection that ends early for the end of the answer, now and then.
bool isWhole(const QNetworkReply& reply, const QByteArray& body) {
    if (!reply.hasRawHeader("Content-Length"))
        return true;
    bool isNumber = false;
    const qint64 length = reply.rawHeader("Content-Length").trimmed().toLongLong(&isNumber);
    return isNumber && body.size() == length;
}

} // namespace

bool isSafeAddress(const QUrl& url) {
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty())
        return false;
    const bool isLoopback =
        url.host() == QLatin1StringView("localhost") || QHostAddress(url.host()).isLoopback();
    return url.scheme() == QLatin1StringView("https") ||
           (url.scheme() == QLatin1StringView("http") && isLoopback);
}

HttpResponse QtHttpClient::get(const HttpRequest& request, const std::stop_token& stop) {
    const QDeadlineTimer deadline(request.timeout);
    QNetworkAccessManager manager;
    QUrl url = request.url;
    for (int redirects = 0; redirects <= maxRedirects; ++redirects) {
        if (!isSafeAddress(url))
            throw Error(HttpError::unsafeAddress);
        const Reply reply(manager.get(networkRequest(url, request)));
        HttpResponse response;
        response.body = bodyOf(*reply, request.maxBodyBytes, deadline, stop);
        const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
        response.status = status.toInt();
        const QVariant target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute);
        // From 400 on, the status is an error to the library too.
        if (reply->error() != QNetworkReply::NoError && response.status < 400)
            throw Error(HttpError::failed, {reply->errorString()});
        if (!isWhole(*reply, response.body))
            throw Error(HttpError::cutOff);
        if (!target.isValid())
            return response;
        url = url.resolved(target.toUrl());
    }
    throw Error(HttpError::endlessRedirects);
}

} // namespace tessary
