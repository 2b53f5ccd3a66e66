#include "app/updates/UpdateCheckerService.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/log/Product.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"

#include <QUuid>

namespace tessary {

namespace {

HttpRequest manifestRequest(const QUrl& endpoint) {
    HttpRequest request;
    // A new address each time: no cache on the way can answer.
    request.url = QUrl(endpoint.toString(QUrl::StripTrailingSlash) +
                       QStringLiteral("/tessary/version.json?random=") +
                       QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    request.headers = {{"Cache-Control", "no-cache, no-store, must-revalidate"},
                       {"Pragma", "no-cache"}};
    return request;
}

UpdateInfo fetch(HttpClient& http, const QUrl& endpoint, const std::stop_token& stop) {
    const HttpResponse response = http.get(manifestRequest(endpoint), stop);
    if (response.status != 200)
        throw Error(HttpError::badStatus, {response.status});
    auto info = parseUpdateManifest(response.body);
    if (!info)
        throw Error(HttpError::badContent);
    return *std::move(info);
}

} // namespace

UpdateSource UpdateSource::builtIn() {
    return {QUrl(QStringLiteral(TESSARY_UPDATE_ENDPOINT)), QUrl(QStringLiteral(TESSARY_HOMEPAGE)),
            productVersion()};
}

UpdateCheckerService::UpdateCheckerService(std::shared_ptr<HttpClient> http,
                                           std::shared_ptr<SettingsStore> store,
                                           std::function<void(const QUrl&)> openAddress,
                                           UpdateSource source)
    : http_(std::move(http)),
      store_(std::move(store)),
      openAddress_(std::move(openAddress)),
      source_(std::move(source)) {}

void UpdateCheckerService::checkForUpdates(bool isUserInitiated) {
    isUserInitiated_ = isUserInitiated || (isChecking_ && isUserInitiated_);
    if (isChecking_)
        return;
    isChecking_ = true;
    checkFailure_.reset();
    Q_EMIT stateChanged();
    runInBackground(
        this,
        [http = http_, endpoint = source_.endpoint](const std::stop_token& stop) {
            return fetch(*http, endpoint, stop);
        },
        [this](BackgroundResult<UpdateInfo> result) {
            try {
                finish(result.take(), {});
            } catch (const CancellationError&) {
                isChecking_ = false; // the program ends
            } catch (const Error& error) {
                finish(std::nullopt, error);
            }
        });
}

void UpdateCheckerService::finish(const std::optional<UpdateInfo>& newest,
                                  const std::optional<Error>& failure) {
    isChecking_ = false;
    if (failure) {
        DiagnosticsLogger::shared().ui.error("Update check error: %s", {failure->logText()});
        if (isUserInitiated_)
            checkFailure_ = failure;
    } else if (!isNewerVersion(newest->version, source_.currentVersion)) {
        availableUpdate_.reset();
        showUpToDateAlert_ = isUserInitiated_;
    } else if (isUserInitiated_ || newest->version != store_->value(skippedVersionKey).toString()) {
        availableUpdate_ = newest;
    }
    Q_EMIT stateChanged();
}

bool UpdateCheckerService::canCheck() const {
    return isSafeAddress(source_.endpoint);
}

bool UpdateCheckerService::hasHomepage() const {
    return isSafeAddress(source_.homepage);
}

void UpdateCheckerService::checkAtStart() {
    if (canCheck() && checksAutomatically())
        checkForUpdates(false);
}

bool UpdateCheckerService::checksAutomatically() const {
    return store_->value(autoCheckKey).toBool(true);
}

void UpdateCheckerService::setChecksAutomatically(bool on) {
    store_->setValue(autoCheckKey, on);
    Q_EMIT stateChanged();
}

void UpdateCheckerService::skipVersion(const QString& version) {
    store_->setValue(skippedVersionKey, version);
    dismissUpdate();
}

void UpdateCheckerService::dismissUpdate() {
    availableUpdate_.reset();
    Q_EMIT stateChanged();
}

void UpdateCheckerService::dismissUpToDateAlert() {
    showUpToDateAlert_ = false;
    Q_EMIT stateChanged();
}

void UpdateCheckerService::dismissError() {
    checkFailure_.reset();
    Q_EMIT stateChanged();
}

void UpdateCheckerService::openHomepage(const QString& url) {
    const QUrl address(url, QUrl::StrictMode);
    if (isSafeAddress(address))
        openAddress_(address);
    else if (hasHomepage())
        openAddress_(source_.homepage);
}

} // namespace tessary
