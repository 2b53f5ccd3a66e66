#pragma once

#include "platform/http/HttpError.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <chrono>
#include <stop_token>
#include <utility>

namespace tessary {

struct HttpRequest {
    QUrl url;
    QList<std::pair<QByteArray, QByteArray>> headers;
    std::chrono::milliseconds timeout{60'000}; ///< for everything together, redirects included
    qint64 maxBodyBytes = 256 * 1024;          ///< a longer answer is a failure
};

struct HttpResponse {
    int status = 0;
    /// Whole where the server told its length. One that came in chunks may have been cut off
    /// without a trace, so that content that needs an end has to be checked for one.
    QByteArray body;
};

/// Whether an address may be opened: https, or http on this machine's loopback; with a host, and
/// with no user name in it.
[[nodiscard]] bool isSafeAddress(const QUrl& url);

/// Fetches pages. Thread-safe; each call blocks until the answer is complete, for `timeout` at
/// most, and is not for the main thread.
class HttpClient {
public:
    virtual ~HttpClient() = default;

    /// Fetches a page past every cache. Addresses that are not safe are not opened, those that the
    /// server redirects to included. Throws Error
    /// with a code of HttpError, and CancellationError once `stop` is asked
    /// for.
    [[nodiscard]] virtual HttpResponse get(const HttpRequest& request,
                                           const std::stop_token& stop) = 0;
};

class QtHttpClient final : public HttpClient {
public:
    [[nodiscard]] HttpResponse get(const HttpRequest& request,
                                   const std::stop_token& stop) override;
};

} // namespace tessary
